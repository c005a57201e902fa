#pragma once

#include <QDateTime>
#include <QStringList>
#include <vector>

#include "appointments/waitrule.h"
#include "appointments/writeoutcome.h"
#include "platform/database/rowmerge.h"

/// One entry of the wait list (a row of `WaitList`), as the list shows it and the offers take it.
struct WaitRow {
    int id = 0;  ///< The WaitId; 0 for an entry that is still to be added.
    WaitEntry entry;
    QString patientName;  ///< The present name, or the name when the entry was made where the record is gone.
    bool patientGone = false;
    QString note;
    QDateTime since;      ///< When the patient was put on the list.
    QString sinceBy;      ///< By whom.
    db::RowState loaded;  ///< The row as it was read, so that no other desk's work is written over.
};

/// The longest visit that an entry may wait for, in minutes.
inline constexpr int LongestWait = 720;

/// Whether the practice's database has the table. It is asked once for each database. Throws db::DatabaseError.
[[nodiscard]] bool HasWaitList();
/// Asks anew at the next HasWaitList.
void ForgetWaitList();
/// What the user is told where it has not.
[[nodiscard]] QString NoWaitListText();

/// The statement that OpenWaitRows reads, for a caller that reads it together with others.
[[nodiscard]] QString OpenWaitRowsStatement();
/// Returns the open entries in the order of waiting. Without the right to all schedules these are the entries that any
/// provider may serve, and those that name the session's provider. Throws db::DatabaseError.
[[nodiscard]] std::vector<WaitRow> OpenWaitRows();
/// Returns one entry, closed or not, or nothing when it is gone. Throws db::DatabaseError.
[[nodiscard]] std::optional<WaitRow> WaitRowOf(int id);

/// Adds an entry, or changes the one with this id. The save fails with RowChanged when another desk has changed the
/// entry since it was read, and the outcome is Gone when it was closed or deleted.
[[nodiscard]] WriteOutcome SaveWaitRow(const WaitRow& row);
/// Closes an entry that waits no longer. The outcome is Gone when another desk has closed or deleted it.
[[nodiscard]] WriteOutcome CloseWaitRow(int id);
/// Closes an entry for which the appointment `key` was booked, within the transaction that books it. Throws
/// db::DatabaseError, also when the entry is not open any more.
void CloseBookedWaitRow(int id, int key);

/// The words in which the list and the offers tell what an entry waits for.
[[nodiscard]] QString WaitLengthText(int minutes);
/// "any", or the weekdays: "Mon, Wed".
[[nodiscard]] QString WaitDaysText(int days);
/// "any", or the times as every screen writes them.
[[nodiscard]] QString WaitTimesText(const MinuteRange& times);
