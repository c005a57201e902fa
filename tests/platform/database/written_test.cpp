// What OnWritten tells: the tables of the writes that are stored, beside an observer and without one.

#include "contract.h"
#include "platform/database/transaction.h"

using db::Lock;
using db::Recordset;

namespace {

class WrittenTables {
  public:
    explicit WrittenTables(db::Connection& connection) : connection_(connection) {
        connection_.OnWritten([this](const QString& table) { tables << table; });
    }
    ~WrittenTables() { connection_.OnWritten({}); }
    WrittenTables(const WrittenTables&) = delete;
    WrittenTables& operator=(const WrittenTables&) = delete;

    QStringList tables;

  private:
    db::Connection& connection_;
};

}  // namespace

TEST_P(DatabaseContract, TheTableOfEachWriteIsToldAndOfNoRead) {
    const WrittenTables written(connection_);
    addVisit("Ann", 600);
    EXPECT_EQ(written.tables, QStringList{"Visits"});
    Recordset row("Select nkeyid, cappttext from Visits", connection_, Lock::Optimistic);
    EXPECT_EQ(written.tables.size(), 1);
    row.Set("cappttext", "Bob");
    row.Update();
    EXPECT_EQ(written.tables, (QStringList{"Visits", "Visits"}));
}

TEST_P(DatabaseContract, TheTablesOfATransactionAreToldAfterItsCommitAndNotAfterARollback) {
    const WrittenTables written(connection_);
    db::InTransaction(connection_, [&] {
        addVisit("Ann", 600);
        EXPECT_TRUE(written.tables.isEmpty());
    });
    EXPECT_EQ(written.tables, QStringList{"Visits"});
    connection_.BeginTrans();
    addVisit("Bob", 660);
    connection_.RollbackTrans();
    EXPECT_EQ(written.tables.size(), 1);
}

TEST_P(DatabaseContract, TheTablesAreToldBesideAnObserver) {
    const WrittenTables written(connection_);
    int observed = 0;
    connection_.Observe([&observed](const db::Write&) { ++observed; });
    db::InTransaction(connection_, [&] { addVisit("Ann", 600); });
    addVisit("Bob", 660);
    connection_.Observe({});
    EXPECT_EQ(observed, 2);
    EXPECT_EQ(written.tables.size(), 2);
}

TEST_P(DatabaseContract, ASessionBesideReadsWhatWasWritten) {
    addVisit("Ann", 600);
    const auto beside = connection_.Beside();
    EXPECT_EQ(beside != nullptr, GetParam() != EngineKind::Memory) << "A database in memory is its connection's alone.";
    if (beside) {
        EXPECT_EQ(beside()->query("Select cappttext from Visits").at(0, 0).text(), "Ann");
    }
    EXPECT_FALSE(db::Connection().Beside()) << "A closed connection has no other beside it.";
}
