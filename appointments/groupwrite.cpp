#include "appointments/groupwrite.h"

#include <array>

#include "appointments/appointmentrows.h"
#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

void requireUnchanged(const Recordset& row, int key, const GroupFields& fields, const GroupState& loaded) {
    db::RequireUnchanged(loaded.row, GroupRowState(row));
    if (loaded.members != AttendanceOf(key))
        throw db::RowChangedError();
    if (fields.room.unread)
        return;
    const Recordset booking(ApptRoomStatement(key), Session().Connection);
    if (loaded.room != (booking.Eof() ? 0 : static_cast<int>(booking["croomid"].integer())))
        throw db::RowChangedError();
}

void writeFields(Recordset& row, bool isNew, const GroupFields& fields) {
    if (isNew) {
        row.Set("createddate", Now());
        row.Set("createduid", Session().UID);
    }
    row.Set("nStartTime", fields.start);
    row.Set("nEndTime", fields.end);
    row.Set("dapptdate", fields.date);
    row.Set("cappttext", fields.text);
    row.Set("CLOCATION", fields.location.left(GroupFields::LongestLocation));
    row.Set("BLOCATEICO", fields.location.isEmpty() ? 0 : 1);
    row.Set("BremindIco", 0);
    row.Set("BPrivateIco", 0);
    row.Set("ncolor", ncolor::Group);
    row.Set("BTentIco", 0);
    row.Set("clinicianid", fields.provider);
    row.Set("CapptNote", QLatin1Char('|') + fields.note + QStringLiteral("|||"));
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

/// Writes the row, a new one where the cursor stands at the end, and its room; the key of the row.
int writeEntry(Recordset& row, const GroupFields& fields) {
    const bool isNew = row.Eof();
    if (isNew)
        row.AddNew();
    writeFields(row, isNew, fields);
    const bool hasRoom = fields.room.id > 0;
    if (!isNew && !(fields.room.unread && !hasRoom))
        Session().Connection.Execute(Sql("Delete from roomschedule Where apptid = {}", row["nkeyid"].integer()));
    row.Update();
    const int key = static_cast<int>(row["nkeyid"].integer());
    if (hasRoom)
        BookRoom(fields.room.id, key, fields.start, fields.end, fields.date, fields.room.text);
    return key;
}

void savemembers(int key, const GroupFields& fields) {
    db::Connection& connection = Session().Connection;
    connection.Execute(Sql("Delete from AppointmentsGroup Where nKeyId = {}", key));
    Recordset rows(QStringLiteral("Select * from AppointmentsGroup Where 0=1"), connection, Lock::Optimistic);
    for (const GroupFields::Member& member : fields.members) {
        rows.AddNew();
        rows.Set("nKeyId", key);
        rows.Set("PatientId", member.patientId);
        rows.Set("PatientAcct", member.account);
        rows.Set("PatientName", member.name);
        rows.Set("Kept", member.kept ? 1 : 0);
        rows.Set("GroupId", fields.groupId);
        rows.Update();
    }
}

}  // namespace

QString AttendanceStatement(int key) {
    return Sql("Select * from AppointmentsGroup Where nKeyId = {}", key);
}

GroupAttendance AttendanceOf(int key) {
    GroupAttendance attendance;
    for (Recordset rows(AttendanceStatement(key), Session().Connection); !rows.Eof(); rows.MoveNext())
        attendance.insert(rows["PatientId"].text(), rows["kept"].integer() == 1);
    return attendance;
}

db::RowState GroupRowState(const Recordset& row) {
    static constexpr std::array columns{"nStartTime", "nEndTime",    "dapptdate", "cappttext",
                                        "CLOCATION",  "clinicianid", "ncolor",    "CapptNote"};
    return {row, columns};
}

EntryOutcome SaveGroup(int key, const GroupFields& fields, const GroupState& loaded) {
    return AttemptWrite<EntryOutcome>([&](EntryOutcome& outcome) {
        db::InTransaction(Session().Connection, [&] {
            Recordset row(AppointmentStatement(key), Session().Connection, Lock::Optimistic);
            outcome.isNew = row.Eof();
            if (!outcome.isNew)
                requireUnchanged(row, key, fields, loaded);
            const int saved = writeEntry(row, fields);
            outcome.step = WriteStep::Members;
            savemembers(saved, fields);
        });
    });
}
