// Cancelled appointments stand aside, so that their time can be booked anew.

#include <gtest/gtest.h>

#include <random>

#include "platform/calendar/grid.h"
#include "tests/platform/calendar/calendarunderhand.h"
#include "tests/platform/calendar/words.h"

namespace {

class CancelledCards : public testing::Test {
  protected:
    int cancelled(int start, int end) {
        const int index = hand.add(start, end, QStringLiteral("Bert Cancelled"));
        hand.calendar.Item(index).ItemStatusMark = StatusMark::Cancelled;
        return index;
    }
    [[nodiscard]] int columnWidth() const { return hand.calendar.CellRect(1, 480).width(); }

    CalendarUnderHand hand;
};

}  // namespace

TEST_F(CancelledCards, LeaveAtLeastHalfOfTheColumnFreeBesideThem) {
    for (const int width : {160, 220, 400, 600, 1600}) {
        hand.calendar.resize(width, 800);
        hand.calendar.ClearItems();
        const QRect kept = hand.calendar.ItemRect(hand.add(540, 600));
        const QRect card = hand.calendar.ItemRect(cancelled(660, 720));
        EXPECT_LE(card.width(), kept.width() / 2 + 1) << width;
        EXPECT_GE(card.width(), kept.width() / 4) << width;
        EXPECT_EQ(card.right(), kept.right()) << "they stand at the right";
    }
}

TEST_F(CancelledCards, TheirTimeIsClickedAndDrawnInBesideThem) {
    const int index = cancelled(600, 660);
    QSignalSpy opened(&hand.calendar, &ctMDay::RangeActivated);
    const QRect row = hand.calendar.CellRect(1, 600);
    const QPoint beside(row.left() + 20, row.center().y());
    hand.click(beside);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0);
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    hand.drag(beside, beside + QPoint(0, 3 * hand.rowHeight()));
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    EXPECT_EQ(hand.calendar.SelEnd(), 660);
    hand.doubleClick(beside);
    EXPECT_EQ(opened.count(), 1);
    hand.click(hand.middleOf(index));
    EXPECT_EQ(hand.calendar.SelectedItem(), index) << "the card itself is there too";
    hand.click(beside);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0) << "also while it was the selected one";
}

TEST_F(CancelledCards, WhatIsBookedInTheirTimeStandsLeftOfThem) {
    const int index = cancelled(600, 660);
    const QRect alone = hand.calendar.ItemRect(index);
    const int booked = hand.add(600, 660, QStringLiteral("Clara"));
    const int before = hand.add(540, 600);
    EXPECT_EQ(hand.calendar.ItemRect(index), alone);
    EXPECT_LT(hand.calendar.ItemRect(booked).right(), alone.left());
    EXPECT_GE(hand.calendar.ItemRect(booked).right(), alone.left() - 4);
    EXPECT_EQ(hand.calendar.ItemRect(before).right(), alone.right()) << "the hour before has the whole width";
}

TEST_F(CancelledCards, TwoOfOneTimeShareTheStrip) {
    const QRect alone = hand.calendar.ItemRect(cancelled(600, 660));
    const int second = cancelled(630, 690);
    EXPECT_EQ(hand.calendar.ItemRect(1).left(), alone.left());
    EXPECT_EQ(hand.calendar.ItemRect(second).right(), alone.right());
    EXPECT_FALSE(hand.calendar.ItemRect(1).intersects(hand.calendar.ItemRect(second)));
}

TEST_F(CancelledCards, MissedAndTentativeOnesStayAsWideAsAnyOther) {
    const int kept = hand.add(540, 600);
    for (const StatusMark mark : {StatusMark::Missed, StatusMark::Tentative, StatusMark::Kept}) {
        const int index = hand.add(660, 720);
        hand.calendar.Item(index).ItemStatusMark = mark;
        EXPECT_EQ(hand.calendar.ItemRect(index).width(), hand.calendar.ItemRect(kept).width());
        hand.calendar.RemoveItem(index);
    }
}

TEST_F(CancelledCards, OnPaperTheyHaveTheRoomOfAnyOther) {
    cancelled(600, 660);
    hand.calendar.Item(1).ItemText = QStringLiteral("Wilhelmina Featherstonehaugh-O'Brien");
    WordDevice page(QSize(500, 900));
    QPainter painter(&page);
    hand.calendar.paint(painter, QRectF(0, 0, 500, 900), 1, 1, PrintStyle(QFont(), QFont()));
    painter.end();
    EXPECT_TRUE(TextsOf(page.words()).contains(QStringLiteral("Wilhelmina Featherstonehaugh-O'Brien")));
}

TEST_F(CancelledCards, OfARandomDayCoverNothingAndAreCoveredByNothing) {
    std::mt19937 random(20261122);
    const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    for (int day = 0; day < 60; ++day) {
        hand.calendar.ClearItems();
        hand.calendar.resize(200 + upTo(900), 800);
        for (int i = 0; i < 14; ++i) {
            const int start = 480 + upTo(36) * 15;
            if (upTo(3) == 0)
                cancelled(start, start + 15 + upTo(8) * 15);
            else
                hand.add(start, start + 15 + upTo(8) * 15);
        }
        for (int one = 1; one <= 14; ++one)
            for (int other = 1; other < one; ++other)
                ASSERT_FALSE(hand.calendar.ItemRect(one).intersects(hand.calendar.ItemRect(other)))
                    << day << ": " << one << " and " << other;
    }
}
