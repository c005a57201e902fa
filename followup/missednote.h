#pragma once

#include <optional>
#include <QDate>
#include <QDateTime>
#include <QString>

#include "appointments/writeoutcome.h"
#include "platform/database/rowmerge.h"

namespace db {
class Recordset;
}

// The rows of a missed-appointment note: one of `sessions`, one of `missedappt` with the same id, and one of
// `SessionSignatures` for each drawn signature. The routines that write give an outcome and open no box.

/// The type of a note, as `sessions.stype` keeps it.
enum class MissedType { None = 0, Missed = 6, PatientCancel = 7, TherapistCancel = 8 };

/// Returns the type by the colour of a calendar item (data/codes.h), or None for another colour.
[[nodiscard]] MissedType MissedTypeOfColour(int ncolor);
/// Returns the type by `sessions.stype`, or None for the type of another note.
[[nodiscard]] MissedType MissedTypeOfSession(qint64 stype);
/// Returns the words of a type: "Missed", "Patient Cancel", "Therapist Cancel", or an empty text for None.
[[nodiscard]] QString MissedTypeText(MissedType type);

/// The columns of a note that its form edits, as they are stored or as the user leaves them.
struct MissedNoteState {
    db::RowState session;  ///< DateMarker, stype and providerid of `sessions`.
    db::RowState missed;   ///< reason of `missedappt`.

    friend bool operator==(const MissedNoteState&, const MissedNoteState&) = default;
};

/// The electronic signature of a note.
struct StoredSignature {
    QDateTime date;  ///< Invalid for a note that is not signed.
    QString name;
    QString drawn;  ///< The text of a drawn signature; empty for a signature by password.

    friend bool operator==(const StoredSignature&, const StoredSignature&) = default;
};

/// The statement that reads a note with its signatures, one row for each signature.
[[nodiscard]] QString MissedNoteStatement(int noteId);
/// Reads the state of a note from the first row of MissedNoteStatement.
[[nodiscard]] MissedNoteState MissedNoteStateOf(const db::Recordset& rows);
/// Reads the signature of a note from the rows of MissedNoteStatement, which it moves through. The newest row of
/// `SessionSignatures` tells the drawn signature; the column `sessions.Signature` does not count.
[[nodiscard]] StoredSignature StoredSignatureOf(db::Recordset& rows);

/// How a write of a note ended.
struct NoteOutcome : WriteOutcome {
    int noteId = 0;         ///< Of a new note.
    bool changed = false;   ///< Whether anything was written.
    MissedNoteState state;  ///< The note as it is stored now, with what another desk has written meanwhile.
};

/// A note that is not stored yet.
struct NewMissedNote {
    int appointmentKey = 0;
    /// `appointments.NoteID` as it was read when the form opened; nothing where it could not be read.
    std::optional<int> appointmentNote;
    int replacedNote = 0;  ///< The deleted note that this one is written for; 0 for none.
    QString patientName;   ///< Empty for the text of the appointment.
    MissedNoteState fields;
};

/// Writes a new note and ties the appointment to it. It fails when the appointment is gone, or when another desk has
/// tied it to a note of its own.
[[nodiscard]] NoteOutcome AddMissedNote(const NewMissedNote& note);

/// Writes what the user changed in a note since it was `read`; columns that only another desk changed keep their new
/// values. A change moves ModifiedDate to the server's time, at least a minute after what it was, so that a drawn
/// signature no longer fits the note. Without a change nothing is written. It fails when both desks have changed a
/// column. The end is Gone when a row of the note is missing.
[[nodiscard]] NoteOutcome UpdateMissedNote(int noteId, const std::optional<MissedNoteState>& read,
                                           const MissedNoteState& wanted);

/// Takes the signature of a note away in `sessions` and `SessionSignatures`. It fails with RowChanged when the note has
/// another signature by now than the one that was `judged`.
[[nodiscard]] WriteOutcome TakeSignatureAway(int noteId, const StoredSignature& judged);
