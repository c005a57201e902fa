#include "companion/companionappointment.h"

#include <QCoreApplication>

#include "companion/companiontime.h"
#include "data/companioncodes.h"
#include "platform/database/recordset.h"

namespace {

constexpr int LastStatus = 5;

enum class Field { Required, Optional };

QString fieldName(const char* name) {
    return QCoreApplication::translate("MergeAppointment", name);
}

}  // namespace

CompanionAppointment AppointmentOf(const db::Recordset& row) {
    const int status = static_cast<int>(row["appt_status"].integer());
    return {.TranId = static_cast<int>(row["tranid"].integer()),
            .date = row["CtrnDate"].date(),
            .start = CompanionMinutes(row["CtrnTime"]),
            .duration = static_cast<int>(row["CtrnDuration"].integer()),
            .memo = row["CtrnNotes"].text(),
            .status = status >= 0 && status <= LastStatus ? status : 0};
}

bool IsScheduled(const db::Recordset& row) {
    return row["CtrnStatus"].text().compare(QLatin1String(CtrnScheduled), Qt::CaseInsensitive) == 0;
}

MergedAppointment MergeAppointment(const CompanionAppointment& before, const CompanionAppointment& wanted,
                                   const CompanionAppointment& now) {
    MergedAppointment merged{now, {}, {}};
    const auto isOurs = [&](auto CompanionAppointment::*field, Field kind) {
        const bool isLost = kind == Field::Required && now.*field == CompanionAppointment().*field;
        return wanted.*field != before.*field || isLost;
    };
    const auto take = [&](auto CompanionAppointment::*field, const char* name, bool ours) {
        const bool isTheirs = now.*field != before.*field;
        if (!ours) {
            if (isTheirs)
                merged.kept << fieldName(name);
            return;
        }
        merged.appointment.*field = wanted.*field;
        if (isTheirs && now.*field != wanted.*field)
            merged.replaced << fieldName(name);
    };
    const auto merge = [&](auto CompanionAppointment::*field, const char* name, Field kind) {
        take(field, name, isOurs(field, kind));
    };
    // A day of the one and a time of the other would be a moment that nobody chose.
    const bool isMoved =
        isOurs(&CompanionAppointment::date, Field::Required) || isOurs(&CompanionAppointment::start, Field::Required);
    take(&CompanionAppointment::date, "date", isMoved);
    take(&CompanionAppointment::start, "start time", isMoved);
    merge(&CompanionAppointment::duration, "duration", Field::Required);
    merge(&CompanionAppointment::TranId, "charge type", Field::Required);
    merge(&CompanionAppointment::status, "status", Field::Optional);
    merge(&CompanionAppointment::memo, "memo", Field::Optional);
    return merged;
}
