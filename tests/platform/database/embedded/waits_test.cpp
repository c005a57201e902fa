// A desk that waits for another one's write: it goes on, or is given up.

#include <functional>
#include <QTemporaryDir>
#include <utility>

#include "platform/database/waiting.h"
#include "tests/platform/database/embedded/practice.h"

namespace {

using db::embedded::EmbeddedEngine;

/// Answers a wait that is shown.
class Shown final : public db::Waiting {
  public:
    explicit Shown(std::function<bool()> answer) : answer_(std::move(answer)) {}
    bool GoesOn() override { return answer_(); }

  private:
    std::function<bool()> answer_;
};

class Waits : public testing::Test {
  protected:
    void SetUp() override {
        one.execute("Create Table a (n int)", {});
        one.execute("Insert Into a Values (1)", {});
        db::ShowWaiting() = [this] {
            ++shown;
            return std::make_unique<Shown>(answer);
        };
    }
    void TearDown() override {
        db::ShowWaiting() = {};
        db::AskAboutWaitsAgain();
    }

    static int failure(const std::function<void()>& step) {
        try {
            step();
        } catch (const db::DatabaseError& error) {
            return error.number;
        }
        return 0;
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("desk.db"));
    EmbeddedEngine one{file, true};
    EmbeddedEngine two{file, false};
    std::function<bool()> answer = [] { return true; };
    int shown = 0;
};

TEST_F(Waits, AWriteGoesOnOnceTheOtherDeskIsDone) {
    one.begin();
    one.execute("Update a Set n = n + 1", {});
    answer = [this] {
        if (one.inTransaction())
            one.commit();
        return true;
    };
    EXPECT_EQ(two.execute("Update a Set n = n * 10", {}), 1);
    EXPECT_EQ(two.query("Select n from a", {}).at(0, 0).integer(), 20);
    EXPECT_EQ(shown, 1);
}

TEST_F(Waits, ATransactionBeginsOnceTheOtherDeskIsDone) {
    one.begin();
    answer = [this] {
        if (one.inTransaction())
            one.rollback();
        return true;
    };
    two.begin();
    EXPECT_TRUE(two.inTransaction());
    two.execute("Update a Set n = 5", {});
    two.commit();
    EXPECT_EQ(one.query("Select n from a", {}).at(0, 0).integer(), 5);
}

TEST_F(Waits, AWaitThatIsGivenUpLeavesEverythingAsItWas) {
    one.begin();
    one.execute("Update a Set n = 2", {});
    answer = [] { return false; };
    EXPECT_EQ(failure([&] { two.execute("Update a Set n = 3", {}); }), db::GivenUp);
    db::AskAboutWaitsAgain();
    EXPECT_EQ(failure([&] { two.begin(); }), db::GivenUp);
    EXPECT_FALSE(two.inTransaction());
    one.commit();
    EXPECT_EQ(two.query("Select n from a", {}).at(0, 0).integer(), 2);
    EXPECT_EQ(failure([&] { two.execute("Update a Set n = 3", {}); }), 0);
    EXPECT_EQ(failure([&] { two.execute("Update a Set nothing = 3", {}); }), 207);
}

TEST_F(Waits, NobodyWaitsToRead) {
    one.begin();
    one.execute("Update a Set n = 2", {});
    EXPECT_EQ(two.query("Select n from a", {}).at(0, 0).integer(), 1);
    EXPECT_EQ(shown, 0);
    one.rollback();
}

TEST_F(Waits, AWaitEndsWithItsTime) {
    one.begin();
    two.setLockTimeout(30);
    EXPECT_EQ(failure([&] { two.execute("Update a Set n = 3", {}); }), 1222);
    EXPECT_EQ(failure([&] { two.begin(); }), 1222);
    EXPECT_EQ(shown, 0);
    one.rollback();
    EXPECT_EQ(failure([&] { two.execute("Update a Set n = 3", {}); }), 0);
}

}  // namespace
