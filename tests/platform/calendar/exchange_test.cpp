#include <gtest/gtest.h>

// What goes from the calendar to another widget of the window, and comes from there.

#include <QLabel>

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"
#include "tests/platform/calendar/words.h"

namespace {

/// A calendar with a shelf above it on the screen.
class CalendarExchange : public testing::Test {
  protected:
    CalendarExchange() {
        shelf.setGeometry(hand.calendar.x() + 700, hand.calendar.y(), 200, 800);
        shelf.show();
        hand.calendar.addDropTarget(&shelf);
        hand.add(540, 600);
    }
    [[nodiscard]] QPoint onShelf() const {
        return hand.calendar.mapFromGlobal(shelf.mapToGlobal(shelf.rect().center()));
    }
    static CalendarItem incoming() {
        CalendarItem item;
        item.ItemText = QStringLiteral("Bert");
        item.ItemStart = 845;
        item.ItemEnd = 895;
        return item;
    }

    CalendarUnderHand hand;
    QLabel shelf;
    QSignalSpy outside{&hand.calendar, &ctMDay::DroppedOutside};
    QSignalSpy changed{&hand.calendar, &ctMDay::ItemChanged};
};

}  // namespace

TEST_F(CalendarExchange, AnItemDroppedOnTheShelfStaysAndIsReported) {
    for (int time = 1; time <= 2; ++time) {
        hand.drag(hand.middleOf(1), onShelf());
        EXPECT_EQ(outside.count(), time);
        EXPECT_EQ(outside.last().at(0).toInt(), 1);
        EXPECT_EQ(changed.count(), 0);
        EXPECT_EQ(std::as_const(hand.calendar).Item(1).ItemStart, 540);
    }
}

TEST_F(CalendarExchange, ALockedItemAndOneThatIsSizedAreNot) {
    hand.calendar.setSelectedItem(1);
    const QRect item = hand.calendar.ItemRect(1);
    hand.drag({item.center().x(), item.bottom() - 1}, onShelf());
    hand.calendar.Item(1).ItemMoveLocked = true;
    hand.drag(hand.middleOf(1), onShelf());
    EXPECT_EQ(outside.count(), 0);
}

TEST_F(CalendarExchange, AShelfThatIsHiddenTakesNothing) {
    const QPoint place = onShelf();
    shelf.hide();
    hand.drag(hand.middleOf(1), place);
    EXPECT_EQ(outside.count(), 0);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(CalendarExchange, AnItemFromOutsideStartsInTheRowUnderThePointerWithItsLength) {
    const QPoint at = hand.calendar.mapToGlobal(hand.freeAt(660) + QPoint(0, 3));
    const std::optional<ItemPlace> place = hand.calendar.showIncoming(at, incoming());
    ASSERT_TRUE(place);
    EXPECT_EQ(*place, (ItemPlace{1, hand.day, 660, 710}));
    EXPECT_EQ(hand.calendar.showIncoming(hand.calendar.mapToGlobal(QPoint(-50, 10)), incoming()), std::nullopt);
    EXPECT_EQ(hand.calendar.ItemCount(), 1) << "Nothing is added by looking.";
}

TEST_F(CalendarExchange, AnItemFromOutsideDoesNotPassMidnight) {
    hand.calendar.setLastTime(1439);
    hand.calendar.setTopTime(1200);
    hand.settle();
    const QPoint at = hand.calendar.mapToGlobal(hand.freeAt(1380) + QPoint(0, 3));
    CalendarItem item = incoming();
    item.ItemEnd = item.ItemStart + 120;
    const std::optional<ItemPlace> place = hand.calendar.showIncoming(at, item);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->start, 1320);
    EXPECT_EQ(place->end, 1440);
}

TEST_F(CalendarExchange, NearTheEdgeTheHoursScroll) {
    hand.calendar.setLastTime(1439);
    hand.calendar.resize(600, 300);
    hand.settle();
    const int before = hand.calendar.TopTime();
    for (int time = 0; time < 10; ++time)
        static_cast<void>(hand.calendar.showIncoming(hand.calendar.mapToGlobal(QPoint(200, 290)), incoming()));
    EXPECT_GT(hand.calendar.TopTime(), before);
    hand.calendar.endIncoming();
}

namespace {

class ShelvedCard : public CalendarLook {};

INSTANTIATE_TEST_SUITE_P(EachLook, ShelvedCard, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(ShelvedCard, IsPalerAndSaysSoInWords) {
    hand.add(540, 630);
    const Picture before = seen();
    hand.calendar.Item(1).ItemShelved = true;
    const CardColors colours = CardColorsFor(std::as_const(hand.calendar).Item(1), style.base, style.ink);
    const Picture after = seen();
    EXPECT_NE(before.changesTo(after), QRect());
    EXPECT_LT(after.share(insideOf(620), colours.fill), 0.1);
    EXPECT_TRUE(hand.calendar.AccessibleItemName(1).endsWith(QStringLiteral(", On the shelf")));
    EXPECT_TRUE(hand.calendar.ToolTipOf(1).contains(QStringLiteral("On the shelf")));

    hand.calendar.Item(1).ItemShelved = false;
    EXPECT_EQ(before.changesTo(seen()), QRect());
}

TEST_P(ShelvedCard, WhatComesFromOutsideIsPaintedUntilItIsOver) {
    const Picture before = seen();
    CalendarItem item;
    item.ItemText = QStringLiteral("Bert");
    item.ItemEnd = 60;
    static_cast<void>(hand.calendar.showIncoming(hand.calendar.mapToGlobal(hand.freeAt(660) + QPoint(0, 3)), item));
    EXPECT_NE(before.changesTo(seen()), QRect());
    hand.calendar.endIncoming();
    EXPECT_EQ(before.changesTo(seen()), QRect());
}
