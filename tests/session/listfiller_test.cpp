#include "session/listfiller.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "platform/controls/ctlist.h"
#include "session/fillprogress.h"
#include "tests/support/testdatabase.h"

namespace {

class LongList : public testing::Test {
  protected:
    /// More than two pieces.
    static constexpr int Rows = 5000;

    LongList() {
        list.SetColumns({{QStringLiteral("Number")}});
        QObject::connect(&filler, &ListFiller::Progress, &filler,
                         [this](int loaded, int total) { progress << QStringLiteral("%1/%2").arg(loaded).arg(total); });
    }
    void makeRooms(int rows) {
        db::Connection& connection = database.connection();
        connection.Execute("Delete from Rooms");
        std::vector<std::vector<db::Value>> numbers;
        for (int i = 0; i < rows; ++i)
            numbers.push_back({QString::number(i)});
        connection.InsertRows(QStringLiteral("Rooms"), {QStringLiteral("Room")}, numbers);
    }
    db::Recordset read(int most) {
        reads << most;
        db::Recordset rows;
        rows.Open(QStringLiteral("Select Room from Rooms Order by RoomID"), database.connection(), db::Lock::ReadOnly,
                  most);
        return rows;
    }
    void fill(int rows = Rows) {
        makeRooms(rows);
        filler.Fill(read(0), [this](const db::Recordset& row) { list.AddRow({row[0].text()}, row[0].text()); });
    }
    /// The same, with the first rows read before all.
    void fillInTwoReads(int rows = Rows) {
        makeRooms(rows);
        filler.Fill([this](int most) { return read(most); },
                    [this](const db::Recordset& row) { list.AddRow({row[0].text()}, row[0].text()); },
                    [this](const db::DatabaseError& error) { failures << error.description; });
    }
    [[nodiscard]] QStringList cells() const {
        QStringList cells;
        for (int row = 0; row < list.RowCount(); ++row)
            cells << list.Cell(row, 1);
        return cells;
    }
    void finishFilling() const {
        while (filler.IsFilling())
            QApplication::processEvents();
    }
    /// Looks for a number, and keeps where it was found.
    void seek(int number) {
        filler.Seek([this, number](int row) { return list.Cell(row, 1).toInt() == number; },
                    [this](int row) { found << row; });
    }

    TestDatabase database;
    ctList list;
    ListFiller filler{list};
    FillProgress bar{filler};
    QStringList progress;
    QList<int> found;
    QList<int> reads;      ///< How many rows were to be read at most, read for read.
    QStringList failures;  ///< Of the second reading.
};

}  // namespace

TEST_F(LongList, IsFilledInPiecesBetweenTheEventsOfTheForm) {
    fill();
    EXPECT_TRUE(filler.IsFilling());
    EXPECT_EQ(list.RowCount(), filler.Loaded());
    EXPECT_LT(filler.Loaded(), Rows);
    EXPECT_EQ(filler.Total(), Rows);
    finishFilling();
    ASSERT_EQ(list.RowCount(), Rows);
    EXPECT_EQ(list.Cell(0, 1), QStringLiteral("0"));
    EXPECT_EQ(list.Cell(Rows - 1, 1), QStringLiteral("4999"));
    EXPECT_EQ(progress, (QStringList{"0/0", "2000/5000", "4000/5000", "5000/5000"}));
}

TEST_F(LongList, AShortOneIsThereAtOnceAndSoIsAnEmptyOne) {
    fill(7);
    EXPECT_FALSE(filler.IsFilling());
    EXPECT_EQ(list.RowCount(), 7);
    fill(0);
    EXPECT_FALSE(filler.IsFilling());
    EXPECT_EQ(list.RowCount(), 0);
}

TEST_F(LongList, TheBarIsSeenOnlyWhileItFills) {
    EXPECT_TRUE(bar.isHidden());
    fill();
    EXPECT_FALSE(bar.isHidden());
    EXPECT_EQ(bar.value(), 40);
    finishFilling();
    EXPECT_TRUE(bar.isHidden());
    fill();
    filler.Clear();
    EXPECT_TRUE(bar.isHidden());
    EXPECT_EQ(list.RowCount(), 0);
}

TEST_F(LongList, FinishAddsTheRestAtOnce) {
    fill();
    filler.Finish();
    EXPECT_EQ(list.RowCount(), Rows);
    filler.Finish();
    EXPECT_EQ(list.RowCount(), Rows);
}

TEST_F(LongList, ARowThatIsThereIsFoundAtOnce) {
    fill();
    seek(3);
    EXPECT_EQ(found, QList<int>{3});
    finishFilling();
    EXPECT_EQ(found.size(), 1);
}

TEST_F(LongList, ARowThatIsStillToComeIsFoundWhenItIsThere) {
    fill();
    seek(3000);
    EXPECT_TRUE(found.isEmpty());
    finishFilling();
    EXPECT_EQ(found, QList<int>{3000});
}

TEST_F(LongList, ThatNoRowFitsIsKnownWhenAllAreThere) {
    fill();
    seek(-5);
    EXPECT_TRUE(found.isEmpty());
    finishFilling();
    EXPECT_EQ(found, QList<int>{-1});
}

TEST_F(LongList, OnlyTheLastSearchGoesOn) {
    fill();
    seek(3000);
    seek(4500);
    finishFilling();
    EXPECT_EQ(found, QList<int>{4500});
    found.clear();
    fill();
    seek(3000);
    filler.StopSeeking();
    finishFilling();
    EXPECT_TRUE(found.isEmpty());
}

TEST_F(LongList, AnotherListReplacesTheOneThatIsBeingFilled) {
    fill();
    seek(3000);
    fill(7);
    QApplication::processEvents();
    EXPECT_EQ(list.RowCount(), 7);
    EXPECT_TRUE(found.isEmpty());
}

TEST_F(LongList, ItsFirstRowsAreThereBeforeAllAreRead) {
    fillInTwoReads();
    EXPECT_EQ(reads, QList<int>{ListFiller::FirstRows});
    EXPECT_EQ(list.RowCount(), ListFiller::FirstRows);
    EXPECT_TRUE(filler.IsFilling());
    EXPECT_FALSE(bar.isHidden());
    EXPECT_EQ(bar.value(), 0);
    finishFilling();
    EXPECT_EQ(reads, (QList<int>{ListFiller::FirstRows, 0}));
    ASSERT_EQ(list.RowCount(), Rows);
    EXPECT_EQ(cells().at(ListFiller::FirstRows), QString::number(ListFiller::FirstRows));
    EXPECT_EQ(cells().removeDuplicates(), 0);
    EXPECT_TRUE(bar.isHidden());
}

TEST_F(LongList, AShortOneIsReadOnce) {
    fillInTwoReads(ListFiller::FirstRows - 1);
    EXPECT_FALSE(filler.IsFilling());
    EXPECT_EQ(list.RowCount(), ListFiller::FirstRows - 1);
    EXPECT_EQ(reads.size(), 1);
}

TEST_F(LongList, OneWithExactlyTheFirstRowsIsWhole) {
    fillInTwoReads(ListFiller::FirstRows);
    finishFilling();
    EXPECT_EQ(list.RowCount(), ListFiller::FirstRows);
    EXPECT_TRUE(bar.isHidden());
}

TEST_F(LongList, ASelectedRowStaysSelectedWhenTheRestIsRead) {
    fillInTwoReads();
    list.SelectRow(5);
    finishFilling();
    EXPECT_EQ(list.SelectedRow(), 5);
}

TEST_F(LongList, WhatAnotherDeskChangedBetweenTheReadsIsShownAsItIs) {
    fillInTwoReads();
    list.SelectRow(20);
    database.connection().Execute("Update Rooms Set Room = 'changed' Where Room = '7'");
    database.connection().Execute("Delete from Rooms Where Room = '9'");
    finishFilling();
    ASSERT_EQ(list.RowCount(), Rows - 1);
    EXPECT_EQ(list.Cell(7, 1), QStringLiteral("changed"));
    EXPECT_EQ(list.Cell(9, 1), QStringLiteral("10"));
    EXPECT_EQ(list.Cell(list.SelectedRow(), 1), QStringLiteral("20"));
}

TEST_F(LongList, OneThatBecameShorterThanItsFirstRowsIsShownSo) {
    fillInTwoReads();
    database.connection().Execute("Delete from Rooms Where Room <> '0'");
    finishFilling();
    EXPECT_EQ(cells(), QStringList{QStringLiteral("0")});
}

TEST_F(LongList, WhenTheRestCannotBeReadTheFirstRowsStayAndTheFailureIsTold) {
    fillInTwoReads();
    seek(3000);
    const QString why = DropTable(database.connection(), QStringLiteral("Rooms"));
    finishFilling();
    EXPECT_EQ(failures, QStringList{why});
    EXPECT_EQ(list.RowCount(), ListFiller::FirstRows);
    EXPECT_EQ(found, QList<int>{-1});
    EXPECT_TRUE(bar.isHidden());
}

TEST_F(LongList, FinishReadsTheRestToo) {
    fillInTwoReads();
    filler.Finish();
    EXPECT_EQ(list.RowCount(), Rows);
    EXPECT_FALSE(filler.IsFilling());
}

TEST_F(LongList, ARowAmongTheRestIsFoundWhenItIsThere) {
    fillInTwoReads();
    seek(3000);
    EXPECT_TRUE(found.isEmpty());
    finishFilling();
    EXPECT_EQ(found, QList<int>{3000});
}

TEST_F(LongList, AnotherListReplacesOneWhoseRestIsNotReadYet) {
    fillInTwoReads();
    fill(7);
    finishFilling();
    QApplication::processEvents();
    EXPECT_EQ(list.RowCount(), 7);
    EXPECT_TRUE(failures.isEmpty());
}
