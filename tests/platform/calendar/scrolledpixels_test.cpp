// What stands on the screen after scrolling, which moves the pixels that stay in sight, is what painting anew gives.

#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include "tests/platform/calendar/calendarlook.h"

namespace {

/// Ten providers with a morning and an afternoon each, on a screen too small for them.
class ScrolledPixels : public testing::TestWithParam<bool> {
  protected:
    ScrolledPixels() {
        ctMDay& calendar = hand.calendar;
        calendar.setPalette(PaletteOf(ColoursOf(GetParam() ? ThemeMode::Dark : ThemeMode::Light)));
        calendar.ClearColumns();
        for (int column = 1; column <= 10; ++column)
            calendar.AddColumn(QStringLiteral("Provider %1").arg(column));
        calendar.setVisibleColumns(3);
        for (int i = 0; i < 120; ++i) {
            const int item = calendar.AddItem(480 + i * 37 % 590, 500 + i * 37 % 590 + i % 50, hand.day,
                                              QStringLiteral("Person %1").arg(i), QString::number(i));
            calendar.Item(item).ItemColumn = 1 + i % 10;
            calendar.Item(item).ItemColor = i * 31357;
            calendar.Item(item).ItemTentativeIcon = i % 7 == 0;
        }
        calendar.AddTimeRange(600, 719, 0x0000FF, 2);
        calendar.setNow(QDateTime(hand.day, QTime(10, 20)));
        calendar.resize(500, 300);
        hand.settle();
    }

    /// Brings to the screen what is due and takes what stands there.
    [[nodiscard]] Picture onScreen() {
        hand.settle();
        const QPixmap screen = hand.calendar.screen()->grabWindow(hand.calendar.winId());
        return Picture(screen.toImage().convertToFormat(QImage::Format_RGB32));
    }
    [[nodiscard]] QRect differences() {
        const Picture screen = onScreen();
        return screen.changesTo(Picture::of(hand.calendar));
    }
    [[nodiscard]] QScrollBar& bar(Qt::Orientation orientation) const {
        for (auto* each : hand.calendar.findChildren<QScrollBar*>())
            if (each->orientation() == orientation)
                return *each;
        throw std::logic_error("no such bar");
    }

    CalendarUnderHand hand;
};

INSTANTIATE_TEST_SUITE_P(EachMode, ScrolledPixels, testing::Values(false, true),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

}  // namespace

TEST_P(ScrolledPixels, AreRightAfterEachStepDownAndUp) {
    EXPECT_EQ(differences(), QRect());
    QScrollBar& down = bar(Qt::Vertical);
    ASSERT_GT(down.maximum(), 100);
    for (const int value : {1, 7, 40, 41, down.maximum(), down.maximum() - 3, 60, 0}) {
        const Picture before = onScreen();
        down.setValue(value);
        EXPECT_EQ(differences(), QRect()) << "scrolled down to " << value;
        EXPECT_TRUE(before.changesTo(onScreen()).isValid()) << "nothing moved to " << value;
    }
}

TEST_P(ScrolledPixels, AreRightAfterEachStepAcross) {
    QScrollBar& across = bar(Qt::Horizontal);
    ASSERT_GT(across.maximum(), 100);
    for (const int value : {1, 9, 150, 151, across.maximum(), across.maximum() - 5, 70, 0}) {
        const Picture before = onScreen();
        across.setValue(value);
        EXPECT_EQ(differences(), QRect()) << "scrolled across to " << value;
        EXPECT_TRUE(before.changesTo(onScreen()).isValid()) << "nothing moved to " << value;
    }
}

TEST_P(ScrolledPixels, TheHeadingsMoveWithTheirColumnsAndTheHoursWithTheirRows) {
    const QRect hours(0, 60, 40, 200);
    const QRect headings(60, 0, 400, 20);
    Picture before = onScreen();
    bar(Qt::Vertical).setValue(30);
    EXPECT_FALSE(before.isSame(onScreen(), hours));
    EXPECT_TRUE(before.isSame(onScreen(), headings));
    before = onScreen();
    bar(Qt::Horizontal).setValue(30);
    EXPECT_TRUE(before.isSame(onScreen(), hours));
    EXPECT_FALSE(before.isSame(onScreen(), headings));
}

TEST_P(ScrolledPixels, AreRightWithMarkersBannersASelectionAndAGhost) {
    ctMDay& calendar = hand.calendar;
    for (int column = 1; column <= 10; ++column) {
        calendar.Item(calendar.AddItem(1200, 1230, hand.day, "Late", QString())).ItemColumn = column;
        calendar.Item(calendar.AddItem(60, 90, hand.day, "Early", QString())).ItemColumn = column;
        const int holiday = calendar.AddItem(0, 1439, hand.day, QStringLiteral("Day %1").arg(column), QString());
        calendar.Item(holiday).ItemColumn = column;
        calendar.Item(holiday).ItemBanner = true;
    }
    EXPECT_EQ(differences(), QRect());
    for (const int selected : {0, 3, 121, 0}) {
        calendar.setSelectedItem(selected);
        for (const int step : {20, 55, 3}) {
            bar(Qt::Horizontal).setValue(step * 2);
            EXPECT_EQ(differences(), QRect()) << "item " << selected << " across " << step;
            bar(Qt::Vertical).setValue(step);
            EXPECT_EQ(differences(), QRect()) << "item " << selected << " down " << step;
        }
    }
    calendar.selectRange(2, 540, 640);
    bar(Qt::Vertical).setValue(60);
    bar(Qt::Horizontal).setValue(60);
    EXPECT_EQ(differences(), QRect());
}

TEST_P(ScrolledPixels, AreRightWhileSomethingIsDragged) {
    ctMDay& calendar = hand.calendar;
    calendar.ClearItems();
    hand.add(510, 570);
    hand.settle();
    hand.press(hand.middleOf(1));
    hand.moveTo(hand.middleOf(1) + QPoint(0, 40));
    EXPECT_EQ(differences(), QRect());
    bar(Qt::Vertical).setValue(25);
    EXPECT_EQ(differences(), QRect());
    bar(Qt::Vertical).setValue(50);
    EXPECT_EQ(differences(), QRect());
    hand.key(Qt::Key_Escape);
    EXPECT_EQ(differences(), QRect());
}

TEST_P(ScrolledPixels, OnlyWhatTheEventChangesIsPaintedAnew) {
    ctMDay& calendar = hand.calendar;
    EXPECT_EQ(differences(), QRect());
    const auto hoverAll = [&] {
        for (const int item : calendar.ItemsInReadingOrder()) {
            if (calendar.ItemRect(item).isEmpty())
                continue;
            hand.hover(calendar.ItemRect(item).center());
            EXPECT_EQ(differences(), QRect()) << "the pointer on " << item;
        }
    };
    hoverAll();
    hand.hover(calendar.HeadingRect(2).center());
    EXPECT_EQ(differences(), QRect());
    hand.hover(calendar.HeadingRect(1).center());
    EXPECT_EQ(differences(), QRect());
    hand.hover({5, 5});
    EXPECT_EQ(differences(), QRect());
}

TEST_P(ScrolledPixels, EveryChangeIsSeenAtOnce) {
    ctMDay& calendar = hand.calendar;
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"the date", [&] { calendar.setDate(hand.day.addDays(1)); }},
        {"the date back", [&] { calendar.setDate(hand.day); }},
        {"the first time", [&] { calendar.setFirstTime(450); }},
        {"the last time", [&] { calendar.setLastTime(1139); }},
        {"the prime start", [&] { calendar.setPrimeStart(520); }},
        {"the prime end", [&] { calendar.setPrimeEnd(530); }},
        {"the top", [&] { calendar.setTopTime(500); }},
        {"the interval", [&] { calendar.setTimeInterval(30); }},
        {"the clock", [&] { calendar.setTwentyFourHour(true); }},
        {"the ground", [&] { calendar.setDayBackColor(0x00FF00); }},
        {"an item", [&] { hand.add(500, 560, QStringLiteral("New")); }},
        {"a changed item", [&] { calendar.Item(calendar.ItemCount()).ItemColor = 0x0000FF; }},
        {"a removed item", [&] { calendar.RemoveItem(calendar.ItemCount()); }},
        {"a range", [&] { calendar.AddTimeRange(500, 600, 0x808080); }},
        {"a day's range", [&] { calendar.AddTimeRange(560, 600, 0xFF0000, hand.day); }},
        {"no ranges", [&] { calendar.ClearTimeRanges(); }},
        {"the columns in sight", [&] { calendar.setVisibleColumns(2); }},
        {"a selected range", [&] { calendar.selectRange(1, 520, 580); }},
        {"no selection", [&] { calendar.clearSelection(); }},
        {"a selected item", [&] { calendar.setSelectedItem(calendar.ItemsInReadingOrder()[1]); }},
        {"the keyboard", [&] { calendar.clearFocus(); }},
        {"the keyboard back", [&] { calendar.setFocus(); }},
        {"the present", [&] { calendar.setNow(QDateTime(hand.day, QTime(9, 10))); }},
        {"a column", [&] { calendar.AddColumn(QStringLiteral("New")); }},
        {"the palette",
         [&] {
             calendar.setPalette(PaletteOf(ColoursOf(ThemeMode::Dark)));
             calendar.setPalette(PaletteOf(ColoursOf(ThemeMode::Light)));
             calendar.setFont(QFont(QStringLiteral("DejaVu Sans"), 11));
         }},
        {"no items", [&] { calendar.ClearItems(); }},
        {"days", [&] { calendar.setDayColumns(2); }},
        {"the header's colour",
         [&] {
             calendar.setDayColumns(1);
             calendar.setDayHeaderColor(0x00FF00);
         }},
        {"the flag", [&] { calendar.setHolidayFlag(true); }},
        {"no columns", [&] { calendar.ClearColumns(); }},
    };
    for (const auto& [what, change] : changes) {
        const Picture before = onScreen();
        change();
        EXPECT_TRUE(before.changesTo(onScreen()).isValid()) << what << " is not seen";
        EXPECT_EQ(differences(), QRect()) << what << " is seen in part";
    }
}
