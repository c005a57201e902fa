#include "tests/support/testdatabase.h"

#include <gtest/gtest.h>

#include "platform/database/sql.h"

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
