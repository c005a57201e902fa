#pragma once

#include <QString>

/// Returns an `Id` that no row of `table` has: `prefix` followed by a random whole number from `low` to `high`. Returns
/// an empty text after 200 numbers in a row were taken. Throws DatabaseError.
[[nodiscard]] QString GenerateRandomId(const QString& table, int low, int high, const QString& prefix);
