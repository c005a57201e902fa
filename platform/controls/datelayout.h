#pragma once

#include <optional>
#include <QDate>
#include <QRect>

/// One month as six weeks of seven days, from the last days of the month before to the first of the month after.
struct MonthGrid {
    static constexpr int Weeks = 6;
    static constexpr int Days = 7;

    QDate month;  ///< Any day of the month shown.
    Qt::DayOfWeek firstDayOfWeek = Qt::Sunday;

    [[nodiscard]] QDate firstDate() const;
    [[nodiscard]] QDate dateAt(int week, int day) const { return firstDate().addDays(week * Days + day); }
    /// Nothing for a date outside the grid; else its position counted from 0, weeks of seven.
    [[nodiscard]] std::optional<int> positionOf(QDate date) const;
    [[nodiscard]] Qt::DayOfWeek dayOfWeekAt(int day) const;
};

/// Where the parts of a month calendar lie in a widget of that size.
struct DateLayout {
    QSize size;
    int rowHeight = 0;

    /// What a point hits.
    struct Hit {
        enum class Part { Nothing, Previous, Next, Heading, Day };
        Part part = Part::Nothing;
        int position = -1;  ///< Of a day, as MonthGrid counts.
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
