// Every key of a day calendar: ranges, columns, items and what asks the view.

#include <gtest/gtest.h>

#include <functional>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include "tests/platform/calendar/calendarunderhand.h"

namespace {

struct Step {
    Qt::Key key;
    Qt::KeyboardModifiers with = Qt::NoModifier;
};

constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers Control = Qt::ControlModifier;

class KeyboardRange : public testing::Test {
  protected:
    [[nodiscard]] std::array<int, 3> selected() const {
        return {hand.calendar.SelColumn(), hand.calendar.SelStart(), hand.calendar.SelEnd()};
    }

    CalendarUnderHand hand;
};

}  // namespace

TEST_F(KeyboardRange, IsSelectedByThoseKeys) {
    hand.calendar.setDayColumns(3);
    hand.calendar.setPrimeStart(540);
    const struct {
        const char* what;
        std::vector<Step> keys;
        std::array<int, 3> range;
    } rows[] = {
        {"the first key begins at the prime hours", {{Qt::Key_Down}}, {1, 540, 555}},
        {"up as well", {{Qt::Key_Up}}, {1, 540, 555}},
        {"then down", {{Qt::Key_Down}, {Qt::Key_Down}}, {1, 555, 570}},
        {"then up", {{Qt::Key_Down}, {Qt::Key_Up}}, {1, 525, 540}},
        {"with Shift the first key takes two rows", {{Qt::Key_Down, Shift}}, {1, 540, 570}},
        {"or the one before", {{Qt::Key_Up, Shift}}, {1, 525, 555}},
        {"three down", {{Qt::Key_Down}, {Qt::Key_Down, Shift}, {Qt::Key_Down, Shift}}, {1, 540, 585}},
        {"and one back",
         {{Qt::Key_Down}, {Qt::Key_Down, Shift}, {Qt::Key_Down, Shift}, {Qt::Key_Up, Shift}},
         {1, 540, 570}},
        {"through the first row upwards",
         {{Qt::Key_Down}, {Qt::Key_Down, Shift}, {Qt::Key_Up, Shift}, {Qt::Key_Up, Shift}, {Qt::Key_Up, Shift}},
         {1, 510, 555}},
        {"a plain arrow after a range goes on from its end",
         {{Qt::Key_Down}, {Qt::Key_Down, Shift}, {Qt::Key_Down}},
         {1, 570, 585}},
        {"and upwards from its start", {{Qt::Key_Down}, {Qt::Key_Down, Shift}, {Qt::Key_Up}}, {1, 525, 540}},
        {"right", {{Qt::Key_Down}, {Qt::Key_Right}}, {2, 540, 555}},
        {"right is the first key", {{Qt::Key_Right}}, {2, 540, 555}},
        {"left stops at the first", {{Qt::Key_Down}, {Qt::Key_Left}}, {1, 540, 555}},
        {"right stops at the last",
         {{Qt::Key_Right}, {Qt::Key_Right}, {Qt::Key_Right}, {Qt::Key_Right}},
         {3, 540, 555}},
        {"and back", {{Qt::Key_Right}, {Qt::Key_Right}, {Qt::Key_Left}}, {2, 540, 555}},
        {"to another column a range is its first row",
         {{Qt::Key_Down}, {Qt::Key_Down, Shift}, {Qt::Key_Right}},
         {2, 540, 555}},
        {"home", {{Qt::Key_Down}, {Qt::Key_Home}}, {1, 480, 495}},
        {"end", {{Qt::Key_Down}, {Qt::Key_End}}, {1, 1065, 1080}},
        {"from here to the start", {{Qt::Key_Down}, {Qt::Key_Home, Shift}}, {1, 480, 555}},
        {"from here to the end", {{Qt::Key_Down}, {Qt::Key_End, Shift}}, {1, 540, 1080}},
        {"the whole day and back", {{Qt::Key_Down}, {Qt::Key_End, Shift}, {Qt::Key_Home, Shift}}, {1, 480, 555}},
        {"nothing above the first row", {{Qt::Key_Home}, {Qt::Key_Up}}, {1, 480, 495}},
        {"nothing below the last", {{Qt::Key_End}, {Qt::Key_Down, Shift}}, {1, 1065, 1080}},
        {"a page is at most the day", {{Qt::Key_Down}, {Qt::Key_PageDown}}, {1, 1065, 1080}},
        {"and back", {{Qt::Key_Down}, {Qt::Key_PageUp}}, {1, 480, 495}},
        {"a page with Shift", {{Qt::Key_Down}, {Qt::Key_PageDown, Shift}}, {1, 540, 1080}},
        {"a page up with Shift", {{Qt::Key_Down}, {Qt::Key_PageUp, Shift}}, {1, 480, 555}},
    };
    for (const auto& row : rows) {
        for (int time = 0; time < 2; ++time) {
            hand.calendar.clearSelection();
            QSignalSpy told(&hand.calendar, &ctMDay::RangeSelected);
            for (const Step& step : row.keys)
                hand.key(step.key, step.with);
            EXPECT_EQ(selected(), row.range) << row.what;
            EXPECT_EQ(told.count(), static_cast<int>(row.keys.size())) << row.what << ": each is told";
        }
    }
}

TEST_F(KeyboardRange, APageIsWhatIsShownLessOneRow) {
    hand.calendar.resize(600, 300);
    hand.calendar.selectRange(1, 480, 495);
    const int shown = (300 - hand.calendar.CellRect(1, 480).top()) / hand.rowHeight();
    hand.key(Qt::Key_PageDown);
    EXPECT_EQ(hand.calendar.SelStart(), 480 + (shown - 1) * 15);
    hand.key(Qt::Key_PageUp);
    EXPECT_EQ(hand.calendar.SelStart(), 480);
}

TEST_F(KeyboardRange, IsBroughtToSight) {
    hand.calendar.setDayColumns(20);
    hand.calendar.resize(400, 300);
    for (const Step& step : std::vector<Step>{{Qt::Key_End},
                                              {Qt::Key_Right},
                                              {Qt::Key_Right},
                                              {Qt::Key_Right},
                                              {Qt::Key_Right},
                                              {Qt::Key_Home},
                                              {Qt::Key_Left},
                                              {Qt::Key_Left},
                                              {Qt::Key_Left},
                                              {Qt::Key_Left},
                                              {Qt::Key_PageDown, Shift}}) {
        hand.key(step.key, step.with);
        const int shown = step.with == Shift ? hand.calendar.SelEnd() - 1 : hand.calendar.SelStart();
        const QRect cell = hand.calendar.CellRect(hand.calendar.SelColumn(), shown);
        EXPECT_GE(cell.height(), hand.rowHeight() - 1) << step.key;
        EXPECT_GT(cell.width(), 80) << step.key;
    }
}

TEST_F(KeyboardRange, BeginsAtTheSelectedItem) {
    hand.calendar.setDayColumns(2);
    const int item = hand.calendar.AddItem(645, 700, hand.day.addDays(1), "Anna", "1");
    const int late = hand.calendar.AddItem(1200, 1230, hand.day.addDays(1), "Late", "2");
    const struct {
        const char* what;
        int item;
        Step key;
        std::array<int, 3> range;
    } rows[] = {
        {"with Shift", item, {Qt::Key_Down, Shift}, {2, 645, 675}},
        {"upwards", item, {Qt::Key_Up, Shift}, {2, 630, 660}},
        {"to the left", item, {Qt::Key_Left}, {1, 645, 660}},
        {"to the right", item, {Qt::Key_Right}, {2, 645, 660}},
        {"by Escape", item, {Qt::Key_Escape}, {2, 645, 660}},
        {"an item without a place", late, {Qt::Key_Escape}, {2, 480, 495}},
    };
    for (const auto& row : rows) {
        hand.calendar.setSelectedItem(row.item);
        hand.key(row.key.key, row.key.with);
        EXPECT_EQ(selected(), row.range) << row.what;
        EXPECT_EQ(hand.calendar.SelectedItem(), 0) << row.what;
    }
    hand.key(Qt::Key_Up, Shift);
    EXPECT_EQ(selected(), (std::array<int, 3>{2, 480, 495})) << "the row of Escape is where it goes on";
    hand.click(hand.freeAt(540, 1));
    const QPoint at = hand.freeAt(900, 1);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, hand.calendar.mapToGlobal(at));
    QCoreApplication::sendEvent(&hand.calendar, &event);
    hand.key(Qt::Key_Down, Shift);
    EXPECT_EQ(selected(), (std::array<int, 3>{1, 900, 930})) << "and so is that of a right click";
}

TEST_F(KeyboardRange, UpAndDownStayInTheColumnOfTheItem) {
    hand.calendar.setDayColumns(2);
    hand.add(540, 600);
    hand.add(600, 660);
    hand.calendar.AddItem(540, 600, hand.day.addDays(1), "Ben", "3");
    hand.calendar.setSelectedItem(2);
    hand.key(Qt::Key_Down);
    EXPECT_EQ(hand.calendar.SelectedItem(), 2) << "the next is in another column";
    hand.calendar.setSelectedItem(3);
    hand.key(Qt::Key_Up);
    EXPECT_EQ(hand.calendar.SelectedItem(), 3);
    hand.key(Qt::Key_Tab);
    hand.calendar.setSelectedItem(2);
    hand.key(Qt::Key_Tab);
    EXPECT_EQ(hand.calendar.SelectedItem(), 3) << "Tab goes on to it";
}

TEST_F(KeyboardRange, TheItemThatAKeyGoesToIsBroughtToSight) {
    hand.calendar.setDayColumns(20);
    hand.calendar.resize(400, 300);
    const int early = hand.add(495, 525);
    const int late = hand.add(1020, 1050);
    const int far = hand.calendar.AddItem(1020, 1050, hand.day.addDays(15), "Far", "3");
    hand.calendar.setSelectedItem(early);
    hand.settle();
    const QSize card = hand.calendar.ItemRect(early).size();
    const std::pair<Step, int> steps[] = {
        {{Qt::Key_Down}, late},
        {{Qt::Key_Up}, early},
        {{Qt::Key_Tab}, late},
        {{Qt::Key_Tab}, far},
        {{Qt::Key_Backtab, Shift}, late},
        {{Qt::Key_Backtab, Shift}, early},
    };
    for (const auto& [step, item] : steps) {
        hand.key(step.key, step.with);
        ASSERT_EQ(hand.calendar.SelectedItem(), item);
        EXPECT_NEAR(hand.calendar.ItemRect(item).height(), card.height(), 1) << item;
        EXPECT_NEAR(hand.calendar.ItemRect(item).width(), card.width(), 1) << item;
    }
}

TEST_F(KeyboardRange, KeysOnTheSelectionAskTheView) {
    const int item = hand.add(540, 600);
    QSignalSpy opened(&hand.calendar, &ctMDay::ItemActivated);
    QSignalSpy free(&hand.calendar, &ctMDay::RangeActivated);
    QSignalSpy popup(&hand.calendar, &ctMDay::PopupRequested);
    QSignalSpy remove(&hand.calendar, &ctMDay::DeleteRequested);
    const auto asked = [&](Step step) {
        const std::array<int, 4> before{static_cast<int>(opened.count()), static_cast<int>(free.count()),
                                        static_cast<int>(popup.count()), static_cast<int>(remove.count())};
        hand.key(step.key, step.with);
        std::string text;
        for (int i = before[0]; i < opened.count(); ++i)
            text += "open " + opened[i][0].toString().toStdString();
        for (int i = before[1]; i < free.count(); ++i)
            text += "range";
        for (int i = before[2]; i < popup.count(); ++i)
            text += "popup " + popup[i][0].toString().toStdString();
        for (int i = before[3]; i < remove.count(); ++i)
            text += "delete " + remove[i][0].toString().toStdString();
        return text;
    };
    const struct {
        Step step;
        const char *nothing, *range, *item;
    } keys[] = {
        {{Qt::Key_Return}, "", "range", "open 1"},
        {{Qt::Key_Enter}, "", "range", "open 1"},
        {{Qt::Key_Delete}, "", "", "delete 1"},
        {{Qt::Key_Menu}, "popup 0", "popup 0", "popup 1"},
        {{Qt::Key_F10, Shift}, "popup 0", "popup 0", "popup 1"},
        {{Qt::Key_F10}, "", "", ""},
    };
    for (const auto& key : keys) {
        hand.calendar.clearSelection();
        EXPECT_EQ(asked(key.step), key.nothing) << key.step.key;
        hand.calendar.selectRange(1, 600, 630);
        EXPECT_EQ(asked(key.step), key.range) << key.step.key;
        hand.calendar.setSelectedItem(item);
        EXPECT_EQ(asked(key.step), key.item) << key.step.key;
    }
}

TEST_F(KeyboardRange, KeysThatMeanNothingHereGoToTheWindow) {
    const auto isTaken = [&](Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QKeyEvent event(QEvent::KeyPress, key, with);
        event.accept();
        QCoreApplication::sendEvent(&hand.calendar, &event);
        return event.isAccepted();
    };
    for (int time = 0; time < 2; ++time) {
        hand.calendar.clearSelection();
        EXPECT_FALSE(isTaken(Qt::Key_Escape)) << "with nothing selected it may close the window";
        EXPECT_FALSE(isTaken(Qt::Key_Return)) << "and open its default button";
        EXPECT_FALSE(isTaken(Qt::Key_Delete));
        EXPECT_FALSE(isTaken(Qt::Key_F10));
        EXPECT_FALSE(isTaken(Qt::Key_F5));
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
                                  Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Menu, Qt::Key_F2})
            EXPECT_TRUE(isTaken(key)) << key;
        EXPECT_TRUE(isTaken(Qt::Key_Return)) << "a range is opened";
        EXPECT_FALSE(isTaken(Qt::Key_Escape)) << "a range stays";
    }
}

TEST_F(KeyboardRange, LettersTypedOnARangeAreToldUnlessTheyAreCommands) {
    QSignalSpy typed(&hand.calendar, &ctMDay::RangeTyped);
    QTest::keyClicks(&hand.calendar, "x");
    EXPECT_EQ(typed.count(), 0) << "without a range";
    hand.calendar.selectRange(1, 600, 630);
    QTest::keyClick(&hand.calendar, 'x', Qt::ControlModifier);
    QTest::keyClick(&hand.calendar, 'x', Qt::AltModifier);
    QTest::keyClick(&hand.calendar, Qt::Key_F5);
    EXPECT_EQ(typed.count(), 0);
    QTest::keyClick(&hand.calendar, 'A', Qt::ShiftModifier);
    ASSERT_EQ(typed.count(), 1);
    EXPECT_EQ(typed[0][0].toString(), "A");
    QTest::keyClick(&hand.calendar, '7', Qt::KeypadModifier);
    EXPECT_EQ(typed.count(), 2);
    hand.calendar.setReadOnly(true);
    QTest::keyClicks(&hand.calendar, "x");
    EXPECT_EQ(typed.count(), 2);
}

TEST_F(KeyboardRange, ControlWithPlusMinusAndZeroZooms) {
    hand.calendar.resize(600, 300);
    hand.calendar.setTimeInterval(60);
    const auto height = [&] {
        hand.calendar.setTopTime(480);
        return hand.calendar.CellRect(1, 540).top() - hand.calendar.CellRect(1, 480).top();
    };
    const int usual = height();
    for (const Qt::Key larger : {Qt::Key_Plus, Qt::Key_Equal}) {
        hand.key(larger, Control);
        EXPECT_NEAR(height(), usual * 1.15, 1.5);
        hand.key(larger);
        EXPECT_NEAR(height(), usual * 1.15, 1.5) << "only with Control";
        hand.key(Qt::Key_Minus, Control);
        EXPECT_NEAR(height(), usual, 1.5);
    }
    for (int i = 0; i < 40; ++i)
        hand.key(Qt::Key_Plus, Control);
    EXPECT_NEAR(height(), usual * 5, 5) << "not without end";
    hand.key(Qt::Key_0, Control);
    EXPECT_NEAR(height(), usual, 1);
}

TEST_F(KeyboardRange, MovedItemsKeepTheirLengthAndTheirColumn) {
    hand.calendar.setDayColumns(3);
    const int item = hand.calendar.AddItem(547, 600, hand.day.addDays(1), "Anna", "1");
    for (const int start : {480, 900})
        for (const int later : {0, 1, 2})
            hand.calendar.AddItem(start, start + 30, hand.day.addDays(later), "Ben", "2");
    const auto place = [&] {
        const CalendarItem& anna = std::as_const(hand.calendar).Item(item);
        return std::array<int, 3>{hand.calendar.ColumnOfItem(item), anna.ItemStart, anna.ItemEnd};
    };
    const struct {
        const char* what;
        Step step;
        std::array<int, 3> place;
    } moves[] = {
        {"down to the row", {Qt::Key_Down, Control}, {2, 555, 608}},
        {"down a row", {Qt::Key_Down, Control}, {2, 570, 623}},
        {"up a row", {Qt::Key_Up, Control}, {2, 555, 608}},
        {"left", {Qt::Key_Left, Control}, {1, 555, 608}},
        {"left stops", {Qt::Key_Left, Control}, {1, 555, 608}},
        {"right", {Qt::Key_Right, Control}, {2, 555, 608}},
        {"right", {Qt::Key_Right, Control}, {3, 555, 608}},
        {"right stops", {Qt::Key_Right, Control}, {3, 555, 608}},
        {"longer", {Qt::Key_Down, Control | Shift}, {3, 555, 630}},
        {"shorter", {Qt::Key_Up, Control | Shift}, {3, 555, 615}},
        {"with Shift to the left as well", {Qt::Key_Left, Control | Shift}, {2, 555, 615}},
    };
    hand.calendar.setSelectedItem(item);
    for (const auto& move : moves) {
        const std::array<int, 3> before = place();
        QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
        hand.key(move.step.key, move.step.with);
        EXPECT_EQ(place(), move.place) << move.what;
        EXPECT_EQ(changed.count(), before == move.place ? 0 : 1) << move.what;
        EXPECT_EQ(hand.calendar.SelectedItem(), item);
    }
}

TEST_F(KeyboardRange, AnItemThatMayNotMoveStaysSelectedWhereItIs) {
    hand.calendar.setDayColumns(3);
    const int item = hand.calendar.AddItem(540, 600, hand.day.addDays(1), "Anna", "1");
    for (const int start : {480, 900})
        hand.calendar.AddItem(start, start + 30, hand.day.addDays(1), "Ben", "2");
    hand.calendar.setSelectedItem(item);
    const std::pair<const char*, std::function<void()>> states[] = {
        {"a banner", [&] { hand.calendar.Item(item).ItemBanner = true; }},
        {"a locked item",
         [&] {
             hand.calendar.Item(item).ItemBanner = false;
             hand.calendar.Item(item).ItemMoveLocked = true;
         }},
        {"any item of a calendar for reading",
         [&] {
             hand.calendar.Item(item).ItemMoveLocked = false;
             hand.calendar.setReadOnly(true);
         }},
    };
    for (const auto& [what, begin] : states) {
        begin();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
            QSignalSpy refused(&hand.calendar, &ctMDay::MoveRefused);
            hand.key(key, Control);
            EXPECT_EQ(refused.count(), 1) << what << ' ' << key;
            EXPECT_EQ(hand.calendar.SelectedItem(), item) << what << ' ' << key;
            EXPECT_EQ(hand.calendar.ColumnOfItem(item), 2) << what << ' ' << key;
            EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540) << what << ' ' << key;
        }
    }
}

TEST_F(KeyboardRange, AMovedItemStaysInSightAsLongAsItIsSelected) {
    hand.calendar.setDayColumns(20);
    hand.calendar.resize(400, 300);
    const int item = hand.add(540, 570);
    hand.calendar.setSelectedItem(item);
    hand.settle();
    const QSize card = hand.calendar.ItemRect(item).size();
    for (const auto& [key, times] : {std::pair(Qt::Key_Down, 30), {Qt::Key_Right, 8}, {Qt::Key_Up, 32}}) {
        for (int i = 0; i < times; ++i) {
            hand.key(key, Control);
            EXPECT_NEAR(hand.calendar.ItemRect(item).height(), card.height(), 1) << key << ' ' << i;
            EXPECT_NEAR(hand.calendar.ItemRect(item).width(), card.width(), 1) << key << ' ' << i;
        }
    }
    const int top = hand.calendar.TopTime();
    ASSERT_GT(top, 495 + 5);
    QObject::connect(&hand.calendar, &ctMDay::BeforeDrop, &hand.calendar, &ctMDay::clearSelection);
    hand.key(Qt::Key_Up, Control);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 495);
    EXPECT_EQ(hand.calendar.TopTime(), top) << "what the view has left is not followed";
}

TEST_F(KeyboardRange, TabWithoutItemsAndControlTabLeave) {
    QWidget window;
    QLineEdit before(&window);
    auto* calendar = new ctMDay(&window);
    QLineEdit after(&window);
    QWidget::setTabOrder(&before, calendar);
    QWidget::setTabOrder(calendar, &after);
    calendar->resize(300, 300);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    calendar->setDate(hand.day);
    for (const bool withItem : {false, true}) {
        if (withItem)
            calendar->AddItem(540, 600, hand.day, "Anna", "1");
        calendar->setFocus();
        QTest::keyClick(calendar, Qt::Key_Tab, Control | Shift);
        EXPECT_TRUE(before.hasFocus());
        calendar->setFocus();
        QTest::keyClick(calendar, Qt::Key_Tab, Control);
        EXPECT_TRUE(after.hasFocus());
        EXPECT_EQ(calendar->SelectedItem(), 0);
    }
    calendar->ClearItems();
    calendar->setFocus();
    QTest::keyClick(calendar, Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
    calendar->setFocus();
    QTest::keyClick(calendar, Qt::Key_Backtab, Shift);
    EXPECT_TRUE(before.hasFocus());
}
