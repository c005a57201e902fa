// Where a cursor stands, and what it drops on its way.

#include "contract.h"

using db::Lock;
using db::Recordset;
using db::Value;

namespace {

constexpr int noCurrentRow = 3021;
constexpr int closed = 3704;

}  // namespace

TEST_P(DatabaseContract, NoMoreRowsAreReadThanAreWanted) {
    for (int i = 1; i <= 5; ++i)
        addVisit("visit", i);
    Recordset rows;
    rows.Open("Select nStartTime from Visits Order By nkeyid", connection_, Lock::ReadOnly, 2);
    EXPECT_EQ(rows.RecordCount(), 2);
    rows.MoveNext();
    EXPECT_EQ(rows[0].integer(), 2);
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    rows.Open("Select nStartTime from Visits", connection_, Lock::ReadOnly, 9);
    EXPECT_EQ(rows.RecordCount(), 5);
}

TEST_P(DatabaseContract, TheColumnsOfAResultHaveTheirNamesAndTypes) {
    const Recordset rows("Select dapptdate, nStartTime, cappttext, kept As done, fee from Visits Where 0=1",
                         connection_);
    QStringList names;
    std::vector<db::ColumnType> types;
    for (const db::Column& column : rows.Columns()) {
        names << column.name;
        types.push_back(column.type);
    }
    EXPECT_EQ(names, (QStringList{"dapptdate", "nStartTime", "cappttext", "done", "fee"}));
    if (GetParam() == EngineKind::OtherOdbc)
        return;  // It names the type of a column by what the row holds.
    using enum db::ColumnType;
    EXPECT_EQ(types, (std::vector{DateTime, Integer, Text, Boolean, Real}));
}

TEST_P(DatabaseContract, ANewRowThatWasNotSentIsDroppedByEveryMove) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    const auto begin = [&] {
        rows.AddNew();
        rows.Set("cappttext", "Bob");
        EXPECT_EQ(rows.RecordCount(), 2);
    };
    begin();
    rows.MoveFirst();
    EXPECT_EQ(rows.RecordCount(), 1);
    begin();
    rows.Find("cappttext = 'Bob'");
    EXPECT_TRUE(rows.Eof());
    rows.MoveFirst();
    begin();
    rows.AddNew();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_TRUE(rows["cappttext"].isNull()) << "a second new row in place of the first";
    rows.CancelUpdate();
    begin();
    EXPECT_EQ(rows.GetRows().size(), 1U);
    rows.MoveFirst();
    begin();
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, AChangeThatWasNotSentIsDroppedByASearchAndByTakingTheRows) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("cappttext", "Bob");
    rows.Find("nkeyid = 1");
    EXPECT_EQ(rows["cappttext"].text(), "Ann");
    rows.Set("cappttext", "Bob");
    EXPECT_EQ(rows.GetRows()[0][4 - 1], Value("Ann"));
    EXPECT_EQ(textOf(1), "Ann");
}

TEST_P(DatabaseContract, ADeletedRowIsPassedByWhateverMovesOn) {
    for (const char* name : {"Ann", "Bob", "Cara"})
        addVisit(name);
    Recordset rows("Select * from Visits Order By nkeyid", connection_, Lock::Optimistic);
    rows.Delete();
    rows.Find("cappttext = 'Bob'");
    EXPECT_EQ(rows["cappttext"].text(), "Bob");
    rows.Delete();
    EXPECT_EQ(rows.GetRows().size(), 1U);
    rows.MoveFirst();
    rows.Delete();
    EXPECT_FALSE(rows.Eof());
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_P(DatabaseContract, BehindADeletedRowANewOneIsAdded) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Delete();
    rows.AddNew();
    rows.Set("cappttext", "Bob");
    rows.Update();
    EXPECT_EQ(rows["cappttext"].text(), "Bob");
    EXPECT_EQ(count("cappttext = 'Bob'"), 1);
}

TEST_P(DatabaseContract, PastTheLastRowNothingCanBeWritten) {
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    EXPECT_EQ(FailureOf([&] { rows.Set("cappttext", "x"); }).number, noCurrentRow);
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, noCurrentRow);
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }).number, noCurrentRow);
    EXPECT_EQ(FailureOf([&] { rows.CancelUpdate(); }).number, 0);
}

TEST_P(DatabaseContract, AClosedCursorRefusesEveryWrite) {
    addVisit("Ann");
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Close();
    EXPECT_EQ(FailureOf([&] { rows.AddNew(); }).number, closed);
    EXPECT_EQ(FailureOf([&] { rows.Set("cappttext", "x"); }).number, closed);
    EXPECT_EQ(FailureOf([&] { rows.Update(); }).number, closed);
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }).number, closed);
    EXPECT_EQ(FailureOf([&] { rows.CancelUpdate(); }).number, closed);
    EXPECT_EQ(FailureOf([&] { rows.MoveNext(); }).number, closed);
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_TRUE(rows.Columns().empty());
}

TEST_P(DatabaseContract, AColumnThatIsNotThereCannotBeSet) {
    addVisit("Ann");
    Recordset rows("Select nkeyid, cappttext from Visits", connection_, Lock::Optimistic);
    EXPECT_EQ(FailureOf([&] { rows.Set("nStartTime", 1); }).number, 3265);
    EXPECT_EQ(FailureOf([&] { rows.Set(QStringLiteral("nobody"), 1); }).number, 3265);
    rows.Set(QStringLiteral("CAPPTTEXT"), "Bob");
    rows.Update();
    EXPECT_EQ(textOf(1), "Bob");
}

TEST_P(DatabaseContract, AValueThatGoesBackToWhatItWasIsNoChange) {
    addVisit("Ann", 600);
    writes_.clear();
    Recordset rows("Select * from Visits", connection_, Lock::Optimistic);
    rows.Set("nStartTime", 700);
    rows.Set("nStartTime", 600);
    rows.Update();
    EXPECT_TRUE(writes_.empty());
}

TEST_P(DatabaseContract, OnAClosedConnectionEverythingIsRefused) {
    db::Connection unopened;
    EXPECT_FALSE(unopened.IsOpen());
    EXPECT_EQ(FailureOf([&] { unopened.Execute("Delete From Visits"); }).number, 3709);
    EXPECT_EQ(FailureOf([&] { unopened.BeginTrans(); }).number, 3709);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(unopened.LastIdentity()); }).number, 3709);
    EXPECT_EQ(FailureOf([&] { Recordset("Select 1", unopened); }).number, 3709);
    EXPECT_EQ(FailureOf([&] { connection_.Open(connectionText()); }).number, 3705);
    EXPECT_TRUE(connection_.IsOpen());
    EXPECT_EQ(FailureOf([&] { unopened.Close(); }).number, 0);
}

TEST_P(DatabaseContract, TheLikePatternOfATextMatchesThatTextAlone) {
    if (GetParam() == EngineKind::OtherOdbc)
        GTEST_SKIP() << "Another engine has other patterns.";
    for (const char* text : {"50% off", "505 off", "a_b", "axb", "[new]", "n"})
        addVisit(text);
    for (const char* text : {"50% off", "a_b", "[new]"}) {
        const Recordset rows(
            db::Sql("Select cappttext from Visits Where cappttext Like '{}'", db::LikeText(QString::fromUtf8(text))),
            connection_);
        EXPECT_EQ(rows.RecordCount(), 1) << text;
        EXPECT_EQ(rows[0].text(), QString::fromUtf8(text));
    }
}
