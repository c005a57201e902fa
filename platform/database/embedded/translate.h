#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/embedded/catalog.h"
#include "platform/database/resulttable.h"

namespace db::embedded {

/// The column that a bound value is written to. `table` is null where the value is only compared.
struct BoundPlace {
    std::shared_ptr<const Table> table;
    std::size_t column = 0;
};

/// A T-SQL statement translated to SQLite.
struct Translation {
    enum class Kind { Rows, Write, Definition } kind = Kind::Rows;
    std::string sql;
    std::vector<Column> columns;         ///< The columns of the rows that it returns.
    std::vector<bool> typesFromRows;     ///< Whether only the values tell the column's type.
    std::vector<BoundPlace> parameters;  ///< One for each ?, in order.
};

/// Translates one statement. Throws DatabaseError with the server's number for a statement that the server would not
/// compile: 102 syntax or a second statement, 105 quotes, 207 columns, 208 tables, 209 names that stand in two tables,
/// 241 and 245 literals that do not fit the column that they are compared with or written to, 2628 texts too long.
Translation Translate(std::string_view statement, Catalog& catalog);

}  // namespace db::embedded
