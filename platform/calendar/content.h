#pragma once

#include <QDate>
#include <QString>
#include <vector>

#include "platform/calendar/item.h"

/// The Windows value for "the system's information colour": the theme's own colour is used.
inline constexpr int SystemInfoColor = static_cast<int>(0x80000018U);

/// A column of a calendar: a day, or a titled one (a provider, a room) on the calendar's date.
struct CalendarColumn {
    QString title;  ///< Empty: the heading tells the day.
    QDate day;

    friend bool operator==(const CalendarColumn&, const CalendarColumn&) = default;
};

/// A painted range of time, both minutes included.
struct TimeRange {
    int start = 0;
    int end = 0;
    int color = 0;   ///< 0xBBGGRR.
    int column = 0;  ///< 1-based; 0: every column, or that of `day` where it is set.
    QDate day;

    friend bool operator==(const TimeRange&, const TimeRange&) = default;
};

/// Everything a calendar shows, as plain values.
struct CalendarContent {
    QDate date;
    std::vector<CalendarItem> items;
    std::vector<CalendarColumn> columns;  ///< At least one, but for providers when all are filtered out.
    bool dayColumns = true;               ///< The columns stand for days, from `date` on; else they are titled.
    std::vector<TimeRange> ranges;
    int firstTime = 8 * 60;
    int lastTime = 18 * 60 - 1;
    int primeStart = 8 * 60;
    int primeEnd = 18 * 60;
    int timeInterval = 15;
    bool twentyFourHour = false;
    int dayBackColor = SystemInfoColor;
    int dayHeaderColor = SystemInfoColor;
    bool holidayFlag = false;
    QString headingFormat;

    /// First minute of the grid: firstTime, brought into the day.
    [[nodiscard]] int gridStart() const;
    /// Minute at which the grid ends, at least one interval after its start and at most 1440.
    [[nodiscard]] int gridEnd() const;
    /// The 1-based column in which the item stands; 0 when it has none (a day that is not shown, a column past the
    /// last).
    [[nodiscard]] int columnOf(const CalendarItem& item) const;
    /// Only `count` columns from `first` on (1-based), with their items and ranges, and with hours so wide that every
    /// item is inside: nobody can scroll paper.
    [[nodiscard]] CalendarContent pageOf(int first, int count) const;
};
