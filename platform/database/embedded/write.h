#pragma once

#include "platform/database/embedded/expression.h"

namespace db::embedded {

/// From behind the statement's first word. What is written is converted to the column's type and checked: literals
/// here, bound values when they are bound (BoundPlace), anything else by svs_store when the statement runs.
std::string ReadInsert(Context& context);
std::string ReadUpdate(Context& context);
std::string ReadDelete(Context& context);

/// A literal as the column stores it, for SQLite.
std::string StoredLiteral(const Table& table, const TableColumn& column, const Expression& literal);

}  // namespace db::embedded
