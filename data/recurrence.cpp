#include "data/recurrence.h"

namespace {

constexpr int MostDays = 5000;
constexpr int Week = 7;
constexpr int Saturday = 7;
constexpr int Sunday = 1;

bool isMultiple(qint64 difference, int interval) {
    return interval >= 1 && difference % interval == 0;
}

int weeksBetween(QDate first, QDate second) {
    const auto sundayOf = [](QDate date) { return date.toJulianDay() - WeekdayNumber(date) + Sunday; };
    return static_cast<int>((sundayOf(second) - sundayOf(first)) / Week);
}

int monthsBetween(QDate first, QDate second) {
    return (second.year() - first.year()) * 12 + second.month() - first.month();
}

// The last Friday is the one that is not followed by another Friday of the same month.
bool isNthOfItsWeekday(QDate date, int scale) {
    if (scale == RecurrencePattern::Last)
        return date.addDays(Week).month() != date.month();
    return (scale - 1) * Week + WeekdayOfDay(date) == date.day();
}

bool fitsWeekly(const RecurrencePattern& pattern, QDate date) {
    return isMultiple(weeksBetween(pattern.startDate, date), pattern.weeklyWeeks) &&
           pattern.weeklyDays[static_cast<std::size_t>(WeekdayNumber(date) - 1)];
}

bool fitsMonthly(const RecurrencePattern& pattern, QDate date) {
    if (!isMultiple(monthsBetween(pattern.startDate, date), pattern.monthlyMonths))
        return false;
    if (!pattern.monthlyUseThe)
        return date.day() == pattern.monthlyDay;
    return WeekdayNumber(date) == pattern.monthlyWeekday && isNthOfItsWeekday(date, pattern.monthlyScale);
}

bool fitsYearly(const RecurrencePattern& pattern, QDate date) {
    if (date.month() != pattern.yearlyMonth)
        return false;
    if (!pattern.yearlyUseThe)
        return date.day() == pattern.yearlyDay;
    return WeekdayNumber(date) == pattern.yearlyWeekday && isNthOfItsWeekday(date, pattern.yearlyScale);
}

}  // namespace

int WeekdayNumber(QDate date) {
    return date.dayOfWeek() % Week + 1;
}

int WeekdayOfDay(QDate date) {
    const int position = date.day() % Week;
    return position == 0 ? Week : position;
}

bool IsDateInSeries(const RecurrencePattern& pattern, QDate date) {
    const QDate limit = pattern.endDate.isValid() ? pattern.endDate : date;
    if (!pattern.patternLoaded || date < pattern.startDate || date > limit)
        return false;
    switch (pattern.recurType) {
        case RecurrencePattern::Type::Daily:
            if (pattern.dailyWeekdayOnly)
                return WeekdayNumber(date) != Sunday && WeekdayNumber(date) != Saturday;
            return isMultiple(pattern.startDate.daysTo(date), pattern.dailyDays);
        case RecurrencePattern::Type::Weekly:
            return fitsWeekly(pattern, date);
        case RecurrencePattern::Type::Monthly:
            return fitsMonthly(pattern, date);
        case RecurrencePattern::Type::Yearly:
            return fitsYearly(pattern, date);
    }
    return false;
}

std::vector<QDate> BRGetDateStream(const RecurrencePattern& pattern) {
    std::vector<QDate> dates;
    if (!pattern.startDate.isValid())
        return dates;
    for (int day = 0; day <= MostDays; ++day) {
        const QDate current = pattern.startDate.addDays(day);
        if (!IsDateInSeries(pattern, current))
            continue;
        dates.push_back(current);
        if (pattern.maxEvents > 0) {
            if (static_cast<int>(dates.size()) >= pattern.maxEvents)
                break;
        } else if (pattern.endDate.isValid() && current >= pattern.endDate) {
            break;
        }
    }
    return dates;
}
