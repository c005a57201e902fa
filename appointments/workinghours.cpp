#include "appointments/workinghours.h"

#include "data/recurrence.h"
#include "platform/database/recordset.h"
#include "session/session.h"

namespace {

constexpr char HoursStatement[] = "Select providerid, workdayvalue, starttime, endtime From ProvSched";
constexpr int HourMinutes = 60;

QString keyOf(const QString& provider) {
    return provider.trimmed().toUpper();
}

}  // namespace

QString WorkingHours::Statement() {
    return QString::fromLatin1(HoursStatement);
}

WorkingHours WorkingHours::Read() {
    WorkingHours hours;
    for (db::Recordset row(Statement(), Session().Connection); !row.Eof(); row.MoveNext()) {
        const QString provider = keyOf(row["providerid"].text());
        hours.scheduled_.insert(provider);
        hours.days_.emplace(
            std::pair(provider, static_cast<int>(row["workdayvalue"].integer())),
            MinuteRange{static_cast<int>(row["starttime"].integer()), static_cast<int>(row["endtime"].integer())});
    }
    return hours;
}

std::optional<MinuteRange> WorkingHours::On(const QString& provider, QDate date) const {
    const QString key = keyOf(provider);
    if (!scheduled_.contains(key))
        return MinuteRange{Session().DayStartHour * HourMinutes, Session().DayEndHour * HourMinutes};
    const auto day = days_.find({key, WeekdayNumber(date)});
    if (day == days_.end() || day->second.start <= 0 || day->second.start >= day->second.end)
        return std::nullopt;
    return day->second;
}
