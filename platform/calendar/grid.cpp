#include "platform/calendar/grid.h"

#include <algorithm>
#include <cmath>

QRect CalendarGrid::body() const {
    const int top = headingHeight + bannerRows * stripHeight + (earlierStrip ? stripHeight : 0);
    const int bottom = laterStrip ? stripHeight : 0;
    return area.adjusted(gutterWidth, top, 0, -bottom);
}

QRect CalendarGrid::headings() const {
    return {area.left() + gutterWidth, area.top(), area.width() - gutterWidth, headingHeight};
}

QRect CalendarGrid::gutter() const {
    const QRect inner = body();
    return {area.left(), inner.top(), gutterWidth, inner.height()};
}

int CalendarGrid::columnLeft(int column) const {
    return area.left() + gutterWidth - scrollX + static_cast<int>(std::lround((column - 1) * columnWidth));
}

QRect CalendarGrid::columnRect(int column) const {
    const QRect inner = body();
    const int left = columnLeft(column);
    return {left, inner.top(), columnLeft(column + 1) - left, inner.height()};
}

QRect CalendarGrid::headingRect(int column) const {
    const int left = columnLeft(column);
    return {left, area.top(), columnLeft(column + 1) - left, headingHeight};
}

QRect CalendarGrid::bannerRect(int column, int row) const {
    const int left = columnLeft(column);
    return {left + 1, area.top() + headingHeight + row * stripHeight, columnLeft(column + 1) - left - gap,
            stripHeight - 1};
}

QRect CalendarGrid::earlierRect(int column) const {
    const int left = columnLeft(column);
    return {left + 1, body().top() - stripHeight, columnLeft(column + 1) - left - 2, stripHeight};
}

QRect CalendarGrid::laterRect(int column) const {
    const int left = columnLeft(column);
    return {left + 1, body().bottom() + 1, columnLeft(column + 1) - left - 2, stripHeight};
}

double CalendarGrid::stripBeside(int lanes) const {
    return std::min<double>(strip, std::max(columnWidth - gap, 1.0) / (lanes + 1));
}

QRect CalendarGrid::itemRect(const PlacedItem& item) const {
    const double all = std::max(columnWidth - gap, 1.0);
    const double taken = item.aside ? stripBeside(item.beside) : item.beside == 0 ? all : all - stripBeside(item.lanes);
    const double left = columnLeft(item.column) + 1 + (item.aside ? all - taken : 0.0);
    const double lane = taken / item.lanes;
    const int from = static_cast<int>(std::lround(left + item.lane * lane));
    const int to = static_cast<int>(std::lround(left + (item.lane + item.span) * lane));
    const int top = y(item.start);
    const bool hasNeighbour = (item.lane + item.span < item.lanes || (!item.aside && item.beside > 0)) && lane > 4;
    return {from, top + 1, std::max(to - from - (hasNeighbour ? 2 : 0), 1), std::max(y(item.end) - top - 1, 1)};
}

QRect CalendarGrid::timeRect(int column, int start, int end) const {
    const QRect across = columnRect(column);
    return {across.left(), y(start), across.width(), y(end) - y(start)};
}

int CalendarGrid::y(int minute) const {
    return body().top() - scrollY + scale.y(minute);
}

int CalendarGrid::minuteAt(int pixel) const {
    return scale.minuteAt(pixel - body().top() + scrollY);
}

int CalendarGrid::columnAt(int x) const {
    if (columns == 0)
        return 0;
    int column = std::clamp(static_cast<int>((x - columnLeft(1)) / std::max(columnWidth, 1.0)) + 1, 1, columns);
    while (column > 1 && columnLeft(column) > x)
        --column;
    while (column < columns && columnLeft(column + 1) <= x)
        ++column;
    return column;
}

int CalendarGrid::firstColumnIn(const QRect& clip) const {
    return std::max(columnAt(std::max(clip.left(), area.left() + gutterWidth)), 1);
}

int CalendarGrid::lastColumnIn(const QRect& clip) const {
    return columnAt(std::min(clip.right(), area.right()));
}

int CalendarGrid::contentWidth() const {
    return static_cast<int>(std::lround(columns * columnWidth));
}

CalendarGrid FitGrid(const CalendarContent& content, const CalendarLayout& layout, const CalendarStyle& style,
                     const GridWishes& wishes) {
    CalendarGrid grid;
    grid.area = wishes.area;
    grid.gutterWidth = style.gutterWidth;
    grid.headingHeight = style.headingHeight;
    grid.stripHeight = style.stripHeight;
    grid.bannerRows = layout.bannerRows;
    grid.earlierStrip = layout.hasEarlier;
    grid.laterStrip = layout.hasLater;
    grid.columns = static_cast<int>(content.columns.size());

    const QRect body = grid.body();
    const int least = std::max(style.minColumnWidth, 2);
    const int fitting = std::max(body.width() / least, 1);
    // Columns that the user wants side by side may be narrow, but on a small screen a name must stay readable.
    const int columns = std::max(grid.columns, 1);
    const int readable = wishes.fitHeight ? columns : std::max(body.width() / (least / 2), 1);
    const int sharing =
        std::min(wishes.visibleColumns > 0 ? std::min(wishes.visibleColumns, readable) : fitting, columns);
    grid.columnWidth = std::max(static_cast<double>(body.width()) / sharing, 4.0);
    grid.gap = std::clamp(static_cast<int>(grid.columnWidth / 14), 3, style.margin * 4);

    // The strip has room for some letters, and never more than half of the column.
    const double room = grid.columnWidth - grid.gap;
    grid.strip = static_cast<int>(std::max(room * 0.3, std::min(room / 2, style.minColumnWidth * 0.6)));

    grid.scale.first = content.gridStart();
    grid.scale.last = content.gridEnd();
    grid.scale.interval = content.timeInterval;
    const double wished = style.rowHeight(content.timeInterval) * wishes.zoom / content.timeInterval;
    const double filling = static_cast<double>(std::max(body.height(), 1)) / (grid.scale.last - grid.scale.first);
    grid.scale.pixelsPerMinute = wishes.fitHeight ? filling : std::max(wished, filling);
    return grid;
}

int MinMinutes(const TimeScale& scale, const CalendarStyle& style) {
    return static_cast<int>(std::ceil(style.minItemHeight / scale.pixelsPerMinute));
}
