#pragma once

#include <QDate>
#include <QString>
#include <vector>

#include "platform/calendar/item.h"

/// The Windows value of the system's information colour. The theme's own colour is used in its place.
inline constexpr int SystemInfoColor = static_cast<int>(0x80000018U);

/// A column of a calendar: a day, or a titled column (a provider, a room) on the calendar's date.
struct CalendarColumn {
    QString title;  ///< Empty for a day, whose heading is its date.
    QDate day;

    friend bool operator==(const CalendarColumn&, const CalendarColumn&) = default;
};

/// A painted range of time. Both minutes belong to it.
struct TimeRange {
    int start = 0;
    int end = 0;
    int color = 0;   ///< 0xBBGGRR.
    int column = 0;  ///< From 1. 0 means every column, or the column of `day` where it is set.
    QDate day;

    friend bool operator==(const TimeRange&, const TimeRange&) = default;
};

/// The content of a calendar as plain values.
struct CalendarContent {
    QDate date;
    std::vector<CalendarItem> items;
    std::vector<CalendarColumn> columns;  ///< Empty only for providers that are all filtered out.
    bool dayColumns = true;               ///< Whether the columns are days, from `date` on, or titled.
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
    QString headingFormat;  ///< QLocale date format of day headings; empty for their own, which depends on the width.

    /// Returns the first minute of the grid: firstTime, brought into the day.
    [[nodiscard]] int gridStart() const;
    /// Returns the minute at which the grid ends: at least one interval after its start and at most 1440.
    [[nodiscard]] int gridEnd() const;
    /// Returns the column of the item, from 1, or 0 when it has none (its day is not shown, or its column is past the
    /// last).
    [[nodiscard]] int columnOf(const CalendarItem& item) const;
    /// Returns the content of `count` columns from `first` (from 1) on, with their items and ranges. The hours are
    /// widened so that every item is inside, because paper cannot be scrolled.
    [[nodiscard]] CalendarContent pageOf(int first, int count) const;
};
