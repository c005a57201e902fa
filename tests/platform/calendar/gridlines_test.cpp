// The empty time grid: ground, prime hours, painted ranges and lines.

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"

namespace {

class GridLines : public CalendarLook {
  protected:
    [[nodiscard]] int top(int minute, int column = 1) const { return hand.calendar.CellRect(column, minute).top(); }
    /// Whether a line of that colour, one pixel high, crosses the column at that height.
    [[nodiscard]] bool hasLine(const Picture& picture, int y, const QColor& colour, int column = 1) const {
        const QRect row = hand.calendar.CellRect(column, 600);
        return std::abs(picture.share({row.left() + 4, y - 1, row.width() - 8, 2}, colour, 6) - 0.5) < 0.01;
    }
    [[nodiscard]] QColor groundAt(const Picture& picture, int minute, int column = 1) const {
        return picture.at(insideOf(minute, column).center());
    }
};

INSTANTIATE_TEST_SUITE_P(EachLook, GridLines, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(GridLines, EveryRowBeginsWithALineAndHoursWithAStrongerOne) {
    for (const int interval : {15, 30, 10}) {
        hand.calendar.setTimeInterval(interval);
        const Picture picture = seen();
        for (int minute = 480 + interval; minute < 1080 - interval; minute += interval) {
            if (hand.calendar.CellRect(1, minute).height() < 6)
                break;  // Scrolled out of sight.
            EXPECT_TRUE(hasLine(picture, top(minute), minute % 60 == 0 ? style.hourLine : style.rowLine))
                << minute << " by " << interval;
        }
        EXPECT_EQ(picture.share(insideOf(600), style.base), 1) << "no line within a row";
    }
}

TEST_P(GridLines, RowsBeginAtWholeIntervalsWhateverTheFirstMinute) {
    hand.calendar.setFirstTime(487);
    const Picture picture = seen();
    EXPECT_TRUE(hasLine(picture, top(495), style.rowLine));
    EXPECT_TRUE(hasLine(picture, top(540), style.hourLine));
    EXPECT_TRUE(hasLine(picture, top(555), style.rowLine));
}

TEST_P(GridLines, FullHoursHaveTheirLineWhateverTheIntervalAndTheFirstMinute) {
    hand.calendar.resize(600, 2000);
    for (const int first : {480, 487, 510}) {
        hand.calendar.setFirstTime(first);
        for (const int interval : {25, 45, 50, 15, 60}) {
            hand.calendar.setTimeInterval(interval);
            const Picture picture = seen();
            const double perMinute =
                static_cast<double>(top(900) - top(660)) / ((900 / interval - 660 / interval) * interval);
            const int row = 660 / interval * interval;
            for (const int hour : {660, 720, 780, 840}) {
                const int y = top(660) + static_cast<int>(std::lround((hour - row) * perMinute));
                const QRect around(200, y - 2, 200, 5);
                EXPECT_TRUE(picture.shows(around, style.hourLine, 3))
                    << hour << " by " << interval << " from " << first;
            }
        }
    }
}

TEST_P(GridLines, RowsTooLowForLinesKeepThoseOfTheHours) {
    hand.calendar.setFirstTime(0);
    hand.calendar.setLastTime(1439);
    hand.calendar.setTimeInterval(5);
    for (int i = 0; i < 12; ++i)
        hand.key(Qt::Key_Minus, Qt::ControlModifier);
    hand.calendar.setTopTime(0);
    ASSERT_LT(top(65) - top(60), 8);
    const Picture picture = seen();
    EXPECT_FALSE(picture.shows({200, top(60) + 2, 300, top(120) - top(60) - 4}, style.rowLine, 4));
    EXPECT_TRUE(hasLine(picture, top(60), style.hourLine));
    EXPECT_TRUE(hasLine(picture, top(120), style.hourLine));
}

TEST_P(GridLines, EveryColumnBeginsWithALine) {
    hand.calendar.setDayColumns(3);
    const Picture picture = seen();
    for (int column = 1; column <= 3; ++column) {
        const QRect row = hand.calendar.CellRect(column, 600);
        const double line = picture.share({row.left() - 1, row.top() + 2, 2, row.height() - 4}, style.columnLine, 6);
        // Half of the first one lies under the hours on a fine screen.
        EXPECT_NEAR(line, column == 1 ? 0.5 / GetParam().ratio : 0.5, 0.01);
        EXPECT_FALSE(picture.shows({row.left() + 2, row.top() + 2, row.width() - 6, 10}, style.columnLine, 6));
    }
}

TEST_P(GridLines, HoursOutsideThePrimeOnesAreShaded) {
    hand.calendar.setPrimeStart(540);
    hand.calendar.setPrimeEnd(1020);
    Picture picture = seen();
    for (const auto& [minute, colour] : {std::pair{480, style.shade},
                                         {525, style.shade},
                                         {540, style.base},
                                         {1005, style.base},
                                         {1020, style.shade},
                                         {1065, style.shade}})
        EXPECT_EQ(groundAt(picture, minute), colour) << minute;
    hand.calendar.setPrimeStart(600);
    hand.calendar.setPrimeEnd(600);
    picture = seen();
    for (const int minute : {480, 600, 1065})
        EXPECT_EQ(groundAt(picture, minute), style.shade) << minute << ": a day without prime hours";
}

TEST_P(GridLines, ADaysOwnColourTintsItsGround) {
    hand.calendar.setPrimeEnd(1020);
    hand.calendar.setDayBackColor(0x00FF00);
    const QColor green(0, 0xFF, 0);
    EXPECT_EQ(groundAt(seen(), 600), Mixed(style.base, green, 0.05));
    EXPECT_EQ(groundAt(seen(), 1035), Mixed(style.shade, green, 0.05));
    hand.calendar.setDayBackColor(SystemInfoColor);
    EXPECT_EQ(groundAt(seen(), 600), style.base);
    EXPECT_EQ(groundAt(seen(), 1035), style.shade);
}

TEST_P(GridLines, APaintedRangeGoesFromItsFirstThroughItsLastMinute) {
    hand.calendar.AddTimeRange(600, 659, 0x0000FF);
    const Picture picture = seen();
    const QColor red = Mixed(style.base, Qt::red, 0.13);
    for (const int minute : {600, 645})
        EXPECT_GT(picture.share(insideOf(minute), red), 0.5) << minute;
    for (const int minute : {585, 660})
        EXPECT_EQ(picture.share(insideOf(minute), style.base), 1) << minute;
    const QColor hatch = Mixed(style.base, Qt::red, 0.12);
    const QRect row = hand.calendar.CellRect(1, 600);
    EXPECT_GT(picture.share(row.adjusted(30, 3, -30, -3), hatch, 3), 0.02) << "it is hatched, too";
}

TEST_P(GridLines, AGreyRangeIsQuieterThanAColouredOne) {
    hand.calendar.AddTimeRange(600, 659, 0x808080);
    hand.calendar.AddTimeRange(720, 779, 0xFF0000);
    const Picture picture = seen();
    const QColor quiet = Mixed(style.base, style.ink, 0.05);
    const QColor loud = Mixed(style.base, Qt::blue, 0.13);
    EXPECT_GT(picture.share(insideOf(615), quiet, 4), 0.5);
    EXPECT_GT(picture.share(insideOf(735), loud, 4), 0.5);
    EXPECT_LT(ContrastRatio(quiet, style.base), ContrastRatio(Mixed(style.base, style.ink, 0.13), style.base));
}

TEST_P(GridLines, ARangeOfADayOrAColumnStandsThereOnly) {
    hand.calendar.setDayColumns(3);
    hand.calendar.AddTimeRange(540, 599, 0x0000FF, hand.day.addDays(1));
    hand.calendar.AddTimeRange(660, 719, 0x0000FF, 3);
    hand.calendar.AddTimeRange(780, 839, 0x0000FF);
    hand.calendar.AddTimeRange(900, 959, 0x0000FF, hand.day.addDays(9));
    const Picture picture = seen();
    const auto columnsWith = [&](int minute) {
        std::string columns;
        for (int column = 1; column <= 3; ++column)
            columns += picture.share(insideOf(minute, column), style.base) == 1 ? '.' : '#';
        return columns;
    };
    EXPECT_EQ(columnsWith(555), ".#.");
    EXPECT_EQ(columnsWith(675), "..#");
    EXPECT_EQ(columnsWith(795), "###");
    EXPECT_EQ(columnsWith(915), "...");
    // The day moves with the calendar's date.
    hand.calendar.setDate(hand.day.addDays(1));
    const Picture next = seen();
    EXPECT_NE(next.share(insideOf(555, 1), style.base), 1);
    EXPECT_EQ(next.share(insideOf(555, 2), style.base), 1);
}

TEST_P(GridLines, WhatIsBesideTheGridIsTheWindows) {
    hand.calendar.ClearColumns();
    EXPECT_EQ(seen().share(hand.calendar.rect().adjusted(100, 100, -5, -5), style.window), 1);
    hand.calendar.AddColumn("Adams");
    EXPECT_EQ(seen().share({2, 2, 30, 20}, style.window), 1) << "the corner above the hours";
}
