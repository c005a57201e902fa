#include "tests/platform/database/embedded/practice.h"

namespace {

using Rows = QStringList;

class Writes : public testing::Test {
  protected:
    Practice practice{R"(
Create Table things (id int identity(1,1) primary key, code nvarchar(5) not null default '', body nvarchar(max) null, day datetime null, small smallint null, tiny tinyint null, number int null, big bigint null, cost money null, ratio float null, share decimal(5,2) null, yes bit null default 0, born date null, made datetime null default GetDate())
Create Unique Index things_tiny On things (tiny)
)"};

    QString stored(const char* column, const db::Value& value) {
        practice.engine.execute("Delete from things", {});
        practice.engine.execute(QStringLiteral("Insert Into things (%1) Values (?)").arg(column), {value});
        const QString byBinding = practice.one(QStringLiteral("Select %1 from things").arg(column));
        // The same value through an expression and through a literal must end the same.
        practice.engine.execute(QStringLiteral("Update things Set %1 = Coalesce(?, null)").arg(column), {value});
        EXPECT_EQ(practice.one(QStringLiteral("Select %1 from things").arg(column)), byBinding) << column;
        if (std::holds_alternative<QString>(value.data())) {
            const QString literal = value.text().replace(u'\'', QStringLiteral("''"));
            practice.engine.execute(QStringLiteral("Update things Set %1 = '%2'").arg(column, literal), {});
            EXPECT_EQ(practice.one(QStringLiteral("Select %1 from things").arg(column)), byBinding) << column;
        }
        return byBinding;
    }

    /// The number of the failure, which must be the same by binding, by literal and by expression.
    int refused(const char* column, const char* value) {
        const int byBinding =
            practice.failureNumber(QStringLiteral("Insert Into things (%1) Values (?)").arg(column), {value});
        const QString literal = QString::fromUtf8(value).replace(u'\'', QStringLiteral("''"));
        EXPECT_EQ(practice.failureNumber(QStringLiteral("Insert Into things (%1) Values ('%2')").arg(column, literal)),
                  byBinding);
        EXPECT_EQ(
            practice.failureNumber(QStringLiteral("Insert Into things (%1) Select '%2' + ''").arg(column, literal)),
            byBinding);
        practice.engine.execute("Insert Into things (number) Values (1)", {});
        EXPECT_EQ(practice.failureNumber(QStringLiteral("Update things Set %1 = '%2'").arg(column, literal)),
                  byBinding);
        EXPECT_EQ(practice.failureNumber(QStringLiteral("Update things Set %1 = ?").arg(column), {value}), byBinding);
        EXPECT_EQ(
            practice.failureNumber(QStringLiteral("Update things Set %1 = Coalesce('%2', body)").arg(column, literal)),
            byBinding);
        return byBinding;
    }
};

TEST_F(Writes, DatesAreKeptInOneFormWhateverTheyWereWrittenIn) {
    EXPECT_EQ(stored("day", "03/11/2026 9:05 AM"), "2026-03-11 09:05:00");
    EXPECT_EQ(stored("day", "2026/03/11"), "2026-03-11 00:00:00");
    EXPECT_EQ(stored("day", "3/1/26"), "2026-03-01 00:00:00");
    EXPECT_EQ(stored("day", ""), "1900-01-01 00:00:00");
    EXPECT_EQ(stored("day", QDate(2026, 3, 11)), "2026-03-11 00:00:00");
    EXPECT_EQ(stored("day", QDateTime(QDate(2026, 3, 11), QTime(9, 5, 30))), "2026-03-11 09:05:30");
    EXPECT_EQ(stored("day", 2), "1900-01-03 00:00:00");
    EXPECT_EQ(stored("day", 1.5), "1900-01-02 12:00:00");
    EXPECT_EQ(stored("born", "03/11/2026 9:05 AM"), "2026-03-11 00:00:00");
    EXPECT_EQ(stored("day", db::Value()), "null");
}

TEST_F(Writes, WhatIsNoDateIsRefused) {
    EXPECT_EQ(refused("day", "soon"), 241);
    EXPECT_EQ(refused("day", "02/30/2026"), 241);
    EXPECT_EQ(refused("day", "13/11/2026"), 241);
    EXPECT_EQ(refused("born", "12:00 Noon"), 241);
    EXPECT_EQ(practice.failureNumber("Insert Into things (day) Values (?)", {QDateTime(QDate(1600, 1, 1), QTime())}),
              241);
    EXPECT_EQ(practice.failureNumber("Insert Into things (day) Values (-99999)"), 8115);
}

TEST_F(Writes, NumbersAreReadFromTextsAndCutToWholeOnes) {
    EXPECT_EQ(stored("number", ""), "0");
    EXPECT_EQ(stored("number", " -15 "), "-15");
    EXPECT_EQ(stored("number", "+7"), "7");
    EXPECT_EQ(stored("number", 2.9), "2");
    EXPECT_EQ(stored("number", true), "1");
    EXPECT_EQ(stored("big", "9223372036854775807"), "9223372036854775807");
    EXPECT_EQ(stored("ratio", "2.5e1"), "25");
    EXPECT_EQ(stored("ratio", ""), "0");
    EXPECT_EQ(stored("cost", "12.34567"), "12.3457");
    EXPECT_EQ(stored("share", 1.005), "1.01");
    EXPECT_EQ(stored("share", "123.456"), "123.46");
}

TEST_F(Writes, TextsThatAreNoNumbersAreRefused) {
    EXPECT_EQ(refused("number", "two"), 245);
    EXPECT_EQ(refused("number", "1.5"), 245);
    EXPECT_EQ(refused("number", "0x1F"), 245);
    EXPECT_EQ(refused("small", "-"), 245);
    EXPECT_EQ(refused("ratio", "inf"), 8114);
    EXPECT_EQ(refused("cost", "$"), 8114);
    EXPECT_EQ(practice.failure("Insert Into things (number) Values ('two')"),
              "245 Conversion failed when converting the varchar value 'two' to data type int.");
}

TEST_F(Writes, NumbersBeyondTheirTypeAreRefused) {
    EXPECT_EQ(refused("small", "32768"), 220);
    EXPECT_EQ(refused("tiny", "-1"), 220);
    EXPECT_EQ(refused("number", "2147483648"), 8115);
    EXPECT_EQ(refused("share", "1000"), 8115);
    EXPECT_EQ(practice.failure("Insert Into things (small) Values (99999)"),
              "220 Arithmetic overflow error for data type smallint, value = 99999.");
    EXPECT_EQ(practice.failureNumber("Update things Set small = small + 40000"), 0);
    practice.run("Insert Into things (small) Values (1)");
    EXPECT_EQ(practice.failureNumber("Update things Set small = small + 40000 Where small = 1"), 220);
}

TEST_F(Writes, BitsAreOneOrZero) {
    EXPECT_EQ(stored("yes", true), "1");
    EXPECT_EQ(stored("yes", -1), "1");
    EXPECT_EQ(stored("yes", "True"), "1");
    EXPECT_EQ(stored("yes", "false"), "0");
    EXPECT_EQ(stored("yes", 0.0), "0");
    EXPECT_EQ(refused("yes", "yes"), 245);
    practice.run("Delete from things\nInsert Into things (yes) Values (1)");
    EXPECT_EQ(practice.engine.query("Select yes from things Where yes = 'True'", {}).at(0, 0).value(), db::Value(true));
}

TEST_F(Writes, TextsThatAreTooLongAreRefusedWithTheirColumn) {
    EXPECT_EQ(stored("code", "abcde"), "abcde");
    EXPECT_EQ(stored("code", "äöüßé"), "äöüßé");
    EXPECT_EQ(stored("code", "abcde   "), "abcde");
    EXPECT_EQ(stored("code", "ab   "), "ab   ");
    EXPECT_EQ(stored("code", 12345), "12345");
    EXPECT_EQ(stored("code", 1.5), "1.5");
    EXPECT_EQ(stored("body", QString(100'000, u'x')).size(), 100'000);
    EXPECT_EQ(refused("code", "abcdef"), 2628);
    EXPECT_EQ(refused("code", "😀😀😀"), 2628);
    EXPECT_EQ(
        practice.failure("Insert Into things (code) Values ('abcdefg')"),
        "2628 String or binary data would be truncated in table 'things', column 'code'. Truncated value: 'abcde'.");
    EXPECT_EQ(practice.failureNumber("Insert Into things (code) Values (123456)"), 2628);
    EXPECT_EQ(practice.failureNumber("Insert Into things (code) Select body + 'abcdef' from things"), 2628);
}

TEST_F(Writes, NullIsRefusedWhereAColumnMustHoldSomething) {
    EXPECT_EQ(
        practice.failure("Insert Into things (code) Values (null)"),
        "515 Cannot insert the value NULL into column 'code', table 'things'; column does not allow nulls. INSERT fails.");
    practice.run("Insert Into things (code) Values ('a')");
    EXPECT_EQ(
        practice.failure("Update things Set code = null"),
        "515 Cannot insert the value NULL into column 'code', table 'things'; column does not allow nulls. UPDATE fails.");
    EXPECT_EQ(practice.failureNumber("Update things Set code = ?", {db::Value()}), 515);
    practice.run("Create Table keyed (a nvarchar(5), b int, primary key (a, b))");
    EXPECT_EQ(practice.failureNumber("Insert Into keyed (a) Values ('x')"), 515);
}

TEST_F(Writes, AKeyIsTakenOnce) {
    practice.run("Create Table keyed (a nvarchar(5), b int, primary key (a, b))\nInsert Into keyed Values ('x', 1)");
    EXPECT_EQ(practice.failure("Insert Into keyed Values ('X ', 1)"),
              "2627 Violation of PRIMARY KEY constraint on 'a, b'. Cannot insert duplicate key in object 'keyed'.");
    practice.run("Insert Into things (tiny) Values (1)");
    EXPECT_EQ(practice.failure("Insert Into things (tiny) Values (1)"),
              "2627 Violation of UNIQUE KEY constraint on 'tiny'. Cannot insert duplicate key in object 'things'.");
}

TEST_F(Writes, AFailedStatementWritesNothing) {
    EXPECT_EQ(practice.failureNumber("Insert Into things (code) Values ('good'), ('too long')"), 2628);
    practice.run("Insert Into things (code, body) Values ('a', 'short'), ('b', 'much too long')");
    EXPECT_EQ(practice.failureNumber("Update things Set code = body"), 2628);
    EXPECT_EQ(practice.rows("Select code from things Order by id"), (Rows{"a", "b"}));
}

TEST_F(Writes, TheDatabaseNumbersAnIdentity) {
    practice.run("Insert Into things (code) Values ('a')\nInsert Into things (code) Values ('b')");
    EXPECT_EQ(practice.engine.lastIdentity(), 2);
    EXPECT_EQ(practice.one("Select @@IDENTITY, Scope_Identity()"), "2|2");
    practice.run("Delete from things Where id = 2\nInsert Into things (code) Values ('c')");
    EXPECT_EQ(practice.engine.lastIdentity(), 3);
    EXPECT_EQ(
        practice.failure("Insert Into things (id, code) Values (9, 'd')"),
        "544 Cannot insert explicit value for identity column in table 'things' when IDENTITY_INSERT is set to OFF.");
    EXPECT_EQ(practice.failure("Update things Set id = 9"), "8102 Cannot update identity column 'id'.");
}

TEST_F(Writes, ColumnsLeftOutTakeTheirDefaults) {
    const QDateTime before = db::Value(QDateTime::currentDateTime()).dateTime().addSecs(-1);
    practice.run("Insert Into things Default Values");
    const auto table = practice.engine.query("Select code, yes, number, made from things", {});
    EXPECT_EQ(table.at(0, 0).text(), "");
    EXPECT_EQ(table.at(0, 1).value(), db::Value(false));
    EXPECT_TRUE(table.at(0, 2).isNull());
    EXPECT_GE(table.at(0, 3).dateTime(), before);
}

TEST_F(Writes, TheRowsThatWereWrittenAreCounted) {
    EXPECT_EQ(practice.engine.execute("Insert Into things (number) Values (1), (2), (3)", {}), 3);
    EXPECT_EQ(practice.engine.execute("Update things Set number = number + 1 Where number > 1", {}), 2);
    EXPECT_EQ(practice.engine.execute("Insert Into things (number) Select number * 10 From things", {}), 3);
    EXPECT_EQ(practice.rows("Select number from things Order by id"), (Rows{"1", "3", "4", "10", "30", "40"}));
    EXPECT_EQ(practice.engine.execute("Delete From things Where number > 4", {}), 3);
    EXPECT_EQ(practice.engine.execute("Delete things Where number = 99", {}), 0);
    EXPECT_EQ(practice.engine.execute("Select * from things", {}), 0);
}

TEST_F(Writes, TheNumberOfValuesMustBeThatOfTheColumns) {
    EXPECT_EQ(practice.failureNumber("Insert Into things (code, body) Values ('a')"), 109);
    EXPECT_EQ(practice.failureNumber("Insert Into things (code) Values ('a', 'b')"), 110);
    EXPECT_EQ(practice.failureNumber("Insert Into things (code) Select code, body from things"), 121);
    EXPECT_EQ(practice.failureNumber("Insert Into things (code) Values (?)", {"a", "b"}), 8178);
}

TEST_F(Writes, QuotesInATextComeBackAsTheyWere) {
    practice.run("Insert Into things (code, body) Values ('O''B', N'it''s \"so\" [x] -- /* ? */ ;')");
    EXPECT_EQ(practice.one("Select code, body from things"), "O'B|it's \"so\" [x] -- /* ? */ ;");
}

}  // namespace
