#pragma once

#include <functional>
#include <span>
#include <vector>

#include "platform/calendar/item.h"

/// Which of these room slots are named after a patient, in their order; `ownerOf` tells the key of the appointment of a
/// slot, 0 for a meeting. One of which nobody can tell counts as a patient's.
[[nodiscard]] std::vector<bool> SlotsOfPatients(std::span<const CalendarItem> slotItems,
                                                const std::function<qint64(const QString& slotKey)>& ownerOf);
