// What the pointer shows before and while something is dragged, and scrolling at the edges.

#include <gtest/gtest.h>

#include <functional>
#include <QApplication>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include "tests/platform/calendar/calendarunderhand.h"
#include "tests/platform/calendar/words.h"

namespace {

class Gesture : public testing::Test {
  protected:
    [[nodiscard]] Qt::CursorShape cursor() const { return hand.calendar.cursor().shape(); }
    /// Places of a card: its upper edge, its middle and its lower edge.
    [[nodiscard]] std::array<QPoint, 3> zonesOf(int index) const {
        const QRect card = hand.calendar.ItemRect(index);
        return {QPoint(card.center().x(), card.top()), card.center(), QPoint(card.center().x(), card.bottom())};
    }
    [[nodiscard]] std::array<Qt::CursorShape, 3> cursorsOver(int index) {
        std::array<Qt::CursorShape, 3> shapes{};
        const auto zones = zonesOf(index);
        for (std::size_t i = 0; i < 3; ++i) {
            hand.hover(zones[i]);
            shapes[i] = cursor();
        }
        return shapes;
    }
    [[nodiscard]] QScrollBar& bar(Qt::Orientation orientation) const {
        for (auto* each : hand.calendar.findChildren<QScrollBar*>())
            if (each->orientation() == orientation)
                return *each;
        throw std::logic_error("no such bar");
    }
    void small() {
        hand.calendar.resize(600, 300);
        hand.settle();
    }
    void providers(int count) {
        for (int i = 1; i <= count; ++i)
            hand.calendar.AddColumn(QStringLiteral("Provider %1").arg(i));
        hand.calendar.setVisibleColumns(3);
    }
    void wheel(QPoint angle, Qt::KeyboardModifiers keys = {}, QPoint pixels = {}) {
        const QPoint at(300, 150);
        QWheelEvent event(at, hand.calendar.mapToGlobal(at), pixels, angle, Qt::NoButton, keys, Qt::NoScrollPhase,
                          false);
        event.ignore();
        QCoreApplication::sendEvent(&hand.calendar, &event);
        EXPECT_TRUE(event.isAccepted()) << "what is around does not scroll as well";
    }

    CalendarUnderHand hand;
};

constexpr std::array<Qt::CursorShape, 3> Sizing{Qt::SizeVerCursor, Qt::ArrowCursor, Qt::SizeVerCursor};
constexpr std::array<Qt::CursorShape, 3> Plain{Qt::ArrowCursor, Qt::ArrowCursor, Qt::ArrowCursor};

}  // namespace

TEST_F(Gesture, ThePointerTellsWhereACardCanBeSized) {
    const int item = hand.add(540, 660);
    EXPECT_EQ(cursorsOver(item), Sizing);
    hand.calendar.Item(item).ItemMoveLocked = true;
    EXPECT_EQ(cursorsOver(item), Plain);
    hand.calendar.Item(item).ItemMoveLocked = false;
    hand.calendar.setReadOnly(true);
    EXPECT_EQ(cursorsOver(item), Plain);
    hand.calendar.setReadOnly(false);
    EXPECT_EQ(cursorsOver(item), Sizing);
    hand.calendar.Item(item).ItemBanner = true;
    EXPECT_EQ(cursorsOver(item), Plain);
    hand.hover(hand.freeAt(900));
    EXPECT_EQ(cursor(), Qt::ArrowCursor);
}

TEST_F(Gesture, WhereTheButtonIsReleasedWhatIsThereIsLit) {
    const int item = hand.add(700, 760);
    const auto seen = [&] {
        hand.settle();
        return hand.calendar.grab().toImage();
    };
    for (const int start : {540, 600}) {
        hand.press(hand.freeAt(start));
        hand.moveTo(hand.middleOf(item));
        const QImage before = seen();
        hand.release(hand.middleOf(item));
        const QImage after = seen();
        EXPECT_NE(after, before) << "the card under the pointer";
        hand.hover(hand.middleOf(item));
        EXPECT_EQ(seen(), after);
        hand.hover(hand.freeAt(1000));
        EXPECT_EQ(seen(), before);
    }
}

TEST_F(Gesture, AtRestNothingGoesOnByItself) {
    class Timers : public QObject {
      public:
        Timers() { qApp->installEventFilter(this); }
        int count = 0;

      protected:
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::Timer ? 1 : 0;
            return false;
        }
    };
    const int item = hand.add(540, 600);
    const std::pair<const char*, std::function<void()>> acts[] = {
        {"an edit in place",
         [&] {
             hand.calendar.EditItem(item, "Ben");
             hand.calendar.setFocus();
         }},
        {"a drag beyond the edge",
         [&] {
             hand.press(hand.middleOf(item));
             hand.moveTo(hand.middleOf(item) + QPoint(0, 20));
             hand.moveTo({300, 2000});
             hand.release({300, 2000});
         }},
        {"a range beyond the edge",
         [&] {
             hand.press(hand.freeAt(700));
             hand.moveTo({300, 2000});
             hand.release({300, 2000});
         }},
    };
    for (const auto& [what, act] : acts) {
        act();
        hand.settle();
        Timers timers;
        EXPECT_FALSE(QTest::qWaitFor([&] { return timers.count > 4; }, 300)) << what;
    }
}

TEST_F(Gesture, AtAnEdgeTheCalendarScrollsSlowlyEnoughToStop) {
    small();
    const int item = hand.add(540, 570);
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(0, 20));
    QSignalSpy steps(&bar(Qt::Vertical), &QScrollBar::valueChanged);
    QElapsedTimer time;
    time.start();
    hand.moveTo({300, 305});
    EXPECT_TRUE(QTest::qWaitFor([&] { return steps.count() >= 3; }, 5000));
    EXPECT_GE(time.elapsed(), 60) << "a step of a few pixels in each 40 ms";
    hand.key(Qt::Key_Escape);
}

TEST_F(Gesture, AMarkerIsPointedAt) {
    const int late = hand.add(1200, 1230);
    hand.hover(hand.middleOf(late));
    EXPECT_EQ(cursor(), Qt::PointingHandCursor);
    hand.hover(hand.freeAt(600));
    EXPECT_EQ(cursor(), Qt::ArrowCursor);
}

TEST_F(Gesture, AMovedCardIsInTheHandAndASizedOneBetweenArrows) {
    const int item = hand.add(540, 660);
    const auto zones = zonesOf(item);
    const Qt::CursorShape shapes[] = {Qt::SizeVerCursor, Qt::ClosedHandCursor, Qt::SizeVerCursor};
    for (std::size_t i = 0; i < 3; ++i) {
        hand.press(zones[i]);
        hand.moveTo(zones[i] + QPoint(0, 30));
        EXPECT_EQ(cursor(), shapes[i]) << i;
        hand.moveTo({-40, 200});
        EXPECT_EQ(cursor(), Qt::ForbiddenCursor) << "outside nothing can be dropped";
        hand.moveTo(zones[i] + QPoint(0, 30));
        EXPECT_EQ(cursor(), shapes[i]) << i;
        hand.key(Qt::Key_Escape);
        EXPECT_EQ(cursor(), Qt::ArrowCursor) << "after it is over";
        hand.release(zones[i]);
    }
}

TEST_F(Gesture, WhatIsDroppedOutsideStaysWhereItWas) {
    const int item = hand.add(540, 600);
    QSignalSpy asked(&hand.calendar, &ctMDay::BeforeDrop);
    for (const QPoint& outside : {QPoint(-50, 300), QPoint(700, 300), QPoint(300, -60), QPoint(300, 900)}) {
        hand.drag(hand.middleOf(item), outside);
        EXPECT_EQ(asked.count(), 0);
        EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
    }
    hand.drag(hand.middleOf(item), hand.middleOf(item) + QPoint(0, 4 * hand.rowHeight()));
    EXPECT_EQ(asked.count(), 1);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 600);
}

TEST_F(Gesture, ACardDraggedToAnEdgeScrollsThereAndStopsInside) {
    small();
    const int item = hand.add(540, 570);
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(0, 20));
    hand.moveTo({300, 320});
    EXPECT_TRUE(QTest::qWaitFor([&] { return hand.calendar.TopTime() > 600; }, 5000));
    QString proposed;
    for (const Word& word : WordDevice::of(hand.calendar))
        if (word.text.contains(QStringLiteral(" – ")))
            proposed = word.text;
    EXPECT_TRUE(proposed.endsWith(QStringLiteral("PM")))
        << "the place goes on with the hours: " << proposed.toStdString();
    hand.moveTo({300, 100});
    const int top = hand.calendar.TopTime();
    EXPECT_FALSE(QTest::qWaitFor([&] { return hand.calendar.TopTime() != top; }, 150)) << "inside it stands still";
    hand.moveTo({300, -30});
    EXPECT_TRUE(QTest::qWaitFor([&] { return hand.calendar.TopTime() == 480; }, 5000)) << "and back";
    hand.key(Qt::Key_Escape);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
}

TEST_F(Gesture, ACardDraggedAsideScrollsToFurtherColumnsAndARangeDoesNot) {
    providers(9);
    const int item = hand.add(540, 600);
    hand.calendar.Item(item).ItemColumn = 1;
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(20, 0));
    hand.moveTo({640, 150});
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar(Qt::Horizontal).value() > 100; }, 5000));
    hand.key(Qt::Key_Escape);
    bar(Qt::Horizontal).setValue(0);
    hand.press(hand.freeAt(600, 3));
    hand.moveTo({640, 200});
    EXPECT_FALSE(QTest::qWaitFor([&] { return bar(Qt::Horizontal).value() != 0; }, 150));
    hand.release({640, 200});
}

TEST_F(Gesture, ARangeDrawnUpwardsAcrossTheEdgeBeginsWhereItWasPressed) {
    small();
    hand.calendar.setTopTime(700);
    hand.press(hand.freeAt(780));
    hand.moveTo({300, -40});
    EXPECT_TRUE(QTest::qWaitFor([&] { return hand.calendar.TopTime() <= 600; }, 5000));
    hand.release({300, -40});
    EXPECT_EQ(hand.calendar.SelEnd(), 795);
    EXPECT_LE(hand.calendar.SelStart(), 600);
    const int top = hand.calendar.TopTime();
    EXPECT_FALSE(QTest::qWaitFor([&] { return hand.calendar.TopTime() != top; }, 150)) << "it ends with the press";
}

TEST_F(Gesture, TheWheelGoesDownUpAndAcross) {
    small();
    providers(9);
    QScrollBar& down = bar(Qt::Vertical);
    QScrollBar& across = bar(Qt::Horizontal);
    for (int time = 0; time < 2; ++time) {
        wheel({0, -120});
        EXPECT_EQ(down.value(), 3 * down.singleStep());
        EXPECT_EQ(across.value(), 0);
        wheel({0, 120});
        EXPECT_EQ(down.value(), 0);
        wheel({0, -120}, Qt::ShiftModifier);
        EXPECT_EQ(down.value(), 0);
        EXPECT_GT(across.value(), 0) << "with Shift across";
        wheel({0, 120}, Qt::ShiftModifier);
        wheel({-120, 0});
        EXPECT_GT(across.value(), 0) << "by a wheel of its own";
        wheel({120, 0});
        EXPECT_EQ(across.value(), 0);
        wheel({0, -30}, {}, {0, -17});
        EXPECT_EQ(down.value(), 17) << "a touchpad goes by its pixels";
        wheel({0, 30}, {}, {0, 17});
        wheel({-30, 0}, {}, {-23, 0});
        EXPECT_EQ(across.value(), 23);
        wheel({30, 0}, {}, {23, 0});
        EXPECT_EQ(down.value() + across.value(), 0);
        wheel({-10, -30}, {}, {-9, -17});
        EXPECT_EQ(down.value(), 17) << "where the fingers go down a little aside";
        EXPECT_EQ(across.value(), 0);
        wheel({10, 30}, {}, {9, 17});
        wheel({0, -30}, Qt::ShiftModifier, {0, -17});
        EXPECT_EQ(down.value(), 0) << "with Shift also by its pixels";
        EXPECT_EQ(across.value(), 17);
        wheel({0, 30}, Qt::ShiftModifier, {0, 17});
    }
}

TEST_F(Gesture, AnotherButtonSelectsNothing) {
    const int item = hand.add(540, 600);
    hand.press(hand.middleOf(item), Qt::MiddleButton);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0);
    QSignalSpy opened(&hand.calendar, &ctMDay::ItemActivated);
    QTest::mouseDClick(&hand.calendar, Qt::RightButton, {}, hand.middleOf(item));
    EXPECT_EQ(opened.count(), 0);
    hand.release(hand.middleOf(item));
    QSignalSpy ranges(&hand.calendar, &ctMDay::RangeSelected);
    hand.press(hand.freeAt(700));
    QTest::mouseRelease(&hand.calendar, Qt::RightButton, {}, hand.freeAt(700));
    EXPECT_EQ(ranges.count(), 0) << "the left button is still down";
    hand.release(hand.freeAt(700));
    EXPECT_EQ(ranges.count(), 1);
}

TEST_F(Gesture, AShiftClickInAnotherColumnBeginsAnew) {
    hand.calendar.setDayColumns(2);
    hand.click(hand.freeAt(540, 1));
    hand.click(hand.freeAt(600, 2), Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelColumn(), 2);
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    hand.click(hand.freeAt(660, 2), Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    EXPECT_EQ(hand.calendar.SelEnd(), 675);
    // The pressed row keeps to the old end while the mouse is drawn on.
    hand.press(hand.freeAt(630, 2), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelEnd(), 645);
    hand.moveTo(hand.freeAt(570, 2));
    EXPECT_EQ(hand.calendar.SelStart(), 570);
    EXPECT_EQ(hand.calendar.SelEnd(), 615) << "the row in which it all began stays in";
    hand.release(hand.freeAt(570, 2));
}

TEST_F(Gesture, ARightClickOnAMarkerSelectsWhatItStandsForAndElsewhereAsksNothing) {
    const int late = hand.add(1200, 1230);
    QSignalSpy popup(&hand.calendar, &ctMDay::PopupRequested);
    const auto rightClick = [&](QPoint at) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, hand.calendar.mapToGlobal(at));
        QCoreApplication::sendEvent(&hand.calendar, &event);
        hand.settle();
    };
    rightClick(hand.middleOf(late));
    ASSERT_EQ(popup.count(), 1);
    EXPECT_EQ(popup[0][0].toInt(), late);
    EXPECT_EQ(hand.calendar.SelectedItem(), late);
    rightClick(hand.calendar.HeadingRect(1).center());
    rightClick({3, 300});
    EXPECT_EQ(popup.count(), 1) << "a heading and the hours have no popup";
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {0, 0}, {0, 0});
    QCoreApplication::sendEvent(&hand.calendar, &byKey);
    ASSERT_EQ(popup.count(), 2);
    EXPECT_EQ(popup[1][0].toInt(), late);
    EXPECT_EQ(popup[1][1].toPoint(), hand.calendar.mapToGlobal(hand.middleOf(late)));
}

TEST_F(Gesture, TheMarkerOfFurtherBannersSelectsTheFirstThatHasNoRow) {
    for (int i = 1; i <= 5; ++i)
        hand.calendar.Item(hand.add(0, 1439)).ItemBanner = true;
    const QPoint marker = hand.middleOf(5);
    for (const int before : {0, 1, 2}) {
        hand.calendar.setSelectedItem(before);
        hand.click(marker);
        EXPECT_EQ(hand.calendar.SelectedItem(), 3) << before;
    }
    hand.click(marker);
    EXPECT_EQ(hand.calendar.SelectedItem(), 3) << "which has the row now";
}

TEST_F(Gesture, ADoubleClickOnAMarkerOpensTheSelectedOne) {
    const int late = hand.add(1200, 1230);
    QSignalSpy opened(&hand.calendar, &ctMDay::ItemActivated);
    hand.doubleClick(hand.middleOf(late));
    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened[0][0].toInt(), late);
    hand.doubleClick(hand.calendar.HeadingRect(1).center());
    EXPECT_EQ(opened.count(), 1);
}

TEST_F(Gesture, AHeadingIsClickedOnlyWhereItWasPressed) {
    hand.calendar.setDayColumns(2);
    QSignalSpy clicked(&hand.calendar, &ctMDay::HeadingClicked);
    hand.press(hand.calendar.HeadingRect(1).center());
    hand.release(hand.calendar.HeadingRect(2).center());
    EXPECT_EQ(clicked.count(), 0);
    hand.click(hand.calendar.HeadingRect(1).center());
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(Gesture, TheTipIsAskedWhereACardIs) {
    const int item = hand.add(540, 600);
    const auto tipAt = [&](QPoint at) {
        QHelpEvent help(QEvent::ToolTip, at, hand.calendar.mapToGlobal(at));
        QCoreApplication::sendEvent(&hand.calendar, &help);
        return QToolTip::text();
    };
    EXPECT_EQ(tipAt(hand.middleOf(item)), hand.calendar.ToolTipOf(item));
    tipAt(hand.freeAt(800));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !QToolTip::isVisible(); }, 5000)) << "free time has none";
}

TEST_F(Gesture, LosingTheKeyboardInTheMiddleOfADragEndsIt) {
    const int item = hand.add(540, 600);
    QSignalSpy asked(&hand.calendar, &ctMDay::BeforeDrop);
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(0, 80));
    hand.calendar.clearFocus();
    hand.release(hand.freeAt(800));
    EXPECT_EQ(asked.count(), 0);
    EXPECT_EQ(cursor(), Qt::ArrowCursor);
    hand.calendar.setFocus();
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(0, 80));
    hand.calendar.setReadOnly(true);
    hand.release(hand.freeAt(800));
    EXPECT_EQ(asked.count(), 0) << "and so does a calendar that becomes read-only";
    hand.calendar.setReadOnly(false);
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(0, 80));
    hand.calendar.hide();
    hand.calendar.show();
    hand.release(hand.freeAt(800));
    EXPECT_EQ(asked.count(), 0) << "and one that is hidden";
}

TEST_F(Gesture, APopupInTheMiddleOfAPressEndsIt) {
    const int item = hand.add(540, 600);
    QSignalSpy asked(&hand.calendar, &ctMDay::BeforeItemWork);
    hand.press(hand.middleOf(item));
    const QPoint at = hand.middleOf(item);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, hand.calendar.mapToGlobal(at));
    QCoreApplication::sendEvent(&hand.calendar, &event);
    hand.moveTo(at + QPoint(0, 100));
    hand.release(at + QPoint(0, 100));
    EXPECT_EQ(asked.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
}

TEST_F(Gesture, WhatTheUserDoesBeforeASlowSecondClickEditsEndsIt) {
    const int usual = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(40);
    const int item = hand.add(540, 600);
    const int other = hand.add(700, 760);
    const std::pair<const char*, std::function<void()>> acts[] = {
        {"a key", [&] { hand.key(Qt::Key_F10); }},
        {"the wheel",
         [&] {
             wheel({0, -120});
         }},
        {"another press",
         [&] {
             hand.press({3, 300});
         }},
        {"another item", [&] { hand.calendar.setSelectedItem(other); }},
        {"leaving", [&] { hand.calendar.clearFocus(); }},
        {"a popup",
         [&] {
             const QPoint at = hand.middleOf(item);
             QContextMenuEvent event(QContextMenuEvent::Mouse, at, hand.calendar.mapToGlobal(at));
             QCoreApplication::sendEvent(&hand.calendar, &event);
         }},
        {"a reload", [&] { hand.calendar.setReadOnly(false); }},
    };
    for (const auto& [what, act] : acts) {
        hand.calendar.setFocus();
        hand.calendar.setSelectedItem(item);
        hand.click(hand.middleOf(item));
        act();
        EXPECT_FALSE(QTest::qWaitFor([&] { return hand.calendar.IsEditing(); }, 90)) << what;
        hand.release({3, 300});
    }
    hand.calendar.setFocus();
    hand.calendar.setSelectedItem(item);
    hand.click(hand.middleOf(item));
    EXPECT_TRUE(QTest::qWaitFor([&] { return hand.calendar.IsEditing(); }, 2000)) << "else it does";
    QApplication::setDoubleClickInterval(usual);
}
