#include "appointments/listicons.h"

#include <optional>
#include <QPainter>

#include "data/statuses.h"
#include "platform/calendar/colour.h"
#include "platform/calendar/glyphs.h"

namespace {

constexpr int IconSize = 16;
constexpr int Scales = 3;  // Sharp up to 300 %.
constexpr QColor Outline(0x80, 0x80, 0x80);

std::optional<Glyph> glyphOf(int code) {
    CalendarItem item;
    item.ItemStatusMark = StatusOf(code).mark;
    const std::vector<Glyph> glyphs = GlyphsOf(item);
    return glyphs.empty() ? std::nullopt : std::optional(glyphs.front());
}

QPixmap patch(int scale, const QColor& colour, std::optional<Glyph> glyph) {
    QPixmap picture(IconSize * scale, IconSize * scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(Outline);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(0.5, 0.5, IconSize - 1, IconSize - 1), 3, 3);
    if (glyph)
        PaintGlyph(painter, QRectF(2, 2, IconSize - 4, IconSize - 4), *glyph, ReadableOn(colour, Qt::white));
    return picture;
}

QIcon icon(int colour, std::optional<Glyph> glyph) {
    QIcon made;
    for (int scale = 1; scale <= Scales; ++scale)
        made.addPixmap(patch(scale, ColorFromWindows(colour), glyph));
    return made;
}

}  // namespace

QIcon ColourIcon(int colour) {
    return icon(colour, std::nullopt);
}

QIcon StatusIcon(int code) {
    return icon(code, glyphOf(code));
}
