#include "platform/database/datetext.h"

#include <gtest/gtest.h>

namespace {

QByteArray iso(const char* text) {
    const auto moment = db::ReadDateTime(text);
    return moment ? db::IsoText(*moment) : QByteArray("no date");
}

TEST(DateText, EveryFormInWhichDatesAreWrittenIsRead) {
    EXPECT_EQ(iso("2026/03/11"), "2026-03-11");
    EXPECT_EQ(iso("2026-03-11"), "2026-03-11");
    EXPECT_EQ(iso("2026-3-1"), "2026-03-01");
    EXPECT_EQ(iso("20260311"), "2026-03-11");
    EXPECT_EQ(iso("260311"), "2026-03-11");
    EXPECT_EQ(iso("03/11/2026"), "2026-03-11");
    EXPECT_EQ(iso("3/1/26"), "2026-03-01");
    EXPECT_EQ(iso("03-11-2026"), "2026-03-11");
    EXPECT_EQ(iso("03.11.2026"), "2026-03-11");
    EXPECT_EQ(iso("Mar 11 2026"), "2026-03-11");
    EXPECT_EQ(iso("March 11, 2026"), "2026-03-11");
    EXPECT_EQ(iso("11 mar 2026"), "2026-03-11");
    EXPECT_EQ(iso("March 2026"), "2026-03-01");
    EXPECT_EQ(iso("2026"), "2026-01-01");
}

TEST(DateText, ATimeMayFollowStandBeforeOrStandAlone) {
    EXPECT_EQ(iso("03/11/2026 9:05 AM"), "2026-03-11 09:05:00");
    EXPECT_EQ(iso("03/11/26 12:00:00 pm"), "2026-03-11 12:00:00");
    EXPECT_EQ(iso("2026/03/11 23:59 "), "2026-03-11 23:59:00");
    EXPECT_EQ(iso("2026-03-11T09:05:06"), "2026-03-11 09:05:06");
    EXPECT_EQ(iso("2026-03-11 09:05:06.250"), "2026-03-11 09:05:06.250");
    EXPECT_EQ(iso("9:05PM 03/11/2026"), "2026-03-11 21:05:00");
    EXPECT_EQ(iso("12:00:00 AM"), "1900-01-01");
    EXPECT_EQ(iso("9 pm"), "1900-01-01 21:00:00");
    EXPECT_EQ(iso("13:05 PM"), "1900-01-01 13:05:00");
}

TEST(DateText, NothingIsTheFirstOfJanuary1900) {
    EXPECT_EQ(iso(""), "1900-01-01");
    EXPECT_EQ(iso("   "), "1900-01-01");
}

TEST(DateText, TwoDigitsOfAYearTurnAtFifty) {
    EXPECT_EQ(iso("1/1/49"), "2049-01-01");
    EXPECT_EQ(iso("1/1/50"), "1950-01-01");
}

TEST(DateText, WhatIsNoDateIsRefused) {
    for (const char* text :
         {"abc", "13/01/2026", "02/30/2026", "2026/13/01", "2026-02-29", "1752-12-31", "0:59 PM", "13:05 AM",
          "12:00 Noon", "25:00", "9:60", "12/1", "1/2/345", "2026-03-11 2026-03-12", "9:05 9:06", "3"})
        EXPECT_EQ(iso(text), "no date") << text;
}

TEST(DateText, TimesAreKeptToAThreeHundredthOfASecond) {
    EXPECT_EQ(iso("2026-03-11 09:05:06.001"), "2026-03-11 09:05:06");
    EXPECT_EQ(iso("2026-03-11 09:05:06.002"), "2026-03-11 09:05:06.003");
    EXPECT_EQ(iso("2026-03-11 09:05:06.008"), "2026-03-11 09:05:06.007");
    EXPECT_EQ(iso("2026-03-11 23:59:59.999"), "2026-03-12");
    EXPECT_EQ(iso("9999-12-31 23:59:59.999"), "no date");
}

TEST(DateText, StoredTextsSortAsTheirMoments) {
    const char* inOrder[] = {"2026-03-11", "2026-03-11 00:00:00.003", "2026-03-11 00:00:01", "2026-03-11 10:00",
                             "2026-03-12"};
    for (std::size_t i = 1; i < std::size(inOrder); ++i)
        EXPECT_LT(iso(inOrder[i - 1]), iso(inOrder[i]));
}

TEST(DateText, AMomentComesBackAsItWas) {
    const QDateTime moment(QDate(2026, 3, 11), QTime(9, 5, 6, 250), Qt::UTC);
    EXPECT_EQ(db::ToDateTime(*db::ToServerDateTime(moment)), moment);
    EXPECT_FALSE(db::ToServerDateTime(QDateTime()));
}

}  // namespace
