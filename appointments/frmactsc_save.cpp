#include <array>
#include <QSet>

#include "appointments/appointmentroom.h"
#include "appointments/appointmentrows.h"
#include "appointments/attendeelist.h"
#include "appointments/frmactsc.h"
#include "appointments/writeoutcome.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

void stamp(Recordset& row, const char* date, const char* user) {
    row.Set(date, Now());
    row.Set(user, Session().UID);
}

}  // namespace

void frmactsc::cmdOk_Click() {
    settleFields();
    offerUnknownItems();
    if (!isComplete())
        return;
    if (key_ != 0 && !dirty)
        return accept();
    if (key_ == 0 ? SaveNewEvent() : SaveUpdateEvent())
        accept();
    else
        closeUnsaved();
}

// Whether the end comes after the start is not asked here; the form shows it.
bool frmactsc::isComplete() {
    if (cboevents->Text().trimmed().isEmpty())
        return refuse(QStringLiteral("Enter an activity or event."), cboevents, QStringLiteral("Missing Text"));
    if (ctDEditComp->Value() < FirstValidDate)
        return refuse(QStringLiteral("Enter a date."), ctDEditComp);
    if (ctstart->Value() == NoTime)
        return refuse(QStringLiteral("Enter a start time."), ctstart);
    if (ctend->Value() == NoTime)
        return refuse(QStringLiteral("Enter an end time."), ctend);
    if (List1->SelectedIds().isEmpty())
        return refuse(QStringLiteral("Enter one or more attendees."), List1);
    return true;
}

bool frmactsc::SaveNewEvent() {
    const BusyPointer busy;
    try {
        db::InTransaction(Session().Connection, [this] {
            Recordset row(QStringLiteral("Select * from appointments where 0=1"), Session().Connection,
                          Lock::Optimistic);
            row.AddNew();
            stamp(row, "createddate", "createduid");
            writeFields(row);
            row.Set("ncolor", ncolor::Activity);
            row.Set("clinicianid", QString::fromLatin1(EventClinicianId));
            row.Update();
            insertAttendees(static_cast<int>(row["nkeyid"].integer()));
        });
        return true;
    } catch (const db::DatabaseError& error) {
        TellError(WriteTrouble(WriteStep::Appointment), error);
        return false;
    }
}

bool frmactsc::SaveUpdateEvent() {
    const BusyPointer busy;
    const QString statement = Sql("Select * from appointments Where nkeyid = {}", key_);
    const db::ReadTogether together(Session().Connection,
                                    {statement, AttendeesStatement(key_), RoomSlotStatement(key_)});
    WriteStep step = WriteStep::Appointment;
    try {
        bool gone = false;
        db::InTransaction(Session().Connection, [&] {
            Recordset row(statement, Session().Connection, Lock::Optimistic);
            gone = row.Eof();
            if (gone)
                return;
            db::RequireUnchanged(storedState_, writtenState(row));
            if (attendeesChanged && !attendeesStand())
                throw db::RowChangedError();
            writeUpdate(row);
            step = WriteStep::Room;
            const Event event = eventOf(row);
            UpdateRoomTime(key_, event.start, event.end, event.date, event.text);
        });
        if (gone)
            MsgBox(QStringLiteral("Error saving appointment. Another user may have deleted this appointment. "),
                   ErrorBox, QStringLiteral("Error"));
        return !gone;
    } catch (const db::DatabaseError& error) {
        TellError(WriteTrouble(step), error);
        return false;
    }
}

void frmactsc::writeUpdate(Recordset& row) const {
    writeFields(row);
    if (attendeesChanged) {
        Session().Connection.Execute(Sql("Delete from AppointmentsEvents Where nkeyid ={}", key_));
        insertAttendees(key_);
    }
    row.Update();
}

void frmactsc::writeFields(Recordset& row) const {
    const QString location = cbolocation->Text().trimmed().isEmpty() ? QString() : cbolocation->Text();
    row.Set("nStartTime", ctstart->Time());
    row.Set("nEndTime", ctend->Time());
    row.Set("dapptdate", ctDEditComp->Date());
    row.Set("cappttext", cboevents->Text().left(LongestText));
    row.Set("CLOCATION", location.left(LongestLocation));
    row.Set("BLOCATEICO", location.isEmpty() ? 0 : 1);
    stamp(row, "lastmodifieddate", "lastmodifieduid");
}

void frmactsc::insertAttendees(int key) const {
    for (const QString& id : List1->SelectedIds())
        Session().Connection.Execute(
            Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, '{}')", key, id));
}

// Whether no other desk has changed the attendees that are about to be written anew.
bool frmactsc::attendeesStand() const {
    QSet<QString> now;
    for (Recordset rows(AttendeesStatement(key_), Session().Connection); !rows.Eof(); rows.MoveNext())
        now << rows["clinicianid"].text();
    return now == QSet<QString>(storedAttendees_.begin(), storedAttendees_.end());
}

db::RowState frmactsc::writtenState(const Recordset& row) {
    static constexpr std::array columns{"nStartTime", "nEndTime", "dapptdate", "cappttext", "CLOCATION"};
    return {row, columns};
}

frmactsc::Event frmactsc::eventOf(const Recordset& row) {
    return {static_cast<int>(row["nStartTime"].integer()), static_cast<int>(row["nEndTime"].integer()),
            row["dapptdate"].date(), row["cappttext"].text(), row["CLOCATION"].text()};
}
