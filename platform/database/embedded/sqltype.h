#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/database/resulttable.h"

namespace db::embedded {

/// What a value is, in the order in which the server converts: the lower of two operands becomes the higher.
enum class Kind { Unknown, Null, Text, Bit, Integer, Real, DateTime };

/// A column's T-SQL type.
struct SqlType {
    Kind kind = Kind::Unknown;
    std::string name = {};  ///< In lower case, without lengths.
    int maxLength = 0;      ///< Characters of a text; 0 for no limit.
    int scale = -1;         ///< Digits after the point; -1 where they float.
    int precision = 0;

    friend bool operator==(const SqlType&, const SqlType&) = default;
};

/// The type by its T-SQL name and the numbers after it (nvarchar(50), decimal(10,2); max is 0). Nothing for a type that
/// the engine does not know.
std::optional<SqlType> MakeType(std::string_view name, std::optional<int> first = {}, std::optional<int> second = {});

/// How the column is declared to SQLite. SQLite takes the affinity from the words in it, so that a date-time, kept as
/// text, must have "text" in its name and must not stand as DATETIME, which would be numeric.
std::string DeclaredType(const SqlType& type);

/// DeclaredType read back; a type that another tool declared is taken by SQLite's own rules.
SqlType ReadDeclaredType(std::string_view declared);

ColumnType ToColumnType(Kind kind);

}  // namespace db::embedded
