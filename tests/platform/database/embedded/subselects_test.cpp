// Queries within queries: in From, In, Exists and as a value.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Subselects : public Dialect {
  protected:
    Subselects()
        : Dialect(R"(
Create Table teams (id int not null primary key, name nvarchar(20) not null, lead int null)
Create Table players (id int not null primary key, team int null, name nvarchar(20) null, born datetime null, score int null)
Insert Into teams Values (1, 'Reds', 11)
Insert Into teams Values (2, 'Blues', 13)
Insert Into teams Values (3, 'Empty', null)
Insert Into players Values (11, 1, 'Ann', '1990/05/01', 10)
Insert Into players Values (12, 1, 'bob', '1991/06/02', 20)
Insert Into players Values (13, 2, 'Cid', '1992/07/03', 30)
Insert Into players Values (14, null, 'Dot', null, null)
)") {}
};

TEST_F(Subselects, AQueryInFromIsATable) {
    gives("Select t.n from (Select name as n from teams Where id < 3) t Order by t.n", "Blues/Reds");
    gives("Select * from (Select id, name from teams) as t Where t.id = 2", "2|Blues");
    gives("Select x.a + x.b from (Select 1 as a, 2 as b) x", "3");
    gives("Select T.N from (Select Count(*) as n from players) t", "4");
    gives("Select n from (Select Top 1 name as n from players Order by score Desc) x", "Cid");
    gives("Select x.* from (Select id, score from players Where team = 1) x Order by id", "11|10/12|20");
}

TEST_F(Subselects, QueriesInFromNest) {
    gives("Select c.n from (Select b.n from (Select a.id as n from teams a) b Where b.n > 1) c Where c.n < 3", "2");
    gives(
        "Select Max(y.s) from (Select Sum(x.score) as s from (Select * from players Where score > 5) x Group by "
        "x.team) y",
        "30");
    gives("Select [in ner].[a b] from (Select id as [a b] from teams Where id = 1) [in ner]", "1");
}

TEST_F(Subselects, AQueryInFromKeepsTheTypesOfItsColumns) {
    gives("Select Count(*) from (Select born from players) x Where x.born >= '05/01/1990' and x.born < '6/2/1991'",
          "1");
    gives("Select x.n + x.n from (Select name as n from teams Where id = 1) x", "RedsReds");
    gives("Select x.n + '1' from (Select id as n from teams Where id = 1) x", "2");
    gives("Select Count(*) from (Select name as n from players) x Where x.n = 'BOB'", "1");
    gives("Select Count(*) from (Select name + '' as n from players) x Where x.n = 'BOB '", "1");
    gives("Select x.d + 1 from (Select born as d from players Where id = 11) x", "1990-05-02 00:00:00");
    const auto columns =
        practice.engine.query("Select x.* from (Select id, name, born, 1.5 as half from players) x", {}).columns();
    QList<int> types;
    for (const db::Column& column : columns)
        types.append(static_cast<int>(column.type));
    EXPECT_EQ(types, (QList<int>{0, 2, 3, 1}));
}

TEST_F(Subselects, AQueryInFromNeedsAName) {
    failsOnSqlServer("Select * from (Select id from teams)", 102);
    failsOnSqlServer("Select * from (Select id from teams) Where id = 1", 102);
    fails("Select * from (Select id from teams x", 102);
    fails("Select * from () x", 102);
}

TEST_F(Subselects, AQueryInFromDoesNotSeeItsNeighbours) {
    fails("Select * from teams t, (Select * from players p Where p.team = t.id) x", 4104);
    fails("Select name from teams Where y.id = 1 and Exists (Select * from players y)", 4104);
}

TEST_F(Subselects, InFindsWhatAQueryGives) {
    gives("Select name from teams Where id In (Select team from players) Order by id", "Reds/Blues");
    gives("Select name from players Where id In (Select lead from teams Where lead Is Not Null) Order by id",
          "Ann/Cid");
    gives("Select Count(*) from players Where name In (Select 'BOB' Union Select 'ann ')", "2");
    gives("Select id from players Where born In (Select Convert(datetime, '5/1/1990'))", "11");
    gives("Select Count(*) from players Where team In (Select id from teams Where 1 = 0)", "0");
    gives("Select Count(*) from players Where score / 10 In (Select id from teams)", "3");
    gives("Select id from players Where Upper(name) In (Select Lower(name) from players Where id = 12)", "12");
}

TEST_F(Subselects, NotInGivesNothingWhereTheQueryGivesNull) {
    gives("Select Count(*) from teams Where id Not In (Select team from players)", "0");
    gives("Select name from teams Where id Not In (Select team from players Where team Is Not Null)", "Empty");
    gives("Select Count(*) from teams Where id Not In (Select team from players Where 1 = 0)", "3");
    gives("Select Count(*) from players Where team Not In (Select id from teams Where id = 1)", "1");
}

TEST_F(Subselects, ExistsAsksForAnyRow) {
    gives("Select name from teams t Where Exists (Select * from players p Where p.team = t.id) Order by id",
          "Reds/Blues");
    gives("Select name from teams t Where Not Exists (Select * from players Where team = t.id)", "Empty");
    gives("Select Count(*) from teams Where Exists (Select null)", "3");
    gives("Select Count(*) from teams Where Exists (Select 1 from players Where 1 = 0)", "0");
    gives("Select Count(*) from teams t Where Exists (Select id from players Where team = t.id and score > 15)", "2");
    gives("Select Case When Exists (Select 1 from players Where score > 25) Then 'high' Else 'low' End", "high");
    gives(
        "Select Count(*) from teams Where Exists (Select 1 from players) and Not Exists (Select 1 from players Where "
        "id = 99)",
        "3");
}

TEST_F(Subselects, AQueryOfOneValueIsAValue) {
    gives("Select (Select Max(score) from players)", "30");
    gives("Select (Select Max(score) from players) - (Select Min(score) from players)", "20");
    gives("Select name from players Where score = (Select Max(score) from players)", "Cid");
    gives("Select name from players Where score > (Select Avg(score) from players)", "Cid");
    gives("Select name, (Select name from teams Where id = team) from players Order by id",
          "Ann|Reds/bob|Reds/Cid|Blues/Dot|null");
    gives("Select Count(*) from players Where (Select Count(*) from teams) = 3", "4");
    gives("Select (Select Top 1 name from players Order by score Desc) + '!'", "Cid!");
    gives("Select IsNull((Select name from teams Where id = 99), 'none')", "none");
    gives("Select name from teams Where (Select name from players Where id = lead) = 'ANN'", "Reds");
}

TEST_F(Subselects, AQueryOfNoRowIsNull) {
    gives("Select (Select name from teams Where id = 99)", "null");
    gives("Select Count(*) from players Where score = (Select score from players Where 1 = 0)", "0");
    gives("Select Count(*) from players Where (Select score from players Where id = 99) Is Null", "4");
}

TEST_F(Subselects, AQueryOfSeveralRowsIsNoValue) {
    const QString sentence =
        "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, <, <= , >, >= or when the subquery is used as an expression.";
    fails("Select (Select name from teams)", 512, sentence);
    fails("Select name from players Where team = (Select id from teams)", 512, sentence);
    fails("Select name from players Where team = (Select Top 2 id from teams)", 512, sentence);
    fails("Select name from teams Where id < (Select score from players Where score Is Not Null)", 512, sentence);
    fails("Select (Select team from players Group by team)", 512, sentence);
    fails("Select (Select 1 Union Select 2)", 512, sentence);
    fails("Update teams Set name = (Select name from players)", 512, sentence);
    fails("Select name, (Select name from players Where team = teams.id) from teams", 512, sentence);
    gives("Select name, (Select name from players Where team = teams.id and id > 11) from teams Order by id",
          "Reds|bob/Blues|Cid/Empty|null");
    gives("Select (Select Distinct 5 from teams), (Select 5 Union Select 5)", "5|5");
    gives("Select (Select Top 1 id from teams Order by id Desc)", "3");
    gives("Select (Select name from teams Where id = 1) + (Select name from teams Where id = 2)", "RedsBlues");
    gives("Select name from teams Where name = (Select Upper(name) from teams Where id = 1)", "Reds");
}

TEST_F(Subselects, AQueryOfSeveralColumnsIsNoValue) {
    const QString sentence =
        "Only one expression can be specified in the select list when the subquery is not introduced with EXISTS.";
    fails("Select (Select id, name from teams Where id = 1)", 116, sentence);
    fails("Select name from teams Where id = (Select * from teams Where id = 1)", 116, sentence);
    fails("Select name from teams Where id In (Select id, name from teams)", 116, sentence);
    gives("Select Count(*) from teams Where Exists (Select id, name from teams)", "3");
    gives("Select Count(*) from teams Where Exists (Select * from teams)", "3");
}

TEST_F(Subselects, AValueHasTheTypeOfItsQuery) {
    gives("Select Count(*) from players Where born < (Select Max(born) from players)", "2");
    gives("Select Count(*) from players Where born = (Select Convert(datetime, '5/1/1990'))", "1");
    gives("Select (Select Min(born) from players) + 1", "1990-05-02 00:00:00");
    gives("Select Count(*) from players Where (Select Min(born) from players) = '05/01/1990'", "4");
    gives("Select 1 + (Select '5')", "6");
}

TEST_F(Subselects, AnInnerQuerySeesTheTablesAround) {
    gives("Select name from teams t Where 15 < (Select Avg(score) from players p Where p.team = t.id)", "Blues");
    gives("Select name, (Select Count(*) from players Where team = teams.id) from teams Order by id",
          "Reds|2/Blues|1/Empty|0");
    gives(
        "Select name from teams t Where Exists (Select 1 from players p Where p.team = t.id and Exists (Select 1 from "
        "teams u Where u.lead = p.id and u.id = t.id)) Order by id",
        "Reds/Blues");
    gives("Select name from teams Where id In (Select team from players Where name Like 'a%' and teams.lead = id)",
          "Reds");
}

TEST_F(Subselects, TheNearestTableOfANameCounts) {
    gives("Select Count(*) from teams Where Exists (Select 1 from players Where name = 'Ann' and id = 11)", "3");
    gives("Select name from teams t Where Exists (Select 1 from players t Where t.id = 1)", "");
    gives("Select Count(*) from players Where id = (Select Max(id) from players)", "1");
}

TEST_F(Subselects, ANameThatIsNowhereIsRefusedAtAnyDepth) {
    fails("Select (Select nothing from teams)", 207, "Invalid column name 'nothing'.");
    fails("Select name from teams Where Exists (Select 1 from players Where nothing = 1)", 207);
    fails("Select name from teams Where id In (Select x.id from players)", 4104);
    fails("Select name from teams Where id In (Select id from nowhere)", 208, "Invalid object name 'nowhere'.");
    fails("Select x.score from (Select name from players) x", 207, "Invalid column name 'score'.");
}

TEST_F(Subselects, ParenthesesMayStandAroundAnything) {
    gives("Select ((1))", "1");
    gives("Select (((1 + 2)) * (3))", "9");
    gives("Select Count(*) from teams Where ((id = 1) or ((id = 2)))", "2");
    gives("Select Count(*) from teams Where (id) In ((1), (2))", "2");
    gives("Select Count(*) from teams Where (((id = 1)) and (Not (name = 'Blues')))", "1");
    gives("Select ((Select Count(*) from teams))", "3");
    fails("Select ((1)", 102);
    fails("Select (1))", 102);
    fails("Select ()", 102);
}

TEST_F(Subselects, CallsNestInCalls) {
    gives("Select Upper(Left(LTrim(RTrim('  abc  ')), 2))", "AB");
    gives("Select Len(Replace(Substring('a-b-c-d', 1, 5), '-', ''))", "3");
    gives("Select IsNull(NullIf(Coalesce(null, ''), ''), 'empty')", "empty");
    gives("Select Year(DateAdd(day, Day('2026/03/11'), Convert(datetime, '2025/12/25')))", "2026");
    gives("Select Max(Len(name)) from teams", "5");
    gives("Select Case When Len(Upper(name)) > 4 Then Left(name, 1) Else Right(name, 1) End from teams Order by id",
          "s/B/E");
}

}  // namespace
