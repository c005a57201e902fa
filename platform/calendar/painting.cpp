#include "platform/calendar/painting.h"

#include <algorithm>
#include <cmath>
#include <QFontMetrics>
#include <QPainter>

#include "platform/calendar/card.h"
#include "platform/calendar/colour.h"
#include "platform/calendar/hatch.h"
#include "platform/calendar/hittest.h"

namespace {

void PaintTimeRange(const CalendarScene& scene, const QRect& rect, int windowsColor, const QRect& clip) {
    const QColor color = ColorFromWindows(windowsColor);
    // Grey means hours without work and stays quiet. A colour that a view chose must be seen.
    const bool quiet = color.hsvSaturation() < 32;
    scene.painter.fillRect(rect & clip, Mixed(scene.style.base, quiet ? scene.style.ink : color, quiet ? 0.05 : 0.13));
    PaintHatch(scene.painter, rect, clip, true, Mixed(scene.style.base, quiet ? scene.style.ink : color, 0.12),
               scene.style.margin * 2.5, 1);
}

bool AppliesTo(const TimeRange& range, int column, const CalendarColumn& what) {
    return range.day.isValid() ? range.day == what.day : range.column == 0 || range.column == column;
}

void PaintGround(const CalendarScene& scene, int column, const QRect& rect, const QRect& clip) {
    const CalendarStyle& style = scene.style;
    const bool tinted = scene.content.dayBackColor != SystemInfoColor;
    const auto ground = [&](const QColor& color) {
        return tinted ? Mixed(color, ColorFromWindows(scene.content.dayBackColor), 0.05) : color;
    };
    scene.painter.fillRect(rect & clip, ground(style.shade));
    const int prime = scene.grid.y(scene.content.primeStart);
    const QRect lighter(rect.left(), prime, rect.width(), scene.grid.y(scene.content.primeEnd) - prime);
    scene.painter.fillRect(lighter & rect & clip, ground(style.base));
    for (const TimeRange& range : scene.content.ranges) {
        if (AppliesTo(range, column, scene.column(column)))
            PaintTimeRange(scene, scene.grid.timeRect(column, range.start, std::min(range.end, 1439) + 1) & rect,
                           range.color, clip);
    }
}

void PaintLines(const CalendarScene& scene, const QRect& rect, const QRect& clip) {
    const TimeScale& scale = scene.grid.scale;
    const QRect shown = rect & clip;
    const auto paint = [&](int step, const QColor& color) {
        scene.painter.setPen(color);
        const int first =
            std::max(scene.grid.minuteAt(shown.top()) / step * step, (scale.first + step - 1) / step * step);
        for (int minute = first; minute <= scale.last && scene.grid.y(minute) <= shown.bottom(); minute += step)
            scene.painter.drawLine(shown.left(), scene.grid.y(minute), shown.right(), scene.grid.y(minute));
    };
    if (scale.interval * scale.pixelsPerMinute >= 6)
        paint(scale.interval, scene.style.rowLine);
    // Hours have their own lines, because rows of 25 or 45 minutes rarely begin with one.
    paint(60, scene.style.hourLine);
    scene.painter.setPen(scene.style.columnLine);
    scene.painter.drawLine(rect.left(), shown.top(), rect.left(), shown.bottom());
}

/// Painted under the items: a card in the range stays whole, and the range is seen beside it.
void PaintRange(const CalendarScene& scene, int column) {
    if (!scene.state.range || scene.state.range->column != column)
        return;
    const SelectedTime& range = *scene.state.range;
    const bool focused = scene.state.focused;
    const QRect rect = scene.grid.timeRect(column, range.start, range.end).adjusted(1, 0, 0, 0);
    QColor fill = focused ? scene.style.accent : scene.style.dimInk;
    fill.setAlphaF(focused ? 0.20F : 0.14F);
    scene.painter.fillRect(rect, fill);
    if (rect.height() >= scene.style.smallLine) {
        scene.painter.setFont(scene.style.small);
        scene.painter.setPen(scene.style.ink);
        scene.painter.drawText(rect.adjusted(scene.style.margin * 2, 1, -scene.style.margin, 0),
                               Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                               ClockSpan(range.start, range.end, scene.content.twentyFourHour));
    }
    scene.painter.setPen(QPen(focused ? scene.style.accent : scene.style.dimInk, focused ? 2 : 1));
    scene.painter.drawRect(QRectF(rect).adjusted(1, 1, -1, -1));
}

CardState StateOf(const CalendarScene& scene, int index, const PlacedItem& placed) {
    const CalendarItem& item = scene.item(index);
    CardState card;
    card.selected = index == scene.state.selectedItem;
    card.focused = card.selected && scene.state.focused;
    card.hovered = index == scene.state.hoveredItem;
    card.cutTop = placed.cutTop;
    card.cutBottom = placed.cutBottom;
    card.twentyFourHour = scene.content.twentyFourHour;
    card.start = item.ItemStart;
    card.end = item.ItemEnd;
    return card;
}

void PaintPlaced(const CalendarScene& scene, const PlacedItem& placed, const QRect& clip) {
    const bool selected = placed.index == scene.state.selectedItem;
    const QRect rect =
        selected ? CardRect(placed.index, scene.grid, scene.layout, scene.style, true) : scene.grid.itemRect(placed);
    if (!rect.intersects(clip))
        return;
    if (placed.index == scene.state.draggedItem)
        scene.painter.setOpacity(0.4);
    PaintCard(scene.painter, rect, scene.item(placed.index), StateOf(scene, placed.index, placed), scene.style);
    scene.painter.setOpacity(1);
}

void PaintItems(const CalendarScene& scene, int column, const QRect& clip) {
    const auto& items = scene.columnLayout(column).placed;
    const int last = scene.grid.minuteAt(clip.bottom());
    for (const PlacedItem& placed : items) {
        if (placed.start > last)
            break;
        if (placed.index != scene.state.selectedItem)
            PaintPlaced(scene, placed, clip);
    }
    const PlacedItem* selected = scene.layout.find(scene.state.selectedItem);
    if (selected != nullptr && selected->column == column)
        PaintPlaced(scene, *selected, clip);
}

void PaintGhost(const CalendarScene& scene, int column) {
    const CalendarState& state = scene.state;
    if (!state.ghost || state.ghost->column != column || (state.draggedItem < 1 && !state.incoming))
        return;
    const ItemPlace& place = *scene.state.ghost;
    QRect rect = scene.grid.timeRect(column, place.start, std::max(place.end, place.start + 1));
    rect.adjust(1, 1, -scene.grid.gap, 0);
    rect.setHeight(std::max(rect.height(), scene.style.minItemHeight));
    CardState card;
    card.selected = card.ghost = true;
    card.twentyFourHour = scene.content.twentyFourHour;
    card.start = place.start;
    card.end = place.end;
    PaintCard(scene.painter, rect, state.incoming ? *state.incoming : scene.item(state.draggedItem), card, scene.style);
    const QString label = ClockSpan(place.start, place.end, scene.content.twentyFourHour);
    QRect bubble(0, 0, QFontMetrics(scene.style.small).horizontalAdvance(label) + 4 * scene.style.margin,
                 scene.style.smallLine + scene.style.margin);
    bubble.moveBottomRight(
        QPoint(rect.right() - 1, std::max(rect.top() - 1, scene.grid.body().top() + bubble.height())));
    PaintBubble(scene, bubble, label, scene.style.accent, scene.style.accentInk);
}

/// Returns the y of the present time in the column, or nothing when the column does not show it.
std::optional<double> PresentY(const CalendarScene& scene, int column) {
    const QDateTime& now = scene.state.now;
    if (!now.isValid() || scene.column(column).day != now.date())
        return {};
    const int minute = now.time().hour() * 60 + now.time().minute();
    if (minute < scene.grid.scale.first || minute > scene.grid.scale.last)
        return {};
    return scene.grid.y(minute) + 0.5;
}

/// Painted under the items, because across a card it would look like a cancelled line of text.
void PaintPresentLine(const CalendarScene& scene, int column) {
    const std::optional<double> y = PresentY(scene, column);
    if (!y)
        return;
    const QRect rect = scene.grid.columnRect(column);
    scene.painter.setPen(QPen(scene.style.present, std::max(scene.style.margin / 2.0, 1.5)));
    scene.painter.drawLine(QPointF(rect.left(), *y), QPointF(rect.right(), *y));
}

/// Painted over the items, at their edge.
void PaintPresentMark(const CalendarScene& scene, int column) {
    const std::optional<double> y = PresentY(scene, column);
    if (!y)
        return;
    const double left = scene.grid.columnRect(column).left();
    const double size = scene.style.margin * 1.4;
    scene.painter.setRenderHint(QPainter::Antialiasing);
    scene.painter.setPen(Qt::NoPen);
    scene.painter.setBrush(scene.style.present);
    scene.painter.drawPolygon(QPolygonF{{left, *y - size}, {left + 1.6 * size, *y}, {left, *y + size}});
    scene.painter.setBrush(Qt::NoBrush);
    scene.painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace

const CalendarItem& CalendarScene::item(int index) const {
    return content.items[static_cast<std::size_t>(index) - 1];
}

const CalendarColumn& CalendarScene::column(int column) const {
    return content.columns[static_cast<std::size_t>(column) - 1];
}

const ColumnLayout& CalendarScene::columnLayout(int column) const {
    return layout.columns[static_cast<std::size_t>(column) - 1];
}

void PaintBubble(const CalendarScene& scene, const QRect& rect, const QString& text, const QColor& back,
                 const QColor& ink) {
    scene.painter.setRenderHint(QPainter::Antialiasing);
    scene.painter.setPen(Qt::NoPen);
    scene.painter.setBrush(back);
    scene.painter.drawRoundedRect(rect, rect.height() / 3.0, rect.height() / 3.0);
    scene.painter.setBrush(Qt::NoBrush);
    scene.painter.setPen(ink);
    scene.painter.setFont(scene.style.small);
    scene.painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, text);
}

void PaintColumn(const CalendarScene& scene, int column, const QRect& clip) {
    const CalendarGrid& grid = scene.grid;
    QRect rect = grid.columnRect(column);
    rect.setTop(grid.y(grid.scale.first));
    rect.setBottom(grid.y(grid.scale.last) - 1);
    const QRect shown = grid.columnRect(column) & clip;
    if (shown.isEmpty())
        return;
    PaintGround(scene, column, rect, shown);
    PaintLines(scene, rect, shown);
    PaintRange(scene, column);
    PaintPresentLine(scene, column);
    PaintItems(scene, column, shown);
    PaintPresentMark(scene, column);
    PaintGhost(scene, column);
}

void PaintCalendar(const CalendarScene& scene, const QRect& clip) {
    QPainter& painter = scene.painter;
    const CalendarGrid& grid = scene.grid;
    const QRect body = grid.body();
    painter.fillRect(grid.area & clip, scene.style.window);
    if (body.intersects(clip) && grid.columns > 0) {
        painter.save();
        painter.setClipRect(body & clip, Qt::IntersectClip);
        const int last = grid.lastColumnIn(clip);
        for (int column = grid.firstColumnIn(clip); column <= last; ++column)
            PaintColumn(scene, column, body & clip);
        painter.restore();
    }
    PaintGutter(scene, clip);
    PaintHeadings(scene, clip);
}
