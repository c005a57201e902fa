// The tables of a file that cannot be read for a while.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/database/embedded/catalog.h"
#include "platform/database/embedded/faults.h"
#include "platform/database/embedded/sqlitehandle.h"

using db::DatabaseError;
using db::embedded::Catalog;
using db::embedded::DatabaseHandle;

namespace {

DatabaseHandle opened(const QString& file) {
    sqlite3* handle = nullptr;
    EXPECT_EQ(sqlite3_open(file.toUtf8().constData(), &handle), SQLITE_OK);
    return DatabaseHandle(handle);
}

void run(const DatabaseHandle& handle, const char* statement) {
    EXPECT_EQ(sqlite3_exec(handle.get(), statement, nullptr, nullptr, nullptr), SQLITE_OK) << statement;
}

int failureOf(Catalog& catalog, const char* table) {
    try {
        static_cast<void>(catalog.table(table));
    } catch (const DatabaseError& error) {
        return error.number;
    }
    return 0;
}

}  // namespace

TEST(Catalog, ATableThatCannotBeLookedUpIsNotTakenForMissing) {
    const QTemporaryDir folder;
    const DatabaseHandle theirs = opened(folder.filePath("desk.db"));
    run(theirs, "Create Table Visits (id integer)");
    const DatabaseHandle ours = opened(folder.filePath("desk.db"));
    Catalog catalog(ours.get(), [&] { throw db::embedded::FaultOf(ours.get(), 0, "desk", {}); });
    run(theirs, "Begin Exclusive");
    EXPECT_EQ(failureOf(catalog, "Visits"), 1222);
    run(theirs, "Commit");
    EXPECT_EQ(failureOf(catalog, "Visits"), 0);
    EXPECT_EQ(failureOf(catalog, "Nothing"), 208);
}
