// Order by and Top.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Ordering : public Dialect {
  protected:
    Ordering()
        : Dialect(R"(
Create Table guests (id int not null primary key, name nvarchar(20) null, seat int null, came datetime null)
Insert Into guests Values (1, 'bob', 3, '2026/03/12')
Insert Into guests Values (2, 'Ann', 1, '2026/03/11 9:05')
Insert Into guests Values (3, 'ann', 2, '2026/03/11')
Insert Into guests Values (4, null, 3, null)
Insert Into guests Values (5, 'Zoë', null, '2025/12/31')
Insert Into guests Values (6, 'Zoe', 10, '2026/11/01')
)") {}

    void orders(const QString& terms, const QString& keys) { gives("Select id from guests Order by " + terms, keys); }
};

TEST_F(Ordering, NumbersAndMomentsFollowTheirSize) {
    orders("id", "1/2/3/4/5/6");
    orders("id Desc", "6/5/4/3/2/1");
    orders("id Asc", "1/2/3/4/5/6");
    orders("seat, id", "5/2/3/1/4/6");
    orders("seat Desc, id Desc", "6/4/1/3/2/5");
    orders("came, id", "4/5/3/2/1/6");
    orders("came Desc, id", "6/1/2/3/5/4");
}

TEST_F(Ordering, TextsFollowTheAlphabetWithoutTheirCase) {
    orders("name, id", "4/2/3/1/6/5");
    orders("name Desc, id", "5/6/1/2/3/4");
    orders("Upper(name), id", "4/2/3/1/6/5");
    orders("name + '', id", "4/2/3/1/6/5");
    orders("Left(name, 1), id Desc", "4/3/2/1/6/5");
}

TEST_F(Ordering, NullStandsFirst) {
    orders("name, id Desc", "4/3/2/1/6/5");
    orders("seat, id Desc", "5/2/3/4/1/6");
    gives("Select Top 1 id from guests Order by came", "4");
    gives("Select Top 1 id from guests Order by name", "4");
}

TEST_F(Ordering, ATermMayBeAnExpression) {
    orders("-id", "6/5/4/3/2/1");
    orders("id % 3, id", "3/6/1/4/2/5");
    orders("IsNull(seat, 99), id", "2/3/1/4/6/5");
    orders("Case When seat Is Null Then 0 Else 1 End, seat Desc, id", "5/6/1/4/3/2");
    orders("Len(name) Desc, id", "1/2/3/5/6/4");
    orders("Month(came), Day(came), id", "4/2/3/1/6/5");
    orders("seat * -1, id", "5/6/1/4/3/2");
}

TEST_F(Ordering, ATermMayBeThePlaceOfAColumn) {
    gives("Select seat, id from guests Order by 2 Desc", "10|6/null|5/3|4/2|3/1|2/3|1");
    gives("Select seat, id from guests Where seat > 1 Order by 1, 2 Desc", "2|3/3|4/3|1/10|6");
    fails("Select id from guests Order by 2", 108,
          "The ORDER BY position number 2 is out of range of the number of items in the select list.");
    fails("Select id, name from guests Order by 1, 3", 108);
    fails("Select id from guests Order by 0", 108);
    fails("Select id from guests Union Select seat from guests Order by 2", 108);
}

TEST_F(Ordering, ATermMayBeTheNameThatTheStatementGives) {
    gives("Select id * -1 as backwards from guests Order by backwards", "-6/-5/-4/-3/-2/-1");
    gives("Select seat as id from guests Where seat > 1 Order by id", "2/3/3/10");
    gives("Select 'key' = id from guests Order by [key] Desc", "6/5/4/3/2/1");
    gives("Select id as [my key] from guests Order by [my key] Desc", "6/5/4/3/2/1");
    gives("Select Upper(name) as n from guests Where id < 4 Order by N, id", "ANN/ANN/BOB");
    gives("Select name as n from guests Where id < 3 Order by guests.name Desc", "bob/Ann");
    fails("Select id as k from guests Order by nothing", 207, "Invalid column name 'nothing'.");
    fails("Select id as k from guests Order by k + 1", 207, "Invalid column name 'k'.");
}

TEST_F(Ordering, TheOrderMayBeThatOfAColumnThatIsNotShown) {
    gives("Select name from guests Where id In (1, 2) Order by seat", "Ann/bob");
    gives("Select g.name from guests g Where g.id In (1, 2) Order by g.came", "Ann/bob");
    gives("Select Count(*) from (Select Top 3 name from guests Order by seat Desc) x", "3");
}

TEST_F(Ordering, TopTakesTheFirstRows) {
    gives("Select Top 2 id from guests Order by id", "1/2");
    gives("Select Top 2 id from guests Order by id Desc", "6/5");
    gives("Select Top (2) id from guests Order by name Desc, id", "5/6");
    gives("Select Top 0 id from guests Order by id", "");
    gives("Select Top 99 id from guests Order by id", "1/2/3/4/5/6");
    gives("Select Top 1 id, name from guests Where name = 'ANN' Order by id Desc", "3|ann");
    gives("Select Top 3 * from guests Where id > 5 Order by id", "6|Zoe|10|2026-11-01 00:00:00");
    gives("Select Distinct Top 2 seat from guests Where seat Is Not Null Order by seat Desc", "10/3");
    gives("Select Top 1 seat, Count(*) from guests Group by seat Order by Count(*) Desc", "3|2");
}

TEST_F(Ordering, TopTakesANumber) {
    fails("Select Top id from guests", 102);
    fails("Select Top (id) id from guests", 102);
    fails("Select Top (2 id from guests", 102);
    fails("Select Top 'a' id from guests", 102);
    fails("Select Top -1 id from guests", 102);
}

TEST_F(Ordering, AnOrderMustBeWhole) {
    fails("Select id from guests Order", 102);
    fails("Select id from guests Order id", 102);
    fails("Select id from guests Order by", 102);
    fails("Select id from guests Order by id,", 102);
    fails("Select id from guests Order by id Asc Desc", 102);
    fails("Select id from guests Order by id = 1", 102);
    fails("Select id from guests Order by id Where id = 1", 102);
    fails("Select id from guests Group id", 102);
    fails("Select id from guests Group by", 102);
    fails("Select id from guests Having", 102);
}

TEST_F(Ordering, NoMoreRowsAreReadThanAsked) {
    EXPECT_EQ(practice.engine.query("Select id from guests Order by id", {}, 2).rowCount(), 2);
    EXPECT_EQ(practice.engine.query("Select id from guests Order by id", {}, 99).rowCount(), 6);
    EXPECT_EQ(practice.engine.query("Select id from guests Order by id", {}, 0).rowCount(), 6);
    EXPECT_EQ(practice.engine.query("Select id from guests Order by id Desc", {}, 1).at(0, 0).integer(), 6);
}

}  // namespace
