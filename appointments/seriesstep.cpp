#include "appointments/seriesstep.h"

#include <algorithm>

#include "appointments/appointmentdelete.h"
#include "appointments/appointmentroom.h"
#include "appointments/appointmentrows.h"
#include "appointments/appointmentwrites.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "session/audit.h"
#include "session/providernames.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

int intOf(const Recordset& row, const char* column) {
    return static_cast<int>(row[column].integer());
}

SeriesPlace placeIn(const Recordset& row, int room) {
    return {row["dapptdate"].date(),   intOf(row, "nStartTime"), intOf(row, "nEndTime"),
            row["clinicianid"].text(), intOf(row, "ncolor"),     room};
}

int roomOf(int key) {
    const Recordset booking(ApptRoomStatement(key), Session().Connection);
    return booking.Eof() ? 0 : intOf(booking, "croomid");
}

bool hasAttendance(const SeriesStep& step) {
    return step.before.code == ncolor::Group &&
           !Recordset(Sql("Select PatientId from AppointmentsGroup Where nKeyId = {} And Kept = 1", step.key),
                      Session().Connection)
                .Eof();
}

QString timeText(int minutes) {
    return MinutesToTimeText(minutes, Session().MilitaryTime);
}

void deleteRow(Recordset& row, const SeriesStep& step) {
    const SeriesRow deleted{step.key,
                            {AuditDate(step.before.date), timeText(step.before.start), row["cappttext"].text()},
                            step.before.code == ncolor::Group};
    row.Delete();
    EndDeletionOfSeries(deleted);
}

bool movesInTime(const SeriesPlace& from, const SeriesPlace& to) {
    return from.date != to.date || from.start != to.start || from.end != to.end;
}

// The alarm keeps its lead.
void setTime(Recordset& row, const SeriesPlace& from, const SeriesPlace& to) {
    row.Set("nStartTime", to.start);
    row.Set("nEndTime", to.end);
    row.Set("dapptdate", to.date);
    if (row["BremindIco"].boolean() && !row["ReminderTime"].value().isNull())
        row.Set("ReminderTime", std::max(0, intOf(row, "ReminderTime") + to.start - from.start));
}

void setPlace(Recordset& row, const SeriesPlace& from, const SeriesPlace& to) {
    if (movesInTime(from, to))
        setTime(row, from, to);
    if (from.provider != to.provider)
        row.Set("clinicianid", to.provider);
    if (from.code != to.code) {
        row.Set("ncolor", to.code);
        return;
    }
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

// A room is booked in the name that the booking had, else in that of the provider of a patient's appointment or in the
// words of another.
QString bookingText(const Recordset& row, const SeriesPlace& place) {
    if (const Recordset booking(RoomSlotStatement(intOf(row, "nkeyid")), Session().Connection); !booking.Eof())
        return booking["croomtext"].text();
    return IsPatientRow(place.code) ? ProviderNames().Of(place.provider) : row["cappttext"].text();
}

void moveRoom(const Recordset& row, const SeriesPlace& from, const SeriesPlace& to) {
    const int key = intOf(row, "nkeyid");
    if (from.room == to.room) {
        // The booking of a patient's appointment goes over to the new provider.
        const bool renamed = to.room > 0 && from.provider != to.provider && IsPatientRow(to.code);
        if (renamed || movesInTime(from, to))
            UpdateRoomTime(key, to.start, to.end, to.date, renamed ? ProviderNames().Of(to.provider) : QString());
        return;
    }
    const QString text = bookingText(row, to);
    Session().Connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key));
    if (to.room > 0)
        BookRoom(to.room, key, to.start, to.end, to.date, text);
}

void auditChange(const Recordset& row, const SeriesPlace& from, const SeriesPlace& to) {
    AppointmentMove move;
    move.day = to.date;
    move.start = to.start;
    move.end = to.end;
    move.text = row["cappttext"].text();
    QString before = QStringLiteral("%1 at %2").arg(AuditDate(from.date), timeText(from.start));
    if (from.provider != to.provider) {
        const ProviderNames names;
        before += QStringLiteral(" with ") + names.Of(from.provider);
        move.provider = {to.provider, names.Of(to.provider)};
    }
    AuditMove(move, before);
}

void changeRow(Recordset& row, const SeriesPlace& from, const SeriesPlace& to) {
    setPlace(row, from, to);
    row.Update();
    moveRoom(row, from, to);
    if (from.code == to.code)
        auditChange(row, from, to);
}

}  // namespace

QString PlacesStatement(const QString& condition) {
    return Sql(
        "Select appointments.*, roomschedule.croomid, rooms.Room from appointments Left Join roomschedule On roomschedule.apptid = appointments.nkeyid Left Join rooms On rooms.roomid = roomschedule.croomid Where {}",
        db::Raw{condition});
}

SeriesPlace PlaceOf(const Recordset& row) {
    return placeIn(row, intOf(row, "croomid"));
}

WriteOutcome TakeStep(const SeriesStep& step) {
    return AttemptWrite([&](WriteOutcome& outcome) {
        db::InTransaction(Session().Connection, [&] {
            Recordset row(AppointmentStatement(step.key), Session().Connection, Lock::Optimistic);
            if (row.Eof()) {
                outcome.end = WriteOutcome::End::Gone;
                return;
            }
            if (placeIn(row, roomOf(step.key)) != step.before || row["NoteID"].integer() > 0 || hasAttendance(step))
                throw db::RowChangedError();
            if (step.after)
                changeRow(row, step.before, *step.after);
            else
                deleteRow(row, step);
        });
    });
}
