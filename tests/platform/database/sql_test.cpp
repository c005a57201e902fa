#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/database/error.h"
#include "platform/database/sql.h"

using db::DatabaseError;
using db::Raw;
using db::Sql;

namespace {

int failureOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const DatabaseError& error) {
        return error.number;
    }
    return 0;
}

}  // namespace

TEST(Sql, PlacesAreFilledInOrder) {
    EXPECT_EQ(Sql("Select * from t Where a = {} And b = '{}' And c = {}", 5, "x", 7LL),
              "Select * from t Where a = 5 And b = 'x' And c = 7");
}

TEST(Sql, QuotesInTypedTextAreDoubled) {
    EXPECT_EQ(Sql("Where n = '{}'", QStringLiteral("O'Brien' or '1'='1")), "Where n = 'O''Brien'' or ''1''=''1'");
}

TEST(Sql, TextThatLooksLikeAPlaceIsNotFilledAgain) {
    EXPECT_EQ(Sql("'{}' '{}'", "{}", "b"), "'{}' 'b'");
}

TEST(Sql, ADateStandsAsYearMonthDay) {
    EXPECT_EQ(Sql("Where d = '{}'", QDate(2026, 3, 9)), "Where d = '2026/03/09'");
    EXPECT_EQ(db::SqlDate(QDate(2026, 11, 21)), "2026/11/21");
}

TEST(Sql, WholeRealsHaveNoPointAndOthersOne) {
    EXPECT_EQ(Sql("{} {} {}", 600.0, 600.1, -0.5), "600 600.1 -0.5");
}

TEST(Sql, ANumberMayStandInQuotes) {
    EXPECT_EQ(Sql("Where a = '{}'", 12), "Where a = '12'");
}

TEST(Sql, ANegativeNumberBehindAMinusStartsNoComment) {
    EXPECT_EQ(Sql("a -{}", -5), "a - -5");
}

TEST(Sql, TextOutsideQuotesIsAMistakeInTheProgram) {
    EXPECT_THROW(static_cast<void>(Sql("Where a = {}", "1 or 1=1")), std::logic_error);
    EXPECT_THROW(static_cast<void>(Sql("Where a = {}", QDate(2026, 1, 1))), std::logic_error);
    EXPECT_THROW(static_cast<void>(Sql("Where a = 'x' And b = {}", QStringLiteral("y"))), std::logic_error);
}

TEST(Sql, PlacesAndArgumentsMustBeAsMany) {
    EXPECT_THROW(static_cast<void>(Sql("{} {}", 1)), std::logic_error);
    EXPECT_THROW(static_cast<void>(Sql("{}", 1, 2)), std::logic_error);
}

TEST(Sql, RawTextGoesInAsItStands) {
    EXPECT_EQ(Sql("Select {} from t", Raw{"a, b"}), "Select a, b from t");
    EXPECT_EQ(Sql("Where n = '{}'", Raw{"O''Brien"}), "Where n = 'O''Brien'");
}

TEST(Sql, ALoneQuoteInRawTextFailsAsOnTheServer) {
    for (const char* typed : {"O'Brien", "'", "a'''", "x' or 'y"}) {
        EXPECT_EQ(failureOf([&] { static_cast<void>(Sql("Set v = '{}'", Raw{typed})); }), 105) << typed;
    }
    try {
        static_cast<void>(Sql("Set v = '{}' Where id = 5", Raw{"O'Brien"}));
        FAIL();
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.description, "Unclosed quotation mark after the character string ' Where id = 5'.");
        EXPECT_EQ(error.statement, "Set v = 'O'Brien' Where id = 5");
    }
}

TEST(Sql, RawPiecesMadeByTheProgramMayHoldQuotesOutside) {
    EXPECT_EQ(Sql("Where {}", Raw{"a = 'x'"}), "Where a = 'x'");
}

TEST(Sql, ANulCannotCutAStatementShort) {
    EXPECT_EQ(Sql("'{}'", QString::fromUtf16(u"a\0b", 3)), "'ab'");
}

TEST(Sql, AnIdBeyondThirtyTwoBitsAndASmallRealKeepTheirDigits) {
    EXPECT_EQ(Sql("{} {}", 9007199254740993LL, 0.25), "9007199254740993 0.25");
    EXPECT_EQ(Sql("{}", -9007199254740993LL), "-9007199254740993");
}

TEST(Sql, AQuoteThatStandsDoubledInTheStatementKeepsItsPlaceInside) {
    EXPECT_EQ(Sql("Where a = 'it''s {}' And b = {}", "x", 5), "Where a = 'it''s x' And b = 5");
}

TEST(Sql, ALoneBraceIsNoPlace) {
    EXPECT_EQ(Sql("Select '{', '}', '{x}' {}", 1), "Select '{', '}', '{x}' 1");
    EXPECT_EQ(Sql("Select '{"), "Select '{");
}

TEST(Sql, InALikePatternNoLetterOfATextIsAWildcard) {
    EXPECT_EQ(db::LikeText("50%_[a]"), "50[%][_][[]a]");
    EXPECT_EQ(db::LikeText("O'Brien"), "O'Brien");
    EXPECT_EQ(db::LikeText(""), "");
}

TEST(Sql, ANameInBracketsMayHoldAnyLetters) {
    EXPECT_EQ(db::Bracketed("order"), "[order]");
    EXPECT_EQ(db::Bracketed("a]b[c"), "[a]]b[c]");
}
