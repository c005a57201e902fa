#pragma once

#include <QString>

/// The alert types: choosing a patient for an appointment, and the patient's arrival.
inline constexpr char AppointmentAlert[] = "Appointment";
inline constexpr char CheckInAlert[] = "Check-In";

/// The statement that ShowPatientAlerts reads.
[[nodiscard]] QString PatientAlertStatement(const QString& patientId, const QString& alertType);

/// Shows the active alert of a type that the practice has set for a patient, in frmAlert. With both of its dates, an
/// alert is shown from its BeginDate to the day before its EndDate; with only one or none, always. Only the first
/// active alert counts, and one without a text is not shown. An empty patientId has no alerts. On a failure the user is
/// told "Error reading patient alerts. " with the reason, so that nobody takes silence for no alert.
void ShowPatientAlerts(const QString& patientId, const QString& alertType);
