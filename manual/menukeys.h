#pragma once

#include <QString>

namespace manual {

/// Returns the keys of all commands in the menus as tables, one for each menu: the command with the way to it, its key,
/// and in which views it is ("all views", or their names).
[[nodiscard]] QString MenuKeyTables();

}  // namespace manual
