// + - * / % and the operators of bits, between numbers, texts and moments.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Arithmetic : public Dialect {
  protected:
    Arithmetic()
        : Dialect(R"(
Create Table figures (id int not null primary key, whole int null, small smallint null, tiny tinyint null, big bigint null, ratio float null, cost money null, yes bit null, code nvarchar(10) null, day datetime null)
Insert Into figures Values (1, 7, 3, 200, 5000000000, 2.5, 1.25, 1, '12', '2026/03/11 12:00')
Insert Into figures Values (2, null, null, null, null, null, null, null, null, null)
)") {}
};

TEST_F(Arithmetic, ProductsComeBeforeSums) {
    gives("Select 2 + 3 * 4, (2 + 3) * 4, 20 - 6 / 2, 10 - 4 - 3, 2 * 3 % 4", "14|20|17|3|2");
    gives("Select 1 - 2 + 3, 1 - (2 + 3), 100 / 10 / 5, 100 / (10 / 5)", "2|-4|2|50");
    gives("Select -2 + 3, -(2 + 3), - -2, +5, + -5, 3 - -2, 3-2", "1|-5|2|5|-5|5|1");
    gives("Select 2*3, 2 *3, 2* 3, 6/3, 7%4", "6|6|6|2|3");
}

TEST_F(Arithmetic, WholeNumbersDivideToWholeOnes) {
    gives("Select 7 / 2, -7 / 2, 7 / -2, -7 / -2, 1 / 3", "3|-3|-3|3|0");
    gives("Select 7 % 3, -7 % 3, 7 % -3, -7 % -3", "1|-1|1|-1");
    gives("Select whole / 2, whole / small, whole % small, 20 / whole from figures Where id = 1", "3|2|1|2");
    gives("Select whole / -2, whole % -4 from figures Where id = 1", "-3|3");
    gives("Select (whole + 1) / (small + 1) from figures Where id = 1", "2");
}

TEST_F(Arithmetic, ARealMakesTheResultReal) {
    gives("Select 7 / 2.0, 7.0 / 2, 7 / 2., .5 * 4, 1.5 + 1", "3.5|3.5|3.5|2|2.5");
    gives("Select whole / ratio, ratio * 2, ratio - 1, ratio + ratio from figures Where id = 1", "2.8|5|1.5|5");
    gives("Select 1e3 + 1, 5E-1 * 2, 2.5e0 % 2", "1001|1|0.5");
    gives("Select 5.5 % 2, -5.5 % 2, 7 % 2.5", "1.5|-1.5|2");
    gives("Select cost * 2, cost + 1, cost / 2 from figures Where id = 1", "2.5|2.25|0.625");
}

TEST_F(Arithmetic, ZeroDividesNothing) {
    const QString sentence = "Divide by zero error encountered.";
    fails("Select 1 / 0", 8134, sentence);
    fails("Select 1 % 0", 8134, sentence);
    fails("Select 1.5 / 0", 8134, sentence);
    fails("Select 1 / 0.0", 8134, sentence);
    fails("Select whole / (whole - 7) from figures Where id = 1", 8134, sentence);
    fails("Select whole % (small - 3) from figures Where id = 1", 8134, sentence);
    fails("Select id from figures Where 5 / (id - 1) = 1", 8134, sentence);
    fails("Select Sum(1 / (id - 1)) from figures", 8134, sentence);
    gives("Select null / 0", "null");
    gives("Select 0 / 5, 0 % 5", "0|0");
}

TEST_F(Arithmetic, NullMakesEverythingNull) {
    gives("Select 1 + null, null - 1, null * 2, null / 2, null % 2, -whole from figures Where id = 2",
          "null|null|null|null|null|null");
    gives("Select 'a' + null", "null");
    gives("Select whole + 1, ratio * 2, code + 'x', day + 1, day - 1 from figures Where id = 2",
          "null|null|null|null|null");
    gives("Select whole & 1, whole | 1, whole ^ 1, ~whole from figures Where id = 2", "null|null|null|null");
}

TEST_F(Arithmetic, WholeNumbersMustFitTheirType) {
    const QString sentence = "Arithmetic overflow error converting expression to data type int.";
    fails("Select 2147483647 + 1", 8115, sentence);
    fails("Select -2147483647 - 2", 8115, sentence);
    fails("Select 65536 * 65536", 8115, sentence);
    fails("Select whole * 1000000000 from figures Where id = 1", 8115, sentence);
    gives("Select 2147483646 + 1, -2147483647 - 1", "2147483647|-2147483648");
    gives("Select 2147483648 + 1", "2147483649");
    gives("Select big + 1, big * 2, big - whole from figures Where id = 1", "5000000001|10000000000|4999999993");
    fails("Select Convert(bigint, 9223372036854775807) + 1", 8115,
          "Arithmetic overflow error converting expression to data type bigint.");
}

TEST_F(Arithmetic, SmallTypesCountInTheirOwnRange) {
    failsOnSqlServer("Select tiny + tiny from figures Where id = 1", 8115,
                     "Arithmetic overflow error converting expression to data type tinyint.");
    failsOnSqlServer("Select Convert(smallint, 30000) + Convert(smallint, 30000)", 8115,
                     "Arithmetic overflow error converting expression to data type smallint.");
    failsOnSqlServer("Select Convert(tinyint, 1) - Convert(tinyint, 2)", 8115);
    gives("Select tiny + 100, tiny * small, tiny - 300 from figures Where id = 1", "300|600|-100");
    gives("Select Convert(smallint, 30000) + 30000", "60000");
}

TEST_F(Arithmetic, BitsAreCombined) {
    gives("Select 12 & 10, 12 | 10, 12 ^ 10, ~12", "8|14|6|-13");
    gives("Select 5 ^ 5, 0 ^ 7, ~0, ~ -1", "0|7|-1|0");
    gives("Select 1 + 2 & 2, 7 - 4 | 8", "2|11");
    givesOnSqlServer("Select 6 & 3 + 1", "3");
    gives("Select 1 | 2 * 4, (1 | 2) * 4", "9|12");
    gives("Select id from figures Where whole & 2 = 2", "1");
    gives("Select id from figures Where (whole & 8) <> 0", "");
    gives("Select whole | small, whole ^ small, ~small from figures Where id = 1", "7|4|-4");
}

TEST_F(Arithmetic, PlusJoinsTextsAsTheyStand) {
    gives("Select 'a' + 'b', 'a ' + 'b', '' + 'b', 'a' + ''", "ab|a b|b|a");
    gives("Select 'a' + 'b' + 'c' + 'd'", "abcd");
    gives("Select code + '-' + code from figures Where id = 1", "12-12");
    gives("Select ('a' + 'b') + ('c' + 'd')", "abcd");
    gives("Select '1' + '2'", "12");
    gives("Select 'it''s' + ' ' + '''quoted'''", "it's 'quoted'");
    gives("Select Upper('a') + Lower('B')", "Ab");
}

TEST_F(Arithmetic, PlusBetweenATextAndANumberAdds) {
    gives("Select '5' + 5, 5 + '5', ' 7 ' + 1, '-3' + 1, '' + 1", "10|10|8|-2|1");
    gives("Select code + 1, 1 + code, code + whole from figures Where id = 1", "13|13|19");
    gives("Select '1' + '2' + 3, 1 + '2' + '3', '1' + 2 + '3'", "15|6|6");
    gives("Select '2.5' + 1.5, 1.5 + '2'", "4|3.5");
    fails("Select 'a' + 1", 245, "Conversion failed when converting the varchar value 'a' to data type int.");
    fails("Select 1 + 'a'", 245);
    fails("Select '1.5' + 1", 245);
    fails("Select code + 1 + 'x' from figures Where id = 1", 245);
}

TEST_F(Arithmetic, ATextAmongNumbersIsANumber) {
    gives("Select '7' - 2, 7 - '2', '6' * 2, '7' / 2, '7' % 4", "5|5|12|3|3");
    gives("Select code * 2, code - 2, code / 5, code % 5 from figures Where id = 1", "24|10|2|2");
    fails("Select 'x' - 1", 245);
    fails("Select 'x' * 1", 245);
    fails("Select code * 'x' * 1 from figures Where id = 1", 245);
    failsOnSqlServer("Select -'5'", 8117);
    failsOnSqlServer("Select -code from figures", 8117);
}

TEST_F(Arithmetic, DaysAreAddedToAMoment) {
    gives("Select day + 1, day + 0.5, day - 1, 1 + day from figures Where id = 1",
          "2026-03-12 12:00:00|2026-03-12 00:00:00|2026-03-10 12:00:00|2026-03-12 12:00:00");
    gives("Select day + whole from figures Where id = 1", "2026-03-18 12:00:00");
    gives("Select day + 0.25 - 1 from figures Where id = 1", "2026-03-10 18:00:00");
    gives("Select id from figures Where day + 1 > '03/12/2026'", "1");
    gives("Select id from figures Where day - 1 = '03/10/2026 12:00 PM'", "1");
}

TEST_F(Arithmetic, TwoMomentsDifferByAMoment) {
    givesOnSqlServer("Select day - '2026/03/10' from figures Where id = 1", "1900-01-02 12:00:00");
    givesOnSqlServer("Select Convert(datetime, '2026/03/11') - Convert(datetime, '2026/03/01')", "1900-01-11 00:00:00");
    givesOnSqlServer("Select Convert(int, Convert(datetime, '2026/03/11') - Convert(datetime, '2026/03/01'))", "10");
}

TEST_F(Arithmetic, BitsOfTheirOwnTypeAreNumbers) {
    gives("Select yes + 1, yes * 5, 3 - yes from figures Where id = 1", "2|5|2");
    gives("Select id from figures Where yes + 0 = 1", "1");
}

TEST_F(Arithmetic, AConditionIsNoValue) {
    fails("Select 1 = 1", 102);
    fails("Select (1 = 1) + 1", 102);
    fails("Select 1 + (1 = 1)", 102);
    fails("Select -(1 = 1)", 102);
    fails("Select 2 * (1 < 2)", 102);
    fails("Select (1 < 2) * 2", 102);
    fails("Select 1 +", 102);
    fails("Select * 2", 102);
    fails("Select 1 + * 2", 102);
    fails("Select 5 5", 102);
}

TEST_F(Arithmetic, BoundValuesAreOfTheKindThatTheyBring) {
    EXPECT_EQ(practice.one("Select ? + 1", {2}), "3");
    EXPECT_EQ(practice.one("Select ? + 'b'", {"a"}), "ab");
    EXPECT_EQ(practice.one("Select ? + 1", {"2"}), "3");
    EXPECT_EQ(practice.one("Select ? * 2.5", {2}), "5");
    EXPECT_EQ(practice.one("Select ? + ?", {1.5, "2"}), "3.5");
    EXPECT_EQ(practice.one("Select ? - ?, ? / ?", {9, 4, 9, 2}), "5|4");
    EXPECT_EQ(practice.one("Select ? + 1", {db::Value()}), "null");
    EXPECT_EQ(practice.one("Select day + ? from figures Where id = 1", {2}), "2026-03-13 12:00:00");
    EXPECT_EQ(practice.failureNumber("Select ? / ?", {1, 0}), 8134);
    EXPECT_EQ(practice.failureNumber("Select ? + 1", {"two"}), 245);
    EXPECT_EQ(practice.failureNumber("Select ? + 1"), 8178);
}

}  // namespace
