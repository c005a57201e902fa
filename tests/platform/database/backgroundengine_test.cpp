#include "platform/database/backgroundengine.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/database/error.h"
#include "platform/database/waiting.h"

using db::DatabaseError;
using db::Value;

namespace {

constexpr int lockRequestTimeOut = 1222;

/// What the engine on the other thread does, and what was asked of it.
struct Script {
    std::function<qint64()> execute = [] { return qint64{0}; };
    std::mutex mutex;
    std::condition_variable changed;
    bool cancelled = false;
    bool inTransaction = true;
    int executed = 0;
    std::thread::id madeOn;
    std::thread::id executedOn;
    QString statement;
    std::vector<Value> bound;

    void awaitCancel() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return cancelled; });
    }
};

class ScriptedEngine final : public db::CancellableEngine {
  public:
    explicit ScriptedEngine(Script& script) : script_(script) { script_.madeOn = std::this_thread::get_id(); }

    qint64 execute(const QString& statement, const std::vector<Value>& bound) override {
        ++script_.executed;
        script_.executedOn = std::this_thread::get_id();
        script_.statement = statement;
        script_.bound = bound;
        return script_.execute();
    }
    [[nodiscard]] int mostRowsOfInsert(int columns) const override { return 1000 / columns; }
    db::Numbered insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                                const std::vector<Value>& bound) override {
        script_.statement = statement.sliced(valuesAt) + identityColumn;
        script_.bound = bound;
        return {2, {7, 8}};
    }
    [[nodiscard]] QString lockingHint() const override { return QStringLiteral(" With (Care)"); }
    db::ResultTable query(const QString& statement, const std::vector<Value>& /*bound*/, int mostRows) override {
        db::ResultTable table({{statement, {}, db::ColumnType::Integer}});
        table.appendInteger(mostRows);
        return table;
    }
    void begin() override {}
    void commit() override { throw DatabaseError(3902, QStringLiteral("no transaction")); }
    void rollback() override {}
    [[nodiscard]] bool inTransaction() override { return script_.inTransaction; }
    [[nodiscard]] db::Link link() override { return db::Link::Replaced; }
    const db::TableInfo& describe(const QString& table) override {
        info_.identityColumn = table;
        return info_;
    }
    qint64 lastIdentity() override { return 42; }
    void cancel() override {
        const std::lock_guard lock(script_.mutex);
        script_.cancelled = true;
        script_.changed.notify_all();
    }

  private:
    Script& script_;
    db::TableInfo info_;
};

class BackgroundEngine : public testing::Test {
  protected:
    ~BackgroundEngine() override {
        db::ShowWaiting() = {};
        db::AskAboutWaitsAgain();
    }

    /// From now on whoever sees a wait gives it up.
    static void giveUp() {
        struct GivesUp final : db::Waiting {
            bool GoesOn() override { return false; }
        };
        db::ShowWaiting() = [] { return std::make_unique<GivesUp>(); };
    }
    DatabaseError failureOf(const std::function<void()>& step) {
        try {
            step();
        } catch (const DatabaseError& error) {
            return error;
        }
        return {0, {}};
    }

    Script script_;
    std::unique_ptr<db::Engine> engine_ =
        db::InBackground([this] { return std::make_unique<ScriptedEngine>(script_); });
};

}  // namespace

TEST_F(BackgroundEngine, IsMadeAndUsedOnOneThreadOfItsOwn) {
    engine_->execute("first");
    EXPECT_EQ(script_.executedOn, script_.madeOn);
    EXPECT_NE(script_.madeOn, std::this_thread::get_id());
}

TEST_F(BackgroundEngine, HandsEverythingOnAndTheAnswersBack) {
    script_.execute = [] { return qint64{5}; };
    EXPECT_EQ(engine_->execute("Update t Set a = ?", {1}), 5);
    EXPECT_EQ(script_.statement, "Update t Set a = ?");
    EXPECT_EQ(script_.bound, std::vector<Value>{1});
    EXPECT_EQ(engine_->query("q", {}, 3).at(0, 0).integer(), 3);
    EXPECT_EQ(engine_->mostRowsOfInsert(10), 100);
    EXPECT_EQ(engine_->insertNumbered("Insert Values", 7, "id", {2}).keys, (std::vector<qint64>{7, 8}));
    EXPECT_EQ(script_.statement, "Valuesid");
    EXPECT_EQ(script_.bound, std::vector<Value>{2});
    EXPECT_EQ(engine_->lockingHint(), " With (Care)");
    EXPECT_EQ(engine_->describe("Visits").identityColumn, "Visits");
    EXPECT_EQ(engine_->lastIdentity(), 42);
    EXPECT_EQ(engine_->link(), db::Link::Replaced);
    EXPECT_TRUE(engine_->inTransaction());
    EXPECT_EQ(engine_->queryTogether({"a", "b"}).size(), 2U);
}

TEST_F(BackgroundEngine, AFailureOfTheEngineIsTheCallersAndTheNextCallGoesOn) {
    EXPECT_EQ(failureOf([&] { engine_->commit(); }).number, 3902);
    script_.execute = []() -> qint64 { throw std::runtime_error("another"); };
    EXPECT_THROW(engine_->execute("x"), std::runtime_error);
    script_.execute = [] { return qint64{1}; };
    EXPECT_EQ(engine_->execute("x"), 1);
}

TEST_F(BackgroundEngine, AnEngineThatCannotBeMadeTellsWhy) {
    const DatabaseError error = failureOf([] {
        db::InBackground([]() -> std::unique_ptr<db::CancellableEngine> {
            throw DatabaseError(18456, QStringLiteral("Login failed."));
        });
    });
    EXPECT_EQ(error.number, 18456);
}

TEST_F(BackgroundEngine, AStatementThatTheUserGivesUpIsCancelledAndFailsAsGivenUp) {
    giveUp();
    script_.execute = [this]() -> qint64 {
        script_.awaitCancel();
        throw DatabaseError(0, QStringLiteral("Operation cancelled"), {}, QStringLiteral("HY008"));
    };
    const DatabaseError error = failureOf([&] { engine_->execute("x"); });
    EXPECT_EQ(error.number, db::GivenUp);
    EXPECT_EQ(error.description, db::GivenUpError(false).description);
    EXPECT_EQ(engine_->link(), db::Link::Replaced) << "the link is the engine's own to tell";
}

TEST_F(BackgroundEngine, AStatementThatWasCarriedOutAllTheSameGivesItsAnswer) {
    giveUp();
    script_.execute = [this] {
        script_.awaitCancel();
        return qint64{3};
    };
    EXPECT_EQ(engine_->execute("x"), 3);
}

TEST_F(BackgroundEngine, AStatementWhoseLockTimesOutIsSentAgain) {
    for (const DatabaseError& timeout : {DatabaseError(lockRequestTimeOut, QStringLiteral("x")),
                                         DatabaseError(0, QStringLiteral("canceling statement due to Lock Timeout"))}) {
        script_.executed = 0;
        script_.execute = [this, timeout] {
            if (script_.executed < 3)
                throw DatabaseError(timeout);
            return qint64{1};
        };
        EXPECT_EQ(engine_->execute("x"), 1);
        EXPECT_EQ(script_.executed, 3);
    }
}

TEST_F(BackgroundEngine, ALockTimeOutByWhichTheDatabaseEndedTheTransactionIsTold) {
    engine_->begin();
    script_.inTransaction = false;
    script_.execute = []() -> qint64 { throw DatabaseError(lockRequestTimeOut, QStringLiteral("lock")); };
    EXPECT_EQ(failureOf([&] { engine_->execute("x"); }).number, lockRequestTimeOut);
    EXPECT_EQ(script_.executed, 1);
}

TEST_F(BackgroundEngine, ALockTimeOutInATransactionThatStandsIsWaitedOut) {
    engine_->begin();
    script_.execute = [this] {
        if (script_.executed < 2)
            throw DatabaseError(lockRequestTimeOut, QStringLiteral("lock"));
        return qint64{1};
    };
    EXPECT_EQ(engine_->execute("x"), 1);
    engine_->rollback();
    script_.inTransaction = false;
    script_.executed = 0;
    EXPECT_EQ(engine_->execute("x"), 1) << "behind the transaction nobody looks for it";
}
