#pragma once

#include <QRect>
#include <vector>

#include "platform/calendar/item.h"
#include "platform/calendar/style.h"
#include "platform/controls/datelayout.h"

/// One line of a day: an item, or "+3 more" for the items without a line.
struct MonthLine {
    int index = 0;  ///< The item, from 1; 0 for the line that counts the rest.
    QRect rect;
};

/// One day of a month calendar.
struct MonthCell {
    QDate day;
    bool inMonth = true;
    QRect rect;
    QRect number;  ///< The place of the day's number.
    std::vector<MonthLine> lines;
    int hidden = 0;  ///< How many items have no line.
};

/// The places of a month calendar's parts.
struct MonthLayout {
    QRect headings;                ///< The names of the weekdays.
    std::vector<MonthCell> cells;  ///< Weeks of seven days, as many weeks as the month touches.

    [[nodiscard]] int weeks() const { return static_cast<int>(cells.size()) / MonthGrid::Days; }
    /// Returns the position in `cells` of the cell at the point, or -1 outside of all.
    [[nodiscard]] int cellAt(QPoint point) const;
    /// Returns the item whose line is at the point, or 0.
    [[nodiscard]] int itemAt(QPoint point) const;
};

/// How a month's height is divided between its weeks. AsHighAsNeeded gives the full weeks more where equal rows are too
/// low for them.
enum class MonthRows { Equal, AsHighAsNeeded };

/// Lays out the items of a month in a widget of that size. Each day shows its items by start, end and index, as many
/// lines as it has room for. Where there are more, its last line counts the rest. Items of days that are not shown are
/// left out.
MonthLayout LayOutMonth(const std::vector<CalendarItem>& items, const MonthGrid& grid, QSize size,
                        const CalendarStyle& style, MonthRows rows = MonthRows::Equal);
