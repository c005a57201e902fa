#include <sqlite3ext.h>

#include "platform/database/embedded/functions.h"

SQLITE_EXTENSION_INIT1

/// Lets any SQLite tool open a file of the system: its collations and functions. A tool finds the routine by the name
/// of the library.
extern "C" int sqlite3_svsdialect_init(sqlite3* database, char** /*message*/, const sqlite3_api_routines* routines) {
    SQLITE_EXTENSION_INIT2(routines)
    return db::embedded::RegisterDialect(database, nullptr);
}
