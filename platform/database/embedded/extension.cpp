#include <sqlite3ext.h>

#include "platform/database/embedded/functions.h"

SQLITE_EXTENSION_INIT1

/// Gives any SQLite tool the collations and functions that it needs to open a file of the system. A tool finds this
/// routine by the name of the library.
extern "C" int sqlite3_svsdialect_init(sqlite3* database, char** /*message*/, const sqlite3_api_routines* routines) {
    SQLITE_EXTENSION_INIT2(routines)
    return db::embedded::RegisterDialect(database, nullptr);
}
