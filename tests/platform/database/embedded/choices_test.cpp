// Case, IIf, IsNull, Coalesce and NullIf.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Choices : public Dialect {
  protected:
    Choices()
        : Dialect(R"(
Create Table options (id int not null primary key, label nvarchar(5) null, amount int null, due datetime null, rate float null, yes bit null)
Insert Into options Values (1, 'one', 10, '2026/03/11', 1.5, 1)
Insert Into options Values (2, '2', 20, null, 2.5, 0)
Insert Into options Values (3, null, null, '2026/03/13', null, null)
)") {}
};

TEST_F(Choices, ASearchedCaseTakesTheFirstConditionThatHolds) {
    gives(
        "Select Case When amount > 15 Then 'high' When amount > 5 Then 'low' Else 'none' End from options Order by id",
        "low/high/none");
    gives("Select Case When 1 = 1 Then 'first' When 1 = 1 Then 'second' End", "first");
    gives("Select Case When amount Is Null Then -1 Else amount End from options Order by id", "10/20/-1");
    gives("Select Case When label = 'ONE' and amount = 10 or id = 3 Then 1 Else 0 End from options Order by id",
          "1/0/1");
    gives("Select Case When Not yes = 1 Then 'no' End from options Order by id", "null/no/null");
}

TEST_F(Choices, ASimpleCaseComparesOneValue) {
    gives("Select Case id When 1 Then 'a' When 2 Then 'b' Else 'c' End from options Order by id", "a/b/c");
    gives("Select Case label When 'ONE ' Then 1 Else 0 End from options Order by id", "1/0/0");
    gives("Select Case due When '03/11/2026' Then 'today' Else 'later' End from options Order by id",
          "today/later/later");
    givesOnSqlServer("Select Case '03/11/2026' When due Then 'today' Else 'later' End from options Order by id",
                     "today/later/later");
    gives("Select Case yes When 'True' Then 'yes' When 0 Then 'no' End from options Order by id", "yes/no/null");
    gives("Select Case amount + 1 When 11 Then 'eleven' End from options Where id = 1", "eleven");
    gives("Select Case id When '2' Then 'two' End from options Where id = 2", "two");
    gives("Select Case '2' When id Then 'two' End from options Where id = 2", "two");
}

TEST_F(Choices, NullIsNeverTheValueOfASimpleCase) {
    gives("Select Case amount When null Then 'null' Else 'other' End from options Where id = 3", "other");
    gives("Select Case null When null Then 1 Else 2 End from options Where id = 3", "2");
}

TEST_F(Choices, WithoutElseTheRestIsNull) {
    gives("Select Case When 1 = 0 Then 'x' End", "null");
    gives("Select Case id When 9 Then 'x' End from options Where id = 1", "null");
    gives("Select Count(Case When amount > 15 Then 1 End) from options", "1");
}

TEST_F(Choices, CasesNest) {
    gives(
        "Select Case When id = 1 Then Case When yes = 1 Then 'both' Else 'one' End Else 'none' End from options Order "
        "by id",
        "both/none/none");
    gives("Select Case Case id When 1 Then 'x' Else 'y' End When 'X' Then 1 Else 2 End from options Order by id",
          "1/2/2");
    gives("Select Len(Case id When 1 Then 'abc' Else '' End) + 1 from options Order by id", "4/1/1");
}

TEST_F(Choices, ACaseStandsWhereAValueStands) {
    gives("Select id from options Where Case When amount > 15 Then 1 Else 0 End = 1", "2");
    gives("Select id from options Order by Case When id = 2 Then 0 Else 1 End, id Desc", "2/3/1");
    gives("Select id from options Where id In (Case When 1 = 1 Then 2 End, 3) Order by id", "2/3");
    gives("Select Sum(Case yes When 1 Then amount Else -amount End) from options", "-10");
    writes("Update options Set amount = Case id When 1 Then 100 Else amount End", 3);
    gives("Select amount from options Order by id", "100/20/null");
}

TEST_F(Choices, ACaseHasTheHighestTypeOfItsValues) {
    gives("Select Case When 1 = 1 Then '5' Else 0 End + 1", "6");
    gives("Select Case When 1 = 0 Then 1.5 Else 2 End", "2");
    gives("Select Case When 1 = 1 Then '2026/03/11' Else due End from options Where id = 1", "2026-03-11 00:00:00");
    gives("Select Case When 1 = 1 Then null Else 5 End", "null");
    gives("Select Case When due Is Null Then '' Else due End from options Order by id",
          "2026-03-11 00:00:00/1900-01-01 00:00:00/2026-03-13 00:00:00");
    fails("Select Case When 1 = 1 Then 'five' Else 0 End", 245,
          "Conversion failed when converting the varchar value 'five' to data type int.");
    fails("Select Case When id = 1 Then label Else amount End from options", 245);
    fails("Select Case When id = 1 Then label Else due End from options", 241);
    givesOnSqlServer("Select Case When id = 2 Then label Else amount End from options Where id = 2", "2");
}

TEST_F(Choices, ACaseMustBeWhole) {
    fails("Select Case End", 102);
    fails("Select Case When 1 = 1 Then 2", 102);
    fails("Select Case When 1 = 1 Else 2 End", 102);
    fails("Select Case Else 2 End", 102);
    fails("Select Case id Then 2 End from options", 102);
    fails("Select Case When id Then 2 End from options", 4145);
    fails("Select Case id When id = 1 Then 2 End from options", 102);
    fails("Select Case When 1 = 1 Then 1 = 1 End", 102);
}

TEST_F(Choices, IIfIsACaseInShort) {
    gives("Select IIf(id = 1, 'one', 'more') from options Order by id", "one/more/more");
    gives("Select IIf(amount > 15, amount, 0) from options Order by id", "0/20/0");
    gives("Select IIf(1 = 1, '3', 4) + 1", "4");
    gives("Select IIf(amount Is Null or id = 1, 1, 0) from options Order by id", "1/0/1");
    fails("Select IIf(id, 1, 2) from options", 4145);
    fails("Select IIf(1 = 1, 2)", 102);
    fails("Select IIf(1 = 1, 2, 3, 4)", 102);
}

TEST_F(Choices, IsNullTakesTheSecondForNull) {
    gives("Select IsNull(amount, -1) from options Order by id", "10/20/-1");
    gives("Select IsNull(label, 'none') from options Order by id", "one/2/none");
    gives("Select IsNull(due, '1/1/2000') from options Where id = 2", "2000-01-01 00:00:00");
    gives("Select IsNull(null, 'x')", "x");
    gives("Select IsNull(null, null)", "null");
    gives("Select IsNull(IsNull(amount, null), 7) from options Where id = 3", "7");
    gives("Select id from options Where IsNull(label, '') = '' Order by id", "3");
    gives("Select IsNull(yes, 1) from options Where id = 3", "1");
    fails("Select IsNull(amount) from options", 174);
    fails("Select IsNull(amount, 1, 2) from options", 174);
}

TEST_F(Choices, IsNullGivesTheTypeOfTheFirst) {
    givesOnSqlServer("Select IsNull(label, 'abcdefgh') from options Where id = 3", "abcde");
    givesOnSqlServer("Select IsNull(Convert(varchar(2), null), 'abcdef')", "ab");
    gives("Select IsNull(amount, '7') + 1 from options Where id = 3", "8");
    gives("Select IsNull(amount, 2.9) from options Where id = 3", "2");
    gives("Select IsNull(label, 5) + '!' from options Where id = 3", "5!");
    gives("Select IsNull(rate, '1.5') from options Where id = 3", "1.5");
    fails("Select IsNull(amount, 'x') from options Where id = 3", 245);
    fails("Select IsNull(due, 'x') from options Where id = 2", 241);
}

TEST_F(Choices, CoalesceTakesTheFirstThatIsNotNull) {
    gives("Select Coalesce(label, 'none') from options Order by id", "one/2/none");
    gives("Select Coalesce(null, null, 3)", "3");
    gives("Select Coalesce(amount, rate, 0) from options Order by id", "10/20/0");
    gives("Select Coalesce(null, due, '1/1/2000') from options Order by id",
          "2026-03-11 00:00:00/2000-01-01 00:00:00/2026-03-13 00:00:00");
    gives("Select Coalesce(label, 'abcdefgh') from options Where id = 3", "abcdefgh");
    gives("Select Coalesce(amount, 2.5) from options Where id = 3", "2.5");
    gives("Select Coalesce('5', 1) + 1", "6");
    fails("Select Coalesce(label, amount) from options", 245);
    fails("Select Coalesce(null, 'x', 5)", 245);
}

TEST_F(Choices, NullIfMakesOneValueNull) {
    gives("Select NullIf(amount, 20) from options Order by id", "10/null/null");
    gives("Select NullIf(label, 'ONE ') from options Order by id", "null/2/null");
    gives("Select NullIf('', '   ')", "null");
    gives("Select NullIf(5, 6)", "5");
    gives("Select NullIf(due, '03/11/2026') from options Order by id", "null/null/2026-03-13 00:00:00");
    givesOnSqlServer("Select NullIf(label, 2) + '!' from options Where id = 2", "null");
    givesOnSqlServer("Select NullIf(label, 3) + '!' from options Where id = 2", "2!");
    gives("Select 10 / NullIf(0, 0)", "null");
    fails("Select NullIf(1)", 174);
}

}  // namespace
