// Faults within a transaction, some of which make the server end it by itself.

#include <atomic>
#include <thread>

#include "contract.h"
#include "platform/database/transaction.h"

using db::Connection;
using db::Lock;
using db::Recordset;

namespace {

struct Fault {
    const char* what;
    std::function<void(Connection&)> step;
};

void changeARowThatIsGone(Connection& connection) {
    Recordset rows("Select * from Visits Where cappttext = 'before'", connection, Lock::Optimistic);
    connection.Execute("Delete from Visits Where cappttext = 'before'");
    rows.Set("cappttext", "changed");
    rows.Update();
}

std::vector<Fault> everyKindOfFault() {
    const auto sending = [](const char* statement) {
        return [statement](Connection& connection) { connection.Execute(statement); };
    };
    return {
        {"unknown table", sending("Delete from NoSuchTable")},
        {"unknown column", sending("Update Visits Set nosuchcolumn = 1")},
        {"syntax", sending("Update Visits Where Set")},
        {"null where none may be", sending("Insert Into VisitGuests (nkeyid, clinicianid) Values (1, Null)")},
        {"key that is there", sending("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')")},
        {"text too long",
         [](Connection& connection) {
             connection.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (?, ?)",
                                {8, QString(300, QLatin1Char('x'))});
         }},
        {"text that is no number", sending("Update Visits Set nStartTime = 'soon'")},
        {"text that is no date", sending("Update Visits Set dapptdate = 'someday'")},
        {"number too large", sending("Update Visits Set nStartTime = 99999")},
        {"row that is gone", changeARowThatIsGone},
    };
}

/// Waits for the other thread, so that each holds its first row before it asks for the second.
void meet(std::atomic<int>& arrived) {
    ++arrived;
    while (arrived < 2)
        std::this_thread::yield();
}

}  // namespace

TEST_P(DatabaseContract, AfterAnyFaultInATransactionTheNextWriteIsSeenByAnotherDesk) {
    if (!isShared())
        GTEST_SKIP() << "A private database has one desk.";
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')");
    Connection other;
    other.Open(connectionText());
    int written = 0;
    for (const Fault& fault : everyKindOfFault()) {
        SCOPED_TRACE(fault.what);
        const int before = addVisit("before");
        bool failed = false;
        EXPECT_EQ(FailureOf([&] {
                      db::InTransaction(connection_, [&] {
                          addVisit("lost");
                          failed = FailureOf([&] { fault.step(connection_); }).number != 0;
                          if (failed)
                              throw db::DatabaseError(1, "given up");
                      });
                  }).number != 0,
                  failed);
        EXPECT_TRUE(failed || !hasServerNumbers());
        if (failed) {
            EXPECT_EQ(count("cappttext = 'lost'"), 0);
            EXPECT_EQ(textOf(before), "before");
        }
        addVisit("after");
        ++written;
        EXPECT_EQ(Recordset("Select * from Visits Where cappttext = 'after'", other).RecordCount(), written);
        other.Execute("Delete from Visits Where cappttext In ('before', 'lost')");
    }
}

TEST_P(DatabaseContract, ATransactionThatPassesOverAFaultIsStoredWholeOrNotAtAll) {
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')");
    for (const Fault& fault : everyKindOfFault()) {
        SCOPED_TRACE(fault.what);
        addVisit("before");
        const bool committed = FailureOf([&] {
                                   db::InTransaction(connection_, [&] {
                                       addVisit("one");
                                       db::Ignoring([&] { fault.step(connection_); });
                                       db::Ignoring([&] { addVisit("two"); });
                                   });
                               }).number == 0;
        EXPECT_EQ(count("cappttext In ('one', 'two')"), committed ? 2 : 0);
        connection_.Execute("Delete from Visits");
    }
}

TEST_P(DatabaseContract, ADeadlockCostsOneDeskItsTransactionAndNothingMore) {
    if (GetParam() != EngineKind::Server)
        GTEST_SKIP() << "One desk at a time writes to a file: no two can wait for each other.";
    const int first = addVisit("first");
    const int second = addVisit("second");
    Connection other;
    other.Open(connectionText());
    std::atomic<int> arrived = 0;
    const auto change = [&](Connection& desk, const char* name, int mine, int theirs) {
        return FailureOf([&] {
            db::InTransaction(desk, [&] {
                desk.Execute(db::Sql("Update Visits Set cappttext = '{}' Where nkeyid = {}", name, mine));
                meet(arrived);
                desk.Execute(db::Sql("Update Visits Set cappttext = '{}' Where nkeyid = {}", name, theirs));
            });
        });
    };
    db::DatabaseError theirs(0, {});
    std::thread desk([&] { theirs = change(other, "theirs", second, first); });
    const db::DatabaseError ours = change(connection_, "ours", first, second);
    desk.join();
    EXPECT_EQ(ours.number + theirs.number, 1205) << ours.what() << theirs.what();
    EXPECT_EQ(textOf(first), ours.number == 0 ? "ours" : "theirs");
    EXPECT_EQ(textOf(second), textOf(first));
    other.Execute(db::Sql("Update Visits Set cappttext = 'theirs again' Where nkeyid = {}", second));
    EXPECT_EQ(textOf(second), "theirs again");
    connection_.Execute(db::Sql("Update Visits Set cappttext = 'ours again' Where nkeyid = {}", first));
    EXPECT_EQ(Recordset(db::Sql("Select cappttext from Visits Where nkeyid = {}", first), other)[0].text(),
              "ours again");
}
