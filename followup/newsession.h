#pragma once

#include <QString>

#include "appointments/appointmentitem.h"
#include "appointments/writeoutcome.h"
#include "platform/database/recordset.h"

/// How the making of a session ended. Done with an `id` of 0 means that another desk has linked a note to the
/// appointment first; nothing was then written.
struct MadeSession : WriteOutcome {
    int id = 0;  ///< `sessions.id` of the new row.
    QString patientId;
};

/// Makes the row in `sessions` that a note of an appointment needs, and links it to the appointment. `stype` is the
/// type of the note; with a type of a missed appointment a row of `MissedAppt` goes along. The rows are written in one
/// transaction. The write fails with RowChanged when the appointment is not for what it was shown (IsForTheSame).
[[nodiscard]] MadeSession MakeSession(const ShownAppointment& appointment, int stype);

/// Whether the current row of `appointments` still has the status, the provider and the patient that are shown. A note
/// would otherwise be about something that its author has not seen.
[[nodiscard]] bool IsForTheSame(const db::Recordset& row, const ShownAppointment& shown);
