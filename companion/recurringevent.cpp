#include "companion/recurringevent.h"

#include <QLocale>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/errorbox.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int On = 1;
constexpr int NoPattern = -1;
constexpr int NoDay = 0;
constexpr int Patterns = 4;

struct Column {
    const char* name;
    int RecurringEvent::*value;
    int whenNull;
};

constexpr Column Columns[] = {
    {"RecrPattern", &RecurringEvent::RecrPattern, NoPattern},
    {"RecrDailyDays", &RecurringEvent::RecrDailyDays, 1},
    {"RecrDailyWeekdayInd", &RecurringEvent::RecrDailyWeekdayInd, 0},
    {"RecrWeeklyWeeks", &RecurringEvent::RecrWeeklyWeeks, 1},
    {"RecrWeeklyMonInd", &RecurringEvent::RecrWeeklyMonInd, 0},
    {"RecrWeeklyTueInd", &RecurringEvent::RecrWeeklyTueInd, 0},
    {"RecrWeeklyWedInd", &RecurringEvent::RecrWeeklyWedInd, 0},
    {"RecrWeeklyThuInd", &RecurringEvent::RecrWeeklyThuInd, 0},
    {"RecrWeeklyFriInd", &RecurringEvent::RecrWeeklyFriInd, 0},
    {"RecrWeeklySatInd", &RecurringEvent::RecrWeeklySatInd, 0},
    {"RecrWeeklySunInd", &RecurringEvent::RecrWeeklySunInd, 0},
    {"RecrMonthlyScaleInd", &RecurringEvent::RecrMonthlyScaleInd, 0},
    {"RecrMonthlyDay", &RecurringEvent::RecrMonthlyDay, NoDay},
    {"RecrMonthlyMonths", &RecurringEvent::RecrMonthlyMonths, 1},
    {"RecrMonthlyScale", &RecurringEvent::RecrMonthlyScale, 1},
    {"RecrMonthlyWeekday", &RecurringEvent::RecrMonthlyWeekday, 2},
    {"RecrYearlyScaleInd", &RecurringEvent::RecrYearlyScaleInd, 0},
    {"RecrYearlyDay", &RecurringEvent::RecrYearlyDay, NoDay},
    {"RecrYearlyMonth", &RecurringEvent::RecrYearlyMonth, NoDay},
    {"RecrYearlyScale", &RecurringEvent::RecrYearlyScale, 1},
    {"RecrYearlyWeekday", &RecurringEvent::RecrYearlyWeekday, 2},
    {"RecrMaxEvents", &RecurringEvent::RecrMaxEvents, 0},
};

QDate dateOf(const QString& text) {
    return db::Value(text).date();
}

}  // namespace

QString RecurringEvent::PatternStatement(int recrId) {
    return Sql("SELECT * FROM RecurringEvents WHERE RecrId = {}", recrId);
}

QString RecurringEvent::ExceptionStatement(QDate date, int ProvId) const {
    return Sql(
        "Select COUNT(*)FROM RecurringEventExceptions WHERE RecrId = {}  AND RExcDate = '{}' and (provID is null or provid = 0 or provid = {}) ",
        RecrId, QLocale::c().toString(date, QStringLiteral("MM/dd/yyyy")), ProvId);
}

bool RecurringEvent::DBGetInfo(db::Connection& connection, int recrId, const QString& startDate, const QString& endDate,
                               const QString& startTime, int allDay, int duration) {
    *this = {};
    RecrId = recrId;
    StartDate = startDate;
    EndDate = endDate;
    StartTime = startTime;
    AllDay = allDay;
    Duration = duration;
    try {
        const Recordset row(PatternStatement(recrId), connection);
        if (row.Eof())
            return false;
        for (const Column& column : Columns) {
            const db::Field field = row[column.name];
            this->*column.value = field.isNull() ? column.whenNull : static_cast<int>(field.integer());
        }
        Loaded = true;
    } catch (const db::DatabaseError& error) {
        TellInBar(QStringLiteral("A series of events could not be read and is not shown. "), error);
    }
    return Loaded;
}

bool RecurringEvent::IsDateInSeries(db::Connection& connection, QDate date, int ProvId) const {
    if (!IsInPattern(date))
        return false;
    const Recordset exceptions(ExceptionStatement(date, ProvId), connection);
    return exceptions[0].integer() == 0;
}

bool RecurringEvent::IsInPattern(QDate date) const {
    const QDate first = dateOf(StartDate);
    const QDate last = EndDate.isEmpty() ? date : dateOf(EndDate);
    if (!Loaded || !first.isValid() || !last.isValid() || date < first || date > last || RecrPattern >= Patterns)
        return false;
    if (interval() == 0)
        throw db::DatabaseError(DivideByZero, QStringLiteral("Division by zero"));
    return ::IsDateInSeries(asPattern(), date);
}

// Every weekday and every year have no interval of their own.
int RecurringEvent::interval() const {
    switch (RecrPattern) {
        case 0:
            return RecrDailyWeekdayInd == On ? 1 : RecrDailyDays;
        case 1:
            return RecrWeeklyWeeks;
        case 2:
            return RecrMonthlyMonths;
        default:
            return 1;
    }
}

RecurrencePattern RecurringEvent::asPattern() const {
    RecurrencePattern pattern;
    pattern.patternLoaded = Loaded;
    pattern.startDate = dateOf(StartDate);
    pattern.endDate = dateOf(EndDate);
    pattern.recurType = static_cast<RecurrencePattern::Type>(RecrPattern);
    pattern.dailyDays = RecrDailyDays;
    pattern.dailyWeekdayOnly = RecrDailyWeekdayInd == On;
    pattern.weeklyWeeks = RecrWeeklyWeeks;
    pattern.weeklyDays = {RecrWeeklySunInd == On, RecrWeeklyMonInd == On, RecrWeeklyTueInd == On,
                          RecrWeeklyWedInd == On, RecrWeeklyThuInd == On, RecrWeeklyFriInd == On,
                          RecrWeeklySatInd == On};
    pattern.monthlyUseThe = RecrMonthlyScaleInd == On;
    pattern.monthlyDay = RecrMonthlyDay;
    pattern.monthlyMonths = RecrMonthlyMonths;
    pattern.monthlyScale = RecrMonthlyScale;
    pattern.monthlyWeekday = RecrMonthlyWeekday;
    pattern.yearlyUseThe = RecrYearlyScaleInd == On;
    pattern.yearlyMonth = RecrYearlyMonth;
    pattern.yearlyDay = RecrYearlyDay;
    pattern.yearlyScale = RecrYearlyScale;
    pattern.yearlyWeekday = RecrYearlyWeekday;
    return pattern;
}
