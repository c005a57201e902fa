#include "platform/calendar/ctmday.h"

#include <gtest/gtest.h>

#include <limits>
#include <QPainter>

#include "tests/platform/calendar/calendarunderhand.h"

TEST(DayCalendar, ItemsAreCountedFromOneInTheOrderTheyWereAdded) {
    ctMDay calendar;
    calendar.setDate(QDate(2026, 3, 11));

    EXPECT_EQ(calendar.AddItem(540, 600, QDate(2026, 3, 11), "Anna O'Brien", "17"), 1);
    EXPECT_EQ(calendar.AddItem(480, 540, QDate(2026, 3, 11), "Ben Cole", "18"), 2);

    EXPECT_EQ(calendar.IndexOfKey("18"), 2);
    EXPECT_EQ(calendar.IndexOfKey("19"), 0);
    calendar.RemoveItem(1);
    EXPECT_EQ(std::as_const(calendar).Item(1).ItemText, "Ben Cole");
}

TEST(DayCalendar, AWrongIndexIsHarmless) {
    ctMDay calendar;
    for (const int index : {-5, 0, 1, 99}) {
        calendar.Item(index).ItemText = "lost";
        EXPECT_EQ(std::as_const(calendar).Item(index).ItemText, "");
        EXPECT_EQ(calendar.Item(index).ItemText, "");
        calendar.RemoveItem(index);
        calendar.setSelectedItem(index);
        calendar.EditItem(index);
        calendar.ScrollToItem(index);
        EXPECT_TRUE(calendar.ItemRect(index).isEmpty());
        EXPECT_EQ(calendar.ColumnOfItem(index), 0);
    }
    EXPECT_EQ(calendar.SelectedItem(), 0);
}

TEST(DayCalendar, SelectingAnItemIsToldOnceAndEndsARange) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy selected(&hand.calendar, &ctMDay::ItemSelected);
    hand.calendar.selectRange(1, 600, 660);
    EXPECT_EQ(hand.calendar.SelectedRange(), 0);

    hand.calendar.setSelectedItem(item);
    hand.calendar.setSelectedItem(item);

    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected[0][0].toInt(), item);
    EXPECT_EQ(hand.calendar.SelectedRange(), -1);
    hand.calendar.selectRange(1, 600, 660);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0);
    EXPECT_EQ(selected[1][0].toInt(), 0);
}

TEST(DayCalendar, RemovingAnItemBeforeTheSelectedOneKeepsTheSelectionOnTheSameItem) {
    CalendarUnderHand hand;
    hand.add(540, 600, "Anna");
    hand.add(600, 660, "Ben");
    hand.calendar.setSelectedItem(2);
    QSignalSpy selected(&hand.calendar, &ctMDay::ItemSelected);

    hand.calendar.RemoveItem(1);

    EXPECT_EQ(hand.calendar.SelectedItem(), 1);
    EXPECT_EQ(std::as_const(hand.calendar).Item(1).ItemText, "Ben");
    EXPECT_EQ(selected.count(), 0);
    hand.calendar.RemoveItem(1);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0);
    EXPECT_EQ(selected.count(), 1);
}

TEST(DayCalendar, ClearingTheDayTellsThatNothingIsSelectedAndKeepsTheRange) {
    CalendarUnderHand hand;
    hand.calendar.setSelectedItem(hand.add(540, 600));
    QSignalSpy selected(&hand.calendar, &ctMDay::ItemSelected);

    hand.calendar.ClearItems();

    EXPECT_EQ(hand.calendar.ItemCount(), 0);
    EXPECT_EQ(selected.count(), 1);
    hand.calendar.selectRange(1, 600, 630);
    hand.calendar.ClearItems();
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    hand.calendar.setDate(hand.day.addDays(1));
    EXPECT_EQ(hand.calendar.SelectedRange(), -1);
}

TEST(DayCalendar, ARangeThatIsNoneIsNotSelected) {
    CalendarUnderHand hand;
    hand.calendar.selectRange(1, 660, 600);
    hand.calendar.selectRange(0, 600, 660);
    hand.calendar.selectRange(2, 600, 660);
    EXPECT_EQ(hand.calendar.SelectedRange(), -1);
    EXPECT_EQ(hand.calendar.SelColumn(), 0);
}

TEST(DayCalendar, TheGridBeginsAtFirstTimeAndTopTimeScrolls) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    hand.calendar.setFirstTime(390);
    hand.calendar.setTopTime(390);
    EXPECT_TRUE(hand.calendar.CellRect(1, 389).isEmpty());
    const int top = hand.calendar.CellRect(1, 390).top();
    EXPECT_GT(top, 0);

    hand.calendar.setTopTime(600);

    EXPECT_EQ(hand.calendar.CellRect(1, 600).top(), top);
    EXPECT_TRUE(hand.calendar.CellRect(1, 390).isEmpty());
    EXPECT_EQ(hand.calendar.TopTime(), 600);
}

TEST(DayCalendar, AnItemAfterTheLastHourIsCountedBelowTheGrid) {
    CalendarUnderHand hand;
    hand.add(540, 600);
    const int late = hand.add(1200, 1260, "Late, Lou");

    const QRect marker = hand.calendar.ItemRect(late);

    EXPECT_FALSE(marker.isEmpty());
    EXPECT_GT(marker.top(), hand.calendar.ItemRect(1).bottom());
    EXPECT_EQ(hand.calendar.LastTime(), 1079);
    hand.click(marker.center());
    EXPECT_EQ(hand.calendar.SelectedItem(), late);
}

TEST(DayCalendar, DaysAsColumnsFollowTheDate) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(7);
    hand.calendar.AddItem(540, 600, hand.day.addDays(6), "Sunday", "1");
    hand.calendar.AddItem(540, 600, hand.day.addDays(7), "Next week", "2");
    EXPECT_EQ(hand.calendar.ColumnOfItem(1), 7);
    EXPECT_EQ(hand.calendar.ColumnOfItem(2), 0);

    hand.calendar.setDate(hand.day.addDays(1));

    EXPECT_EQ(hand.calendar.ColumnOfItem(1), 6);
    EXPECT_EQ(hand.calendar.ColumnOfItem(2), 7);
}

TEST(DayCalendar, ProviderColumnsHaveTitlesAndShareTheWidth) {
    CalendarUnderHand hand;
    hand.calendar.ClearColumns();
    EXPECT_EQ(hand.calendar.ColumnCount(), 0);
    for (const char* name : {"Adams", "Baker", "Cruz", "Diaz"})
        hand.calendar.AddColumn(name);
    hand.calendar.setVisibleColumns(2);

    EXPECT_EQ(hand.calendar.ColumnTitle(3), "Cruz");
    EXPECT_EQ(hand.calendar.ColumnTitle(5), "");
    EXPECT_GT(hand.calendar.CellRect(1, 540).width(), 200);
    EXPECT_TRUE(hand.calendar.CellRect(3, 540).isEmpty());
    const int item = hand.add(540, 600);
    hand.calendar.Item(item).ItemColumn = 4;
    hand.calendar.ScrollToItem(item);
    EXPECT_FALSE(hand.calendar.ItemRect(item).isEmpty());
    EXPECT_TRUE(hand.calendar.CellRect(1, 540).isEmpty());
}

TEST(DayCalendar, WithEveryProviderFilteredOutNothingBreaks) {
    CalendarUnderHand hand;
    hand.calendar.ClearColumns();
    hand.add(540, 600);
    hand.click({300, 300});
    hand.key(Qt::Key_Down);
    hand.key(Qt::Key_Tab);
    EXPECT_EQ(hand.calendar.SelectedItem(), 0);
    EXPECT_FALSE(hand.calendar.grab().isNull());
}

TEST(DayCalendar, ExtremeValuesAreDrawnAndNotLost) {
    CalendarUnderHand hand;
    const int least = std::numeric_limits<int>::min();
    const int most = std::numeric_limits<int>::max();
    for (const auto& [start, end] : {std::pair{least, most},
                                     {most, least},
                                     {600, 540},
                                     {600, 600},
                                     {0, 1440},
                                     {1440, 1440},
                                     {-1, 1441},
                                     {most, most},
                                     {least, least}})
        hand.calendar.AddItem(start, end, QDate(), QString(), QString());
    hand.calendar.setFirstTime(least);
    hand.calendar.setLastTime(most);
    EXPECT_FALSE(hand.calendar.grab().isNull());
    EXPECT_EQ(hand.calendar.ItemsInReadingOrder().size(), 9U);
    hand.calendar.AddTimeRange(least, most, -1);
    hand.calendar.AddTimeRange(most, least, 0, -4);
    for (int index = 1; index <= hand.calendar.ItemCount(); ++index) {
        hand.calendar.setSelectedItem(index);
        hand.calendar.ScrollToItem(index);
        EXPECT_FALSE(hand.calendar.ToolTipOf(index).isEmpty());
    }
    QImage paper(400, 600, QImage::Format_RGB32);
    QPainter painter(&paper);
    hand.calendar.paint(painter, QRectF(0, 0, 400, 600), least, most, PrintStyle(QFont(), QFont()));
    painter.end();
    for (int index = 1; index <= hand.calendar.ItemCount(); ++index) {
        hand.calendar.setSelectedItem(index);
        hand.key(Qt::Key_Down, Qt::ControlModifier);
        hand.key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    }
    hand.calendar.setFirstTime(most);
    hand.calendar.setLastTime(least);
    hand.calendar.setPrimeStart(least);
    hand.calendar.setPrimeEnd(most);
    hand.calendar.setTopTime(most);
    hand.calendar.setTimeInterval(0);
    EXPECT_EQ(hand.calendar.TimeInterval(), 5);
    hand.calendar.setTimeInterval(most);
    EXPECT_EQ(hand.calendar.TimeInterval(), 60);
    EXPECT_FALSE(hand.calendar.grab().isNull());
    hand.calendar.resize(1, 1);
    EXPECT_FALSE(hand.calendar.grab().isNull());
}

TEST(DayCalendar, AHundredThousandCharactersArePaintedAtOnce) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, QString(100'000, QLatin1Char('M')) + QLatin1Char('\n'));
    hand.calendar.Item(item).ItemLocation = QString(100'000, QLatin1Char('L'));
    hand.calendar.Item(item).ItemTip = QString(100'000, QLatin1Char('<'));
    EXPECT_FALSE(hand.calendar.grab().isNull());
    EXPECT_LT(hand.calendar.ToolTipOf(item).size(), 10'000);
    EXPECT_LT(hand.calendar.AccessibleItemName(item).size(), 1'000);
}

TEST(DayCalendar, TenThousandItemsOnOneDayAreLaidOutOnceAndCanBeUsed) {
    CalendarUnderHand hand;
    for (int i = 0; i < 10'000; ++i)
        hand.calendar.AddItem(480 + i % 600, 490 + i % 600, hand.day, QStringLiteral("Item %1").arg(i),
                              QString::number(i));
    EXPECT_FALSE(hand.calendar.grab().isNull());
    EXPECT_EQ(hand.calendar.ItemsInReadingOrder().size(), 10'000U);
    hand.key(Qt::Key_Tab);
    EXPECT_EQ(hand.calendar.SelectedItem(), 1);
    hand.click(hand.middleOf(1));
    EXPECT_EQ(hand.calendar.SelectedItem(), 1);
}
