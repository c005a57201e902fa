#pragma once

#include <cstdint>
#include <QDate>

/// Whole years from `date` to today, by the rule of the notes product, so that both programs show one age: the days
/// between, less a day for every four years, in years of 365 days. It may turn a day before or after the birthday. 0
/// for an invalid date and one after today.
[[nodiscard]] std::int16_t AgeInYears(QDate date);
