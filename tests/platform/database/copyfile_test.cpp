// Copies of an embedded database's file, and their way back.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "contract.h"
#include "platform/database/embedded/copyfile.h"
#include "platform/database/recordset.h"
#include "tests/support/files.h"
#include "tests/support/fulldisk.h"

using db::Connection;
using db::CopyDatabaseFile;
using db::DamagesOf;
using db::Recordset;
using db::RestoreDatabaseFile;

namespace {

class CopiedFile : public testing::Test {
  protected:
    CopiedFile() {
        connection_.Create(textOf(QStringLiteral("schedule")));
        connection_.Execute(
            "Create Table Visits (id int Identity(1,1) Not Null Primary Key, name nvarchar(max), day datetime, provider nvarchar(20))");
        connection_.Execute("Create Index Visits_day On Visits (provider, day)");
        add(QStringLiteral("O'Brien"));
    }

    [[nodiscard]] QString file(const QString& name) const { return folder_.filePath(name + QStringLiteral(".db")); }
    [[nodiscard]] QString textOf(const QString& name) const {
        return QStringLiteral("Data Source=%1;Initial Catalog=%2").arg(folder_.path(), name);
    }
    void add(const QString& name) { connection_.Execute(db::Sql("Insert Into Visits (name) Values ('{}')", name)); }
    [[nodiscard]] static QString namesIn(Connection& connection) {
        QStringList read;
        for (Recordset rows("Select name from Visits Order By id", connection); !rows.Eof(); rows.MoveNext())
            read << rows["name"].text().left(20);
        return read.join(' ');
    }
    [[nodiscard]] QString namesIn(const QString& name) const {
        Connection connection;
        connection.Open(textOf(name));
        return namesIn(connection);
    }
    /// Overwrites a piece in the middle of the file.
    void damage(const QString& name) const {
        QFile opened(file(name));
        ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
        ASSERT_TRUE(opened.seek(opened.size() / 2));
        opened.write(QByteArray(3000, '\x5a'));
    }

    QTemporaryDir folder_{TestFolderTemplate()};
    Connection connection_;
    const QString schedule_ = QStringLiteral("schedule"), copy_ = QStringLiteral("copy"),
                  before_ = QStringLiteral("before");
};

}  // namespace

TEST_F(CopiedFile, HoldsWhatIsSavedWhileADeskWorksAndNothingOfItsOpenTransaction) {
    connection_.BeginTrans();
    add(QStringLiteral("unsaved"));
    CopyDatabaseFile(file(schedule_), file(copy_));
    connection_.CommitTrans();
    EXPECT_EQ(namesIn(copy_), "O'Brien");
    EXPECT_EQ(namesIn(connection_), "O'Brien unsaved");
}

TEST_F(CopiedFile, IsOneFileThatOnlyItsOwnerCanRead) {
    CopyDatabaseFile(file(schedule_), file(copy_));
    EXPECT_EQ(QDir(folder_.path()).entryList({QStringLiteral("copy.db*")}, QDir::Files),
              QStringList{QStringLiteral("copy.db")});
    EXPECT_FALSE(QFile::permissions(file(copy_)) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(CopiedFile, NeverTakesThePlaceOfAnotherFile) {
    PutFile(file(copy_), "mine");
    EXPECT_EQ(FailureOf([&] { CopyDatabaseFile(file(schedule_), file(copy_)); }).description,
              QStringLiteral("There is a file \"%1\" already.").arg(file(copy_)));
    EXPECT_EQ(FileBytes(file(copy_)), "mine");
}

TEST_F(CopiedFile, IsNotLeftHalfOnAFullDisk) {
    for (int i = 0; i < 50; ++i)
        add(QString(4000, u'x'));
    {
        const FullDisk disk(60'000);
        EXPECT_NE(FailureOf([&] { CopyDatabaseFile(file(schedule_), file(copy_)); }).description, QString());
    }
    EXPECT_FALSE(QFile::exists(file(copy_)));
}

TEST_F(CopiedFile, OfAFileThatIsNoDatabaseIsRefused) {
    PutFile(file(before_), "This is a letter.");
    EXPECT_NE(FailureOf([&] { CopyDatabaseFile(file(before_), file(copy_)); }).description, QString());
    EXPECT_FALSE(QFile::exists(file(copy_)));
    EXPECT_EQ(FailureOf([&] { CopyDatabaseFile(file(QStringLiteral("absent")), file(copy_)); }).number, 4060);
}

TEST_F(CopiedFile, OfADamagedDatabaseIsRefused) {
    for (int i = 0; i < 50; ++i)
        add(QString(4000, u'x'));
    connection_.Close();
    EXPECT_EQ(DamagesOf(file(schedule_)), QStringList());
    damage(schedule_);
    EXPECT_NE(DamagesOf(file(schedule_)), QStringList());
    EXPECT_NE(FailureOf([&] { CopyDatabaseFile(file(schedule_), file(copy_)); }).description, QString());
    EXPECT_FALSE(QFile::exists(file(copy_)));
}

TEST_F(CopiedFile, ComesBackAndKeepsWhatWasThere) {
    CopyDatabaseFile(file(schedule_), file(copy_));
    add(QStringLiteral("later"));
    connection_.Close();
    RestoreDatabaseFile(file(copy_), file(schedule_), file(before_));
    EXPECT_EQ(namesIn(schedule_), "O'Brien");
    EXPECT_EQ(namesIn(before_), "O'Brien later");
    EXPECT_FALSE(QFile::exists(file(schedule_) + QStringLiteral(".restored")));
}

TEST_F(CopiedFile, DoesNotComeBackUnderADeskThatWorks) {
    CopyDatabaseFile(file(schedule_), file(copy_));
    add(QStringLiteral("later"));
    EXPECT_NE(FailureOf([&] { RestoreDatabaseFile(file(copy_), file(schedule_), file(before_)); }).description,
              QString());
    EXPECT_EQ(namesIn(connection_), "O'Brien later");
    EXPECT_FALSE(QFile::exists(file(before_)));
    EXPECT_FALSE(QFile::exists(file(schedule_) + QStringLiteral(".restored")));
}

TEST_F(CopiedFile, ComesBackInThePlaceOfADamagedDatabaseWithoutItsOldLog) {
    CopyDatabaseFile(file(schedule_), file(copy_));
    add(QStringLiteral("later"));
    const QByteArray log = FileBytes(file(schedule_) + QStringLiteral("-wal"));
    ASSERT_FALSE(log.isEmpty());
    connection_.Close();
    PutFile(file(schedule_), "This is a letter.");
    PutFile(file(schedule_) + QStringLiteral("-wal"), log);
    RestoreDatabaseFile(file(copy_), file(schedule_), file(before_));
    EXPECT_EQ(namesIn(schedule_), "O'Brien");
}

TEST_F(CopiedFile, ComesBackWhereThereIsNothing) {
    CopyDatabaseFile(file(schedule_), file(copy_));
    RestoreDatabaseFile(file(copy_), file(QStringLiteral("new")), file(before_));
    EXPECT_EQ(namesIn(QStringLiteral("new")), "O'Brien");
}
