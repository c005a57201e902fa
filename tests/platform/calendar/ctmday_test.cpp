#include "platform/calendar/ctmday.h"

#include <gtest/gtest.h>

TEST(DayCalendar, ItemsAreCountedFromOneInTheOrderTheyWereAdded) {
    ctMDay calendar;
    calendar.setDate(QDate(2026, 3, 11));

    EXPECT_EQ(calendar.AddItem(540, 600, QDate(2026, 3, 11), "Anna O'Brien", "17"), 1);
    EXPECT_EQ(calendar.AddItem(480, 540, QDate(2026, 3, 11), "Ben Cole", "18"), 2);

    EXPECT_EQ(calendar.IndexOfKey("18"), 2);
    EXPECT_EQ(calendar.IndexOfKey("19"), 0);
    calendar.RemoveItem(1);
    EXPECT_EQ(calendar.Item(1).ItemText, "Ben Cole");
}
