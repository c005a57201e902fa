#pragma once

#include <string>
#include <variant>

#include "platform/database/embedded/catalog.h"
#include "platform/database/value.h"

namespace db::embedded {

/// A value as SQLite keeps it: null, whole number, real or UTF-8 text.
using Cell = std::variant<std::monostate, qint64, double, std::string>;

Cell ToCell(const Value& value);

/// What the column keeps of a value, as the server converts it: date-times in their stored form, "" as 0 or 1900-01-01,
/// numbers cut to whole ones, texts without the blanks beyond the column's length. Throws DatabaseError 2628 for a text
/// that is too long, 241 for no date, 245 for a text that is no number, 220 or 8115 for a number out of range.
Cell StoredCell(const Table& table, const TableColumn& column, Cell value);

/// To the decimals, a half away from zero as its decimal digits tell, though no binary number holds it exactly.
double RoundedNumber(double number, int decimals);

/// A text as a number of that kind, "" being 0. Throws 245 (or 8114 for a real).
Cell NumberFromText(const std::string& text, const SqlType& type);
/// Throws 241 for what is no date.
std::string DateTimeFromText(const std::string& text);
/// Days since 1900-01-01, the fraction being the time.
std::string DateTimeFromNumber(double days);

}  // namespace db::embedded
