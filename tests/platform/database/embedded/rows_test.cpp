// Insert, Update and Delete: which rows they write, what is kept of the values and what is refused.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class RowsWritten : public Dialect {
  protected:
    RowsWritten()
        : Dialect(R"(
Create Table stock (id int not null primary key, name nvarchar(10) not null default 'new', pieces int null, price money null, since datetime null, sold bit null)
Create Table arrivals (item nvarchar(30) null, amount nvarchar(10) null, day nvarchar(30) null)
Insert Into stock Values (1, 'Tea', 5, 1.5, '2026/03/11', 0)
Insert Into stock Values (2, 'Nuts', 7, 2.25, '2026/03/12', 1)
Insert Into arrivals Values ('Salt', '12', '03/13/2026')
Insert Into arrivals Values ('Sugar', ' 3 ', 'Mar 14 2026 9:05AM')
)") {}
};

TEST_F(RowsWritten, SeveralRowsAreInsertedAtOnce) {
    writes("Insert Into stock (id, name) Values (3, 'a'), (4, 'b'), (5, 'c')", 3);
    gives("Select id, name, pieces from stock Where id > 2 Order by id", "3|a|null/4|b|null/5|c|null");
    writes("Insert stock (id) Values (6)", 1);
    gives("Select name from stock Where id = 6", "new");
    writes("Insert Into dbo.stock (ID, NAME) Values (3 + 4, Upper('x') + 'y')", 1);
    gives("Select name from stock Where id = 7", "Xy");
}

TEST_F(RowsWritten, WithoutAListEveryColumnGetsItsValue) {
    writes("Insert Into stock Values (3, 'Oil', 1, 9.99, '3/15/2026', 1)", 1);
    gives("Select * from stock Where id = 3", "3|Oil|1|9.99|2026-03-15 00:00:00|1");
    writes("Insert Into stock Values (4, 'x', null, null, null, null)", 1);
    gives("Select Count(*) from stock Where pieces Is Null and since Is Null", "1");
}

TEST_F(RowsWritten, TheColumnsMayStandInAnyOrder) {
    writes("Insert Into stock (sold, name, id) Values (1, 'Rye', 8)", 1);
    gives("Select id, name, sold from stock Where id = 8", "8|Rye|1");
}

TEST_F(RowsWritten, ValuesAreConvertedToTheirColumns) {
    writes(
        "Insert Into stock (id, name, pieces, price, since, sold) Values ('9', 12, '7', '3.5', '2026-03-11 14:05', 'true')",
        1);
    gives("Select id, name, pieces, price, since, sold from stock Where id = 9", "9|12|7|3.5|2026-03-11 14:05:00|1");
    writes("Update stock Set pieces = 2.9, price = 1.23456, sold = 5 Where id = 9", 1);
    gives("Select pieces, price, sold from stock Where id = 9", "2|1.2346|1");
    writes("Update stock Set name = pieces, price = pieces, since = 1 Where id = 9", 1);
    gives("Select name, price, since from stock Where id = 9", "2|2|1900-01-02 00:00:00");
}

TEST_F(RowsWritten, AQuerysRowsAreInsertedAndConverted) {
    writes("Insert Into stock (id, name, pieces, since) Select 10 + Len(item), item, amount, day from arrivals", 2);
    gives("Select id, name, pieces, since from stock Where id > 10 Order by id",
          "14|Salt|12|2026-03-13 00:00:00/15|Sugar|3|2026-03-14 09:05:00");
    writes("Insert Into stock (id, name) Select id + 20, name from stock Where id < 3", 2);
    gives("Select id, name from stock Where id > 20 Order by id", "21|Tea/22|Nuts");
    writes("Insert Into arrivals Select name, pieces, null from stock Where id = 1", 1);
    gives("Select amount from arrivals Where item = 'tea'", "5");
    writes("Insert Into arrivals (item) Select name from stock Where 1 = 0", 0);
    writes("Insert Into arrivals (item, amount) Select Top 1 name, Count(*) from stock Group by name Order by name", 1);
    gives("Select amount from arrivals Where item = 'Nuts'", "2");
    writes("Insert Into arrivals (item) Select Distinct Left(name, 1) from stock Where id < 3", 2);
}

TEST_F(RowsWritten, TheNumbersOfColumnsAndValuesMustAgree) {
    fails("Insert Into stock (id, name) Values (3)", 109);
    fails("Insert Into stock (id) Values (3, 'x')", 110);
    fails("Insert Into stock Values (3)", 213,
          "Column name or number of supplied values does not match table definition.");
    fails("Insert Into stock Values (3, 'x', 1, 1, null, 0, 9)", 213);
    fails("Insert Into stock (id, name) Select 3", 120);
    fails("Insert Into stock (id) Select 3, 'x'", 121);
    fails("Insert Into stock Select 3, 'x'", 213);
    gives("Select Count(*) from stock", "2");
}

TEST_F(RowsWritten, AnInsertMustBeWhole) {
    fails("Insert Into stock", 102);
    fails("Insert Into stock (id)", 102);
    fails("Insert Into stock (id) Values", 102);
    fails("Insert Into stock (id) Values ()", 102);
    fails("Insert Into stock (id) Values (1", 102);
    fails("Insert Into stock (id) Values (11),", 102);
    fails("Insert Into stock (id Values (11)", 102);
    fails("Insert Into stock () Values (11)", 102);
    fails("Insert Into (id) Values (11)", 102);
    fails("Insert Into nothing (id) Values (11)", 208, "Invalid object name 'nothing'.");
    fails("Insert Into stock (nothing) Values (11)", 207, "Invalid column name 'nothing'.");
    fails("Insert Into stock (id, id) Values (11, 12)", 264);
    fails("Insert Into stock (id, name) Values (11, nothing)", 207);
    fails("Insert Into stock (id) Values (1 = 1)", 102);
}

TEST_F(RowsWritten, UpdateChangesTheRowsThatMeetTheCondition) {
    writes("Update stock Set pieces = 1 Where id = 1", 1);
    writes("Update stock Set pieces = pieces + 10", 2);
    gives("Select pieces from stock Order by id", "11/17");
    writes("Update stock Set pieces = 0 Where id = 99", 0);
    writes("Update dbo.stock Set name = 'x', pieces = null, sold = 1 Where name = 'TEA '", 1);
    gives("Select name, pieces, sold from stock Where id = 1", "x|null|1");
    writes("Update stock Set stock.name = 'y' Where stock.id = 1", 1);
    gives("Select name from stock Where id = 1", "y");
}

TEST_F(RowsWritten, UpdateReadsTheRowAsItWas) {
    writes("Update stock Set id = pieces + 10, pieces = id Where id = 1", 1);
    gives("Select id, pieces from stock Where name = 'Tea'", "15|1");
    writes("Update stock Set pieces = pieces * 2, price = pieces Where id = 2", 1);
    gives("Select pieces, price from stock Where id = 2", "14|7");
}

TEST_F(RowsWritten, UpdateTakesValuesFromQueries) {
    writes("Update stock Set pieces = (Select Max(pieces) from stock) Where id = 1", 1);
    gives("Select pieces from stock Where id = 1", "7");
    writes(
        "Update stock Set name = (Select Top 1 item from arrivals Order by item), pieces = (Select amount from arrivals "
        "Where item = 'Sugar') Where id = 1",
        1);
    gives("Select name, pieces from stock Where id = 1", "Salt|3");
    writes(
        "Update stock Set sold = Case When Exists (Select 1 from arrivals Where item = stock.name) Then 1 Else 0 End",
        2);
    gives("Select sold from stock Order by id", "1/0");
    writes("Update stock Set pieces = null Where id In (Select Max(id) from stock)", 1);
    gives("Select pieces from stock Where id = 2", "null");
}

TEST_F(RowsWritten, AnUpdateMustBeWhole) {
    fails("Update stock", 102);
    fails("Update stock Set", 102);
    fails("Update stock Set pieces", 102);
    fails("Update stock Set pieces =", 102);
    fails("Update stock Set pieces = 1,", 102);
    fails("Update stock Set pieces = 1 Where", 102);
    fails("Update stock pieces = 1", 102);
    fails("Update Set pieces = 1", 102);
    fails("Update stock Set pieces = 1 Where pieces", 4145);
    fails("Update stock Set nothing = 1", 207);
    fails("Update stock Set pieces = nothing", 207);
    fails("Update stock Set pieces = 1, pieces = 2", 264);
    fails("Update nothing Set pieces = 1", 208);
    gives("Select pieces from stock Order by id", "5/7");
}

TEST_F(RowsWritten, DeleteTakesTheRowsThatMeetTheCondition) {
    writes("Delete from stock Where id = 99", 0);
    writes("Delete from stock Where name = 'TEA'", 1);
    gives("Select id from stock", "2");
    writes("Delete stock Where stock.id = 2", 1);
    writes("Delete from dbo.arrivals", 2);
    writes("Delete arrivals", 0);
    gives("Select Count(*) from stock", "0");
}

TEST_F(RowsWritten, DeleteAsksOtherTables) {
    writes("Delete from arrivals Where item In (Select name from stock)", 0);
    writes("Delete from stock Where Not Exists (Select 1 from arrivals Where item = name)", 2);
    writes("Delete from arrivals Where Len(item) = (Select Max(Len(item)) from arrivals)", 1);
    gives("Select item from arrivals", "Salt");
}

TEST_F(RowsWritten, ADeleteMustBeWhole) {
    fails("Delete", 102);
    fails("Delete from", 102);
    fails("Delete from stock Where", 102);
    fails("Delete from stock Where id", 4145);
    fails("Delete from stock id = 1", 102);
    fails("Delete from nothing", 208);
    fails("Delete from stock Where nothing = 1", 207);
    fails("Delete * from stock", 102);
    gives("Select Count(*) from stock", "2");
}

TEST_F(RowsWritten, WhatDoesNotFitIsRefusedAndLeavesTheRowsAsTheyWere) {
    fails("Insert Into stock (id, name) Values (3, 'far too long a name')", 2628,
          "String or binary data would be truncated in table 'stock', column 'name'. Truncated value: 'far too lo'.");
    fails("Update stock Set name = name + ' and more' Where id = 2", 2628);
    fails("Insert Into stock (id, name) Values (3, null)", 515,
          "Cannot insert the value NULL into column 'name', table 'stock'; column does not allow nulls. INSERT fails.");
    fails("Update stock Set name = null", 515,
          "Cannot insert the value NULL into column 'name', table 'stock'; column does not allow nulls. UPDATE fails.");
    fails("Insert Into stock (name) Values ('x')", 515);
    fails("Insert Into stock (id) Values (1)", 2627);
    fails("Insert Into stock (id) Values (3), (4), (3)", 2627);
    fails("Insert Into stock (id, pieces) Values (3, 'many')", 245);
    fails("Insert Into stock (id, pieces) Values (3, 3000000000)", 8115);
    fails("Insert Into stock (id, since) Values (3, 'soon')", 241);
    fails("Update stock Set pieces = 1 / (id - 1)", 8134);
    fails("Update stock Set id = 1", 2627);
    fails("Insert Into stock (id, pieces) Select 3, item from arrivals", 245);
    gives("Select id, name, pieces from stock Order by id", "1|Tea|5/2|Nuts|7");
}

TEST_F(RowsWritten, BoundValuesAreWrittenAsTheyCome) {
    const std::vector<db::Value> row = {11, "O'Neil", 3, 1.25, QDate(2026, 3, 11), true};
    EXPECT_EQ(practice.engine.execute("Insert Into stock Values (?, ?, ?, ?, ?, ?)", row), 1);
    EXPECT_EQ(practice.one("Select * from stock Where id = 11"), "11|O'Neil|3|1.25|2026-03-11 00:00:00|1");
    EXPECT_EQ(practice.engine.execute("Update stock Set name = ?, pieces = ? Where id = ?", {"é", db::Value(), 11}), 1);
    EXPECT_EQ(practice.one("Select name, pieces from stock Where id = 11"), "é|null");
    EXPECT_EQ(practice.engine.execute("Delete from stock Where name = ? and id = ?", {"É", 11}), 1);
    EXPECT_EQ(practice.failureNumber("Update stock Set name = ?", {"far too long a name"}), 2628);
    EXPECT_EQ(practice.failureNumber("Update stock Set pieces = ?", {"many"}), 245);
    EXPECT_EQ(practice.failureNumber("Update stock Set pieces = ?", {1, 2}), 8178);
    EXPECT_EQ(practice.failure("Update stock Set pieces = ?"),
              "8178 The parameterized query expects 1 parameters, of which 0 were supplied.");
}

}  // namespace
