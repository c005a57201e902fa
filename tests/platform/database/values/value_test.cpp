#include "platform/database/value.h"

#include <gtest/gtest.h>

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

}  // namespace
