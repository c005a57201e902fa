#pragma once

#include <optional>
#include <QString>

#include "platform/database/value.h"

// The small look-ups behind a session note. Each throws db::DatabaseError. The statements stand apart for a caller that
// reads several of them together (db::ReadTogether).

/// The statement that reads the appointment of a note.
[[nodiscard]] QString NotedAppointmentStatement(int key);
/// Returns the key of the session that is linked to an appointment, and 0 where none is. Returns nothing when the
/// appointment is not there any more.
[[nodiscard]] std::optional<int> GetApptNoteId(int key);
/// Returns the id of an appointment's patient; empty where it has none.
[[nodiscard]] QString GetApptPatientId(int key);

[[nodiscard]] QString SessionProviderStatement(int noteId);
/// Returns the id of the provider who wrote the note; empty where there is no such note.
[[nodiscard]] QString GetSessionProvider(int noteId);
[[nodiscard]] QString SessionTypeStatement(int noteId);
/// Returns the `stype` of a note, 0 where it is null. Returns nothing when the note is not there.
[[nodiscard]] std::optional<int> GetSessionType(int noteId);

/// Returns a column of a patient, or an expression over several. The value of "incident_nbr" comes as it stands; any
/// other is a text, empty for null. An unknown patient has null and empty texts.
[[nodiscard]] db::Value GetPatientField(const QString& patientId, const QString& field);
[[nodiscard]] QString TreatmentProgramStatement(const QString& patientId);
/// Returns the treatment program of the patient's latest incident; empty where there is none.
[[nodiscard]] QString GetTreatmentProgram(const QString& patientId);

/// Keeps other desks from linking a note to the appointment until the transaction ends, so that of two desks that begin
/// one at the same moment the second sees the note of the first.
void HoldAppointment(int key);
