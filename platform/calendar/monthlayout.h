#pragma once

#include <QRect>
#include <vector>

#include "platform/calendar/item.h"
#include "platform/calendar/style.h"
#include "platform/controls/datelayout.h"

/// One line of a day: an item, or "+3 more" for those that have no line.
struct MonthLine {
    int index = 0;  ///< 1-based item; 0: the line that counts the rest.
    QRect rect;
};

/// One day of a month calendar.
struct MonthCell {
    QDate day;
    bool inMonth = true;
    QRect rect;
    QRect number;  ///< Where its number stands.
    std::vector<MonthLine> lines;
    int hidden = 0;  ///< Items that have no line.
};

/// Where the parts of a month calendar lie.
struct MonthLayout {
    QRect headings;                ///< The names of the weekdays.
    std::vector<MonthCell> cells;  ///< Weeks of seven days, as many weeks as the month touches.

    [[nodiscard]] int weeks() const { return static_cast<int>(cells.size()) / MonthGrid::Days; }
    /// The position in `cells` of what lies at the point, -1 outside of all.
    [[nodiscard]] int cellAt(QPoint point) const;
    /// The item whose line lies at the point, 0 for none.
    [[nodiscard]] int itemAt(QPoint point) const;
};

/// Lays the items of a month out in a widget of that size: in each day by start, end and index, as many lines as the
/// day has room for; where they are more, its last line counts the rest. Items of days that are not shown are left out.
MonthLayout LayOutMonth(const std::vector<CalendarItem>& items, const MonthGrid& grid, QSize size,
                        const CalendarStyle& style);
