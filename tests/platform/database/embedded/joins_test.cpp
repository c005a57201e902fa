// Which rows a join brings together, and how its columns are told apart.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Joins : public Dialect {
  protected:
    Joins()
        : Dialect(R"(
Create Table owners (id int not null primary key, name nvarchar(20) null, city nvarchar(20) null)
Create Table dogs (id int not null primary key, owner int null, name nvarchar(20) null, born datetime null)
Create Table walks (dog int not null, day datetime not null, minutes int null)
Insert Into owners Values (1, 'Ann', 'Bonn')
Insert Into owners Values (2, 'Bob', 'Cork')
Insert Into owners Values (3, 'Cid', 'bonn ')
Insert Into dogs Values (1, 1, 'Rex', '2020/01/05')
Insert Into dogs Values (2, 1, 'ann', '2021/02/06')
Insert Into dogs Values (3, 2, 'Fido', null)
Insert Into dogs Values (4, null, 'Stray', null)
Insert Into walks Values (1, '2026/03/11', 30)
Insert Into walks Values (1, '2026/03/12', 45)
Insert Into walks Values (3, '2026/03/11', null)
)") {}
};

TEST_F(Joins, AnInnerJoinBringsThePairsThatMeetTheCondition) {
    gives("Select o.name, d.name from owners o Inner Join dogs d On d.owner = o.id Order by d.id",
          "Ann|Rex/Ann|ann/Bob|Fido");
    gives("Select o.name, d.name from owners o Join dogs d On d.owner = o.id Where o.id = 2", "Bob|Fido");
    gives("Select Count(*) from owners o Inner Join dogs d On o.id = 99", "0");
    gives("Select Count(*) from owners o Inner Join dogs d On 1 = 1", "12");
}

TEST_F(Joins, ALeftJoinKeepsWhatHasNoCounterpart) {
    gives("Select o.name, d.name from owners o Left Join dogs d On d.owner = o.id Order by o.id, d.id",
          "Ann|Rex/Ann|ann/Bob|Fido/Cid|null");
    gives("Select o.name from owners o Left Outer Join dogs d On d.owner = o.id Where d.id Is Null", "Cid");
    gives("Select d.name, o.name from dogs d Left Join owners o On o.id = d.owner Where o.id Is Null", "Stray|null");
}

TEST_F(Joins, ARightJoinKeepsWhatTheOtherSideHas) {
    gives("Select o.name, d.name from owners o Right Join dogs d On d.owner = o.id Order by d.id",
          "Ann|Rex/Ann|ann/Bob|Fido/null|Stray");
    gives("Select d.name, o.name from dogs d Right Outer Join owners o On o.id = d.owner Where d.id Is Null",
          "null|Cid");
}

TEST_F(Joins, AFullJoinKeepsBothSides) {
    gives("Select o.name, d.name from owners o Full Join dogs d On d.owner = o.id Order by o.name, d.name",
          "null|Stray/Ann|ann/Ann|Rex/Bob|Fido/Cid|null");
    gives("Select Count(*) from owners o Full Outer Join dogs d On 1 = 0", "7");
}

TEST_F(Joins, ACrossJoinBringsEveryPair) {
    gives("Select Count(*) from owners Cross Join dogs", "12");
    gives("Select o.id, d.id from owners o Cross Join dogs d Where o.id = 3 and d.id > 2 Order by d.id", "3|3/3|4");
    gives("Select Count(*) from owners Cross Join dogs Cross Join walks", "36");
    gives("Select Count(*) from owners o Cross Join dogs d Inner Join walks w On w.dog = d.id", "9");
}

TEST_F(Joins, ACommaBringsEveryPairThatWhereLetsThrough) {
    gives("Select Count(*) from owners, dogs", "12");
    gives("Select o.name, d.name from owners o, dogs d Where d.owner = o.id Order by d.id", "Ann|Rex/Ann|ann/Bob|Fido");
    gives("Select owners.name, dogs.name from owners, dogs Where dogs.owner = owners.id and dogs.id = 3", "Bob|Fido");
    gives(
        "Select o.name, w.minutes from owners o, dogs d, walks w Where d.owner = o.id and w.dog = d.id Order by w.minutes",
        "Bob|null/Ann|30/Ann|45");
    gives("Select Count(*) from owners as o , dogs as d , walks as w", "36");
}

TEST_F(Joins, ACommaAndAJoinStandTogether) {
    gives(
        "Select w.minutes from owners o, dogs d Inner Join walks w On w.dog = d.id Where d.owner = o.id and o.id = 1 "
        "Order by w.minutes",
        "30/45");
    gives("Select Count(*) from owners o Inner Join dogs d On d.owner = o.id, walks w", "9");
    gives("Select Count(*) from walks w, owners o Left Join dogs d On d.owner = o.id", "12");
}

TEST_F(Joins, SeveralJoinsFollowEachOther) {
    gives(
        "Select o.name, d.name, w.minutes from owners o Left Join dogs d On d.owner = o.id Left Join walks w On "
        "w.dog = d.id Order by o.id, d.id, w.day",
        "Ann|Rex|30/Ann|Rex|45/Ann|ann|null/Bob|Fido|null/Cid|null|null");
    gives(
        "Select o.name, w.minutes from owners o Inner Join dogs d On d.owner = o.id Inner Join walks w On w.dog = "
        "d.id Where w.minutes > 30",
        "Ann|45");
    gives("Select Count(*) from owners o Left Join dogs d On d.owner = o.id Inner Join walks w On w.dog = d.id", "3");
}

TEST_F(Joins, ParenthesesSayWhichJoinComesFirst) {
    gives(
        "Select o.name, w.minutes from owners o Left Join (dogs d Inner Join walks w On w.dog = d.id) On d.owner = "
        "o.id Order by o.id, w.minutes",
        "Ann|30/Ann|45/Bob|null/Cid|null");
    gives("Select Count(*) from ((owners o Inner Join dogs d On d.owner = o.id) Inner Join walks w On w.dog = d.id)",
          "3");
    gives("Select Count(*) from (owners o Left Join dogs d On d.owner = o.id) Inner Join walks w On w.dog = d.id", "3");
}

TEST_F(Joins, AConditionOnTheRightSideBelongsIntoOn) {
    gives("Select o.name, d.name from owners o Left Join dogs d On d.owner = o.id and d.name = 'REX' Order by o.id",
          "Ann|Rex/Bob|null/Cid|null");
    gives("Select o.name, d.name from owners o Left Join dogs d On d.owner = o.id Where d.name = 'REX'", "Ann|Rex");
    gives(
        "Select o.name from owners o Left Join dogs d On d.owner = o.id and d.born Is Not Null Where d.id Is Null "
        "Order by o.name",
        "Bob/Cid");
}

TEST_F(Joins, OnTakesSeveralTerms) {
    gives("Select d.name, w.minutes from dogs d Inner Join walks w On w.dog = d.id and w.day = '03/12/2026'", "Rex|45");
    gives("Select Count(*) from dogs d Inner Join walks w On w.dog = d.id or w.minutes = 30", "6");
    gives("Select Count(*) from dogs d Inner Join walks w On (w.dog = d.id or d.id = 4) and w.minutes Is Not Null",
          "4");
    gives("Select o.name, d.name from owners o Inner Join dogs d On Not (o.id <> d.owner) Where d.id = 1", "Ann|Rex");
    gives("Select d.id from dogs d Inner Join walks w On w.dog = d.id and w.day Between '2026/03/12' and '2026/03/13'",
          "1");
    gives("Select d.id from dogs d Inner Join owners o On d.name Like o.name + '%' and o.id In (1, 2)", "2");
}

TEST_F(Joins, ATableIsJoinedWithItself) {
    gives("Select a.name, b.name from dogs a Inner Join dogs b On a.owner = b.owner and a.id < b.id", "Rex|ann");
    gives("Select a.name, b.name from owners a, owners b Where a.city = b.city and a.id > b.id", "Cid|Ann");
    gives("Select Count(*) from dogs a Left Join dogs b On b.id = a.id + 1 Where b.id Is Null", "1");
}

TEST_F(Joins, TextsAndNumbersAreComparedAcrossTables) {
    gives("Select o.id, d.id from owners o Inner Join dogs d On d.name = o.name", "1|2");
    gives("Select a.id, b.id from owners a Inner Join owners b On a.city = b.city Where a.id <> b.id Order by a.id",
          "1|3/3|1");
    gives("Select o.id from owners o Inner Join dogs d On Convert(nvarchar(5), d.owner) = o.id Where d.id = 3", "2");
}

TEST_F(Joins, AQueryIsJoinedLikeATable) {
    gives(
        "Select d.name, w.n from dogs d Inner Join (Select dog, Count(*) as n from walks Group by dog) w On w.dog = "
        "d.id Order by d.id",
        "Rex|2/Fido|1");
    gives(
        "Select d.name, IsNull(w.total, 0) from dogs d Left Join (Select dog, Sum(minutes) as total from walks Group "
        "by dog) w On w.dog = d.id Order by d.id",
        "Rex|75/ann|0/Fido|0/Stray|0");
    gives("Select a.n, b.n from (Select Count(*) as n from dogs) a, (Select Count(*) as n from owners) b", "4|3");
}

TEST_F(Joins, AStarBringsTheColumnsOfAllTablesInTheirOrder) {
    gives("Select * from owners o Inner Join walks w On w.dog = o.id Where w.minutes = 45",
          "1|Ann|Bonn|1|2026-03-12 00:00:00|45");
    gives("Select w.*, o.id from owners o Inner Join walks w On w.dog = o.id Where w.minutes = 45",
          "1|2026-03-12 00:00:00|45|1");
    gives("Select o.*, o.* from owners o Where o.id = 2", "2|Bob|Cork|2|Bob|Cork");
    gives("Select *, 5 from owners Where id = 2", "2|Bob|Cork|5");
    gives("Select 5, * from owners Where id = 2", "5|2|Bob|Cork");
    gives("Select OWNERS.* from owners, dogs Where dogs.id = 4 and owners.id = 3", "3|Cid|bonn ");
}

TEST_F(Joins, ColumnsOfOneNameKeepTheirTables) {
    const auto table = practice.engine.query("Select o.name, d.name, d.* from owners o, dogs d Where 1 = 0", {});
    QStringList told;
    for (const db::Column& column : table.columns())
        told.append(column.table + u'.' + column.name);
    EXPECT_EQ(told, (QStringList{"owners.name", "dogs.name", "dogs.id", "dogs.owner", "dogs.name", "dogs.born"}));
}

TEST_F(Joins, ANameThatTwoTablesHaveMustTellItsTable) {
    fails("Select name from owners, dogs", 209, "Ambiguous column name 'name'.");
    fails("Select o.id from owners o Inner Join dogs d On id = 1", 209, "Ambiguous column name 'id'.");
    fails("Select o.id from owners o Inner Join dogs d On d.owner = o.id Where NAME = 'Ann'", 209);
    fails("Select o.id from owners o Inner Join dogs d On d.owner = o.id Group by id", 209);
    gives("Select city, owner, born from owners, dogs Where owners.id = 2 and dogs.id = 3", "Cork|2|null");
}

TEST_F(Joins, AnAliasTakesThePlaceOfTheTablesName) {
    gives("Select O.Name from owners As o Where o.ID = 2", "Bob");
    gives("Select [the owner].name from owners [the owner] Where [the owner].id = 2", "Bob");
    gives("Select \"o\".name from owners \"o\" Where o.id = 2", "Bob");
    fails("Select owners.name from owners o", 4104, "The multi-part identifier \"owners.name\" could not be bound.");
    fails("Select d.name from owners o", 4104, "The multi-part identifier \"d.name\" could not be bound.");
    fails("Select d.* from owners o", 107,
          "The column prefix 'd' does not match with a table name or alias name used in the query.");
}

TEST_F(Joins, AJoinKnowsOnlyTheTablesBeforeIt) {
    fails("Select o.id from owners o Inner Join dogs d On w.dog = d.id Inner Join walks w On w.dog = d.id", 4104);
    fails("Select o.id from owners o Inner Join dogs d", 102);
    fails("Select o.id from owners o Inner dogs d On d.owner = o.id", 102);
    fails("Select o.id from owners o Left Join dogs d On d.owner", 4145);
    fails("Select o.id from owners o Cross Join dogs d On d.owner = o.id", 102);
    fails("Select o.id from owners o Inner Join On 1 = 1", 102);
    fails("Select o.id from owners o, Where 1 = 1", 102);
}

TEST_F(Joins, AHintToTheServerChangesNothing) {
    gives(
        "Select o.name, d.name from owners o With (nolock) Inner Join dogs d With (nolock) On d.owner = o.id Where "
        "d.id = 3",
        "Bob|Fido");
    gives("Select name from owners With (nolock) Where id = 1", "Ann");
    gives("Select name from owners With (rowlock, holdlock) Where id = 1", "Ann");
}

TEST_F(Joins, AnOwnerBeforeATableIsPassedOver) {
    gives("Select dbo.owners.name from dbo.owners Where dbo.owners.id = 1", "Ann");
    gives("Select o.name from [dbo].[owners] o Inner Join dbo.dogs On dogs.owner = o.id Where dogs.id = 3", "Bob");
}

}  // namespace
