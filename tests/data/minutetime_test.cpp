#include "data/minutetime.h"

#include <gtest/gtest.h>

namespace {

std::string text(int minutes, bool militaryTime = false) {
    return MinutesToTimeText(minutes, militaryTime).toStdString();
}

}  // namespace

TEST(MinuteTime, BothMidnightsReadAsMid) {
    EXPECT_EQ(text(0), "12:00 Mid");
    EXPECT_EQ(text(1440), "12:00 Mid");
}

TEST(MinuteTime, TwelveOClockIsNoon) {
    EXPECT_EQ(text(720), "12:00 Noon");
    EXPECT_EQ(text(725), "12:05 PM");
}

TEST(MinuteTime, OneMinuteBeforeOneReadsZeroFiftyNine) {
    EXPECT_EQ(text(778), "12:58 PM");
    EXPECT_EQ(text(779), "0:59 PM");
    EXPECT_EQ(text(780), "1:00 PM");
}

TEST(MinuteTime, TheFirstHourOfTheDayIsTwelveAm) {
    EXPECT_EQ(text(7), "12:07 AM");
    EXPECT_EQ(text(60), "1:00 AM");
    EXPECT_EQ(text(719), "11:59 AM");
    EXPECT_EQ(text(1439), "11:59 PM");
}

TEST(MinuteTime, TheTwentyFourHourTextHasNoSuffix) {
    EXPECT_EQ(text(0, true), "00:00");
    EXPECT_EQ(text(545, true), "09:05");
    EXPECT_EQ(text(779, true), "12:59");
    EXPECT_EQ(text(1080, true), "18:00");
    EXPECT_EQ(text(1440, true), "00:00");
}
