// A finger on the calendar.

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPointingDevice>
#include <QScrollBar>
#include <QStyleHints>
#include <QTest>

#include "tests/platform/calendar/calendarunderhand.h"

namespace {

QPointingDevice& screen() {
    static QPointingDevice* device = QTest::createTouchDevice();
    return *device;
}

class Touch : public testing::Test {
  protected:
    Touch() {
        hand.calendar.resize(600, 400);
        hand.calendar.setTopTime(480);
        hand.settle();
    }
    ~Touch() override { QGuiApplication::styleHints()->setMousePressAndHoldInterval(usual_); }

    void down(QPoint at) { QTest::touchEvent(&hand.calendar, &screen()).press(0, at, &hand.calendar); }
    void slide(QPoint to) { QTest::touchEvent(&hand.calendar, &screen()).move(0, to, &hand.calendar); }
    void up(QPoint at) {
        QTest::touchEvent(&hand.calendar, &screen()).release(0, at, &hand.calendar);
        hand.settle();
    }
    void tap(QPoint at) {
        down(at);
        up(at);
    }
    /// Holds the finger still until the calendar has taken what is under it.
    void hold(QPoint at, const std::function<bool()>& isTaken) {
        QGuiApplication::styleHints()->setMousePressAndHoldInterval(1);
        down(at);
        EXPECT_TRUE(QTest::qWaitFor(isTaken));
        QGuiApplication::styleHints()->setMousePressAndHoldInterval(usual_);
    }
    void holdItem(int index) {
        hold(hand.middleOf(index), [&] { return hand.calendar.SelectedItem() == index; });
    }

    CalendarUnderHand hand;

  private:
    int usual_ = QGuiApplication::styleHints()->mousePressAndHoldInterval();
};

}  // namespace

TEST_F(Touch, OneFingerScrollsAndMovesNothing) {
    const int index = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QRect before = hand.calendar.ItemRect(index);
    const QPoint from = before.center();
    down(from);
    slide(from - QPoint(0, 30));
    slide(from - QPoint(0, 60));
    EXPECT_EQ(hand.calendar.ItemRect(index).top(), before.top() - 60) << "the card stays under the finger";
    slide(from - QPoint(0, 20));
    EXPECT_EQ(hand.calendar.ItemRect(index).top(), before.top() - 20);
    up(from - QPoint(0, 20));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0);
    EXPECT_EQ(hand.calendar.Item(index).ItemStart, 540);
}

TEST_F(Touch, OneFingerScrollsSidewaysOverTheProviders) {
    hand.calendar.ClearColumns();
    for (int column = 1; column <= 20; ++column)
        hand.calendar.AddColumn(QStringLiteral("Provider %1").arg(column));
    hand.calendar.setVisibleColumns(4);
    const int left = hand.calendar.HeadingRect(2).left();
    down({400, 200});
    slide({340, 200});
    slide({310, 200});
    EXPECT_NEAR(hand.calendar.HeadingRect(2).left(), left - 90, 1);
    up({310, 200});
}

TEST_F(Touch, ATapSelectsAndTwoOpen) {
    const int index = hand.add(540, 600);
    QSignalSpy opened(&hand.calendar, &ctMDay::ItemActivated);
    QSignalSpy booked(&hand.calendar, &ctMDay::RangeActivated);
    const QPoint card = hand.middleOf(index);
    tap(card);
    EXPECT_EQ(hand.calendar.SelectedItem(), index);
    EXPECT_EQ(opened.count(), 0);
    tap(card);
    EXPECT_EQ(opened.count(), 1);
    const QPoint free = hand.calendar.CellRect(1, 630).center();
    tap(free);
    EXPECT_EQ(hand.calendar.SelStart(), 630);
    tap(free);
    EXPECT_EQ(booked.count(), 1);
    tap(free);
    EXPECT_EQ(booked.count(), 1) << "the third tap is a first one";
}

TEST_F(Touch, HeldAndDraggedAnItemMoves) {
    const int index = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(index);
    const int top = hand.calendar.TopTime();
    holdItem(index);
    const QPoint to = from + QPoint(0, 4 * hand.rowHeight());
    slide((from + to) / 2);
    slide(to);
    up(to);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(hand.calendar.Item(index).ItemStart, 600);
    EXPECT_EQ(hand.calendar.Item(index).ItemEnd, 660);
    EXPECT_EQ(hand.calendar.TopTime(), top) << "nothing scrolled meanwhile";
}

TEST_F(Touch, AFingerAtACardsEdgeMovesItAndDoesNotSizeIt) {
    const int index = hand.add(540, 600);
    const QRect card = hand.calendar.ItemRect(index);
    hold({card.center().x(), card.bottom() - 1}, [&] { return hand.calendar.SelectedItem() == index; });
    const QPoint to(card.center().x(), card.bottom() - 1 + 2 * hand.rowHeight());
    slide(to);
    up(to);
    EXPECT_EQ(hand.calendar.Item(index).ItemStart, 570);
    EXPECT_EQ(hand.calendar.Item(index).ItemEnd, 630);
}

TEST_F(Touch, HeldOnFreeTimeItDrawsARange) {
    const QPoint from = hand.calendar.CellRect(1, 540).center();
    hold(from, [&] { return hand.calendar.SelectedRange() >= 0; });
    slide(from + QPoint(0, 3 * hand.rowHeight()));
    up(from + QPoint(0, 3 * hand.rowHeight()));
    EXPECT_EQ(hand.calendar.SelStart(), 540);
    EXPECT_EQ(hand.calendar.SelEnd(), 600);
}

TEST_F(Touch, LiftedWhereItWasHeldItAsksForThePopup) {
    const int index = hand.add(540, 600);
    QSignalSpy popup(&hand.calendar, &ctMDay::PopupRequested);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint at = hand.middleOf(index);
    for (int time = 1; time <= 2; ++time) {
        hand.calendar.clearSelection();
        holdItem(index);
        up(at);
        ASSERT_EQ(popup.count(), time);
        EXPECT_EQ(popup.last().at(0).toInt(), index);
    }
    EXPECT_EQ(changed.count(), 0);
    EXPECT_FALSE(hand.calendar.IsEditing());
}

TEST_F(Touch, ALockedItemStaysAndIsReported) {
    const int index = hand.add(540, 600);
    hand.calendar.Item(index).ItemMoveLocked = true;
    QSignalSpy refused(&hand.calendar, &ctMDay::MoveRefused);
    const QPoint from = hand.middleOf(index);
    holdItem(index);
    slide(from + QPoint(0, 90));
    up(from + QPoint(0, 90));
    EXPECT_EQ(refused.count(), 1);
    EXPECT_EQ(hand.calendar.Item(index).ItemStart, 540);
}

TEST_F(Touch, ASecondFingerPutsBackWhatTheFirstOneHadTaken) {
    const int index = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(index);
    holdItem(index);
    slide(from + QPoint(0, 60));
    QTest::touchEvent(&hand.calendar, &screen())
        .move(0, from + QPoint(0, 60), &hand.calendar)
        .press(1, from - QPoint(60, 0), &hand.calendar);
    QTest::touchEvent(&hand.calendar, &screen())
        .release(0, from + QPoint(0, 60), &hand.calendar)
        .release(1, from - QPoint(60, 0), &hand.calendar);
    hand.settle();
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(hand.calendar.Item(index).ItemStart, 540);
    tap(from);
    EXPECT_EQ(hand.calendar.SelectedItem(), index) << "the next touch begins anew";
}

TEST_F(Touch, TheScrollBarKeepsItsOwn) {
    auto* bar = hand.calendar.findChildren<QScrollBar*>().first();
    ASSERT_TRUE(bar->isVisible());
    const int index = hand.add(480, 1080);
    const QPoint at = bar->geometry().topLeft() + QPoint(bar->width() / 2, bar->height() / 4);
    down(at);
    slide(at + QPoint(0, 60));
    EXPECT_GT(bar->value(), 0) << "it follows the finger downwards, where the content would go up";
    up(at + QPoint(0, 60));
    EXPECT_NE(hand.calendar.SelectedItem(), index);
}
