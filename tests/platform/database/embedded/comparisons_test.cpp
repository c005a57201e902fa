// Comparisons: texts without case and trailing blanks, values of different kinds, null, Between, In and Like.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Comparisons : public Dialect {
  protected:
    Comparisons()
        : Dialect(R"(
Create Table members (id int not null primary key, name nvarchar(20) null, code nvarchar(10) null, age int null, rate float null, joined datetime null, active bit null)
Insert Into members Values (1, 'Smith', '007', 30, 1.5, '2026/03/11', 1)
Insert Into members Values (2, 'smith  ', '7', 40, 2, '2026/03/11 9:05', 0)
Insert Into members Values (3, 'Étienne', '12', null, null, '2026/12/01', 1)
Insert Into members Values (4, '', '', 0, -1, null, null)
Insert Into members Values (5, null, null, 50, 0.5, '1999/12/31', 0)
)") {}

    /// The keys of the members that meet the condition.
    void finds(const QString& condition, const QString& keys) {
        gives("Select id from members Where " + condition + " Order by id", keys);
    }
};

TEST_F(Comparisons, EachOperatorComparesNumbers) {
    finds("age = 30", "1");
    finds("age <> 30", "2/4/5");
    finds("age != 30", "2/4/5");
    finds("age < 40", "1/4");
    finds("age <= 40", "1/2/4");
    finds("age > 30", "2/5");
    finds("age >= 30", "1/2/5");
    finds("age !< 40", "2/5");
    finds("age !> 30", "1/4");
    finds("30 = age", "1");
    finds("rate = 2", "2");
    finds("rate < age", "1/2/4/5");
    finds("age = 30.0", "1");
    finds("-rate = 1", "4");
    finds("age<>30", "2/4/5");
    givesOnSqlServer("Select id from members Where age>=30and age<50", "1/2");
}

TEST_F(Comparisons, TextsAreEqualWithoutTheirCaseAndTheBlanksAtTheirEnd) {
    finds("name = 'SMITH'", "1/2");
    finds("name = 'smith     '", "1/2");
    finds("name = ' smith'", "");
    finds("name <> 'Smith'", "3/4");
    finds("name = '   '", "4");
    finds("'smith' = name", "1/2");
    finds("name = code", "4");
    finds("Upper(name) = Lower('SMITH')", "1/2");
    finds("name + 'x' = 'SMITHX'", "1");
    finds("name In ('SMITH', 'q')", "1/2");
    finds("name Not In ('SMITH', 'q')", "3/4");
    finds("name Between 'SMITH' and 'smith'", "1/2");
    gives("Select 1 Where 'a' = 'A ' and N'a' = 'a' and 'a' <> 'b'", "1");
}

TEST_F(Comparisons, AccentsTellTextsApart) {
    finds("name = 'étienne'", "3");
    finds("name = 'Etienne'", "");
    finds("name Like 'é%'", "3");
    finds("name Like 'e%'", "");
    finds("name In ('ETIENNE', 'ÉTIENNE')", "3");
}

TEST_F(Comparisons, TextsHaveAnOrder) {
    finds("name < 'smith'", "3/4");
    finds("name <= 'SMITH'", "1/2/3/4");
    finds("name > 'étienne'", "1/2");
    finds("name > ''", "1/2/3");
    finds("name >= 'A' and name < 'F'", "3");
    finds("code < '1'", "1/4");
    finds("code > '1'", "2/3");
    gives("Select 1 Where 'a' < 'B' and 'B' < 'c' and 'Z' > 'a'", "1");
    gives("Select 1 Where '10' < '9' and 10 > 9", "1");
    gives("Select 1 Where '_' < '1' and '1' < 'a' and ' ' < 'a'", "1");
}

TEST_F(Comparisons, ATextBesideANumberIsReadAsOne) {
    finds("code = 7", "1/2");
    finds("7 = code", "1/2");
    finds("code > 6 and code < 12", "1/2");
    finds("code = 0", "4");
    finds("age = '30'", "1");
    finds("age = ' 30 '", "1");
    finds("age = ''", "4");
    finds("age > '35'", "2/5");
    finds("rate = '1.5'", "1");
    finds("age = code + 23", "1");
    finds("code + 0 = '7'", "1/2");
    fails("Select id from members Where age = 'thirty'", 245,
          "Conversion failed when converting the varchar value 'thirty' to data type int.");
    fails("Select id from members Where name = 5", 245);
    fails("Select id from members Where rate = 'x'", 8114, "Error converting data type varchar to float.");
    fails("Select id from members Where age = '30.5'", 245);
}

TEST_F(Comparisons, ATextBesideAMomentIsReadAsOne) {
    finds("joined = '03/11/2026'", "1");
    finds("'2026-03-11' = joined", "1");
    finds("joined = '3/11/26 9:05 AM'", "2");
    finds("joined >= 'Mar 11 2026' and joined < '20260312'", "1/2");
    finds("joined > ''", "1/2/3/5");
    finds("joined <> '2026/03/11'", "2/3/5");
    finds("joined < '1/1/2000'", "5");
    finds("joined In ('12/1/2026', '12/31/1999')", "3/5");
    finds("joined Between '2026/03/11' and '2026/03/11 23:59'", "1/2");
    finds("joined Not Between '2026/03/11' and '2026/03/11 23:59'", "3/5");
    fails("Select id from members Where joined = 'soon'", 241);
    fails("Select id from members Where joined = name", 241);
}

TEST_F(Comparisons, ANumberBesideAMomentIsDays) {
    finds("joined > 0", "1/2/3/5");
    finds("joined = 46090", "1");
    finds("joined < 40000", "5");
    finds("joined - 46090 = '1/1/1900'", "1");
}

TEST_F(Comparisons, BitsAreComparedWithNumbersAndWords) {
    finds("active = 1", "1/3");
    finds("active = 0", "2/5");
    finds("active <> 0", "1/3");
    finds("active = 'True'", "1/3");
    finds("active = 'false'", "2/5");
    finds("active = '1'", "1/3");
    finds("active In (0, 1)", "1/2/3/5");
    finds("active Is Null", "4");
}

TEST_F(Comparisons, NullIsEqualToNothing) {
    finds("age = null", "");
    finds("age <> null", "");
    finds("null = null", "");
    finds("Not (age = null)", "");
    finds("age Is Null", "3");
    finds("age Is Not Null", "1/2/4/5");
    finds("age + 1 Is Null", "3");
    finds("name + code Is Not Null", "1/2/3/4");
    finds("null Is Null and Not (null Is Not Null)", "1/2/3/4/5");
    finds("Not age > 30", "1/4");
    finds("age > 30 or age Is Null", "2/3/5");
    finds("(age = null or id = 1)", "1");
    finds("(age = null and id = 1)", "");
    finds("Not (age = null and id = 1)", "2/3/4/5");
}

TEST_F(Comparisons, BetweenHoldsBothEnds) {
    finds("age Between 30 and 40", "1/2");
    finds("age Not Between 30 and 40", "4/5");
    finds("age Between 40 and 30", "");
    finds("age Between 0 and 30 or id = 5", "1/4/5");
    finds("30 Between age and age + 1", "1");
    finds("rate Between -1 and 1.5", "1/4/5");
    finds("age Between null and 100", "");
    finds("age Not Between null and 35", "2/5");
    finds("Not age Between 30 and 40", "4/5");
    finds("age + 5 Between 30 + 5 and 7 * 6", "1");
    finds("age Between '30' and '40'", "1/2");
}

TEST_F(Comparisons, BetweenComparesWithEachEndAlone) {
    finds("code Between 7 and 12", "1/2/3");
    finds("code Between '7' and 12", "2");
    finds("code Between 7 and '12'", "1/3");
    finds("'7' Between '10' and 12", "1/2/3/4/5");
    finds("'11' Between '7' and 12", "");
    finds("'11' Not Between '7' and 12", "1/2/3/4/5");
    finds("'03/11/2026' Between joined and '2026/03/12'", "1/5");
    finds("'2026/03/11 9:05' Between '03/11/2026' and joined", "2/3");
}

TEST_F(Comparisons, InFindsAnyOfItsValues) {
    finds("id In (1)", "1");
    finds("id In (5, 3, 1, 1)", "1/3/5");
    finds("id Not In (5, 3)", "1/2/4");
    finds("id In (1 + 1, 2 * 2)", "2/4");
    finds("age In (30, null)", "1");
    finds("age Not In (30, null)", "");
    finds("Not age In (30, 40)", "4/5");
    finds("Not (id In (1, 2) or id In (4))", "3/5");
    finds("id + 1 In (2, 3)", "1/2");
    finds("id In ('1', '2')", "1/2");
    finds("3 In (id, age)", "3");
    finds("Left(name, 1) In ('S')", "1/2");
    finds("rate In (1.5, 2)", "1/2");
}

TEST_F(Comparisons, InTakesItsValuesInTheHighestKind) {
    finds("code In (7, 12)", "1/2/3");
    finds("code In (7, '12')", "1/2/3");
    finds("code In ('12', 7)", "1/2/3");
    finds("code Not In ('12', 7)", "4");
    finds("joined In ('x' + '', GetDate()) and 1 = 0", "");
    fails("Select id from members Where id In (1, 'two')", 245);
    fails("Select id from members Where joined In ('soon', '2026/03/11')", 241);
}

TEST_F(Comparisons, AndBindsMoreCloselyThanOr) {
    finds("id = 1 or id = 2 and age = 99", "1");
    finds("(id = 1 or id = 2) and age = 40", "2");
    finds("id = 1 and age = 99 or id = 3", "3");
    finds("Not id = 1 and id < 3", "2");
    finds("Not (id = 1 and id < 3)", "2/3/4/5");
    finds("Not Not id = 1", "1");
    finds("Not id = 1 or id = 1", "1/2/3/4/5");
    finds("id = 1 or Not id < 5 or id Between 2 and 2", "1/2/5");
}

TEST_F(Comparisons, ABoundValueComparesLikeALiteral) {
    const auto found = [&](const char* condition, const std::vector<db::Value>& bound) {
        return practice.one(QStringLiteral("Select id from members Where %1 Order by id").arg(condition), bound);
    };
    EXPECT_EQ(found("name = ?", {"SMITH "}), "1/2");
    EXPECT_EQ(found("? = name", {"SMITH "}), "1/2");
    EXPECT_EQ(found("name In (?, ?)", {"SMITH", "ÉTIENNE"}), "1/2/3");
    EXPECT_EQ(found("name Like ?", {"%t%"}), "1/2/3");
    EXPECT_EQ(found("age = ?", {30}), "1");
    EXPECT_EQ(found("age = ?", {"30"}), "1");
    EXPECT_EQ(found("joined = ?", {QDate(2026, 3, 11)}), "1");
    EXPECT_EQ(found("joined Between ? and ?", {"3/11/2026", QDate(2026, 3, 12)}), "1/2");
    EXPECT_EQ(found("active = ?", {true}), "1/3");
    EXPECT_EQ(found("age = ?", {db::Value()}), "");
    EXPECT_EQ(found("Left(name, 1) = ?", {"S"}), "1/2");
    EXPECT_EQ(found("Left(name, ?) = 's'", {1}), "1/2");
}

TEST_F(Comparisons, AComparisonMustBeWhole) {
    fails("Select id from members Where id", 4145,
          "An expression of non-boolean type specified in a context where a condition is expected, near ''.");
    fails("Select id from members Where id = 1 and age", 4145);
    fails("Select id from members Where age or id = 1", 4145);
    fails("Select id from members Where Not age", 4145);
    fails("Select id from members Where id =", 102);
    fails("Select id from members Where = 1", 102);
    fails("Select id from members Where id = = 1", 102);
    fails("Select id from members Where id = 1 and", 102);
    fails("Select id from members Where id Between 1", 102);
    fails("Select id from members Where id Between 1 or 2", 102);
    fails("Select id from members Where id In ()", 102);
    fails("Select id from members Where id In 1, 2", 102);
    fails("Select id from members Where id Is 5", 102);
    fails("Select id from members Where id Not 5", 4145);
    fails("Select id from members Where id Not = 5", 4145);
    fails("Select id from members Where (id = 1) = 1", 102);
    fails("Select id from members Where id = (age = 1)", 102);
}

}  // namespace
