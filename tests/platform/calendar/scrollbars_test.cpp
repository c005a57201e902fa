// What the calendar is told and tells again, how far it scrolls, and how it goes with the clock.

#include <gtest/gtest.h>

#include <functional>
#include <QScreen>
#include <QScrollBar>

#include "tests/platform/calendar/calendarunderhand.h"
#include "tests/platform/calendar/monthunderhand.h"
#include "tests/platform/calendar/words.h"

namespace {

class ScrollBars : public testing::Test {
  protected:
    [[nodiscard]] QScrollBar& bar(Qt::Orientation orientation) const {
        for (auto* each : hand.calendar.findChildren<QScrollBar*>())
            if (each->orientation() == orientation)
                return *each;
        throw std::logic_error("no such bar");
    }
    [[nodiscard]] QScrollBar& down() const { return bar(Qt::Vertical); }
    [[nodiscard]] QScrollBar& across() const { return bar(Qt::Horizontal); }
    void resize(int width, int height) {
        hand.calendar.resize(width, height);
        hand.settle();
    }

    CalendarUnderHand hand;
};

}  // namespace

TEST_F(ScrollBars, AreShownWhereTheDayOrItsColumnsHaveNoRoom) {
    EXPECT_FALSE(down().isVisible() || across().isVisible());
    resize(600, 300);
    EXPECT_TRUE(down().isVisible());
    EXPECT_FALSE(across().isVisible());
    hand.calendar.setDayColumns(20);
    hand.settle();
    EXPECT_TRUE(down().isVisible() && across().isVisible());
    resize(600, 1600);
    EXPECT_FALSE(down().isVisible());
    EXPECT_TRUE(across().isVisible());
    hand.calendar.setDayColumns(1);
    hand.settle();
    EXPECT_FALSE(down().isVisible() || across().isVisible());
}

TEST_F(ScrollBars, AreNotShownForASinglePixelThatHasNoRoom) {
    constexpr int NarrowestColumn = 4;
    const int gutter = hand.calendar.HeadingRect(1).left();
    resize(gutter + NarrowestColumn - 1, 800);
    EXPECT_FALSE(down().isVisible() || across().isVisible());
    resize(gutter + NarrowestColumn - 2, 800);
    EXPECT_TRUE(across().isVisible());
}

TEST_F(ScrollBars, StandAtTheEdgesBesideTheGrid) {
    hand.calendar.setDayColumns(20);
    resize(600, 300);
    const int thick = down().width();
    EXPECT_EQ(down().geometry().right(), 599);
    EXPECT_EQ(across().geometry().bottom(), 299);
    EXPECT_EQ(down().geometry().bottom() + 1, across().geometry().top());
    EXPECT_EQ(down().geometry().top(), hand.calendar.HeadingRect(1).bottom() + 1);
    EXPECT_EQ(across().geometry().left(), hand.calendar.HeadingRect(1).left());
    EXPECT_EQ(across().geometry().right() + 1, 600 - thick);
}

TEST_F(ScrollBars, ReachTheEndsOfTheDayAndOfTheColumns) {
    hand.calendar.setDayColumns(20);
    resize(600, 300);
    const int row = hand.rowHeight();
    down().setValue(down().maximum());
    EXPECT_NEAR(hand.calendar.CellRect(1, 1065).bottom() + 1, across().geometry().top(), 1);
    EXPECT_NEAR(hand.calendar.TopTime(), 1080 - down().pageStep() * 15 / row, 3);
    across().setValue(across().maximum());
    EXPECT_NEAR(hand.calendar.CellRect(20, 1065).right() + 1, down().geometry().left(), 2);
    EXPECT_EQ(down().pageStep(), across().geometry().top() - down().geometry().top());
    EXPECT_EQ(across().pageStep(), across().width());
    EXPECT_NEAR(down().singleStep(), row, 1) << "a click on an arrow is a row";
    EXPECT_NEAR(across().singleStep(), hand.calendar.HeadingRect(20).width(), 1) << "or a column";
}

TEST_F(ScrollBars, AColumnIsBroughtToSightAsLittleAsItTakes) {
    hand.calendar.setDayColumns(10);
    hand.calendar.setVisibleColumns(3);
    hand.settle();
    const auto shown = [&] {
        std::string columns;
        for (int column = 1; column <= 10; ++column)
            columns += hand.calendar.CellRect(column, 600).width() > hand.calendar.width() / 4 ? '#' : '.';
        return columns;
    };
    EXPECT_EQ(shown(), "###.......");
    hand.calendar.ScrollToColumn(5);
    EXPECT_EQ(shown(), "..###.....");
    hand.calendar.ScrollToColumn(4);
    EXPECT_EQ(shown(), "..###.....") << "it is in sight";
    hand.calendar.ScrollToColumn(2);
    EXPECT_EQ(shown(), ".###......");
    for (const int wrong : {0, -1, 11})
        hand.calendar.ScrollToColumn(wrong);
    EXPECT_EQ(shown(), ".###......");
    hand.calendar.ScrollToColumn(10);
    EXPECT_EQ(shown(), ".......###");
}

TEST_F(ScrollBars, AnItemIsBroughtToSightAsLittleAsItTakes) {
    resize(600, 300);
    const int low = hand.add(900, 930);
    const int high = hand.add(495, 525);
    const int longer = hand.add(600, 1020);
    const int bottom = 300;
    hand.calendar.ScrollToItem(low);
    EXPECT_NEAR(hand.calendar.ItemRect(low).bottom(), bottom - 1, 2) << "from below it comes to the lower edge";
    const int top = hand.calendar.TopTime();
    hand.calendar.ScrollToItem(low);
    EXPECT_EQ(hand.calendar.TopTime(), top) << "what is in sight stays";
    hand.calendar.ScrollToItem(high);
    EXPECT_NEAR(hand.calendar.ItemRect(high).top(), hand.calendar.HeadingRect(1).bottom() + 2, 2)
        << "from above to the upper";
    hand.calendar.ScrollToItem(longer);
    EXPECT_NEAR(hand.calendar.ItemRect(longer).top(), hand.calendar.HeadingRect(1).bottom() + 2, 2)
        << "what has no room begins at the top";
}

TEST_F(ScrollBars, TheTopIsKeptThroughChangesOfTheSize) {
    resize(600, 300);
    hand.calendar.setTopTime(660);
    for (const QSize size : {QSize(500, 280), QSize(700, 320), QSize(600, 300)}) {
        resize(size.width(), size.height());
        EXPECT_EQ(hand.calendar.CellRect(1, 660).top(), hand.calendar.HeadingRect(1).bottom() + 1);
    }
}

TEST_F(ScrollBars, WhatTheCalendarIsToldItTells) {
    ctMDay& calendar = hand.calendar;
    calendar.setFirstTime(390);
    calendar.setLastTime(1139);
    calendar.setPrimeStart(510);
    calendar.setPrimeEnd(990);
    calendar.setTimeInterval(20);
    calendar.setTwentyFourHour(true);
    calendar.setDayBackColor(0x112233);
    calendar.setDayHeaderColor(0x445566);
    calendar.setHolidayFlag(true);
    calendar.setReadOnly(true);
    calendar.setVisibleColumns(4);
    EXPECT_EQ(calendar.FirstTime(), 390);
    EXPECT_EQ(calendar.LastTime(), 1139);
    EXPECT_EQ(calendar.PrimeStart(), 510);
    EXPECT_EQ(calendar.PrimeEnd(), 990);
    EXPECT_EQ(calendar.TimeInterval(), 20);
    EXPECT_TRUE(calendar.TwentyFourHour() && calendar.HolidayFlag() && calendar.ReadOnly());
    EXPECT_EQ(calendar.DayBackColor(), 0x112233);
    EXPECT_EQ(calendar.DayHeaderColor(), 0x445566);
    EXPECT_EQ(calendar.VisibleColumns(), 4);
    calendar.setVisibleColumns(-3);
    EXPECT_EQ(calendar.VisibleColumns(), 0);
    EXPECT_EQ(calendar.Date(), hand.day);
    calendar.setDayColumns(0);
    EXPECT_EQ(calendar.ColumnCount(), 1);
    calendar.setDayColumns(100'000);
    EXPECT_EQ(calendar.ColumnCount(), 400);
    for (const int column : {-1, 0, 401})
        EXPECT_EQ(calendar.ColumnTitle(column), "") << column;
}

TEST_F(ScrollBars, ASelectedRangeEndsWithItsColumns) {
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"another date", [&] { hand.calendar.setDate(hand.day.addDays(1)); }},
        {"other days", [&] { hand.calendar.setDayColumns(2); }},
        {"no columns", [&] { hand.calendar.ClearColumns(); }},
        {"an item", [&] { hand.calendar.setSelectedItem(hand.add(540, 600)); }},
        {"nothing", [&] { hand.calendar.clearSelection(); }},
    };
    for (const auto& [what, change] : changes) {
        hand.calendar.setDayColumns(1);
        hand.calendar.setDate(hand.day);
        hand.calendar.selectRange(1, 540, 600);
        ASSERT_EQ(hand.calendar.SelectedRange(), 0);
        hand.calendar.setDate(hand.day);
        EXPECT_EQ(hand.calendar.SelectedRange(), 0) << "the same date keeps it";
        change();
        EXPECT_EQ(hand.calendar.SelectedRange(), -1) << what;
        EXPECT_EQ(hand.calendar.SelStart() + hand.calendar.SelEnd() + hand.calendar.SelColumn(), 0) << what;
        EXPECT_EQ(hand.calendar.SelectionText(), "") << what;
    }
    hand.calendar.setDayColumns(1);
    hand.calendar.selectRange(1, -50, 9000);
    EXPECT_EQ(hand.calendar.SelStart(), 0);
    EXPECT_EQ(hand.calendar.SelEnd(), 1440);
    hand.calendar.AddColumn("Adams");
    hand.calendar.selectRange(1, 540, 600);
    EXPECT_EQ(hand.calendar.SelectionText(), "9:00 AM to 10:00 AM, Adams");
}

TEST_F(ScrollBars, ItsSizesFollowFromTheFont) {
    const QSize hint = hand.calendar.sizeHint();
    const QSize least = hand.calendar.minimumSizeHint();
    EXPECT_GT(hint.width(), least.width());
    EXPECT_GT(hint.height(), least.height());
    const CalendarStyle style = ScreenStyle(hand.calendar.palette(), hand.calendar.font());
    EXPECT_EQ(least, QSize(style.gutterWidth + style.minColumnWidth, style.headingHeight + 8 * style.textLine));
    EXPECT_EQ(hint, QSize(style.gutterWidth + 4 * style.minColumnWidth, 36 * style.textLine));
    hand.calendar.setFont(QFont(QStringLiteral("DejaVu Sans"), 18));
    EXPECT_GT(hand.calendar.sizeHint().width(), hint.width());
    EXPECT_GT(hand.calendar.sizeHint().height(), hint.height());
    EXPECT_GT(hand.calendar.minimumSizeHint().width(), least.width());
    EXPECT_GT(hand.calendar.minimumSizeHint().height(), least.height());
}

TEST(Present, GoesOnAtEachFullMinuteWhileTheCalendarIsShown) {
    CalendarUnderHand hand;
    QDateTime now(hand.day, QTime(10, 20, 59, 990));
    hand.calendar.setClock([&] { return now; });
    const auto shows = [&](const char* time) {
        return TextsOf(WordDevice::of(hand.calendar)).contains(QString::fromLatin1(time));
    };
    EXPECT_TRUE(shows("10:20"));
    now = QDateTime(hand.day, QTime(10, 21, 59, 990));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows("10:21"); }, 900));
    now = QDateTime(hand.day, QTime(10, 22));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows("10:22"); }, 900)) << "and again";
    hand.calendar.hide();
    hand.calendar.setNow(QDateTime(hand.day, QTime(11, 5)));
    EXPECT_TRUE(shows("11:05")) << "a hidden one is told, too";
    now = QDateTime(hand.day, QTime(12, 30));
    hand.calendar.setClock([&] { return now; });
    now = QDateTime(hand.day, QTime(12, 40));
    hand.calendar.show();
    EXPECT_TRUE(shows("12:40")) << "it is read when it is shown";
}

TEST(Present, TodayOfAMonthGoesOnAtMidnight) {
    MonthUnderHand hand;
    QDateTime now(hand.day, QTime(23, 59, 59, 990));
    hand.month.hide();
    hand.month.setClock([&] { return now; });
    hand.month.show();
    QCoreApplication::processEvents();
    const auto onScreen = [&] {
        return hand.month.screen()->grabWindow(hand.month.winId()).toImage().copy(hand.cell(hand.day.addDays(1)).rect);
    };
    const QImage before = onScreen();
    now = QDateTime(hand.day.addDays(1), QTime(0, 0, 1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return onScreen() != before; }, 3000));
}

TEST(Present, TodayOfAMonthGoesOnAtEachMidnight) {
    MonthUnderHand hand;
    QDateTime now(hand.day, QTime(23, 59, 59, 990));
    hand.month.hide();
    hand.month.setClock([&] { return now; });
    hand.month.show();
    QCoreApplication::processEvents();
    const auto cell = [&](QDate day) {
        return hand.month.screen()->grabWindow(hand.month.winId()).toImage().copy(hand.cell(day).rect);
    };
    for (const int later : {1, 2, 3}) {
        const QDate next = hand.day.addDays(later);
        const QImage before = cell(next);
        now = QDateTime(next, QTime(23, 59, 59, 990));
        EXPECT_TRUE(QTest::qWaitFor([&] { return cell(next) != before; }, 3000)) << later;
    }
}

TEST(Present, AHiddenCalendarOrMonthDoesNotReadTheClock) {
    CalendarUnderHand day;
    MonthUnderHand month;
    int reads = 0;
    const auto justBeforeMidnight = [&] {
        ++reads;
        return QDateTime(day.day, QTime(23, 59, 59, 999));
    };
    const auto isReadAgain = [&](int wait) {
        reads = 0;
        return QTest::qWaitFor([&] { return reads > 3; }, wait);
    };
    month.month.hide();
    day.calendar.setClock(justBeforeMidnight);
    EXPECT_TRUE(isReadAgain(5000));
    day.calendar.hide();
    EXPECT_FALSE(isReadAgain(300));
    month.month.setClock(justBeforeMidnight);
    month.month.show();
    EXPECT_TRUE(isReadAgain(5000));
    month.month.hide();
    EXPECT_FALSE(isReadAgain(100));
}

TEST(Present, AMonthBeginsItsWeeksOnMondayAsTheWeekViewDoesInEveryLocale) {
    const QLocale before;
    for (const QLocale::Country country : {QLocale::UnitedStates, QLocale::UnitedKingdom}) {
        QLocale::setDefault(QLocale(QLocale::English, country));
        ctWeek month;
        month.setDate(QDate(2026, 3, 11));
        EXPECT_EQ(month.Layout().cells.front().day.dayOfWeek(), Qt::Monday);
    }
    QLocale::setDefault(before);
}
