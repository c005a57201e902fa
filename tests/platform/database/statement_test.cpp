#include "platform/database/statement.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "platform/database/error.h"

using db::RequireOneStatement;
using db::ShapeOfSelect;
using db::WithServerTexts;
using db::WrittenTable;

namespace {

int failureOf(const char* statement) {
    try {
        RequireOneStatement(QString::fromUtf8(statement));
    } catch (const db::DatabaseError& error) {
        return error.number;
    }
    return 0;
}

QString tablesOf(const char* statement) {
    QStringList tables;
    for (const auto& source : ShapeOfSelect(QString::fromUtf8(statement)).sources)
        tables << (source.alias.isEmpty() ? source.table : source.table + '=' + source.alias);
    return tables.join(' ');
}

QString itemsOf(const char* statement) {
    QStringList items;
    for (const auto& item : ShapeOfSelect(QString::fromUtf8(statement)).items)
        items << item.table + (item.all ? "*" : "-");
    return items.join(' ');
}

}  // namespace

TEST(Statement, ASecondStatementBehindASemicolonIsRefused) {
    EXPECT_EQ(failureOf("Delete from a; Delete from b"), 102);
    EXPECT_EQ(failureOf("Delete from a;;"), 102);
    EXPECT_EQ(failureOf("Select 1 ;-- x\n Drop Table a"), 102);
}

TEST(Statement, ASemicolonAtTheEndOrInsideTextIsPartOfOne) {
    EXPECT_EQ(failureOf("Delete from a;"), 0);
    EXPECT_EQ(failureOf("Delete from a ; \n\t"), 0);
    EXPECT_EQ(failureOf("Insert Into a Values ('x; Drop Table a', [b;c], \"d;e\")"), 0);
    EXPECT_EQ(failureOf("Select 1 /* ; */ -- ; \n"), 0);
    EXPECT_EQ(failureOf("Select 'it''s; fine'"), 0);
}

TEST(Statement, AQuoteThatIsNotClosedIsReported) {
    EXPECT_EQ(failureOf("Select 'abc"), 105);
    EXPECT_EQ(failureOf("Select 'abc''"), 105);
    EXPECT_EQ(failureOf("Select [abc"), 105);
}

TEST(Statement, TheWrittenTableIsFound) {
    EXPECT_EQ(WrittenTable("Insert Into roomschedule (a) Values (1)"), "roomschedule");
    EXPECT_EQ(WrittenTable("insert Groups Values (1)"), "Groups");
    EXPECT_EQ(WrittenTable("Delete  from roomschedule Where apptid = 1"), "roomschedule");
    EXPECT_EQ(WrittenTable("Delete ToDo Where 1=1"), "ToDo");
    EXPECT_EQ(WrittenTable("Update appointments Set Appointment_Type = 1"), "appointments");
    EXPECT_EQ(WrittenTable("  -- why\n Update dbo.[appointments] Set a = 1"), "appointments");
    EXPECT_EQ(WrittenTable("Update a Set a.x = 1 From appointments a Inner Join rooms r On r.id = a.id"),
              "appointments");
    EXPECT_EQ(WrittenTable("Update Top (5) t Set a = 1"), "t");
    EXPECT_EQ(WrittenTable("Create Table People (id int)"), "People");
    EXPECT_EQ(WrittenTable("Create Unique Index i On People (id)"), "People");
    EXPECT_EQ(WrittenTable("Drop Table [Old People]"), "Old People");
}

TEST(Statement, AReadingStatementWritesNoTable) {
    EXPECT_FALSE(WrittenTable("Select * from appointments"));
    EXPECT_FALSE(WrittenTable(""));
}

TEST(Statement, TheSourcesOfASelectAreFound) {
    EXPECT_EQ(tablesOf("Select * from appointments Where nKeyId = 5"), "appointments");
    EXPECT_EQ(tablesOf("Select * from provider_info, passwords Where Id = pswd_user_id"), "provider_info passwords");
    EXPECT_EQ(
        tablesOf(
            "select insrname from InsuranceCompanies insco inner join clientInsurancePolicies As cpol on IsNull(a, 1) = 2"),
        "InsuranceCompanies=insco clientInsurancePolicies=cpol");
    EXPECT_EQ(
        tablesOf(
            "SELECT a FROM ((Groups INNER JOIN GroupMembers ON Groups.g = GroupMembers.g) INNER JOIN provider_info ON 1 = 1) INNER JOIN patient_info ON 1 = 1 Where x = 1"),
        "Groups GroupMembers provider_info patient_info");
    EXPECT_EQ(tablesOf("Select * from (Select a, b from x, y) q Left Join dbo.z On 1 = 1"), "=q z");
    EXPECT_EQ(tablesOf("Select 1"), "");
}

TEST(Statement, TheSelectListTellsWhereItsColumnsComeFrom) {
    EXPECT_EQ(itemsOf("Select * from a"), "*");
    EXPECT_EQ(itemsOf("Select a.*, b.x, b.y As z, b.z q, n, a.x + b.x, IsNull(a.x, 0), 'Q' = b.x from a, b"),
              "a* b- b- b- - - - -");
    EXPECT_EQ(itemsOf("Select Top 5 dbo.a.x from a"), "a-");
}

TEST(Statement, RowsThatAreGroupedAreNoRowsOfATable) {
    EXPECT_TRUE(ShapeOfSelect("Select Distinct a from t").grouped);
    EXPECT_TRUE(ShapeOfSelect("Select a from t Where 1 = 1 Group By a").grouped);
    EXPECT_TRUE(ShapeOfSelect("Select a from t Union Select a from u").grouped);
    EXPECT_FALSE(ShapeOfSelect("Select a from t Where a In (Select b from u Group By b) Order By a").grouped);
}

TEST(Statement, TextBeyondAsciiIsMarkedAsNational) {
    EXPECT_EQ(WithServerTexts("Where a = 'plain' And b = 'Müller' And c = N'Ł' And d = 'x'"),
              "Where a = 'plain' And b = N'Müller' And c = N'Ł' And d = 'x'");
    EXPECT_EQ(WithServerTexts("Where a = 'plain'"), "Where a = 'plain'");
}

TEST(Statement, ABackslashAtTheEndOfALineIsKept) {
    EXPECT_EQ(WithServerTexts("Set n = 'C:\\\nD:\\'"), "Set n = N'C:\\' + N'\nD:\\'");
    EXPECT_EQ(WithServerTexts("Set n = N'C:\\\r\nD'"), "Set n = N'C:\\' + N'\r\nD'");
    EXPECT_EQ(WithServerTexts("Set n = 'C:\\x'"), "Set n = N'C:\\x'");
}
