#pragma once

#include "platform/database/embedded/expression.h"

namespace db::embedded {

/// Create Table and Create Index, from behind Create. Columns take SQLite's affinity from DeclaredType, texts and
/// date-times the collations of the server, and an identity becomes SQLite's own row number.
std::string ReadCreate(Context& context);
/// Alter Table ... Add one column, from behind Alter.
std::string ReadAlter(Context& context);
/// Drop Table and Drop Index, from behind Drop.
std::string ReadDrop(Context& context);

}  // namespace db::embedded
