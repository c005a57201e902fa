#pragma once

#include <QString>

#include "appointments/writeoutcome.h"

/// How the making of a session ended. Done with an `id` of 0 means that another desk has linked a note to the
/// appointment first; nothing was then written.
struct MadeSession : WriteOutcome {
    int id = 0;  ///< `sessions.id` of the new row.
    QString patientId;
};

/// Makes the row in `sessions` that a note of a kept appointment needs, as the appointment is stored now, and links it
/// to the appointment. `stype` is the type of the note; with a type of a missed appointment a row of `MissedAppt` goes
/// along. The rows are written in one transaction. The write fails with RowChanged when the appointment is no longer
/// kept, or belongs to another provider than `clinicianId`.
[[nodiscard]] MadeSession MakeSession(int key, int stype, const QString& clinicianId);

/// Whether a note of this type is about a missed appointment (6 Missed, 7 Patient Cancel, 8 Therapist Cancel).
[[nodiscard]] bool IsMissedNote(int stype);
