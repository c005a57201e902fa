#pragma once

#include <QObject>
#include <QPointer>

class QLabel;

/// A line right below a field, over whatever stands there, that says what became of a text: it goes when the field is
/// left, and takes no place in the form.
class FieldNotice : public QObject {
    Q_OBJECT

  public:
    explicit FieldNotice(QWidget& field);
    ~FieldNotice() override;

    /// Shows a text, which screen readers are told; nothing takes it away. A field that is not seen says nothing.
    void Say(const QString& text);
    [[nodiscard]] QString Text() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void takeAway();
    void place();

    QWidget& field_;
    QPointer<QLabel> line_;  ///< A child of the field's window, which may go before the field does.
};

/// What is said of a text that was cut to the characters that its column keeps.
[[nodiscard]] QString KeptText(int characters);
