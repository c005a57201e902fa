#include "platform/database/criterion.h"

#include <gtest/gtest.h>

#include "platform/database/error.h"

using db::ColumnType;
using db::Criterion;
using db::ResultTable;
using db::Value;

namespace {

bool meets(ColumnType type, const Value& held, const char* condition) {
    ResultTable table({{"field", "t", type}});
    table.appendRow({held});
    return Criterion(QString::fromUtf8(condition)).isMetBy(table.at(0, 0), type);
}

/// The signs of the conditions that a field meets, of = <> < <= > >=, before the value.
QString signsMet(ColumnType type, const Value& held, const char* value) {
    QStringList met;
    for (const char* sign : {"=", "<>", "<", "<=", ">", ">="})
        if (meets(type, held, QByteArray("field ").append(sign).append(' ').append(value)))
            met << QString::fromLatin1(sign);
    return met.join(QLatin1Char(' '));
}

int failureOf(const char* condition) {
    try {
        static_cast<void>(Criterion(QString::fromUtf8(condition)));
    } catch (const db::DatabaseError& error) {
        return error.number;
    }
    return 0;
}

const QString smaller = QStringLiteral("<> < <=");
const QString equal = QStringLiteral("= <= >=");
const QString greater = QStringLiteral("<> > >=");

}  // namespace

TEST(Criterion, EachSignComparesNumbers) {
    EXPECT_EQ(signsMet(ColumnType::Integer, 5, "7"), smaller);
    EXPECT_EQ(signsMet(ColumnType::Integer, 7, "7"), equal);
    EXPECT_EQ(signsMet(ColumnType::Integer, 9, "7"), greater);
    EXPECT_EQ(signsMet(ColumnType::Integer, -5, "-5"), equal);
    EXPECT_EQ(signsMet(ColumnType::Integer, 5, "+5"), equal);
    EXPECT_EQ(signsMet(ColumnType::Integer, 7, "'7'"), equal);
    EXPECT_EQ(signsMet(ColumnType::Real, 0.5, ".5"), equal);
    EXPECT_EQ(signsMet(ColumnType::Real, 2.5, "2.75"), smaller);
}

TEST(Criterion, EachSignComparesTextsWithoutRegardToCaseAndBlanksAtTheEnd) {
    EXPECT_EQ(signsMet(ColumnType::Text, "ann", "'Bob'"), smaller);
    EXPECT_EQ(signsMet(ColumnType::Text, "ANN  ", "'ann'"), equal);
    EXPECT_EQ(signsMet(ColumnType::Text, "ann", "'Ann   '"), equal);
    EXPECT_EQ(signsMet(ColumnType::Text, " ann", "'ann'"), smaller);
    EXPECT_EQ(signsMet(ColumnType::Text, "Zoë", "'ZOË'"), equal);
    EXPECT_EQ(signsMet(ColumnType::Text, "O'Brien", "'o''brien'"), equal);
    EXPECT_EQ(signsMet(ColumnType::Text, "", "''"), equal);
    EXPECT_EQ(signsMet(ColumnType::Text, "600", "600"), equal);
}

TEST(Criterion, EachSignComparesDates) {
    const QDateTime noon(QDate(2026, 3, 11), QTime(12, 0), Qt::UTC);
    EXPECT_EQ(signsMet(ColumnType::DateTime, noon, "#3/12/2026#"), smaller);
    EXPECT_EQ(signsMet(ColumnType::DateTime, noon, "#2026/03/11 12:00 pm#"), equal);
    EXPECT_EQ(signsMet(ColumnType::DateTime, noon, "'2026-03-11'"), greater);
}

TEST(Criterion, ADateIsComparedWithNothingThatIsNone) {
    const Value day(QDate(2026, 3, 11));
    EXPECT_EQ(signsMet(ColumnType::DateTime, day, "'soon'"), "");
    EXPECT_EQ(signsMet(ColumnType::DateTime, day, "5"), "");
    EXPECT_EQ(signsMet(ColumnType::DateTime, day, "''"), "");
}

TEST(Criterion, EachSignComparesTruths) {
    EXPECT_EQ(signsMet(ColumnType::Boolean, true, "1"), equal);
    EXPECT_EQ(signsMet(ColumnType::Boolean, true, "-1"), equal);
    EXPECT_EQ(signsMet(ColumnType::Boolean, true, "'True'"), equal);
    EXPECT_EQ(signsMet(ColumnType::Boolean, false, "1"), smaller);
    EXPECT_EQ(signsMet(ColumnType::Boolean, true, "0"), greater);
}

TEST(Criterion, NullIsEqualToNullAloneAndUnequalToValuesAlone) {
    for (const ColumnType type :
         {ColumnType::Integer, ColumnType::Real, ColumnType::Text, ColumnType::DateTime, ColumnType::Boolean}) {
        EXPECT_EQ(signsMet(type, Value(), "Null"), "=");
        EXPECT_EQ(signsMet(type, Value(), "'1'"), "");
        EXPECT_FALSE(meets(type, Value(), "field Like '%'"));
    }
    EXPECT_EQ(signsMet(ColumnType::Text, "", "null"), "<>");
    EXPECT_EQ(signsMet(ColumnType::Integer, 0, "NULL"), "<>");
}

TEST(Criterion, LikeMatchesAnyLettersAndOneLetter) {
    const auto isLike = [](const char* text, const char* pattern) {
        return meets(ColumnType::Text, text, QByteArray("field Like '").append(pattern).append('\''));
    };
    EXPECT_TRUE(isLike("Anna", "anna"));
    EXPECT_TRUE(isLike("Anna", "A%"));
    EXPECT_TRUE(isLike("Anna", "%NN%"));
    EXPECT_TRUE(isLike("Anna", "_nn_"));
    EXPECT_TRUE(isLike("Anna", "%a"));
    EXPECT_TRUE(isLike("Anna", "A%n%a%"));
    EXPECT_TRUE(isLike("Anna   ", "Anna"));
    EXPECT_TRUE(isLike("", "%"));
    EXPECT_FALSE(isLike("Anna", "Ann"));
    EXPECT_FALSE(isLike("Anna", "Anna_"));
    EXPECT_FALSE(isLike("Anna", "%b%"));
    EXPECT_FALSE(isLike("", "_"));
    EXPECT_FALSE(isLike("Anna", ""));
    EXPECT_TRUE(meets(ColumnType::Integer, 600, "field Like '6%'"));
}

TEST(Criterion, TheColumnMayStandInBracketsAndBelongToATable) {
    EXPECT_EQ(Criterion("[first name] = 'x'").column(), "first name");
    EXPECT_EQ(Criterion("  visits.id=5 ").column(), "visits.id");
    EXPECT_EQ(Criterion("größe>1").column(), QString::fromUtf8("größe"));
    EXPECT_EQ(Criterion("likes = 5").column(), "likes");
}

TEST(Criterion, WhatCannotBeReadIsRefused) {
    for (const char* condition :
         {"", "field", "field =", "= 5", "field = x", "field = 'x", "field = 'it's'", "field = 'x' And a = 1",
          "field == 5", "field ! 5", "first name = 'x'", "[field = 5", "field = #never#", "field = ##", "field = 1.2.3",
          "field = .", "field = 5 5", "field = ٣", "field likes 'x'"})
        EXPECT_EQ(failureOf(condition), 3001) << condition;
    EXPECT_EQ(failureOf("field = 5"), 0);
}
