#include "benchmarks/baredatabase.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

#include "platform/database/embedded/functions.h"

namespace {

[[noreturn]] void fail(sqlite3* handle) {
    std::fprintf(stderr, "The bare engine says: %s\n", sqlite3_errmsg(handle));
    std::exit(1);
}

}  // namespace

BareDatabase::BareDatabase(const std::string& file) {
    if (sqlite3_open_v2(file.c_str(), &handle_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
        fail(handle_);
    db::embedded::RegisterDialect(handle_, nullptr);
    sqlite3_exec(handle_, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
}

BareDatabase::~BareDatabase() {
    sqlite3_close(handle_);
}

int BareDatabase::read(const std::string& statement) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle_, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
        fail(handle_);
    int rows = 0;
    const int columns = sqlite3_column_count(prepared);
    for (; sqlite3_step(prepared) == SQLITE_ROW; ++rows) {
        for (int column = 0; column < columns; ++column)
            sqlite3_column_text(prepared, column);
    }
    sqlite3_finalize(prepared);
    return rows;
}
