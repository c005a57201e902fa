#pragma once

#include <QString>

#include "appointments/writeoutcome.h"

class QWidget;

// The status commands as far as they are the same in the views and on the board: what may have a status, the writes,
// what is told, and what else follows.

/// The subject of the notice that a status was not saved, and the words before its reason.
inline const QString StatusUnsaved = QStringLiteral("The status was not saved. ");

/// Whether a row has a status: it belongs to a patient. A row in a colour that means nothing here does when it names a
/// patient. An activity, unavailable time, a group, a type slot and a holiday have none, and would turn into a
/// patient's row without a patient.
[[nodiscard]] bool HasStatus(int code, int apptType, const QString& patientId);

/// Sets the status of an appointment (Missed and the cancellations), tells a refusal in the window's bar, and reads the
/// open list of the checked-in patients anew.
[[nodiscard]] WriteOutcome ChangeStatus(int key, int code);

/// Asks for the time of arrival and stores it with the status. Returns false when the user gave up.
[[nodiscard]] bool AskArrival(int key, QWidget* window);
/// What follows when the row of a patient who arrived has been saved: the open list of the checked-in patients, and the
/// patient's alert.
void AfterArrival(const QString& patientId);
