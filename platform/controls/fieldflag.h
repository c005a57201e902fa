#pragma once

#include <QAction>
#include <QLineEdit>
#include <QPointer>

/// The mark of a field whose text is not understood: a red border, a warning sign in the field, and the complaint as
/// tip and as accessible description. The text itself stays.
class FieldFlag : public QObject {
    Q_OBJECT

  public:
    /// `edit` is the field's line edit and `host` the whole field. They may be the same widget.
    FieldFlag(QWidget& host, QLineEdit& edit);

    /// Marks the field without a sound.
    void mark(const QString& complaint);
    /// Marks the field, beeps and shows the complaint below it.
    void complain(const QString& complaint);
    void clear();
    /// Paints the border of a marked field. The host calls it at the end of its paint event.
    void paintBorder() const;

    [[nodiscard]] bool isUp() const { return !complaint_.isEmpty(); }
    [[nodiscard]] const QString& complaint() const { return complaint_; }
    /// Returns the colour of a warning, which can be seen on the palette's base, light or dark.
    [[nodiscard]] static QColor Colour(const QPalette& palette);

  private:
    QWidget& host_;
    QLineEdit& edit_;
    QAction* sign_;
    QString complaint_;
    QString description_;  ///< The host's own accessible description, kept while the flag is up.
};
