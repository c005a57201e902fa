#pragma once

#include <optional>
#include <QDate>
#include <QStringList>

#include "platform/database/error.h"

// The statements that the routines below read, for who reads several together.
[[nodiscard]] QString PatientStatement(const QString& patientId);
[[nodiscard]] QString AuthInfoStatement(const QString& patientId, QDate date);
/// All that the editor shows of a patient on a date: telephones, e-mail address, authorization; none without a patient.
[[nodiscard]] QStringList ShownPatientStatements(const QString& patientId, QDate date);

/// The patient's e-mail address, without blanks around it; "" where there is none. On a failure the user is told "Error
/// retrieving patient e-mail address. " with the reason.
[[nodiscard]] QString checkForEmailAddress(const QString& patientId);

/// Whether the patient's record exists, archived or not. On a failure the user is told "Error reading patient list. "
/// with the reason, and the answer is false; `failure`, where given, is the reason.
[[nodiscard]] bool patientinDB(const QString& patientId, std::optional<db::DatabaseError>* failure = nullptr);

/// What remains of the first authorization that holds for the patient on `date`, as the sentence the editor shows, or
/// the one that says there is none. On a failure the user is told "Error retrieving patient authorization information.
/// " with the reason, and the answer is "".
[[nodiscard]] QString GetAuthInfo(const QString& patientId, QDate date);
