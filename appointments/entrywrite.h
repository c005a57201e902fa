#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "appointments/appointmentroom.h"
#include "appointments/writeoutcome.h"
#include "platform/database/rowmerge.h"

/// What the editor of an entry leaves to be stored, whatever its kind.
struct EntryFields {
    int ApptKind = 0;  ///< apptkind
    QDate date;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString text;  ///< Who, or what.
    QString location;
    QString note;                     ///< Service and note, joined by "|".
    std::optional<int> category;      ///< The appointment type of a patient's entry; none where none is chosen.
    std::optional<int> reminderLead;  ///< Minutes before the start; none for no reminder.
    QString provider;                 ///< In whose schedule it stands.

    // A patient's.
    std::optional<int> status;  ///< ncolor; none leaves what the row has.
    QString patientId;
    QString account;
    QString homePhone;
    QString workPhone;

    int categoryColour = 0;  ///< Of a slot of an appointment type.

    WantedRoom room;
};

/// How the save of an entry ended.
struct EntryOutcome : WriteOutcome {
    bool isNew = false;  ///< A row was added: there was none, or another desk has deleted it.
};

/// The current row of `appointments` in the columns that a save writes: two of them are equal when nobody has changed
/// in between what a save would write over.
[[nodiscard]] db::RowState EntryState(const db::Recordset& row);

/// Writes an entry into the row `key`, or into a new one where there is none (any more), and its room. A row that is
/// not as it was `loaded` is not written over: that is a failure.
[[nodiscard]] EntryOutcome SaveEntry(int key, const EntryFields& fields, const db::RowState& loaded);
