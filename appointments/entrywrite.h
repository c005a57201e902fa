#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "appointments/appointmentroom.h"
#include "appointments/writeoutcome.h"
#include "platform/database/rowmerge.h"

/// The data of an entry of any kind, as the editor stores it.
struct EntryFields {
    int ApptKind = 0;  ///< apptkind
    QDate date;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString text;  ///< The name of the patient, event, block or category.
    QString location;
    QString note;                     ///< Service and note, joined by "|".
    std::optional<int> category;      ///< The appointment type of a patient's entry, if one is chosen.
    std::optional<int> reminderLead;  ///< Minutes before the start, or no reminder.
    QString provider;                 ///< The id of the provider in whose schedule the entry stands.

    // Only for a patient's entry.
    std::optional<int> status;  ///< The status code; without one the row keeps its code.
    QString patientId;
    QString account;
    QString homePhone;
    QString workPhone;

    int categoryColour = 0;  ///< Only for a slot of an appointment type.

    WantedRoom room;

    int waitId = 0;  ///< The entry of the wait list that is closed with the save; 0 for none.
};

/// How the save of an entry ended.
struct EntryOutcome : WriteOutcome {
    bool isNew = false;  ///< Whether a row was added, because there was none or another desk has deleted it.
};

/// The columns of the current row of `appointments` that a save overwrites. Two states are equal when nobody has
/// changed these columns in between.
[[nodiscard]] db::RowState EntryState(const db::Recordset& row);

/// Writes an entry and its room to the row `key`, or to a new row when there is none. The save fails when the row is
/// not as it was `loaded`.
[[nodiscard]] EntryOutcome SaveEntry(int key, const EntryFields& fields, const db::RowState& loaded);
