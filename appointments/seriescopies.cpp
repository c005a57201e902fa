#include "appointments/seriescopies.h"

#include "appointments/appointmentroom.h"
#include "data/codes.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int LastStatus = 0xC3;  // Colours up to it stand for statuses.

/// What a copy's status is made of its source's.
struct CopyStatus {
    int code = 0;
    bool tentative = false;
};

CopyStatus copyStatus(int sourceColor) {
    if (sourceColor == ncolor::LegendTentative)
        return {sourceColor, true};
    if (sourceColor == ncolor::Kept)
        return {ncolor::Pending, false};
    return {sourceColor > LastStatus ? sourceColor : ncolor::Pending, false};
}

// Nobody has come to a copy yet, and who has left the group by then does not come.
void copyCompany(const SeriesWork& work, int copyKey, QDate date) {
    db::Connection& connection = Session().Connection;
    if (work.company == SeriesWork::Company::Attendees)
        connection.Execute(Sql(
            "Insert Into appointmentsevents (nkeyid, clinicianid) Select {}, clinicianid From appointmentsevents Where nkeyid = {}",
            copyKey, work.source));
    if (work.company == SeriesWork::Company::Members)
        connection.Execute(Sql(
            "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientAcct, PatientName, Kept, GroupId) Select {}, PatientId, PatientAcct, PatientName, 0, GroupId From AppointmentsGroup Where nKeyId = {} And Not Exists (Select * From GroupMembers Where GroupMembers.GroupID = AppointmentsGroup.GroupId And GroupMembers.PatientID = AppointmentsGroup.PatientId And GroupMembers.enddate < '{}')",
            copyKey, work.source, date));
}

void writeCopy(Recordset& rows, const SeriesCopy& copy, const SeriesWork& work, const QString& room, QDate date) {
    const CopyStatus status = copyStatus(copy.color);
    rows.AddNew();
    rows.Set("nStartTime", work.start);
    rows.Set("nEndTime", work.end);
    rows.Set("dapptdate", date);
    rows.Set("cappttext", copy.text);
    rows.Set("CLOCATION", copy.location);
    rows.Set("BLOCATEICO", copy.location.isEmpty() ? 0 : 1);
    rows.Set("BTentIco", status.tentative ? 1 : 0);
    rows.Set("ncolor", status.code);
    rows.Set("repeating", 1);
    rows.Set("repeating_ref", work.reference);
    rows.Set("clinicianid", work.provider);
    rows.Set("CapptNote", copy.note);
    rows.Set("patientid", copy.patientId);
    rows.Set("PatientAcct", copy.account);
    for (const char* flag : {"BremindIco", "BPrivateIco", "allday"})
        rows.Set(flag, 0);
    rows.Set("appttype", copy.appttype);
    rows.Set("appointment_type", copy.category);
    rows.Update();
    const int key = static_cast<int>(rows["nkeyid"].integer());
    if (!room.isEmpty())
        BookRoom(work.room, key, work.start, work.end, date, room);
    copyCompany(work, key, date);
}

}  // namespace

// The source is the series' first member, or was one before.
void JoinSeries(Recordset& row, const SeriesWork& work) {
    if (row["repeating"].integer() == 1)
        return;
    row.Set("repeating", 1);
    row.Set("repeating_ref", work.reference);
    row.Update();
}

WriteOutcome AddCopy(Recordset& rows, const SeriesCopy& copy, const SeriesWork& work, const QString& room, QDate date) {
    return AttemptWrite([&](WriteOutcome&) {
        db::InTransaction(Session().Connection, [&] { writeCopy(rows, copy, work, room, date); });
    });
}
