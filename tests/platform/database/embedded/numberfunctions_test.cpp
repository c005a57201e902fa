// The functions on numbers.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class NumberFunctions : public Dialect {
  protected:
    NumberFunctions()
        : Dialect(R"(
Create Table numbers (id int not null primary key, n int null, r float null, m money null, t nvarchar(10) null)
Insert Into numbers Values (1, -7, 2.567, 12.345, '-3.5')
Insert Into numbers Values (2, null, null, null, null)
)") {}
};

TEST_F(NumberFunctions, AbsAndSignTellSizeAndDirection) {
    gives("Select Abs(-5), Abs(5), Abs(0), Abs(-2.5)", "5|5|0|2.5");
    gives("Select Sign(-5), Sign(5), Sign(0), Sign(-2.5)", "-1|1|0|-1");
    gives("Select Abs(n), Sign(n), Abs(r), Abs(-m) from numbers Where id = 1", "7|-1|2.567|12.345");
    gives("Select Abs(n), Sign(n) from numbers Where id = 2", "null|null");
    gives("Select Abs(t), Sign(t) from numbers Where id = 1", "3.5|-1");
    gives("Select Abs('-2')", "2");
    fails("Select Abs('x')", 8114);
}

TEST_F(NumberFunctions, RoundRoundsHalvesAwayFromZero) {
    gives("Select Round(2.5, 0), Round(-2.5, 0), Round(2.4, 0), Round(2.345, 2), Round(-2.345, 2)",
          "3|-3|2|2.35|-2.35");
    gives("Select Round(1.005, 2), Round(0.285, 2), Round(1234.5678, 3)", "1.01|0.29|1234.568");
    gives("Select Round(748.58, -1), Round(748.58, -2), Round(748.58, -4)", "750|700|0");
    gives("Select Round(r, 1), Round(m, 1) from numbers Where id = 1", "2.6|12.3");
    gives("Select Round(t, 0) from numbers Where id = 1", "-4");
    gives("Select Round(n, 1), Round(r, 0) from numbers Where id = 2", "null|null");
}

TEST_F(NumberFunctions, RoundKeepsAWholeNumberWhole) {
    gives("Select Round(7, 2), Round(15, -1), Round(-15, -1), Round(14, -1), Round(5, -2)", "7|20|-20|10|0");
    EXPECT_EQ(practice.engine.query("Select Round(7, 2)", {}).columns()[0].type, db::ColumnType::Integer);
}

TEST_F(NumberFunctions, RoundCutsWhereItIsToldTo) {
    gives("Select Round(2.99, 0, 1), Round(-2.99, 0, 1), Round(2.999, 2, 1), Round(2.5, 0, 0)", "2|-2|2.99|3");
    gives("Select Round(19, -1, 1), Round(748.58, -2, 1)", "10|700");
    failsOnSqlServer("Select Round(1.5)", 189, "The round function requires 2 to 3 arguments.");
    failsOnSqlServer("Select Round(1.5, 1, 0, 1)", 189);
}

TEST_F(NumberFunctions, FloorAndCeilingGoToTheNextWholeNumber) {
    gives("Select Floor(2.9), Floor(-2.1), Floor(3), Ceiling(2.1), Ceiling(-2.9), Ceiling(3)", "2|-3|3|3|-2|3");
    gives("Select Floor(r), Ceiling(r), Floor(m) from numbers Where id = 1", "2|3|12");
    gives("Select Floor(t), Ceiling(t) from numbers Where id = 1", "-4|-3");
    gives("Select Floor(r), Ceiling(r) from numbers Where id = 2", "null|null");
}

TEST_F(NumberFunctions, PowersAndRoots) {
    gives("Select Power(2, 10), Power(2.0, 3), Power(5, 0), Power(2, 0.5)", "1024|8|1|1");
    gives("Select Sqrt(16), Sqrt(0), Sqrt(2.25)", "4|0|1.5");
    gives("Select Power(n, 2), Sqrt(n) from numbers Where id = 2", "null|null");
    gives("Select Power(-2, 3), Power(10.0, -1)", "-8|0.1");
    fails("Select Sqrt(-1)", 3623, "An invalid floating point operation occurred.");
    fails("Select Power(2, 40)", 8115, "Arithmetic overflow error converting expression to data type int.");
}

TEST_F(NumberFunctions, IsNumericKnowsANumber) {
    gives("Select IsNumeric('12'), IsNumeric('-1.5'), IsNumeric('x'), IsNumeric('12x')", "1|1|0|0");
    givesOnSqlServer("Select IsNumeric(''), IsNumeric(' '), IsNumeric(null)", "0|0|0");
    givesOnSqlServer("Select IsNumeric('1e5'), IsNumeric('$5'), IsNumeric('1,000'), IsNumeric('+3'), IsNumeric(' 7 ')",
                     "1|1|1|1|1");
    gives("Select IsNumeric(5), IsNumeric(2.5)", "1|1");
    gives("Select IsNumeric(t), IsNumeric(n) from numbers Where id = 1", "1|1");
    gives("Select id from numbers Where IsNumeric(t) = 1", "1");
}

TEST_F(NumberFunctions, TheSumOfMoneyIsMoney) {
    gives("Select Sum(m), Avg(m), Sum(m) + 1 from numbers", "12.345|12.345|13.345");
    gives("Select Round(Sum(m), 2) from numbers", "12.35");
    givesOnSqlServer("Select Convert(varchar, Sum(m)) from numbers", "12.35");
    gives("Select Avg(x.m) from (Select Convert(money, 1) as m Union All Select Convert(money, 2)) x", "1.5");
    givesOnSqlServer("Select Convert(varchar, x.m) from (Select m from numbers Where id = 1) x", "12.35");
    givesOnSqlServer("Select Convert(varchar, (Select m from numbers Where id = 1))", "12.35");
}

TEST_F(NumberFunctions, IdentityIsTheLastKeyOfTheSession) {
    Practice desk("Create Table keys (id int identity(1,1) primary key, t nvarchar(5))");
    desk.run("Insert Into keys (t) Values ('a')\nInsert Into keys (t) Values ('b'), ('c')");
    EXPECT_EQ(desk.one("Select @@Identity, Scope_Identity(), @@IDENTITY + 1"), "3|3|4");
    EXPECT_EQ(desk.one("Select t from keys Where id = @@Identity"), "c");
}

}  // namespace
