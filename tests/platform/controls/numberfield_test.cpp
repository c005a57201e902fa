#include "platform/controls/numberfield.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace {

constexpr NumberForm FiveToTen{5, 10, 0};
constexpr NumberForm Money{-1000, 1000, 2};

}  // namespace

TEST(NumberField, EveryNumberOfTheRangeIsReadBackFromItsText) {
    for (int cents = -100000; cents <= 100000; cents += 7) {
        const QString text = NumberFieldText(cents / 100.0, Money);
        const std::optional<double> read = ReadNumber(text, Money);
        ASSERT_TRUE(read) << qPrintable(text);
        ASSERT_EQ(NumberFieldText(*read, Money), text);
    }
}

TEST(NumberField, NumbersOutsideTheRangeAreRefused) {
    EXPECT_EQ(ReadNumber(QStringLiteral("5"), FiveToTen), 5);
    EXPECT_EQ(ReadNumber(QStringLiteral(" 10 "), FiveToTen), 10);
    EXPECT_FALSE(ReadNumber(QStringLiteral("4"), FiveToTen));
    EXPECT_FALSE(ReadNumber(QStringLiteral("11"), FiveToTen));
}

TEST(NumberField, DecimalsThatTheFieldDoesNotShowAreRefusedAndNotRounded) {
    EXPECT_FALSE(ReadNumber(QStringLiteral("7.5"), FiveToTen));
    EXPECT_EQ(ReadNumber(QStringLiteral("7.0"), FiveToTen), 7);
    EXPECT_FALSE(ReadNumber(QStringLiteral("1.005"), Money));
}

TEST(NumberField, WhatIsNoNumberIsRefused) {
    for (const char* typed : {"", "seven", "7x", "nan", "inf", "--7"})
        EXPECT_FALSE(ReadNumber(QString::fromLatin1(typed), FiveToTen)) << typed;
}

TEST(NumberField, TheDecimalSignOfTheComputerAndThePointAreBothRead) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(ReadNumber(QStringLiteral("7,25"), Money), 7.25);
    EXPECT_EQ(ReadNumber(QStringLiteral("7.25"), Money), 7.25);
    EXPECT_EQ(NumberFieldText(7.25, Money), QStringLiteral("7,25"));
    QLocale::setDefault(before);
}
