#pragma once

#include <cstdint>
#include <QDate>

/// Returns the whole years from `date` to today by the rule of the notes product, so that both programs show the same
/// age: the days between, less a day for every four years, divided by 365. The age may change a day before or after the
/// birthday. Returns 0 for an invalid date and for one after today.
[[nodiscard]] std::int16_t AgeInYears(QDate date);
