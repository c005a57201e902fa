#include <gtest/gtest.h>

#include <utility>

#include "tests/platform/calendar/calendarunderhand.h"

namespace {

constexpr Qt::KeyboardModifiers Control = Qt::ControlModifier;

/// How long the selected time is.
class RangeLength : public testing::Test {
  protected:
    void drawWithShift(int from, int to) {
        hand.press(fine(from), Qt::LeftButton, Qt::ShiftModifier);
        moveWithShift(fine(to));
        QTest::mouseRelease(&hand.calendar, Qt::LeftButton, Qt::ShiftModifier, fine(to));
        hand.settle();
    }
    void moveWithShift(QPoint at) {
        QMouseEvent event(QEvent::MouseMove, at, hand.calendar.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                          Qt::ShiftModifier);
        QCoreApplication::sendEvent(&hand.calendar, &event);
    }
    /// A pixel within the five minutes that begin at this minute.
    [[nodiscard]] QPoint fine(int minute) const {
        const QRect row = hand.calendar.CellRect(1, minute / 15 * 15);
        return {row.right() - 2, row.top() + (minute % 15 * hand.rowHeight() + hand.rowHeight() / 6) / 15 + 1};
    }
    [[nodiscard]] std::pair<int, int> selected() const { return {hand.calendar.SelStart(), hand.calendar.SelEnd()}; }

    using Times = std::pair<int, int>;
    CalendarUnderHand hand;
};

}  // namespace

TEST_F(RangeLength, ControlAndAnArrowLengthenAndShortenTheSelectionByRowsOfTheGrid) {
    hand.click(hand.freeAt(540));
    hand.key(Qt::Key_Down, Control);
    EXPECT_EQ(selected(), Times(540, 570));
    hand.key(Qt::Key_Down, Control);
    EXPECT_EQ(selected(), Times(540, 585));
    hand.key(Qt::Key_Up, Control);
    EXPECT_EQ(selected(), Times(540, 570));
    hand.key(Qt::Key_Up, Control);
    hand.key(Qt::Key_Up, Control);
    EXPECT_EQ(selected(), Times(540, 555)) << "one row is left";
    hand.calendar.setTimeInterval(30);
    hand.key(Qt::Key_Down, Control);
    EXPECT_EQ(selected(), Times(540, 570)) << "to the next line of the grid";
}

TEST_F(RangeLength, TheSelectionEndsWithTheGridAtTheLatest) {
    hand.click(hand.freeAt(1050));
    for (int i = 0; i < 5; ++i)
        hand.key(Qt::Key_Down, Control);
    EXPECT_EQ(selected(), Times(1050, 1080));
}

TEST_F(RangeLength, EachStepIsToldAndTheEndStaysInSight) {
    hand.calendar.resize(600, 300);
    hand.click(hand.freeAt(hand.calendar.TopTime() + 15));
    QSignalSpy told(&hand.calendar, &ctMDay::RangeSelected);
    for (int i = 0; i < 30; ++i)
        hand.key(Qt::Key_Down, Control);
    EXPECT_EQ(told.count(), 30);
    EXPECT_FALSE(hand.calendar.CellRect(1, hand.calendar.SelEnd() - 15).isEmpty());
    EXPECT_LE(hand.calendar.CellRect(1, hand.calendar.SelEnd() - 15).bottom(), hand.calendar.height());
    EXPECT_GT(hand.calendar.TopTime(), 480);
}

TEST_F(RangeLength, WithAnItemSelectedTheKeysMoveTheItemAsBefore) {
    const int item = hand.add(540, 570);
    hand.click(hand.middleOf(item));
    hand.key(Qt::Key_Down, Control);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 555);
    EXPECT_LT(hand.calendar.SelectedRange(), 0);
}

TEST_F(RangeLength, DrawingWithShiftDrawsInFiveMinutes) {
    drawWithShift(545, 580);
    EXPECT_EQ(selected(), Times(545, 585));
    drawWithShift(700, 670);
    EXPECT_EQ(selected(), Times(670, 705)) << "upwards, and not from what was selected";
    hand.drag(hand.freeAt(540), hand.freeAt(600));
    EXPECT_EQ(selected(), Times(540, 615)) << "without Shift the rows count again";
}

TEST_F(RangeLength, ShiftMayBePressedAndReleasedWhileTheSelectionIsDrawn) {
    hand.press(fine(550));
    hand.moveTo(fine(590));
    EXPECT_EQ(selected(), Times(540, 600));
    moveWithShift(fine(590));
    EXPECT_EQ(selected(), Times(550, 595));
    hand.moveTo(fine(590));
    EXPECT_EQ(selected(), Times(540, 600));
    hand.release(fine(590));
}

TEST_F(RangeLength, AClickSaysWhenSomethingBeginsAndADrawnTimeAlsoHowLongItLasts) {
    EXPECT_FALSE(hand.calendar.SelIsOneCell()) << "nothing is selected";
    hand.click(hand.freeAt(540));
    EXPECT_TRUE(hand.calendar.SelIsOneCell());
    hand.key(Qt::Key_Down);
    EXPECT_TRUE(hand.calendar.SelIsOneCell());
    hand.key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_FALSE(hand.calendar.SelIsOneCell());
    hand.key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_TRUE(hand.calendar.SelIsOneCell());
    hand.key(Qt::Key_Down, Control);
    hand.key(Qt::Key_Up, Control);
    EXPECT_FALSE(hand.calendar.SelIsOneCell()) << "one row, but chosen as such";
    hand.drag(hand.freeAt(540), hand.freeAt(600));
    EXPECT_FALSE(hand.calendar.SelIsOneCell());
    hand.calendar.selectRange(1, 600, 615);
    EXPECT_FALSE(hand.calendar.SelIsOneCell());
}

TEST_F(RangeLength, AChosenRowStaysWhatItIsInAnotherColumnAndUnderADoubleClick) {
    hand.calendar.setDayColumns(2);
    hand.click(hand.freeAt(540));
    hand.calendar.selectRange(2, 540, 555);
    EXPECT_TRUE(hand.calendar.SelIsOneCell());
    hand.key(Qt::Key_Down, Control);
    hand.key(Qt::Key_Up, Control);
    hand.calendar.selectRange(1, 540, 555);
    EXPECT_FALSE(hand.calendar.SelIsOneCell());
    hand.doubleClick(hand.freeAt(540));
    EXPECT_FALSE(hand.calendar.SelIsOneCell()) << "the double click means what was chosen before";
    hand.doubleClick(hand.freeAt(600));
    EXPECT_TRUE(hand.calendar.SelIsOneCell());
}
