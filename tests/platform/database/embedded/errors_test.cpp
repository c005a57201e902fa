#include <random>

#include "tests/platform/database/embedded/practice.h"

namespace {

class Errors : public testing::Test {
  protected:
    Practice practice{
        "Create Table a (id int, name nvarchar(20), day datetime)\nCreate Table b (id int, other nvarchar(20))\nInsert Into a Values (1, 'x', '2026/03/11')"};
};

TEST_F(Errors, UnknownTablesAndColumnsAreNamed) {
    EXPECT_EQ(practice.failure("Select * from nothing"), "208 Invalid object name 'nothing'.");
    EXPECT_EQ(practice.failure("Update dbo.nothing Set x = 1"), "208 Invalid object name 'nothing'.");
    EXPECT_EQ(practice.failure("Select * from sqlite_master"), "208 Invalid object name 'sqlite_master'.");
    EXPECT_EQ(practice.failure("SELECT SVSessionID from a Where id = 0"), "207 Invalid column name 'SVSessionID'.");
    EXPECT_EQ(practice.failure("Select * from a Where \"x\" = 1"), "207 Invalid column name 'x'.");
    EXPECT_EQ(practice.failure("Select id from a, b"), "209 Ambiguous column name 'id'.");
    EXPECT_EQ(practice.failure("Select c.id from a, b"), "4104 The multi-part identifier \"c.id\" could not be bound.");
    EXPECT_EQ(practice.failure("Select b.name from a, b"), "207 Invalid column name 'name'.");
    EXPECT_EQ(practice.failureNumber("Select c.* from a"), 107);
    EXPECT_EQ(practice.failureNumber("Insert Into a (nothing) Values (1)"), 207);
    EXPECT_EQ(practice.failureNumber("Update a Set nothing = 1"), 207);
    EXPECT_EQ(practice.failureNumber("Create Index i On a (nothing)"), 1911);
    EXPECT_EQ(practice.failure("Select Frobnicate(id) from a"),
              "195 'Frobnicate' is not a recognized built-in function name.");
    EXPECT_EQ(practice.failureNumber("Create Table c (x sql_variant)"), 2715);
    EXPECT_EQ(practice.failureNumber("Create Table a (x int)"), 2714);
}

TEST_F(Errors, SyntaxFaultsNameTheWordTheyStandAt) {
    EXPECT_EQ(practice.failure("Select * form a"), "102 Incorrect syntax near 'form'.");
    EXPECT_EQ(practice.failure("Select * from"), "102 Incorrect syntax near 'from'.");
    EXPECT_EQ(practice.failure("Select from a"), "102 Incorrect syntax near 'from'.");
    EXPECT_EQ(practice.failure("Frobnicate a"), "102 Incorrect syntax near 'Frobnicate'.");
    EXPECT_EQ(practice.failure("Select * from a Where id = "), "102 Incorrect syntax near '='.");
    EXPECT_EQ(practice.failure("Select * from a Where (id = 1"), "102 Incorrect syntax near '1'.");
    EXPECT_EQ(practice.failure("Select * from a Where id = 1)"), "102 Incorrect syntax near ')'.");
    EXPECT_EQ(practice.failure("Select {id} from a"), "102 Incorrect syntax near '{'.");
    EXPECT_EQ(practice.failure(""), "102 Incorrect syntax near ''.");
    EXPECT_EQ(practice.failureNumber("Select * from a Where id"), 4145);
    EXPECT_EQ(practice.failureNumber("Select * from a Where id and 1 = 1"), 4145);
    EXPECT_EQ(practice.failureNumber("Insert Into a (id) Values (1 = 1)"), 102);
    EXPECT_EQ(practice.failureNumber("Pragma journal_mode = delete"), 102);
    EXPECT_EQ(practice.failureNumber("Attach Database 'x' As x"), 102);
}

TEST_F(Errors, AQuoteThatIsNotClosedIsToldBeforeAnythingRuns) {
    EXPECT_EQ(practice.failure("Update a Set name = 'O'Brien' Where id = 1"),
              "105 Unclosed quotation mark after the character string ' Where id = 1'.");
    EXPECT_EQ(practice.failure("Select [id from a"),
              "105 Unclosed quotation mark after the character string 'id from a'.");
    EXPECT_EQ(practice.failure("Select /* id from a"), "113 Missing end comment mark '*/'.");
    EXPECT_EQ(practice.one("Select name from a -- only a remark"), "x");
    EXPECT_EQ(practice.one("Select /* a remark */ name from a"), "x");
}

TEST_F(Errors, ASecondStatementIsNeverRun) {
    for (const char* statement : {"Select * from a; Delete from a", "Delete from b Delete from a", "Select * from a;;",
                                  "Select 1 from a Where name = 'x'; Drop Table a --'"})
        EXPECT_EQ(practice.failureNumber(statement), 102) << statement;
    EXPECT_EQ(practice.one("Select Count(*) from a"), "1");
}

TEST_F(Errors, AUnionJoinsAsManyColumnsAsItHas) {
    EXPECT_EQ(practice.failureNumber("Select id from a Union Select id, other from b"), 205);
    EXPECT_EQ(practice.failureNumber("Select id from a Union Select id from b Order by name"), 104);
}

TEST_F(Errors, FunctionsCheckTheirArguments) {
    EXPECT_EQ(practice.failureNumber("Select Len() from a"), 174);
    EXPECT_EQ(practice.failureNumber("Select Left(name) from a"), 174);
    EXPECT_EQ(practice.failureNumber("Select Month('soon') from a"), 241);
    EXPECT_EQ(practice.failureNumber("Select DatePart(fortnight, day) from a"), 155);
    EXPECT_EQ(practice.failureNumber("Select Convert(varchar, day, 999) from a"), 281);
    EXPECT_EQ(practice.failureNumber("Select DateAdd(year, 9000, day) from a"), 517);
    EXPECT_EQ(practice.failureNumber("Select Convert(int, name) from a"), 245);
    EXPECT_EQ(practice.failureNumber("Select name from a Where Count(*) > 1"), 147);
}

TEST_F(Errors, AFailureLeavesTheSessionUsable) {
    EXPECT_EQ(practice.failureNumber("Select Month(name) from a"), 241);
    EXPECT_EQ(practice.failureNumber("Select * from nothing"), 208);
    EXPECT_EQ(practice.one("Select Month(day) from a"), "3");
}

TEST_F(Errors, AnyGarbledStatementIsAnsweredWithANumber) {
    const QStringList words =
        QStringLiteral(
            "Select|*|,|(|)|from|a|b|Where|id|name|day|=|<>|'x'|'2026/03/11'|1|.5|+|-|and|or|not|like|between|in|is|null|Case|when|then|else|end|Union|Order|by|Group|as|[x]|?|Count|Convert|varchar|Inner|Left|Join|on|Exists|Top|Distinct|.|;|Insert|Into|Values|Update|Set|Delete|IsNull|GetDate|''|'")
            .split(u'|');
    const QStringList sound = {
        "Select id , name as [x] from a Where ( id = 1 or name like 'x' ) and day between '2026/03/11' and GetDate ( ) Order by name",
        "Insert Into a ( id , name ) Values ( 1 , 'x' )",
        "Update a Set name = Case when id = 1 then 'x' else name end Where id in ( 1 , 2 )",
        "Select Distinct a . id , Count ( * ) from ( a Left Join b on a . id = b . id ) Where Exists ( Select * from b ) Group by a . id Union Select 1 , 2"};
    std::mt19937 random(42);
    int answered = 0;
    for (int i = 0; i < 20'000; ++i) {
        QStringList garbled = sound.at(static_cast<int>(random() % 4)).split(u' ');
        for (auto n = random() % 4; n > 0; --n) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(garbled.size()));
            const QString& word = words.at(static_cast<int>(random() % static_cast<unsigned>(words.size())));
            if (random() % 2 == 0)
                garbled[at] = word;
            else
                garbled.insert(at, word);
        }
        const QString statement = garbled.join(u' ');
        try {
            practice.engine.query(statement, {});
        } catch (const db::DatabaseError& error) {
            ASSERT_NE(error.number, 0) << statement.toStdString();
            ASSERT_FALSE(error.description.isEmpty()) << statement.toStdString();
            // What the translation lets through, SQLite must understand.
            ASSERT_FALSE(error.description.contains(QStringLiteral("syntax error"))) << statement.toStdString() << "\n"
                                                                                     << error.what();
            ++answered;
        }
    }
    EXPECT_GT(answered, 5000);
}

}  // namespace
