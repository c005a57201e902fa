#pragma once

#include <QStringList>

namespace db {

/// Copies an embedded database into a new file, which is readable as the files of its folder are. Desks may go on
/// working in the database: the copy is its state at one moment, with everything that was saved until then. The copy is
/// read through once more at the end. Throws DatabaseError when the database cannot be read, when the copy cannot be
/// written, which then does not exist, and when there is a file of that name already.
void CopyDatabaseFile(const QString& from, const QString& to);

/// Reads an embedded database through and returns what is damaged in it, one sentence each; nothing for a sound file.
/// Throws DatabaseError when the file is no database.
[[nodiscard]] QStringList DamagesOf(const QString& file);

/// Puts a copy in the place of an embedded database, or makes it where there is none. The copy is read through first,
/// and the database that was there is kept as the file `before`, which must not exist yet. A desk that works in the
/// database makes this fail. In a failure the database stays as it was. Throws DatabaseError.
void RestoreDatabaseFile(const QString& copy, const QString& to, const QString& before);

}  // namespace db
