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
    void fill(int rows = Rows) {
        db::Connection& connection = database.connection();
        connection.Execute("Delete from Rooms");
        std::vector<std::vector<db::Value>> numbers;
        for (int i = 0; i < rows; ++i)
            numbers.push_back({QString::number(i)});
        connection.InsertRows(QStringLiteral("Rooms"), {QStringLiteral("Room")}, numbers);
        filler.Fill(db::Recordset("Select Room from Rooms Order by RoomID", connection),
                    [this](const db::Recordset& row) { list.AddRow({row[0].text()}); });
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
