#pragma once

#include <string>
#include <vector>

#include "platform/database/embedded/select.h"

namespace db::embedded {

/// One Select of a query, between its Unions and before its Order By.
struct SelectCore {
    std::string sql;
    std::vector<SelectColumn> columns;
    std::vector<bool> aliased;         ///< Columns that the statement names itself.
    std::vector<std::string> items;    ///< The columns as SQLite text.
    std::vector<std::string> grouped;  ///< The terms of Group By, likewise.
    Scope scope;
    std::string limit;
    bool distinct = false;
    bool aggregated = false;  ///< By Group By, or as a whole.
};

SelectCore ReadSelectCore(Context& context);

/// Where Group By does not let a column stand: the server's number for it, and the words.
struct UngroupedPlace {
    int number;
    const char* name;
};

/// Throws the place's error where `columns`, which the expression `sql` names outside of its aggregates, are not among
/// the terms of Group By, nor in an expression that is one.
void RequireGrouped(const std::vector<std::string>& grouped, const std::vector<std::string>& columns,
                    const std::string& sql, const UngroupedPlace& place);

}  // namespace db::embedded
