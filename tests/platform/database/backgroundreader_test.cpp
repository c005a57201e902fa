#include "platform/database/backgroundreader.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <QTest>
#include <thread>
#include <utility>

using db::BackgroundReader;
using db::DatabaseError;

namespace {

/// What the engines of a test do, and what was asked of them.
struct Script {
    std::mutex mutex;
    std::condition_variable changed;
    bool held = false;      ///< A statement waits until this is taken back, as for the lock of another desk.
    int cuts = 0;           ///< So many statements break the link off.
    bool replaced = false;  ///< The next statement finds another database in the place of the one that was opened.
    std::atomic<int> made{0};
    std::thread::id thread;

    void hold(bool holds) {
        const std::lock_guard lock(mutex);
        held = holds;
        changed.notify_all();
    }
};

class ScriptedEngine final : public db::Engine {
  public:
    explicit ScriptedEngine(std::shared_ptr<Script> script) : script_(std::move(script)) {
        ++script_->made;
        script_->thread = std::this_thread::get_id();
    }
    qint64 execute(const QString&, const std::vector<db::Value>&) override { return 0; }
    db::ResultTable query(const QString& statement, const std::vector<db::Value>&, int) override {
        std::unique_lock lock(script_->mutex);
        script_->changed.wait(lock, [this] { return !script_->held; });
        if (script_->cuts > 0) {
            --script_->cuts;
            link_ = db::Link::Cut;
            throw DatabaseError(11, QStringLiteral("cut"));
        }
        if (std::exchange(script_->replaced, false))
            link_ = db::Link::Replaced;
        if (link_ == db::Link::Replaced)
            throw DatabaseError(26, QStringLiteral("another database"));
        if (statement == QLatin1String("bad"))
            throw DatabaseError(208, QStringLiteral("no such table"), statement);
        db::ResultTable table({{QStringLiteral("text"), {}, db::ColumnType::Text}});
        table.appendText(statement.toUtf8());
        return table;
    }
    void begin() override {}
    void commit() override {}
    void rollback() override {}
    [[nodiscard]] bool inTransaction() override { return false; }
    [[nodiscard]] db::Link link() override { return link_; }
    const db::TableInfo& describe(const QString&) override { return info_; }
    qint64 lastIdentity() override { return 0; }

  private:
    std::shared_ptr<Script> script_;
    db::Link link_ = db::Link::Whole;
    db::TableInfo info_;
};

class BackgroundReading : public testing::Test {
  protected:
    [[nodiscard]] BackgroundReader::MakeEngine make() {
        return [script = script_] { return std::make_unique<ScriptedEngine>(script); };
    }
    BackgroundReader::Answer read(const QStringList& statements) {
        std::optional<BackgroundReader::Answer> answer;
        reader_->Read(make(), statements, [&answer](BackgroundReader::Answer read) { answer = std::move(read); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }));
        return answer.value_or(BackgroundReader::Answer{});
    }

    std::shared_ptr<Script> script_ = std::make_shared<Script>();
    std::unique_ptr<BackgroundReader> reader_ = std::make_unique<BackgroundReader>();
};

}  // namespace

TEST_F(BackgroundReading, GivesATableForEachStatementFromAThreadOfItsOwn) {
    const BackgroundReader::Answer answer = read({"one", "two"});
    EXPECT_FALSE(answer.failure);
    ASSERT_EQ(answer.tables.size(), 2U);
    EXPECT_EQ(answer.tables[1].at(0, 0).text(), "two");
    EXPECT_NE(script_->thread, std::this_thread::get_id());
    read({"three"});
    EXPECT_EQ(script_->made, 1) << "The session is kept.";
}

TEST_F(BackgroundReading, NeverHoldsUpWhoAsksForIt) {
    script_->hold(true);
    int answers = 0;
    reader_->Read(make(), {"one"}, [&answers](const BackgroundReader::Answer&) { ++answers; });
    EXPECT_TRUE(reader_->IsReading());
    reader_->Read(make(), {"two"}, [&answers](const BackgroundReader::Answer&) { answers += 100; });
    QCoreApplication::processEvents();
    EXPECT_EQ(answers, 0);
    script_->hold(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !reader_->IsReading(); }));
    EXPECT_EQ(answers, 1) << "While one read is under way, no other begins.";
}

TEST_F(BackgroundReading, AFailureIsThatOfTheFirstStatementWithoutATable) {
    const BackgroundReader::Answer answer = read({"one", "bad", "two"});
    EXPECT_EQ(answer.tables.size(), 1U);
    ASSERT_TRUE(answer.failure);
    EXPECT_EQ(answer.failure->number, 208);
    EXPECT_EQ(read({"two"}).tables.size(), 1U) << "It goes on afterwards.";
}

TEST_F(BackgroundReading, ASessionThatBrokeOffIsOpenedAnewOnceWithinARead) {
    read({"one"});
    script_->cuts = 2;  // Sent together with others, and alone for its reason.
    EXPECT_EQ(read({"one"}).tables.size(), 1U);
    EXPECT_EQ(script_->made, 2);
    script_->cuts = 4;
    EXPECT_TRUE(read({"one"}).failure);
    EXPECT_TRUE(read({"one"}).tables.size() == 1U) << "The next read tries again.";
}

TEST_F(BackgroundReading, ADatabaseThatWasReplacedIsNotReadUntilTheReaderIsMadeAnew) {
    read({"one"});
    script_->replaced = true;
    EXPECT_TRUE(read({"one"}).failure);
    const BackgroundReader::Answer answer = read({"one"});
    EXPECT_TRUE(answer.tables.empty());
    ASSERT_TRUE(answer.failure);
    EXPECT_EQ(answer.failure->number, 26);
    EXPECT_EQ(script_->made, 1);
    reader_ = std::make_unique<BackgroundReader>();
    EXPECT_EQ(read({"one"}).tables.size(), 1U);
}

TEST_F(BackgroundReading, ASessionThatCannotBeOpenedTellsWhy) {
    std::optional<BackgroundReader::Answer> answer;
    reader_->Read([]() -> std::unique_ptr<db::Engine> { throw DatabaseError(4060, QStringLiteral("no database")); },
                  {"one"}, [&answer](BackgroundReader::Answer read) { answer = std::move(read); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }));
    ASSERT_TRUE(answer->failure);
    EXPECT_EQ(answer->failure->number, 4060);
}

TEST_F(BackgroundReading, AReaderThatGoesWhileItReadsTellsNobody) {
    script_->hold(true);
    bool told = false;
    reader_->Read(make(), {"one"}, [&told](const BackgroundReader::Answer&) { told = true; });
    reader_.reset();  // At once, although the database does not answer.
    script_->hold(false);
    // The thread lets go of the script when it has ended, behind its answer.
    EXPECT_TRUE(QTest::qWaitFor([this] { return script_.use_count() == 1; }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(told);
}
