#include "platform/controls/ctnedit.h"

#include <algorithm>

ctNEdit::ctNEdit(QWidget* parent) : FieldEdit(parent) {
    setAlignment(Qt::AlignRight);
}

void ctNEdit::setRange(double lowest, double highest) {
    form_.lowest = lowest;
    form_.highest = highest;
    setText(text());
    updateGeometry();
}

void ctNEdit::setDecimals(int decimals) {
    form_.decimals = decimals;
    setText(text());
    updateGeometry();
}

void ctNEdit::setValue(double number) {
    setText(NumberFieldText(number, form_));
}

double ctNEdit::Value() const {
    return ReadNumber(text(), form_).value_or(0);
}

void ctNEdit::stepBy(int steps) {
    if (const std::optional<double> number = ReadNumber(text(), form_))
        showStepped(NumberFieldText(std::clamp(*number + steps * step_, form_.lowest, form_.highest), form_));
}

QAbstractSpinBox::StepEnabled ctNEdit::stepEnabled() const {
    const std::optional<double> number = ReadNumber(text(), form_);
    if (isReadOnly() || !number)
        return StepNone;
    return StepEnabled(*number < form_.highest ? StepUpEnabled : StepNone) |
           (*number > form_.lowest ? StepDownEnabled : StepNone);
}

std::optional<QString> ctNEdit::normalised(const QString& text) const {
    const std::optional<double> number = ReadNumber(text, form_);
    return number ? std::optional(NumberFieldText(*number, form_)) : std::nullopt;
}

QString ctNEdit::complaint() const {
    const QString lowest = NumberFieldText(form_.lowest, form_);
    const QString highest = NumberFieldText(form_.highest, form_);
    return form_.decimals == 0 ? tr("Enter a whole number from %1 to %2.").arg(lowest, highest)
                               : tr("Enter a number from %1 to %2.").arg(lowest, highest);
}

QString ctNEdit::widestText() const {
    const QString lowest = NumberFieldText(form_.lowest, form_);
    const QString highest = NumberFieldText(form_.highest, form_);
    return lowest.size() > highest.size() ? lowest : highest;
}
