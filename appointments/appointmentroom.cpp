#include "appointments/appointmentroom.h"

#include "appointments/appointmentrows.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

namespace {

constexpr int LongestRoomText = 100;

}  // namespace

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
