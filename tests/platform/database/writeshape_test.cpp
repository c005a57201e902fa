#include "platform/database/writeshape.h"

#include <gtest/gtest.h>

#include "platform/database/error.h"

using db::ShapeOfWrite;
using db::Value;
using db::WriteShape;

namespace {

/// What a value of a statement is taken for.
QString told(const WriteShape::Written& written) {
    if (const auto* place = std::get_if<std::size_t>(&written))
        return QStringLiteral("?%1").arg(*place);
    if (const auto* value = std::get_if<Value>(&written))
        return value->isNull() ? QStringLiteral("Null") : value->text();
    return QStringLiteral("(expression)");
}

QStringList told(const std::vector<WriteShape::Written>& row) {
    QStringList values;
    for (const WriteShape::Written& each : row)
        values << told(each);
    return values;
}

QStringList assignmentsOf(const WriteShape& shape) {
    QStringList assignments;
    for (const WriteShape::Assignment& each : shape.assignments)
        assignments << each.column + u'=' + told(each.value);
    return assignments;
}

}  // namespace

TEST(WriteShape, AnUpdateTellsWhatItSetsAndItsCondition) {
    const auto shape = ShapeOfWrite(
        "Update dbo.[My Visits] Set cappttext = 'O''Brien', v.nStartTime = nStartTime + ?, kept = ? Where id = ? And n In (1, 2)");
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->verb, WriteShape::Verb::Update);
    EXPECT_EQ(shape->table, "dbo.[My Visits]");
    EXPECT_EQ(assignmentsOf(*shape), (QStringList{"cappttext=O'Brien", "nStartTime=(expression)", "kept=?1"}));
    EXPECT_EQ(shape->condition, "id = ? And n In (1, 2)");
    EXPECT_EQ(shape->placesBefore, 2U);
}

TEST(WriteShape, AnUpdateOrDeleteOfEveryRowHasNoCondition) {
    for (const char* statement : {"Update Visits Set kept = 1", "Delete From Visits", "Delete Visits;"}) {
        const auto shape = ShapeOfWrite(statement);
        ASSERT_TRUE(shape) << statement;
        EXPECT_EQ(shape->table, "Visits") << statement;
        EXPECT_EQ(shape->condition, QString()) << statement;
    }
}

TEST(WriteShape, ADeleteTellsItsCondition) {
    const auto shape = ShapeOfWrite("delete  from Visits where cappttext = 'Where;' -- the first\n And id = 1 ;");
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->verb, WriteShape::Verb::Delete);
    EXPECT_EQ(shape->condition, "cappttext = 'Where;' -- the first\n And id = 1");
}

TEST(WriteShape, AConditionMaySelectFromOtherTables) {
    const auto shape = ShapeOfWrite(
        "Update Visits Set n = (Select Max(n) From Visits) Where id In (Select id From Guests Where n = 1)");
    ASSERT_TRUE(shape);
    EXPECT_EQ(assignmentsOf(*shape), QStringList{"n=(expression)"});
    EXPECT_EQ(shape->condition, "id In (Select id From Guests Where n = 1)");
}

TEST(WriteShape, AnInsertTellsItsColumnsAndThePlainValuesOfEachRow) {
    const QString statement =
        "Insert Into Visits (id, [my text], n, fee) Values (?, N'Zoë, (x)', -5, 1.5), (1, GetDate(), Null, ?)";
    const auto shape = ShapeOfWrite(statement);
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->columns, (QStringList{"id", "my text", "n", "fee"}));
    ASSERT_EQ(shape->rows.size(), 2U);
    EXPECT_EQ(told(shape->rows[0]), (QStringList{"?0", "Zoë, (x)", "-5", "1.5"}));
    EXPECT_EQ(told(shape->rows[1]), (QStringList{"1", "(expression)", "Null", "?1"}));
    EXPECT_EQ(statement.sliced(shape->valuesAt, 6), "Values");
}

TEST(WriteShape, AnInsertMayHaveNoIntoAndNoColumns) {
    const auto shape = ShapeOfWrite("Insert Visits Values (1 - 2, - 3, '')");
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->columns, QStringList());
    EXPECT_EQ(told(shape->rows.front()), (QStringList{"(expression)", "-3", ""}));
}

TEST(WriteShape, AnInsertOfASelectTellsWhereTheSelectBegins) {
    const QString statement = "Insert Into Guests (id, name) Select id, name From Guests Where id = 1";
    const auto shape = ShapeOfWrite(statement);
    ASSERT_TRUE(shape);
    EXPECT_TRUE(shape->rows.empty());
    EXPECT_EQ(statement.sliced(shape->valuesAt), "Select id, name From Guests Where id = 1");
}

TEST(WriteShape, WhatCannotBeReadBackByItsPiecesHasNone) {
    for (const char* statement : {"",
                                  "Select * from Visits",
                                  "Create Table Visits (id int)",
                                  "Truncate Table Visits",
                                  "Update",
                                  "Update Visits",
                                  "Update Top (5) Visits Set n = 1",
                                  "Update v Set n = 1 From Visits v",
                                  "Update Visits With (TabLock) Set n = 1",
                                  "Update Visits Set n = 1 Where",
                                  "Update Visits Set n += 1",
                                  "Update Visits Set n = 1 Where id = 1 Option (Recompile)",
                                  "Delete Top (5) From Visits",
                                  "Delete v From Visits v Where id = 1",
                                  "Delete From Visits Output Deleted.id",
                                  "Delete From Visits Where Current Of visitCursor",
                                  "Insert Top (5) Into Visits Values (1)",
                                  "Insert Into Visits Default Values",
                                  "Insert Into Visits (id) Output Inserted.id Values (1)",
                                  "Insert Into Visits (id) Exec theVisits",
                                  "Insert Into Visits (id Values (1)",
                                  "Insert Into Visits (id)",
                                  "Insert Into Visits Values 1",
                                  "Insert Into Visits Values (1",
                                  "Insert Into Visits Values (1) Option (Recompile)",
                                  "Insert Into Visits Values (1) (2)"})
        EXPECT_FALSE(ShapeOfWrite(statement)) << statement;
}
