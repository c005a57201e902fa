#pragma once

#include <string>
#include <vector>

#include "platform/database/embedded/expression.h"

namespace db::embedded {

struct SelectColumn {
    std::string name;   ///< "" for an expression without an alias.
    std::string table;  ///< The base table of a column.
    Kind kind = Kind::Unknown;
    SqlType type = {};  ///< Where a column or a conversion tells it.
};

struct SelectText {
    std::string sql;
    std::vector<SelectColumn> columns;
    bool single = false;  ///< It gives one row at most, whatever the tables hold.
};

/// A whole query, with its Unions and its Order By.
SelectText ReadSelect(Context& context);

/// A query in parentheses, from behind the opening one, of which 116 asks a single column.
SelectText ReadInnerSelect(Context& context);

/// A table's name with the owner before it left out.
std::string ReadTableName(TokenReader& in);

}  // namespace db::embedded
