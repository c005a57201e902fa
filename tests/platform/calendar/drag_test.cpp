#include "platform/calendar/drag.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

const QDate Monday(2026, 3, 9);

CalendarContent Week() {
    CalendarContent content;
    content.date = Monday;
    for (int i = 0; i < 5; ++i)
        content.columns.push_back({{}, Monday.addDays(i)});
    content.timeInterval = 15;
    return content;
}

ItemPlace Place(int column, int start, int end) {
    return {column, Monday.addDays(column - 1), start, end};
}

}  // namespace

TEST(Drag, AMoveKeepsTheLengthAndSnapsTheStart) {
    Drag drag(Drag::Kind::Move, 1, Place(1, 540, 590), 560);
    drag.move(1, 627, Week());
    EXPECT_EQ(drag.place(), Place(1, 600, 650));
    EXPECT_TRUE(drag.changes());
}

TEST(Drag, ASmallMoveLeavesAnItemOffTheGridWhereItIs) {
    Drag drag(Drag::Kind::Move, 1, Place(1, 547, 600), 560);
    drag.move(1, 563, Week());
    EXPECT_FALSE(drag.changes());
    drag.move(2, 563, Week());
    EXPECT_EQ(drag.place(), Place(2, 547, 600));
    drag.move(1, 575, Week());
    EXPECT_EQ(drag.place(), Place(1, 555, 608));
}

TEST(Drag, AMoveAcrossColumnsTakesTheirDay) {
    Drag drag(Drag::Kind::Move, 1, Place(1, 540, 600), 540);
    drag.move(4, 540, Week());
    EXPECT_EQ(drag.place().day, Monday.addDays(3));
    drag.move(99, 540, Week());
    EXPECT_EQ(drag.place().column, 5);
    drag.move(-3, 540, Week());
    EXPECT_EQ(drag.place().column, 1);
}

TEST(Drag, AMoveStaysInsideTheDay) {
    Drag drag(Drag::Kind::Move, 1, Place(1, 60, 120), 60);
    drag.move(1, -500, Week());
    EXPECT_EQ(drag.place(), Place(1, 0, 60));
    drag.move(1, 5000, Week());
    EXPECT_EQ(drag.place(), Place(1, 1380, 1440));
}

TEST(Drag, ResizingSnapsTheEdgeAndLeavesAnInterval) {
    Drag bottom(Drag::Kind::ResizeBottom, 1, Place(1, 540, 600), 600);
    bottom.move(3, 622, Week());
    EXPECT_EQ(bottom.place(), Place(1, 540, 615));
    bottom.move(1, 100, Week());
    EXPECT_EQ(bottom.place(), Place(1, 540, 555));
    Drag top(Drag::Kind::ResizeTop, 1, Place(1, 540, 600), 540);
    top.move(1, 517, Week());
    EXPECT_EQ(top.place(), Place(1, 510, 600));
    top.move(1, 900, Week());
    EXPECT_EQ(top.place(), Place(1, 585, 600));
}

TEST(Drag, AnItemShorterThanARowAtAnEndOfTheDayIsSizedToThatEnd) {
    for (const int end : {5, 10, 15}) {
        Drag top(Drag::Kind::ResizeTop, 1, Place(1, 2, end), 2);
        for (const int minute : {-20, 0, 9, 40}) {
            top.move(1, minute, Week());
            EXPECT_EQ(top.place(), Place(1, 0, end)) << minute;
        }
    }
    for (const int start : {1425, 1430, 1435}) {
        Drag bottom(Drag::Kind::ResizeBottom, 1, Place(1, start, 1438), 1438);
        for (const int minute : {1400, 1431, 1440, 1500}) {
            bottom.move(1, minute, Week());
            EXPECT_EQ(bottom.place(), Place(1, start, 1440)) << minute;
        }
    }
}

TEST(Drag, ItemsWithBadTimesCanBeMovedIntoTheDay) {
    Drag backwards(Drag::Kind::Move, 1, Place(1, 600, 540), 600);
    backwards.move(1, 660, Week());
    EXPECT_EQ(backwards.place(), Place(1, 660, 660));
    Drag outside(Drag::Kind::ResizeBottom, 1, Place(1, 1500, 1600), 1440);
    outside.move(1, 1400, Week());
    EXPECT_EQ(outside.place().end, 1440);
}

TEST(Drag, AnyNumberIsBroughtIntoTheDay) {
    const int least = std::numeric_limits<int>::min();
    const int most = std::numeric_limits<int>::max();
    for (const auto& [start, end] : {std::pair{least, most}, {most, least}, {least, least}, {most, most}}) {
        for (const Drag::Kind kind : {Drag::Kind::Move, Drag::Kind::ResizeTop, Drag::Kind::ResizeBottom}) {
            Drag drag(kind, 1, Place(1, start, end), 600);
            for (const int minute : {least, 600, most}) {
                drag.move(1, minute, Week());
                const int moved = kind == Drag::Kind::ResizeBottom ? drag.place().end : drag.place().start;
                EXPECT_GE(moved, 0);
                EXPECT_LE(moved, 1440);
            }
        }
    }
}

TEST(Drag, PuttingAnItemElsewhereChangesItsDayOrItsColumn) {
    CalendarContent content = Week();
    CalendarItem item;
    item.ItemDay = Monday;
    PutAt(item, Place(3, 600, 660), content);
    EXPECT_EQ(item.ItemDay, Monday.addDays(2));
    EXPECT_EQ(item.ItemColumn, -1);

    content.dayColumns = false;
    CalendarItem booked;
    booked.ItemColumn = 1;
    PutAt(booked, {2, Monday, 600, 660}, content);
    EXPECT_EQ(booked.ItemColumn, 2);
    EXPECT_FALSE(booked.ItemDay.isValid());
}

TEST(Drag, TheEndsOfTheDayAreMinutesLikeOthers) {
    Drag midnight(Drag::Kind::Move, 1, Place(1, 0, 60), 0);
    midnight.move(1, 0, Week());
    EXPECT_FALSE(midnight.changes());
    midnight.move(1, 15, Week());
    EXPECT_EQ(midnight.place(), Place(1, 15, 75));
    Drag point(Drag::Kind::Move, 1, Place(1, 0, 0), 0);
    point.move(1, 30, Week());
    EXPECT_EQ(point.place(), Place(1, 30, 30)) << "an item of no length keeps it";
    Drag last(Drag::Kind::Move, 1, Place(1, 1440, 1440), 1440);
    last.move(1, 1425, Week());
    EXPECT_EQ(last.place(), Place(1, 1425, 1425));
    Drag top(Drag::Kind::ResizeTop, 1, Place(1, 5, 10), 5);
    top.move(1, 0, Week());
    EXPECT_EQ(top.place(), Place(1, 0, 10)) << "shorter than an interval it begins with the day";
    Drag bottom(Drag::Kind::ResizeBottom, 1, Place(1, 1435, 1438), 1438);
    bottom.move(1, 1000, Week());
    EXPECT_EQ(bottom.place(), Place(1, 1435, 1440)) << "and ends with it";
    Drag beginning(Drag::Kind::ResizeBottom, 1, Place(1, 0, 60), 60);
    beginning.move(1, -100, Week());
    EXPECT_EQ(beginning.place(), Place(1, 0, 15));
}

TEST(Drag, HalfARowIsAMoveAndLessIsNone) {
    CalendarContent week = Week();
    week.timeInterval = 10;
    Drag drag(Drag::Kind::Move, 1, Place(1, 543, 600), 543);
    drag.move(1, 547, week);
    EXPECT_EQ(drag.place(), Place(1, 543, 600));
    drag.move(1, 548, week);
    EXPECT_EQ(drag.place(), Place(1, 550, 607));
    drag.move(1, 539, week);
    EXPECT_EQ(drag.place(), Place(1, 543, 600));
    drag.move(1, 538, week);
    EXPECT_EQ(drag.place(), Place(1, 540, 597));
}

TEST(Drag, APlaceIsReadAndPutBackUnchanged) {
    CalendarContent week = Week();
    CalendarItem item;
    item.ItemDay = Monday.addDays(2);
    item.ItemStart = 540;
    item.ItemEnd = 600;
    EXPECT_EQ(PlaceOf(item, week), Place(3, 540, 600));
    item.ItemDay = Monday.addDays(40);
    EXPECT_EQ(PlaceOf(item, week), (ItemPlace{0, Monday.addDays(40), 540, 600})) << "beside the columns it has its day";
    item.ItemDay = Monday.addDays(4);
    EXPECT_EQ(PlaceOf(item, week), Place(5, 540, 600)) << "in the last column";
    PutAt(item, Place(5, 600, 660), week);
    EXPECT_EQ(item.ItemDay, Monday.addDays(4));
    EXPECT_EQ(item.ItemStart, 600);
    EXPECT_EQ(item.ItemEnd, 660);
    EXPECT_EQ(item.ItemColumn, -1);
    item.ItemColumn = 5;
    PutAt(item, Place(1, 600, 660), week);
    EXPECT_EQ(item.ItemColumn, 1) << "an item with a column of its own gets the new one";
    EXPECT_EQ(item.ItemDay, Monday);
}
