// What is painted while an item is dragged: the card where it would be dropped, and the faded one where it is.

#include <QCoreApplication>

#include "platform/calendar/colour.h"
#include "platform/calendar/timescale.h"
#include "tests/platform/calendar/calendarlook.h"
#include "tests/platform/calendar/words.h"

namespace {

class DragGhost : public CalendarLook {
  protected:
    /// Presses the item and moves the pointer by so many rows, without letting go.
    void dragBy(int index, int rows) {
        from = hand.middleOf(index);
        hand.press(from);
        hand.moveTo(from + QPoint(0, 12));
        hand.moveTo(from + QPoint(0, rows * hand.rowHeight()));
    }
    [[nodiscard]] CardColors coloursOf(int index) const {
        return CardColorsFor(std::as_const(hand.calendar).Item(index), style.base, style.ink);
    }
    /// Whether a rim in the accent stands at the right end of that time, where cards end.
    [[nodiscard]] bool isGhostAt(const Picture& picture, int start, int end, int column = 1) const {
        const QRect time = timeAt(start, end, column);
        for (int x = time.right() - 20; x < time.right() - 1; ++x)
            if (picture.share({x, time.top() + 9, 1, time.height() - 18}, style.accent, 60) > 0.85)
                return true;
        return false;
    }

    QPoint from;
};

INSTANTIATE_TEST_SUITE_P(EachLook, DragGhost, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(DragGhost, StandsWhereTheItemWouldBeDroppedFramedByTheAccent) {
    hand.add(540, 600);
    const Picture before = seen();
    for (int time = 0; time < 2; ++time) {
        dragBy(1, 8);
        EXPECT_TRUE(isGhostAt(seen(), 660, 720));
        const QRect inside = insideOf(690);
        EXPECT_EQ(seen().share(inside, coloursOf(1).fill), 1) << "it has the card's own colour";
        hand.moveTo(from + QPoint(0, 12 * hand.rowHeight()));
        EXPECT_TRUE(isGhostAt(seen(), 720, 780));
        EXPECT_FALSE(isGhostAt(seen(), 660, 720)) << "it moves on";
        hand.key(Qt::Key_Escape);
        hand.release(from);
        hand.hover(hand.freeAt(1000));
        hand.calendar.clearSelection();
        EXPECT_EQ(before.changesTo(seen()), QRect()) << "Escape leaves no trace";
    }
}

TEST_P(DragGhost, TheItemItselfIsFadedUntilTheDragIsOver) {
    hand.add(540, 600);
    hand.add(780, 840);
    const QRect inside = insideOf(570);
    const CardColors colours = coloursOf(1);
    dragBy(1, 8);
    const QColor faded = Mixed(style.base, colours.fill, 0.4);
    EXPECT_GT(seen().share(inside, faded), 0.8);
    EXPECT_EQ(seen().share(insideOf(810), colours.fill), 1) << "the others are not";
    hand.release(from + QPoint(0, 8 * hand.rowHeight()));
    EXPECT_EQ(seen().share(inside, style.base), 1);
    EXPECT_EQ(seen().share(insideOf(690), colours.fill), 1) << "it has moved";
    EXPECT_EQ(seen().share(insideOf(810), colours.fill), 1);
}

TEST_P(DragGhost, IsFramedWhereTheDroppedCardIs) {
    hand.add(540, 600);
    const QRect place = timeAt(660, 720);
    const QRect corner(place.left(), place.bottom() - 20, 20, 24);
    dragBy(1, 8);
    const QRect ghost = seen().bounds(corner, style.accent);
    hand.release(from + QPoint(0, 8 * hand.rowHeight()));
    EXPECT_TRUE(ghost.isValid());
    EXPECT_EQ(seen().bounds(corner, style.accent), ghost);
}

TEST_P(DragGhost, GoesToTheColumnUnderThePointer) {
    hand.calendar.setDayColumns(3);
    hand.add(540, 600);
    const QPoint start = hand.middleOf(1);
    hand.press(start);
    for (const int column : {2, 3, 1, 2}) {
        const QPoint to(hand.calendar.CellRect(column, 540).center().x(), start.y() + 8 * hand.rowHeight());
        hand.moveTo(to);
        const Picture picture = seen();
        for (int other = 1; other <= 3; ++other)
            EXPECT_EQ(isGhostAt(picture, 660, 720, other), other == column) << column << " in " << other;
    }
}

TEST_P(DragGhost, StaysWhileTheViewAsksAndIsGoneAfterIt) {
    hand.add(540, 600);
    bool wasThere = false;
    bool cancels = true;
    QObject::connect(&hand.calendar, &ctMDay::BeforeDrop, &hand.calendar, [&](int, const ItemPlace&, bool* cancel) {
        wasThere = isGhostAt(Picture::of(hand.calendar, GetParam().ratio), 660, 720);
        *cancel = cancels;
    });
    dragBy(1, 8);
    hand.release(from + QPoint(0, 8 * hand.rowHeight()));
    EXPECT_TRUE(wasThere);
    EXPECT_FALSE(isGhostAt(seen(), 660, 720)) << "after a no";
    EXPECT_EQ(std::as_const(hand.calendar).Item(1).ItemStart, 540);
    cancels = wasThere = false;
    dragBy(1, 8);
    hand.release(from + QPoint(0, 8 * hand.rowHeight()));
    EXPECT_TRUE(wasThere);
    EXPECT_EQ(seen().share(insideOf(690), coloursOf(1).fill), 1) << "after a yes the item is there";
    EXPECT_EQ(seen().share(insideOf(570), style.base), 1);
}

TEST_P(DragGhost, IsShownForAMoveByKeysAsWell) {
    hand.add(540, 600);
    hand.calendar.setSelectedItem(1);
    bool wasThere = false;
    QObject::connect(&hand.calendar, &ctMDay::BeforeDrop, &hand.calendar,
                     [&] { wasThere = isGhostAt(Picture::of(hand.calendar, GetParam().ratio), 555, 615); });
    hand.key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_TRUE(wasThere);
    EXPECT_EQ(std::as_const(hand.calendar).Item(1).ItemStart, 555);
}

TEST_P(DragGhost, AResizedEdgeMovesAlone) {
    hand.add(540, 600);
    const QRect card = hand.calendar.ItemRect(1);
    const QPoint edge(card.center().x(), card.bottom());
    hand.press(edge);
    hand.moveTo(edge + QPoint(0, 4 * hand.rowHeight()));
    EXPECT_TRUE(isGhostAt(seen(), 540, 660));
    hand.moveTo(edge + QPoint(0, 2 * hand.rowHeight()));
    EXPECT_TRUE(isGhostAt(seen(), 540, 630));
    EXPECT_FALSE(seen().shows(insideOf(645), coloursOf(1).fill));
    hand.key(Qt::Key_Escape);
}

TEST_P(DragGhost, IsNeverLowerThanACardCanBe) {
    hand.calendar.resize(600, 200);
    hand.calendar.setTimeInterval(60);
    hand.add(540, 545);
    hand.settle();
    const QPoint start = hand.middleOf(1);
    hand.press(start);
    hand.moveTo(start + QPoint(0, 20));
    hand.moveTo({start.x(), hand.calendar.CellRect(1, 600).top() + (start.y() - hand.calendar.CellRect(1, 540).top())});
    const int top = hand.calendar.CellRect(1, 600).top() + 1;
    EXPECT_GT(seen().share({start.x(), top, 40, 1}, style.accent, 60), 0.9) << "its upper rim";
    EXPECT_GT(seen().share({start.x(), top + style.minItemHeight - 1, 40, 1}, style.accent, 60), 0.9) << "its lower";
}

TEST(DragWords, TheBubbleSaysTheTimesOfTheProposedPlace) {
    CalendarUnderHand hand;
    const int item = hand.add(690, 750);
    for (int time = 0; time < 2; ++time) {
        for (const bool wholeDay : {false, true}) {
            hand.calendar.setTwentyFourHour(wholeDay);
            const QPoint from = hand.middleOf(item);
            hand.press(from);
            hand.moveTo(from + QPoint(0, 12));
            hand.moveTo(from - QPoint(0, 2 * hand.rowHeight()));
            const std::vector<Word> words = WordDevice::of(hand.calendar);
            const QString proposed = wholeDay ? QStringLiteral("11:00 – 12:00") : QStringLiteral("11:00 AM – 12:00 PM");
            const QString old = wholeDay ? QStringLiteral("11:30 – 12:30") : QStringLiteral("11:30 AM – 12:30 PM");
            EXPECT_EQ(TextsOf(words).count(proposed), 2) << "the bubble and the ghost";
            EXPECT_EQ(TextsOf(words).count(old), 1) << "the faded card";
            hand.key(Qt::Key_Escape);
            hand.release(from);
            EXPECT_FALSE(TextsOf(WordDevice::of(hand.calendar)).contains(proposed));
        }
    }
}

TEST(DragWords, TheBubbleStandsAboveTheGhostAndAtTheTopWithinTheGrid) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    const auto bubbleAfter = [&](int rows) {
        const QPoint from = hand.middleOf(item);
        hand.press(from);
        hand.moveTo(from + QPoint(0, 12));
        hand.moveTo(from + QPoint(0, rows * hand.rowHeight()));
        const std::vector<Word> words = WordDevice::of(hand.calendar);
        hand.key(Qt::Key_Escape);
        hand.release(from);
        const int start = 540 + rows * 15;
        const QString text = ClockSpan(start, start + 60, false);
        QRectF bubble;
        for (const Word& word : words)
            if (word.text == text && word.colour == hand.calendar.palette().color(QPalette::Base))
                bubble = word.place;
        return bubble;
    };
    const QRectF below = bubbleAfter(8);
    EXPECT_LE(below.bottom(), hand.calendar.CellRect(1, 660).top() + 1);
    EXPECT_GE(below.bottom(), hand.calendar.CellRect(1, 660).top() - 10);
    EXPECT_GT(below.left(), 300) << "at the right end";
    const QRectF top = bubbleAfter(-4);
    EXPECT_GE(top.top(), hand.calendar.CellRect(1, 480).top());
}
