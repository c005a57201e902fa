#pragma once

#include <QString>

#include "platform/database/error.h"

struct sqlite3;

namespace db::embedded {

/// The failure that SQLite reports, under the number and in the words of the server. `fault` is the number that one of
/// our functions left, 0 for none; `database` is the name of the database for the sentence, not a path.
DatabaseError FaultOf(sqlite3* handle, int fault, const QString& database, const QString& statement);

/// What is wrong with a file that cannot be opened at all, by SQLite's result code.
DatabaseError OpeningFault(int code, const QString& database);

/// 4060, for a file that is not there.
DatabaseError MissingDatabase(const QString& database);

/// For a file that is no longer the one that was opened.
DatabaseError ReplacedDatabase(const QString& database);

}  // namespace db::embedded
