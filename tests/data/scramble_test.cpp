#include "data/scramble.h"

#include <gtest/gtest.h>

TEST(Scramble, OddPositionsShiftUpEvenOnesDownThenTheKeyIsMixedIn) {
    // 'd' is 100: (100 + 3) xor 7 = 96; 'e' is 101: (101 - 3) xor 7 = 101.
    EXPECT_EQ(ScramblePassword("de", 3), QString(QChar(96)) + QChar(101));
}

TEST(Scramble, UnscramblingGivesThePasswordBack) {
    for (int key = 1; key <= 9; ++key)
        EXPECT_EQ(UnscramblePassword(ScramblePassword("Pa55 wörd~{}", key), key), QStringLiteral("Pa55 wörd~{}"));
}

TEST(Scramble, AnEmptyPasswordStaysEmpty) {
    EXPECT_EQ(ScramblePassword("", 3), QString());
}
