#pragma once

#include <QtGlobal>

#include <vector>
#include "session/hiddennames.h"

class ctMDay;

/// Hides or shows the texts of those room slots that are named after a patient. `owners` holds the key of the
/// appointment of each item in turn, 0 for a meeting. Whose the slots are is asked only when names are to be hidden;
/// one that nobody can tell of counts as a patient's.
void HideSlotNames(ctMDay& rooms, const std::vector<qint64>& owners, bool hidden);
