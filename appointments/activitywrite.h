#pragma once

#include <optional>
#include <QDate>
#include <QStringList>

#include "appointments/writeoutcome.h"
#include "platform/database/rowmerge.h"

/// The data of an Activity, as the Activity Scheduler stores it.
struct ActivityFields {
    QDate date;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString text;      ///< Only the first LongestText characters are stored.
    QString location;  ///< Only the first LongestLocation characters are stored.

    static constexpr int LongestText = 100;
    static constexpr int LongestLocation = 50;
};

/// A change of the attendees.
struct AttendeeChange {
    QStringList before;  ///< The attendees as they were read.
    QStringList wanted;
};

/// The columns of the current row of `appointments` that a save of an Activity overwrites.
[[nodiscard]] db::RowState ActivityState(const db::Recordset& row);

/// Writes a new Activity with its attendees.
[[nodiscard]] WriteOutcome AddActivity(const ActivityFields& fields, const QStringList& attendees);
/// Writes an Activity, the time of its room, and its attendees if they have changed. The save fails when another desk
/// has changed the Activity since it was `loaded`.
[[nodiscard]] WriteOutcome UpdateActivity(int key, const ActivityFields& fields,
                                          const std::optional<AttendeeChange>& attendees, const db::RowState& loaded);
