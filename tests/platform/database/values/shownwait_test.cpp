#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "platform/database/error.h"
#include "platform/database/waiting.h"

using db::ShownWait;

namespace {

/// The user who sees a wait, and gives up once told to.
class ShownWaits : public testing::Test {
  protected:
    ShownWaits() {
        db::ShowWaiting() = [this] {
            ++shown_;
            return std::make_unique<Shown>(*this);
        };
    }
    ~ShownWaits() override {
        db::ShowWaiting() = {};
        db::AskAboutWaitsAgain();
    }

    int shown_ = 0;
    int standing_ = 0;
    bool givesUp_ = false;

  private:
    class Shown final : public db::Waiting {
      public:
        explicit Shown(ShownWaits& test) : test_(test) { ++test_.standing_; }
        ~Shown() override { --test_.standing_; }
        bool GoesOn() override { return !test_.givesUp_; }

      private:
        ShownWaits& test_;
    };
};

constexpr qint64 longWait = db::UnnoticedWaitMilliseconds;

}  // namespace

TEST_F(ShownWaits, AShortWaitIsNotShown) {
    ShownWait wait;
    EXPECT_TRUE(wait.goesOn(0));
    EXPECT_TRUE(wait.goesOn(longWait - 1));
    EXPECT_EQ(shown_, 0);
}

TEST_F(ShownWaits, ALongWaitIsShownOnceAndUntilItIsOver) {
    {
        ShownWait wait;
        EXPECT_TRUE(wait.goesOn(longWait));
        EXPECT_TRUE(wait.goesOn(longWait + 15));
        EXPECT_EQ(shown_, 1);
        EXPECT_EQ(standing_, 1);
    }
    EXPECT_EQ(standing_, 0);
    ShownWait next;
    EXPECT_TRUE(next.goesOn(longWait));
    EXPECT_EQ(shown_, 2);
}

TEST_F(ShownWaits, WhatTheUserGivesUpIsGivenUpUnaskedInTheRestOfTheRoutine) {
    ShownWait wait;
    EXPECT_TRUE(wait.goesOn(longWait));
    givesUp_ = true;
    EXPECT_FALSE(wait.goesOn(longWait + 15));
    givesUp_ = false;
    ShownWait next;
    EXPECT_TRUE(next.goesOn(longWait - 1));
    EXPECT_FALSE(next.goesOn(longWait));
    EXPECT_EQ(shown_, 1);

    db::AskAboutWaitsAgain();
    ShownWait after;
    EXPECT_TRUE(after.goesOn(longWait));
    EXPECT_EQ(shown_, 2);
}

TEST_F(ShownWaits, WithoutAWindowAWaitGoesOnUnseen) {
    db::ShowWaiting() = {};
    ShownWait wait;
    EXPECT_TRUE(wait.goesOn(longWait * 100));
    db::ShowWaiting() = [] { return std::unique_ptr<db::Waiting>(); };
    ShownWait unseen;
    EXPECT_TRUE(unseen.goesOn(longWait));
}

TEST(DatabaseErrors, OfABrokenLinkAndOfAGivenUpWaitTheDatabaseDidNotAnswer) {
    const db::DatabaseError broken(db::LinkFailure, QStringLiteral("gone"), {},
                                   QString::fromLatin1(db::LinkFailureState));
    EXPECT_TRUE(db::IsLinkFailure(broken));
    EXPECT_TRUE(db::IsUnanswered(broken));
    EXPECT_FALSE(db::IsLinkFailure(db::GivenUpError(false)));
    EXPECT_TRUE(db::IsUnanswered(db::GivenUpError(false)));
    EXPECT_FALSE(db::IsUnanswered(db::DatabaseError(2627, QStringLiteral("twice"), {}, QStringLiteral("23000"))));
    EXPECT_FALSE(db::IsUnanswered(db::RowChangedError()));
}

TEST(DatabaseErrors, AGivenUpWaitTellsWhetherTheChangeMayBeThere) {
    EXPECT_TRUE(db::GivenUpError(true).description.contains(QLatin1String("Look whether the change is there")));
    EXPECT_TRUE(db::GivenUpError(false).description.contains(QLatin1String("Nothing of it was saved")));
    EXPECT_EQ(db::GivenUpError(true).number, db::GivenUp);
}

TEST(DatabaseErrors, AnErrorReadsAsItsDescription) {
    EXPECT_STREQ(db::DatabaseError(1, QString::fromUtf8("Zoë fehlt")).what(), "Zo\xc3\xab fehlt");
    EXPECT_EQ(db::RowChangedError("Update t").statement, "Update t");
}

TEST(DatabaseErrors, IgnoringSwallowsWhatTheDatabaseSaysAndNothingElse) {
    EXPECT_TRUE(db::Ignoring([] {}));
    EXPECT_FALSE(db::Ignoring([] { throw db::RowChangedError(); }));
    EXPECT_THROW(db::Ignoring([] { throw std::runtime_error("another"); }), std::runtime_error);
}
