#include "followup/checkintime.h"

#include <gtest/gtest.h>

TEST(CheckInTime, IsStoredInTheOrderOfTheDesk) {
    EXPECT_EQ(CheckInTimeText(QDate(2026, 3, 11), 545, false), QStringLiteral("03/11/26 09:05 AM"));
    EXPECT_EQ(CheckInTimeText(QDate(2026, 3, 11), 845, true), QStringLiteral("11/03/26 02:05 PM"));
    EXPECT_EQ(CheckInTimeText(QDate(2026, 3, 11), 0, false), QStringLiteral("03/11/26 12:00 AM"));
}

TEST(CheckInTime, EveryStoredMinuteIsReadBack) {
    for (int minutes = 0; minutes < 1440; ++minutes)
        EXPECT_EQ(MinutesOfCheckIn(CheckInTimeText(QDate(2026, 3, 11), minutes, minutes % 2 == 0)), minutes);
}

TEST(CheckInTime, ReadsWhatOtherProgramsMayHaveWritten) {
    EXPECT_EQ(MinutesOfCheckIn(QStringLiteral("3/11/2026 9:05:30 am")), 545);
    EXPECT_EQ(MinutesOfCheckIn(QStringLiteral("2026-03-11 14:05:00")), 845);
    EXPECT_EQ(MinutesOfCheckIn(QStringLiteral("9:05 AM")), 545);
}

TEST(CheckInTime, WhatCannotBeReadIsShownAsItStands) {
    for (const char* text : {"", "soon", "03/11/26", "03/11/26 25:00"}) {
        EXPECT_EQ(MinutesOfCheckIn(QLatin1String(text)), -1) << text;
        EXPECT_EQ(ShownCheckIn(QLatin1String(text)), QLatin1String(text));
    }
    EXPECT_EQ(ShownCheckIn(QStringLiteral("03/11/26 09:05 AM")), QStringLiteral("03/11/26 9:05 AM"));
}
