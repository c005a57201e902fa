#pragma once

#include <vector>

#include "appointments/appointmentwrites.h"
#include "appointments/overlap.h"
#include "session/slot.h"

/// How a move that the user asked for has ended.
struct MoveOutcome : RowOutcome {
    /// What kept the move from being written, besides a failure.
    enum class Stop { Nothing, RoomUnread, RoomRefused };
    Stop stop = Stop::Nothing;

    [[nodiscard]] bool IsMoved() const { return IsDone() && stop == Stop::Nothing; }
};

/// Whether the user is asked about what is booked in the appointment's room at the new time, or has seen it already.
enum class RoomQuestion { Ask, Answered };

/// Whether the times are within one day and the end is after the start.
[[nodiscard]] bool IsTimeOfDay(int start, int end);

/// Moves an appointment together with its room; `move.room` is found out here. The caller tells a failed write
/// (TellMoveFailure); a room that could not be read has been told.
[[nodiscard]] MoveOutcome MoveWithRoom(AppointmentMove move, RoomQuestion question, const ItemPainting& painted);
/// The statements that MoveWithRoom reads, for a caller that reads them together with others.
[[nodiscard]] QStringList MoveStatements(int key);

/// Tells that the row does not exist any more.
void TellMovedRowGone();

/// Something that is in the way of an appointment at another time.
struct MoveObstacle {
    MinuteSpan time;  ///< The whole day for a holiday.
    QString text;     ///< Who or what is booked, or "Holiday: New Year".
    QString place;    ///< The provider's surname, or the room.
    bool namesPatient = false;

    friend bool operator==(const MoveObstacle&, const MoveObstacle&) = default;
};

/// Where an appointment is to be moved to.
struct MoveTarget {
    SelectedSlot slot;
    BookedProvider provider;
};

/// Returns what would be in the way of this appointment there: a holiday, the end of the provider's working hours, what
/// the provider and the patient have booked (also unavailable time), and what is booked in the appointment's room. Of
/// an activity of several, the hours and the bookings of all who attend it count. The rules are those of conflicts.h
/// and workinghours.h. Throws db::DatabaseError.
[[nodiscard]] std::vector<MoveObstacle> FindMoveObstacles(const ShownAppointment& row, const MoveTarget& target);
