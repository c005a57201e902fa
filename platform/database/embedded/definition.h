#pragma once

#include "platform/database/embedded/expression.h"

namespace db::embedded {

/// Create Table, Index and Trigger, from behind Create. Columns take SQLite's affinity from DeclaredType, texts and
/// date-times the collations of the server, and an identity becomes SQLite's own row number. A trigger follows one
/// Insert or Update: After Insert As [Set NoCount On] [If condition] and one Update or Delete, all of which may read
/// "inserted".
std::string ReadCreate(Context& context);
/// Alter Table ... Add one column, from behind Alter.
std::string ReadAlter(Context& context);
/// Drop Table, Index and Trigger, from behind Drop.
std::string ReadDrop(Context& context);

}  // namespace db::embedded
