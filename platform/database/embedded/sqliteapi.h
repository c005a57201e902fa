#pragma once

// The functions are compiled twice: into the engine, which calls the library, and into the loadable extension, which
// calls whatever library the tool that loads it holds.
#ifdef SVS_LOADABLE_EXTENSION
#include <sqlite3ext.h>
extern const sqlite3_api_routines* sqlite3_api;
#else
#include <sqlite3.h>
#endif
