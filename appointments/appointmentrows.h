#pragma once

#include <QString>

/// The row of an appointment, for who reads or writes it.
[[nodiscard]] QString AppointmentStatement(int key);
/// The same, for the arrival.
[[nodiscard]] QString ArrivalStatement(int key);
/// Who attends an Activity of several providers.
[[nodiscard]] QString AttendeesStatement(int key);
/// Whether an appointment is an Activity that several providers attend. Throws db::DatabaseError.
[[nodiscard]] bool IsSharedActivity(int key);
/// How many attendees the Activity has. Throws db::DatabaseError.
[[nodiscard]] int NbrAttendesForEvent(int key);

/// The statements that ApptRoomId and UpdateRoomTime read, for who reads them together with others; empty for a key
/// below 1.
[[nodiscard]] QString ApptRoomStatement(int apptKey);
[[nodiscard]] QString RoomSlotStatement(int apptKey);

/// The room booked for an appointment, 0 where there is none. -1 where that could not be read, which the user has been
/// told: the caller must not take it for a booking that is not there. A key below 1 is an appointment that was never
/// saved and has no room, although the meetings that belong to no appointment carry apptid 0.
[[nodiscard]] int ApptRoomId(int apptKey);
