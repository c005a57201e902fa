#include "tests/support/testdatabase.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"

namespace {

QString reasonOf(db::Connection& connection, const char* statement) {
    try {
        connection.Execute(QString::fromLatin1(statement));
    } catch (const db::DatabaseError& error) {
        return error.description;
    }
    return QStringLiteral("(done)");
}

/// Leaves a database of the pool as a test does that is killed in its middle.
void leaveDirty(const QString& serverText) {
    const pid_t child = fork();
    if (child == 0) {
        db::Connection connection;
        const ServerDatabase database(serverText, SchemaScript::Main, connection);
        connection.Execute("Insert Into rooms (Room) Values ('East')");
        connection.Execute("Drop Table Events");
        connection.Execute("Create Table Events (Left_ int null)");
        connection.Execute("Create Table Left_Over (Left_ int null)");
        connection.Execute("Create Trigger left_trigger On rooms After Insert As Delete from rooms");
        _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
}

}  // namespace

TEST(TestDatabase, EveryTestBeginsWithEmptyTables) {
    for (int round = 0; round < 2; ++round) {
        TestDatabase database;
        EXPECT_EQ(database.number("Select Count(*) from appointments"), 0);
        database.connection().Execute("Insert Into appointments (cappttext) Values ('Ann')");
        EXPECT_EQ(database.number("Select nkeyid from appointments"), 1);
        EXPECT_EQ(database.text("Select cappttext from appointments"), "Ann");
        EXPECT_EQ(database.text("Select cappttext from appointments Where 0=1"), "(none)");
    }
}

TEST(TestDatabase, AKeyThatWasGivenAndIsGoneIsGivenAgainInTheNextTest) {
    for (int round = 0; round < 2; ++round) {
        TestDatabase database;
        database.connection().Execute("Insert Into rooms (Room) Values ('East')");
        EXPECT_EQ(database.number("Select RoomID from rooms"), 1);
        database.connection().Execute("Delete from rooms");
    }
}

TEST(TestDatabase, TwoAtOnceAreApart) {
    TestDatabase one;
    TestDatabase other;
    one.connection().Execute("Insert Into rooms (Room) Values ('East')");
    EXPECT_EQ(one.number("Select Count(*) from rooms"), 1);
    EXPECT_EQ(other.number("Select Count(*) from rooms"), 0);
}

TEST(TestDatabase, ATableThatATestDroppedOrChangedIsThereAgainForTheNext) {
    for (const char* column : {"Room", "Other"}) {
        TestDatabase database;
        database.connection().Execute("Insert Into rooms (Room) Values ('East')");
        database.connection().Execute("Drop Table rooms");
        if (QLatin1String(column) == QLatin1String("Other"))
            database.connection().Execute("Create Table rooms (Other int null)");
    }
    TestDatabase next;
    next.connection().Execute("Insert Into rooms (Room) Values ('East')");
    EXPECT_EQ(next.number("Select RoomID from rooms"), 1);
}

TEST(TestDatabase, WhatIsRefusedIsToldAndLeavesTheRowsAsTheyWere) {
    TestDatabase database;
    database.connection().Execute("Insert Into rooms (Room) Values ('East')");
    const std::pair<const char*, const char*> refusals[]{{"Insert", "Insert Into rooms (Room) Values ('West')"},
                                                         {"Update", "Update rooms Set Room = 'West'"},
                                                         {"Delete", "Delete from rooms"}};
    for (const auto& [operation, statement] : refusals) {
        const QString reason = database.refuse(QLatin1String(operation), QStringLiteral("rooms"));
        EXPECT_EQ(reasonOf(database.connection(), statement), reason) << operation;
        EXPECT_EQ(database.text("Select Room from rooms"), "East");
        EXPECT_EQ(database.number("Select Count(*) from rooms"), 1);
        database.allow(QLatin1String(operation), QStringLiteral("rooms"));
    }
    for (const auto& [operation, statement] : refusals)
        EXPECT_EQ(reasonOf(database.connection(), statement), "(done)") << operation;
}

TEST(TestDatabase, WhatOneTestRefusesIsAllowedToTheNext) {
    for (int round = 0; round < 2; ++round) {
        TestDatabase database;
        EXPECT_EQ(reasonOf(database.connection(), "Insert Into rooms (Room) Values ('East')"), "(done)");
        (void)database.refuse(QStringLiteral("Insert"), QStringLiteral("rooms"));
    }
}

TEST(TestDatabase, WhatAKilledTestLeftOnAServerIsTakenDown) {
    const QString serverText = qEnvironmentVariable("SVSCHEDULER_TEST_DATABASE");
    if (serverText.isEmpty())
        GTEST_SKIP() << "An embedded database goes with its test.";
    // A row of numbers of its own, so that no test beside this one takes the database in between.
    const QString apart = serverText + QStringLiteral(";Initial Catalog=svkilled;");
    leaveDirty(apart);
    db::Connection next;
    const ServerDatabase database(apart, SchemaScript::Main, next);
    next.Execute("Insert Into rooms (Room) Values ('West')");
    next.Execute("Insert Into Events (Event) Values ('Retreat')");
    const db::Recordset rooms("Select RoomID, Room from rooms", next);
    ASSERT_EQ(rooms.RecordCount(), 1);
    EXPECT_EQ(rooms[0].integer(), 1);
    EXPECT_FALSE(db::Ignoring([&] { next.Execute("Delete from Left_Over"); }));
}

TEST(TestDatabase, AFormsOwnConnectionSeesTheSameRows) {
    TestDatabase database;
    database.connection().Execute("Insert Into rooms (Room) Values ('East')");
    db::Connection form;
    form.Open(database.connectionText());
    form.Execute("Update rooms Set Room = 'West'");
    EXPECT_EQ(database.text("Select Room from rooms"), "West");
}

TEST(TestDatabase, TheCompanionHasItsOwnTables) {
    TestDatabase companion(SchemaScript::Companion);
    EXPECT_EQ(companion.number("Select Count(*) from ClientTransactions"), 0);
}
