#pragma once

#include <functional>
#include <span>
#include <vector>

#include "platform/calendar/item.h"

/// Which of these room slots are named after a patient, in their order. `ownerOf` gives the key of the appointment of a
/// slot, 0 for a meeting. A slot whose owner cannot be read counts as a patient's.
[[nodiscard]] std::vector<bool> SlotsOfPatients(std::span<const CalendarItem> slotItems,
                                                const std::function<qint64(const QString& slotKey)>& ownerOf);
