#include "platform/controls/numberfield.h"

#include <cmath>
#include <QLocale>

namespace {

QLocale plainLocale() {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

}  // namespace

std::optional<double> ReadNumber(const QString& text, const NumberForm& form) {
    const QString typed = text.simplified();
    bool understood = false;
    double number = QLocale().toDouble(typed, &understood);
    if (!understood)
        number = QLocale::c().toDouble(typed, &understood);
    if (!understood || !std::isfinite(number) || number < form.lowest || number > form.highest)
        return std::nullopt;
    const double scale = std::pow(10.0, form.decimals);
    const double shown = std::round(number * scale) / scale;
    if (std::abs(shown - number) > 1e-9 * std::max(1.0, std::abs(number)))
        return std::nullopt;
    return shown;
}

QString NumberFieldText(double number, const NumberForm& form) {
    return plainLocale().toString(number, 'f', form.decimals);
}
