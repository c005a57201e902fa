#include "platform/database/odbcstatement.h"

#include <gtest/gtest.h>

using db::ColumnType;
using db::OdbcColumnType;

TEST(OdbcStatement, EveryTypeOfTheInterfaceIsOneOfOurs) {
    EXPECT_EQ(OdbcColumnType(SQL_BIT), ColumnType::Boolean);
    for (const SQLSMALLINT type : {SQL_TINYINT, SQL_SMALLINT, SQL_INTEGER, SQL_BIGINT})
        EXPECT_EQ(OdbcColumnType(type), ColumnType::Integer) << type;
    for (const SQLSMALLINT type : {SQL_REAL, SQL_FLOAT, SQL_DOUBLE, SQL_DECIMAL, SQL_NUMERIC})
        EXPECT_EQ(OdbcColumnType(type), ColumnType::Real) << type;
    for (const SQLSMALLINT type : {SQL_TYPE_DATE, SQL_TYPE_TIMESTAMP})
        EXPECT_EQ(OdbcColumnType(type), ColumnType::DateTime) << type;
    for (const SQLSMALLINT type : {SQL_CHAR, SQL_VARCHAR, SQL_LONGVARCHAR, SQL_WCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR,
                                   SQL_GUID, SQL_VARBINARY, SQL_TYPE_TIME})
        EXPECT_EQ(OdbcColumnType(type), ColumnType::Text) << type;
}
