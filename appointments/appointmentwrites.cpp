#include "appointments/appointmentwrites.h"

#include "appointments/appointmentroom.h"
#include "appointments/appointmentrows.h"
#include "appointments/inplacechanges.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "session/audit.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

using End = WriteOutcome::End;

// A row that stands alone needs no transaction, and none of its trips to the server.
template <typename Step>
void atOnce(bool withRoom, Step&& step) {
    if (withRoom)
        db::InTransaction(Session().Connection, step);
    else
        step();
}

void stamp(Recordset& row) {
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

QString timeText(int minutes) {
    return MinutesToTimeText(minutes, Session().MilitaryTime);
}

/// Sets what a move changes, and gives what the audit log says of where the appointment was.
QString setMove(Recordset& row, const AppointmentMove& move) {
    QString before =
        QStringLiteral("%1 at %2")
            .arg(AuditDate(row["dapptdate"].date()), timeText(static_cast<int>(row["nStartTime"].integer())));
    stamp(row);
    row.Set("nStartTime", move.start);
    row.Set("nEndTime", move.end);
    row.Set("dapptdate", move.day);
    if (move.provider && row["clinicianid"].text() != move.provider->id) {
        before += QStringLiteral(" with ") + move.providerBefore;
        row.Set("clinicianid", move.provider->id);
    }
    return before;
}

}  // namespace

QStringList InPlaceStatements(int key) {
    return {AppointmentStatement(key), RoomSlotStatement(key)};
}

void AuditMove(const AppointmentMove& move, const QString& before) {
    QString what = FirstCharacters(move.text, LongestApptText);
    if (move.provider)
        what += QStringLiteral(" with ") + move.provider->name;
    AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Modify Appointment"), {},
             QStringLiteral("Modified Appointment (%1) to %2 at %3 for %4")
                 .arg(before, move.day.toString(QStringLiteral("MM/dd/yy")), timeText(move.start), what));
}

RowOutcome SaveInPlace(const CalendarItem& read, const CalendarItem& wanted, const ItemPainting& painted) {
    return AttemptWrite<RowOutcome>([&](RowOutcome& outcome) {
        const int key = wanted.ItemKey.toInt();
        Recordset row(AppointmentStatement(key), Session().Connection, Lock::Optimistic);
        if (row.Eof()) {
            outcome.end = End::Gone;
            return;
        }
        const bool hasRoom = !Recordset(RoomSlotStatement(key), Session().Connection).Eof();
        atOnce(hasRoom, [&] {
            SetInPlaceChanges(row, read, wanted, ItemFromAppointment(row, painted));
            stamp(row);
            row.Update();
            if (!hasRoom)
                return;
            outcome.step = WriteStep::Room;
            const CalendarItem saved = ItemFromAppointment(row, painted);
            UpdateRoomTime(key, saved.ItemStart, saved.ItemEnd, saved.ItemDay, saved.ItemText);
        });
        outcome.row = RowOf(row, ItemFromAppointment(row, painted));
    });
}

RowOutcome MoveAppointment(const AppointmentMove& move, const ItemPainting& painted) {
    return AttemptWrite<RowOutcome>([&](RowOutcome& outcome) {
        const int key = move.before.stored.ItemKey.toInt();
        Recordset row(AppointmentStatement(key), Session().Connection, Lock::Optimistic);
        if (row.Eof()) {
            outcome.end = End::Gone;
            return;
        }
        if (!move.before.StandsAs(RowOf(row, ItemFromAppointment(row, painted))))
            throw db::RowChangedError();
        const QString before = setMove(row, move);
        atOnce(move.room, [&] {
            row.Update();
            if (!move.room)
                return;
            outcome.step = WriteStep::Room;
            UpdateRoomTime(key, move.start, move.end, move.day, QString());
        });
        AuditMove(move, before);
        outcome.row = RowOf(row, ItemFromAppointment(row, painted));
    });
}

WriteOutcome SetApptStatus(int key, int code) {
    return AttemptWrite([&](WriteOutcome& outcome) {
        if (Session().Connection.Execute(Sql("Update appointments Set ncolor = {} Where nkeyId = {}", code, key)) == 0)
            outcome.end = End::Gone;
    });
}

WriteOutcome CheckIn(int key, const QString& arrival) {
    return AttemptWrite([&](WriteOutcome& outcome) {
        Recordset row(ArrivalStatement(key), Session().Connection, Lock::Optimistic);
        if (row.Eof()) {
            outcome.end = End::Gone;
            return;
        }
        row.Set("CheckInTime", arrival);
        row.Set("ncolor", ncolor::CheckedIn);
        row.Update();
    });
}

WriteOutcome CorrectArrival(int key, const QString& arrival) {
    return AttemptWrite([&](WriteOutcome& outcome) {
        if (Session().Connection.Execute(
                Sql("Update appointments Set Checkintime = '{}' Where nkeyid = {}", arrival, key)) == 0)
            outcome.end = End::Gone;
    });
}
