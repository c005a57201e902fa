#pragma once

#include "platform/database/embedded/expression.h"

namespace db::embedded {

/// Reads Create Table, Index or Trigger from behind the word Create and returns the SQLite statement. Columns take
/// SQLite's affinity from DeclaredType, texts and date-times take the server's collations, and an identity becomes
/// SQLite's own row number. A trigger follows one Insert or Update: After Insert As [Set NoCount On] [If condition] and
/// one Update or Delete, all of which may read the table "inserted".
std::string ReadCreate(Context& context);
/// Reads Alter Table ... Add with one column, from behind the word Alter.
std::string ReadAlter(Context& context);
/// Reads Drop Table, Index or Trigger, from behind the word Drop.
std::string ReadDrop(Context& context);

}  // namespace db::embedded
