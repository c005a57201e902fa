#include "appointments/appointmentrows.h"
#include "appointments/frmrecurappt.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/openview.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;
using db::SqlDate;
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

// The dialog's own rule, not that of the booking screens.
bool frmRecurAppt::collides(QDate date) const {
    return !Recordset(
                Sql("Select * from appointments Where ClinicianId = '{}' AND dapptdate = '{}' AND (({} BETWEEN nstarttime AND nendtime) OR ({} BETWEEN nstarttime AND nendtime) OR (nstarttime BETWEEN {} AND {}))",
                    ProviderOfView().id, SqlDate(date), source_.start, source_.end, source_.start, source_.end),
                Session().Connection)
                .Eof();
}

bool frmRecurAppt::getconflict(QDate date) const {
    return collides(date) &&
           MsgBox(QStringLiteral("You have another appointment on %1 which conflicts with this one. Add anyway?")
                      .arg(ShortDateText(date)),
                  YesNoBox, QStringLiteral("Appointment Conflict")) != Answer::Yes;
}

void frmRecurAppt::SaveProviderApt(const std::vector<QDate>& dates) {
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
        addCopies(rows, dates, sourceKey, roomForCopies(sourceKey));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error adding appointment. "), error);
    }
}

frmRecurAppt::Room frmRecurAppt::roomForCopies(int sourceKey) const {
    Room room{ApptRoomId(sourceKey), {}};
    if (room.id <= 0)
        return room;
    const Recordset name(Sql("Select room from rooms Where roomid = {}", room.id), Session().Connection);
    const bool wanted =
        MsgBox(
            QStringLiteral(
                "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?"),
            YesNoBox, QStringLiteral("Recurring Appointment")) == Answer::Yes;
    if (wanted && !name.Eof())
        room.text = name[0].text();
    return room;
}

void frmRecurAppt::addCopies(Recordset& rows, const std::vector<QDate>& dates, int sourceKey, const Room& room) {
    const Value appttype = rows["appttype"].value();
    const Value category = rows["appointment_type"].value();
    // The row's own code: what the calendar paints for a type slot is never stored.
    const CopyStatus status = copyStatus(static_cast<int>(rows["ncolor"].integer()));
    const QString provider = ProviderOfView().id;
    for (const QDate date : dates) {
        if (date == txtRecrStartDate->Date() || getconflict(date))
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
    }
}
