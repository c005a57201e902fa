#include "platform/theme/colours.h"

#include <algorithm>
#include <cmath>

namespace {

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

const ThemeColours& ColoursOf(ThemeMode mode) {
    static const ThemeColours light{0xF4F6F8, 0xFFFFFF, 0xF7F9FB, 0x1F2933, 0x5B6775, 0xD0D7DF, 0xE6ECF2,
                                    0xD8E1EA, 0xD3E3F5, 0x10263F, 0x2A6BB0, 0xFFFFFF, 0xA86400, 0xB3261E};
    static const ThemeColours dark{0x1D2126, 0x252A30, 0x292F36, 0xE7EAEE, 0xA0AAB6, 0x414A55, 0x323941,
                                   0x3C454F, 0x2C4D72, 0xF3F7FC, 0x74ACEA, 0x0D1B2B, 0xF0B44C, 0xF2867E};
    return mode == ThemeMode::Dark ? dark : light;
}

QPalette PaletteOf(const ThemeColours& colours) {
    QPalette palette;
    palette.setColor(QPalette::Window, colours.window);
    palette.setColor(QPalette::WindowText, colours.text);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.alternate);
    palette.setColor(QPalette::Text, colours.text);
    palette.setColor(QPalette::PlaceholderText, colours.mutedText);
    palette.setColor(QPalette::Button, colours.base);
    palette.setColor(QPalette::ButtonText, colours.text);
    palette.setColor(QPalette::BrightText, colours.accentText);
    palette.setColor(QPalette::ToolTipBase, colours.base);
    palette.setColor(QPalette::ToolTipText, colours.text);
    palette.setColor(QPalette::Highlight, colours.selection);
    palette.setColor(QPalette::HighlightedText, colours.selectedText);
    palette.setColor(QPalette::Link, colours.accent);
    palette.setColor(QPalette::LinkVisited, colours.accent);
    palette.setColor(QPalette::Light, colours.base);
    palette.setColor(QPalette::Midlight, colours.hover);
    palette.setColor(QPalette::Mid, colours.border);
    palette.setColor(QPalette::Dark, colours.border);
    palette.setColor(QPalette::Shadow, colours.border.darker(120));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, colours.mutedText);
    palette.setColor(QPalette::Disabled, QPalette::Base, colours.window);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours.pressed);
    return palette;
}

ThemeMode ModeOf(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness()
               ? ThemeMode::Dark
               : ThemeMode::Light;
}

double Contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}
