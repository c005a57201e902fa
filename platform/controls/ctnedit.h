#pragma once

#include "platform/controls/fieldedit.h"
#include "platform/controls/numberfield.h"

/// A number field. It takes whole numbers from 0 to 99 unless set otherwise.
class ctNEdit : public FieldEdit {
    Q_OBJECT

  public:
    explicit ctNEdit(QWidget* parent = nullptr);

    /// Sets the range. A number typed outside it is refused, and stepping stops at its ends. The text in the field
    /// stays.
    void setRange(double lowest, double highest);
    /// Sets the digits after the decimal sign; 0 makes it a field of whole numbers.
    void setDecimals(int decimals);
    void setStep(double step) { step_ = step; }
    /// Shows a number. One outside the range is shown and flagged.
    void setValue(double number);

    /// The number typed; 0 when the field is empty or not understood. IsValid tells these apart from a typed 0.
    [[nodiscard]] double Value() const;
    [[nodiscard]] const NumberForm& Form() const { return form_; }

    void stepBy(int steps) override;

  protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
    [[nodiscard]] std::optional<QString> normalised(const QString& text) const override;
    [[nodiscard]] QString complaint() const override;
    [[nodiscard]] QString widestText() const override;

  private:
    NumberForm form_;
    double step_ = 1;
};
