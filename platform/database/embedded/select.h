#pragma once

#include <string>
#include <vector>

#include "platform/database/embedded/expression.h"

namespace db::embedded {

struct SelectColumn {
    std::string name;   ///< "" for an expression without an alias.
    std::string table;  ///< The base table of a column; empty for an expression.
    Kind kind = Kind::Unknown;
};

struct SelectText {
    std::string sql;
    std::vector<SelectColumn> columns;
};

/// Reads a whole query with its Unions and its Order By.
SelectText ReadSelect(Context& context);

/// Reads a table's name and leaves out the owner before it.
std::string ReadTableName(TokenReader& in);

}  // namespace db::embedded
