// Union, Except and Intersect: which rows come, how often, in which order, under which names and as what.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Unions : public Dialect {
  protected:
    Unions()
        : Dialect(R"(
Create Table fruit (id int not null primary key, name nvarchar(20) null, price float null, picked datetime null)
Create Table roots (id int not null primary key, name nvarchar(20) null, weight int null, dug datetime null)
Insert Into fruit (id, name, price, picked) Values (1, 'Apple', 1.5, '2026/03/11')
Insert Into fruit (id, name, price, picked) Values (2, 'Banana', 2.5, '2026/03/12')
Insert Into fruit (id, name, price, picked) Values (3, 'Cherry', 4, null)
Insert Into fruit (id, name, price, picked) Values (4, null, null, '2026/03/14 9:05')
Insert Into roots (id, name, weight, dug) Values (1, 'beet', 7, '2026/03/12')
Insert Into roots (id, name, weight, dug) Values (2, 'APPLE ', 3, null)
Insert Into roots (id, name, weight, dug) Values (3, 'Carrot', null, '2026/03/20')
)") {}
};

TEST_F(Unions, ARowThatBothQueriesHaveComesOnce) {
    gives("Select id from fruit Union Select id from roots Order by id", "1/2/3/4");
    gives("Select 1 as n Union Select 1 Union Select 1", "1");
    gives("Select id, id from fruit Where id < 3 Union Select id, id from roots Where id < 3 Order by 1", "1|1/2|2");
    gives("Select 1 as a, 2 as b Union Select 2, 1 Order by a", "1|2/2|1");
}

TEST_F(Unions, ARowThatOneQueryHasTwiceComesOnce) {
    gives("Select 1 as n from fruit Union Select 2 Order by n", "1/2");
    gives("Select weight from roots Where id = 9 Union Select 5 from fruit", "5");
}

TEST_F(Unions, AllKeepsEveryRow) {
    gives("Select id from fruit Union All Select id from roots Order by id", "1/1/2/2/3/3/4");
    gives("Select 1 as n Union All Select 1 Union All Select 1", "1/1/1");
    gives("Select Count(*) from (Select id from fruit Union All Select id from roots) both_of_them", "7");
}

TEST_F(Unions, AUnionBehindAUnionAllTakesAwayWhatItHasTwice) {
    gives("Select 1 as n Union All Select 1 Union Select 2 Order by n", "1/2");
    gives("Select 2 as n Union Select 1 Union All Select 1 Order by n", "1/1/2");
}

TEST_F(Unions, TextsThatDifferInCaseOrBlanksAloneAreOneRow) {
    gives("Select Count(*) from (Select name from fruit Where id = 1 Union Select name from roots Where id = 2) n",
          "1");
    gives("Select Count(*) from (Select 'a' as t Union Select 'A' Union Select 'a  ') n", "1");
    gives("Select Count(*) from (Select 'a' as t Union All Select 'A' Union All Select 'a  ') n", "3");
    gives("Select Count(*) from (Select Upper(name) as t from fruit Union Select Lower(name) from fruit) n", "4");
    gives("Select Count(*) from (Select 'é' as t Union Select 'e') n", "2");
}

TEST_F(Unions, NullsAreOneRow) {
    gives("Select null as n Union Select null", "null");
    gives("Select name from fruit Where id = 4 Union Select null", "null");
    gives("Select weight from roots Where id = 3 Union All Select price from fruit Where id = 4", "null/null");
}

TEST_F(Unions, ExceptKeepsWhatTheSecondQueryHasNot) {
    gives("Select id from fruit Except Select id from roots", "4");
    gives("Select id from roots Except Select id from fruit", "");
    gives("Select name from fruit Except Select name from roots Order by name", "null/Banana/Cherry");
    gives("Select id from fruit Except Select 1 Except Select 2 Order by id", "3/4");
}

TEST_F(Unions, IntersectKeepsWhatBothHave) {
    gives("Select id from fruit Intersect Select id from roots Order by id", "1/2/3");
    gives("Select id from fruit Intersect Select weight from roots", "3");
    gives("Select null as n Intersect Select null", "null");
    gives("Select Count(*) from (Select name from fruit Intersect Select name from roots) n", "1");
}

TEST_F(Unions, IntersectBindsMoreCloselyThanUnionAndExcept) {
    gives("Select 1 as n Union Select 2 Intersect Select 2 Order by n", "1/2");
    gives("Select 1 as n Union All Select 1 Intersect Select 2 Order by n", "1");
    gives("Select 1 as n Except Select 1 Intersect Select 2", "1");
    gives("Select 2 as n Intersect Select 2 Union Select 1 Order by n", "1/2");
    gives("Select 1 as n Union Select 3 Intersect Select 3 Intersect Select 3 Order by n", "1/3");
    gives("Select 1 as n Union Select 2 Intersect Select 2 Union Select 3 Order by n", "1/2/3");
    gives("Select n from (Select 1 as n Union Select 2) x Intersect Select 2", "2");
}

TEST_F(Unions, ParenthesesSayWhatBelongsTogether) {
    gives("Select 1 as n Union (Select 2 Union Select 3) Order by n", "1/2/3");
    gives("Select 1 as n Union All (Select 1 Union All Select 1) Order by n", "1/1/1");
    gives("Select 1 as n Union All (Select 1 Union Select 1) Order by n", "1/1");
    gives("Select 1 as n Except (Select 1 Except Select 1)", "1");
    gives("Select 1 as n Except Select 1 Except Select 1", "");
    gives("Select 5 as n Union (Select id from fruit Where id = 1 or id = 2) Order by n Desc", "5/2/1");
}

TEST_F(Unions, TopBelongsToTheQueryThatItStandsIn) {
    gives("Select Top 1 9 as n from fruit Union All Select 8 from roots", "9/8/8/8");
    gives("Select 9 as n from roots Union All Select Top 1 8 from fruit", "9/9/9/8");
    gives("Select Top 2 9 as n from fruit Union All Select Top 1 8 from roots Order by n", "8/9/9");
    gives("Select Top 0 9 as n from fruit Union All Select Top 2 8 from roots", "8/8");
    gives(
        "Select Top (1) 9 as n from fruit Union All Select Top (1) 8 from roots Union All Select Top (1) 7 from roots",
        "9/8/7");
    gives("Select Distinct Top 1 9 as n from fruit Union All Select Distinct 8 from roots", "9/8");
}

TEST_F(Unions, TopTakesTheFirstRowsOfAnOrderedInnerQuery) {
    gives("Select n from (Select Top 1 name as n from fruit Order by name Desc) a Union All Select 'z'", "Cherry/z");
    gives("Select x.id from (Select Top 2 id from fruit Order by id Desc) x Union All Select 0 Order by id", "0/3/4");
    gives("Select Count(*) from (Select Top 1 id from fruit Union All Select Top 2 id from roots) n", "3");
}

TEST_F(Unions, TheOrderIsThatOfTheWhole) {
    gives("Select name from fruit Where id < 3 Union Select name from roots Where id <> 2 Order by name",
          "Apple/Banana/beet/Carrot");
    gives("Select name from fruit Where id < 3 Union Select name from roots Where id <> 2 Order by name Desc",
          "Carrot/beet/Banana/Apple");
    gives("Select id, 'f' as kind from fruit Union Select id, 'r' from roots Order by kind Desc, id",
          "1|r/2|r/3|r/1|f/2|f/3|f/4|f");
    gives("Select id, 'f' as kind from fruit Union Select id, 'r' from roots Order by 2, 1 Desc",
          "4|f/3|f/2|f/1|f/3|r/2|r/1|r");
    gives("Select picked from fruit Union All Select dug from roots Order by picked Desc",
          "2026-03-20 00:00:00/2026-03-14 09:05:00/2026-03-12 00:00:00/2026-03-12 00:00:00/2026-03-11 00:00:00/null/"
          "null");
}

TEST_F(Unions, TheOrderMayNameTheFirstQuerysColumnsAlone) {
    gives("Select id as k from fruit Where id = 1 Union Select weight from roots Where id = 1 Order by k", "1/7");
    gives("Select fruit.id from fruit Where id < 3 Union Select id from roots Where id < 3 Order by id Desc", "2/1");
    fails("Select id from fruit Union Select weight from roots Order by weight", 104,
          "ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT or EXCEPT "
          "operator.");
    fails("Select id from fruit Union Select id from roots Order by name", 104);
    failsOnSqlServer("Select id as k from fruit Except Select id from roots Order by id", 104);
}

TEST_F(Unions, TheFirstQueryNamesTheColumns) {
    const auto table =
        practice.engine.query("Select id as first, name from fruit Union Select weight, 'x' from roots", {});
    EXPECT_EQ(table.columns()[0].name, "first");
    EXPECT_EQ(table.columns()[1].name, "name");
    gives("Select n.a, n.b from (Select 1 as a, 2 as b Union Select 3, 4) n Order by n.a Desc", "3|4/1|2");
}

TEST_F(Unions, ATextBesideANumberBecomesOne) {
    gives("Select 7 as n Union Select '5' Order by n", "5/7");
    gives("Select '10' as n Union Select 9 Order by n", "9/10");
    gives("Select '10' as n Union All Select '9' Union All Select 8 Order by n Desc", "10/9/8");
    gives("Select Sum(n) from (Select '1' as n Union All Select 2) x", "3");
    fails("Select 1 as n Union Select 'one'", 245);
    fails("Select 'one' as n Union All Select id from fruit", 245);
    EXPECT_EQ(practice.engine.query("Select '5' as n Union Select 7", {}).columns()[0].type, db::ColumnType::Integer);
}

TEST_F(Unions, EveryColumnHasAKindOfItsOwn) {
    gives("Select '1' as a, 'x' as b, '3' as c Union All Select 4, 'y', 6 Order by a", "1|x|3/4|y|6");
    gives("Select n.c + '1' from (Select 1 as a, 'x' as b, '3' as c Union All Select 4, 'y', 6) n Order by n.a", "4/7");
    const auto table = practice.engine.query(
        "Select 'a' as a, '2' as b, 3 as c, '' as d Union Select 'b', 4, 2.5, picked from fruit Where id = 1", {});
    QList<int> types;
    for (const db::Column& column : table.columns())
        types.append(static_cast<int>(column.type));
    EXPECT_EQ(types, (QList<int>{2, 0, 1, 3}));
    fails("Select 1 as a, 'x' as b Union Select 2, 3", 245);
}

TEST_F(Unions, ATextBesideAMomentBecomesOne) {
    gives("Select picked from fruit Where id = 1 Union All Select '3/10/2026' Order by picked",
          "2026-03-10 00:00:00/2026-03-11 00:00:00");
    gives("Select '' as d Union All Select picked from fruit Where id = 1 Order by d",
          "1900-01-01 00:00:00/2026-03-11 00:00:00");
    gives("Select picked from fruit Where id = 1 Union Select '03/11/2026'", "2026-03-11 00:00:00");
    fails("Select picked from fruit Union Select 'soon'", 241);
    EXPECT_EQ(practice.engine.query("Select '' as d Union Select picked from fruit", {}).columns()[0].type,
              db::ColumnType::DateTime);
}

TEST_F(Unions, AWholeNumberBesideARealIsTheSameNumber) {
    gives("Select 2 as n Union Select price from fruit Where id = 2 Order by n", "2/2.5");
    gives("Select 4 as n Union Select price from fruit Where id = 3", "4");
    gives("Select '1.5' as n Union Select price from fruit Where id = 1", "1.5");
}

TEST_F(Unions, NullBesideAnythingIsNull) {
    gives("Select null as n Union All Select 5 Order by n", "null/5");
    gives("Select 'a' as n Union All Select null Order by n Desc", "a/null");
    gives("Select null as d Union All Select picked from fruit Where id = 1 Order by d", "null/2026-03-11 00:00:00");
}

TEST_F(Unions, QueriesOfDifferentWidthDoNotJoin) {
    const QString sentence =
        "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number of expressions in "
        "their target lists.";
    fails("Select id from fruit Union Select id, name from roots", 205, sentence);
    fails("Select id, name from fruit Union All Select id from roots", 205, sentence);
    fails("Select id from fruit Except Select * from roots", 205, sentence);
    fails("Select id from fruit Intersect Select id, id from roots", 205, sentence);
    fails("Select 1 as n Union Select 2 Union Select 3, 4", 205, sentence);
    fails("Select * from fruit Where id In (Select 1 Union Select 2, 3)", 205);
}

TEST_F(Unions, AUnionStandsWhereAQueryStands) {
    gives("Select id from fruit Where id In (Select weight from roots Union Select 1) Order by id", "1/3");
    gives("Select 'there' Where Exists (Select id from fruit Where id = 9 Union Select id from roots)", "there");
    gives("Select name from fruit Where id = (Select 2 Union Select 2)", "Banana");
    gives("Select Max(n) from (Select price as n from fruit Union Select weight from roots) x", "7");
    writes("Insert Into roots (id, name) Select 8, 'x' Union Select 9, 'y'", 2);
    gives("Select id, name from roots Where id > 7 Order by id", "8|x/9|y");
}

TEST_F(Unions, EachQueryHasItsOwnConditionsAndGroups) {
    gives("Select Count(*) as n from fruit Where id > 1 Union All Select Count(*) from roots Where id > 1 Order by n",
          "2/3");
    gives("Select name from fruit Group by name Having Count(*) > 5 Union Select Max(name) from roots", "Carrot");
    gives(
        "Select a.id from fruit a Inner Join roots b On a.id = b.weight Union Select id from roots a Where a.id = 1 "
        "Order by id",
        "1/3");
    fails("Select a.id from fruit a Union Select a.id from roots b", 4104);
}

}  // namespace
