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

TEST(Statement, EachTokenIsOfItsKind) {
    const QString statement = "Select [a]]b], \"c\"\"d\", N'it''s', 'x', 1.5, @v, #t /* no */ <= ? -- end";
    QStringList tokens;
    for (const db::Token& token : db::Tokens(statement))
        tokens << QString::number(static_cast<int>(token.kind)) + token.text.toString();
    EXPECT_EQ(tokens, (QStringList{"0Select", "1[a]]b]", "4,", "1\"c\"\"d\"", "4,", "2N'it''s'", "4,", "2'x'", "4,",
                                   "31.5", "4,", "0@v", "4,", "0#t", "4<", "4=", "4?"}));
}

TEST(Statement, ANameIsReadWithoutItsBracketsOrQuotes) {
    const QString statement = "[a]]b] \"c\"\"d\" plain";
    const std::vector<db::Token> tokens = db::Tokens(statement);
    ASSERT_EQ(tokens.size(), 3U);
    EXPECT_EQ(tokens[0].name(), "a]b");
    EXPECT_EQ(tokens[1].name(), "c\"d");
    EXPECT_EQ(tokens[2].name(), "plain");
    EXPECT_FALSE(tokens[0].is(QLatin1String("[a]]b]"))) << "what stands in brackets is no word of the language";
    EXPECT_TRUE(tokens[2].is(QLatin1String("PLAIN")));
}

TEST(Statement, ANameIsFoundOutsideTextsAndComments) {
    EXPECT_TRUE(db::Names("Select * from dbo.[Visits] v", "visits"));
    EXPECT_TRUE(db::Names("Select Visits.id from x", "Visits"));
    EXPECT_FALSE(db::Names("Select 'Visits' from x -- Visits", "Visits"));
    EXPECT_FALSE(db::Names("Select VisitGuests.id /* Visits */ from VisitGuests", "Visits"));
}

TEST(Statement, ACommentMayHoldAnother) {
    EXPECT_EQ(WrittenTable("/* a /* b */ c */ Delete From t"), "t");
    EXPECT_EQ(WrittenTable("/**//* a /*/ b */ c */ Delete From t"), "t");
    EXPECT_EQ(failureOf("Select 1 /* a /* b */ ; c */"), 0);
}

TEST(Statement, ACommentThatIsNotClosedEndsTheStatement) {
    EXPECT_EQ(failureOf("Select 1 /* a /* b */ ; Drop Table a"), 0);
    EXPECT_EQ(failureOf("Select 1 /"), 0);
    EXPECT_EQ(failureOf("Select 1 /* ; Drop Table a"), 0);
    EXPECT_EQ(failureOf("Select 1 -- ' not closed"), 0);
    EXPECT_EQ(failureOf("Select \"abc"), 105);
    EXPECT_EQ(failureOf("Select N'abc"), 105);
}

TEST(Statement, TheTableOfEveryChangeOfTheSchemaIsFound) {
    EXPECT_EQ(WrittenTable("Alter Table dbo.People Add age int"), "People");
    EXPECT_EQ(WrittenTable("Truncate Table People"), "People");
    EXPECT_EQ(WrittenTable("Create Trigger refuse On People After Insert As Delete From Other"), "People");
    EXPECT_EQ(WrittenTable("Create Schema practice"), "");
    EXPECT_EQ(WrittenTable("Delete From v From Visits As v Where 1=1"), "Visits");
    EXPECT_EQ(WrittenTable("Update v Set a = 1 From (Select 1 As b) q, Visits v"), "Visits");
    EXPECT_EQ(WrittenTable("Update Top 5 t Set a = 1"), "t");
    EXPECT_EQ(WrittenTable("Insert Into x.y.[z z] Select * From other"), "z z");
    EXPECT_EQ(WrittenTable("Update"), "");
}

TEST(Statement, TheShapeOfWhatIsNoSelectIsEmpty) {
    EXPECT_EQ(tablesOf("Delete From a"), "");
    EXPECT_EQ(tablesOf(""), "");
    EXPECT_EQ(tablesOf("Select All a From t"), "t");
    EXPECT_EQ(tablesOf("Select Top (5) a From t Order By b"), "t");
    EXPECT_TRUE(ShapeOfSelect("Select Max(a) From t Having Max(a) > 1").grouped);
}
