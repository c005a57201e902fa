#include "platform/calendar/page.h"

#include <algorithm>
#include <QPainter>

#include "platform/calendar/painting.h"

void PaintPage(QPainter& painter, const QRectF& area, const CalendarContent& content, int firstColumn, int columnCount,
               const CalendarStyle& style) {
    const int columns = static_cast<int>(content.columns.size());
    const int first = std::clamp(firstColumn, 1, std::max(columns, 1));
    const int count = std::min(columnCount, columns - first + 1);
    if (count < 1)
        return;
    const CalendarContent page = content.pageOf(first, count);
    GridWishes wishes;
    wishes.area = area.toAlignedRect();
    wishes.visibleColumns = count;
    wishes.fitHeight = true;
    const CalendarLayout rough = LayOut(page, 1);
    const CalendarGrid roughGrid = FitGrid(page, rough, style, wishes);
    const CalendarLayout placed = LayOut(page, MinMinutes(roughGrid.scale, style));
    const CalendarGrid grid = FitGrid(page, placed, style, wishes);
    painter.save();
    painter.setClipRect(wishes.area, Qt::IntersectClip);
    const CalendarState nothingSelected;
    PaintCalendar({painter, page, placed, grid, nothingSelected, style}, wishes.area);
    painter.restore();
}
