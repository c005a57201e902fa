#include "appointments/movement.h"

#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "appointments/workinghours.h"
#include "data/holidays.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

QString attendeesStatement(int key) {
    return Sql(
        "Select appointmentsevents.clinicianid, prov_lastname from appointmentsevents Left Join provider_info On provider_info.id = appointmentsevents.clinicianid Where nkeyid = {} Order by prov_lastname",
        key);
}

std::vector<BookedProvider> attendeesOf(int key) {
    std::vector<BookedProvider> attendees;
    for (Recordset rows(attendeesStatement(key), Session().Connection); !rows.Eof(); rows.MoveNext()) {
        const QString id = rows["clinicianid"].text();
        const QString name = rows["prov_lastname"].text();
        attendees.push_back({id, name.isEmpty() ? id : name});
    }
    return attendees;
}

void addHoliday(std::vector<MoveObstacle>& obstacles, QDate date) {
    if (const std::optional<QString> holiday = HolidayOn(Session().Connection, date))
        obstacles.push_back({{0, MinutesPerDay}, QStringLiteral("Holiday: %1").arg(*holiday), {}, false});
}

void addHours(std::vector<MoveObstacle>& obstacles, const WorkingHours& hours, const BookedProvider& provider,
              const SelectedSlot& slot) {
    const std::optional<MinuteRange> work = hours.On(provider.id, slot.date);
    if (!work)
        obstacles.push_back({{0, MinutesPerDay}, QStringLiteral("No working hours on this day"), provider.name});
    else if (slot.start < work->start || slot.end > work->end)
        obstacles.push_back({{static_cast<double>(work->start), static_cast<double>(work->end)},
                             QStringLiteral("Outside the working hours"),
                             provider.name});
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
        Session().Connection,
        {HolidayStatement(slot.date), WorkingHours::Statement(), attendeesStatement(key),
         ApptConflictStatement(key, slot.date, slot.start, slot.end, patient, target.provider.id),
         AttendeeConflictStatement(key, slot.date, slot.start, slot.end), ApptRoomStatement(key)});
    std::vector<MoveObstacle> obstacles;
    addHoliday(obstacles, slot.date);
    const std::vector<BookedProvider> attendees = attendeesOf(key);
    const WorkingHours hours = WorkingHours::Read();
    for (const BookedProvider& provider : attendees.empty() ? std::vector{target.provider} : attendees)
        addHours(obstacles, hours, provider, slot);
    addConflicts(obstacles, attendees.empty()
                                ? FindApptConflicts(key, slot.date, slot.start, slot.end, patient, target.provider.id)
                                : FindAttendeeConflicts(key, slot.date, slot.start, slot.end));
    const Recordset booking(ApptRoomStatement(key), Session().Connection);
    if (const int room = booking.Eof() ? 0 : static_cast<int>(booking["croomid"].integer()); room > 0)
        addConflicts(obstacles, FindRoomConflicts(key, slot.date, slot.start, slot.end, room, key));
    return obstacles;
}
