// The types of columns: how they are declared, read back and kept.

#include "platform/database/embedded/sqltype.h"

#include "platform/database/embedded/store.h"
#include "tests/platform/database/embedded/dialect.h"

namespace {

using db::embedded::Cell;
using db::embedded::DeclaredType;
using db::embedded::Kind;
using db::embedded::MakeType;
using db::embedded::ReadDeclaredType;
using db::embedded::SqlType;

TEST(SqlTypes, EachNameHasAKind) {
    const std::pair<const char*, Kind> types[] = {
        {"int", Kind::Integer},     {"integer", Kind::Integer},   {"smallint", Kind::Integer},
        {"tinyint", Kind::Integer}, {"bigint", Kind::Integer},    {"bit", Kind::Bit},
        {"float", Kind::Real},      {"real", Kind::Real},         {"money", Kind::Real},
        {"smallmoney", Kind::Real}, {"decimal", Kind::Real},      {"numeric", Kind::Real},
        {"varchar", Kind::Text},    {"nvarchar", Kind::Text},     {"char", Kind::Text},
        {"nchar", Kind::Text},      {"text", Kind::Text},         {"ntext", Kind::Text},
        {"sysname", Kind::Text},    {"datetime", Kind::DateTime}, {"smalldatetime", Kind::DateTime},
        {"date", Kind::DateTime}};
    for (const auto& [name, kind] : types) {
        ASSERT_TRUE(MakeType(name).has_value()) << name;
        EXPECT_EQ(MakeType(name)->kind, kind) << name;
        EXPECT_EQ(MakeType(QByteArray(name).toUpper().toStdString())->kind, kind) << name;
    }
    for (const char* unknown : {"", "blob", "xml", "intx", "sql_variant", "datetime2", "uniqueidentifier"})
        EXPECT_FALSE(MakeType(unknown).has_value()) << unknown;
}

TEST(SqlTypes, ATextHasALength) {
    EXPECT_EQ(MakeType("nvarchar", 50)->maxLength, 50);
    EXPECT_EQ(MakeType("varchar")->maxLength, 1);
    EXPECT_EQ(MakeType("nvarchar", 0)->maxLength, 0);
    EXPECT_EQ(MakeType("char", 3)->maxLength, 3);
    EXPECT_EQ(MakeType("ntext")->maxLength, 0);
    EXPECT_EQ(MakeType("int", 50)->maxLength, 0);
}

TEST(SqlTypes, ANumberHasItsPlaces) {
    EXPECT_EQ(MakeType("money")->scale, 4);
    EXPECT_EQ(MakeType("smallmoney")->scale, 4);
    EXPECT_EQ(MakeType("float")->scale, -1);
    EXPECT_EQ(MakeType("decimal")->precision, 18);
    EXPECT_EQ(MakeType("decimal")->scale, 0);
    EXPECT_EQ(MakeType("numeric", 9, 3)->precision, 9);
    EXPECT_EQ(MakeType("numeric", 9, 3)->scale, 3);
    EXPECT_EQ(MakeType("int")->precision, 0);
    EXPECT_EQ(MakeType("integer")->name, "int");
}

TEST(SqlTypes, WhatIsDeclaredIsReadBackTheSame) {
    const std::pair<SqlType, const char*> types[] = {{*MakeType("int"), "int"},
                                                     {*MakeType("smallint"), "smallint"},
                                                     {*MakeType("bit"), "bit"},
                                                     {*MakeType("float"), "float"},
                                                     {*MakeType("money"), "money"},
                                                     {*MakeType("decimal", 5, 2), "decimal(5,2)"},
                                                     {*MakeType("numeric"), "numeric(18,0)"},
                                                     {*MakeType("nvarchar", 50), "nvarchar(50)"},
                                                     {*MakeType("varchar", 0), "varchar max"},
                                                     {*MakeType("char", 1), "char(1)"},
                                                     {*MakeType("ntext"), "ntext"},
                                                     {*MakeType("datetime"), "datetime text"},
                                                     {*MakeType("date"), "date text"},
                                                     {*MakeType("smalldatetime"), "smalldatetime text"}};
    for (const auto& [type, declared] : types) {
        EXPECT_EQ(DeclaredType(type), declared);
        EXPECT_EQ(ReadDeclaredType(declared), type) << declared;
        EXPECT_EQ(ReadDeclaredType(QByteArray(declared).toUpper().toStdString()), type) << declared;
    }
}

TEST(SqlTypes, WhatAnotherToolDeclaredGoesBySQLitesRules) {
    EXPECT_EQ(ReadDeclaredType("INTEGER").kind, Kind::Integer);
    EXPECT_EQ(ReadDeclaredType("mediumint").name, "bigint");
    EXPECT_EQ(ReadDeclaredType("UNSIGNED BIG INT").name, "bigint");
    EXPECT_EQ(ReadDeclaredType("CLOB").name, "ntext");
    EXPECT_EQ(ReadDeclaredType("varying character(9)").name, "ntext");
    EXPECT_EQ(ReadDeclaredType("LONGTEXT").name, "ntext");
    EXPECT_EQ(ReadDeclaredType("double").name, "float");
    EXPECT_EQ(ReadDeclaredType("").name, "float");
    EXPECT_EQ(ReadDeclaredType("boolean").name, "float");
    EXPECT_EQ(ReadDeclaredType("nvarchar( 7 )").maxLength, 7);
    EXPECT_EQ(ReadDeclaredType("decimal(9, 4)").scale, 4);
    EXPECT_EQ(ReadDeclaredType("nvarchar").maxLength, 0);
}

TEST(SqlTypes, AKindIsAColumnsType) {
    EXPECT_EQ(db::embedded::ToColumnType(Kind::Bit), db::ColumnType::Boolean);
    EXPECT_EQ(db::embedded::ToColumnType(Kind::Integer), db::ColumnType::Integer);
    EXPECT_EQ(db::embedded::ToColumnType(Kind::Real), db::ColumnType::Real);
    EXPECT_EQ(db::embedded::ToColumnType(Kind::DateTime), db::ColumnType::DateTime);
    EXPECT_EQ(db::embedded::ToColumnType(Kind::Text), db::ColumnType::Text);
    EXPECT_EQ(db::embedded::ToColumnType(Kind::Null), db::ColumnType::Text);
    EXPECT_EQ(db::embedded::ToColumnType(Kind::Unknown), db::ColumnType::Text);
}

class Kept : public testing::Test {
  protected:
    /// What a column of the type keeps of the value, as text; the number of the failure behind "error".
    static QString kept(const SqlType& type, Cell value) {
        try {
            const Cell cell = db::embedded::StoredCell({"t", {}}, {.name = "c", .type = type}, std::move(value));
            if (const auto* whole = std::get_if<qint64>(&cell))
                return QString::number(*whole);
            if (const auto* real = std::get_if<double>(&cell))
                return QStringLiteral("real ") + QString::number(*real, 'g', 15);
            if (const auto* text = std::get_if<std::string>(&cell))
                return u'\'' + QString::fromStdString(*text) + u'\'';
            return QStringLiteral("null");
        } catch (const db::DatabaseError& error) {
            return QStringLiteral("error %1").arg(error.number);
        }
    }
};

TEST_F(Kept, NullIsKeptByEveryType) {
    for (const char* type : {"int", "bit", "float", "money", "nvarchar", "datetime", "date", "ntext", "decimal"})
        EXPECT_EQ(kept(*MakeType(type), {}), "null") << type;
}

TEST_F(Kept, WholeNumbersLieWithinTheirBounds) {
    const struct {
        const char* type;
        qint64 lowest;
        qint64 highest;
        const char* failure;
    } bounds[] = {{"tinyint", 0, 255, "error 220"},
                  {"smallint", -32768, 32767, "error 220"},
                  {"int", -2147483648LL, 2147483647LL, "error 8115"}};
    for (const auto& each : bounds) {
        const SqlType type = *MakeType(each.type);
        EXPECT_EQ(kept(type, each.lowest), QString::number(each.lowest)) << each.type;
        EXPECT_EQ(kept(type, each.highest), QString::number(each.highest)) << each.type;
        EXPECT_EQ(kept(type, each.lowest - 1), each.failure) << each.type;
        EXPECT_EQ(kept(type, each.highest + 1), each.failure) << each.type;
        EXPECT_EQ(kept(type, std::to_string(each.highest)), QString::number(each.highest)) << each.type;
        EXPECT_EQ(kept(type, std::to_string(each.highest + 1)), each.failure) << each.type;
        EXPECT_EQ(kept(type, static_cast<double>(each.lowest) - 1), each.failure) << each.type;
    }
    constexpr qint64 highest = std::numeric_limits<qint64>::max();
    EXPECT_EQ(kept(*MakeType("bigint"), highest), QString::number(highest));
    EXPECT_EQ(kept(*MakeType("bigint"), -highest - 1), QString::number(-highest - 1));
    EXPECT_EQ(kept(*MakeType("bigint"), 9.3e18), "error 8115");
    EXPECT_EQ(kept(*MakeType("bigint"), 9223372036854775808.0), "error 8115");
    EXPECT_EQ(kept(*MakeType("bigint"), -9.3e18), "error 8115");
}

TEST_F(Kept, RealsAreCutForWholeNumbersAndRoundedForDecimals) {
    EXPECT_EQ(kept(*MakeType("int"), 2.999), "2");
    EXPECT_EQ(kept(*MakeType("int"), -2.999), "-2");
    EXPECT_EQ(kept(*MakeType("decimal", 5, 2), 2.999), "real 3");
    EXPECT_EQ(kept(*MakeType("decimal", 5, 2), 999.994), "real 999.99");
    EXPECT_EQ(kept(*MakeType("decimal", 5, 2), 999.995), "error 8115");
    EXPECT_EQ(kept(*MakeType("decimal", 5, 2), qint64{1000}), "error 8115");
    EXPECT_EQ(kept(*MakeType("money"), 1.00005), "real 1.0001");
    EXPECT_EQ(kept(*MakeType("float"), 1.00005), "real 1.00005");
    EXPECT_EQ(kept(*MakeType("float"), qint64{5}), "real 5");
    EXPECT_EQ(kept(*MakeType("bit"), 0.1), "1");
    EXPECT_EQ(kept(*MakeType("bit"), qint64{0}), "0");
    EXPECT_EQ(kept(*MakeType("bit"), qint64{-7}), "1");
}

TEST_F(Kept, TextsAreReadAsWhatTheColumnHolds) {
    EXPECT_EQ(kept(*MakeType("int"), std::string(" 12 ")), "12");
    EXPECT_EQ(kept(*MakeType("int"), std::string("1x")), "error 245");
    EXPECT_EQ(kept(*MakeType("int"), std::string("+")), "error 245");
    EXPECT_EQ(kept(*MakeType("int"), std::string("-")), "error 245");
    EXPECT_EQ(kept(*MakeType("int"), std::string("+-5")), "error 245");
    EXPECT_EQ(kept(*MakeType("float"), std::string("-.5")), "real -0.5");
    EXPECT_EQ(kept(*MakeType("float"), std::string(".")), "error 8114");
    EXPECT_EQ(kept(*MakeType("float"), std::string("x")), "error 8114");
    EXPECT_EQ(kept(*MakeType("money"), std::string("$1,234.5")), "real 1234.5");
    EXPECT_EQ(kept(*MakeType("money"), std::string("$")), "error 8114");
    EXPECT_EQ(kept(*MakeType("money"), std::string("5$")), "real 5");
    EXPECT_EQ(kept(*MakeType("bit"), std::string("TRUE ")), "1");
    EXPECT_EQ(kept(*MakeType("bit"), std::string("no")), "error 245");
    EXPECT_EQ(kept(*MakeType("datetime"), std::string("3/11/26 9:05 AM")), "'2026-03-11 09:05:00'");
    EXPECT_EQ(kept(*MakeType("date"), std::string("3/11/26 9:05 AM")), "'2026-03-11'");
    EXPECT_EQ(kept(*MakeType("datetime"), std::string("soon")), "error 241");
}

TEST_F(Kept, NumbersBecomeTheTextsOfTextColumns) {
    EXPECT_EQ(kept(*MakeType("nvarchar", 5), qint64{42}), "'42'");
    EXPECT_EQ(kept(*MakeType("nvarchar", 5), 2.5), "'2.5'");
    EXPECT_EQ(kept(*MakeType("nvarchar", 5), 2.0), "'2'");
    EXPECT_EQ(kept(*MakeType("nvarchar", 2), qint64{420}), "error 2628");
    EXPECT_EQ(kept(*MakeType("datetime"), qint64{1}), "'1900-01-02'");
    EXPECT_EQ(kept(*MakeType("datetime"), 0.5), "'1900-01-01 12:00:00'");
    EXPECT_EQ(kept(*MakeType("datetime"), -0.25), "'1899-12-31 18:00:00'");
    EXPECT_EQ(kept(*MakeType("datetime"), 1e7), "error 8115");
}

TEST_F(Kept, LengthsAreCountedAsTheServerCountsThem) {
    const SqlType type = *MakeType("nvarchar", 3);
    EXPECT_EQ(kept(type, std::string("abc")), "'abc'");
    EXPECT_EQ(kept(type, std::string("äöü")), "'äöü'");
    EXPECT_EQ(kept(type, std::string("€€€")), "'€€€'");
    EXPECT_EQ(kept(type, std::string("😀a")), "'😀a'");
    EXPECT_EQ(kept(type, std::string("😀😀")), "error 2628");
    EXPECT_EQ(kept(type, std::string("abcd")), "error 2628");
    EXPECT_EQ(kept(type, std::string("abc   ")), "'abc'");
    EXPECT_EQ(kept(type, std::string("ab    ")), "'ab '");
    EXPECT_EQ(kept(type, std::string("      ")), "'   '");
    EXPECT_EQ(kept(*MakeType("nvarchar", 0), std::string(10'000, 'x')).size(), 10'002);
}

}  // namespace
