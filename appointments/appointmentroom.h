#pragma once

#include <QDate>
#include <QString>

// The room of an appointment is a row of `roomschedule` with the key of the appointment. These writes belong into the
// transaction in which the appointment is written. They throw db::DatabaseError.

/// The room that an appointment has after a save.
struct WantedRoom {
    int id = 0;  ///< The RoomID; 0 for no room.
    QString text;
    bool unread = false;  ///< The present booking could not be read. A save without a room must then keep it.
};

/// Books a room for an appointment, from `start` to `end` in minutes since midnight.
void BookRoom(int roomId, int apptKey, int start, int end, QDate date, const QString& text);

/// Moves the first room booking of an appointment to another day and time, in minutes since midnight. If `text` is not
/// empty, its first 100 characters become the text of the booking. Nothing is done without a booking, or for a key
/// below 1.
void UpdateRoomTime(int apptKey, int start, int end, QDate date, const QString& text);
