#pragma once

#include <optional>
#include <QDate>
#include <QStringList>

#include "platform/database/error.h"

// The statements that the routines below read, for a caller that reads several together.
[[nodiscard]] QString PatientStatement(const QString& patientId);
[[nodiscard]] QString AuthInfoStatement(const QString& patientId, QDate date);
/// The statements of all that the editor shows of a patient on a date: telephones, e-mail address and authorization.
/// Without a patient there are none.
[[nodiscard]] QStringList ShownPatientStatements(const QString& patientId, QDate date);

/// Returns the patient's e-mail address without blanks around it, or "" when there is none. On a failure the user is
/// told "Error retrieving patient e-mail address. " with the reason, and the answer is "".
[[nodiscard]] QString checkForEmailAddress(const QString& patientId);

/// Whether the patient's record exists, archived or not. On a failure the user is told "Error reading patient list. "
/// with the reason, the answer is false, and `failure` receives the reason unless it is null.
[[nodiscard]] bool patientinDB(const QString& patientId, std::optional<db::DatabaseError>* failure = nullptr);

/// Returns the sentence that the editor shows about the first authorization that holds for the patient on `date` and
/// what remains of it, or the sentence that there is none. On a failure the user is told "Error retrieving patient
/// authorization information. " with the reason, and the answer is "".
[[nodiscard]] QString GetAuthInfo(const QString& patientId, QDate date);
