#include "appointments/recurrencetext.h"

#include <algorithm>
#include <QLocale>
#include <QObject>
#include <QStringList>

namespace {

QString tr(const char* text) {
    return QObject::tr(text);
}

QString weekdayName(int number) {
    // Qt counts from Monday, 1.
    return QLocale::c().dayName(number == 1 ? 7 : number - 1);
}

QString monthName(int month) {
    return QLocale::c().monthName(month);
}

/// "Tuesday", "Tuesday and Thursday", "Monday, Tuesday and Thursday".
QString joined(const QStringList& names) {
    if (names.size() < 2)
        return names.join(QString());
    return names.mid(0, names.size() - 1).join(QStringLiteral(", ")) + tr(" and ") + names.last();
}

QString every(int count, const char* one, const char* many) {
    return count == 1 ? tr(one) : tr(many).arg(count);
}

QString nth(int scale) {
    static constexpr const char* words[] = {"first", "second", "third", "fourth", "last"};
    return scale >= 1 && scale <= RecurrencePattern::Last ? tr(words[scale - 1]) : QString();
}

QString weekly(const RecurrencePattern& pattern) {
    QStringList days;
    for (int day = 1; day <= 7; ++day)
        if (pattern.weeklyDays[static_cast<std::size_t>(day - 1)])
            days << weekdayName(day);
    return every(pattern.weeklyWeeks, "Every week", "Every %1 weeks") + tr(" on ") +
           (days.isEmpty() ? tr("no day") : joined(days));
}

QString rhythm(const RecurrencePattern& pattern) {
    switch (pattern.recurType) {
        case RecurrencePattern::Type::Daily:
            return pattern.dailyWeekdayOnly ? tr("Every weekday")
                                            : every(pattern.dailyDays, "Every day", "Every %1 days");
        case RecurrencePattern::Type::Weekly:
            return weekly(pattern);
        case RecurrencePattern::Type::Monthly: {
            const QString day =
                pattern.monthlyUseThe
                    ? tr("the %1 %2").arg(nth(pattern.monthlyScale), weekdayName(pattern.monthlyWeekday))
                    : tr("day %1").arg(pattern.monthlyDay);
            return every(pattern.monthlyMonths, "Every month", "Every %1 months") + tr(" on ") + day;
        }
        case RecurrencePattern::Type::Yearly:
            return pattern.yearlyUseThe
                       ? tr("Every year on the %1 %2 of %3")
                             .arg(nth(pattern.yearlyScale), weekdayName(pattern.yearlyWeekday),
                                  monthName(pattern.yearlyMonth))
                       : tr("Every year on %1 %2").arg(pattern.yearlyDay).arg(monthName(pattern.yearlyMonth));
    }
    return {};
}

}  // namespace

QString DescribeSeries(const RecurrencePattern& pattern, const std::vector<QDate>& dates, QDate own) {
    if (dates.empty())
        return tr("%1: no date fits.").arg(rhythm(pattern));
    const auto count = static_cast<int>(dates.size());
    const int fresh = count - static_cast<int>(std::count(dates.begin(), dates.end(), own));
    return QStringLiteral("%1, %2, %3: %4")
        .arg(rhythm(pattern), count == 1 ? tr("once") : tr("%1 times").arg(count),
             tr("until %1").arg(QLocale::c().toString(dates.back(), QStringLiteral("d MMMM yyyy"))),
             fresh == 1 ? tr("1 new appointment") : tr("%1 new appointments").arg(fresh));
}
