#include "appointments/movement.h"

#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "data/holidays.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "data/recurrence.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

QString hoursStatement(const MoveTarget& target) {
    return Sql("Select * from ProvSched Where providerid = '{}' and workdayvalue = {}", target.provider.id,
               WeekdayNumber(target.slot.date));
}

void addHoliday(std::vector<MoveObstacle>& obstacles, QDate date) {
    if (const std::optional<QString> holiday = HolidayOn(Session().Connection, date))
        obstacles.push_back({{0, MinutesPerDay}, QStringLiteral("Holiday: %1").arg(*holiday), {}, false});
}

// As the calendar shades the day: without a row every hour is a working hour, and a start of 0 makes none one.
void addHours(std::vector<MoveObstacle>& obstacles, const MoveTarget& target) {
    const Recordset hours(hoursStatement(target), Session().Connection);
    if (hours.Eof())
        return;
    const int start = static_cast<int>(hours["starttime"].integer());
    const int end = static_cast<int>(hours["endtime"].integer());
    if (start <= 0)
        obstacles.push_back({{0, MinutesPerDay}, QStringLiteral("No working hours on this day"), target.provider.name});
    else if (target.slot.start < start || target.slot.end > end)
        obstacles.push_back({{static_cast<double>(start), static_cast<double>(end)},
                             QStringLiteral("Outside the working hours"),
                             target.provider.name});
}

void addConflicts(std::vector<MoveObstacle>& obstacles, const std::vector<Conflict>& conflicts) {
    for (const Conflict& conflict : conflicts)
        obstacles.push_back({conflict.time, conflict.text, conflict.place, conflict.namesPatient});
}

}  // namespace

bool IsTimeOfDay(int start, int end) {
    return 0 <= start && start < end && end <= MinutesPerDay;
}

QStringList MoveStatements(int key) {
    return {AttendeesStatement(key), ApptRoomStatement(key)};
}

MoveOutcome MoveWithRoom(AppointmentMove move, RoomQuestion question, const ItemPainting& painted) {
    const int key = move.before.stored.ItemKey.toInt();
    const int room = ApptRoomId(key);
    MoveOutcome outcome;
    if (room < 0) {
        outcome.stop = MoveOutcome::Stop::RoomUnread;
        return outcome;
    }
    if (room > 0 && question == RoomQuestion::Ask &&
        CheckRoomConflicts(key, move.day, move.start, move.end, room, key)) {
        outcome.stop = MoveOutcome::Stop::RoomRefused;
        return outcome;
    }
    move.room = room > 0;
    static_cast<RowOutcome&>(outcome) = MoveAppointment(move, painted);
    return outcome;
}

void TellMovedRowGone() {
    MsgBox(QStringLiteral("Error saving appointment. Another user may have deleted this appointment. "), ErrorBox,
           QStringLiteral("Error"));
}

std::vector<MoveObstacle> FindMoveObstacles(const ShownAppointment& row, const MoveTarget& target) {
    const int key = row.stored.ItemKey.toInt();
    const SelectedSlot& slot = target.slot;
    const QString patient = GetPipeField(row.stored.ItemNote, 3);
    const db::ReadTogether together(
        Session().Connection, {HolidayStatement(slot.date), hoursStatement(target),
                               ApptConflictStatement(key, slot.date, slot.start, slot.end, patient, target.provider.id),
                               ApptRoomStatement(key)});
    std::vector<MoveObstacle> obstacles;
    addHoliday(obstacles, slot.date);
    addHours(obstacles, target);
    addConflicts(obstacles, FindApptConflicts(key, slot.date, slot.start, slot.end, patient, target.provider.id));
    const Recordset booking(ApptRoomStatement(key), Session().Connection);
    if (const int room = booking.Eof() ? 0 : static_cast<int>(booking["croomid"].integer()); room > 0)
        addConflicts(obstacles, FindRoomConflicts(key, slot.date, slot.start, slot.end, room, key));
    return obstacles;
}
