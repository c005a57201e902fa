#pragma once

#include <QDate>
#include <QString>

// The room that an appointment has, a row of `roomschedule` with its key. The writes belong into the transaction of
// their appointment, and throw db::DatabaseError.

/// The room that a saved appointment has from now on.
struct WantedRoom {
    int id = 0;  ///< 0: none.
    QString text;
    bool unread = false;  ///< Whether it had one could not be read: where none is wanted none is taken from it.
};

/// Books a room for an appointment, from `start` to `end` in minutes since midnight.
void BookRoom(int roomId, int apptKey, int start, int end, QDate date, const QString& text);

/// Moves the first room booking of an appointment to another time, in minutes since midnight, and day, and gives it
/// another text (its first 100 characters) where `text` is not empty. Without a booking, and for a key below 1, nothing
/// is done.
void UpdateRoomTime(int apptKey, int start, int end, QDate date, const QString& text);
