// A connection whose link breaks off, behind the driver for a real server.

#include <gtest/gtest.h>

#include <memory>

#include "contract.h"
#include "platform/database/connectiontext.h"
#include "platform/database/transaction.h"
#include "platform/database/waiting.h"
#include "serverdouble.h"

using db::Connection;
using db::DatabaseError;
using db::Recordset;

namespace {

constexpr int transactionEnded = 3930;

/// A desk that is connected to a server; "0" is what every question is answered, how many transactions are open, too.
class BrokenLink : public testing::Test {
  protected:
    void SetUp() override { connection_.Open(text_); }

    /// The server goes, and another stands at its port.
    void startAnew() {
        const int port = server_->port();
        server_.reset();
        server_.reset(new ServerDouble(ServerDouble::answering("0", port)));
    }

    static QString textFor(int port) {
        return db::SqlServerText(
            db::ParseConnectionText(
                QStringLiteral("Data Source=127.0.0.1,%1;Initial Catalog=Solvane;User Id=SVMaster;Password=x;")
                    .arg(port)),
            {QStringLiteral("FreeTDS")});
    }
    QString read() { return Recordset("Select cell from t", connection_)[0].text(); }
    /// An observer of the rows of a table whose key, the column cell, the server assigns or not.
    void observeRows(bool isNumbered = false) {
        server_->answer("sys.columns", {"cell", "nvarchar", "40", "0", isNumbered ? "1" : "0", "0", "1"});
        connection_.Observe([this](const db::Write& write) { writes_.push_back(write); });
    }

    std::unique_ptr<ServerDouble> server_{new ServerDouble(ServerDouble::answering("0"))};
    QString text_ = textFor(server_->port());
    Connection connection_;
    std::vector<db::Write> writes_;
};

constexpr const char* nothingSaved = "The connection to the database broke off. Nothing of it is saved.";

}  // namespace

TEST_F(BrokenLink, AReadGoesOnWithANewLinkWithoutAWord) {
    EXPECT_EQ(read(), "0");
    for (int round = 0; round < 3; ++round) {
        server_->cutAll();
        EXPECT_EQ(read(), "0");
    }
    EXPECT_EQ(server_->logins(), 4);
}

TEST_F(BrokenLink, ATransactionThatBeginsAfterTheCutGoesOnWithANewLink) {
    server_->cutAll();
    EXPECT_NO_THROW(db::InTransaction(connection_, [&] { connection_.Execute("Update t Set a = 1"); }));
    EXPECT_EQ(server_->timesReceived("Update t Set a = 1"), 1);
    EXPECT_EQ(server_->timesReceived("Commit Transaction"), 1);
}

TEST_F(BrokenLink, AReadThatIsCutEachTimeIsToldAndNotTriedForEver) {
    server_->cutAt("Select cell");
    EXPECT_NE(FailureOf([&] { read(); }).number, 0);
    EXPECT_EQ(server_->timesReceived("Select cell"), 2);
}

TEST_F(BrokenLink, AWriteThatMayHaveBeenCarriedOutIsToldAndNeverSentAgain) {
    server_->cutAt("Update t Set a = 1");
    const DatabaseError error = FailureOf([&] { connection_.Execute("Update t Set a = 1"); });
    EXPECT_TRUE(db::IsLinkFailure(error));
    EXPECT_EQ(error.description,
              "The connection to the database broke off. Look whether the change is there before you make it again.");
    EXPECT_EQ(server_->timesReceived("Update t Set a = 1"), 1);
    EXPECT_EQ(connection_.Execute("Update t Set a = 2"), 1);
    EXPECT_EQ(server_->logins(), 2);
}

TEST_F(BrokenLink, ATransactionThatIsCutIsLostWholeAndToldOnce) {
    server_->cutAt("Update t Set a = 2");
    DatabaseError inside(0, {});
    DatabaseError behind(0, {});
    const DatabaseError error = FailureOf([&] {
        db::InTransaction(connection_, [&] {
            connection_.Execute("Update t Set a = 1");
            inside = FailureOf([&] { connection_.Execute("Update t Set a = 2"); });
            behind = FailureOf([&] { connection_.Execute("Update t Set a = 3"); });
        });
    });
    EXPECT_EQ(inside.description, nothingSaved);
    EXPECT_EQ(behind.number, transactionEnded);
    EXPECT_EQ(error.number, transactionEnded);
    EXPECT_FALSE(server_->received("Update t Set a = 3"));
    EXPECT_FALSE(server_->received("Commit Transaction"));
    EXPECT_EQ(connection_.Execute("Update t Set a = 4"), 1);
}

TEST_F(BrokenLink, ACommitThatIsCutTellsThatNobodyKnows) {
    server_->cutAt("Commit Transaction");
    const DatabaseError error =
        FailureOf([&] { db::InTransaction(connection_, [&] { connection_.Execute("Update t Set a = 1"); }); });
    EXPECT_TRUE(error.description.contains("Look whether the change is there")) << error.what();
    EXPECT_EQ(read(), "0");
}

TEST_F(BrokenLink, AServerThatIsAwayIsToldAndReachedOnceItIsBack) {
    const int port = server_->port();
    server_.reset();
    for (int round = 0; round < 2; ++round) {
        const DatabaseError error = FailureOf([&] { read(); });
        EXPECT_TRUE(db::IsLinkFailure(error));
        EXPECT_TRUE(error.description.startsWith("SQL Server does not exist or access denied.")) << error.what();
        EXPECT_TRUE(connection_.IsOpen());
    }
    server_.reset(new ServerDouble(ServerDouble::answering("0", port)));
    EXPECT_EQ(read(), "0");
}

TEST_F(BrokenLink, ARecordsetThatWasReadStaysUsable) {
    const Recordset rows("Select cell from t", connection_);
    startAnew();
    EXPECT_EQ(rows["cell"].text(), "0");
    EXPECT_EQ(read(), "0");
    EXPECT_EQ(rows["cell"].text(), "0");
}

TEST_F(BrokenLink, ARollbackThatIsRefusedLeavesNoTransactionOpen) {
    server_->refuse("Rollback Transaction",
                    {3903, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION."});
    connection_.BeginTrans();
    EXPECT_EQ(FailureOf([&] { connection_.RollbackTrans(); }).number, 3903);
    EXPECT_EQ(FailureOf([&] { connection_.BeginTrans(); }).number, 0);
    EXPECT_EQ(server_->logins(), 2);  // Whatever the old link still had open has gone with it.
}

TEST_F(BrokenLink, AfterAFaultByWhichTheServerEndedTheTransactionNothingIsStoredAlone) {
    server_->refuse("Update t Set a = 1", {1205, "Transaction was deadlocked. Rerun the transaction."});
    const DatabaseError error = FailureOf([&] {
        db::InTransaction(connection_, [&] {
            EXPECT_EQ(FailureOf([&] { connection_.Execute("Update t Set a = 1"); }).number, 1205);
            connection_.Execute("Update t Set a = 2");
        });
    });
    EXPECT_EQ(error.number, transactionEnded);
    EXPECT_FALSE(server_->received("Update t Set a = 2"));
    EXPECT_EQ(connection_.Execute("Update t Set a = 3"), 1);
}

TEST_F(BrokenLink, TheRowsOfAnObservedWriteAreReadUnderItsLocksBeforeAndAfterIt) {
    observeRows();
    connection_.Execute("Update t Set a = 1 Where b = 2");
    EXPECT_EQ(server_->timesReceived("Select * From t With (UpdLock) Where b = 2 Order By [cell]"), 1);
    EXPECT_EQ(server_->timesReceived("Select * From t Where ([cell] = "), 1);
    EXPECT_EQ(server_->timesReceived("Commit Transaction"), 1);
    ASSERT_EQ(writes_.size(), 1U);
    EXPECT_TRUE(writes_.front().rowsAreTold);
}

TEST_F(BrokenLink, AnObservedWriteThatIsCutOnItsWaySavesNothingAndIsNotTold) {
    for (const char* step : {"Select * From t With (UpdLock) Where b = 1", "Update t Set a = 1 Where b = 2",
                             "Select * From t Where ([cell]"}) {
        observeRows();
        server_->cutAt(step);
        const QString condition = QString::fromUtf8(step).section(u' ', -1) == QLatin1String("1") ? "1" : "2";
        const DatabaseError error =
            FailureOf([&] { connection_.Execute(QStringLiteral("Update t Set a = 1 Where b = ") + condition); });
        EXPECT_TRUE(db::IsLinkFailure(error)) << step;
        EXPECT_EQ(error.description, nothingSaved) << step;
        EXPECT_FALSE(server_->received("Commit Transaction")) << step;
        EXPECT_TRUE(writes_.empty()) << step;
        startAnew();
    }
}

TEST_F(BrokenLink, AnObservedWriteWhoseCommitIsCutIsNotTold) {
    observeRows();
    server_->cutAt("Commit Transaction");
    const DatabaseError error = FailureOf([&] { connection_.Execute("Update t Set a = 1"); });
    EXPECT_TRUE(error.description.contains("Look whether the change is there")) << error.what();
    EXPECT_TRUE(writes_.empty());
    connection_.Observe({});
    EXPECT_EQ(connection_.Execute("Update t Set a = 2"), 1);
}

TEST_F(BrokenLink, ARowThatCannotBeReadIsWrittenAllTheSame) {
    observeRows();
    server_->answer("@@TranCount", {"1"});
    server_->refuse("Select * From t", {229, "The SELECT permission was denied on the object 't'."});
    EXPECT_EQ(connection_.Execute("Update t Set a = 1"), 1);
    EXPECT_EQ(server_->timesReceived("Update t Set a = 1"), 1);
    EXPECT_EQ(server_->timesReceived("Commit Transaction"), 1);
    ASSERT_EQ(writes_.size(), 1U);
    EXPECT_EQ(writes_.front().rows, 1);
    EXPECT_FALSE(writes_.front().rowsAreTold);
}

TEST_F(BrokenLink, AFaultOfTheConditionByWhichTheServerEndsTheTransactionIsTheWritesOwn) {
    observeRows();
    server_->refuse("Select * From t", {245, "Conversion failed when converting a value."});
    const DatabaseError error = FailureOf([&] { connection_.Execute("Update t Set a = 1 Where b = 'x'"); });
    EXPECT_EQ(error.number, 245);
    EXPECT_EQ(error.statement, "Update t Set a = 1 Where b = 'x'");
    EXPECT_FALSE(server_->received("Update t"));
    EXPECT_EQ(FailureOf([&] { connection_.BeginTrans(); }).number, 0);
}

TEST_F(BrokenLink, AWaitForTheRowsThatTheUserGivesUpLeavesThemUnwritten) {
    struct GivesUp final : db::Waiting {
        bool GoesOn() override { return false; }
    };
    observeRows();
    server_->answer("@@TranCount", {"1"});
    server_->refuse("Select * From t", {1222, "Lock request time out period exceeded."});
    db::ShowWaiting() = [] { return std::make_unique<GivesUp>(); };
    const DatabaseError error = FailureOf([&] { connection_.Execute("Update t Set a = 1"); });
    db::ShowWaiting() = {};
    db::AskAboutWaitsAgain();
    EXPECT_EQ(error.number, db::GivenUp);
    EXPECT_FALSE(server_->received("Update t Set a = 1"));
    EXPECT_TRUE(writes_.empty());
    server_->cutAll();  // A statement that nobody cancels in time keeps its link, and the server has one caller.
    EXPECT_EQ(FailureOf([&] { connection_.BeginTrans(); }).number, 0);
}

TEST_F(BrokenLink, RowsThatAreNotAsManyAsWereWrittenAreNotTold) {
    observeRows();
    server_->answer("Scope_Identity", {"8", "2"});
    EXPECT_EQ(connection_.Execute("Insert Into t (cell) Values ('0'), ('1')"), 2);
    ASSERT_EQ(writes_.size(), 1U);
    EXPECT_FALSE(writes_.front().rowsAreTold);
    EXPECT_TRUE(writes_.front().changes.empty());
}

TEST_F(BrokenLink, RowsWhoseTriggerKeepsTheServerFromTellingTheirKeysAreInsertedAllTheSame) {
    observeRows(true);
    server_->answer("Scope_Identity", {"8", "2"});
    server_->refuse("Output Inserted.[cell]", {334, "The target table of the DML statement has enabled triggers."});
    server_->answer("@@TranCount", {"1"});
    EXPECT_EQ(connection_.Execute("Insert Into t (a) Values (1), (2)"), 2);
    EXPECT_EQ(connection_.LastIdentity(), 8);
    ASSERT_EQ(writes_.size(), 1U);
    EXPECT_EQ(writes_.front().rows, 2);
    EXPECT_FALSE(writes_.front().rowsAreTold);
}
