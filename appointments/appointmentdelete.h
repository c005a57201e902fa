#pragma once

#include <QString>

#include "appointments/writeoutcome.h"
#include "platform/database/recordset.h"

// The four ways of deleting an appointment. They stand side by side because they differ on purpose. Each is one
// transaction. None of them asks or opens a box; only an audit line that cannot be written is told in the bar.
//
// - DeleteAppointment deletes a row that the user chose, with its room and with the members or attendees that its kind
//   has. It deletes through the cursor that read the row, so that it fails where another desk has changed or deleted
//   the row. The audit line is written after the commit.
// - DeleteOfSeries deletes a row from a list that may be out of date. A missing row counts as deleted, and everything
//   under its key goes with it. The audit line is part of the transaction, because the work on a series may be cut off
//   between two rows and continue later.
// - CancelAddedAppointment takes back a row that is still being added. Only its room can belong to it, and there is no
//   audit line, since the row was never an appointment. A missing row is no failure.
// - DeleteActivity and DeleteAttendance delete an Activity of several providers, for all of them or for one. Deleting
//   the last attendance deletes the Activity. There is no audit line for either. A missing row is no failure.

/// The words with which the audit log names a deleted appointment.
struct AuditedAppointment {
    QString date;
    QString time;
    QString text;
};

/// A row of a series to delete.
struct SeriesRow {
    int key = 0;
    AuditedAppointment audited;
    bool isGroup = false;
};

/// Deletes the cursor's current row of `appointments`.
[[nodiscard]] WriteOutcome DeleteAppointment(db::Recordset& row, const AuditedAppointment& audited);
[[nodiscard]] WriteOutcome DeleteOfSeries(const SeriesRow& row);
/// Writes the audit line of a row of a series and deletes all that hangs on its key. It is for a transaction in which
/// the row itself has been deleted. Throws db::DatabaseError.
void EndDeletionOfSeries(const SeriesRow& row);
[[nodiscard]] WriteOutcome CancelAddedAppointment(int key);
[[nodiscard]] WriteOutcome DeleteActivity(int key);
/// Removes one provider from an Activity.
[[nodiscard]] WriteOutcome DeleteAttendance(int key, const QString& attendee);
