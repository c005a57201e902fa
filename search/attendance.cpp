#include "search/attendance.h"

#include <QStringList>

#include "data/minutetime.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

std::vector<Attendance> read(const QString& statement) {
    std::vector<Attendance> found;
    for (Recordset rows(statement, Session().Connection); !rows.Eof(); rows.MoveNext())
        found.push_back({rows["clinicianid"].text(), rows["dapptdate"].date(),
                         static_cast<int>(rows["nstarttime"].integer()), static_cast<int>(rows["nendtime"].integer()),
                         rows["cappttext"].text()});
    return found;
}

// Times are written without AM or PM, because the searched time already shows the half of the day.
QString timeText(int minutes) {
    return MinutesToTimeText(minutes, Session().MilitaryTime).section(u' ', 0, 0);
}

}  // namespace

std::vector<Attendance> AttendancesOn(QDate date) {
    return read(Sql(
        "Select appointmentsevents.clinicianid, dapptdate, nstarttime, nendtime, cappttext from appointmentsevents Inner Join appointments On appointmentsevents.nkeyid = appointments.nkeyid Where dapptdate = '{}' Order by nstarttime",
        SqlDate(date)));
}

QString AttendancesStatement(QDate from, QDate until) {
    return Sql(
        "Select appointmentsevents.clinicianid, dapptdate, nstarttime, nendtime, cappttext from appointmentsevents Inner Join appointments On appointmentsevents.nkeyid = appointments.nkeyid Where dapptdate >= '{}' And dapptdate <= '{}' Order by dapptdate, nstarttime",
        from, until);
}

std::vector<Attendance> AttendancesBetween(QDate from, QDate until) {
    return read(AttendancesStatement(from, until));
}

std::vector<Attendance> AttendancesOf(const QString& providerId, QDate from) {
    return read(Sql(
        "Select appointmentsevents.clinicianid, dapptdate, nstarttime, nendtime, cappttext from appointmentsevents Inner Join appointments On appointmentsevents.nkeyid = appointments.nkeyid Where appointmentsevents.clinicianid = '{}' AND dapptdate >= '{}' Order by dapptdate, nstarttime",
        providerId, SqlDate(from)));
}

QString AttendanceText(const std::vector<Attendance>& attendances, const QString& providerId, QDate date, int start,
                       int end) {
    QStringList texts;
    for (const Attendance& attendance : attendances) {
        if (attendance.date != date || attendance.providerId.compare(providerId, Qt::CaseInsensitive) != 0)
            continue;
        if (attendance.start < end && start < attendance.end)
            texts << QStringLiteral("in %1 %2 - %3")
                         .arg(attendance.activity.simplified(), timeText(attendance.start), timeText(attendance.end));
    }
    return texts.join(QStringLiteral(", "));
}
