#include "rooms/roommeeting.h"

#include "platform/database/rowmerge.h"
#include "platform/database/sql.h"
#include "platform/text/plaintext.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

constexpr int LongestText = 100;
constexpr int LongestNote = 200;

// The columns that a save writes, as it writes them.
db::RowState stateOf(const RoomMeeting& meeting) {
    return {{"nStartTime", meeting.start}, {"nEndTime", meeting.end},
            {"nApptDate", meeting.date},   {"croomtext", FirstCharacters(meeting.text, LongestText)},
            {"croomid", meeting.room},     {"CroomNOTE", FirstCharacters(meeting.note, LongestNote)}};
}

}  // namespace

RoomMeeting MeetingOf(const Recordset& row) {
    const auto number = [&row](const char* column) { return static_cast<int>(row[column].integer()); };
    return {number("nKeyId"),        number("nStartTime"),    number("nEndTime"),
            row["nApptDate"].date(), row["croomtext"].text(), row["CroomNOTE"].text(),
            number("croomid"),       number("apptid") > 0,    row["apptid"].integer()};
}

int StartOf(const Recordset& row) {
    const db::Field start = row["nStartTime"];
    return start.value().isNull() ? -1 : static_cast<int>(start.integer());
}

int AddMeeting(const RoomMeeting& meeting) {
    Recordset row(QStringLiteral("Select * from roomschedule where 0=1"), Session().Connection, Lock::Optimistic);
    row.AddNew();
    row.Set("nStartTime", meeting.start);
    row.Set("nEndTime", meeting.end);
    row.Set("nApptDate", meeting.date);
    row.Set("croomtext", FirstCharacters(meeting.text, LongestText));
    row.Set("croomid", meeting.room);
    row.Update();
    return static_cast<int>(row["nKeyId"].integer());
}

bool SaveMeeting(const RoomMeeting& before, const RoomMeeting& wanted) {
    Recordset row(Sql("Select * from roomschedule Where nKeyId = {}", before.key), Session().Connection,
                  Lock::Optimistic);
    if (row.Eof())
        return false;
    SetChanges(row, stateOf(before), stateOf(wanted), stateOf(MeetingOf(row)));
    row.Update();
    return true;
}

std::optional<RoomMeeting> StoredMeeting(int key) {
    const Recordset row(Sql("Select * from roomschedule Where nKeyId = {}", key), Session().Connection);
    return row.Eof() ? std::nullopt : std::optional(MeetingOf(row));
}
