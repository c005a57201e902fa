#pragma once

#include <QString>

#include "platform/database/error.h"

struct sqlite3;

namespace db::embedded {

/// Returns the failure that SQLite reports, with the number and in the words of the server. `fault` is the number that
/// one of our functions left, or 0. `database` is the name of the database for the sentence, not a path.
DatabaseError FaultOf(sqlite3* handle, int fault, const QString& database, const QString& statement);

/// Returns the error for a file that cannot be opened, by SQLite's result code.
DatabaseError OpeningFault(int code, const QString& database);

/// Returns error 4060, for a file that does not exist.
DatabaseError MissingDatabase(const QString& database);

/// Returns the error for a file that is no longer the one that was opened.
DatabaseError ReplacedDatabase(const QString& database);

}  // namespace db::embedded
