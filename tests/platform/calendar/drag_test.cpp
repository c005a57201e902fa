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
