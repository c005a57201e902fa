#include "platform/calendar/style.h"

#include <algorithm>
#include <cmath>
#include <QFontMetrics>
#include <QPalette>

#include "platform/calendar/colour.h"

namespace {

QFont Scaled(QFont font, double factor) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(std::max(font.pointSizeF() * factor, 1.0));
    else
        font.setPixelSize(std::max(static_cast<int>(std::lround(font.pixelSize() * factor)), 1));
    return font;
}

QFont InPixels(QFont font) {
    if (font.pointSizeF() > 0)
        font.setPixelSize(std::max(static_cast<int>(std::lround(font.pointSizeF() * 96 / 72)), 1));
    return font;
}

void SetFonts(CalendarStyle& style, const QFont& font, const QFont& time) {
    style.text = font;
    style.small = Scaled(font, 0.88);
    style.heading = Scaled(font, 0.95);
    style.dayNumber = Scaled(font, 1.35);
    style.hour = Scaled(time, 1.2);
    style.minute = Scaled(time, 0.78);
}

void SetMeasures(CalendarStyle& style) {
    const QFontMetrics text(style.text);
    style.textLine = text.height();
    style.smallLine = QFontMetrics(style.small).height();
    style.margin = std::max(text.height() / 5, 2);
    style.edgeWidth = std::max(text.height() / 4, 3);
    style.radius = style.margin + 1;
    style.icon = std::max(static_cast<int>(std::lround(text.ascent() * 1.05)), 8);
    style.minItemHeight = style.smallLine - 1;
    style.gutterWidth = QFontMetrics(style.hour).horizontalAdvance(QStringLiteral("00")) +
                        QFontMetrics(style.minute).horizontalAdvance(QStringLiteral(" AM")) + 4 * style.margin;
    style.headingHeight = QFontMetrics(style.dayNumber).height() + 4 * style.margin;
    style.stripHeight = style.textLine + style.margin + 1;
    style.minColumnWidth = text.averageCharWidth() * 16;
    style.grip = std::max(style.margin + 1, 4);
}

}  // namespace

int CalendarStyle::rowHeight(int intervalMinutes) const {
    struct Step {
        int minutes;
        double lines;
    };
    constexpr Step Steps[] = {{5, 1.0}, {10, 1.15}, {15, 1.3}, {30, 1.9}};
    for (const Step& step : Steps) {
        if (intervalMinutes <= step.minutes)
            return static_cast<int>(std::lround(textLine * step.lines));
    }
    return textLine * 3;
}

CalendarStyle ScreenStyle(const QPalette& palette, const QFont& font) {
    CalendarStyle style;
    SetFonts(style, font, font);
    SetMeasures(style);
    style.window = palette.color(QPalette::Window);
    style.base = palette.color(QPalette::Base);
    style.ink = ReadableOn(style.base, palette.color(QPalette::Text));
    const bool dark = style.base.lightness() < 128;
    style.dimInk = ReadableOn(style.base, Mixed(style.ink, style.base, 0.38));
    style.shade = Mixed(style.base, dark ? QColor(Qt::black) : style.ink, dark ? 0.22 : 0.045);
    style.hourLine = Mixed(style.base, style.ink, 0.17);
    style.rowLine = Mixed(style.base, style.ink, 0.07);
    style.columnLine = Mixed(style.base, style.ink, 0.22);
    // The palette's link colour is its one strong colour. Its highlight is the pale ground of selected rows.
    style.accent = palette.color(QPalette::Link);
    style.accentInk = ReadableOn(style.accent, palette.color(QPalette::Base));
    style.present = dark ? QColor(0xFF, 0x6B, 0x5E) : QColor(0xD9, 0x2D, 0x20);
    return style;
}

CalendarStyle PrintStyle(const QFont& font, const QFont& time) {
    CalendarStyle style;
    SetFonts(style, InPixels(font), InPixels(time));
    style.heading.setBold(true);
    SetMeasures(style);
    style.window = style.base = Qt::white;
    style.ink = Qt::black;
    style.dimInk = QColor(0x50, 0x50, 0x50);
    style.shade = QColor(0xF3, 0xF3, 0xF3);
    style.hourLine = QColor(0xB0, 0xB0, 0xB0);
    style.rowLine = QColor(0xE0, 0xE0, 0xE0);
    style.columnLine = QColor(0x90, 0x90, 0x90);
    style.accent = QColor(0x30, 0x50, 0x90);
    style.accentInk = Qt::white;
    style.present = QColor(0xD9, 0x2D, 0x20);
    return style;
}
