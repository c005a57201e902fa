#pragma once

#include <optional>
#include <QDate>
#include <QStringList>

#include "appointments/writeoutcome.h"
#include "platform/database/rowmerge.h"

/// What the Activity Scheduler leaves to be stored.
struct ActivityFields {
    QDate date;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString text;      ///< Its first LongestText characters are kept.
    QString location;  ///< Its first LongestLocation characters are kept.

    static constexpr int LongestText = 100;
    static constexpr int LongestLocation = 50;
};

/// Who attends in place of whom.
struct AttendeeChange {
    QStringList before;  ///< As they were read.
    QStringList wanted;
};

/// The current row of `appointments` in the columns that a save of an Activity writes over.
[[nodiscard]] db::RowState ActivityState(const db::Recordset& row);

[[nodiscard]] WriteOutcome AddActivity(const ActivityFields& fields, const QStringList& attendees);
/// Writes an Activity anew, with its attendees where they were changed, and the time of its room. What another desk has
/// changed since it was `loaded` is not written over: that is a failure.
[[nodiscard]] WriteOutcome UpdateActivity(int key, const ActivityFields& fields,
                                          const std::optional<AttendeeChange>& attendees, const db::RowState& loaded);
