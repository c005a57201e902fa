#include "appointments/appointmentrows.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/errorbox.h"
#include "session/session.h"

QString AppointmentStatement(int key) {
    return db::Sql("Select * from appointments Where nKeyId = {}", key);
}

QString ArrivalStatement(int key) {
    return db::Sql("SELECT * From appointments Where nkeyid ={}", key);
}

QString AttendeesStatement(int key) {
    return db::Sql("Select * from AppointmentsEvents Where nkeyid = {}", key);
}

bool IsSharedActivity(int key) {
    return !db::Recordset(AttendeesStatement(key), Session().Connection).Eof();
}

int NbrAttendesForEvent(int key) {
    return db::Recordset(db::Sql("SELECT * From AppointmentsEvents Where nkeyid ={}", key), Session().Connection)
        .RecordCount();
}

QString ApptRoomStatement(int apptKey) {
    return apptKey < 1 ? QString() : db::Sql("Select croomid from roomschedule Where apptid = {}", apptKey);
}

QString RoomSlotStatement(int apptKey) {
    return apptKey < 1 ? QString() : db::Sql("SELECT * From roomschedule Where apptid ={}", apptKey);
}

int ApptRoomId(int apptKey) {
    if (apptKey < 1)
        return 0;
    try {
        const db::Recordset booking(ApptRoomStatement(apptKey), Session().Connection);
        return booking.Eof() ? 0 : static_cast<int>(booking["croomid"].integer());
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading room schedule. "), error);
        return -1;
    }
}
