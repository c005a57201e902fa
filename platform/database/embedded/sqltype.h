#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/database/resulttable.h"

namespace db::embedded {

/// The kind of a value, in the order in which the server converts: the lower of two operands is converted to the
/// higher.
enum class Kind { Unknown, Null, Text, Bit, Integer, Real, DateTime };

/// A column's T-SQL type.
struct SqlType {
    Kind kind = Kind::Unknown;
    std::string name = {};  ///< In lower case, without lengths.
    int maxLength = 0;      ///< In characters; 0 for no limit.
    int scale = -1;         ///< Digits after the point; -1 for a floating number.
    int precision = 0;

    friend bool operator==(const SqlType&, const SqlType&) = default;
};

/// Returns the type for a T-SQL name and the numbers after it (nvarchar(50), decimal(10,2); max is 0), or nothing for a
/// type that the engine does not know.
std::optional<SqlType> MakeType(std::string_view name, std::optional<int> first = {}, std::optional<int> second = {});

/// Returns the words that declare the type to SQLite. SQLite takes the affinity from them. A date-time is kept as text,
/// so its words must contain "text" and must not be DATETIME, which would be numeric.
std::string DeclaredType(const SqlType& type);

/// Returns the type for words that DeclaredType made. A type that another tool declared is read by SQLite's own rules.
SqlType ReadDeclaredType(std::string_view declared);

ColumnType ToColumnType(Kind kind);

}  // namespace db::embedded
