#include "platform/database/engine.h"

#include <gtest/gtest.h>

#include "platform/database/error.h"

using db::Numbered;
using db::TableInfo;

namespace {

/// An engine that nobody else writes to: what it answers is told by the test.
class LoneEngine final : public db::Engine {
  public:
    qint64 execute(const QString& statement, const std::vector<db::Value>& /*bound*/) override {
        executed << statement;
        return rows;
    }
    db::ResultTable query(const QString& statement, const std::vector<db::Value>& /*bound*/,
                          int /*mostRows*/) override {
        if (statement == QLatin1String("bad"))
            throw db::DatabaseError(102, QStringLiteral("bad"));
        return db::ResultTable({{statement, {}, db::ColumnType::Text}});
    }
    void begin() override {}
    void commit() override {}
    void rollback() override {}
    [[nodiscard]] bool inTransaction() override { return false; }
    [[nodiscard]] db::Link link() override { return db::Link::Whole; }
    const TableInfo& describe(const QString& /*table*/) override { return info; }
    qint64 lastIdentity() override { return last; }

    qint64 rows = 0;
    qint64 last = 0;
    TableInfo info;
    QStringList executed;
};

}  // namespace

TEST(Engine, TheKeysOfInsertedRowsEndWithTheLastOne) {
    LoneEngine engine;
    engine.rows = 3;
    engine.last = 12;
    const Numbered inserted = engine.insertNumbered("Insert", 0, "id", {});
    EXPECT_EQ(inserted.rows, 3);
    EXPECT_EQ(inserted.keys, (std::vector<qint64>{10, 11, 12}));
    EXPECT_EQ(engine.executed, QStringList{"Insert"});
}

TEST(Engine, WhereNothingWasInsertedThereAreNoKeys) {
    LoneEngine engine;
    engine.last = 12;
    EXPECT_TRUE(engine.insertNumbered("Insert", 0, "id", {}).keys.empty());
}

TEST(Engine, StatementsAreReadTogetherUpToTheFirstThatFails) {
    LoneEngine engine;
    const auto tables = engine.queryTogether({"a", "b", "bad", "c"});
    ASSERT_EQ(tables.size(), 2U);
    EXPECT_EQ(tables[1].columns().front().name, "b");
    EXPECT_TRUE(engine.queryTogether({}).empty());
}

TEST(Engine, NothingIsGainedByInsertsOfSeveralRowsAndNobodyIsLockedOut) {
    const LoneEngine engine;
    EXPECT_EQ(engine.mostRowsOfInsert(5), 1);
    EXPECT_EQ(engine.lockingHint(), "");
}

TEST(Engine, ARowIsToldFromOthersByThePrimaryKeyOrByTheNumberThatTheDatabaseGives) {
    TableInfo table;
    EXPECT_TRUE(table.RowKey().empty());
    table.identityColumn = QStringLiteral("id");
    EXPECT_EQ(table.RowKey(), std::vector<QString>{"id"});
    table.keyColumns = {"name", "day"};
    EXPECT_EQ(table.RowKey(), (std::vector<QString>{"name", "day"}));
}
