// Users as the administrator's tool makes them, and as the logon takes them.

#include <gtest/gtest.h>

#include "data/scramble.h"
#include "data/upkeep/users.h"
#include "tests/support/testdatabase.h"

using upkeep::AddUser;
using upkeep::NewUser;
using upkeep::SetLocked;
using upkeep::SetPassword;
using upkeep::User;
using upkeep::Users;

namespace {

class PracticeUsers : public testing::Test {
  protected:
    QString add(const NewUser& user) { return AddUser(database.connection(), user, 3); }
    [[nodiscard]] QString password() {
        return UnscramblePassword(database.text("Select pswd_password from passwords"), 3);
    }

    TestDatabase database;
    const NewUser lane{.id = QStringLiteral("LANE"),
                       .firstName = QStringLiteral("Ann"),
                       .lastName = QStringLiteral("O'Lane"),
                       .password = QStringLiteral("let me in"),
                       .scheduler = 5};
};

}  // namespace

TEST_F(PracticeUsers, AreAddedAsProvidersWithTheirRights) {
    EXPECT_EQ(add(lane), "");
    EXPECT_EQ(Users(database.connection()),
              (std::vector<User>{{QStringLiteral("LANE"), QStringLiteral("O'Lane"), false, 5, false}}));
    EXPECT_EQ(password(), "let me in");
    EXPECT_EQ(
        database.text(
            "Select pfirst_name + ' ' + plast_name from provider_info Where archive = 0 And ExcludeFromScheduler = 0"),
        "Ann O'Lane");
    EXPECT_EQ(database.text("Select pswd_screen_access from passwords").size(), 9);
}

TEST_F(PracticeUsers, WhoAreNotProvidersAreNotOffered) {
    NewUser desk = lane;
    desk.isProvider = false;
    EXPECT_EQ(add(desk), "");
    EXPECT_EQ(database.number("Select ExcludeFromScheduler from provider_info"), 1);
}

TEST_F(PracticeUsers, AnAdministratorNeedsNoName) {
    EXPECT_EQ(add({.id = QStringLiteral("ADMIN"), .password = QStringLiteral("x1"), .isAdministrator = true}), "");
    EXPECT_EQ(Users(database.connection()),
              (std::vector<User>{{QStringLiteral("ADMIN"), QStringLiteral("System Administrator"), true, 3, false}}));
    EXPECT_EQ(database.number("Select Count(*) from provider_info"), 0);
}

TEST_F(PracticeUsers, ASecondUserOfTheSameIdIsRefused) {
    EXPECT_EQ(add(lane), "");
    EXPECT_EQ(add(lane), "There is a user LANE already.");
    EXPECT_EQ(Users(database.connection()).size(), 1U);
}

TEST_F(PracticeUsers, WhatTheLogonCouldNotTakeIsRefused) {
    for (const char* id : {"", "A|B", "A B", "ABCDEFGHIJKLMNOPQRSTU", "\xc3\x84"}) {
        NewUser user = lane;
        user.id = QString::fromUtf8(id);
        EXPECT_NE(add(user), "") << id;
    }
    for (const char* wrong : {"", "  ", "a'b", "a\"b", "a;b", "a|b", "a!b", "\xc3\xa4"}) {
        NewUser user = lane;
        user.password = QString::fromUtf8(wrong);
        EXPECT_NE(add(user), "") << wrong;
    }
    NewUser nameless = lane;
    nameless.lastName = QStringLiteral(" ");
    EXPECT_EQ(add(nameless), "The user has no last name.");
    NewUser mighty = lane;
    mighty.scheduler = 7;
    EXPECT_EQ(add(mighty), "The rights are a digit from 0 to 6.");
    EXPECT_EQ(Users(database.connection()).size(), 0U);
}

TEST_F(PracticeUsers, AreNotHalfAddedWhenTheDatabaseRefuses) {
    database.refuse(QStringLiteral("Insert"), QStringLiteral("provider_info"));
    EXPECT_THROW(static_cast<void>(add(lane)), db::DatabaseError);
    EXPECT_EQ(Users(database.connection()).size(), 0U);
}

TEST_F(PracticeUsers, GetANewPassword) {
    EXPECT_EQ(add(lane), "");
    EXPECT_EQ(SetPassword(database.connection(), QStringLiteral("LANE"), QStringLiteral("new one"), 3), "");
    EXPECT_EQ(password(), "new one");
    EXPECT_NE(SetPassword(database.connection(), QStringLiteral("LANE"), QString(), 3), "");
    EXPECT_EQ(password(), "new one");
    EXPECT_EQ(SetPassword(database.connection(), QStringLiteral("O'NO"), QStringLiteral("x"), 3),
              "There is no user O'NO.");
}

TEST_F(PracticeUsers, AreLockedAndUnlockedAgain) {
    EXPECT_EQ(add(lane), "");
    EXPECT_EQ(add({.id = QStringLiteral("ADMIN"), .password = QStringLiteral("x1"), .isAdministrator = true}), "");
    for (const char* id : {"LANE", "ADMIN"}) {
        EXPECT_EQ(SetLocked(database.connection(), QString::fromLatin1(id), true), "");
        EXPECT_EQ(database.number(QStringLiteral("Select archive from provider_info Where id = '%1'").arg(id)), 1);
    }
    for (const User& user : Users(database.connection()))
        EXPECT_TRUE(user.isLocked) << user.id.toStdString();
    EXPECT_EQ(SetLocked(database.connection(), QStringLiteral("LANE"), false), "");
    EXPECT_EQ(SetLocked(database.connection(), QStringLiteral("ADMIN"), false), "");
    for (const User& user : Users(database.connection()))
        EXPECT_FALSE(user.isLocked) << user.id.toStdString();
    EXPECT_EQ(database.number("Select Count(*) from provider_info Where ExcludeFromScheduler = 1"), 1)
        << "An administrator is still offered to nobody as a provider.";
    EXPECT_EQ(SetLocked(database.connection(), QStringLiteral("NOBODY"), true), "There is no user NOBODY.");
}
