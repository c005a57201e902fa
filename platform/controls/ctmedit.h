#pragma once

#include "platform/controls/textfield.h"

class FieldFlag;

/// A text field with a mask, such as the practice's telephone mask "(###) ###-####".
///
/// The signs of the mask appear while typing or pasting, in whatever way the number is written. A text that does not
/// fit the mask ("ask for Ann") stays as it is and is flagged; so is one that is not complete, when the field is left.
class ctMEdit : public TextField {
    Q_OBJECT

  public:
    explicit ctMEdit(QWidget* parent = nullptr);

    /// # digit, A letter, N either, other signs stand for themselves. `extension` continues the mask and may stay empty
    /// (" #####" behind a telephone number). An empty mask takes any text. What is shown is shown anew.
    void setMask(const QString& mask, const QString& extension = {});

    [[nodiscard]] QString Text() const { return text(); }
    /// The characters at the mask's places, "5551234567", as they are stored; a text that does not fit as it stands, so
    /// that storing it loses nothing.
    [[nodiscard]] QString Raw() const;
    /// Every place of the mask is taken, the extension aside.
    [[nodiscard]] bool IsFilled() const;
    [[nodiscard]] bool IsEmpty() const { return Raw().trimmed().isEmpty(); }
    /// The complaint shown; empty while the field is not flagged.
    [[nodiscard]] QString ErrorTip() const;

    [[nodiscard]] QSize sizeHint() const override;

  Q_SIGNALS:
    /// The text changed, by the user or by the program.
    void Change();
    /// The field was left with a text that does not fill the mask.
    void EditError(const QString& complaint);

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QString wholeMask() const { return mask_ + extension_; }
    [[nodiscard]] QString complaint() const;
    void putIntoForm();
    void leave();

    FieldFlag* flag_;
    QString mask_;
    QString extension_;
    bool selectOnRelease_ = false;
};
