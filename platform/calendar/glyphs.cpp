#include "platform/calendar/glyphs.h"

#include <algorithm>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>

namespace {

/// A glyph in a square of 16 units: lines to draw and shapes to fill.
struct Drawing {
    QPainterPath lines;
    QPainterPath shapes;
};

void Line(QPainterPath& path, std::initializer_list<QPointF> points) {
    path.moveTo(*points.begin());
    std::for_each(points.begin() + 1, points.end(), [&](const QPointF& point) { path.lineTo(point); });
}

void Circle(QPainterPath& path, QPointF center, double radius) {
    path.addEllipse(center, radius, radius);
}

void Handset(QPainterPath& path) {
    path.moveTo(3.2, 2.2);
    path.cubicTo(2.0, 8.0, 7.5, 14.2, 13.4, 13.4);
    path.lineTo(13.8, 10.6);
    path.lineTo(10.6, 9.2);
    path.lineTo(9.2, 10.8);
    path.cubicTo(7.2, 9.8, 6.0, 8.4, 5.2, 6.6);
    path.lineTo(6.8, 5.2);
    path.lineTo(5.8, 2.0);
    path.closeSubpath();
}

void Bubble(QPainterPath& path) {
    path.addRoundedRect(QRectF(1.5, 2.5, 13, 8.5), 2, 2);
    Line(path, {{5, 11}, {5, 14.3}, {8.6, 11}});
}

void Person(QPainterPath& path, double x, double size) {
    Circle(path, {x, 8 - 3.2 * size}, 2.5 * size);
    path.moveTo(x - 4.6 * size, 13.6);
    path.cubicTo(x - 4.6 * size, 8.0, x + 4.6 * size, 8.0, x + 4.6 * size, 13.6);
    path.closeSubpath();
}

Drawing StatusDrawing(Glyph glyph) {
    Drawing d;
    switch (glyph) {
        case Glyph::Pending:
            Circle(d.lines, {8, 8}, 6);
            Line(d.lines, {{8, 4.5}, {8, 8}, {10.6, 9.6}});
            break;
        case Glyph::Tentative:
            d.lines.moveTo(4.8, 5.4);
            d.lines.cubicTo(5.0, 0.8, 11.4, 1.2, 11.2, 5.2);
            d.lines.cubicTo(11.0, 7.8, 8.0, 7.6, 8.0, 10.6);
            Circle(d.shapes, {8, 13.6}, 1.2);
            break;
        case Glyph::CheckedIn:
            Person(d.shapes, 6.2, 1.0);
            Line(d.lines, {{10.2, 5.6}, {12.0, 7.4}, {15.2, 3.4}});
            break;
        case Glyph::Kept:
            Line(d.lines, {{2.4, 8.6}, {6.2, 12.4}, {13.6, 3.8}});
            break;
        case Glyph::Missed:
            Line(d.lines, {{3.4, 3.4}, {12.6, 12.6}});
            Line(d.lines, {{12.6, 3.4}, {3.4, 12.6}});
            break;
        case Glyph::Cancelled:
            Circle(d.lines, {8, 8}, 6);
            Line(d.lines, {{5.6, 5.6}, {10.4, 10.4}});
            Line(d.lines, {{10.4, 5.6}, {5.6, 10.4}});
            break;
        case Glyph::Group:
            Person(d.shapes, 4.6, 0.85);
            Person(d.shapes, 11.4, 0.85);
            break;
        case Glyph::Activity:
            Line(d.shapes, {{8, 1.2},
                            {10.1, 5.8},
                            {15, 6.3},
                            {11.3, 9.6},
                            {12.4, 14.4},
                            {8, 11.9},
                            {3.6, 14.4},
                            {4.7, 9.6},
                            {1, 6.3},
                            {5.9, 5.8}});
            d.shapes.closeSubpath();
            break;
        case Glyph::Unavailable:
            Circle(d.lines, {8, 8}, 6);
            Line(d.lines, {{4.0, 12.0}, {12.0, 4.0}});
            break;
        default:
            break;
    }
    return d;
}

Drawing CallDrawing(Glyph glyph) {
    Drawing d;
    switch (glyph) {
        case Glyph::Charged:
            Circle(d.lines, {8, 8}, 6.4);
            d.lines.moveTo(10.4, 5.8);
            d.lines.cubicTo(8.6, 3.6, 5.2, 5.2, 6.2, 7.0);
            d.lines.cubicTo(7.2, 8.6, 10.6, 7.6, 10.2, 9.8);
            d.lines.cubicTo(9.6, 11.8, 6.6, 11.4, 5.6, 10.0);
            Line(d.lines, {{8, 3.4}, {8, 12.6}});
            break;
        case Glyph::MessageLeft:
            Bubble(d.lines);
            Line(d.lines, {{4.5, 5.6}, {11.5, 5.6}});
            Line(d.lines, {{4.5, 8}, {9, 8}});
            break;
        case Glyph::NoAnswer:
            Handset(d.shapes);
            Line(d.lines, {{10, 2}, {14, 6}});
            Line(d.lines, {{14, 2}, {10, 6}});
            break;
        case Glyph::Declined:
            Bubble(d.lines);
            Line(d.lines, {{6, 4.8}, {10, 8.8}});
            Line(d.lines, {{10, 4.8}, {6, 8.8}});
            break;
        case Glyph::Confirmed:
            Handset(d.shapes);
            Line(d.lines, {{9.2, 4.2}, {11.2, 6.2}, {15, 1.8}});
            break;
        default:
            break;
    }
    return d;
}

Drawing MarkDrawing(Glyph glyph) {
    Drawing d;
    switch (glyph) {
        case Glyph::TypeSlot:
            for (const double y : {3.0, 12.0}) {
                Line(d.lines, {{2, y}, {5, y}});
                Line(d.lines, {{7, y}, {10, y}});
                Line(d.lines, {{12, y}, {14, y}});
            }
            Line(d.lines, {{2, 6.2}, {2, 9.2}});
            Line(d.lines, {{14, 6.2}, {14, 9.2}});
            break;
        case Glyph::Location:
            d.lines.moveTo(8, 15);
            d.lines.cubicTo(1.0, 8.0, 3.0, 1.2, 8, 1.2);
            d.lines.cubicTo(13.0, 1.2, 15.0, 8.0, 8, 15);
            Circle(d.shapes, {8, 6.2}, 2.0);
            break;
        case Glyph::Reminder:
            d.lines.moveTo(2.4, 12.2);
            d.lines.cubicTo(5.2, 9.4, 3.2, 2.2, 8, 2.2);
            d.lines.cubicTo(12.8, 2.2, 10.8, 9.4, 13.6, 12.2);
            d.lines.closeSubpath();
            Circle(d.shapes, {8, 14.2}, 1.5);
            break;
        case Glyph::Note:
            Line(d.lines, {{3, 1.8}, {9.6, 1.8}, {13, 5.2}, {13, 14.2}, {3, 14.2}});
            d.lines.closeSubpath();
            Line(d.lines, {{5.6, 8}, {10.4, 8}});
            Line(d.lines, {{5.6, 11}, {10.4, 11}});
            break;
        case Glyph::SessionNote:
            Line(d.lines, {{2.2, 14.0}, {3.0, 10.4}, {10.8, 2.4}, {13.8, 5.4}, {5.8, 13.2}});
            d.lines.closeSubpath();
            Line(d.lines, {{8.4, 14.4}, {14, 14.4}});
            break;
        case Glyph::Series:
            d.lines.arcMoveTo(QRectF(2, 2, 12, 12), 60);
            d.lines.arcTo(QRectF(2, 2, 12, 12), 60, 290);
            Line(d.shapes, {{8.6, 0.2}, {13.0, 2.6}, {8.8, 5.6}});
            d.shapes.closeSubpath();
            break;
        case Glyph::Bound:
            d.shapes.addRoundedRect(QRectF(2.8, 7.2, 10.4, 7.6), 1.4, 1.4);
            d.lines.moveTo(5, 7.2);
            d.lines.lineTo(5, 4.8);
            d.lines.cubicTo(5, 0.6, 11, 0.6, 11, 4.8);
            d.lines.lineTo(11, 7.2);
            break;
        case Glyph::Holiday:
            Line(d.lines, {{3.4, 15}, {3.4, 1.6}});
            d.shapes.moveTo(3.4, 1.8);
            d.shapes.cubicTo(7, 0.2, 9, 4.4, 13.6, 2.4);
            d.shapes.lineTo(13.6, 9.2);
            d.shapes.cubicTo(9, 11.2, 7, 7.0, 3.4, 8.6);
            d.shapes.closeSubpath();
            break;
        default:
            break;
    }
    return d;
}

Drawing DrawingOf(Glyph glyph) {
    if (glyph <= Glyph::Unavailable)
        return StatusDrawing(glyph);
    if (glyph >= Glyph::Charged && glyph <= Glyph::Confirmed)
        return CallDrawing(glyph);
    return MarkDrawing(glyph);
}

const Drawing& Known(Glyph glyph) {
    static const std::vector<Drawing> drawings = [] {
        std::vector<Drawing> all;
        for (int i = 0; i <= static_cast<int>(Glyph::Holiday); ++i)
            all.push_back(DrawingOf(static_cast<Glyph>(i)));
        return all;
    }();
    return drawings[static_cast<std::size_t>(glyph)];
}

void AddStatus(std::vector<Glyph>& glyphs, StatusMark mark) {
    constexpr Glyph Marks[] = {Glyph::Pending,     Glyph::Tentative, Glyph::CheckedIn, Glyph::Kept,
                               Glyph::Missed,      Glyph::Cancelled, Glyph::Group,     Glyph::Activity,
                               Glyph::Unavailable, Glyph::TypeSlot};
    if (mark != StatusMark::None)
        glyphs.push_back(Marks[static_cast<std::size_t>(mark) - 1]);
}

void AddStatusIcon(std::vector<Glyph>& glyphs, int icon) {
    constexpr Glyph Icons[] = {Glyph::Note,     Glyph::Charged,  Glyph::CheckedIn, Glyph::MessageLeft,
                               Glyph::NoAnswer, Glyph::Declined, Glyph::Confirmed};
    if (icon >= 1 && icon <= static_cast<int>(std::size(Icons)))
        glyphs.push_back(Icons[icon - 1]);
}

void Draw(QPainter& painter, const QRectF& square, Glyph glyph, const QColor& color) {
    const Drawing& drawing = Known(glyph);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / 16, square.height() / 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPath(drawing.shapes);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(drawing.lines);
    painter.restore();
}

}  // namespace

void PaintGlyph(QPainter& painter, const QRectF& square, Glyph glyph, const QColor& color) {
    const bool plainScreen =
        painter.paintEngine()->type() == QPaintEngine::Raster && painter.transform().type() <= QTransform::TxTranslate;
    if (!plainScreen) {
        Draw(painter, square, glyph, color);
        return;
    }
    const double ratio = painter.device()->devicePixelRatioF();
    const int side = std::max(qRound(square.width() * ratio), 1);
    const QString key =
        QStringLiteral("calendar glyph %1 %2 %3").arg(static_cast<int>(glyph)).arg(side).arg(color.rgba());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter inside(&pixmap);
        Draw(inside, QRectF(0, 0, side, side), glyph, color);
        inside.end();
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(ratio);
    painter.drawPixmap(QPointF(qRound(square.left() * ratio) / ratio, qRound(square.top() * ratio) / ratio), pixmap);
}

std::vector<Glyph> GlyphsOf(const CalendarItem& item) {
    std::vector<Glyph> glyphs;
    AddStatus(glyphs, item.ItemStatusMark);
    if (item.ItemBound)
        glyphs.push_back(Glyph::Bound);
    if (item.ItemTentativeIcon)
        glyphs.push_back(Glyph::Tentative);
    AddStatusIcon(glyphs, item.ItemStatusIcon);
    if (item.ItemBanner)
        glyphs.push_back(Glyph::Holiday);
    if (item.ItemSessionIcon > 0)
        glyphs.push_back(Glyph::SessionNote);
    if (item.ItemSeriesIcon > 0)
        glyphs.push_back(Glyph::Series);
    if (item.ItemNoteIcon)
        glyphs.push_back(Glyph::Note);
    if (item.ItemReminderIcon)
        glyphs.push_back(Glyph::Reminder);
    if (item.ItemLocationIcon)
        glyphs.push_back(Glyph::Location);
    std::vector<Glyph> once;
    for (const Glyph glyph : glyphs) {
        if (std::find(once.begin(), once.end(), glyph) == once.end())
            once.push_back(glyph);
    }
    return once;
}

QString StatusIconText(int statusIcon) {
    switch (statusIcon) {
        case 1:
            return QStringLiteral("Note");
        case 2:
            return QStringLiteral("Charged");
        case 3:
            return QStringLiteral("Checked-In");
        case 4:
            return QStringLiteral("Left message");
        case 5:
            return QStringLiteral("No answer or busy");
        case 6:
            return QStringLiteral("Declined");
        case 7:
            return QStringLiteral("Confirmed");
        default:
            return {};
    }
}
