// What happens to an embedded database's file while the program has it open.

#include <gtest/gtest.h>

#include <functional>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "contract.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/transaction.h"

using db::Connection;
using db::Recordset;

namespace {

class OpenedFile : public testing::Test {
  protected:
    void SetUp() override {
        QDir().mkpath(place());
        connection_.Create(text());
        connection_.Execute("Create Table Visits (id int Identity(1,1) Not Null Primary Key, name nvarchar(20))");
        add("before");
    }

    [[nodiscard]] QString place() const { return folder_.filePath("practice"); }
    [[nodiscard]] QString file(const char* ending = "") const {
        return place() + QStringLiteral("/schedule.db") + QLatin1String(ending);
    }
    [[nodiscard]] QString text() const {
        return QStringLiteral("Data Source=%1;Initial Catalog=schedule").arg(place());
    }
    void add(const QString& name) { connection_.Execute(db::Sql("Insert Into Visits (name) Values ('{}')", name)); }
    [[nodiscard]] QString names() {
        QStringList read;
        for (Recordset rows("Select name from Visits Order By id", connection_); !rows.Eof(); rows.MoveNext())
            read << rows["name"].text();
        return read.join(' ');
    }
    /// Neither a write nor a read nor a transaction goes on as if nothing had happened.
    static void expectToldAtOnce(const std::function<void()>& step) {
        const auto error = FailureOf(step);
        EXPECT_TRUE(db::IsLinkFailure(error)) << error.what();
        EXPECT_EQ(
            error.description,
            "The file of the database \"schedule\" was moved, deleted or replaced while it was open. Nothing is saved until it is opened again.");
    }
    /// What comes next does not go into the other file, however often it is tried.
    void expectToldAgain() {
        expectToldAtOnce([&] { add("lost"); });
        expectToldAtOnce([&] { static_cast<void>(names()); });
        EXPECT_TRUE(connection_.IsReplaced());
    }

    QTemporaryDir folder_{TestFolderTemplate()};
    Connection connection_;
};

void overwrite(const QString& file, qint64 size) {
    QFile opened(file);
    ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
    opened.write(QByteArray(static_cast<qsizetype>(size), 'x'));
}

}  // namespace

TEST_F(OpenedFile, AFileThatNobodyTouchedIsReadAndWritten) {
    Connection other;
    other.Open(text());
    other.Execute("Insert Into Visits (name) Values ('theirs')");
    add("ours");
    other.Close();
    add("again");
    EXPECT_EQ(names(), "before theirs ours again");
}

TEST_F(OpenedFile, ADeletedFileIsToldAtEveryStatementAndReachedWhenItIsOpenedAgain) {
    QStringList told;
    connection_.OnReplaced([&](const QString& why) { told << why; });
    const QString kept = folder_.filePath("kept.db");
    ASSERT_TRUE(QFile::rename(file(), kept));
    expectToldAtOnce([&] { add("lost"); });
    expectToldAgain();
    EXPECT_EQ(told.size(), 1);
    connection_.OpenAgain();
    const auto error = FailureOf([&] { add("lost"); });
    EXPECT_EQ(error.number, 4060);
    EXPECT_TRUE(db::IsLinkFailure(error));
    EXPECT_EQ(told.size(), 2);
    ASSERT_TRUE(QFile::rename(kept, file()));
    EXPECT_EQ(FailureOf([&] { add("lost"); }).number, 4060);
    connection_.OpenAgain();
    EXPECT_FALSE(connection_.IsReplaced());
    add("after");
    EXPECT_EQ(names(), "before after");
}

TEST_F(OpenedFile, AFileThatAnotherTookThePlaceOfIsUsedOnlyWhenItIsOpenedAgain) {
    const QString backup = folder_.filePath("backup");
    QDir().mkpath(backup);
    {
        Connection other;
        other.Create(QStringLiteral("Data Source=%1;Initial Catalog=schedule").arg(backup));
        other.Execute("Create Table Visits (id int Identity(1,1) Not Null Primary Key, name nvarchar(20))");
        other.Execute("Insert Into Visits (name) Values ('restored')");
    }
    for (const char* ending : {"", "-wal", "-shm"})
        QFile::remove(file(ending));
    ASSERT_TRUE(QFile::rename(backup + "/schedule.db", file()));
    EXPECT_FALSE(db::Ignoring([&] { static_cast<void>(names()); })) << "Passed over, as a list that is filled does.";
    expectToldAgain();
    connection_.OpenAgain();
    add("after");
    EXPECT_EQ(names(), "restored after");
}

TEST_F(OpenedFile, AFileThatWasCutShortIsTold) {
    connection_.Close();  // Without a log from which it could be whole again.
    connection_.Open(text());
    ASSERT_TRUE(QFile::resize(file(), 2'000));
    expectToldAtOnce([&] { add("lost"); });
    connection_.OpenAgain();
    EXPECT_NE(FailureOf([&] { add("lost"); }).number, 0);
}

TEST_F(OpenedFile, AFileThatWasCutShortIsWholeAgainFromItsLog) {
    add("logged");
    ASSERT_TRUE(QFile::resize(file(), 2'000));
    expectToldAtOnce([&] { add("lost"); });
    connection_.OpenAgain();
    add("after");
    EXPECT_EQ(names(), "before logged after");
}

TEST_F(OpenedFile, ItIsToldThoughAReadThatMayFailHasMetItBefore) {
    ASSERT_TRUE(QFile::resize(file(), 2'000));
    { const db::ReadTogether passedOver(connection_, {"Select name from Visits"}); }
    expectToldAtOnce([&] { add("lost"); });
}

TEST_F(OpenedFile, AFileThatWasOverwrittenIsTold) {
    overwrite(file(), QFile(file()).size());
    expectToldAtOnce([&] { add("lost"); });
    connection_.OpenAgain();
    EXPECT_NE(FailureOf([&] { add("lost"); }).number, 0);
}

TEST_F(OpenedFile, AnOlderStateOfTheSameDatabaseWrittenOverItIsTold) {
    connection_.Close();
    const QString backup = folder_.filePath("backup.db");
    ASSERT_TRUE(QFile::copy(file(), backup));
    connection_.Open(text());
    connection_.Execute("Create Table Later (id int)");
    connection_.Close();
    connection_.Open(text());
    QFile old(backup);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    QFile opened(file());
    ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
    opened.write(old.readAll());
    opened.close();
    expectToldAtOnce([&] { add("lost"); });
}

TEST_F(OpenedFile, WhatWasSavedBeforeTheLogWasRemovedIsNotLost) {
    add("saved");
    ASSERT_TRUE(QFile::remove(file("-wal")));
    expectToldAtOnce([&] { add("lost"); });
    connection_.OpenAgain();
    EXPECT_EQ(names(), "before saved");
    add("after");
    Connection other;
    other.Open(text());
    EXPECT_EQ(Recordset("Select * from Visits", other).RecordCount(), 3);
}

TEST_F(OpenedFile, ARenamedFolderIsToldAndItsFileKeepsWhatWasSaved) {
    ASSERT_TRUE(QDir().rename(place(), folder_.filePath("moved")));
    expectToldAtOnce([&] { add("lost"); });
    connection_.OpenAgain();
    EXPECT_EQ(FailureOf([&] { add("lost"); }).number, 4060);
    ASSERT_TRUE(QDir().rename(folder_.filePath("moved"), place()));
    connection_.OpenAgain();
    EXPECT_EQ(names(), "before");
}

TEST_F(OpenedFile, AReadAndATransactionAreToldToo) {
    ASSERT_TRUE(QFile::rename(file(), folder_.filePath("kept.db")));
    expectToldAtOnce([&] { static_cast<void>(names()); });
    ASSERT_TRUE(QFile::rename(folder_.filePath("kept.db"), file()));
    connection_.OpenAgain();
    EXPECT_EQ(names(), "before");
    ASSERT_TRUE(QFile::rename(file(), folder_.filePath("kept.db")));
    expectToldAtOnce([&] { connection_.BeginTrans(); });
}

TEST_F(OpenedFile, ATransactionWhoseFileGoesIsNotStoredHalf) {
    expectToldAtOnce([&] {
        db::InTransaction(connection_, [&] {
            connection_.Execute("Delete from Visits");
            QFile::rename(file(), folder_.filePath("kept.db"));
        });
    });
    ASSERT_TRUE(QFile::rename(folder_.filePath("kept.db"), file()));
    connection_.OpenAgain();
    EXPECT_EQ(names(), "before");
}
