#pragma once

#include <array>
#include <QDate>
#include <vector>

/// The rule of a series of appointments, as plain values. Weekdays count from 1, Sunday, to 7, Saturday.
struct RecurrencePattern {
    enum class Type { Daily = 0, Weekly = 1, Monthly = 2, Yearly = 3 };
    static constexpr int Last = 5;  ///< The scale for "the last ..."; 1 to 4 mean the first to the fourth.

    bool patternLoaded = false;  ///< While this is false, no date belongs to the series.
    QDate startDate;             ///< The first date of the range. It is an occurrence only where it fits the pattern.
    int maxEvents = 0;           ///< The number of occurrences; 0 leaves the end to endDate.
    QDate endDate;               ///< The last date of the range; invalid for none.
    Type recurType = Type::Weekly;

    int dailyDays = 1;  ///< The interval in days.
    bool dailyWeekdayOnly = false;

    int weeklyWeeks = 1;               ///< The interval in weeks, which begin on Sunday.
    std::array<bool, 7> weeklyDays{};  ///< From Sunday to Saturday.

    bool monthlyUseThe = false;  ///< Whether "The second Tuesday" is meant instead of "Day 12".
    int monthlyDay = 1;
    int monthlyMonths = 1;  ///< The interval in calendar months.
    int monthlyScale = 1;
    int monthlyWeekday = 1;

    bool yearlyUseThe =
        false;  ///< Whether "The second Tuesday of March" is meant instead of "March 12". There is no interval.
    int yearlyMonth = 1;
    int yearlyDay = 1;
    int yearlyScale = 1;
    int yearlyWeekday = 1;

    friend bool operator==(const RecurrencePattern&, const RecurrencePattern&) = default;
};

/// Returns the number of a date's weekday, 1 for Sunday.
[[nodiscard]] int WeekdayNumber(QDate date);

/// Returns the position of a day of the month in its block of seven, 1 to 7: the 7th and the 14th have 7.
[[nodiscard]] int WeekdayOfDay(QDate date);

/// Whether the series takes place on the date. A day that a month lacks is skipped and not moved to the month's last
/// day. An interval below 1 fits no date.
[[nodiscard]] bool IsDateInSeries(const RecurrencePattern& pattern, QDate date);

/// Returns the dates of a series in ascending order. It walks over every day from the start until maxEvents dates are
/// found, the end date is reached, or 5000 days have passed. The result is empty without a start date.
[[nodiscard]] std::vector<QDate> BRGetDateStream(const RecurrencePattern& pattern);
