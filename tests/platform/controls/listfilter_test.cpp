#include "platform/controls/listfilter.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "platform/controls/ctlist.h"

namespace {

const CountWords Rooms{QStringLiteral("room"), QStringLiteral("rooms")};

/// A list of rooms under its filter.
class FilteredList : public testing::Test {
  protected:
    FilteredList() { list.SetColumns({{QStringLiteral("Room")}}); }
    void fill(int rooms) {
        for (int room = 1; room <= rooms; ++room)
            list.AddRow({QStringLiteral("Room %1").arg(room)});
        filter.Refresh();
    }

    QWidget form;
    ctList list{&form};
    ListFilter filter{list, Rooms, &form};
};

}  // namespace

TEST(CountOfAList, IsInWords) {
    EXPECT_EQ(CountText(0, 0, Rooms), "No rooms");
    EXPECT_EQ(CountText(1, 1, Rooms), "1 room");
    EXPECT_EQ(CountText(12, 12, Rooms), "12 rooms");
    EXPECT_EQ(CountText(1, 12, Rooms), "1 of 12 rooms");
    EXPECT_EQ(CountText(0, 12, Rooms), "None of 12 rooms");
    EXPECT_EQ(CountText(12345, 12345, Rooms), "12,345 rooms");
}

TEST_F(FilteredList, ComesWithTheListThatIsLongerThanAPage) {
    fill(ListFilter::PageRows);
    EXPECT_FALSE(filter.isVisibleTo(&form));
    fill(1);
    EXPECT_TRUE(filter.isVisibleTo(&form));
}

TEST_F(FilteredList, ShowsWhatContainsTheTypedTextAndCountsIt) {
    fill(20);
    EXPECT_EQ(filter.lblcount->text(), "20 rooms");
    QTest::keyClicks(filter.txtfilter, QStringLiteral("m 2"));
    EXPECT_EQ(filter.lblcount->text(), "2 of 20 rooms");
    EXPECT_TRUE(list.IsRowShown(1));
    EXPECT_TRUE(list.IsRowShown(19));
    EXPECT_FALSE(list.IsRowShown(0));
    filter.ShowAll();
    EXPECT_EQ(filter.lblcount->text(), "20 rooms");
}

TEST_F(FilteredList, StaysWhileItHoldsATextHoweverShortTheListBecomes) {
    fill(20);
    filter.txtfilter->setText(QStringLiteral("x"));
    list.Clear();
    filter.Refresh();
    EXPECT_TRUE(filter.isVisibleTo(&form));
    EXPECT_EQ(filter.lblcount->text(), "No rooms");
}
