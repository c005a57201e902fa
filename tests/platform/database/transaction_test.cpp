#include <stdexcept>

#include "contract.h"

#include "platform/database/transaction.h"

using db::Connection;
using db::Lock;
using db::Recordset;

TEST_P(DatabaseContract, ACommittedTransactionStays) {
    connection_.BeginTrans();
    addVisit("Ann");
    connection_.CommitTrans();
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, ARolledBackTransactionLeavesNothing) {
    addVisit("before");
    connection_.BeginTrans();
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("cappttext", "changed");
    rows.Update();
    addVisit("Ann");
    connection_.RollbackTrans();
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(textOf(1), "before");
    addVisit("after");
    EXPECT_EQ(count(), 2);
}

TEST_P(DatabaseContract, TransactionsDoNotNest) {
    EXPECT_EQ(FailureOf([&] { connection_.CommitTrans(); }).number, -2147168242);
    EXPECT_EQ(FailureOf([&] { connection_.RollbackTrans(); }).number, -2147168242);
    connection_.BeginTrans();
    EXPECT_EQ(FailureOf([&] { connection_.BeginTrans(); }).number, -2147168237);
    addVisit("Ann");
    connection_.CommitTrans();
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, AStepThatFailsLeavesNothingOfItsTransactionAndTellsWhy) {
    const auto fails = [&] {
        addVisit("Ann");
        connection_.Execute("Delete from NoSuchTable");
    };
    EXPECT_NE(FailureOf([&] { db::InTransaction(connection_, fails); }).number, 0);
    EXPECT_EQ(count(), 0);
    db::InTransaction(connection_, [&] { addVisit("Bob"); });
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, TheWritesOfATransactionAreToldAfterItsCommit) {
    connection_.BeginTrans();
    addVisit("Ann");
    EXPECT_TRUE(writes_.empty());
    connection_.CommitTrans();
    EXPECT_EQ(writes_.size(), 1U);
    connection_.BeginTrans();
    addVisit("Bob");
    connection_.RollbackTrans();
    EXPECT_EQ(writes_.size(), 1U);
}

TEST_P(DatabaseContract, ClosingRollsAnOpenTransactionBack) {
    if (!isShared())
        GTEST_SKIP() << "A private database is gone when it is closed.";
    connection_.BeginTrans();
    addVisit("Ann");
    connection_.Close();
    connection_.Open(connectionText());
    EXPECT_EQ(count(), 0);
}

TEST_P(DatabaseContract, AnotherDeskSeesWhatWasCommitted) {
    if (!isShared())
        GTEST_SKIP() << "A private database has one desk.";
    addVisit("Ann");
    Connection other;
    other.Open(connectionText());
    EXPECT_EQ(Recordset("Select * from Visits", other).RecordCount(), 1);
    other.Execute("Update Visits Set cappttext = 'Theirs'");
    EXPECT_EQ(textOf(1), "Theirs");
}

TEST_P(DatabaseContract, AClosedConnectionIsReported) {
    EXPECT_EQ(FailureOf([&] { connection_.Open(connectionText()); }).number, 3705);
    Connection closed;
    EXPECT_FALSE(closed.IsOpen());
    const auto error = FailureOf([&] { closed.Execute("Delete from Visits"); });
    EXPECT_EQ(error.number, 3709);
    EXPECT_EQ(
        error.description,
        "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    EXPECT_EQ(FailureOf([&] { Recordset("Select * from Visits", closed); }).number, 3709);
    EXPECT_EQ(FailureOf([&] { closed.BeginTrans(); }).number, 3709);
    closed.Close();
}

TEST_P(DatabaseContract, ARecordsetOutlivesItsConnectionForReading) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    connection_.Close();
    EXPECT_EQ(rows["cappttext"].text(), "Ann");
    EXPECT_EQ(FailureOf([&] { rows.Set("cappttext", "Bob"); }).number, 3709);
}

TEST(Connection, ADatabaseThatIsNotThereIsReportedAndNotMade) {
    const QTemporaryDir folder(TestFolderTemplate());
    const QString text =
        QStringLiteral("provider=sqloledb;DATA SOURCE=%1;initial catalog=nowhere;password=secret").arg(folder.path());
    Connection connection;
    const auto error = FailureOf([&] { connection.Open(text); });
    EXPECT_EQ(error.number, 4060);
    EXPECT_FALSE(error.description.contains("secret"));
    EXPECT_FALSE(connection.IsOpen());
    EXPECT_NE(FailureOf([&] { connection.Open(text); }).number, 0);
    connection.Create(text);
    EXPECT_TRUE(connection.IsOpen());
}

TEST(Connection, APrivateDatabaseIsGoneWithItsConnection) {
    for (int round = 0; round < 2; ++round) {
        Connection connection;
        connection.Open("Data Source=:memory:");
        connection.Execute("Create Table t (a int)");
        connection.Execute("Insert Into t (a) Values (1)");
    }
}

TEST_P(DatabaseContract, WhateverAStepThrowsRollsItsTransactionBack) {
    EXPECT_THROW(db::InTransaction(connection_,
                                   [&] {
                                       addVisit("Ann");
                                       throw std::runtime_error("a fault of the program");
                                   }),
                 std::runtime_error);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(FailureOf([&] { connection_.RollbackTrans(); }).number, -2147168242);
}

TEST_P(DatabaseContract, AStepWithinATransactionThatIsOpenIsRefusedAndLeavesThatOneOpen) {
    connection_.BeginTrans();
    addVisit("Ann");
    bool ran = false;
    EXPECT_EQ(FailureOf([&] { db::InTransaction(connection_, [&] { ran = true; }); }).number, -2147168237);
    EXPECT_FALSE(ran);
    connection_.CommitTrans();
    EXPECT_EQ(count(), 1);
}
