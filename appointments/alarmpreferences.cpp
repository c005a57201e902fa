#include "appointments/alarmpreferences.h"

#include <algorithm>

#include "data/minutetime.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

namespace {

// The number in the first value of a statement; 0 where there is none.
double numberOf(const QString& statement) {
    double number = 0;
    db::Ignoring([&] {
        const db::Recordset preference(statement, Session().Connection);
        if (!preference.Eof())
            number = preference["UP_PD_Value"].real();
    });
    return number;
}

}  // namespace

QString AlarmStatusStatement(const QString& userId) {
    return db::Sql(
        "Select UP_PD_Value from User_Preferences where UP_UserID = '{}' and UP_Pref_Category = 'Interfaces' and UP_Pref_Detail = 'ScheduleAlarm'",
        userId);
}

QString AlarmTimeStatement(const QString& userId) {
    return db::Sql(
        "Select UP_PD_Value from User_Preferences where UP_UserID = '{}' and UP_Pref_Category = 'Interfaces' and UP_Pref_Detail = 'ScheduleAlarmTime'",
        userId);
}

bool GetAlarmStatus(const QString& userId) {
    return numberOf(AlarmStatusStatement(userId)) == 1;
}

int GetAlarmTime(const QString& userId) {
    const double minutes = numberOf(AlarmTimeStatement(userId));
    return static_cast<int>(std::clamp(minutes, 0.0, double{MinutesPerDay}));
}
