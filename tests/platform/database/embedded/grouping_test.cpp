// Aggregates, Group By, Having and Distinct.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Groups : public Dialect {
  protected:
    Groups()
        : Dialect(R"(
Create Table sales (id int not null primary key, shop nvarchar(20) null, kind nvarchar(10) null, pieces int null, price money null, ratio float null, paid bit null, day datetime null, small tinyint null)
Create Table nothing_sold (id int null, pieces int null)
Insert Into sales Values (1, 'North', 'tea', 3, 1.25, 0.5, 1, '2026/01/05', 200)
Insert Into sales Values (2, 'NORTH ', 'tea', 4, 2.5, 1.5, 0, '2026/01/20', 100)
Insert Into sales Values (3, 'south', 'nuts', 7, 10, 2, 1, '2026/02/01', 5)
Insert Into sales Values (4, 'South', 'tea', null, 0.3333, null, 1, '2026/02/01', null)
Insert Into sales Values (5, null, 'nuts', 10, null, 4, 0, null, 1)
Insert Into sales Values (6, null, null, -1, 1, -1, null, '2025/12/31', 0)
)") {}
};

TEST_F(Groups, CountCountsRowsOrWhatIsNotNull) {
    gives("Select Count(*) from sales", "6");
    gives("Select Count(pieces) from sales", "5");
    gives("Select Count(shop), Count(kind), Count(day) from sales", "4|5|5");
    gives("Select Count(*) from sales Where pieces > 100", "0");
    gives("Select Count(1) from sales", "6");
    gives("Select Count(All shop) from sales", "4");
}

TEST_F(Groups, CountOfDistinctTakesEqualTextsForOne) {
    gives("Select Count(Distinct shop) from sales", "2");
    gives("Select Count(Distinct kind) from sales", "2");
    gives("Select Count(Distinct Upper(kind)) from sales", "2");
    gives("Select Count(Distinct shop + '') from sales", "2");
    gives("Select Count(Distinct day) from sales", "4");
    gives("Select Count(Distinct Month(day)) from sales", "3");
}

TEST_F(Groups, SumsLeaveNullOut) {
    gives("Select Sum(pieces) from sales", "23");
    gives("Select Sum(price) from sales", "15.0833");
    gives("Select Sum(ratio) from sales", "7");
    gives("Select Sum(pieces * 2) from sales Where shop = 'north'", "14");
    gives("Select Sum(Distinct small) from sales", "306");
    gives("Select Sum(small) from sales", "306");
    gives("Select Sum(Case When paid = 1 Then 1 Else 0 End) from sales", "3");
}

TEST_F(Groups, AveragesOfWholeNumbersAreWhole) {
    gives("Select Avg(pieces) from sales", "4");
    gives("Select Avg(pieces) from sales Where id In (1, 2)", "3");
    gives("Select Avg(pieces) from sales Where id In (1, 6)", "1");
    gives("Select Avg(-pieces) from sales Where id In (1, 2)", "-3");
    gives("Select Avg(pieces * 1.0) from sales Where id In (1, 2)", "3.5");
    gives("Select Avg(ratio) from sales", "1.4");
    gives("Select Avg(price) from sales Where id In (1, 2)", "1.875");
    gives("Select Avg(Distinct pieces) from sales Where id In (1, 2, 5)", "5");
}

TEST_F(Groups, TheLeastAndTheGreatestAreFoundInTheOrderOfTheirKind) {
    gives("Select Min(pieces), Max(pieces) from sales", "-1|10");
    gives("Select Min(day), Max(day) from sales", "2025-12-31 00:00:00|2026-02-01 00:00:00");
    gives("Select Min(kind), Max(kind) from sales", "nuts|tea");
    gives("Select Min(price), Max(ratio) from sales", "0.3333|4");
    gives("Select Max(Len(kind)) from sales", "4");
}

TEST_F(Groups, TheGreatestTextDoesNotDependOnItsCase) {
    gives("Select Max(t) from (Select 'b' as t Union All Select 'C') x", "C");
    gives("Select Max(t + '') from (Select 'b' as t Union All Select 'C') x", "C");
    gives("Select Min(Left(t, 1)) from (Select 'b' as t Union All Select 'C' Union All Select 'A') x", "A");
    gives("Select Max(Case When t = 'b' Then 'b' Else 'C' End) from (Select 'b' as t Union All Select 'C') x", "C");
    gives("Select Min(LTrim(t)) from (Select ' b' as t Union All Select 'C') x", "b");
}

TEST_F(Groups, NothingHasNoSumAndNoGreatest) {
    gives("Select Sum(pieces), Avg(pieces), Min(pieces), Max(pieces) from nothing_sold", "null|null|null|null");
    gives("Select Count(*), Count(pieces) from nothing_sold", "0|0");
    gives("Select Count(*) from nothing_sold Group by pieces", "");
    gives("Select IsNull(Sum(pieces), 0) from nothing_sold", "0");
    gives("Select Sum(pieces) from sales Where pieces Is Null", "null");
}

TEST_F(Groups, EqualTextsAreOneGroup) {
    gives("Select Count(*) from sales Group by shop Order by Count(*), shop", "2/2/2");
    gives("Select Upper(RTrim(Max(shop))), Sum(pieces) from sales Group by shop Order by 1", "null|9/NORTH|7/SOUTH|7");
    gives("Select kind, Count(*) from sales Group by kind Order by kind", "null|1/nuts|2/tea|3");
}

TEST_F(Groups, SeveralTermsMakeOneGroupEach) {
    gives("Select kind, paid, Count(*) from sales Group by kind, paid Order by kind, paid",
          "null|null|1/nuts|0|1/nuts|1|1/tea|0|1/tea|1|2");
    gives("Select Count(*) from sales Group by shop, kind Order by 1 Desc", "2/1/1/1/1");
    gives(
        "Select Year(day), Month(day), Count(*) from sales Where day Is Not Null Group by Year(day), Month(day) Order "
        "by Year(day), Month(day)",
        "2025|12|1/2026|1|2/2026|2|2");
}

TEST_F(Groups, AnExpressionMayBeAGroup) {
    gives("Select Left(kind, 1), Count(*) from sales Group by Left(kind, 1) Order by 1", "null|1/n|2/t|3");
    gives("Select Left(kind, 1) + '.', Sum(pieces) from sales Group by Left(kind, 1) Order by 2", "null|-1/t.|7/n.|17");
    gives(
        "Select Case When pieces > 3 Then 'many' Else 'few' End, Count(*) from sales Group by Case When pieces > 3 "
        "Then 'many' Else 'few' End Order by 2 Desc, 1",
        "few|3/many|3");
    gives("Select pieces % 2, Count(*) from sales Group by pieces % 2 Order by 1", "null|1/-1|1/0|2/1|2");
}

TEST_F(Groups, HavingChoosesGroups) {
    gives("Select kind from sales Group by kind Having Count(*) > 1 Order by kind", "nuts/tea");
    gives("Select kind, Sum(pieces) from sales Group by kind Having Sum(pieces) > 10", "nuts|17");
    gives("Select kind from sales Group by kind Having kind = 'TEA'", "tea");
    gives("Select kind from sales Group by kind Having kind Is Null or Count(*) = 3 Order by kind", "null/tea");
    gives("Select kind from sales Where pieces > 0 Group by kind Having Min(pieces) > 3", "nuts");
    gives("Select Max(kind) from sales Group by paid Having Not (Count(*) < 3)", "tea");
}

TEST_F(Groups, HavingWithoutGroupsAsksTheWhole) {
    gives("Select Count(*) from sales Having Count(*) > 5", "6");
    gives("Select Count(*) from sales Having Count(*) > 6", "");
    gives("Select 'many' from sales Having Sum(pieces) > 20", "many");
    gives("Select 1 from nothing_sold Having 1 = 1", "1");
}

TEST_F(Groups, TheOrderMayBeThatOfAnAggregate) {
    gives("Select kind from sales Group by kind Order by Count(*) Desc", "tea/nuts/null");
    gives("Select kind from sales Group by kind Order by Max(day) Desc, kind Desc", "tea/nuts/null");
    gives("Select kind, Sum(pieces) as total from sales Group by kind Order by total", "null|-1/tea|7/nuts|17");
    gives("Select kind from sales Group by kind Order by Sum(pieces) Desc", "nuts/tea/null");
}

TEST_F(Groups, ASumMustFitItsType) {
    const QString overflow = "Arithmetic overflow error converting expression to data type int.";
    fails("Select Sum(n) from (Select 2147483647 as n Union All Select 1) x", 8115, overflow);
    gives("Select Sum(n) from (Select 2147483646 as n Union All Select 1) x", "2147483647");
    gives("Select Sum(n) from (Select Convert(bigint, 2147483647) as n Union All Select 1) x", "2147483648");
    fails("Select Sum(pieces * 2000000000) from sales", 8115);
}

TEST_F(Groups, AColumnOutsideOfEveryGroupIsRefused) {
    const QString words =
        "is invalid in the %1 because it is not contained in either an aggregate function or the GROUP BY clause.";
    fails("Select kind, Count(*) from sales", 8120, "Column 'sales.kind' " + words.arg("select list"));
    fails("Select shop, Count(*) from sales Group by kind", 8120, "Column 'sales.shop' " + words.arg("select list"));
    fails("Select kind from sales Group by kind Having shop = 'x'", 8121,
          "Column 'sales.shop' " + words.arg("HAVING clause"));
    fails("Select kind from sales Group by kind Order by shop", 8127,
          "Column 'sales.shop' " + words.arg("ORDER BY clause"));
    fails("Select * from sales Group by kind", 8120);
    fails("Select Len(shop) from sales Group by Left(shop, 1)", 8120);
    fails("Select Count(*), pieces + Count(*) from sales", 8120);
    fails("Select 1 from sales Having pieces > 1", 8121);
}

TEST_F(Groups, WhatStandsWithinAnAggregateNeedsNoGroup) {
    gives("Select kind, Max(shop + kind) from sales Where kind = 'nuts' Group by kind", "nuts|southnuts");
    gives("Select Count(*) + Sum(pieces) from sales", "29");
    gives("Select Max(pieces) - Min(pieces), Len(Max(kind)) from sales", "11|3");
    gives("Select kind + '!' , Count(*) * 2 from sales Where kind = 'tea' Group by kind", "tea!|6");
    fails("Select Max(pieces), pieces from sales", 8120);
    fails("Select Sum(pieces) from sales Order by pieces", 8127);
}

TEST_F(Groups, AConstantNeedsNoGroup) {
    gives("Select 'x', 1 + 1, Count(*) from sales", "x|2|6");
    gives("Select Count(*), GetDate() - GetDate() from nothing_sold", "0|1900-01-01 00:00:00");
}

TEST_F(Groups, AnInnerQueryHasItsOwnGroups) {
    gives("Select kind, (Select Count(*) from nothing_sold) from sales Group by kind Order by kind",
          "null|0/nuts|0/tea|0");
    gives("Select Count(*) from (Select kind from sales Group by kind) k", "3");
    gives("Select Max(n) from (Select Count(*) as n from sales Group by kind) k", "3");
    gives(
        "Select s.kind from sales s Group by s.kind Having Count(*) = (Select Max(n) from (Select Count(*) as n from "
        "sales Group by kind) k)",
        "tea");
}

TEST_F(Groups, WhereTakesNoAggregate) {
    fails(
        "Select kind from sales Where Count(*) > 1 Group by kind", 147,
        "An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a HAVING clause or a "
        "select list, and the column being aggregated is an outer reference.");
    fails("Select id from sales Where Max(pieces) = pieces", 147);
}

TEST_F(Groups, DistinctLeavesOutWhatCameBefore) {
    gives("Select Distinct kind from sales Order by kind", "null/nuts/tea");
    gives("Select Count(*) from (Select Distinct shop from sales) x", "3");
    gives("Select Count(*) from (Select Distinct shop, kind from sales) x", "5");
    gives("Select Distinct Left(kind, 1) as k from sales Where kind Is Not Null Order by k", "n/t");
    gives("Select Distinct 1 from sales", "1");
    gives("Select All kind from sales Where id < 3", "tea/tea");
    gives("Select Distinct Top 1 kind from sales Order by kind Desc", "tea");
    gives("Select Distinct Convert(varchar, day, 101) from sales Where Month(day) = 2", "02/01/2026");
}

TEST_F(Groups, DistinctIsOrderedByWhatItShows) {
    fails("Select Distinct kind from sales Order by id", 145,
          "ORDER BY items must appear in the select list if SELECT DISTINCT is specified.");
    fails("Select Distinct Upper(kind) from sales Order by kind", 145);
    gives("Select Distinct kind as k from sales Order by sales.kind Desc", "tea/nuts/null");
    gives("Select Distinct Upper(kind) from sales Order by Upper(kind) Desc", "TEA/NUTS/null");
    gives("Select Distinct pieces, kind from sales Where kind = 'tea' Order by 1 Desc", "4|tea/3|tea/null|tea");
}

TEST_F(Groups, AnAggregateTakesOneArgument) {
    fails("Select Sum() from sales", 174);
    fails("Select Sum(pieces, id) from sales", 174);
    fails("Select Count() from sales", 174);
    fails("Select Max(Distinct) from sales", 174);
    fails("Select Sum(*) from sales", 102);
    fails("Select Count(* from sales", 102);
    fails("Select Sum(pieces > 1) from sales", 102);
}

}  // namespace
