#include <algorithm>

#include "contract.h"

using db::Lock;
using db::Recordset;

namespace {

constexpr int rowNotLocated = -2147217864;
constexpr int cannotUpdate = 3251;

}  // namespace

TEST_P(DatabaseContract, ANewRowsKeyAndDefaultsAreReadableAfterUpdate) {
    addVisit("before");
    Recordset rows("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
    rows.AddNew();
    rows.Set("cappttext", "Ann");
    rows.Update();
    EXPECT_EQ(rows["nkeyid"].integer(), 2);
    EXPECT_EQ(rows["clinicianid"].text(), "D1");
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(textOf(2), "Ann");
}

TEST_P(DatabaseContract, SeveralRowsAreAddedThroughOneRecordset) {
    Recordset rows("Select * from VisitGuests Where 0=1", connection_, Lock::Optimistic);
    for (const char* guest : {"D1", "D2", "D3"}) {
        rows.AddNew();
        rows.Set("nkeyid", 7);
        rows.Set("clinicianid", guest);
        rows.Update();
    }
    EXPECT_EQ(rows.RecordCount(), 3);
    const Recordset read("Select Count(*) from VisitGuests", connection_);
    EXPECT_EQ(read[0].integer(), 3);
}

TEST_P(DatabaseContract, AChangeIsReadableBeforeItIsSent) {
    const int key = addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("cappttext", "Bob");
    EXPECT_EQ(rows["cappttext"].text(), "Bob");
    EXPECT_EQ(textOf(key), "Ann");
    rows.Update();
    EXPECT_EQ(textOf(key), "Bob");
}

TEST_P(DatabaseContract, UpdateSendsTheChangedColumnsAlone) {
    addVisit("Ann", 600);
    writes_.clear();
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("nStartTime", 600);
    rows.Set("cappttext", "Bob");
    rows.Update();
    ASSERT_EQ(writes_.size(), 1U);
    EXPECT_TRUE(writes_[0].statement.startsWith("Update [Visits] Set [cappttext] = ? Where [nkeyid] = ?"))
        << writes_[0].statement.toStdString();
}

TEST_P(DatabaseContract, UpdateWithoutAChangeSendsNothing) {
    addVisit("Ann", 600);
    writes_.clear();
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Update();
    rows.Set("cappttext", "Ann");
    rows.Set("nStartTime", 600);
    rows.Set("dapptdate", nullptr);
    rows.Update();
    EXPECT_TRUE(writes_.empty());
}

TEST_P(DatabaseContract, ARowIsUpdatedTwiceThroughOneRecordset) {
    const int key = addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    const QDateTime moment(QDate(2026, 3, 11), QTime(9, 30, 15, 123));
    rows.Set("dapptdate", moment);
    rows.Set("kept", true);
    rows.Set("fee", 0.1);
    rows.Set("notes", QString(300, 'n'));
    rows.Update();
    rows.Set("cappttext", "Bob");
    rows.Update();
    EXPECT_EQ(textOf(key), "Bob");
}

TEST_P(DatabaseContract, ARowReadWithEveryKindOfValueIsStillLocated) {
    Recordset add("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
    add.AddNew();
    add.Set("dapptdate", QDateTime(QDate(2026, 3, 11), QTime(9, 30, 15, 7)));
    add.Set("nStartTime", 600);
    add.Set("cappttext", "Zoë 🙂 O'Brien ");
    add.Set("notes", QString(5000, 'n'));
    add.Set("kept", false);
    add.Set("fee", 1.0 / 3);
    add.Update();
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("nStartTime", 615);
    rows.Update();
    EXPECT_EQ(count("nStartTime = 615"), 1);
}

TEST_P(DatabaseContract, ARowThatAnotherDeskChangedIsReportedAndNotOverwritten) {
    const int key = addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    connection_.Execute("Update Visits Set cappttext = 'Theirs'");
    rows.Set("nStartTime", 700);
    const auto error = FailureOf([&] { rows.Update(); });
    EXPECT_EQ(error.number, rowNotLocated);
    EXPECT_EQ(error.description,
              "Row cannot be located for updating. Some values may have been changed since it was last read.");
    EXPECT_EQ(textOf(key), "Theirs");
    EXPECT_EQ(count("nStartTime = 700"), 0);
}

TEST_P(DatabaseContract, AValueThatAnotherDeskFilledOrEmptiedIsReported) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    connection_.Execute("Update Visits Set kept = 1");
    rows.Set("cappttext", "Mine");
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, rowNotLocated);
    Recordset again("Select * from Visits", connection_, Lock::Optimistic);
    connection_.Execute("Update Visits Set kept = Null");
    again.Set("cappttext", "Mine");
    EXPECT_EQ(FailureOf([&] { again.Update(); }).number, rowNotLocated);
}

TEST_P(DatabaseContract, ARowThatAnotherDeskDeletedIsReported) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    Recordset toDelete("Select * from Visits", connection_, Lock::Optimistic);
    connection_.Execute("Delete from Visits");
    rows.Set("cappttext", "Mine");
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, rowNotLocated);
    EXPECT_EQ(FailureOf([&] { toDelete.Delete(); }).number, rowNotLocated);
    EXPECT_EQ(toDelete.RecordCount(), 1);
}

TEST_P(DatabaseContract, ARowThatAnotherDeskChangedIsNotDeleted) {
    const int key = addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    connection_.Execute("Update Visits Set nStartTime = 5");
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }).number, rowNotLocated);
    EXPECT_EQ(textOf(key), "Ann");
}

TEST_P(DatabaseContract, DeletingInALoopVisitsEveryRow) {
    for (int i = 1; i <= 4; ++i)
        addVisit(QStringLiteral("visit"), i);
    Recordset rows("Select * from Visits Order By nkeyid", connection_, Lock::Optimistic);
    for (; !rows.Eof(); rows.MoveNext()) {
        if (rows["nStartTime"].integer() != 3)
            rows.Delete();
    }
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(count("nStartTime = 3"), 1);
}

TEST_P(DatabaseContract, ADeletedRowIsNoCurrentRow) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Delete();
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(FailureOf([&] { static_cast<void>(rows["cappttext"]); }).number, 3021);
    EXPECT_EQ(FailureOf([&] { rows.Set("cappttext", "x"); }).number, 3021);
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }).number, 3021);
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
}

TEST_P(DatabaseContract, ACancelledChangeLeavesTheRowAsItWas) {
    const int key = addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("cappttext", "Bob");
    rows.Set("cappttext", "Cara");
    rows.CancelUpdate();
    EXPECT_EQ(rows["cappttext"].text(), "Ann");
    rows.Update();
    EXPECT_EQ(textOf(key), "Ann");
}

TEST_P(DatabaseContract, ACancelledNewRowIsGoneAndTheCursorBackWhereItWas) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.AddNew();
    rows.Set("cappttext", "Bob");
    EXPECT_EQ(rows["cappttext"].text(), "Bob");
    rows.CancelUpdate();
    EXPECT_EQ(rows["cappttext"].text(), "Ann");
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, AChangeThatWasNotSentIsDroppedWhenTheCursorMoves) {
    addVisit("Ann");
    addVisit("Bob");
    Recordset rows("Select * from Visits Order By nkeyid", connection_, Lock::Optimistic);
    rows.Set("cappttext", "Cara");
    rows.MoveNext();
    EXPECT_EQ(rows["cappttext"].text(), "Bob");
    rows.Update();
    rows.MoveFirst();
    EXPECT_EQ(rows["cappttext"].text(), "Ann");
}

TEST_P(DatabaseContract, ARefusedUpdateWritesNothingAndCanBeMended) {
    const int key = addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("clinicianid", nullptr);
    rows.Set("cappttext", "Bob");
    const auto error = FailureOf([&] { rows.Update(); });
    EXPECT_NE(error.number, 0);
    EXPECT_EQ(textOf(key), "Ann");
    rows.Set("clinicianid", "D2");
    rows.Update();
    EXPECT_EQ(textOf(key), "Bob");
    EXPECT_EQ(count("clinicianid = 'D2'"), 1);
}

TEST_P(DatabaseContract, WhatTheServerWouldRefuseIsRefusedWithItsNumber) {
    if (GetParam() == EngineKind::OtherOdbc)
        GTEST_SKIP() << "Another engine has other rules.";
    addVisit("Ann");
    const auto expectRefused = [&](const char* column, const db::Value& value, std::initializer_list<int> numbers) {
        Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
        rows.Set(column, value);
        const int number = FailureOf([&] { rows.Update(); }).number;
        EXPECT_NE(number, 0) << column;
        EXPECT_TRUE(!hasServerNumbers() || std::count(numbers.begin(), numbers.end(), number) == 1)
            << column << " " << number;
    };
    expectRefused("clinicianid", nullptr, {515});
    expectRefused("cappttext", QString(101, 'x'), {2628, 8152});
    expectRefused("dapptdate", "no date", {241});
    expectRefused("dapptdate", QDate(1026, 3, 11), {241, 242});
    expectRefused("nStartTime", "soon", {245});
    EXPECT_EQ(count("cappttext = 'Ann'"), 1);
}

TEST_P(DatabaseContract, ADuplicateKeyIsRefused) {
    Recordset rows("Select * from VisitGuests Where 0=1", connection_, Lock::Optimistic);
    const auto add = [&] {
        rows.AddNew();
        rows.Set("nkeyid", 7);
        rows.Set("clinicianid", "D1");
        rows.Update();
    };
    add();
    const auto error = FailureOf(add);
    EXPECT_NE(error.number, 0);
    if (hasServerNumbers()) {
        EXPECT_EQ(error.number, 2627);
    }
    rows.CancelUpdate();
    EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_P(DatabaseContract, TheKeyThatTheDatabaseGivesCannotBeSet) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    EXPECT_EQ(FailureOf([&] { rows.Set("nkeyid", 9); }).number, 8102);
}

TEST_P(DatabaseContract, AnEmptyNewRowIsRefused) {
    Recordset rows("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
    rows.AddNew();
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, -2147467259);
    EXPECT_EQ(count(), 0);
}

TEST_P(DatabaseContract, AReadOnlyRecordsetCannotBeWrittenTo) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_);
    const auto error = FailureOf([&] { rows.Set("cappttext", "Bob"); });
    EXPECT_EQ(error.number, cannotUpdate);
    EXPECT_EQ(
        error.description,
        "Current Recordset does not support updating. This may be a limitation of the provider, or of the selected locktype.");
    EXPECT_EQ(FailureOf([&] { rows.AddNew(); }).number, cannotUpdate);
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }).number, cannotUpdate);
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, cannotUpdate);
}

TEST_P(DatabaseContract, RowsOfAJoinOrAGroupCannotBeWrittenTo) {
    addVisit("Ann");
    for (const char* statement : {"Select * from Visits, VisitGuests", "Select Distinct cappttext from Visits",
                                  "Select cappttext, Count(*) As n from Visits Group By cappttext"}) {
        Recordset rows(statement, connection_, Lock::Optimistic);
        EXPECT_EQ(FailureOf([&] { rows.AddNew(); }).number, cannotUpdate) << statement;
    }
}

TEST_P(DatabaseContract, AComputedColumnCannotBeSet) {
    addVisit("Ann");
    Recordset rows("Select nkeyid, nStartTime + 1 As later from Visits", connection_, Lock::Optimistic);
    EXPECT_EQ(FailureOf([&] { rows.Set("later", 5); }).number, -2147217887);
}

TEST_P(DatabaseContract, ARowReadWithoutItsKeyCannotBeLocated) {
    addVisit("Ann");
    Recordset rows("Select cappttext from Visits", connection_, Lock::Optimistic);
    rows.Set("cappttext", "Bob");
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).description,
              "Insufficient key column information for updating or refreshing.");
    EXPECT_EQ(count("cappttext = 'Ann'"), 1);
}

TEST_P(DatabaseContract, ManyRowsAreAddedInTheirOrder) {
    std::vector<std::vector<db::Value>> rows;
    for (int i = 1; i <= 230; ++i)
        rows.push_back({i % 3 == 0 ? db::Value() : db::Value(QStringLiteral("Zoë %1").arg(i)), i,
                        i % 2 == 0 ? db::Value(QDate(2026, 3, 11)) : db::Value(), i == 200 ? 0.5 : 1.0});
    connection_.InsertRows("Visits", {"cappttext", "nStartTime", "dapptdate", "fee"}, rows);
    EXPECT_EQ(connection_.LastIdentity(), 230);
    EXPECT_EQ(count("nkeyid = nStartTime"), 230);
    int unnamed = 0;
    for (Recordset read("Select cappttext, dapptdate from Visits", connection_); !read.Eof(); read.MoveNext())
        unnamed += read["cappttext"].isNull() && read["dapptdate"].date() == QDate(2026, 3, 11) ? 1 : 0;
    EXPECT_EQ(unnamed, 38);
    EXPECT_EQ(count("fee = 0.5 And nkeyid = 200"), 1);
    EXPECT_EQ(textOf(229), "Zoë 229");
    if (GetParam() == EngineKind::Server) {
        EXPECT_LT(writes_.size(), 10U);
    }
    connection_.InsertRows("Visits", {"cappttext"}, {});
    EXPECT_EQ(count(), 230);
}

TEST_P(DatabaseContract, ExecuteTellsHowManyRowsItChanged) {
    addVisit("Ann");
    addVisit("Bob");
    EXPECT_EQ(connection_.Execute("Update Visits Set nStartTime = 1"), 2);
    EXPECT_EQ(connection_.Execute("Update Visits Set nStartTime = 1 Where 0=1"), 0);
    EXPECT_EQ(connection_.Execute("Delete from Visits"), 2);
}

TEST_P(DatabaseContract, EveryWriteIsToldWithItsTable) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("cappttext", "Bob");
    rows.Update();
    rows.AddNew();
    rows.Set("cappttext", "Cara");
    rows.Update();
    rows.Delete();
    connection_.Execute("Delete  from visits Where 0=1");
    ASSERT_EQ(writes_.size(), 5U);
    for (const db::Write& write : writes_)
        EXPECT_EQ(write.table.toLower(), "visits");
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(writes_[i].rows, 1) << i;
    EXPECT_EQ(writes_[4].rows, 0);
}

TEST_P(DatabaseContract, AFailedWriteIsNotTold) {
    Recordset rows("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
    rows.AddNew();
    rows.Set("clinicianid", nullptr);
    EXPECT_NE(FailureOf([&] { rows.Update(); }).number, 0);
    EXPECT_NE(FailureOf([&] { connection_.Execute("Update Nowhere Set a = 1"); }).number, 0);
    EXPECT_TRUE(writes_.empty());
}

TEST_P(DatabaseContract, ASecondStatementIsRefusedBeforeAnythingIsSent) {
    addVisit("Ann");
    EXPECT_EQ(FailureOf([&] { connection_.Execute("Delete from Visits; Delete from VisitGuests"); }).number, 102);
    EXPECT_EQ(FailureOf([&] { Recordset("Select 1; Delete from Visits", connection_); }).number, 102);
    EXPECT_EQ(FailureOf([&] { connection_.Execute("Delete from Visits Where cappttext = 'x"); }).number, 105);
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, ARowAddedWithTheTimeOfTheClockCanBeChangedAtOnceAndIsFoundByThatTime) {
    for (int milliseconds = 120; milliseconds < 130; ++milliseconds) {
        const QDateTime moment(QDate(2026, 11, 18), QTime(10, 15, 30, milliseconds));
        SCOPED_TRACE(milliseconds);
        Recordset rows("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
        rows.AddNew();
        rows.Set("dapptdate", moment);
        rows.Update();
        const QDateTime kept = rows["dapptdate"].dateTime();
        EXPECT_LE(qAbs(kept.msecsTo(moment)), 2);
        EXPECT_NO_THROW({
            rows.Set("cappttext", "Ann");
            rows.Update();
        });
        Recordset again("Select * from Visits Where cappttext = 'Ann'", connection_, Lock::Optimistic);
        ASSERT_EQ(again.RecordCount(), 1);
        EXPECT_EQ(again["dapptdate"].dateTime(), kept);
        EXPECT_EQ(connection_.Execute("Update Visits Set cappttext = 'Bob' Where dapptdate = ?", {moment}), 1);
        connection_.Execute("Delete from Visits");
    }
}
