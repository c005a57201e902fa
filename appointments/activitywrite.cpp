#include "appointments/activitywrite.h"

#include <array>
#include <QSet>

#include "appointments/appointmentroom.h"
#include "appointments/appointmentrows.h"
#include "data/codes.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

void stamp(Recordset& row, const char* date, const char* user) {
    row.Set(date, Now());
    row.Set(user, Session().UID);
}

void writeFields(Recordset& row, const ActivityFields& fields) {
    row.Set("nStartTime", fields.start);
    row.Set("nEndTime", fields.end);
    row.Set("dapptdate", fields.date);
    row.Set("cappttext", fields.text.left(ActivityFields::LongestText));
    row.Set("CLOCATION", fields.location.left(ActivityFields::LongestLocation));
    row.Set("BLOCATEICO", fields.location.isEmpty() ? 0 : 1);
    stamp(row, "lastmodifieddate", "lastmodifieduid");
}

void insertAttendees(int key, const QStringList& attendees) {
    for (const QString& id : attendees)
        Session().Connection.Execute(
            Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, '{}')", key, id));
}

// Whether no other desk has changed the attendees that are about to be written anew.
bool attendeesStand(int key, const QStringList& before) {
    QSet<QString> now;
    for (Recordset rows(AttendeesStatement(key), Session().Connection); !rows.Eof(); rows.MoveNext())
        now << rows["clinicianid"].text();
    return now == QSet<QString>(before.begin(), before.end());
}

void writeUpdate(Recordset& row, int key, const ActivityFields& fields,
                 const std::optional<AttendeeChange>& attendees) {
    writeFields(row, fields);
    if (attendees) {
        Session().Connection.Execute(Sql("Delete from AppointmentsEvents Where nkeyid ={}", key));
        insertAttendees(key, attendees->wanted);
    }
    row.Update();
}

}  // namespace

db::RowState ActivityState(const Recordset& row) {
    static constexpr std::array columns{"nStartTime", "nEndTime", "dapptdate", "cappttext", "CLOCATION"};
    return {row, columns};
}

WriteOutcome AddActivity(const ActivityFields& fields, const QStringList& attendees) {
    return AttemptWrite([&](WriteOutcome&) {
        db::InTransaction(Session().Connection, [&] {
            Recordset row(QStringLiteral("Select * from appointments where 0=1"), Session().Connection,
                          Lock::Optimistic);
            row.AddNew();
            stamp(row, "createddate", "createduid");
            writeFields(row, fields);
            row.Set("ncolor", ncolor::Activity);
            row.Set("clinicianid", QString::fromLatin1(EventClinicianId));
            row.Update();
            insertAttendees(static_cast<int>(row["nkeyid"].integer()), attendees);
        });
    });
}

WriteOutcome UpdateActivity(int key, const ActivityFields& fields, const std::optional<AttendeeChange>& attendees,
                            const db::RowState& loaded) {
    const QString statement = Sql("Select * from appointments Where nkeyid = {}", key);
    const db::ReadTogether together(Session().Connection, {statement, AttendeesStatement(key), RoomSlotStatement(key)});
    return AttemptWrite([&](WriteOutcome& outcome) {
        db::InTransaction(Session().Connection, [&] {
            Recordset row(statement, Session().Connection, Lock::Optimistic);
            if (row.Eof()) {
                outcome.end = WriteOutcome::End::Gone;
                return;
            }
            db::RequireUnchanged(loaded, ActivityState(row));
            if (attendees && !attendeesStand(key, attendees->before))
                throw db::RowChangedError();
            writeUpdate(row, key, fields, attendees);
            outcome.step = WriteStep::Room;
            UpdateRoomTime(key, fields.start, fields.end, fields.date, row["cappttext"].text());
        });
    });
}
