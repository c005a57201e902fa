#pragma once

#include <QString>

/// The alert types: choosing a patient for an appointment, and the patient's arrival.
inline constexpr char AppointmentAlert[] = "Appointment";
inline constexpr char CheckInAlert[] = "Check-In";

/// The statement that ShowPatientAlerts reads.
[[nodiscard]] QString PatientAlertStatement(const QString& patientId, const QString& alertType);

/// Shows in frmAlert the active alert of a type that the practice has set for a patient. An alert with both dates is
/// shown from its BeginDate to the day before its EndDate; one with a single date or none is always shown. Only the
/// first active alert counts, and an alert without a text is not shown. An empty patientId has no alerts. On a failure
/// the user is told "Error reading patient alerts. " with the reason, so that nobody takes silence for the absence of
/// alerts.
void ShowPatientAlerts(const QString& patientId, const QString& alertType);
