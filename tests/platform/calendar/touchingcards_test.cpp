// Cards that stand beside each other or follow each other: none touches its neighbour.

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"

namespace {

class TouchingCards : public CalendarLook {
  protected:
    [[nodiscard]] QColor edgeOf(int index) const {
        return CardColorsFor(std::as_const(hand.calendar).Item(index), style.base, style.ink).edge;
    }
    /// One letter for each stretch of one colour along the line: E an edge, C a card's fill, '.' the ground.
    [[nodiscard]] std::string along(const Picture& picture, int y, int from, int to) const {
        const CardColors card = CardColorsFor(CalendarItem(), style.base, style.ink);
        std::string seen;
        for (int x = from; x <= to; ++x) {
            const QColor colour = picture.at({x, y});
            const auto near = [&](const QColor& other) { return Picture::Distance(colour, other) <= 12; };
            const char letter = near(style.base) ? '.' : near(card.fill) ? 'C' : near(card.edge) ? 'E' : '\0';
            if (letter != '\0' && (seen.empty() || seen.back() != letter))
                seen += letter;
        }
        return seen;
    }
    /// The line a little above the lower end of the first row, where no text stands.
    [[nodiscard]] int lineAt(int minute) const { return hand.calendar.CellRect(1, minute).top() + 4; }
};

INSTANTIATE_TEST_SUITE_P(EachLook, TouchingCards, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(TouchingCards, SideBySideHaveGroundBetweenThem) {
    constexpr int Lanes = 4;
    for (int i = 0; i < Lanes; ++i)
        hand.add(540, 660, QString());
    const QRect row = hand.calendar.CellRect(1, 555);
    EXPECT_EQ(along(seen(), lineAt(630), row.left() + 1, row.right()), "EC.EC.EC.EC.");
    for (int i = 1; i < Lanes; ++i) {
        const QRect one = hand.calendar.ItemRect(i);
        const QRect next = hand.calendar.ItemRect(i + 1);
        EXPECT_EQ(next.left() - one.right(), 3) << "two pixels are free";
        const QRect between(one.right() + 1, one.top() + 10, 2, 30);
        EXPECT_EQ(seen().share(between, edgeOf(1), 40), 0) << "no edge between " << i;
    }
}

TEST_P(TouchingCards, FollowingEachOtherHaveALineBetweenThem) {
    const int first = hand.add(540, 600, QString());
    const int second = hand.add(600, 660, QString());
    const QRect above = hand.calendar.ItemRect(first);
    const QRect below = hand.calendar.ItemRect(second);
    EXPECT_EQ(above.left(), below.left());
    EXPECT_EQ(above.width(), below.width());
    EXPECT_EQ(below.top() - above.bottom(), 2) << "one pixel is free";
    const int x = above.center().x();
    const Picture picture = seen();
    EXPECT_TRUE(picture.shows({x, above.bottom() + 1, 20, 1}, style.hourLine, 6)) << "the hour's line is seen";
}

TEST_P(TouchingCards, LeaveTheRightEndOfTheColumnFree) {
    hand.add(540, 660);
    const QRect row = hand.calendar.CellRect(1, 600);
    const QRect card = hand.calendar.ItemRect(1);
    EXPECT_EQ(card.left(), row.left() + 1);
    EXPECT_GE(row.right() - card.right(), 3);
    EXPECT_EQ(seen().share({card.right() + 2, row.top() + 4, row.right() - card.right() - 3, 10}, style.base), 1);
}

TEST_P(TouchingCards, AWideOneBesideANarrowOneGivesItsLaneBackBelow) {
    hand.add(540, 720, QString());
    hand.add(540, 600, QString());
    hand.add(660, 720, QString());
    const QRect row = hand.calendar.CellRect(1, 555);
    const Picture picture = seen();
    EXPECT_EQ(along(picture, lineAt(585), row.left() + 1, row.right()), "EC.EC.");
    EXPECT_EQ(along(picture, lineAt(630), row.left() + 1, row.right()), "EC.");
    EXPECT_EQ(along(picture, lineAt(690), row.left() + 1, row.right()), "EC.EC.");
    EXPECT_EQ(hand.calendar.ItemRect(2).left(), hand.calendar.ItemRect(3).left());
}

TEST_P(TouchingCards, ThirtyAtATimeAreThirtyEdges) {
    for (int i = 0; i < 30; ++i)
        hand.add(540, 660, QString());
    const Picture picture = seen();
    int before = hand.calendar.CellRect(1, 540).left();
    for (int i = 1; i <= 30; ++i) {
        const QRect card = hand.calendar.ItemRect(i);
        EXPECT_GT(card.left(), before) << i;
        before = card.right();
        EXPECT_TRUE(picture.shows(card, edgeOf(i), 60)) << i;
    }
    EXPECT_LT(before, hand.calendar.CellRect(1, 540).right() - 2);
}

TEST_P(TouchingCards, ShortItemsAreDrawnAsLowAsTheyCanBeReadAndDoNotCoverEachOther) {
    hand.calendar.resize(600, 200);
    hand.calendar.setTimeInterval(60);
    for (int i = 0; i < 4; ++i)
        hand.add(540 + 5 * i, 545 + 5 * i, QString());
    hand.settle();
    for (int i = 1; i <= 4; ++i) {
        EXPECT_GE(hand.calendar.ItemRect(i).height(), style.minItemHeight - 1) << i;
        for (int other = 1; other < i; ++other)
            EXPECT_FALSE(hand.calendar.ItemRect(i).intersects(hand.calendar.ItemRect(other))) << i << " on " << other;
    }
}

TEST_P(TouchingCards, ACardThatGoesOnOutsideTheHoursIsCutStraight) {
    hand.add(400, 540, QString());
    hand.add(1020, 1200, QString());
    hand.add(600, 660, QString());
    const Picture picture = seen();
    const auto cornerIsRound = [&](QPoint corner) { return picture.shows({corner, QSize(1, 1)}, style.base, 40); };
    const QRect first = hand.calendar.ItemRect(1);
    const QRect last = hand.calendar.ItemRect(2);
    const QRect whole = hand.calendar.ItemRect(3);
    EXPECT_FALSE(cornerIsRound(first.topRight()));
    EXPECT_TRUE(cornerIsRound(first.bottomRight()));
    EXPECT_TRUE(cornerIsRound(last.topRight()));
    EXPECT_FALSE(cornerIsRound(last.bottomRight()));
    EXPECT_TRUE(cornerIsRound(whole.topRight()));
    EXPECT_TRUE(cornerIsRound(whole.bottomRight()));
}
