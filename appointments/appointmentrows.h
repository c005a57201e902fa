#pragma once

#include <QDate>
#include <QString>

/// What the bar tells of a status that the database refused, before the reason; and that notice's subject.
inline const QString StatusUnsaved = QStringLiteral("The status was not saved. ");

/// Gives the appointment a status code (data/codes.h). A row that is gone changes nothing, and nobody is told of that;
/// a failure is told in the bar. Both answer false, so that a view need not show what was not stored.
bool SetApptStatus(int key, int code);

/// The statements that ApptRoomId and UpdateRoomTime read, for who reads them together with others; empty for a key
/// below 1.
[[nodiscard]] QString ApptRoomStatement(int apptKey);
[[nodiscard]] QString RoomSlotStatement(int apptKey);

/// The room booked for an appointment, 0 where there is none. -1 where that could not be read, which the user has been
/// told: the caller must not take it for a booking that is not there. A key below 1 is an appointment that was never
/// saved and has no room, although the meetings that belong to no appointment carry apptid 0.
[[nodiscard]] int ApptRoomId(int apptKey);

/// Books a room for an appointment, from `start` to `end` in minutes since midnight. Throws db::DatabaseError.
void BookRoom(int roomId, int apptKey, int start, int end, QDate date, const QString& text);

/// Moves the first room booking of an appointment to another time, in minutes since midnight, and day, and gives it
/// another text (its first 100 characters) where `text` is not empty. Without a booking, and for a key below 1, nothing
/// is done. It belongs into the transaction of its appointment; a failure is told as "Error saving room schedule. ".
/// Throws db::DatabaseError.
void UpdateRoomTime(int apptKey, int start, int end, QDate date, const QString& text);
