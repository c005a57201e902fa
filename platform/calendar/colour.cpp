#include "platform/calendar/colour.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/calendar/item.h"

namespace {

/// Returns the linear light for each channel value. It is a table, because cards need it thousands of times.
const std::array<double, 256>& LinearLight() {
    static const std::array<double, 256> table = [] {
        std::array<double, 256> light{};
        for (std::size_t i = 0; i < light.size(); ++i) {
            const double value = static_cast<double>(i) / 255.0;
            light[i] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        }
        return light;
    }();
    return table;
}

double Linear(int channel) {
    return LinearLight()[static_cast<std::size_t>(channel)];
}

double Luminance(const QColor& color) {
    return 0.2126 * Linear(color.red()) + 0.7152 * Linear(color.green()) + 0.0722 * Linear(color.blue());
}

/// Returns black or white, whichever has more contrast to the colour. That contrast is always at least 4.58.
QColor FurtherEnd(const QColor& color) {
    return ContrastRatio(color, Qt::black) >= ContrastRatio(color, Qt::white) ? Qt::black : Qt::white;
}

/// Returns the colour of a bar that can be seen beside its own card, even a white bar on white.
QColor VisibleOn(const QColor& background, const QColor& color) {
    constexpr double Visible = 2.2;
    for (int tenths = 0; tenths < 10; ++tenths) {
        const QColor candidate = Mixed(color, FurtherEnd(background), tenths / 10.0);
        if (ContrastRatio(candidate, background) >= Visible)
            return candidate;
    }
    return FurtherEnd(background);
}

/// Returns a hatching colour that keeps the text readable: a little towards the text where there is contrast to spare,
/// else away from it.
QColor PatternOn(const QColor& fill, const QColor& text) {
    const QColor towards = Mixed(fill, text, 0.10);
    if (ContrastRatio(towards, text) >= ReadableContrast)
        return towards;
    return Mixed(fill, Luminance(text) > Luminance(fill) ? Qt::black : Qt::white, 0.18);
}

/// Returns the text's colour, dimmed as far as it stays readable on the fill and on its pattern.
QColor DimmedOn(const QColor& fill, const QColor& pattern, const QColor& text) {
    for (int percent = 30; percent > 0; percent -= 5) {
        const QColor candidate = Mixed(text, fill, percent / 100.0);
        if (std::min(ContrastRatio(candidate, fill), ContrastRatio(candidate, pattern)) >= ReadableContrast)
            return candidate;
    }
    return text;
}

}  // namespace

QColor ColorFromWindows(int value) {
    // White itself has another meaning, so a type with the colour white is stored as the number after it.
    constexpr int WhiteOfAType = 0x1000000;
    if (value == WhiteOfAType)
        return Qt::white;
    const auto bits = static_cast<unsigned>(value);
    return {static_cast<int>(bits & 0xFFU), static_cast<int>(bits >> 8U & 0xFFU),
            static_cast<int>(bits >> 16U & 0xFFU)};
}

double ContrastRatio(const QColor& one, const QColor& other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor Mixed(const QColor& from, const QColor& to, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor ReadableOn(const QColor& background, const QColor& preferred) {
    const QColor end = FurtherEnd(background);
    for (int eighths = 0; eighths < 8; ++eighths) {
        const QColor candidate = Mixed(preferred, end, eighths / 8.0);
        if (ContrastRatio(candidate, background) >= ReadableContrast)
            return candidate;
    }
    return end;
}

CardColors CardColorsFor(const CalendarItem& item, const QColor& base, const QColor& text) {
    const bool dark = base.lightness() < 128;
    const QColor color = ColorFromWindows(item.ItemColor);
    CardColors card;
    card.fill = item.ItemBackColor ? Mixed(ColorFromWindows(*item.ItemBackColor), base, dark ? 0.25 : 0.0)
                                   : Mixed(base, color, dark ? 0.30 : 0.15);
    card.text = ReadableOn(card.fill, text);
    card.pattern = PatternOn(card.fill, card.text);
    card.dimText = DimmedOn(card.fill, card.pattern, card.text);
    card.edge = VisibleOn(card.fill, color);
    card.outline = Mixed(card.fill, card.edge, 0.45);
    return card;
}
