#include <gtest/gtest.h>

#include <QAccessible>

#include "tests/platform/calendar/calendarunderhand.h"

namespace {

QAccessibleInterface* Of(ctMDay& calendar) {
    return QAccessible::queryAccessibleInterface(&calendar);
}

}  // namespace

TEST(CalendarAccessibility, TheItemsAreChildrenInTimeOrderWithNames) {
    CalendarUnderHand hand;
    hand.add(600, 660, "Ben Cole");
    const int anna = hand.add(540, 590, "Anna O'Brien");
    hand.calendar.Item(anna).ItemStatusText = "Kept";
    hand.calendar.Item(anna).ItemLocation = "Main Street";
    hand.calendar.Item(anna).ItemStatusIcon = 7;

    QAccessibleInterface* list = Of(hand.calendar);

    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), 2);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), "9:00 AM to 9:50 AM, Anna O'Brien, Kept");
    EXPECT_EQ(list->child(0)->text(QAccessible::Description), "Confirmed, Main Street");
    EXPECT_EQ(list->child(0)->role(), QAccessible::ListItem);
    EXPECT_EQ(list->child(0)->parent(), list);
    EXPECT_EQ(list->indexOfChild(list->child(1)), 1);
    EXPECT_EQ(list->child(2), nullptr);
    EXPECT_EQ(list->child(-1), nullptr);
}

TEST(CalendarAccessibility, AnItemIsWhereItIsPaintedAndIsFoundThere) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QAccessibleInterface* child = Of(hand.calendar)->child(0);
    const QRect rect = hand.calendar.ItemRect(item);
    EXPECT_EQ(child->rect(), QRect(hand.calendar.mapToGlobal(rect.topLeft()), rect.size()));
    const QPoint middle = child->rect().center();
    EXPECT_EQ(Of(hand.calendar)->childAt(middle.x(), middle.y()), child);
    EXPECT_EQ(Of(hand.calendar)->childAt(middle.x(), middle.y() + 300), nullptr);
}

TEST(CalendarAccessibility, TheSelectedItemSaysSoAndHasTheFocus) {
    CalendarUnderHand hand;
    hand.add(540, 600);
    hand.add(600, 660);
    hand.calendar.setSelectedItem(2);
    QAccessibleInterface* list = Of(hand.calendar);
    EXPECT_FALSE(list->child(0)->state().selected);
    EXPECT_TRUE(list->child(1)->state().selected);
    EXPECT_TRUE(list->child(1)->state().selectable);
    EXPECT_EQ(list->focusChild(), list->child(1));
}

TEST(CalendarAccessibility, AnItemCanBeChosenThroughIt) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QAccessibleActionInterface* action = Of(hand.calendar)->child(0)->actionInterface();
    ASSERT_NE(action, nullptr);
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(hand.calendar.SelectedItem(), item);
}

TEST(CalendarAccessibility, AHiddenNameIsNotRead) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna O'Brien");
    hand.calendar.Item(item).ItemTextColor = TextColor::SameAsBackground;
    EXPECT_EQ(Of(hand.calendar)->child(0)->text(QAccessible::Name), "9:00 AM to 10:00 AM");
}

TEST(CalendarAccessibility, ASelectedRangeIsToldInWords) {
    CalendarUnderHand hand;
    hand.calendar.selectRange(1, 540, 570);
    EXPECT_EQ(Of(hand.calendar)->text(QAccessible::Value), "9:00 AM to 9:30 AM, Wednesday, March 11, 2026");
    EXPECT_EQ(Of(hand.calendar)->text(QAccessible::Name), "Calendar");
}

TEST(CalendarAccessibility, AfterAReloadOldChildrenAreInvalidAndNewOnesRight) {
    CalendarUnderHand hand;
    hand.add(540, 600, "Anna");
    hand.add(600, 660, "Ben");
    QAccessibleInterface* second = Of(hand.calendar)->child(1);
    hand.calendar.ClearItems();
    EXPECT_FALSE(second->isValid());
    EXPECT_TRUE(second->state().invalid);
    EXPECT_EQ(second->text(QAccessible::Name), "");
    hand.add(660, 720, "Cleo");
    EXPECT_EQ(Of(hand.calendar)->childCount(), 1);
    EXPECT_EQ(Of(hand.calendar)->child(0)->text(QAccessible::Name), "11:00 AM to 12:00 PM, Cleo");
}

TEST(CalendarAccessibility, ABannerIsReadWithoutTimes) {
    CalendarUnderHand hand;
    const int holiday = hand.calendar.AddItem(0, 1439, hand.day, "Founders' Day", "0");
    hand.calendar.Item(holiday).ItemBanner = true;
    EXPECT_EQ(Of(hand.calendar)->child(0)->text(QAccessible::Name), "Founders' Day");
}
