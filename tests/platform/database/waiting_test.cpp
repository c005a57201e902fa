// A statement that has to wait is shown, and can be given up.

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>
#include <memory>
#include <QElapsedTimer>
#include <utility>

#include "contract.h"
#include "platform/database/connectiontext.h"
#include "platform/database/transaction.h"
#include "platform/database/waiting.h"
#include "serverdouble.h"

using db::Connection;

namespace {

/// Stands for the user who sees a wait: counts the waits shown, and gives up after a while.
class Onlooker {
  public:
    static constexpr int Never = 1'000'000;

    explicit Onlooker(int givesUpAfter = Never) : givesUpAfter_(givesUpAfter) {
        since_.start();
        db::ShowWaiting() = [this] { return std::make_unique<Shown>(*this); };
    }
    ~Onlooker() {
        db::ShowWaiting() = {};
        db::AskAboutWaitsAgain();
    }
    Onlooker(const Onlooker&) = delete;
    Onlooker& operator=(const Onlooker&) = delete;

    int shown = 0;
    int standing = 0;
    qint64 firstAfter = 0;
    std::function<void()> meanwhile;  ///< What else the program would do while the wait is shown.

  private:
    class Shown final : public db::Waiting {
      public:
        explicit Shown(Onlooker& onlooker) : onlooker_(onlooker) {
            if (onlooker_.shown++ == 0)
                onlooker_.firstAfter = onlooker_.since_.elapsed();
            ++onlooker_.standing;
            since_.start();
        }
        ~Shown() override { --onlooker_.standing; }
        bool GoesOn() override {
            if (onlooker_.meanwhile)
                std::exchange(onlooker_.meanwhile, {})();
            return since_.elapsed() < onlooker_.givesUpAfter_;
        }

      private:
        Onlooker& onlooker_;
        QElapsedTimer since_;
    };

    int givesUpAfter_;
    QElapsedTimer since_;
};

/// A port of this computer at which calls are taken and nobody speaks.
class SilentPort {
  public:
    SilentPort() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof(address);
        auto* place = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, place, length), 0);
        EXPECT_EQ(::listen(socket_, 4), 0);
        EXPECT_EQ(::getsockname(socket_, place, &length), 0);
        number_ = ntohs(address.sin_port);
    }
    ~SilentPort() { ::close(socket_); }
    SilentPort(const SilentPort&) = delete;
    SilentPort& operator=(const SilentPort&) = delete;

    [[nodiscard]] int number() const { return number_; }

  private:
    int socket_;
    int number_ = 0;
};

/// Another desk, in the middle of a change of every visit.
void writeAt(Connection& other, const QString& connectionText) {
    other.Open(connectionText);
    other.BeginTrans();
    other.Execute("Update Visits Set cappttext = 'theirs'");
}

}  // namespace

TEST_P(DatabaseContract, AWaitForAnotherDesksLockIsShownWithinASecondAndCanBeGivenUp) {
    if (GetParam() != EngineKind::File && GetParam() != EngineKind::Server)
        GTEST_SKIP() << "Nobody else can hold a lock here, or the driver waits by itself.";
    const int key = addVisit("Ann");
    Connection other;
    writeAt(other, connectionText());

    Onlooker onlooker(300);
    db::DatabaseError nested(0, {});
    db::DatabaseError identity(0, {});
    onlooker.meanwhile = [&] {
        nested = FailureOf([&] { static_cast<void>(count()); });
        identity = FailureOf([&] { static_cast<void>(connection_.LastIdentity()); });
    };
    const auto error = FailureOf([&] { connection_.Execute("Update Visits Set cappttext = 'ours'"); });
    EXPECT_EQ(error.number, db::GivenUp) << error.what();
    EXPECT_EQ(onlooker.shown, 1);
    EXPECT_EQ(onlooker.standing, 0);
    EXPECT_GE(onlooker.firstAfter, 600);
    EXPECT_LT(onlooker.firstAfter, 3'000);
    EXPECT_EQ(nested.number, 3711) << "Nothing else may use the connection meanwhile.";
    EXPECT_EQ(identity.number, 3711);

    // The rest of the routine does not ask again.
    EXPECT_EQ(FailureOf([&] { connection_.Execute("Update Visits Set cappttext = 'ours'"); }).number, db::GivenUp);
    EXPECT_EQ(onlooker.shown, 1);

    db::AskAboutWaitsAgain();
    other.RollbackTrans();
    EXPECT_EQ(textOf(key), "Ann");
    EXPECT_EQ(connection_.Execute("Update Visits Set cappttext = 'ours'"), 1);
    EXPECT_EQ(textOf(key), "ours");
}

TEST_P(DatabaseContract, AWaitEndsWithTheOtherDesksLock) {
    if (GetParam() != EngineKind::File && GetParam() != EngineKind::Server)
        GTEST_SKIP() << "Nobody else can hold a lock here, or the driver waits by itself.";
    const int key = addVisit("Ann");
    Connection other;
    writeAt(other, connectionText());
    Onlooker onlooker;
    onlooker.meanwhile = [&] { other.CommitTrans(); };
    EXPECT_NO_THROW(db::InTransaction(
        connection_, [&] { connection_.Execute("Update Visits Set cappttext = cappttext + ' and ours'"); }));
    EXPECT_EQ(onlooker.shown, 1);
    EXPECT_EQ(onlooker.standing, 0);
    EXPECT_EQ(textOf(key), "theirs and ours");
}

TEST_P(DatabaseContract, ATransactionIsNotRolledBackUnderAStatementThatWaits) {
    if (GetParam() != EngineKind::Server)
        GTEST_SKIP() << "Within a transaction nobody waits here, or the driver waits by itself.";
    const int key = addVisit("Ann");
    Connection other;
    writeAt(other, connectionText());
    Onlooker onlooker;
    db::DatabaseError nested(0, {});
    onlooker.meanwhile = [&] {
        nested = FailureOf([&] { connection_.RollbackTrans(); });
        other.RollbackTrans();
    };
    db::InTransaction(connection_, [&] { connection_.Execute("Update Visits Set cappttext = 'ours'"); });
    EXPECT_EQ(nested.number, 3711);
    EXPECT_EQ(textOf(key), "ours");
}

TEST_P(DatabaseContract, AQuickStatementShowsNothing) {
    const Onlooker onlooker;
    addVisit("Ann");
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(onlooker.shown, 0);
}

TEST(Waiting, AServerThatNeverAnswersIsLeftAloneAndTheNextStatementHasANewLink) {
    const std::unique_ptr<ServerDouble> server(new ServerDouble(ServerDouble::answering("0")));
    Connection connection;
    connection.Open(db::SqlServerText(
        db::ParseConnectionText(
            QStringLiteral("Data Source=127.0.0.1,%1;Initial Catalog=Solvane;User Id=SVMaster;Password=x;")
                .arg(server->port())),
        {QStringLiteral("FreeTDS")}));
    server->keepSilentAt("Update t Set a = 1");
    const Onlooker onlooker(100);
    const auto error = FailureOf([&] { connection.Execute("Update t Set a = 1"); });
    EXPECT_EQ(error.number, db::GivenUp);
    EXPECT_TRUE(error.description.contains("Look whether the change is there")) << error.what();
    server->cutAll();
    EXPECT_EQ(connection.Execute("Update t Set a = 2"), 1);
    EXPECT_EQ(server->logins(), 2);
}

TEST(Waiting, ALoginThatNobodyAnswersIsShownAndCanBeGivenUp) {
    const SilentPort silent;
    Connection connection;
    const Onlooker onlooker(100);
    QElapsedTimer took;
    took.start();
    const auto error = FailureOf([&] {
        connection.Open(db::SqlServerText(
            db::ParseConnectionText(
                QStringLiteral("Data Source=127.0.0.1,%1;Initial Catalog=Solvane;User Id=SVMaster;Password=x;")
                    .arg(silent.number())),
            {QStringLiteral("FreeTDS")}));
    });
    EXPECT_EQ(error.number, db::GivenUp) << error.what();
    EXPECT_TRUE(error.description.contains("Nothing of it was saved")) << error.what();
    EXPECT_EQ(onlooker.shown, 1);
    EXPECT_LT(took.elapsed(), 4'000) << "The server may take five seconds.";
    EXPECT_FALSE(connection.IsOpen());
}
