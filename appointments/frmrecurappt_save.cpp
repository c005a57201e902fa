#include "appointments/appointmentrows.h"
#include "appointments/frmrecurappt.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/openview.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;
using db::Value;

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

}  // namespace

void frmRecurAppt::SaveProviderApt(const std::vector<QDate>& dates, Companions companions) {
    const BusyPointer busy;
    Recordset rows;
    try {
        rows.Open(Sql("Select * from appointments Where nkeyid = {}", source_.key), Session().Connection,
                  Lock::Optimistic);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error opening database. "), error);
        return;
    }
    if (rows.Eof()) {
        MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
               ExclamationBox, QStringLiteral("Error"));
        return;
    }
    try {
        int sourceKey = source_.key;
        if (rows["repeating"].integer() == 1) {
            // A series grows from its first member.
            if (rows["repeating_ref"].integer() > 0)
                sourceKey = static_cast<int>(rows["repeating_ref"].integer());
        } else {
            rows.Set("repeating", 1);
            rows.Set("repeating_ref", sourceKey);
            rows.Update();
        }
        tellMade(addCopies(rows, dates, sourceKey, roomForCopies(sourceKey), companions));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error adding appointment. "), error);
    }
}

int frmRecurAppt::addCopies(Recordset& rows, const std::vector<QDate>& dates, int sourceKey, const Room& room,
                            Companions companions) {
    const Value appttype = rows["appttype"].value();
    const Value category = rows["appointment_type"].value();
    // The row's own code: what the calendar paints for a type slot is never stored.
    const CopyStatus status = copyStatus(static_cast<int>(rows["ncolor"].integer()));
    const QString provider =
        companions == Companions::Attendees ? QString::fromLatin1(EventClinicianId) : ProviderOfView().id;
    int made = 0;
    for (const QDate date : dates) {
        if (leavesOut(date, room))
            continue;
        rows.AddNew();
        rows.Set("nStartTime", source_.start);
        rows.Set("nEndTime", source_.end);
        rows.Set("dapptdate", date);
        rows.Set("cappttext", source_.text);
        rows.Set("CLOCATION", source_.location);
        rows.Set("BLOCATEICO", source_.location.isEmpty() ? 0 : 1);
        rows.Set("BTentIco", status.tentative ? 1 : 0);
        rows.Set("ncolor", status.code);
        rows.Set("repeating", 1);
        rows.Set("repeating_ref", sourceKey);
        rows.Set("clinicianid", provider);
        rows.Set("CapptNote", GetPipeField(source_.note, 1) + QLatin1Char('|') + GetPipeField(source_.note, 2));
        rows.Set("patientid", GetPipeField(source_.note, 3));
        rows.Set("PatientAcct", GetPipeField(source_.note, 4));
        for (const char* flag : {"BremindIco", "BPrivateIco", "allday"})
            rows.Set(flag, 0);
        rows.Set("appttype", appttype);
        rows.Set("appointment_type", category);
        rows.Update();
        const int key = static_cast<int>(rows["nkeyid"].integer());
        if (!room.text.isEmpty() && room.id >= 1)
            BookRoom(room.id, key, source_.start, source_.end, date, room.text);
        copyCompanions(key, date, companions);
        ++made;
    }
    return made;
}

// Nobody has come to a copy yet, and who has left the group by then does not come.
void frmRecurAppt::copyCompanions(int copyKey, QDate date, Companions companions) const {
    db::Connection& connection = Session().Connection;
    if (companions == Companions::Attendees)
        connection.Execute(Sql(
            "Insert Into appointmentsevents (nkeyid, clinicianid) Select {}, clinicianid From appointmentsevents Where nkeyid = {}",
            copyKey, source_.key));
    if (companions == Companions::Members)
        connection.Execute(Sql(
            "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientAcct, PatientName, Kept, GroupId) Select {}, PatientId, PatientAcct, PatientName, 0, GroupId From AppointmentsGroup Where nKeyId = {} And Not Exists (Select * From GroupMembers Where GroupMembers.GroupID = AppointmentsGroup.GroupId And GroupMembers.PatientID = AppointmentsGroup.PatientId And GroupMembers.enddate < '{}')",
            copyKey, source_.key, date));
}
