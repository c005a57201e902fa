#pragma once

#include <QDate>
#include <QString>

// The room of an appointment is a row of `roomschedule` with the key of the appointment. These writes belong into the
// transaction of the appointment. They throw db::DatabaseError.

/// The room that an appointment has after a save.
struct WantedRoom {
    int id = 0;  ///< 0: none.
    QString text;
    bool unread = false;  ///< The present booking could not be read. A save without a room must then keep it.
};

/// Books a room for an appointment, from `start` to `end` in minutes since midnight.
void BookRoom(int roomId, int apptKey, int start, int end, QDate date, const QString& text);

/// Moves the first room booking of an appointment to another time, in minutes since midnight, and day, and gives it
/// another text (its first 100 characters) where `text` is not empty. Without a booking, and for a key below 1, nothing
/// is done.
void UpdateRoomTime(int apptKey, int start, int end, QDate date, const QString& text);
