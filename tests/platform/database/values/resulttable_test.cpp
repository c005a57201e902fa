#include "platform/database/resulttable.h"

#include <gtest/gtest.h>

namespace {

using db::ColumnType;
using db::ResultTable;
using db::Value;

ResultTable oneRow(ColumnType type, const Value& value) {
    ResultTable table({{"column", "table", type}});
    table.appendRow({value});
    return table;
}

TEST(ResultTable, CellsAreReadInTheOrderTheyWereFilled) {
    ResultTable table({{"id", "t", ColumnType::Integer}, {"name", "t", ColumnType::Text}});
    table.appendInteger(1);
    table.appendText("Zo\xc3\xab");
    table.appendInteger(2);
    table.appendNull();
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.columnCount(), 2);
    EXPECT_EQ(table.at(0, 0).integer(), 1);
    EXPECT_EQ(table.at(0, 1).text(), QStringLiteral("Zoë"));
    EXPECT_TRUE(table.at(1, 1).isNull());
    EXPECT_EQ(table.at(1, 1).text(), "");
    EXPECT_TRUE(table.at(1, 1).value().isNull());
}

TEST(ResultTable, ATableWithoutColumnsHasNoRows) {
    EXPECT_EQ(ResultTable().rowCount(), 0);
}

TEST(ResultTable, RowsAreReplacedAddedAndRemoved) {
    ResultTable table({{"id", "t", ColumnType::Integer}, {"name", "t", ColumnType::Text}});
    table.appendRow({1, "first"});
    table.appendRow({2, "second"});
    table.set(0, 1, "changed");
    table.removeRow(1);
    table.appendRow({3, Value()});
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.at(0, 1).text(), "changed");
    EXPECT_EQ(table.at(1, 0).integer(), 3);
    EXPECT_TRUE(table.at(1, 1).isNull());
}

TEST(ResultTable, TheColumnSaysWhatAValueIs) {
    EXPECT_EQ(oneRow(ColumnType::Integer, 7).at(0, 0).value(), Value(7));
    EXPECT_EQ(oneRow(ColumnType::Real, 7).at(0, 0).value(), Value(7.0));
    EXPECT_EQ(oneRow(ColumnType::Boolean, 1).at(0, 0).value(), Value(true));
    EXPECT_EQ(oneRow(ColumnType::Text, 7).at(0, 0).value(), Value("7"));
    EXPECT_EQ(oneRow(ColumnType::DateTime, "2026-03-11").at(0, 0).value(), Value(QDate(2026, 3, 11)));
    EXPECT_EQ(oneRow(ColumnType::Boolean, "True").at(0, 0).value(), Value(true));
    EXPECT_EQ(oneRow(ColumnType::Integer, "7 or so").at(0, 0).integer(), 7);
    EXPECT_EQ(oneRow(ColumnType::Real, "2.5 or so").at(0, 0).real(), 2.5);
}

TEST(ResultTable, DateTimesComeBackToTheSecond) {
    const QDateTime moment(QDate(2026, 3, 11), QTime(9, 5, 30), Qt::UTC);
    const ResultTable table = oneRow(ColumnType::DateTime, moment);
    EXPECT_EQ(table.at(0, 0).dateTime(), moment);
    EXPECT_EQ(table.at(0, 0).date(), moment.date());
    EXPECT_EQ(table.at(0, 0).text(), "2026-03-11 09:05:30");
    EXPECT_FALSE(oneRow(ColumnType::DateTime, "").at(0, 0).date().isValid());
    EXPECT_FALSE(oneRow(ColumnType::Text, "soon").at(0, 0).date().isValid());
    EXPECT_FALSE(oneRow(ColumnType::Integer, 5).at(0, 0).dateTime().isValid());
}

TEST(ResultTable, RealsKeepTheirFraction) {
    const ResultTable table = oneRow(ColumnType::Real, 12.5);
    EXPECT_EQ(table.at(0, 0).real(), 12.5);
    EXPECT_EQ(table.at(0, 0).integer(), 12);
    EXPECT_EQ(table.at(0, 0).text(), "12.5");
    EXPECT_TRUE(table.at(0, 0).boolean());
}

TEST(ResultTable, AColumnMayHoldWhatItsTypeDoesNotSay) {
    EXPECT_EQ(oneRow(ColumnType::Integer, "seven").at(0, 0).value(), Value("seven"));
    EXPECT_EQ(oneRow(ColumnType::Real, "seven").at(0, 0).value(), Value("seven"));
    EXPECT_EQ(oneRow(ColumnType::DateTime, "soon").at(0, 0).value(), Value("soon"));
    EXPECT_EQ(oneRow(ColumnType::DateTime, 5).at(0, 0).value(), Value("5"));
    EXPECT_EQ(oneRow(ColumnType::Text, 2.5).at(0, 0).value(), Value("2.5"));
    EXPECT_EQ(oneRow(ColumnType::Integer, 2.9).at(0, 0).value(), Value(2));
    EXPECT_EQ(oneRow(ColumnType::DateTime, "soon").at(0, 0).text(), "soon");
}

TEST(ResultTable, NullIsNothingInEveryTypeOfColumn) {
    for (const ColumnType type :
         {ColumnType::Integer, ColumnType::Real, ColumnType::Text, ColumnType::DateTime, ColumnType::Boolean}) {
        const ResultTable table = oneRow(type, Value());
        EXPECT_TRUE(table.at(0, 0).value().isNull());
        EXPECT_EQ(table.at(0, 0).text(), "");
        EXPECT_EQ(table.at(0, 0).integer(), 0);
        EXPECT_EQ(table.at(0, 0).real(), 0.0);
        EXPECT_FALSE(table.at(0, 0).boolean());
        EXPECT_FALSE(table.at(0, 0).date().isValid());
        EXPECT_FALSE(table.at(0, 0).dateTime().isValid());
    }
}

TEST(ResultTable, TruthIsReadFromNumbersAndTexts) {
    EXPECT_TRUE(oneRow(ColumnType::Integer, -1).at(0, 0).boolean());
    EXPECT_FALSE(oneRow(ColumnType::Real, 0.0).at(0, 0).boolean());
    EXPECT_TRUE(oneRow(ColumnType::Real, 0.4).at(0, 0).boolean());
    EXPECT_FALSE(oneRow(ColumnType::Text, "False").at(0, 0).boolean());
    EXPECT_EQ(oneRow(ColumnType::Boolean, 0).at(0, 0).value(), Value(false));
}

TEST(ResultTable, AMomentOutsideTheServersRangeIsKeptAsNothing) {
    EXPECT_TRUE(oneRow(ColumnType::DateTime, QDate(1600, 1, 1)).at(0, 0).isNull());
    ResultTable table = oneRow(ColumnType::DateTime, QDate(2026, 3, 11));
    table.set(0, 0, QDateTime(QDate(2026, 3, 12), QTime(9, 5, 6, 1), Qt::UTC));
    EXPECT_EQ(table.at(0, 0).dateTime(), QDateTime(QDate(2026, 3, 12), QTime(9, 5, 6), Qt::UTC));
}

TEST(ResultTable, AnEmptyTextIsNoNull) {
    ResultTable table({{"name", "t", ColumnType::Text}});
    table.appendText("");
    EXPECT_FALSE(table.at(0, 0).isNull());
    EXPECT_EQ(table.at(0, 0).value(), Value(""));
    table.appendReal(-0.25);
    EXPECT_EQ(table.at(1, 0).text(), "-0.25");
}

TEST(ResultTable, ACopyStaysAsItWas) {
    ResultTable table = oneRow(ColumnType::Text, "first");
    const ResultTable copy = table;
    table.set(0, 0, "second, which is longer");
    EXPECT_EQ(copy.at(0, 0).text(), "first");
    EXPECT_EQ(table.at(0, 0).text(), "second, which is longer");
}

}  // namespace
