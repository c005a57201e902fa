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

/// The statements that ApptRoomId and UpdateRoomTime read, for a caller that reads them together with others. They are
/// empty for a key below 1.
[[nodiscard]] QString ApptRoomStatement(int apptKey);
[[nodiscard]] QString RoomSlotStatement(int apptKey);

/// Returns the RoomID of the room that is booked for an appointment, or 0 for none. The answer is -1 when the booking
/// could not be read, which the user has been told; the caller must not take this for the absence of a booking. A key
/// below 1 is an appointment that was never saved. It has no room, although bookings that belong to no appointment
/// carry apptid 0.
[[nodiscard]] int ApptRoomId(int apptKey);
