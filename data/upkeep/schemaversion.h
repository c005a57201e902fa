#pragma once

#include <QStringList>

#include "data/schema.h"

namespace upkeep {

/// Returns the version that the database carries in the row `SVSchedulerSchema` of `DefaultFieldValues`. It is 0 for
/// tables that were made before there was a number, or by another program. Throws DatabaseError.
[[nodiscard]] int SchemaVersion(db::Connection& main);

/// Returns what a database lacks of its schema, as "table" or "table.column". Throws DatabaseError when the database
/// cannot be reached.
[[nodiscard]] QStringList MissingParts(db::Connection& connection, SchemaScript script);

/// Brings the schema of a main database up to CurrentSchema, step by step. Rows and tables that are there stay. Returns
/// what was done, one sentence each. After a failure it can be called again: each step is done whole or not at all, and
/// a step that is done already changes nothing. Throws DatabaseError; std::runtime_error, with a sentence for the user,
/// for a database of a later version.
QStringList Upgrade(db::Connection& main);

}  // namespace upkeep
