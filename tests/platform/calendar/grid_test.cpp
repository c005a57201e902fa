// Where everything of a calendar stands: columns, rows, strips and cards in pixels.

#include "platform/calendar/grid.h"

#include <gtest/gtest.h>

#include <QPalette>

namespace {

const QDate Day(2026, 3, 11);

class GridFitting : public testing::Test {
  protected:
    GridFitting() : style(ScreenStyle(QPalette(), QFont(QStringLiteral("DejaVu Sans"), 9))) {
        wishes.area = QRect(0, 0, style.gutterWidth + 600, style.headingHeight + 1200);
        columns(1);
    }
    void columns(int count) {
        content.date = Day;
        content.columns.assign(static_cast<std::size_t>(count), {{}, Day});
    }
    [[nodiscard]] CalendarGrid fit() const { return FitGrid(content, layout, style, wishes); }

    CalendarContent content;
    CalendarLayout layout;
    CalendarStyle style;
    GridWishes wishes;
};

}  // namespace

TEST_F(GridFitting, TheBodyIsWhatGutterHeadingsAndStripsLeave) {
    EXPECT_EQ(fit().body(), QRect(style.gutterWidth, style.headingHeight, 600, 1200));
    EXPECT_EQ(fit().gutter(), QRect(0, style.headingHeight, style.gutterWidth, 1200));
    EXPECT_EQ(fit().headings(), QRect(style.gutterWidth, 0, 600, style.headingHeight));
    layout.hasEarlier = true;
    EXPECT_EQ(fit().body().top(), style.headingHeight + style.stripHeight);
    EXPECT_EQ(fit().body().bottom(), wishes.area.bottom());
    layout.bannerRows = 2;
    EXPECT_EQ(fit().body().top(), style.headingHeight + 3 * style.stripHeight);
    layout.hasLater = true;
    EXPECT_EQ(fit().body().bottom(), wishes.area.bottom() - style.stripHeight);
    EXPECT_EQ(fit().gutter().height(), fit().body().height());
}

TEST_F(GridFitting, AnAreaElsewhereMovesEverything) {
    layout.bannerRows = 1;
    layout.hasEarlier = layout.hasLater = true;
    columns(3);
    const CalendarGrid here = fit();
    wishes.area.translate(70, 40);
    const CalendarGrid there = fit();
    const QPoint by(70, 40);
    EXPECT_EQ(there.body(), here.body().translated(by));
    EXPECT_EQ(there.gutter(), here.gutter().translated(by));
    EXPECT_EQ(there.headings(), here.headings().translated(by));
    EXPECT_EQ(there.columnRect(2), here.columnRect(2).translated(by));
    EXPECT_EQ(there.headingRect(2), here.headingRect(2).translated(by));
    EXPECT_EQ(there.bannerRect(2, 0), here.bannerRect(2, 0).translated(by));
    EXPECT_EQ(there.earlierRect(2), here.earlierRect(2).translated(by));
    EXPECT_EQ(there.laterRect(2), here.laterRect(2).translated(by));
    EXPECT_EQ(there.timeRect(2, 500, 600), here.timeRect(2, 500, 600).translated(by));
    EXPECT_EQ(there.minuteAt(340), here.minuteAt(300));
    EXPECT_EQ(there.columnAt(370), here.columnAt(300));
}

TEST_F(GridFitting, AsManyColumnsAsFitShareTheWidth) {
    const int least = style.minColumnWidth;
    for (int count = 1; count <= 12; ++count) {
        columns(count);
        const int fitting = std::min(600 / least, count);
        EXPECT_DOUBLE_EQ(fit().columnWidth, 600.0 / fitting) << count;
        EXPECT_EQ(fit().contentWidth(), static_cast<int>(std::lround(600.0 / fitting * count))) << count;
    }
}

TEST_F(GridFitting, TheUsersColumnsShareTheWidthAsLongAsNamesCanBeRead) {
    columns(20);
    const int readable = 600 / (style.minColumnWidth / 2);
    for (const int wanted : {1, 3, 8, readable, readable + 1, 19}) {
        wishes.visibleColumns = wanted;
        EXPECT_DOUBLE_EQ(fit().columnWidth, 600.0 / std::min(wanted, readable)) << wanted;
    }
    columns(4);
    wishes.visibleColumns = 9;
    EXPECT_DOUBLE_EQ(fit().columnWidth, 150) << "no more than there are";
    columns(20);
    wishes.visibleColumns = 20;
    wishes.fitHeight = true;
    EXPECT_DOUBLE_EQ(fit().columnWidth, 30) << "paper cannot be scrolled";
    columns(0);
    EXPECT_DOUBLE_EQ(fit().columnWidth, 600);
}

TEST_F(GridFitting, ANarrowWindowStillHasAColumn) {
    for (const int width : {0, 1, 30, style.gutterWidth, style.gutterWidth + 1}) {
        wishes.area.setWidth(width);
        EXPECT_GE(fit().columnWidth, 4) << width;
        EXPECT_GE(fit().gap, 3) << width;
    }
}

TEST_F(GridFitting, RowsFillTheBodyAndAreNeverLowerThanTheStyleSays) {
    EXPECT_DOUBLE_EQ(fit().scale.pixelsPerMinute, 2.0) << "600 minutes in 1200 pixels";
    wishes.area.setHeight(100);
    EXPECT_DOUBLE_EQ(fit().scale.pixelsPerMinute, style.rowHeight(15) / 15.0);
    wishes.zoom = 2;
    EXPECT_DOUBLE_EQ(fit().scale.pixelsPerMinute, 2 * style.rowHeight(15) / 15.0);
    wishes.zoom = 0.01;
    EXPECT_DOUBLE_EQ(fit().scale.pixelsPerMinute, (100 - style.headingHeight) / 600.0) << "zoomed out it fills still";
    wishes.fitHeight = true;
    wishes.zoom = 4;
    EXPECT_DOUBLE_EQ(fit().scale.pixelsPerMinute, (100 - style.headingHeight) / 600.0);
    wishes.area.setHeight(1);
    EXPECT_GT(fit().scale.pixelsPerMinute, 0);
}

TEST_F(GridFitting, TheScaleIsTheContents) {
    content.firstTime = 390;
    content.lastTime = 1019;
    content.timeInterval = 30;
    EXPECT_EQ(fit().scale.first, 390);
    EXPECT_EQ(fit().scale.last, 1020);
    EXPECT_EQ(fit().scale.interval, 30);
    EXPECT_EQ(fit().contentHeight(), 1200);
}

TEST_F(GridFitting, TheFreeEndOfAColumnGrowsWithItButNotForever) {
    columns(1);
    EXPECT_EQ(fit().gap, style.margin * 4);
    columns(6);
    wishes.visibleColumns = 6;
    EXPECT_EQ(fit().gap, 7);
    wishes.area.setWidth(style.gutterWidth + 60);
    EXPECT_EQ(fit().gap, 4);
    wishes.visibleColumns = 0;
    columns(1);
    wishes.area.setWidth(style.gutterWidth + 30);
    EXPECT_EQ(fit().gap, 3);
}

TEST_F(GridFitting, ColumnsFollowEachOtherWithoutGapsWhateverTheWidth) {
    for (const int width : {600, 601, 599, 333, 1000}) {
        wishes.area.setWidth(style.gutterWidth + width);
        columns(7);
        wishes.visibleColumns = 7;
        const CalendarGrid grid = fit();
        EXPECT_EQ(grid.columnRect(1).left(), grid.body().left());
        for (int column = 1; column < 7; ++column) {
            EXPECT_EQ(grid.columnRect(column).right() + 1, grid.columnRect(column + 1).left()) << column;
            EXPECT_EQ(grid.headingRect(column).right() + 1, grid.headingRect(column + 1).left()) << column;
            for (const int x : {grid.columnRect(column).left(), grid.columnRect(column).right()})
                EXPECT_EQ(grid.columnAt(x), column) << "at " << x << " of " << width;
        }
    }
}

TEST_F(GridFitting, ScrollingMovesColumnsAndRowsButNeitherHeadingsDownNorHoursAcross) {
    columns(9);
    CalendarGrid grid = fit();
    const CalendarGrid before = grid;
    grid.scrollX = 37;
    grid.scrollY = 110;
    EXPECT_EQ(grid.body(), before.body());
    EXPECT_EQ(grid.gutter(), before.gutter());
    EXPECT_EQ(grid.columnRect(3), before.columnRect(3).translated(-37, 0));
    EXPECT_EQ(grid.headingRect(3), before.headingRect(3).translated(-37, 0));
    EXPECT_EQ(grid.bannerRect(3, 0), before.bannerRect(3, 0).translated(-37, 0));
    EXPECT_EQ(grid.laterRect(3), before.laterRect(3).translated(-37, 0));
    EXPECT_EQ(grid.timeRect(3, 600, 660), before.timeRect(3, 600, 660).translated(-37, -110));
    EXPECT_EQ(grid.minuteAt(grid.y(700)), 700);
}

TEST_F(GridFitting, ColumnsBesideTheGridAreTheNearestOnes) {
    columns(4);
    const CalendarGrid grid = fit();
    EXPECT_EQ(grid.columnAt(-500), 1);
    EXPECT_EQ(grid.columnAt(100'000), 4);
    EXPECT_EQ(grid.firstColumnIn(QRect(-50, 0, 10, 10)), 1);
    EXPECT_EQ(grid.lastColumnIn(QRect(0, 0, 100'000, 10)), 4);
    const QRect third = grid.columnRect(3);
    EXPECT_EQ(grid.firstColumnIn(third), 3);
    EXPECT_EQ(grid.lastColumnIn(third), 3);
    EXPECT_EQ(grid.firstColumnIn(third.adjusted(-1, 0, 0, 0)), 2);
    EXPECT_EQ(grid.lastColumnIn(third.adjusted(0, 0, 1, 0)), 4);
    columns(0);
    EXPECT_EQ(fit().columnAt(300), 0);
    EXPECT_EQ(fit().firstColumnIn(QRect(0, 0, 9, 9)), 1);
}

TEST_F(GridFitting, ACardHasItsLanesOfTheColumnWithoutItsFreeEnd) {
    const CalendarGrid grid = fit();
    PlacedItem item;
    item.start = 600;
    item.end = 660;
    const QRect alone = grid.itemRect(item);
    EXPECT_EQ(alone.left(), grid.body().left() + 1);
    EXPECT_EQ(alone.width(), 600 - grid.gap);
    EXPECT_EQ(alone.top(), grid.y(600) + 1);
    EXPECT_EQ(alone.bottom(), grid.y(660) - 1);
    item.lanes = 4;
    const double lane = (600 - grid.gap) / 4.0;
    const auto laneEnd = [&](int number) { return alone.left() + static_cast<int>(std::lround(number * lane)) - 1; };
    for (item.lane = 0; item.lane < 4; ++item.lane) {
        const QRect card = grid.itemRect(item);
        EXPECT_EQ(card.left(), alone.left() + static_cast<int>(std::lround(item.lane * lane))) << item.lane;
        EXPECT_EQ(card.right(), laneEnd(item.lane + 1) - (item.lane < 3 ? 2 : 0)) << item.lane;
    }
    item.lane = 1;
    item.span = 3;
    EXPECT_EQ(grid.itemRect(item).right(), alone.right()) << "wide to the last lane it has no neighbour";
    item.span = 2;
    EXPECT_EQ(grid.itemRect(item).right(), laneEnd(3) - 2);
}

TEST_F(GridFitting, ACardOfManyLanesIsASliverButNeverNothing) {
    columns(1);
    wishes.area.setWidth(style.gutterWidth + 40);
    const CalendarGrid grid = fit();
    PlacedItem item;
    item.start = item.end = 600;
    item.lanes = 500;
    for (item.lane = 0; item.lane < 500; item.lane += 99) {
        EXPECT_EQ(grid.itemRect(item).size(), QSize(1, 1)) << item.lane;
    }
}

TEST_F(GridFitting, StripsStandAboveAndBelowTheBody) {
    layout.hasEarlier = layout.hasLater = true;
    layout.bannerRows = 2;
    columns(2);
    const CalendarGrid grid = fit();
    EXPECT_EQ(grid.bannerRect(2, 0).top(), style.headingHeight);
    EXPECT_EQ(grid.bannerRect(2, 1).top(), style.headingHeight + style.stripHeight);
    EXPECT_EQ(grid.bannerRect(2, 1).height(), style.stripHeight - 1);
    EXPECT_EQ(grid.earlierRect(2).bottom() + 1, grid.body().top());
    EXPECT_EQ(grid.laterRect(2).top(), grid.body().bottom() + 1);
    for (const QRect& strip : {grid.bannerRect(2, 0), grid.earlierRect(2), grid.laterRect(2)}) {
        EXPECT_EQ(strip.left(), grid.columnRect(2).left() + 1);
        const bool banner = strip.top() < grid.earlierRect(2).top();
        EXPECT_EQ(strip.right(), grid.columnRect(2).right() + 1 - (banner ? grid.gap : 2));
    }
}

TEST(MinMinutes, AreWhatTheLeastCardNeedsAtThatScale) {
    CalendarStyle style;
    style.minItemHeight = 12;
    for (const auto& [scale, minutes] : {std::pair{1.0, 12}, {2.0, 6}, {0.5, 24}, {5.0, 3}, {100.0, 1}})
        EXPECT_EQ(MinMinutes({0, 1440, 15, scale}, style), minutes) << scale;
}
