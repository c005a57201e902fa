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

TEST(DateText, TheFirstAndTheLastMomentOfTheServerAreDates) {
    EXPECT_EQ(iso("1753-01-01"), "1753-01-01");
    EXPECT_EQ(iso("9999-12-31 23:59:59.997"), "9999-12-31 23:59:59.997");
    EXPECT_EQ(iso("12/31/1752"), "no date");
    EXPECT_FALSE(db::ToServerDateTime(QDateTime(QDate(1752, 12, 31), QTime(12, 0), Qt::UTC)));
    EXPECT_FALSE(db::ToServerDateTime(QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC)));
}

TEST(DateText, AMonthsNameMayStandBeforeOrBehindItsDay) {
    EXPECT_EQ(iso("Mar 11 26"), "2026-03-11");
    EXPECT_EQ(iso("26 Mar 11"), "2011-03-26");
    EXPECT_EQ(iso("2026 Mar 11"), "2026-03-11");
    EXPECT_EQ(iso("DECEMBER,31,2026"), "2026-12-31");
    EXPECT_EQ(iso("Mar 11 2026 9:05 pm"), "2026-03-11 21:05:00");
    for (const char* text : {"Mar", "Mar 11", "Ma 2026", "Marc 2026", "Maroon 11 2026", "Mar Apr 2026",
                             "Mar 11 12 2026", "Mar 111", "Mar 0 2026", "Mar 32 2026", "11 2026 2027", "Feb 29 2026"})
        EXPECT_EQ(iso(text), "no date") << text;
}

TEST(DateText, HoursOfTheHalfDayTurnAtTwelve) {
    EXPECT_EQ(iso("12:00 PM"), "1900-01-01 12:00:00");
    EXPECT_EQ(iso("12:30 AM"), "1900-01-01 00:30:00");
    EXPECT_EQ(iso("0:30 AM"), "1900-01-01 00:30:00");
    EXPECT_EQ(iso("1:00pm"), "1900-01-01 13:00:00");
    EXPECT_EQ(iso("11:59 pM"), "1900-01-01 23:59:00");
    EXPECT_EQ(iso("12 am"), "1900-01-01");
    for (const char* text : {"0 pm", "24:00", "9 pmx", "9:05 xm", "9pm 10pm", "pm", "9:05 am pm"})
        EXPECT_EQ(iso(text), "no date") << text;
}

TEST(DateText, AFractionOfASecondStandsBehindAPointOrAColon) {
    EXPECT_EQ(iso("9:05:06.5"), "1900-01-01 09:05:06.500");
    EXPECT_EQ(iso("9:05:06.25"), "1900-01-01 09:05:06.250");
    EXPECT_EQ(iso("9:05:06:250"), "1900-01-01 09:05:06.250");
    EXPECT_EQ(iso("9:05:06:5"), "1900-01-01 09:05:06.007");
    for (const char* text : {"9:05:06.", "9:05:06.1234", "9:05:60", "9:05:", "9:", "9:123", "9:05:123"})
        EXPECT_EQ(iso(text), "no date") << text;
}

TEST(DateText, DigitsAloneAreADateOfSixOrEight) {
    EXPECT_EQ(iso("20260311 09:05"), "2026-03-11 09:05:00");
    EXPECT_EQ(iso("500311"), "1950-03-11");
    for (const char* text : {"2026031", "202603111", "1234567890", "20261301", "12", "12345"})
        EXPECT_EQ(iso(text), "no date") << text;
}

TEST(DateText, ThePartsOfADateHaveOneSeparator) {
    EXPECT_EQ(iso("2026.03.11"), "2026-03-11");
    EXPECT_EQ(iso("2026-03-11t09:05"), "2026-03-11 09:05:00");
    EXPECT_EQ(iso("\t2026-03-11\r\n"), "2026-03-11");
    for (const char* text : {"2026-03/11", "2026-03", "2026-03-", "2026--11", "3/11/1", "3/11/20261", "2026-03-111",
                             "2026-03-11Z", "2026-03-11 \xc3\xa9", "+2026-03-11"})
        EXPECT_EQ(iso(text), "no date") << text;
}

TEST(DateText, EveryThousandthGoesToTheNearestStep) {
    const char* kept[] = {"", ".003", ".003", ".003", ".007", ".007", ".007", ".007", ".010", ".010"};
    for (int thousandth = 1; thousandth <= 9; ++thousandth) {
        const int step = thousandth < 2 ? 0 : thousandth < 5 ? 1 : thousandth < 9 ? 4 : 8;
        EXPECT_EQ(iso(QByteArray("2026-03-11 09:05:06.00").append(QByteArray::number(thousandth))),
                  QByteArray("2026-03-11 09:05:06").append(kept[step]))
            << thousandth;
    }
}

TEST(DateText, AMomentOfAnyZoneIsKeptByItsWallClock) {
    const QDateTime moment(QDate(2026, 3, 11), QTime(23, 30), Qt::OffsetFromUTC, 5 * 3600);
    EXPECT_EQ(db::IsoText(*db::ToServerDateTime(moment)), "2026-03-11 23:30:00");
}

}  // namespace
