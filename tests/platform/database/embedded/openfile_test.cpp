// Whether the file that is open is still the one of its name.

#include "platform/database/embedded/openfile.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/database/embedded/sqlitehandle.h"

namespace {

using db::embedded::DatabaseHandle;
using db::embedded::OpenFile;
using State = OpenFile::State;

class Opened : public testing::Test {
  protected:
    static DatabaseHandle open(const QString& path) {
        sqlite3* handle = nullptr;
        EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &handle), SQLITE_OK);
        sqlite3_exec(handle, "Pragma journal_mode = WAL", nullptr, nullptr, nullptr);
        return DatabaseHandle(handle);
    }
    static void run(const DatabaseHandle& handle, const char* statement) {
        EXPECT_EQ(sqlite3_exec(handle.get(), statement, nullptr, nullptr, nullptr), SQLITE_OK) << statement;
    }

    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        ours = open(file);
        run(ours, "Create Table t (x int)");
        watched.emplace(ours.get(), file);
        ASSERT_EQ(watched->look(), State::Whole);
    }
    void writeInto() {
        run(ours, "Insert Into t Values (1)");
        run(ours, "Pragma wal_checkpoint(FULL)");
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("desk.db"));
    DatabaseHandle ours;
    std::optional<OpenFile> watched;
};

TEST_F(Opened, AFileThatDesksWriteToStaysTheSame) {
    for (int i = 0; i < 3; ++i) {
        writeInto();
        EXPECT_EQ(watched->look(), State::Whole);
    }
    const DatabaseHandle theirs = open(file);
    run(theirs, "Insert Into t Values (2)");
    EXPECT_EQ(watched->look(), State::Whole);
    run(theirs, "Create Table u (x int)");
    run(theirs, "Pragma wal_checkpoint(FULL)");
    EXPECT_EQ(watched->look(), State::Whole);
}

TEST_F(Opened, AFileThatWasDeletedIsGone) {
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, AFileThatWasMovedAwayIsGone) {
    ASSERT_TRUE(QFile::rename(file, file + ".old"));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, AnotherFileOfItsNameIsAnother) {
    ASSERT_TRUE(QFile::rename(file, file + ".old"));
    ASSERT_TRUE(QFile::copy(file + ".old", file));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, AFileThatWasCutShortIsAnother) {
    writeInto();
    ASSERT_EQ(watched->look(), State::Whole);
    ASSERT_TRUE(QFile::resize(file, 4096));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, AFileThatWasEmptiedIsAnother) {
    writeInto();
    ASSERT_EQ(watched->look(), State::Whole);
    ASSERT_TRUE(QFile::resize(file, 0));
    EXPECT_EQ(watched->look(), State::Replaced);
}

/// Writes bytes into the file where it stands.
void overwrite(const QString& path, qint64 at, const QByteArray& bytes) {
    QFile raw(path);
    ASSERT_TRUE(raw.open(QIODevice::ReadWrite));
    ASSERT_TRUE(raw.seek(at));
    raw.write(bytes);
}

TEST_F(Opened, ContentThatIsNoDatabaseIsAnother) {
    writeInto();
    ASSERT_EQ(watched->look(), State::Whole);
    overwrite(file, 0, "Something else ");
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, AnotherSizeOfThePagesIsAnotherDatabase) {
    writeInto();
    ASSERT_EQ(watched->look(), State::Whole);
    overwrite(file, 16, QByteArray("\x20\x00", 2));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, ALowerCountOfChangesIsAnOlderCopy) {
    writeInto();
    overwrite(file, 24, QByteArray("\x00\x00\x01\x00", 4));
    ASSERT_EQ(watched->look(), State::Whole);
    overwrite(file, 24, QByteArray("\x00\x00\x00\xff", 4));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, AHigherCountOfChangesIsTheSameFile) {
    writeInto();
    overwrite(file, 24, QByteArray("\x00\x00\x00\x99", 4));
    ASSERT_EQ(watched->look(), State::Whole);
    overwrite(file, 24, QByteArray("\x00\x00\x01\x00", 4));
    EXPECT_EQ(watched->look(), State::Whole);
}

TEST_F(Opened, ALogThatWasRemovedIsMissing) {
    run(ours, "Insert Into t Values (1)");
    ASSERT_EQ(watched->look(), State::Whole);
    ASSERT_TRUE(QFile::remove(file + "-wal"));
    EXPECT_EQ(watched->look(), State::LogMissing);
}

TEST_F(Opened, AnotherLogOfItsNameIsAnother) {
    run(ours, "Insert Into t Values (1)");
    ASSERT_TRUE(QFile::rename(file + "-wal", file + "-wal.old"));
    ASSERT_TRUE(QFile::copy(file + "-wal.old", file + "-wal"));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, AnIndexOfTheLogThatWasRemovedIsAnother) {
    ASSERT_TRUE(QFile::remove(file + "-shm"));
    EXPECT_EQ(watched->look(), State::Replaced);
}

TEST_F(Opened, APrivateDatabaseHasNoFileAndIsAlwaysWhole) {
    const DatabaseHandle memory = open(QStringLiteral(":memory:"));
    OpenFile none(memory.get(), QStringLiteral(":memory:"));
    EXPECT_EQ(none.look(), State::Whole);
    EXPECT_EQ(none.look(), State::Whole);
}

}  // namespace
