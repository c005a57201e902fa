#pragma once

#include <array>
#include <QDate>
#include <vector>

/// When a series of appointments takes place, as plain values. Weekdays count from 1, Sunday, to 7, Saturday.
struct RecurrencePattern {
    enum class Type { Daily = 0, Weekly = 1, Monthly = 2, Yearly = 3 };
    static constexpr int Last = 5;  ///< The scale of "the last ..."; 1 to 4 are the first to the fourth.

    bool patternLoaded = false;  ///< Without it every date is outside the series.
    QDate startDate;             ///< First date of the range; it counts only where it fits the pattern.
    int maxEvents = 0;           ///< Number of occurrences; 0: the end date decides.
    QDate endDate;               ///< Last date of the range; invalid: none.
    Type recurType = Type::Weekly;

    int dailyDays = 1;  ///< Every so many days.
    bool dailyWeekdayOnly = false;

    int weeklyWeeks = 1;               ///< Every so many weeks, which begin on Sunday.
    std::array<bool, 7> weeklyDays{};  ///< Sunday first.

    bool monthlyUseThe = false;  ///< "The second Tuesday" instead of "Day 12".
    int monthlyDay = 1;
    int monthlyMonths = 1;  ///< Every so many months, counted by the numbers of the months.
    int monthlyScale = 1;
    int monthlyWeekday = 1;

    bool yearlyUseThe = false;  ///< "The second Tuesday of March" instead of "March 12". There is no interval.
    int yearlyMonth = 1;
    int yearlyDay = 1;
    int yearlyScale = 1;
    int yearlyWeekday = 1;

    friend bool operator==(const RecurrencePattern&, const RecurrencePattern&) = default;
};

/// The number of a date's weekday, 1 for Sunday.
[[nodiscard]] int WeekdayNumber(QDate date);

/// Whether the series takes place on the date. A day that a month lacks is skipped, with no move to the month's last
/// day. An interval below 1 fits no date.
[[nodiscard]] bool IsDateInSeries(const RecurrencePattern& pattern, QDate date);

/// The dates of a series in ascending order, by a walk over every day from its start: until maxEvents are found, or the
/// end date is reached, or 5000 days have passed. Empty without a start date.
[[nodiscard]] std::vector<QDate> BRGetDateStream(const RecurrencePattern& pattern);
