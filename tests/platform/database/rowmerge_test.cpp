#include "platform/database/rowmerge.h"

#include <array>
#include <stdexcept>

#include "contract.h"

using db::Lock;
using db::Recordset;
using db::RowState;
using db::Value;

namespace {

/// A visit in two columns that count.
RowState visit(const Value& text, const Value& start) {
    return {{"cappttext", text}, {"nStartTime", start}};
}

QStringList columnsOf(const std::vector<RowState::ColumnValue>& values) {
    QStringList columns;
    for (const RowState::ColumnValue& each : values)
        columns << each.column;
    return columns;
}

QStringList clashOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const db::RowClash& clash) {
        return clash.columns;
    }
    return {"(no clash)"};
}

}  // namespace

TEST(RowState, IsEqualWithTheSameValuesInAnyOrderAndCaseOfTheColumns) {
    const RowState other{{"NSTARTTIME", 600}, {"cappttext", "Ann"}};
    EXPECT_EQ(visit("Ann", 600), other);
    EXPECT_EQ(other, visit("Ann", 600));
    EXPECT_NE(visit("Ann", 600), visit("Ann", 615));
    EXPECT_NE(visit("Ann", 600), visit("ann", 600));
    EXPECT_NE(visit("", 600), visit(nullptr, 600));
    EXPECT_NE(visit("Ann", 600), (RowState{{"cappttext", "Ann"}, {"nEndTime", 600}}));
}

TEST(RowState, WithOneColumnMoreIsAnother) {
    RowState more = visit("Ann", 600);
    more.Set("kept", nullptr);
    EXPECT_NE(visit("Ann", 600), more);
    EXPECT_NE(more, visit("Ann", 600));
}

TEST(RowState, OfARowThatNobodyReadIsNoRowsOwn) {
    EXPECT_NE(RowState(), visit(nullptr, nullptr));
    EXPECT_EQ(RowState(), RowState());
}

TEST(RowState, ColumnsStandOnceAndInTheOrderInWhichTheyCame) {
    RowState state = visit("Ann", 600);
    state.Set("CApptText", "Bob");
    state.Set("kept", true);
    EXPECT_EQ(columnsOf(state.Values()), (QStringList{"cappttext", "nStartTime", "kept"}));
    ASSERT_TRUE(state.Find("cappttext"));
    EXPECT_EQ(*state.Find("cappttext"), Value("Bob"));
    EXPECT_FALSE(state.Find("fee"));
}

TEST(RowMerge, WhatTheUserLeftAloneIsNoChangeWhateverTheRowHolds) {
    const db::RowMerge merge = Merge(visit("Ann", 600), visit("Ann", 615), visit("Theirs", 600));
    EXPECT_EQ(columnsOf(merge.changes), QStringList{"nStartTime"});
    EXPECT_EQ(merge.changes.front().value, Value(615));
    EXPECT_EQ(merge.clashes, QStringList());
}

TEST(RowMerge, TheSameChangeAtBothDesksIsNoClash) {
    const db::RowMerge merge = Merge(visit("Ann", 600), visit("Bob", 600), visit("Bob", 600));
    EXPECT_EQ(columnsOf(merge.changes), QStringList{"cappttext"});
    EXPECT_EQ(merge.clashes, QStringList());
}

TEST(RowMerge, EachColumnThatBothChangedDifferentlyIsNamed) {
    const db::RowMerge merge = Merge(visit("Ann", 600), visit("Mine", 615), visit("Theirs", 630));
    EXPECT_EQ(merge.clashes, (QStringList{"cappttext", "nStartTime"}));
    EXPECT_EQ(Merge(visit("Ann", 600), visit("Mine", 615), visit("Theirs", 615)).clashes, QStringList{"cappttext"});
}

TEST(RowMerge, AValueThatAnotherDeskEmptiedClashesWithAnother) {
    EXPECT_EQ(Merge(visit("Ann", 600), visit("Bob", 600), visit(nullptr, 600)).clashes, QStringList{"cappttext"});
    EXPECT_EQ(Merge(visit(nullptr, 600), visit("Bob", 600), visit("", 600)).clashes, QStringList{"cappttext"});
}

TEST(RowMerge, StatesOfOtherColumnsAreAMistakeOfTheProgram) {
    RowState more = visit("Ann", 600);
    more.Set("kept", true);
    const RowState other{{"cappttext", "Ann"}, {"nEndTime", 600}};
    const RowState same = visit("Ann", 600);
    EXPECT_THROW(static_cast<void>(Merge(more, same, same)), std::logic_error);
    EXPECT_THROW(static_cast<void>(Merge(same, same, more)), std::logic_error);
    EXPECT_THROW(static_cast<void>(Merge(other, same, same)), std::logic_error);
    EXPECT_THROW(static_cast<void>(Merge(same, same, other)), std::logic_error);
}

TEST(RowMerge, ARowThatIsWrittenWholeMustStandAsItWasRead) {
    EXPECT_NO_THROW(RequireUnchanged(visit("Ann", 600), visit("Ann", 600)));
    EXPECT_EQ(clashOf([] { RequireUnchanged(visit("Ann", 600), visit("Ann", 615)); }), QStringList{"nStartTime"});
    EXPECT_EQ(clashOf([] { RequireUnchanged(RowState(), visit("Ann", 600)); }),
              (QStringList{"cappttext", "nStartTime"}));
}

TEST(RowMerge, AClashReadsAsARowThatAnotherDeskChanged) {
    const db::RowClash clash({"cappttext"});
    EXPECT_EQ(clash.number, db::RowChanged);
    EXPECT_EQ(clash.description, db::RowChangedError().description);
}

TEST_P(DatabaseContract, TheStateOfARowHasTheTypesOfItsColumns) {
    Recordset row("Select * from Visits Where 0=1", connection_, Lock::Optimistic);
    row.AddNew();
    row.Set("cappttext", "Zoë");
    row.Set("dapptdate", QDate(2026, 3, 11));
    row.Set("nStartTime", 600);
    row.Update();
    static constexpr std::array columns{"CAPPTTEXT", "dapptdate", "nStartTime", "notes"};
    EXPECT_EQ(
        RowState(row, columns),
        (RowState{{"cappttext", "Zoë"}, {"dapptdate", QDate(2026, 3, 11)}, {"nStartTime", 600}, {"notes", nullptr}}));
    EXPECT_EQ(RowState(Recordset("Select * from Visits", connection_), columns), RowState(row, columns));
    static constexpr std::array unknown{"nowhere"};
    EXPECT_EQ(FailureOf([&] { RowState(row, unknown); }).number, 3265);
    row.MoveNext();
    EXPECT_EQ(FailureOf([&] { RowState(row, columns); }).number, 3021);
}

TEST_P(DatabaseContract, TwoDesksThatChangeDifferentColumnsOfARowKeepBothChanges) {
    static constexpr std::array columns{"cappttext", "nStartTime"};
    const int key = addVisit("Ann", 600);
    const RowState before(Recordset("Select * from Visits", connection_), columns);
    connection_.Execute("Update Visits Set nStartTime = 630");

    Recordset row("Select * from Visits", connection_, Lock::Optimistic);
    SetChanges(row, before, visit("Mine", 600), RowState(row, columns));
    row.Update();

    EXPECT_EQ(textOf(key), "Mine");
    EXPECT_EQ(count("nStartTime = 630"), 1);
}

TEST_P(DatabaseContract, WhereBothDesksChangedAColumnNothingOfTheRowIsSet) {
    static constexpr std::array columns{"cappttext", "nStartTime"};
    const int key = addVisit("Ann", 600);
    const RowState before(Recordset("Select * from Visits", connection_), columns);
    connection_.Execute("Update Visits Set nStartTime = 630");

    Recordset row("Select * from Visits", connection_, Lock::Optimistic);
    EXPECT_EQ(clashOf([&] { SetChanges(row, before, visit("Mine", 615), RowState(row, columns)); }),
              QStringList{"nStartTime"});
    EXPECT_EQ(row["cappttext"].text(), "Ann");
    row.Update();
    EXPECT_EQ(textOf(key), "Ann");
    EXPECT_EQ(count("nStartTime = 630"), 1);
}
