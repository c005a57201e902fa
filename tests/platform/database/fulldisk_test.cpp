#include <gtest/gtest.h>

#include <sys/resource.h>
#include <csignal>
#include <QTemporaryDir>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"

namespace {

/// Files may not grow beyond this size while it lives: what a full disk looks like to the engine.
class FullDisk {
  public:
    explicit FullDisk(qint64 bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit full = before_;
        full.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
    void (*oldHandler_)(int);
};

}  // namespace

TEST(FullDiskTest, ATransactionThatCannotBeStoredLeavesTheConnectionUsable) {
    const QTemporaryDir folder;
    db::Connection connection;
    connection.Create(QStringLiteral("Data Source=%1;Initial Catalog=practice;").arg(folder.path()));
    connection.Execute("Create Table notes (id int identity(1,1) primary key, note ntext)");
    connection.Execute("Insert Into notes (note) Values ('before')");
    const QString large = QStringLiteral("x").repeated(4'000'000);

    {
        const FullDisk disk(1'000'000);
        connection.BeginTrans();
        connection.Execute(db::Sql("Insert Into notes (note) Values ('{}')", large));
        EXPECT_THROW(connection.CommitTrans(), db::DatabaseError);
        EXPECT_NO_THROW(connection.RollbackTrans());
    }
    connection.BeginTrans();
    connection.Execute("Insert Into notes (note) Values ('after')");
    connection.CommitTrans();

    const db::Recordset notes("Select * from notes Order by id", connection);
    ASSERT_EQ(notes.RecordCount(), 2);
    EXPECT_EQ(notes["note"].text(), QStringLiteral("before"));
}
