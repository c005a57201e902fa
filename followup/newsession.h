#pragma once

#include <optional>
#include <QString>

#include "appointments/appointmentitem.h"
#include "appointments/writeoutcome.h"
#include "platform/database/recordset.h"
#include "platform/database/value.h"

/// What a session takes from its patient.
struct NotedPatient {
    QString id;
    db::Value incident;              ///< `incident_nbr` as it stands.
    QString service, program, name;  ///< `name` is "last, first".
};

/// Reads what a session takes from its patient, in one trip. An unknown patient has only an id. Throws
/// db::DatabaseError.
[[nodiscard]] NotedPatient ReadNotedPatient(const QString& patientId);

/// The time of a session, in minutes since midnight.
struct SessionTime {
    int start = 0;
    int end = 0;  ///< May lie behind midnight.
};

/// The values of a new row in `sessions`.
struct NewSession {
    int stype = 0;
    NotedPatient patient;
    db::Value DateMarker, providerid;
    QString service;  ///< Of the visit. The patient's usual one takes its place when it is empty.
    std::optional<SessionTime> time;
    db::Value location = {}, program = {};
};

/// Whether a visit is charged for with a note of this type. The types 3 to 9 have neither a service nor, in the
/// companion's schedule, a time.
[[nodiscard]] bool HasService(int stype);

/// Adds a row to `sessions` and, with a type of a missed appointment, the row of `MissedAppt` that goes along. Returns
/// the key of the session. The caller has begun a transaction. Throws db::DatabaseError.
[[nodiscard]] int AddSession(const NewSession& values);

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
