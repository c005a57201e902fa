#include <gtest/gtest.h>

#include <QLineEdit>

#include "tests/platform/calendar/calendarunderhand.h"

TEST(CalendarKeyboard, TheFirstArrowSelectsTheFirstPrimeRowAndTheNextOnesMove) {
    CalendarUnderHand hand;
    hand.calendar.setPrimeStart(540);
    hand.key(Qt::Key_Down);
    EXPECT_EQ(hand.calendar.SelStart(), 540);
    hand.key(Qt::Key_Down);
    EXPECT_EQ(hand.calendar.SelStart(), 555);
    EXPECT_EQ(hand.calendar.SelEnd(), 570);
    hand.key(Qt::Key_Up);
    hand.key(Qt::Key_Up);
    EXPECT_EQ(hand.calendar.SelStart(), 525);
}

TEST(CalendarKeyboard, TheRowsEndAtTheGrid) {
    CalendarUnderHand hand;
    hand.key(Qt::Key_Home);
    hand.key(Qt::Key_Up);
    EXPECT_EQ(hand.calendar.SelStart(), 480);
    hand.key(Qt::Key_End);
    hand.key(Qt::Key_Down);
    EXPECT_EQ(hand.calendar.SelStart(), 1065);
    EXPECT_EQ(hand.calendar.SelEnd(), 1080);
}

TEST(CalendarKeyboard, ShiftAndArrowsExtendTheRangeAndTakeItBack) {
    CalendarUnderHand hand;
    hand.calendar.selectRange(1, 600, 615);
    hand.key(Qt::Key_Down, Qt::ShiftModifier);
    hand.key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    EXPECT_EQ(hand.calendar.SelEnd(), 645);
    for (int i = 0; i < 4; ++i)
        hand.key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelStart(), 570);
    EXPECT_EQ(hand.calendar.SelEnd(), 615);
    hand.key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelStart(), 585);
}

TEST(CalendarKeyboard, LeftAndRightChangeTheColumnAndStopAtTheLast) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(3);
    hand.calendar.selectRange(1, 600, 615);
    hand.key(Qt::Key_Right);
    hand.key(Qt::Key_Right);
    hand.key(Qt::Key_Right);
    EXPECT_EQ(hand.calendar.SelColumn(), 3);
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    hand.key(Qt::Key_Left);
    EXPECT_EQ(hand.calendar.SelectedRange(), 1);
}

TEST(CalendarKeyboard, PagesMoveByWhatIsShownAndScroll) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    hand.calendar.selectRange(1, 480, 495);
    hand.key(Qt::Key_PageDown);
    EXPECT_GT(hand.calendar.SelStart(), 540);
    const int start = hand.calendar.SelStart();
    EXPECT_FALSE(hand.calendar.CellRect(1, start).isEmpty());
    hand.key(Qt::Key_PageDown);
    EXPECT_GT(hand.calendar.TopTime(), 480);
    hand.key(Qt::Key_PageUp);
    EXPECT_EQ(hand.calendar.SelStart(), start);
}

TEST(CalendarKeyboard, TabGoesThroughTheItemsInTimeOrderAlsoThoseOutsideTheHours) {
    CalendarUnderHand hand;
    hand.add(1200, 1260, "late");
    hand.add(600, 660, "second");
    hand.add(540, 600, "first");
    std::vector<int> seen;
    for (int i = 0; i < 3; ++i) {
        hand.key(Qt::Key_Tab);
        seen.push_back(hand.calendar.SelectedItem());
    }
    EXPECT_EQ(seen, (std::vector<int>{3, 2, 1}));
    hand.key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelectedItem(), 2);
}

TEST(CalendarKeyboard, TabAfterTheLastItemLeavesTheCalendarAndControlTabLeavesAtOnce) {
    QWidget window;
    auto* calendar = new ctMDay(&window);
    auto* next = new QLineEdit(&window);
    calendar->resize(400, 400);
    calendar->setDate(QDate(2026, 3, 11));
    calendar->AddItem(540, 600, QDate(2026, 3, 11), "Anna", "1");
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    calendar->setFocus();
    QTest::keyClick(calendar, Qt::Key_Tab);
    EXPECT_EQ(calendar->SelectedItem(), 1);
    EXPECT_TRUE(calendar->hasFocus());
    QTest::keyClick(calendar, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    calendar->clearSelection();
    calendar->setFocus();
    QTest::keyClick(calendar, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(next->hasFocus());
    EXPECT_EQ(calendar->SelectedItem(), 0);
}

TEST(CalendarKeyboard, UpAndDownGoBetweenItemsAndEscapeGoesBackToTheRows) {
    CalendarUnderHand hand;
    hand.add(540, 600);
    hand.add(600, 660);
    hand.calendar.setSelectedItem(1);
    hand.key(Qt::Key_Down);
    EXPECT_EQ(hand.calendar.SelectedItem(), 2);
    hand.key(Qt::Key_Down);
    EXPECT_EQ(hand.calendar.SelectedItem(), 2);
    hand.key(Qt::Key_Up);
    EXPECT_EQ(hand.calendar.SelectedItem(), 1);
    hand.key(Qt::Key_Escape);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0);
    EXPECT_EQ(hand.calendar.SelStart(), 540);
}

TEST(CalendarKeyboard, EnterOpensTheItemOrTheRange) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy opened(&hand.calendar, &ctMDay::ItemActivated);
    QSignalSpy free(&hand.calendar, &ctMDay::RangeActivated);
    hand.key(Qt::Key_Return);
    EXPECT_EQ(opened.count() + free.count(), 0) << "nothing is selected";
    hand.calendar.setSelectedItem(item);
    hand.key(Qt::Key_Return);
    EXPECT_EQ(opened.count(), 1);
    hand.calendar.selectRange(1, 660, 690);
    hand.key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(free.count(), 1);
}

TEST(CalendarKeyboard, DeleteAsksForTheSelectedItemOnly) {
    CalendarUnderHand hand;
    QSignalSpy asked(&hand.calendar, &ctMDay::DeleteRequested);
    hand.key(Qt::Key_Delete);
    EXPECT_EQ(asked.count(), 0);
    hand.calendar.setSelectedItem(hand.add(540, 600));
    hand.key(Qt::Key_Delete);
    EXPECT_EQ(asked.count(), 1);
    EXPECT_EQ(hand.calendar.ItemCount(), 1);
}

TEST(CalendarKeyboard, MenuKeyAndShiftF10AskForOnePopup) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    hand.calendar.setSelectedItem(item);
    QSignalSpy popup(&hand.calendar, &ctMDay::PopupRequested);
    hand.key(Qt::Key_Menu);
    ASSERT_EQ(popup.count(), 1);
    EXPECT_EQ(popup[0][0].toInt(), item);
    EXPECT_TRUE(hand.calendar.rect().contains(hand.calendar.mapFromGlobal(popup[0][1].toPoint())));
    hand.key(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(popup.count(), 2);
}

TEST(CalendarKeyboard, ControlAndArrowsMoveTheItemThroughTheSameVetoAndReport) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(3);
    const int item = hand.add(540, 600);
    hand.calendar.setSelectedItem(item);
    QSignalSpy asked(&hand.calendar, &ctMDay::BeforeDrop);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    hand.key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 555);
    hand.key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemDay, hand.day.addDays(1));
    hand.key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemEnd, 630);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 555);
    EXPECT_EQ(asked.count(), 3);
    EXPECT_EQ(changed.count(), 3);
    hand.calendar.Item(item).ItemMoveLocked = true;
    QSignalSpy refused(&hand.calendar, &ctMDay::MoveRefused);
    hand.key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(refused.count(), 1);
}

TEST(CalendarKeyboard, ControlAndPagesStepTheDay) {
    CalendarUnderHand hand;
    QSignalSpy steps(&hand.calendar, &ctMDay::DayStepRequested);
    hand.key(Qt::Key_PageDown, Qt::ControlModifier);
    hand.key(Qt::Key_PageUp, Qt::ControlModifier);
    ASSERT_EQ(steps.count(), 2);
    EXPECT_EQ(steps[0][0].toInt(), 1);
    EXPECT_EQ(steps[1][0].toInt(), -1);
}

TEST(CalendarKeyboard, ThePopupOfWhatIsScrolledAwayStandsInTheMiddleOfTheGrid) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    QSignalSpy popup(&hand.calendar, &ctMDay::PopupRequested);
    const auto placeOfPopup = [&] {
        hand.key(Qt::Key_Menu);
        return hand.calendar.mapFromGlobal(popup.last()[1].toPoint());
    };
    const QPoint middle = placeOfPopup();
    EXPECT_TRUE(hand.calendar.rect().adjusted(100, 100, -100, -100).contains(middle)) << "nothing is selected";
    const int item = hand.add(540, 600);
    hand.calendar.setSelectedItem(item);
    EXPECT_EQ(placeOfPopup(), hand.calendar.ItemRect(item).center());
    hand.calendar.setTopTime(900);
    ASSERT_TRUE(hand.calendar.ItemRect(item).isEmpty());
    EXPECT_EQ(placeOfPopup(), middle);
    hand.calendar.selectRange(1, 930, 960);
    EXPECT_EQ(placeOfPopup(), hand.calendar.CellRect(1, 930).center());
    hand.calendar.setTopTime(480);
    ASSERT_TRUE(hand.calendar.CellRect(1, 930).isEmpty());
    EXPECT_EQ(placeOfPopup(), middle);
}
