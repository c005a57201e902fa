// What an observer is told of the rows of each write, and when.

#include <stdexcept>

#include "contract.h"
#include "observed.h"
#include "platform/database/transaction.h"
#include "platform/database/writeshape.h"

using db::Lock;
using db::Recordset;
using db::RowState;
using db::Sql;
using db::Write;

TEST_P(DatabaseContract, ANewRowIsToldWithTheKeyAndWhatTheDatabaseFilledIn) {
    observeRows();
    Recordset row("Select nkeyid, cappttext from Visits Where 0=1", connection_, Lock::Optimistic);
    row.AddNew();
    row.Set("cappttext", "Ann");
    row.Update();
    EXPECT_EQ(told(writes_), QStringList{"1: (none) -> Ann Null"});
    EXPECT_EQ(valuesOf(writes_.front().changes.front().after, {"clinicianid"}), "D1");
    EXPECT_TRUE(writes_.front().rowsAreTold);
    EXPECT_EQ(row["nkeyid"].integer(), 1);
}

TEST_P(DatabaseContract, AChangedRowIsToldWholeAsItWasAndAsItIs) {
    addVisit("Ann", 600);
    observeRows();
    Recordset row("Select nkeyid, cappttext from Visits", connection_, Lock::Optimistic);
    row.Set("cappttext", "Bob");
    row.Update();
    EXPECT_EQ(told(writes_), QStringList{"1: Ann 600 -> Bob 600"});
    EXPECT_TRUE(writes_.front().rowsAreTold);
    EXPECT_EQ(writes_.front().changes.front().before->Values().size(), 8U);
}

TEST_P(DatabaseContract, ADeletedRowIsToldAsItWas) {
    addVisit("Ann", 600);
    observeRows();
    Recordset row("Select * from Visits", connection_, Lock::Optimistic);
    row.Delete();
    EXPECT_EQ(told(writes_), QStringList{"1: Ann 600 -> (none)"});
    EXPECT_EQ(count(), 0);
}

TEST_P(DatabaseContract, TheRowsBeforeAWriteCostOneTripAndOnlyWhereTheyAreWanted) {
    addVisit("Ann", 600);
    addVisit("Bob", 700);
    connection_.Observe([this](const Write& write) { writes_.push_back(write); }, db::Told::RowsBefore,
                        [](const db::WriteShape& shape, const std::vector<db::Value>& bound) {
                            return shape.verb == db::WriteShape::Verb::Delete || bound.size() == 1;
                        });
    connection_.Execute("Delete From Visits Where 0 = 1");  // The columns of the table are asked for once.
    const auto tripsOf = [](const auto& step) {
        const qint64 before = db::Connection::Trips();
        step();
        return db::Connection::Trips() - before;
    };
    EXPECT_EQ(tripsOf([&] { connection_.Execute("Update Visits Set nStartTime = 601 Where cappttext = 'Ann'"); }), 1);
    EXPECT_EQ(writes_.back().changes.size(), 0U);
    EXPECT_EQ(writes_.back().rows, 1);
    EXPECT_EQ(tripsOf([&] { connection_.Execute("Update Visits Set nStartTime = ?", {602}); }), 2);
    ASSERT_EQ(writes_.back().changes.size(), 2U);
    EXPECT_TRUE(writes_.back().rowsAreTold);
    EXPECT_EQ(valuesOf(writes_.back().changes.front().before, {"cappttext", "nStartTime"}), "Ann 601");
    EXPECT_FALSE(writes_.back().changes.front().after);
    EXPECT_EQ(tripsOf([&] { connection_.Execute("Delete From Visits Where cappttext = 'Bob'"); }), 2);
    EXPECT_EQ(valuesOf(writes_.back().changes.front().before, {"cappttext", "nStartTime"}), "Bob 602");
    EXPECT_EQ(tripsOf([&] { connection_.Execute("Insert Into Visits (nStartTime) Values (?)", {800}); }), 1);
    EXPECT_EQ(writes_.back().changes.size(), 0U);
}

TEST_P(DatabaseContract, TheRowsBeforeAWriteOfATransactionAreToldAfterItsCommit) {
    addVisit("Ann", 600);
    writes_.clear();
    connection_.Observe([this](const Write& write) { writes_.push_back(write); }, db::Told::RowsBefore);
    connection_.BeginTrans();
    connection_.Execute("Delete From Visits");
    EXPECT_TRUE(writes_.empty());
    connection_.RollbackTrans();
    EXPECT_TRUE(writes_.empty());
    db::InTransaction(connection_, [&] { connection_.Execute("Delete From Visits"); });
    ASSERT_EQ(writes_.size(), 1U);
    EXPECT_EQ(valuesOf(writes_.back().changes.front().before, {"cappttext"}), "Ann");
}

TEST_P(DatabaseContract, TheValuesOfARowAreToldWithTheTypesOfItsColumns) {
    const QDateTime moment(QDate(2026, 3, 11), QTime(9, 30, 15, 123));
    observeRows();
    connection_.Execute(
        "Insert Into Visits (dapptdate, nStartTime, cappttext, notes, kept, fee) Values (?, ?, ?, ?, ?, ?)",
        {moment, 600, "Zoë", QString(5000, 'n'), true, 0.5});
    ASSERT_EQ(writes_.size(), 1U);
    ASSERT_EQ(writes_.front().changes.size(), 1U);
    const Recordset read("Select * from Visits", connection_);
    for (const RowState::ColumnValue& each : writes_.front().changes.front().after->Values())
        EXPECT_EQ(each.value, read[each.column].value()) << each.column.toStdString();
    EXPECT_EQ(valuesOf(writes_.front().changes.front().after, {"nStartTime", "cappttext", "fee"}), "600 Zoë 0.5");
}

TEST_P(DatabaseContract, AnUpdateOfManyRowsTellsEachOneThatItsConditionHit) {
    for (int start = 1; start <= 3; ++start)
        addVisit("Ann", start);
    observeRows();
    EXPECT_EQ(connection_.Execute("Update Visits Set nStartTime = nStartTime + 100 Where nStartTime <> 2"), 2);
    EXPECT_EQ(told(writes_), (QStringList{"1: Ann 1 -> Ann 101", "3: Ann 3 -> Ann 103"}));
    EXPECT_EQ(writes_.front().rows, 2);
}

TEST_P(DatabaseContract, ARowThatAnUpdateLeavesAsItWasIsToldAllTheSame) {
    addVisit("Ann", 600);
    observeRows();
    connection_.Execute("Update Visits Set nStartTime = 600");
    EXPECT_EQ(told(writes_), QStringList{"1: Ann 600 -> Ann 600"});
}

TEST_P(DatabaseContract, AWriteThatHitsNothingIsToldWithoutRows) {
    addVisit("Ann");
    observeRows();
    connection_.Execute("Delete from Visits Where cappttext = 'Bob'");
    connection_.Execute("Update Visits Set kept = 1 Where cappttext = 'Bob'");
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Select nkeyid, 'D1' from Visits Where 0=1");
    connection_.Execute("Insert Into Visits (cappttext) Select cappttext from Visits Where 0=1");
    ASSERT_EQ(writes_.size(), 4U);
    for (const Write& write : writes_) {
        EXPECT_TRUE(write.rowsAreTold) << write.statement.toStdString();
        EXPECT_EQ(write.changes.size(), 0U) << write.statement.toStdString();
    }
}

TEST_P(DatabaseContract, AConditionWithBoundValuesFindsItsRows) {
    addVisit("Ann", 600);
    addVisit("Bob", 615);
    observeRows();
    connection_.Execute("Update Visits Set cappttext = ?, nStartTime = ? Where cappttext = ? And nStartTime = ?",
                        {"Cara", 630, "Bob", 615});
    connection_.Execute("Delete From Visits Where nStartTime In (?, ?)", {600, 630});
    EXPECT_EQ(told(writes_), (QStringList{"2: Bob 615 -> Cara 630", "1: Ann 600 -> (none)", "2: Cara 630 -> (none)"}));
}

TEST_P(DatabaseContract, AConditionMayLookIntoTheTableThatIsWrittenTo) {
    addVisit("Ann", 1);
    addVisit("Bob", 2);
    observeRows();
    connection_.Execute("Delete from Visits Where nStartTime = (Select Max(nStartTime) from Visits)");
    EXPECT_EQ(told(writes_), QStringList{"2: Bob 2 -> (none)"});
}

TEST_P(DatabaseContract, TheWritesOfATransactionAreToldOneByOneAfterItsCommit) {
    const int key = addVisit("Ann", 1);
    observeRows();
    connection_.BeginTrans();
    connection_.Execute("Update Visits Set cappttext = 'Bob'");
    Recordset row(Sql("Select * from Visits Where nkeyid = {}", key), connection_, Lock::Optimistic);
    row.Set("nStartTime", 2);
    row.Update();
    addVisit("Cara", 3);
    connection_.Execute("Delete from Visits Where cappttext = 'Bob'");
    EXPECT_TRUE(writes_.empty());
    connection_.CommitTrans();
    EXPECT_EQ(told(writes_),
              (QStringList{"1: Ann 1 -> Bob 1", "1: Bob 1 -> Bob 2", "2: (none) -> Cara 3", "1: Bob 2 -> (none)"}));
}

TEST_P(DatabaseContract, NothingIsToldOfATransactionThatIsRolledBack) {
    addVisit("Ann");
    observeRows();
    connection_.BeginTrans();
    connection_.Execute("Update Visits Set cappttext = 'Bob'");
    connection_.Execute("Insert Into Visits (cappttext) Values ('Cara'), ('Dan')");
    connection_.RollbackTrans();
    EXPECT_TRUE(writes_.empty());
    connection_.Execute("Update Visits Set cappttext = 'Eve'");
    EXPECT_EQ(told(writes_), QStringList{"1: Ann 600 -> Eve 600"});
}

TEST_P(DatabaseContract, AnObservedWriteThatFailsTellsItsOwnErrorAndLeavesNoTransactionOpen) {
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')");
    addVisit("Ann");
    const std::vector<QString> statements{
        "Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')",
        "Insert Into Visits (cappttext, clinicianid) Values ('Bob', 'D1'), ('Cara', Null)",
        "Update Visits Set clinicianid = Null",
        "Update Visits Set cappttext = 'Bob' Where nowhere = 1",
        "Update Nowhere Set a = 1 Where b = 2",
        "Delete From Visits Where cappttext = nowhere"};
    std::vector<int> unobserved;
    for (const QString& statement : statements)
        unobserved.push_back(FailureOf([&] { connection_.Execute(statement); }).number);
    observeRows();
    for (std::size_t i = 0; i < statements.size(); ++i) {
        const db::DatabaseError error = FailureOf([&] { connection_.Execute(statements[i]); });
        EXPECT_NE(error.number, 0) << statements[i].toStdString();
        EXPECT_EQ(error.number, unobserved[i]) << statements[i].toStdString();
        EXPECT_FALSE(error.statement.startsWith("Select")) << error.statement.toStdString();
        EXPECT_EQ(FailureOf([&] { connection_.RollbackTrans(); }).number, -2147168242) << statements[i].toStdString();
    }
    EXPECT_TRUE(writes_.empty());
    EXPECT_EQ(textOf(1), "Ann");
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, AnObservedWriteWhoseRowAnotherDeskChangedIsNotTold) {
    addVisit("Ann");
    Recordset row("Select * from Visits", connection_, Lock::Optimistic);
    connection_.Execute("Update Visits Set cappttext = 'Theirs'");
    observeRows();
    row.Set("nStartTime", 700);
    EXPECT_EQ(FailureOf([&] { row.Update(); }).number, db::RowChanged);
    EXPECT_TRUE(writes_.empty());
    EXPECT_EQ(FailureOf([&] { connection_.BeginTrans(); }).number, 0);
}

TEST_P(DatabaseContract, AnObserverReadsWhatWasWritten) {
    addVisit("Ann");
    QStringList read;
    connection_.Observe([&](const Write& write) {
        const Recordset rows("Select cappttext from Visits Order By nkeyid", connection_);
        read << (rows.Eof() ? QStringLiteral("(nothing)") : rows[0].text());
        EXPECT_EQ(write.table.toLower(), "visits");
    });
    Recordset row("Select * from Visits", connection_, Lock::Optimistic);
    row.Set("cappttext", "Bob");
    row.Update();
    db::InTransaction(connection_, [&] {
        connection_.Execute("Update Visits Set cappttext = 'Cara'");
        connection_.Execute("Update Visits Set cappttext = 'Dan'");
    });
    row.Open("Select * from Visits", connection_, Lock::Optimistic);
    row.Delete();
    EXPECT_EQ(read, (QStringList{"Bob", "Dan", "Dan", "(nothing)"}));
}

TEST_P(DatabaseContract, WhatAnObserverWritesIsToldToNobodyAndLeavesTheLastKeyAsItWas) {
    for (int i = 0; i < 5; ++i)
        addVisit("Before");
    int observed = 0;
    std::vector<qint64> keysOfTheObserver;
    connection_.Observe([&](const Write&) {
        ++observed;
        Recordset history("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
        history.AddNew();
        history.Set("cappttext", "history");
        history.Update();
        keysOfTheObserver.push_back(history["nkeyid"].integer());
        EXPECT_EQ(connection_.LastIdentity(), keysOfTheObserver.back());
    });
    Recordset row("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
    row.AddNew();
    row.Set("cappttext", "Ann");
    row.Update();
    EXPECT_EQ(row["nkeyid"].integer(), 6);
    EXPECT_EQ(connection_.LastIdentity(), 6);
    db::InTransaction(connection_, [&] {
        addVisit("Bob");
        connection_.Execute("Update Visits Set nStartTime = 1 Where cappttext = 'Bob'");
    });
    EXPECT_EQ(connection_.LastIdentity(), 8);
    EXPECT_EQ(observed, 3);
    EXPECT_EQ(keysOfTheObserver, (std::vector<qint64>{7, 9, 10}));
    connection_.Observe({});
    EXPECT_EQ(addVisit("Cara"), 11);
    EXPECT_EQ(connection_.LastIdentity(), 11);
}

TEST_P(DatabaseContract, AnObserverThatThrowsFailsNoWriteAndMissesNoOther) {
    const QtMessageHandler silent = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    int observed = 0;
    connection_.Observe([&](const Write&) {
        ++observed;
        throw std::runtime_error("the observer has a fault");
    });
    EXPECT_NO_THROW(addVisit("Ann"));
    EXPECT_NO_THROW(db::InTransaction(connection_, [&] {
        addVisit("Bob");
        addVisit("Cara");
    }));
    qInstallMessageHandler(silent);
    EXPECT_EQ(observed, 3);
    EXPECT_EQ(count(), 3);
}

TEST_P(DatabaseContract, AnObserverMayEndItselfInItsOwnCall) {
    int observed = 0;
    connection_.Observe([&](const Write&) {
        ++observed;
        connection_.Observe({});
    });
    db::InTransaction(connection_, [&] {
        addVisit("Ann");
        addVisit("Bob");
    });
    addVisit("Cara");
    EXPECT_EQ(observed, 1);
    EXPECT_EQ(count(), 3);
}

TEST_P(DatabaseContract, WhatAnObserverWritesCostsOneTrip) {
    qint64 trips = 0;
    connection_.Observe([&](const Write&) {
        const qint64 before = db::Connection::Trips();
        connection_.Execute("Update Visits Set nStartTime = 1");
        trips = db::Connection::Trips() - before;
    });
    addVisit("Ann");
    EXPECT_EQ(trips, 1);
}

TEST_P(DatabaseContract, WithoutAnObserverOfTheRowsAWriteCostsOneTrip) {
    const auto tripsOf = [&](const std::function<void()>& step) {
        const qint64 before = db::Connection::Trips();
        step();
        return db::Connection::Trips() - before;
    };
    addVisit("Ann");
    const auto update = [&] { connection_.Execute("Update Visits Set nStartTime = nStartTime + 1"); };
    EXPECT_EQ(tripsOf(update), 1);
    connection_.Observe({});
    EXPECT_EQ(tripsOf(update), 1);
    EXPECT_EQ(tripsOf([&] { connection_.InsertRows("Visits", {"cappttext"}, {{"Bob"}}); }), 1);
    observeRows();
    update();
    EXPECT_EQ(tripsOf(update), 5);
    connection_.BeginTrans();
    EXPECT_EQ(tripsOf(update), 3);
    connection_.CommitTrans();
    connection_.Observe({});
    EXPECT_EQ(tripsOf(update), 1);
}
