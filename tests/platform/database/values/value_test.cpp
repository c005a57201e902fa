#include "platform/database/value.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using db::Value;

TEST(Value, NullReadsAsNothing) {
    const Value null;
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null.text(), QString());
    EXPECT_EQ(null.integer(), 0);
    EXPECT_EQ(null.real(), 0.0);
    EXPECT_FALSE(null.boolean());
    EXPECT_FALSE(null.date().isValid());
    EXPECT_TRUE(Value(QDate()).isNull());
    EXPECT_TRUE(Value(QDateTime()).isNull());
}

TEST(Value, TextIsReadAsTheNumberAtItsStart) {
    EXPECT_EQ(Value("15 minutes").integer(), 15);
    EXPECT_EQ(Value("  -7x").integer(), -7);
    EXPECT_EQ(Value("2.75 hours").real(), 2.75);
    EXPECT_EQ(Value("2.75").integer(), 2);
    EXPECT_EQ(Value("minutes").integer(), 0);
    EXPECT_EQ(Value("-").real(), 0.0);
    EXPECT_EQ(Value("9223372036854775807").integer(), 9223372036854775807LL);
}

TEST(Value, NumbersPrintWithoutAPointWhenWhole) {
    EXPECT_EQ(Value(3.0).text(), "3");
    EXPECT_EQ(Value(2.5).text(), "2.5");
    EXPECT_EQ(Value(qint64{16777215}).text(), "16777215");
    EXPECT_EQ(Value(true).text(), "1");
}

TEST(Value, TruthIsANumberOtherThanZeroOrTheWord) {
    EXPECT_TRUE(Value("True").boolean());
    EXPECT_TRUE(Value("-1").boolean());
    EXPECT_TRUE(Value(0.5).boolean());
    EXPECT_FALSE(Value("0").boolean());
    EXPECT_FALSE(Value("yes").boolean());
}

TEST(Value, DatesAreReadFromAnyOfTheirTexts) {
    EXPECT_EQ(Value("2026/03/11").date(), QDate(2026, 3, 11));
    EXPECT_EQ(Value("03/11/26 9:05 AM").dateTime(), QDateTime(QDate(2026, 3, 11), QTime(9, 5), Qt::UTC));
    EXPECT_FALSE(Value("").date().isValid());
    EXPECT_FALSE(Value("soon").dateTime().isValid());
    EXPECT_EQ(Value(QDate(2026, 3, 11)).text(), "2026-03-11 00:00:00");
}

TEST(Value, EqualityIsOfTypeAndValue) {
    EXPECT_EQ(Value(1), Value(qint64{1}));
    EXPECT_NE(Value(1), Value("1"));
    EXPECT_EQ(Value(), Value(nullptr));
}

TEST(Value, ANumberTooLargeOrNoneIsHeldAtTheLimitOrZero) {
    EXPECT_EQ(Value(1e300).integer(), 9'200'000'000'000'000'000LL);
    EXPECT_EQ(Value(-1e300).integer(), -9'200'000'000'000'000'000LL);
    EXPECT_EQ(Value(std::numeric_limits<double>::quiet_NaN()).integer(), 0);
    EXPECT_EQ(Value(std::numeric_limits<double>::infinity()).integer(), 0);
    EXPECT_EQ(Value("99999999999999999999").integer(), 9'200'000'000'000'000'000LL);
    EXPECT_EQ(Value(-2.9).integer(), -2);
}

TEST(Value, ANumberAtTheStartOfATextHasOneSignAndOnePoint) {
    EXPECT_EQ(db::NumberAtStart(u"+5"), 5.0);
    EXPECT_EQ(db::NumberAtStart(u".5"), 0.5);
    EXPECT_EQ(db::NumberAtStart(u"1.2.3"), 1.2);
    EXPECT_EQ(db::NumberAtStart(u"5."), 5.0);
    EXPECT_EQ(db::NumberAtStart(u"--5"), 0.0);
    EXPECT_EQ(db::NumberAtStart(u"1e5"), 1.0);
    EXPECT_EQ(db::NumberAtStart(u"."), 0.0);
    EXPECT_EQ(db::NumberAtStart(u""), 0.0);
}

TEST(Value, EachTypeReadsAsEachOther) {
    EXPECT_EQ(Value(true).integer(), 1);
    EXPECT_EQ(Value(false).text(), "0");
    EXPECT_EQ(Value(true).real(), 1.0);
    EXPECT_EQ(Value(7).real(), 7.0);
    EXPECT_FALSE(Value(0).boolean());
    EXPECT_TRUE(Value("TRUE").boolean());
    EXPECT_FALSE(Value("false").boolean());
    EXPECT_EQ(Value(QDate(2026, 3, 11)).integer(), 0);
    EXPECT_FALSE(Value(20260311).date().isValid());
    EXPECT_EQ(Value("20260311").date(), QDate(2026, 3, 11));
    EXPECT_FALSE(Value("   ").dateTime().isValid());
}

TEST(Value, AMomentKeepsItsWallClockAndLosesItsZone) {
    const Value value(QDateTime(QDate(2026, 3, 11), QTime(9, 5, 6, 7), Qt::OffsetFromUTC, -7 * 3600));
    EXPECT_EQ(value.dateTime(), QDateTime(QDate(2026, 3, 11), QTime(9, 5, 6, 7), Qt::UTC));
    EXPECT_EQ(value, Value(QDateTime(QDate(2026, 3, 11), QTime(9, 5, 6, 7))));
    EXPECT_EQ(value.text(), "2026-03-11 09:05:06");
}

TEST(Value, ANumberKeepsFifteenDigits) {
    EXPECT_EQ(db::NumberText(0.1), "0.1");
    EXPECT_EQ(db::NumberText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(Value(0.1 + 0.2).text(), "0.3");
}

}  // namespace
