#pragma once

#include <string>
#include <vector>

#include "platform/database/embedded/expression.h"

namespace db::embedded {

struct SelectColumn {
    std::string name;   ///< "" for an expression without an alias.
    std::string table;  ///< The base table of a column; empty for an expression.
    Kind kind = Kind::Unknown;
    SqlType type = {};  ///< Where a column or a conversion tells it.
};

struct SelectText {
    std::string sql;
    std::vector<SelectColumn> columns;
    bool single = false;  ///< It gives one row at most, whatever the tables hold.
};

/// Reads a whole query with its Unions and its Order By.
SelectText ReadSelect(Context& context);

/// Reads a query in parentheses from behind the opening one. More than one column is error 116.
SelectText ReadInnerSelect(Context& context);

/// Reads a table's name and leaves out the owner before it.
std::string ReadTableName(TokenReader& in);

}  // namespace db::embedded
