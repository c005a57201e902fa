#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "platform/database/recordset.h"

/// One row of `roomschedule`: a meeting, or the slot that an appointment or activity owns.
struct RoomMeeting {
    int key = 0;    ///< nKeyId; 0 before it is stored.
    int start = 0;  ///< Minutes since midnight.
    int end = 0;
    QDate date;
    QString text;
    QString note;
    int room = 0;
    bool bound = false;  ///< An appointment owns it.
    qint64 owner = 0;    ///< The key of that appointment.

    friend bool operator==(const RoomMeeting&, const RoomMeeting&) = default;
};

[[nodiscard]] RoomMeeting MeetingOf(const db::Recordset& row);
/// The minute at which a row of `roomschedule` starts; -1 where it tells none.
[[nodiscard]] int StartOf(const db::Recordset& row);
/// Stores a new row and returns its key. Throws DatabaseError.
int AddMeeting(const RoomMeeting& meeting);
/// Stores what `wanted` changed of `before`, as it was read; what the user left alone keeps what the row holds. The
/// text is stored with its first 100 characters, the note with its first 200. False where the row is gone. Throws
/// DatabaseError, RowChangedError among them where another desk changed the same thing differently.
[[nodiscard]] bool SaveMeeting(const RoomMeeting& before, const RoomMeeting& wanted);
/// The row as it is stored now; none where it is gone. Throws DatabaseError.
[[nodiscard]] std::optional<RoomMeeting> StoredMeeting(int key);
