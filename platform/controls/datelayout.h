#pragma once

#include <optional>
#include <QDate>
#include <QRect>

/// The first day of the week in every calendar: the picker of dates and the month begin their weeks where the week view
/// does, whose columns are "Mon-Fri" or "Mon-Sun".
inline constexpr Qt::DayOfWeek FirstDayOfWeek = Qt::Monday;

/// One month as six weeks of seven days, with the last days of the month before and the first of the month after.
struct MonthGrid {
    static constexpr int Weeks = 6;
    static constexpr int Days = 7;

    QDate month;  ///< Any day of the month shown.
    Qt::DayOfWeek firstDayOfWeek = FirstDayOfWeek;

    [[nodiscard]] QDate firstDate() const;
    [[nodiscard]] QDate dateAt(int week, int day) const { return firstDate().addDays(week * Days + day); }
    /// Returns the position of a date in the grid, counted from 0 day by day, or nothing for a date outside the grid.
    [[nodiscard]] std::optional<int> positionOf(QDate date) const;
    [[nodiscard]] Qt::DayOfWeek dayOfWeekAt(int day) const;
};

/// The rectangles of a month calendar's parts in a widget of the given size.
struct DateLayout {
    QSize size;
    int rowHeight = 0;

    /// The part at a point.
    struct Hit {
        enum class Part { Nothing, Previous, Next, Heading, Day };
        Part part = Part::Nothing;
        int position = -1;  ///< The position of a day, as MonthGrid counts it; -1 for any other part.
        friend bool operator==(const Hit&, const Hit&) = default;
    };

    [[nodiscard]] QRect previous() const { return {0, 0, rowHeight, rowHeight}; }
    [[nodiscard]] QRect next() const { return {size.width() - rowHeight, 0, rowHeight, rowHeight}; }
    [[nodiscard]] QRect heading() const { return {rowHeight, 0, size.width() - 2 * rowHeight, rowHeight}; }
    [[nodiscard]] QRect dayName(int day) const { return cell(-1, day); }
    [[nodiscard]] QRect dayAt(int position) const {
        return cell(position / MonthGrid::Days, position % MonthGrid::Days);
    }
    [[nodiscard]] Hit hit(QPoint point) const;

  private:
    [[nodiscard]] QRect cell(int week, int day) const;
};
