#include "platform/calendar/monthlayout.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace {

int lineGap(const CalendarStyle& style) {
    return std::max(style.margin / 2, 1);
}

int lineHeight(const CalendarStyle& style) {
    return style.smallLine + lineGap(style);
}

int weeksOf(const MonthGrid& grid) {
    const QDate first(grid.month.year(), grid.month.month(), 1);
    const int days = static_cast<int>(grid.firstDate().daysTo(first)) + grid.month.daysInMonth();
    return (days + MonthGrid::Days - 1) / MonthGrid::Days;
}

/// The items of each cell, in the order in which they are shown.
std::vector<std::vector<int>> itemsByDay(const std::vector<CalendarItem>& items, const MonthGrid& grid, int cells) {
    std::vector<std::vector<int>> days(static_cast<std::size_t>(cells));
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::optional<int> position = grid.positionOf(items[i].ItemDay);
        if (position && *position < cells)
            days[static_cast<std::size_t>(*position)].push_back(static_cast<int>(i) + 1);
    }
    const auto key = [&items](int index) {
        const CalendarItem& item = items[static_cast<std::size_t>(index - 1)];
        return std::tuple(!item.ItemBanner, item.ItemStart, item.ItemEnd, index);
    };
    for (std::vector<int>& day : days)
        std::sort(day.begin(), day.end(), [&key](int one, int other) { return key(one) < key(other); });
    return days;
}

/// Returns the upper edge of each week and, at last, the lower edge of the last one. Each edge is rounded on its own,
/// so that the weeks fill the height at any size.
std::vector<int> equalEdges(int top, int height, int weeks) {
    std::vector<int> edges;
    for (int week = 0; week <= weeks; ++week)
        edges.push_back(top + height * week / weeks);
    return edges;
}

/// Returns the same edges for weeks that need these heights. A week that needs less than an equal share leaves the rest
/// to the others; what is left over in the end is shared by all.
std::vector<int> neededEdges(int top, int height, const std::vector<int>& needs) {
    std::vector<std::size_t> byNeed(needs.size());
    std::iota(byNeed.begin(), byNeed.end(), std::size_t{0});
    std::ranges::sort(byNeed, {}, [&needs](std::size_t week) { return needs[week]; });
    std::vector<int> heights(needs.size());
    int left = height;
    for (std::size_t i = 0; i < byNeed.size(); ++i) {
        const int share = left / static_cast<int>(byNeed.size() - i);
        heights[byNeed[i]] = std::min(needs[byNeed[i]], share);
        left -= heights[byNeed[i]];
    }
    std::vector<int> edges{top};
    for (std::size_t week = 0; week < heights.size(); ++week)
        edges.push_back(edges.back() + heights[week] + left / static_cast<int>(heights.size()));
    edges.back() = top + height;
    return edges;
}

/// Returns the heights in which all items of each week have a line.
std::vector<int> neededHeights(const std::vector<std::vector<int>>& days, int above, const CalendarStyle& style) {
    std::vector<int> needs;
    for (std::size_t first = 0; first < days.size(); first += MonthGrid::Days) {
        std::size_t most = 0;
        for (std::size_t day = first; day < first + MonthGrid::Days; ++day)
            most = std::max(most, days[day].size());
        needs.push_back(above + static_cast<int>(most) * (lineHeight(style) + lineGap(style)) + style.margin);
    }
    return needs;
}

void fillLines(MonthCell& cell, const std::vector<int>& items, const CalendarStyle& style) {
    const int gap = lineGap(style);
    const int height = lineHeight(style);
    const int top = cell.number.bottom() + 1 + gap;
    const int room = std::max((cell.rect.bottom() - style.margin / 2 - top + gap) / (height + gap), 0);
    const int all = static_cast<int>(items.size());
    const int shown = all <= room ? all : std::max(room - 1, 0);
    cell.hidden = all - shown;
    const auto lineAt = [&](int line) {
        return QRect(cell.rect.left() + style.margin, top + line * (height + gap),
                     std::max(cell.rect.width() - 2 * style.margin, 0), height);
    };
    for (int line = 0; line < shown; ++line)
        cell.lines.push_back({items[static_cast<std::size_t>(line)], lineAt(line)});
    if (cell.hidden > 0 && room > 0)
        cell.lines.push_back({0, lineAt(shown)});
}

}  // namespace

int MonthLayout::cellAt(QPoint point) const {
    const auto found =
        std::find_if(cells.begin(), cells.end(), [point](const MonthCell& cell) { return cell.rect.contains(point); });
    return found == cells.end() ? -1 : static_cast<int>(found - cells.begin());
}

int MonthLayout::itemAt(QPoint point) const {
    const int position = cellAt(point);
    if (position < 0)
        return 0;
    for (const MonthLine& line : cells[static_cast<std::size_t>(position)].lines)
        if (line.rect.contains(point))
            return line.index;
    return 0;
}

MonthLayout LayOutMonth(const std::vector<CalendarItem>& items, const MonthGrid& grid, QSize size,
                        const CalendarStyle& style, MonthRows rows) {
    MonthLayout layout;
    const int head = style.textLine + 2 * style.margin;
    layout.headings = QRect(0, 0, size.width(), head);
    if (!grid.month.isValid())
        return layout;
    const int weeks = weeksOf(grid);
    const int count = weeks * MonthGrid::Days;
    const std::vector<std::vector<int>> days = itemsByDay(items, grid, count);
    const int disc = style.textLine + 2 * style.margin;
    std::vector<int> edges = equalEdges(head, size.height() - head, weeks);
    if (rows == MonthRows::AsHighAsNeeded) {
        const std::vector<int> needs = neededHeights(days, disc + style.margin + lineGap(style), style);
        if (std::ranges::max(needs) > (size.height() - head) / weeks)
            edges = neededEdges(head, size.height() - head, needs);
    }
    for (int position = 0; position < count; ++position) {
        const int week = position / MonthGrid::Days;
        const int day = position % MonthGrid::Days;
        MonthCell cell;
        cell.day = grid.firstDate().addDays(position);
        cell.inMonth = cell.day.month() == grid.month.month();
        // Each edge is rounded on its own, so that the cells fill the widget at any size.
        const int left = size.width() * day / MonthGrid::Days;
        const int right = size.width() * (day + 1) / MonthGrid::Days;
        const int top = edges[static_cast<std::size_t>(week)];
        const int bottom = edges[static_cast<std::size_t>(week) + 1];
        cell.rect = QRect(left, top, right - left, bottom - top);
        cell.number = QRect(left + style.margin, top + style.margin / 2 + 1, disc, disc);
        fillLines(cell, days[static_cast<std::size_t>(position)], style);
        layout.cells.push_back(std::move(cell));
    }
    return layout;
}
