#pragma once

#include <string>
#include <vector>

#include "platform/database/embedded/select.h"

namespace db::embedded {

/// One Select of a query, without its Unions and its Order By.
struct SelectCore {
    std::string sql;
    std::vector<SelectColumn> columns;
    std::vector<bool> aliased;         ///< Whether the statement names the column itself.
    std::vector<std::string> items;    ///< The columns as SQLite text.
    std::vector<std::string> grouped;  ///< The terms of Group By as SQLite text.
    Scope scope;
    std::string limit;
    bool distinct = false;
    bool aggregated = false;  ///< Grouped by Group By, or as a whole.
};

SelectCore ReadSelectCore(Context& context);

/// A clause in which Group By restricts the columns: the server's error number and the clause's name.
struct UngroupedPlace {
    int number;
    const char* name;
};

/// Checks `columns`, which the expression `sql` names outside of its aggregates. Throws the error of `place` for a
/// column that is neither a term of Group By nor part of an expression that is one.
void RequireGrouped(const std::vector<std::string>& grouped, const std::vector<std::string>& columns,
                    const std::string& sql, const UngroupedPlace& place);

}  // namespace db::embedded
