#pragma once

#include <QString>

/// The statement that reads the row of an appointment.
[[nodiscard]] QString AppointmentStatement(int key);
/// The statement that reads the row for the time of arrival.
[[nodiscard]] QString ArrivalStatement(int key);
/// The statement that reads the attendees of an Activity.
[[nodiscard]] QString AttendeesStatement(int key);
/// Whether an appointment is an Activity with attendees. Throws db::DatabaseError.
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
