#pragma once

#include <optional>
#include <QAbstractSpinBox>

class FieldFlag;

/// The base of the fields with spin buttons. A person types any text. It is read at every moment as it stands, and it
/// is rewritten in the field's own form when the field is left or Enter is pressed.
///
/// A text that is not understood stays as typed. On leaving, the field flags it, beeps, shows its complaint and raises
/// EditError. Entering the field selects the whole text. The spin buttons, Up and Down and, only in the focused field,
/// the wheel step the value. An empty field does not step.
class FieldEdit : public QAbstractSpinBox {
    Q_OBJECT

  public:
    explicit FieldEdit(QWidget* parent = nullptr);

    /// Shows a text. A text that is understood is shown in the field's own form; another is flagged without a sound.
    void setText(const QString& text);

    [[nodiscard]] QString Text() const { return text(); }
    [[nodiscard]] bool IsEmpty() const { return text().trimmed().isEmpty(); }
    /// Whether the text is understood. An empty field is not.
    [[nodiscard]] bool IsValid() const { return normalised(text()).has_value(); }
    /// The complaint shown; empty while the field is not flagged.
    [[nodiscard]] QString ErrorTip() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  Q_SIGNALS:
    /// Raised when the text changed, by the user or by the program.
    void Change();
    /// Raised when the field was left with a text that it does not understand.
    void EditError(const QString& complaint);

  protected:
    /// Returns the text in the field's own form, or nothing when it is not understood.
    [[nodiscard]] virtual std::optional<QString> normalised(const QString& text) const = 0;
    /// Returns the complaint about a text that is not understood.
    [[nodiscard]] virtual QString complaint() const = 0;
    [[nodiscard]] virtual QString widestText() const = 0;
    /// Returns how many signs the field has besides the flag's.
    [[nodiscard]] virtual int signCount() const { return 0; }
    /// Returns the tip for a text that is understood.
    [[nodiscard]] virtual QString hint() const { return toolTip(); }

    /// Handles a finished text: rewrites it in the field's own form or flags it.
    void leave();
    /// Shows and selects the result of a step.
    void showStepped(const QString& text);

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    FieldFlag* flag_;
    bool selectOnRelease_ = false;
};
