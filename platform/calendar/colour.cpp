#include "platform/calendar/colour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <QtGlobal>
#include <unordered_map>

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

/// A colour in the Oklab space, in which equal numbers look equally light and equally strong.
struct PerceivedColor {
    double lightness = 0;  ///< 0 (black) to 1 (white).
    double a = 0;          ///< From green to red.
    double b = 0;          ///< From blue to yellow.
};

PerceivedColor Perceived(const QColor& color) {
    const double red = Linear(color.red());
    const double green = Linear(color.green());
    const double blue = Linear(color.blue());
    const double l = std::cbrt(0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue);
    const double m = std::cbrt(0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue);
    const double s = std::cbrt(0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

double Encoded(double light) {
    return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

/// Returns the colour, or nothing where no screen can show it.
std::optional<QColor> Shown(const PerceivedColor& color) {
    const auto cubed = [](double value) { return value * value * value; };
    const double l = cubed(color.lightness + 0.3963377774 * color.a + 0.2158037573 * color.b);
    const double m = cubed(color.lightness - 0.1055613458 * color.a - 0.0638541728 * color.b);
    const double s = cubed(color.lightness - 0.0894841775 * color.a - 1.2914855480 * color.b);
    const std::array<double, 3> light{4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
                                      -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
                                      -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
    std::array<int, 3> channels{};
    for (std::size_t i = 0; i < light.size(); ++i) {
        if (light[i] < -0.0005 || light[i] > 1.0005)
            return {};
        channels[i] = static_cast<int>(std::lround(255 * Encoded(std::clamp(light[i], 0.0, 1.0))));
    }
    return QColor(channels[0], channels[1], channels[2]);
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

CardColors Computed(const CalendarItem& item, const QColor& base, const QColor& text) {
    const QColor color = ColorFromWindows(item.ItemColor);
    CardColors card;
    if (base.lightness() < 128)
        card.fill = item.ItemBackColor ? AtLightness(ColorFromWindows(*item.ItemBackColor), DarkCardLightness, 0.12)
                                       : AtLightness(color, DarkCardLightness, 0.07);
    else
        card.fill = item.ItemBackColor ? ColorFromWindows(*item.ItemBackColor) : Mixed(base, color, 0.15);
    card.text = ReadableOn(card.fill, text);
    card.pattern = PatternOn(card.fill, card.text);
    card.dimText = DimmedOn(card.fill, card.pattern, card.text);
    card.edge = VisibleOn(card.fill, color);
    card.outline = Mixed(card.fill, card.edge, 0.45);
    return card;
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

double PerceivedLightness(const QColor& color) {
    return Perceived(color).lightness;
}

QColor AtLightness(const QColor& color, double lightness, double mostStrength) {
    PerceivedColor wanted = Perceived(color);
    const double strength = std::hypot(wanted.a, wanted.b);
    double share = strength > mostStrength ? mostStrength / strength : 1.0;
    // A strong colour of some hues is only there at other lightnesses, so it becomes greyer until it is there.
    while (share > 0.01) {
        if (const std::optional<QColor> shown = Shown({lightness, wanted.a * share, wanted.b * share}))
            return *shown;
        share *= 0.94;
    }
    return Shown({lightness, 0, 0}).value_or(color);
}

CardColors CardColorsFor(const CalendarItem& item, const QColor& base, const QColor& text) {
    /// What was computed for these two colours of the palette. A calendar has thousands of cards and few colours.
    struct Known {
        QRgb base = 0;
        QRgb text = 0;
        std::unordered_map<quint64, CardColors> cards;
    };
    constexpr std::size_t MostKnown = 4096;
    thread_local Known known;
    if (known.base != base.rgba() || known.text != text.rgba() || known.cards.size() >= MostKnown)
        known = {base.rgba(), text.rgba(), {}};
    // As ColorFromWindows reads them, so that -1 is not one more colour.
    const auto bits = [](int color) { return quint64{ColorFromWindows(color).rgb() & 0xFFFFFFU}; };
    const quint64 key = bits(item.ItemColor) | (item.ItemBackColor ? bits(*item.ItemBackColor) | 0x1000000U : 0U)
                                                   << 32U;
    const auto [card, isNew] = known.cards.try_emplace(key);
    if (isNew)
        card->second = Computed(item, base, text);
    return card->second;
}
