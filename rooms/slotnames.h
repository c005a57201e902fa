#pragma once

#include <QtGlobal>

#include <vector>
#include "session/hiddennames.h"

class ctMDay;

/// Hides or shows the texts of the room slots that are named after a patient. `owners` holds the key of the appointment
/// of each item in order, 0 for a meeting. The database is asked for the owners only when names are to be hidden. A
/// slot whose owner cannot be read counts as a patient's.
void HideSlotNames(ctMDay& rooms, const std::vector<qint64>& owners, bool hidden);
