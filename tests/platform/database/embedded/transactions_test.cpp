// What a fault within a transaction leaves behind.

#include "tests/platform/database/embedded/practice.h"

namespace {

class Transactions : public testing::Test {
  protected:
    Practice practice{R"(
Create Table accounts (id int not null primary key, name nvarchar(5) not null, cents int null check (cents >= 0))
Insert Into accounts Values (1, 'Ann', 100)
Insert Into accounts Values (2, 'Bob', 50)
)"};

    QString cents() { return practice.one("Select cents from accounts Order by id"); }
};

TEST_F(Transactions, AFaultLeavesTheRestOfTheTransactionAsItWas) {
    const std::pair<const char*, int> faults[] = {{"Insert Into accounts Values (1, 'x', 1)", 2627},
                                                  {"Insert Into accounts Values (3, null, 1)", 515},
                                                  {"Insert Into accounts Values (3, 'too long', 1)", 2628},
                                                  {"Update accounts Set cents = cents - 80", 547},
                                                  {"Update accounts Set cents = 1 / (id - 1)", 8134},
                                                  {"Update accounts Set cents = name", 245},
                                                  {"Update accounts Set nothing = 1", 207},
                                                  {"Delete from nothing", 208},
                                                  {"Update accounts Set cents", 102}};
    for (const auto& [statement, number] : faults) {
        practice.engine.begin();
        practice.run("Update accounts Set cents = cents + 1 Where id = 1");
        EXPECT_EQ(practice.failureNumber(statement), number) << statement;
        EXPECT_TRUE(practice.engine.inTransaction()) << statement;
        EXPECT_EQ(cents(), "101/50") << statement;
        practice.run("Update accounts Set cents = cents + 1 Where id = 2");
        practice.engine.commit();
        EXPECT_EQ(cents(), "101/51") << statement;
        practice.run("Update accounts Set cents = 100 Where id = 1\nUpdate accounts Set cents = 50 Where id = 2");
    }
}

TEST_F(Transactions, ARollbackTakesAllOfItBack) {
    practice.engine.begin();
    practice.run(
        "Update accounts Set cents = 0\nInsert Into accounts Values (3, 'Cid', 1)\nDelete from accounts Where id = 1");
    EXPECT_EQ(cents(), "0/1");
    practice.engine.rollback();
    EXPECT_FALSE(practice.engine.inTransaction());
    EXPECT_EQ(cents(), "100/50");
}

TEST_F(Transactions, TablesMadeWithinItGoWithIt) {
    practice.engine.begin();
    practice.run("Create Table notes (n int)\nAlter Table accounts Add extra int null\nDrop Table accounts");
    EXPECT_EQ(practice.failureNumber("Select * from accounts"), 208);
    practice.engine.rollback();
    EXPECT_EQ(cents(), "100/50");
    EXPECT_EQ(practice.failureNumber("Select * from notes"), 208);
    EXPECT_EQ(practice.failureNumber("Select extra from accounts"), 207);
}

TEST_F(Transactions, OneIsOpenAtATime) {
    const auto failure = [](const std::function<void()>& step) {
        try {
            step();
        } catch (const db::DatabaseError& error) {
            return QStringLiteral("%1 %2").arg(error.number).arg(error.description);
        }
        return QString();
    };
    EXPECT_EQ(failure([&] { practice.engine.commit(); }),
              "3902 The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.");
    practice.engine.begin();
    EXPECT_EQ(failure([&] { practice.engine.begin(); }),
              "-2147168237 Only one transaction can be active on this session.");
    EXPECT_TRUE(practice.engine.inTransaction());
    practice.engine.commit();
    EXPECT_FALSE(practice.engine.inTransaction());
    EXPECT_EQ(failure([&] { practice.engine.rollback(); }), "");
    EXPECT_EQ(failure([&] { practice.engine.begin(); }), "");
}

TEST_F(Transactions, AFaultOfOneStatementIsNotThatOfTheNext) {
    EXPECT_EQ(practice.failureNumber("Select 1 / 0"), 8134);
    EXPECT_EQ(practice.failureNumber("Insert Into accounts Values (1, 'x', 1)"), 2627);
    EXPECT_EQ(practice.failureNumber("Select Convert(int, 'x')"), 245);
    EXPECT_EQ(practice.failureNumber("Update accounts Set cents = -1"), 547);
    EXPECT_EQ(cents(), "100/50");
}

}  // namespace
