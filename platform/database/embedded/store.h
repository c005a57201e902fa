#pragma once

#include <string>
#include <variant>

#include "platform/database/embedded/catalog.h"
#include "platform/database/value.h"

namespace db::embedded {

/// A value as SQLite keeps it: null, whole number, real or UTF-8 text.
using Cell = std::variant<std::monostate, qint64, double, std::string>;

Cell ToCell(const Value& value);

/// Returns the value as the column keeps it, converted as on the server: date-times in their stored form, "" as 0 or
/// 1900-01-01, numbers cut to whole ones, texts without the blanks beyond the column's length. Throws DatabaseError
/// 2628 for a text that is too long, 241 for a text that is no date, 245 (8114 for a real) for a text that is no
/// number, and 220 or 8115 for a number out of range.
Cell StoredCell(const Table& table, const TableColumn& column, Cell value);

/// Returns the number rounded to that many decimals. A half is rounded away from zero, judged by the decimal digits,
/// although a binary number may not hold the half exactly.
double RoundedNumber(double number, int decimals);

/// Reads a text as a number of that type. "" is 0. Throws 245 (8114 for a real) for a text that is no number, and 220
/// or 8115 for one out of range.
Cell NumberFromText(const std::string& text, const SqlType& type);
/// Returns the stored form of the date in a text. Throws 241 for a text that is no date.
std::string DateTimeFromText(const std::string& text);
/// Returns the stored form of a number of days since 1900-01-01. The fraction is the time of day. Throws 8115 for a day
/// out of range.
std::string DateTimeFromNumber(double days);

}  // namespace db::embedded
