#include <gtest/gtest.h>

#include <memory>
#include <QProcess>
#include <QTemporaryDir>

#include "platform/database/connection.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/support/testdatabase.h"

namespace {

constexpr int longestWaitMilliseconds = 60'000;

/// A file that several programs write to at once.
class SharedFile : public testing::Test {
  protected:
    void SetUp() override {
        connection_.Create(text_);
        connection_.Execute(
            "Create Table Writes (id int Identity(1,1) Not Null Primary Key, desk nvarchar(20) Not Null, step int Not Null)");
        connection_.Execute("Create Table Total (id int Not Null Primary Key, n int Not Null)");
        connection_.Execute("Insert Into Total (id, n) Values (1, 0)");
    }

    std::unique_ptr<QProcess> startDesk(const QString& name, int steps) {
        auto desk = std::make_unique<QProcess>();
        desk->start(QStringLiteral(SVS_DATABASE_WRITER), {text_, name, QString::number(steps)});
        EXPECT_TRUE(desk->waitForStarted());
        return desk;
    }

    int number(const QString& statement) {
        const db::Recordset rows(statement, connection_);
        return static_cast<int>(rows[0].integer());
    }

    QTemporaryDir folder_{TestFolderTemplate()};
    QString text_ = QStringLiteral("Data Source=%1;Initial Catalog=shared").arg(folder_.path());
    db::Connection connection_;
};

}  // namespace

TEST_F(SharedFile, SeveralDesksWriteAtOnceAndNothingIsLost) {
    constexpr int desks = 4;
    constexpr int steps = 1'000;
    std::vector<std::unique_ptr<QProcess>> running;
    running.reserve(desks);
    for (int i = 0; i < desks; ++i)
        running.push_back(startDesk(QStringLiteral("desk %1").arg(i), steps));
    for (const auto& desk : running) {
        ASSERT_TRUE(desk->waitForFinished(longestWaitMilliseconds));
        EXPECT_EQ(desk->exitCode(), 0) << desk->readAllStandardError().toStdString();
    }
    EXPECT_EQ(number("Select n from Total"), desks * steps * 2);
    EXPECT_EQ(number("Select Count(*) from Writes"), desks * steps * 2);
    EXPECT_EQ(number("Select Count(*) from (Select desk, step from Writes Group By desk, step Having Count(*) = 2) w"),
              desks * steps);
}

TEST_F(SharedFile, ADeskThatIsKilledInMidWriteLeavesASoundFile) {
    for (int round = 0; round < 25; ++round) {
        const auto desk = startDesk(QStringLiteral("desk %1").arg(round), 1'000'000);
        ASSERT_TRUE(desk->waitForReadyRead(longestWaitMilliseconds));
        desk->kill();
        ASSERT_TRUE(desk->waitForFinished(longestWaitMilliseconds));
        const int rows = number("Select Count(*) from Writes");
        EXPECT_EQ(number("Select n from Total"), rows);
        EXPECT_EQ(
            number("Select Count(*) from (Select desk, step from Writes Group By desk, step Having Count(*) <> 2) w"),
            0);
    }
    connection_.Close();
    // As an ordinary tool of the file format sees it.
    db::Connection tool;
    tool.Open(QStringLiteral("DRIVER=SQLite3;Database=%1;LoadExt=%2")
                  .arg(folder_.filePath("shared.db"), SVS_DIALECT_EXTENSION));
    EXPECT_EQ(db::Recordset("pragma integrity_check", tool)[0].text(), "ok");
}
