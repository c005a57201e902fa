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
    hand.calendar.setSelectedItem(1);
    EXPECT_EQ(list->focusChild(), list->child(0)) << "the first item as well";
    hand.calendar.clearFocus();
    EXPECT_EQ(list->focusChild(), nullptr);
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

TEST(CalendarAccessibility, AnItemTellsItsState) {
    CalendarUnderHand hand;
    hand.add(540, 600);
    hand.add(1000, 1060);
    QAccessibleInterface* first = Of(hand.calendar)->child(0);
    QAccessibleInterface* second = Of(hand.calendar)->child(1);
    for (int time = 0; time < 2; ++time) {
        hand.calendar.setFocus();
        hand.calendar.setSelectedItem(1);
        EXPECT_TRUE(first->state().selected && first->state().focused && first->state().focusable);
        EXPECT_FALSE(second->state().selected || second->state().focused);
        hand.calendar.clearFocus();
        EXPECT_TRUE(first->state().selected);
        EXPECT_FALSE(first->state().focused);
        hand.calendar.resize(600, 300);
        hand.calendar.setTopTime(480);
        EXPECT_FALSE(first->state().offscreen);
        EXPECT_TRUE(second->state().offscreen) << "scrolled away";
        EXPECT_TRUE(second->rect().isNull());
        hand.calendar.resize(600, 800);
        EXPECT_FALSE(second->state().offscreen);
        EXPECT_FALSE(first->state().readOnly);
        hand.calendar.Item(1).ItemTextLocked = true;
        EXPECT_TRUE(first->state().readOnly);
        EXPECT_FALSE(second->state().readOnly);
        hand.calendar.Item(1).ItemTextLocked = false;
        hand.calendar.setReadOnly(true);
        EXPECT_TRUE(first->state().readOnly && second->state().readOnly);
        hand.calendar.setReadOnly(false);
        EXPECT_FALSE(first->state().invisible);
    }
    hand.calendar.hide();
    EXPECT_TRUE(first->state().invisible);
}

TEST(CalendarAccessibility, AnItemIsALeafWithTwoActions) {
    CalendarUnderHand hand;
    hand.add(540, 600);
    QAccessibleInterface* item = Of(hand.calendar)->child(0);
    EXPECT_EQ(item->childCount(), 0);
    EXPECT_EQ(item->child(0), nullptr);
    EXPECT_EQ(item->childAt(5, 5), nullptr);
    EXPECT_EQ(item->indexOfChild(item), -1);
    EXPECT_EQ(item->object(), nullptr);
    EXPECT_EQ(item->text(QAccessible::Help), "");
    item->setText(QAccessible::Name, QStringLiteral("other"));
    EXPECT_EQ(item->text(QAccessible::Name), "9:00 AM to 10:00 AM, Anna O'Brien");
    EXPECT_EQ(item->interface_cast(QAccessible::TextInterface), nullptr);
    EXPECT_EQ(item->actionInterface()->actionNames(),
              (QStringList{QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::setFocusAction()}));
    EXPECT_TRUE(item->actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()).isEmpty());
}

TEST(CalendarAccessibility, ChoosingAnItemBringsItToSightAndOnlySetFocusTakesTheKeyboard) {
    CalendarUnderHand hand;
    hand.add(540, 600);
    hand.add(1000, 1060);
    hand.calendar.resize(600, 300);
    hand.calendar.clearFocus();
    QAccessibleActionInterface* first = Of(hand.calendar)->child(0)->actionInterface();
    QAccessibleActionInterface* second = Of(hand.calendar)->child(1)->actionInterface();
    for (int time = 0; time < 2; ++time) {
        hand.calendar.setTopTime(480);
        second->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_EQ(hand.calendar.SelectedItem(), 2);
        EXPECT_FALSE(hand.calendar.ItemRect(2).isEmpty());
        EXPECT_FALSE(hand.calendar.hasFocus());
        first->doAction(QAccessibleActionInterface::setFocusAction());
        EXPECT_EQ(hand.calendar.SelectedItem(), 1);
        EXPECT_TRUE(hand.calendar.hasFocus());
        hand.calendar.clearFocus();
    }
    hand.calendar.RemoveItem(2);
    second->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(hand.calendar.SelectedItem(), 1) << "an item that is gone cannot be chosen";
}

TEST(CalendarAccessibility, TheSelectedCardIsFoundWhereItLiesOverItsNeighbours) {
    CalendarUnderHand hand;
    for (int i = 0; i < 40; ++i)
        hand.add(540, 600);
    hand.add(1200, 1230);
    hand.add(1200, 1230);
    QAccessibleInterface* list = Of(hand.calendar);
    for (const int item : {20, 7, 42, 41}) {
        hand.calendar.setSelectedItem(item);
        const QPoint middle = hand.calendar.mapToGlobal(hand.calendar.ItemRect(item).center());
        EXPECT_EQ(list->childAt(middle.x(), middle.y()), list->child(item - 1)) << item;
    }
}

TEST(CalendarAccessibility, AnItemIsOneInterfaceAndAStrangerIsNone) {
    CalendarUnderHand hand;
    hand.add(540, 600);
    hand.add(600, 660);
    CalendarUnderHand other;
    other.add(540, 600);
    QAccessibleInterface* list = Of(hand.calendar);
    EXPECT_EQ(list->child(0), list->child(0));
    EXPECT_EQ(list->indexOfChild(list->child(0)), 0);
    EXPECT_EQ(list->indexOfChild(Of(other.calendar)->child(0)), -1);
    EXPECT_EQ(list->focusChild(), nullptr) << "nothing is selected";
    QWidget plain;
    EXPECT_NE(QAccessible::queryAccessibleInterface(&plain)->role(), QAccessible::List) << "others are left alone";
}

TEST(CalendarAccessibility, TheDescriptionIsTheCallAndThePlaceWithoutWhatTheNameHasSaid) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    const auto description = [&] { return Of(hand.calendar)->child(0)->text(QAccessible::Description); };
    EXPECT_EQ(description(), "");
    hand.calendar.Item(item).ItemLocation = "Main Street";
    EXPECT_EQ(description(), "Main Street");
    hand.calendar.Item(item).ItemStatusIcon = 3;
    EXPECT_EQ(description(), "Checked-In, Main Street");
    hand.calendar.Item(item).ItemStatusText = "Checked-In";
    EXPECT_EQ(description(), "Main Street");
    hand.calendar.Item(item).ItemStatusIcon = 0;
    EXPECT_EQ(description(), "Main Street") << "without a call, whatever the status";
    hand.calendar.Item(item).ItemLocation = QString(1000, QLatin1Char('x'));
    EXPECT_EQ(description().size(), 300);
    hand.calendar.Item(item).ItemLocation.clear();
    hand.calendar.Item(item).ItemStatusIcon = 7;
    EXPECT_EQ(description(), "Confirmed");
}

TEST(CalendarAccessibility, AnItemThatIsScrolledAwayIsNowhereWhateverItsKind) {
    CalendarUnderHand hand;
    hand.calendar.ClearColumns();
    for (int i = 1; i <= 12; ++i)
        hand.calendar.AddColumn(QStringLiteral("Provider %1").arg(i));
    hand.calendar.setVisibleColumns(3);
    const std::pair<const char*, std::pair<int, int>> kinds[] = {
        {"in the grid", {540, 600}}, {"a banner", {0, 1439}}, {"earlier", {60, 120}}, {"later", {1200, 1260}}};
    for (const auto& [kind, times] : kinds) {
        const int item = hand.calendar.AddItem(times.first, times.second, hand.day, "Anna", "1");
        hand.calendar.Item(item).ItemColumn = 12;
        hand.calendar.Item(item).ItemBanner = times.second == 1439;
        hand.calendar.ScrollToColumn(1);
        EXPECT_TRUE(hand.calendar.ItemRect(item).isEmpty()) << kind;
        hand.calendar.ScrollToItem(item);
        EXPECT_FALSE(hand.calendar.ItemRect(item).isEmpty()) << kind;
        EXPECT_TRUE(hand.calendar.rect().contains(hand.calendar.ItemRect(item))) << kind;
        hand.calendar.RemoveItem(item);
    }
}
