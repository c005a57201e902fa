#include "appointments/appointmentrows.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int LongestRoomText = 100;

}  // namespace

bool SetApptStatus(int key, int code) {
    qint64 changed = 0;
    TryAndTell(StatusUnsaved, [&] {
        changed =
            Session().Connection.Execute(db::Sql("Update appointments Set ncolor = {} Where nkeyId = {}", code, key));
    });
    return changed != 0;
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

void BookRoom(int roomId, int apptKey, int start, int end, QDate date, const QString& text) {
    Session().Connection.Execute(db::Sql(
        "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid, apptid) Values({}, {}, '{}', '{}', {}, {})",
        start, end, date, text, roomId, apptKey));
}

void UpdateRoomTime(int apptKey, int start, int end, QDate date, const QString& text) {
    if (apptKey < 1)
        return;
    db::Recordset booking(RoomSlotStatement(apptKey), Session().Connection, db::Lock::Optimistic);
    if (booking.Eof())
        return;
    booking.Set("nStartTime", start);
    booking.Set("nendTime", end);
    booking.Set("nApptDate", date);
    if (!text.isEmpty())
        booking.Set("croomtext", text.left(LongestRoomText));
    booking.Update();
}
