#pragma once

#include <QString>

#include "appointments/writeoutcome.h"
#include "platform/database/recordset.h"

// The ways in which an appointment is deleted, side by side since they differ on purpose, each in one transaction.
//
// - One that the user chose takes along what its kind has, members or attendees, and its room. The cursor that read the
//   row deletes it, so that one which another desk has changed since is told; the audit log has a line once it is gone.
// - One of a series is taken from a list that may be old: a row that is gone counts as deleted, whatever hangs on the
//   key goes with it, and the line for the log stands in the same transaction, since the work may be cut off between
//   two rows and is then done again for the rest.
// - One that is still being added was nobody's appointment yet: nothing hangs on it but its room, and no line is left.
// - An Activity of several providers leaves no line either. For one attendee only the attendance goes, and the Activity
//   with the last of them.
//
// None of them asks or tells. A row that is gone is no failure.

/// How the audit log names an appointment that was deleted.
struct AuditedAppointment {
    QString date;
    QString time;
    QString text;
};

/// A row of a series that is to be deleted.
struct SeriesRow {
    int key = 0;
    AuditedAppointment audited;
    bool isGroup = false;
};

/// Deletes the cursor's current row of `appointments`.
[[nodiscard]] WriteOutcome DeleteAppointment(db::Recordset& row, const AuditedAppointment& audited);
[[nodiscard]] WriteOutcome DeleteOfSeries(const SeriesRow& row);
[[nodiscard]] WriteOutcome CancelAddedAppointment(int key);
[[nodiscard]] WriteOutcome DeleteActivity(int key);
/// Takes a provider out of an Activity.
[[nodiscard]] WriteOutcome DeleteAttendance(int key, const QString& attendee);
