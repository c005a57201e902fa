#pragma once

#include <QDate>
#include <QString>

#include "data/recurrence.h"
#include "platform/database/connection.h"
#include "platform/desktop/desktop.h"

/// The error number of a series whose interval is 0.
inline constexpr int DivideByZero = 8134;

/// A series of events of the companion: a row of its `RecurringEvents`, and what the event's own row tells about the
/// range. It answers for one day at a time whether the series takes place. Occurrences are stored nowhere.
///
/// The columns stand here under their own names, with the values that a new object holds. Weekdays count from 1,
/// Sunday, to 7, Saturday. An indicator is on only when it is exactly 1.
struct RecurringEvent {
    /// Reads the pattern of the series on the open connection and keeps the five other values, which come from the row
    /// of the event: its first day, its last day (empty for a series without end), its start, whether it lasts all day,
    /// and its minutes. Returns false when there is no such row, and when the database refuses the statement, which is
    /// told in the bar. The series then has no day.
    ///
    /// A column that is null holds what a new object holds. A day or a month that is null fits no date, and a pattern
    /// that is null has none, so that a row which is not complete does not wander through the calendar.
    bool DBGetInfo(db::Connection& connection, int recrId, const QString& startDate, const QString& endDate,
                   const QString& startTime, int allDay, int duration);

    /// Whether the series takes place on the date for a provider. A date in the pattern asks the database once for an
    /// exception; other dates ask nothing. Throws db::DatabaseError when that fails, and when the interval of a daily,
    /// weekly or monthly series is 0 (8134). RecrMaxEvents ends no series.
    [[nodiscard]] bool IsDateInSeries(db::Connection& connection, QDate date, int ProvId) const;

    // These let the caller read several series in one trip (db::ReadTogether).

    /// Returns the statement that DBGetInfo reads.
    [[nodiscard]] static QString PatternStatement(int recrId);
    /// Whether the pattern names the date, whatever exceptions there are. Throws as IsDateInSeries does.
    [[nodiscard]] bool IsInPattern(QDate date) const;
    /// Returns the statement by which IsDateInSeries asks for an exception on a date in the pattern.
    [[nodiscard]] QString ExceptionStatement(QDate date, int ProvId) const;

    bool Loaded = false;  ///< While this is false, no date belongs to the series.
    QString StartDate;
    QString EndDate;  ///< Empty for a series without end.
    QString StartTime;
    int AllDay = 0;
    int Duration = 0;  ///< In minutes.

    int RecrId = 0;
    int RecrPattern = 0;  ///< 0 daily, 1 weekly, 2 monthly, 3 yearly. Another pattern has no date.
    int RecrDailyDays = 1;
    int RecrDailyWeekdayInd = 0;
    int RecrWeeklyWeeks = 1;
    int RecrWeeklyMonInd = 0;
    int RecrWeeklyTueInd = 0;
    int RecrWeeklyWedInd = 0;
    int RecrWeeklyThuInd = 0;
    int RecrWeeklyFriInd = 0;
    int RecrWeeklySatInd = 0;
    int RecrWeeklySunInd = 0;
    int RecrMonthlyScaleInd = 0;
    int RecrMonthlyDay = Today().day();
    int RecrMonthlyMonths = 1;
    int RecrMonthlyScale = 1;  ///< 1 to 4, or 5 for the last weekday of the month.
    int RecrMonthlyWeekday = 2;
    int RecrYearlyScaleInd = 0;
    int RecrYearlyDay = Today().day();
    int RecrYearlyMonth = Today().month();
    int RecrYearlyScale = 1;
    int RecrYearlyWeekday = 2;
    int RecrMaxEvents = 0;  ///< Read, and used nowhere.

  private:
    [[nodiscard]] int interval() const;
    [[nodiscard]] RecurrencePattern asPattern() const;
};
