// Convert and Cast between numbers, texts and bits.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Conversions : public Dialect {
  protected:
    Conversions()
        : Dialect(R"(
Create Table raw_values (id int not null primary key, t nvarchar(20) null, n int null, r float null, m money null, d decimal(8,3) null, b bit null, day datetime null)
Insert Into raw_values Values (1, '42', 7, 2.75, 12.5, 1.234, 1, '2026/03/11')
Insert Into raw_values Values (2, null, null, null, null, null, null, null)
)") {}

    void converts(const char* value, const char* type, const char* answer) {
        gives(QStringLiteral("Select Convert(%2, %1)").arg(value, type), answer);
        gives(QStringLiteral("Select Cast(%1 as %2)").arg(value, type), answer);
    }
    void refuses(const char* value, const char* type, int number, const QString& sentence = {}) {
        fails(QStringLiteral("Select Convert(%2, %1)").arg(value, type), number, sentence);
        fails(QStringLiteral("Select Cast(%1 as %2)").arg(value, type), number, sentence);
    }
};

TEST_F(Conversions, TextsBecomeWholeNumbers) {
    converts("'15'", "int", "15");
    converts("' 15 '", "int", "15");
    converts("'-15'", "int", "-15");
    converts("'+15'", "int", "15");
    converts("'007'", "int", "7");
    converts("''", "int", "0");
    converts("'2147483647'", "int", "2147483647");
    converts("'-2147483648'", "int", "-2147483648");
    converts("'9223372036854775807'", "bigint", "9223372036854775807");
    converts("'255'", "tinyint", "255");
    converts("'-32768'", "smallint", "-32768");
}

TEST_F(Conversions, OtherTextsAreNoWholeNumbers) {
    refuses("'x'", "int", 245, "Conversion failed when converting the varchar value 'x' to data type int.");
    refuses("'1.5'", "int", 245, "Conversion failed when converting the varchar value '1.5' to data type int.");
    refuses("'1e3'", "int", 245);
    refuses("'1 2'", "int", 245);
    refuses("'- 5'", "int", 245);
    refuses("'12a'", "int", 245);
    refuses("'0x10'", "int", 245);
    refuses("'1,000'", "int", 245);
    refuses("'one'", "smallint", 245,
            "Conversion failed when converting the varchar value 'one' to data type smallint.");
    refuses("'true'", "int", 245);
}

TEST_F(Conversions, RealsAreCutToWholeNumbers) {
    converts("2.9", "int", "2");
    converts("-2.9", "int", "-2");
    converts("0.5", "int", "0");
    converts("2.5e2", "int", "250");
    converts("1.9999", "tinyint", "1");
    gives("Select Convert(int, r), Convert(int, -r) from raw_values Where id = 1", "2|-2");
}

TEST_F(Conversions, AWholeNumberMustFitItsType) {
    refuses("3000000000", "int", 8115, "Arithmetic overflow error converting expression to data type int.");
    refuses("1e10", "int", 8115);
    refuses("40000", "smallint", 220, "Arithmetic overflow error for data type smallint, value = 40000.");
    refuses("-32769", "smallint", 220, "Arithmetic overflow error for data type smallint, value = -32769.");
    refuses("256", "tinyint", 220, "Arithmetic overflow error for data type tinyint, value = 256.");
    refuses("-1", "tinyint", 220, "Arithmetic overflow error for data type tinyint, value = -1.");
    refuses("1e20", "bigint", 8115, "Arithmetic overflow error converting expression to data type bigint.");
    converts("32767", "smallint", "32767");
    converts("-32768", "smallint", "-32768");
    converts("0", "tinyint", "0");
    converts("255", "tinyint", "255");
}

TEST_F(Conversions, TextsBecomeReals) {
    converts("'2.5'", "float", "2.5");
    converts("' -2.5 '", "float", "-2.5");
    converts("'.5'", "float", "0.5");
    converts("'5.'", "float", "5");
    converts("'1e3'", "float", "1000");
    converts("'1.5E-1'", "float", "0.15");
    converts("'+2'", "float", "2");
    converts("'7'", "real", "7");
    refuses("'x'", "float", 8114, "Error converting data type varchar to float.");
    refuses("'1,5'", "float", 8114);
    refuses("'1.2.3'", "float", 8114);
    failsOnSqlServer("Select Convert(float, 'nan')", 8114);
    failsOnSqlServer("Select Convert(float, 'inf')", 8114);
    refuses("'e5'", "float", 8114);
    givesOnSqlServer("Select Convert(float, '')", "0");
}

TEST_F(Conversions, DecimalsAreRoundedToTheirPlaces) {
    converts("2.345", "decimal(5,2)", "2.35");
    converts("-2.345", "decimal(5,2)", "-2.35");
    converts("2.344", "decimal(5,2)", "2.34");
    converts("1.005", "decimal(5,2)", "1.01");
    converts("2.5", "decimal", "3");
    converts("2.4", "numeric", "2");
    converts("2.45", "decimal(3,1)", "2.5");
    converts("'2.345'", "numeric(8,2)", "2.35");
    converts("7", "decimal(5,2)", "7");
    converts("999.99", "decimal(5,2)", "999.99");
    refuses("1000", "decimal(5,2)", 8115);
    refuses("-1000", "decimal(5,2)", 8115);
    refuses("999.995", "decimal(5,2)", 8115, "Arithmetic overflow error converting numeric to data type numeric.");
}

TEST_F(Conversions, MoneyHasFourDecimals) {
    converts("12.34567", "money", "12.3457");
    converts("'12.34567'", "money", "12.3457");
    converts("'$12.50'", "money", "12.5");
    converts("'1,234.50'", "money", "1234.5");
    converts("'-5'", "money", "-5");
    converts("7", "smallmoney", "7");
    refuses("'12 dollars'", "money", 8114);
    gives("Select Convert(money, r), Convert(money, n) from raw_values Where id = 1", "2.75|7");
}

TEST_F(Conversions, BitsAreOneForAnythingButZero) {
    converts("0", "bit", "0");
    converts("1", "bit", "1");
    converts("2", "bit", "1");
    converts("-1", "bit", "1");
    converts("0.5", "bit", "1");
    converts("'true'", "bit", "1");
    converts("'FALSE'", "bit", "0");
    converts("'1'", "bit", "1");
    converts("'0'", "bit", "0");
    givesOnSqlServer("Select Convert(bit, '5')", "1");
    givesOnSqlServer("Select Convert(bit, '')", "0");
    refuses("'yes'", "bit", 245, "Conversion failed when converting the varchar value 'yes' to data type bit.");
    gives("Select Convert(int, b), b + 1 from raw_values Where id = 1", "1|2");
}

TEST_F(Conversions, NumbersBecomeTexts) {
    converts("42", "varchar(10)", "42");
    converts("-42", "nvarchar(10)", "-42");
    converts("0", "varchar", "0");
    converts("9223372036854775807", "varchar(30)", "9223372036854775807");
    gives("Select Convert(varchar, n) + '!' from raw_values Where id = 1", "7!");
    givesOnSqlServer("Select Convert(varchar(20), r) + '!' from raw_values Where id = 1", "2.75!");
    gives("Select Convert(varchar, b) from raw_values Where id = 1", "1");
    gives("Select Convert(nvarchar(20), d) from raw_values Where id = 1", "1.234");
    gives("Select Cast(n as varchar) + Cast(n as varchar) from raw_values Where id = 1", "77");
}

TEST_F(Conversions, MoneyBecomesATextWithItsCents) {
    givesOnSqlServer("Select Convert(varchar, m) from raw_values Where id = 1", "12.50");
    givesOnSqlServer("Select Convert(varchar, m, 0) from raw_values Where id = 1", "12.50");
    givesOnSqlServer("Select Convert(varchar, Convert(money, 1234567.891), 1)", "1,234,567.89");
    givesOnSqlServer("Select Convert(varchar, Convert(money, 1234567.891), 2)", "1234567.8910");
    givesOnSqlServer("Select Convert(varchar, Convert(money, 1234567.891), 0)", "1234567.89");
    givesOnSqlServer("Select Convert(varchar, Convert(money, 0))", "0.00");
    givesOnSqlServer("Select Convert(varchar, Convert(money, -2.5))", "-2.50");
    givesOnSqlServer("Select '$' + Convert(varchar, Sum(m)) from raw_values", "$12.50");
}

TEST_F(Conversions, ATextIsCutToItsLength) {
    converts("'abcdef'", "varchar(3)", "abc");
    converts("'abcdef'", "nvarchar(6)", "abcdef");
    converts("'abcdef'", "nvarchar(max)", "abcdef");
    converts("'äöü'", "nvarchar(2)", "äö");
    converts("''", "varchar(3)", "");
    gives("Select Len(Convert(varchar, '0123456789012345678901234567890123456789'))", "30");
    gives("Select Len(Cast('0123456789012345678901234567890123456789' as nvarchar))", "30");
    gives("Select Convert(nvarchar(1), t) from raw_values Where id = 1", "4");
}

TEST_F(Conversions, AFixedTextIsFilledWithBlanks) {
    gives("Select Convert(char(5), 'ab') + '|'", "ab   |");
    gives("Select Cast('abcdef' as char(3)) + '|'", "abc|");
    gives("Select Convert(nchar(3), 7) + '|'", "7  |");
    gives("Select Len(Convert(char(5), 'ab'))", "2");
}

TEST_F(Conversions, AWholeNumberThatItsTextDoesNotHoldIsAStar) {
    givesOnSqlServer("Select Convert(varchar(2), 123)", "*");
    givesOnSqlServer("Select Convert(char(3), 12345) + '|'", "*  |");
    gives("Select Convert(varchar(3), 123)", "123");
    givesOnSqlServer("Select Cast(-123 as varchar(3))", "*");
    failsOnSqlServer("Select Convert(nvarchar(2), 123)", 8115,
                     "Arithmetic overflow error converting expression to data type nvarchar.");
    gives("Select Convert(nvarchar(3), 123)", "123");
}

TEST_F(Conversions, NullStaysNull) {
    for (const char* type : {"int", "float", "money", "decimal(5,2)", "bit", "varchar(5)", "nchar(5)", "datetime"})
        converts("null", type, "null");
    gives(
        "Select Convert(int, t), Convert(varchar, n), Convert(float, m), Convert(datetime, day) from raw_values Where "
        "id = 2",
        "null|null|null|null");
}

TEST_F(Conversions, AMomentBecomesANumberOfDays) {
    givesOnSqlServer("Select Convert(int, day), Convert(float, day) from raw_values Where id = 1", "46090|46090");
    givesOnSqlServer("Select Convert(float, Convert(datetime, '1900/01/02 6:00'))", "1.25");
    givesOnSqlServer("Select Convert(int, Convert(datetime, '1900/01/02 11:59'))", "1");
    givesOnSqlServer("Select Convert(int, Convert(datetime, '1900/01/02 12:00'))", "2");
    givesOnSqlServer("Select Convert(int, Convert(datetime, '1899/12/31'))", "-1");
}

TEST_F(Conversions, TypesAreTold) {
    const auto typeOf = [&](const char* expression) {
        return practice.engine.query(QStringLiteral("Select %1").arg(expression), {}).columns()[0].type;
    };
    EXPECT_EQ(typeOf("Convert(int, '5')"), db::ColumnType::Integer);
    EXPECT_EQ(typeOf("Convert(smallint, '5')"), db::ColumnType::Integer);
    EXPECT_EQ(typeOf("Convert(float, '5')"), db::ColumnType::Real);
    EXPECT_EQ(typeOf("Convert(money, '5')"), db::ColumnType::Real);
    EXPECT_EQ(typeOf("Convert(bit, '1')"), db::ColumnType::Boolean);
    EXPECT_EQ(typeOf("Convert(varchar, 5)"), db::ColumnType::Text);
    EXPECT_EQ(typeOf("Convert(datetime, '2026/03/11')"), db::ColumnType::DateTime);
    EXPECT_EQ(typeOf("Convert(date, '2026/03/11')"), db::ColumnType::DateTime);
    EXPECT_EQ(typeOf("1 + 1"), db::ColumnType::Integer);
    EXPECT_EQ(typeOf("1 + 1.5"), db::ColumnType::Real);
    EXPECT_EQ(typeOf("'a' + 'b'"), db::ColumnType::Text);
    EXPECT_EQ(typeOf("GetDate()"), db::ColumnType::DateTime);
    EXPECT_EQ(typeOf("null"), db::ColumnType::Text);
}

TEST_F(Conversions, AnUnknownTypeIsRefused) {
    refuses("5", "quaternion", 2715, "Cannot find data type quaternion.");
    fails("Select Convert(int 5)", 102);
    fails("Select Convert(int, 5", 102);
    fails("Select Convert(5, int)", 102);
    fails("Select Cast(5 int)", 102);
    fails("Select Cast(5 as int", 102);
    fails("Select Cast(5 as)", 102);
    fails("Select Convert(varchar(x), 5)", 102);
    fails("Select Convert(decimal(5,), 5)", 102);
}

}  // namespace
