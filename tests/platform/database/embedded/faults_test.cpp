// The numbers and sentences that a fault of SQLite becomes.

#include "platform/database/embedded/faults.h"

#include <sqlite3.h>

#include "platform/database/embedded/sqlitehandle.h"
#include "tests/platform/database/embedded/practice.h"

namespace {

using db::DatabaseError;
using db::embedded::DatabaseHandle;
using db::embedded::FaultOf;
using db::embedded::OpeningFault;

class Faults : public testing::Test {
  protected:
    void SetUp() override {
        sqlite3* opened = nullptr;
        ASSERT_EQ(sqlite3_open(":memory:", &opened), SQLITE_OK);
        handle.reset(opened);
        sqlite3_extended_result_codes(opened, 1);
        run("Create Table t (id integer primary key, a text not null, b int unique, c int check (c > 0), d int "
            "references t (id), unique (b, c))");
        run("Pragma foreign_keys = on");
        run("Insert Into t Values (1, 'x', 1, 1, 1)");
    }

    int run(const char* statement) { return sqlite3_exec(handle.get(), statement, nullptr, nullptr, nullptr); }

    /// "number sentence" of what SQLite says to the statement.
    QString told(const char* statement, int fault = 0) {
        EXPECT_NE(run(statement), SQLITE_OK) << statement;
        const DatabaseError error = FaultOf(handle.get(), fault, QStringLiteral("desk"), QString::fromUtf8(statement));
        EXPECT_EQ(error.statement, statement);
        return QStringLiteral("%1 %2").arg(error.number).arg(error.description);
    }

    DatabaseHandle handle;
};

TEST_F(Faults, ANullIsToldWithItsColumnAndTable) {
    EXPECT_EQ(
        told("Insert Into t (b) Values (2)"),
        "515 Cannot insert the value NULL into column 'a', table 't'; column does not allow nulls. INSERT fails.");
    EXPECT_EQ(
        told("  update\tt Set a = null"),
        "515 Cannot insert the value NULL into column 'a', table 't'; column does not allow nulls. UPDATE fails.");
}

TEST_F(Faults, AKeyThatIsTakenIsToldWithItsColumns) {
    EXPECT_EQ(told("Insert Into t Values (1, 'y', 2, 2, 1)"),
              "2627 Violation of PRIMARY KEY constraint on 'id'. Cannot insert duplicate key in object 't'.");
    EXPECT_EQ(told("Insert Into t Values (2, 'y', 1, 2, 1)"),
              "2627 Violation of UNIQUE KEY constraint on 'b'. Cannot insert duplicate key in object 't'.");
    run("Create Table k (x text, y int, primary key (x, y)) without rowid");
    run("Insert Into k Values ('a', 1)");
    EXPECT_EQ(told("Insert Into k Values ('a', 1)"),
              "2627 Violation of PRIMARY KEY constraint on 'x, y'. Cannot insert duplicate key in object 'k'.");
    run("Create Table r (x int)");
    run("Insert Into r (rowid, x) Values (5, 1)");
    EXPECT_TRUE(told("Insert Into r (rowid, x) Values (5, 1)").startsWith("2627 Violation of PRIMARY KEY constraint"));
}

TEST_F(Faults, AReferenceOrACheckThatIsBrokenIsTold) {
    EXPECT_EQ(told("Insert Into t Values (2, 'y', 2, 2, 99)"),
              "547 The INSERT statement conflicted with a FOREIGN KEY or REFERENCE constraint.");
    EXPECT_EQ(told("Update t Set c = -1"), "547 The UPDATE statement conflicted with a CHECK constraint.");
    run("Insert Into t Values (2, 'y', 2, 2, 1)");
    EXPECT_EQ(told("Delete from t Where id = 1"),
              "547 The DELETE statement conflicted with a FOREIGN KEY or REFERENCE constraint.");
}

TEST_F(Faults, WhatIsGoneMeanwhileIsToldByItsName) {
    EXPECT_EQ(told("Select * from nowhere"), "208 Invalid object name 'nowhere'.");
    EXPECT_EQ(told("Select nowhere from t"), "207 Invalid column name 'nowhere'.");
    run("Create Trigger g After Insert On t Begin Select 1; End");
    EXPECT_EQ(told("Create Trigger \"g\" After Insert On t Begin Select 1; End"),
              "2714 There is already an object named 'g' in the database.");
}

TEST_F(Faults, OtherFaultsOfAStatementKeepSQLitesWords) {
    EXPECT_EQ(told("Select sum(9223372036854775807) from (Select 1 Union All Select 2)"),
              "8115 Arithmetic overflow error converting expression to data type bigint.");
    EXPECT_TRUE(told("Select id from t Where count(*) > 1").startsWith("147 An aggregate may not appear in the WHERE"));
    EXPECT_EQ(told("Selec 1"), "102 Incorrect syntax: near \"Selec\": syntax error.");
    EXPECT_EQ(told("Insert Into t (id, a) Values ('x', 'y')"), "20 datatype mismatch");
}

TEST_F(Faults, ANumberThatAFunctionLeftGoesBeforeEverything) {
    EXPECT_EQ(told("Select nowhere from t", 241), "241 no such column: nowhere");
    EXPECT_EQ(told("Insert Into t (b) Values (2)", 8134), "8134 NOT NULL constraint failed: t.a");
}

TEST_F(Faults, AFileThatCannotBeOpenedIsTold) {
    const auto told = [](int code) {
        const DatabaseError error = OpeningFault(code, QStringLiteral("desk"));
        return QStringLiteral("%1 %2").arg(error.number).arg(error.description);
    };
    const QString rights =
        "%1 The database \"desk\" cannot be opened. Its file and folder must be readable and writable for you. (SQLite "
        "error %1)";
    for (const int code : {SQLITE_READONLY, SQLITE_CANTOPEN, SQLITE_PERM, SQLITE_AUTH})
        EXPECT_EQ(told(code), rights.arg(code));
    EXPECT_EQ(told(SQLITE_READONLY_DBMOVED), rights.arg(SQLITE_READONLY));
    EXPECT_EQ(told(SQLITE_NOTADB), "26 The file of the database \"desk\" is not a database. (SQLite error 26)");
    EXPECT_EQ(told(SQLITE_CORRUPT),
              "11 The file of the database \"desk\" is damaged or cut short. Restore it from a backup. (SQLite error "
              "11)");
    EXPECT_EQ(told(SQLITE_IOERR_READ), "10 Reading or writing the database \"desk\" failed. (SQLite error 10)");
    EXPECT_EQ(told(SQLITE_BUSY),
              "1222 Lock request time out period exceeded. Another desk is writing to the database \"desk\".");
    EXPECT_EQ(told(SQLITE_FULL), "1105 Could not allocate space in database \"desk\" because the disk is full.");
    EXPECT_EQ(told(SQLITE_NOMEM), "7 The database \"desk\" cannot be opened. (SQLite error 7)");
}

TEST_F(Faults, AMissingAndAReplacedDatabaseAreTold) {
    EXPECT_EQ(db::embedded::MissingDatabase("desk").number, 4060);
    EXPECT_EQ(db::embedded::MissingDatabase("desk").description,
              "Cannot open database \"desk\" requested by the login. The login failed.");
    const DatabaseError replaced = db::embedded::ReplacedDatabase("desk");
    EXPECT_TRUE(db::IsLinkFailure(replaced));
    EXPECT_EQ(replaced.description,
              "The file of the database \"desk\" was moved, deleted or replaced while it was open. Nothing is saved "
              "until it is opened again.");
}

}  // namespace
