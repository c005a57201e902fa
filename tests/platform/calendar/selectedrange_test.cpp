// How a selected range of time is shown.

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"
#include "tests/platform/calendar/words.h"

namespace {

class SelectedRange : public CalendarLook {
  protected:
    /// How much of the frame of the range, two pixels wide, has the colour: the least of the four sides, each without
    /// its corners.
    [[nodiscard]] static double framedBy(const Picture& picture, const QRect& range, const QColor& colour) {
        double least = 1;
        for (const QRect& side : SidesOf(range.adjusted(1, 0, 0, 0), 2)) {
            const QRect straight =
                side.width() > side.height() ? side.adjusted(2, 0, -2, 0) : side.adjusted(0, 2, 0, -2);
            least = std::min(least, picture.share(straight, colour, 20));
        }
        return least;
    }
    [[nodiscard]] QColor fill() const { return Mixed(style.base, style.accent, 0.20); }
    [[nodiscard]] QColor quietFill() const { return Mixed(style.base, style.dimInk, 0.14); }
};

INSTANTIATE_TEST_SUITE_P(EachLook, SelectedRange, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(SelectedRange, IsFilledAndFramedFromItsFirstMinuteToItsLast) {
    for (const auto& [start, end] : {std::pair{600, 660}, {720, 735}, {480, 540}, {1020, 1080}}) {
        hand.calendar.selectRange(1, start, end);
        const Picture picture = seen();
        for (int minute = 480; minute < 1080; minute += 15) {
            const bool inside = start <= minute && minute < end;
            EXPECT_EQ(picture.share(insideOf(minute), inside ? fill() : style.base), 1) << start << ": " << minute;
        }
        EXPECT_EQ(framedBy(picture, timeAt(start, end), style.accent), 1) << start;
        hand.calendar.clearSelection();
        EXPECT_EQ(seen().share(insideOf(start), style.base), 1);
    }
}

TEST_P(SelectedRange, IsQuietWhileTheKeyboardIsElsewhere) {
    hand.calendar.selectRange(1, 600, 660);
    hand.calendar.clearFocus();
    const Picture picture = seen();
    EXPECT_EQ(picture.share(insideOf(615), quietFill()), 1);
    EXPECT_FALSE(picture.shows(timeAt(600, 660), style.accent));
    const double frame = framedBy(picture, timeAt(600, 660), style.dimInk);
    EXPECT_GT(frame, 0.4);
    EXPECT_LT(frame, 0.6) << "the frame is thinner";
}

TEST_P(SelectedRange, StandsInItsColumnOnly) {
    hand.calendar.setDayColumns(3);
    for (const int column : {1, 3, 2}) {
        hand.calendar.selectRange(column, 600, 660);
        const Picture picture = seen();
        for (int other = 1; other <= 3; ++other) {
            EXPECT_EQ(picture.share(insideOf(615, other), other == column ? fill() : style.base), 1);
            // On a fine screen the line of the next column takes half a pixel of the frame.
            EXPECT_EQ(framedBy(picture, timeAt(600, 660, other), style.accent) > 0.7, other == column);
        }
    }
}

TEST_P(SelectedRange, LiesUnderTheItemsAndIsSeenBesideThem) {
    hand.add(585, 675);
    const QRect card = hand.calendar.ItemRect(1);
    hand.calendar.clearSelection();
    const Picture before = seen();
    hand.calendar.selectRange(1, 600, 660);
    const Picture picture = seen();
    EXPECT_TRUE(picture.isSame(before, card.adjusted(0, 2, -2, -2))) << "the card stays whole";
    const QRect beside(card.right() + 3, timeAt(600, 660).top() + 4, 3, 8);
    EXPECT_EQ(picture.share(beside, fill()), 1);
    EXPECT_TRUE(picture.shows({timeAt(600, 660).right() - 2, timeAt(600, 660).top() + 4, 3, 20}, style.accent));
}

TEST_P(SelectedRange, IsMarkedBesideTheHoursWhereNoItemCoversIt) {
    for (const auto& [start, end] : {std::pair{600, 660}, {720, 735}}) {
        hand.calendar.selectRange(1, start, end);
        const QRect time = timeAt(start, end);
        const QRect gutter(time.left() - 3, 0, 3, hand.calendar.height());
        const QRect marked = seen().bounds(gutter, style.accent, 30);
        EXPECT_NEAR(marked.top(), time.top(), 1) << start;
        EXPECT_NEAR(marked.bottom(), time.bottom(), 1) << start;
    }
    hand.calendar.clearSelection();
    const QRect line = timeAt(600, 660);
    EXPECT_FALSE(seen().shows({line.left() - 3, line.top(), 3, line.height()}, style.accent));
}

TEST_P(SelectedRange, AMouseDrawsItRowByRow) {
    hand.press(hand.freeAt(600));
    hand.moveTo(hand.freeAt(615));
    hand.moveTo(hand.freeAt(645));
    EXPECT_EQ(seen().share(insideOf(645), fill()), 1);
    EXPECT_EQ(framedBy(seen(), timeAt(600, 660), style.accent), 1);
    hand.moveTo(hand.freeAt(570));
    EXPECT_EQ(seen().share(insideOf(645), style.base), 1);
    EXPECT_EQ(framedBy(seen(), timeAt(570, 615), style.accent), 1);
    hand.release(hand.freeAt(570));
    EXPECT_EQ(framedBy(seen(), timeAt(570, 615), style.accent), 1);
}

TEST(SelectedRangeWords, SayItsTimesInTheClockOfTheDesk) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(2);
    for (int time = 0; time < 2; ++time) {
        hand.calendar.setTwentyFourHour(false);
        hand.calendar.selectRange(2, 690, 750);
        const QString twelve = QStringLiteral("11:30 AM – 12:30 PM");
        const Word word = WordWith(WordDevice::of(hand.calendar), twelve);
        ASSERT_EQ(word.text, twelve);
        EXPECT_TRUE(QRectF(hand.calendar.CellRect(2, 690)).intersects(word.place));
        EXPECT_GE(word.place.left(), hand.calendar.CellRect(2, 690).left() + 3);
        hand.calendar.setTwentyFourHour(true);
        EXPECT_TRUE(TextsOf(WordDevice::of(hand.calendar)).contains(QStringLiteral("11:30 – 12:30")));
        hand.calendar.selectRange(1, 780, 810);
        EXPECT_TRUE(TextsOf(WordDevice::of(hand.calendar)).contains(QStringLiteral("13:00 – 13:30")));
        EXPECT_FALSE(TextsOf(WordDevice::of(hand.calendar)).contains(QStringLiteral("11:30 – 12:30")));
        hand.calendar.clearSelection();
        EXPECT_FALSE(TextsOf(WordDevice::of(hand.calendar)).contains(QStringLiteral("13:00 – 13:30")));
    }
}

TEST(SelectedRangeWords, AreLeftOutWhereTheRangeIsTooLowForThem) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 200);
    hand.calendar.setTimeInterval(60);
    hand.calendar.selectRange(1, 540, 545);
    EXPECT_FALSE(TextsOf(WordDevice::of(hand.calendar)).contains(QStringLiteral("9:00 – 9:05 AM")));
    hand.calendar.selectRange(1, 540, 600);
    EXPECT_TRUE(TextsOf(WordDevice::of(hand.calendar)).contains(QStringLiteral("9:00 – 10:00 AM")));
}
