#pragma once

#include <QObject>
#include <QPointer>

class QLabel;

/// A line below a field that says what happened to its text. It lies over the widgets that stand there, so that it
/// takes no room in the form. It disappears when the field is left.
class FieldNotice : public QObject {
    Q_OBJECT

  public:
    explicit FieldNotice(QWidget& field);
    ~FieldNotice() override;

    /// Shows a text and announces it to screen readers. An empty text takes the line away. A field that is not visible
    /// shows nothing.
    void Say(const QString& text);
    [[nodiscard]] QString Text() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void takeAway();
    void place();

    QWidget& field_;
    QPointer<QLabel> line_;  ///< A child of the field's window, which may be destroyed before the field.
};

/// Returns the message for a text that was cut to the characters that its column keeps.
[[nodiscard]] QString KeptText(int characters);
