#include "platform/calendar/timescale.h"

#include <gtest/gtest.h>

namespace {

const int Intervals[] = {5, 10, 15, 30, 60};
const double Scales[] = {0.15, 0.4, 0.73, 1.0, 1.31, 2.0, 7.7};

}  // namespace

TEST(TimeScale, AMinuteGoesToAPixelAndBackWhereMinutesHavePixels) {
    for (const double pixels : {1.0, 1.31, 2.0, 7.7}) {
        const TimeScale scale{387, 1080, 15, pixels};
        for (int minute = scale.first; minute <= scale.last; ++minute)
            ASSERT_EQ(scale.minuteAt(scale.y(minute)), minute) << pixels;
    }
}

TEST(TimeScale, ARowComesBackAtEveryScaleThatShowsRows) {
    for (const int interval : Intervals) {
        for (const double pixels : Scales) {
            const TimeScale scale{0, 1440, interval, pixels};
            if (interval * pixels < 2)
                continue;
            for (int row = 0; row < 1440; row += interval)
                ASSERT_EQ(scale.rowStart(scale.minuteAt(scale.y(row))), row) << interval << " at " << pixels;
        }
    }
}

TEST(TimeScale, PixelsNeverRunBackwards) {
    for (const double pixels : Scales) {
        const TimeScale scale{60, 1200, 15, pixels};
        int before = scale.first;
        for (int y = 0; y < scale.height(); ++y) {
            const int minute = scale.minuteAt(y);
            ASSERT_GE(minute, before);
            ASSERT_LE(scale.y(minute), y);
            before = minute;
        }
    }
}

TEST(TimeScale, WhatLiesOutsideIsBroughtToTheEnds) {
    const TimeScale scale{480, 1080, 15, 1.25};
    EXPECT_EQ(scale.y(-100), 0);
    EXPECT_EQ(scale.y(5000), scale.height());
    EXPECT_EQ(scale.minuteAt(-50), 480);
    EXPECT_EQ(scale.minuteAt(1'000'000), 1080);
    EXPECT_EQ(scale.rowStart(2000), 1065);
    EXPECT_EQ(scale.rowEnd(2000), 1080);
}

TEST(TimeScale, RowsBeginAtMultiplesOfTheIntervalAlsoWhenTheDayDoesNot) {
    const TimeScale scale{397, 1080, 15, 1};
    EXPECT_EQ(scale.rowStart(397), 397);
    EXPECT_EQ(scale.rowEnd(397), 405);
    EXPECT_EQ(scale.rowStart(406), 405);
    EXPECT_EQ(scale.rowEnd(406), 420);
}

TEST(ClockText, TellsTwelveAndTwentyFourHours) {
    EXPECT_EQ(ClockText(0, false), "12:00 AM");
    EXPECT_EQ(ClockText(545, false), "9:05 AM");
    EXPECT_EQ(ClockText(720, false), "12:00 PM");
    EXPECT_EQ(ClockText(779, false), "12:59 PM");
    EXPECT_EQ(ClockText(1439, false), "11:59 PM");
    EXPECT_EQ(ClockText(1440, false), "12:00 AM");
    EXPECT_EQ(ClockText(545, true), "09:05");
    EXPECT_EQ(ClockText(1440, true), "24:00");
    EXPECT_EQ(ClockText(-7, true), "00:00");
}

TEST(ClockText, ASpanNamesTheHalfOfTheDayOnce) {
    EXPECT_EQ(ClockSpan(540, 590, false), QStringLiteral("9:00 – 9:50 AM"));
    EXPECT_EQ(ClockSpan(690, 750, false), QStringLiteral("11:30 AM – 12:30 PM"));
    EXPECT_EQ(ClockSpan(690, 750, true), QStringLiteral("11:30 – 12:30"));
}
