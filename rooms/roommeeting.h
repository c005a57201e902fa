#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "platform/database/recordset.h"

/// One row of `roomschedule`: a meeting, or the slot of an appointment or activity.
struct RoomMeeting {
    int key = 0;    ///< nKeyId; 0 before it is stored.
    int start = 0;  ///< Minutes since midnight.
    int end = 0;
    QDate date;
    QString text;
    QString note;
    int room = 0;
    bool bound = false;  ///< Whether an appointment owns it.
    qint64 owner = 0;    ///< The key of that appointment.

    friend bool operator==(const RoomMeeting&, const RoomMeeting&) = default;
};

[[nodiscard]] RoomMeeting MeetingOf(const db::Recordset& row);
/// The minute at which a row of `roomschedule` starts; -1 where it tells none.
[[nodiscard]] int StartOf(const db::Recordset& row);
/// Stores a new row and returns its key. Throws DatabaseError.
int AddMeeting(const RoomMeeting& meeting);
/// Stores the fields in which `wanted` differs from `before`, the row as it was read. The other fields keep the row's
/// present values. The first 100 characters of the text and the first 200 of the note are stored. Returns false when
/// the row no longer exists. Throws DatabaseError, which is a RowClash where another desk changed the same field to
/// another value.
[[nodiscard]] bool SaveMeeting(const RoomMeeting& before, const RoomMeeting& wanted);
/// Returns the row as it is stored now, or nothing when it no longer exists. Throws DatabaseError.
[[nodiscard]] std::optional<RoomMeeting> StoredMeeting(int key);
