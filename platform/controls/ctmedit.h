#pragma once

#include "platform/controls/textfield.h"

class FieldFlag;

/// A text field with a mask, such as the practice's telephone mask "(###) ###-####".
///
/// The signs of the mask appear while the user types or pastes, in whatever way the number is written. A text that does
/// not fit the mask ("ask for Ann") stays as it is and is flagged. A text that is not complete is flagged when the
/// field is left.
class ctMEdit : public TextField {
    Q_OBJECT

  public:
    explicit ctMEdit(QWidget* parent = nullptr);

    /// Sets the mask: # is a digit, A a letter, N either, and other signs stand for themselves. `extension` continues
    /// the mask and may be left empty by the user (" #####" after a telephone number). An empty mask takes any text.
    /// The text in the field is written again in the new mask.
    void setMask(const QString& mask, const QString& extension = {});

    [[nodiscard]] QString Text() const { return text(); }
    /// Returns the characters at the mask's places, "5551234567", as they are stored. A text that does not fit the mask
    /// is returned unchanged, so that storing it loses nothing.
    [[nodiscard]] QString Raw() const;
    /// Whether every place of the mask is filled. The extension does not count.
    [[nodiscard]] bool IsFilled() const;
    [[nodiscard]] bool IsEmpty() const { return Raw().trimmed().isEmpty(); }
    /// The complaint shown; empty while the field is not flagged.
    [[nodiscard]] QString ErrorTip() const;

    [[nodiscard]] QSize sizeHint() const override;

  Q_SIGNALS:
    /// Raised when the text changed, by the user or by the program.
    void Change();
    /// Raised when the field was left with a text that does not fill the mask.
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
