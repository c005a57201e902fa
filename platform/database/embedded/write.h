#pragma once

#include "platform/database/embedded/expression.h"

namespace db::embedded {

/// These routines read a statement from behind its first word and return it for SQLite. Written values are converted to
/// the column's type and checked: literals are converted here, bound values when they are bound (BoundPlace), and all
/// others by svs_store when the statement runs.
std::string ReadInsert(Context& context);
std::string ReadUpdate(Context& context);
std::string ReadDelete(Context& context);

/// Returns the SQLite text of a literal as the column stores it.
std::string StoredLiteral(const Table& table, const TableColumn& column, const Expression& literal);

}  // namespace db::embedded
