#include <sqlite3.h>
#include <unistd.h>
#include <functional>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include "tests/platform/database/embedded/practice.h"

namespace {

using db::embedded::EmbeddedEngine;

class Sessions : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        EmbeddedEngine maker(file, true);
        maker.execute("Create Table a (id int identity(1,1) primary key, name nvarchar(20), day datetime)", {});
        maker.execute("Insert Into a (name, day) Values ('x', '2026/03/11')", {});
    }

    /// The number and sentence with which opening fails.
    static QString opening(const QString& path) {
        try {
            db::OpenEmbedded(path, false);
        } catch (const db::DatabaseError& error) {
            return QStringLiteral("%1 %2").arg(error.number).arg(error.description);
        }
        return QStringLiteral("opened");
    }

    static QString failure(db::Engine& engine, const char* statement) {
        try {
            engine.execute(statement, {});
        } catch (const db::DatabaseError& error) {
            return QStringLiteral("%1 %2").arg(error.number).arg(error.description);
        }
        return {};
    }

    /// Nobody may write to the folder any more, and everybody may read what is in it.
    void letOthersLookIn() const {
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
        QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                                                 QFile::ReadOther | QFile::ExeOther);
    }
    void letOwnerWriteAgain() const {
        QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void overwrite(qint64 size, const QByteArray& bytes = {}) const {
        QFile raw(file);
        ASSERT_TRUE(raw.open(QIODevice::ReadWrite));
        ASSERT_TRUE(raw.resize(size));
        raw.write(bytes);
    }

    QTemporaryDir folder;
    QString file = folder.filePath("front desk.db");
};

TEST_F(Sessions, AFileThatIsNotThereIsNotMade) {
    EXPECT_EQ(opening(folder.filePath("other.db")),
              "4060 Cannot open database \"other\" requested by the login. The login failed.");
    EXPECT_FALSE(QFile::exists(folder.filePath("other.db")));
    EXPECT_TRUE(opening(folder.path()).startsWith("14 The database "));
}

TEST_F(Sessions, AFileThatIsNoDatabaseIsTold) {
    overwrite(0, QByteArray(5000, 'x'));
    EXPECT_EQ(opening(file), "26 The file of the database \"front desk\" is not a database. (SQLite error 26)");
    overwrite(0);
    EXPECT_EQ(opening(file), "26 The file of the database \"front desk\" is not a database. (SQLite error 26)");
}

TEST_F(Sessions, AFileThatWasCutShortIsTold) {
    overwrite(4096 + 100);
    EXPECT_EQ(
        opening(file),
        "11 The file of the database \"front desk\" is damaged or cut short. Restore it from a backup. (SQLite error 11)");
}

/// The rights of files do not bind the superuser, under whom tests may run.
class AsNobody {
  public:
    AsNobody() { changed = geteuid() == 0 && seteuid(65534) == 0; }
    ~AsNobody() {
        if (changed && seteuid(0) != 0)
            ADD_FAILURE() << "The test cannot go on as who it was.";
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

  private:
    bool changed = false;
};

TEST_F(Sessions, AFileThatMayOnlyBeReadIsReadAndNotWritten) {
    // Somebody who may write keeps the file open, so that the files beside it are there.
    EmbeddedEngine other(file, false);
    other.query("Select * from a", {});
    for (const char* ending : {"", "-wal", "-shm"})
        QFile::setPermissions(file + ending, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    letOthersLookIn();
    {
        const AsNobody nobody;
        EmbeddedEngine engine(file, false);
        EXPECT_EQ(engine.query("Select name from a", {}).at(0, 0).text(), "x");
        EXPECT_EQ(failure(engine, "Delete from a"),
                  "3906 Failed to update database \"front desk\" because the database is read-only.");
    }
    letOwnerWriteAgain();
}

TEST_F(Sessions, AFolderThatMayNotBeWrittenToIsTold) {
    letOthersLookIn();
    {
        const AsNobody nobody;
        EXPECT_EQ(
            opening(file),
            "8 The database \"front desk\" cannot be opened. Its file and folder must be readable and writable for you. (SQLite error 8)");
    }
    letOwnerWriteAgain();
}

TEST_F(Sessions, TheFilesAreTheirOwnersAloneFromTheirMakingOn) {
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(file) & others);
    EmbeddedEngine engine(file, false);
    engine.execute("Insert Into a (name) Values ('y')", {});
    for (const char* part : {"", "-wal", "-shm"})
        EXPECT_FALSE(QFile::permissions(file + part) & others) << part;
}

TEST_F(Sessions, WhatOthersMayDoWithTheFilesIsTakenFromThemWhenTheyAreOpened) {
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    const EmbeddedEngine first(file, false);
    for (const char* part : {"", "-wal", "-shm"})
        ASSERT_TRUE(QFile::setPermissions(file + part, QFile::permissions(file) | others)) << part;
    const EmbeddedEngine second(file, false);
    for (const char* part : {"", "-wal", "-shm"})
        EXPECT_FALSE(QFile::permissions(file + part) & others) << part;
}

TEST_F(Sessions, AStatementThatCannotBeExplainedFailsLikeItself) {
    EmbeddedEngine engine(file, false);
    EXPECT_TRUE(engine.explain("Select id from a Where id = 1").contains("SEARCH a"));
    EXPECT_THROW(static_cast<void>(engine.explain("Select nobody from a")), db::DatabaseError);
    EXPECT_THROW(static_cast<void>(engine.explain("Select id from a Where Count(*) = 1")), db::DatabaseError);
}

TEST_F(Sessions, WhatIsSavedIsOnTheDiskAndReferencesHold) {
    EmbeddedEngine engine(file, false);
    engine.execute("Create Table b (a int references a (id))", {});
    EXPECT_TRUE(failure(engine, "Insert Into b Values (99)").startsWith("547 "));
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &other), SQLITE_OK);
    sqlite3_stmt* mode = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(other, "Pragma journal_mode", -1, &mode, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(mode), SQLITE_ROW);
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(mode, 0)), "wal");
    sqlite3_finalize(mode);
    sqlite3_close(other);
}

TEST_F(Sessions, AFailureTellsItsStatement) {
    EmbeddedEngine engine(file, false);
    const auto statementOf = [](const std::function<void()>& step) {
        try {
            step();
        } catch (const db::DatabaseError& error) {
            return error.statement;
        }
        return QString();
    };
    EXPECT_EQ(statementOf([&] { engine.query("Select 1 / 0", {}); }), "Select 1 / 0");
    EXPECT_EQ(statementOf([&] { engine.query("Select nobody from a", {}); }), "Select nobody from a");
    EXPECT_EQ(statementOf([&] { engine.execute("Delete from a Where id = ?", {}); }), "Delete from a Where id = ?");
}

TEST_F(Sessions, AColumnOfUnknownKindIsOfTheKindOfItsFirstValue) {
    EmbeddedEngine engine(file, false);
    const auto typeOf = [&](const db::Value& bound) {
        return engine.query("Select ? from a", {bound}).columns()[0].type;
    };
    EXPECT_EQ(typeOf(5), db::ColumnType::Integer);
    EXPECT_EQ(typeOf(2.5), db::ColumnType::Real);
    EXPECT_EQ(typeOf("x"), db::ColumnType::Text);
    EXPECT_EQ(typeOf(db::Value()), db::ColumnType::Text);
    EXPECT_EQ(engine.query("Select ? from a Where 1 = 0", {5}).columns()[0].type, db::ColumnType::Text);
}

TEST_F(Sessions, ADeskWaitsForAnothersWriteAndGivesUpInTheEnd) {
    EmbeddedEngine one(file, false);
    EmbeddedEngine two(file, false);
    two.setLockTimeout(20);
    one.begin();
    one.execute("Update a Set name = 'one'", {});
    EXPECT_EQ(two.query("Select name from a", {}).at(0, 0).text(), "x");
    EXPECT_EQ(failure(two, "Update a Set name = 'two'"),
              "1222 Lock request time out period exceeded. Another desk is writing to the database \"front desk\".");
    EXPECT_THROW(two.begin(), db::DatabaseError);
    one.commit();
    EXPECT_EQ(two.query("Select name from a", {}).at(0, 0).text(), "one");
    EXPECT_EQ(failure(two, "Update a Set name = 'two'"), "");
}

TEST_F(Sessions, AFileThatAnotherProgramLocksIsToldSoonWhenItIsOpenedAndWaitedForLonger) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "Pragma locking_mode = EXCLUSIVE; Begin Exclusive", nullptr, nullptr, nullptr),
              SQLITE_OK);
    QElapsedTimer watch;
    watch.start();
    EXPECT_THROW(EmbeddedEngine(file, false, 20), db::DatabaseError);
    EXPECT_LT(watch.elapsed(), 5000);
    sqlite3_close(other);
}

TEST_F(Sessions, ATransactionIsKeptOrUndone) {
    EmbeddedEngine engine(file, false);
    engine.begin();
    engine.execute("Delete from a", {});
    engine.rollback();
    EXPECT_EQ(engine.query("Select * from a", {}).rowCount(), 1);
    engine.begin();
    engine.execute("Delete from a", {});
    engine.commit();
    EXPECT_EQ(engine.query("Select * from a", {}).rowCount(), 0);
    EXPECT_THROW(engine.commit(), db::DatabaseError);
    engine.begin();
    EXPECT_THROW(engine.begin(), db::DatabaseError);
}

TEST_F(Sessions, ATransactionThatNobodyEndedIsUndone) {
    {
        EmbeddedEngine engine(file, false);
        engine.begin();
        engine.execute("Delete from a", {});
    }
    EXPECT_EQ(EmbeddedEngine(file, false).query("Select * from a", {}).rowCount(), 1);
}

TEST_F(Sessions, ATableMadeInAnUndoneTransactionIsGone) {
    EmbeddedEngine engine(file, false);
    engine.begin();
    engine.execute("Create Table b (x int)", {});
    engine.describe("b");
    engine.rollback();
    EXPECT_THROW(engine.describe("b"), db::DatabaseError);
    EXPECT_TRUE(failure(engine, "Select * from b").startsWith("208 "));
}

TEST_F(Sessions, WhatAnotherDeskAddsToTheTablesIsSeen) {
    EmbeddedEngine one(file, false);
    EmbeddedEngine two(file, false);
    EXPECT_EQ(one.query("Select * from a", {}).columnCount(), 3);
    two.execute("Alter Table a Add extra int default 7", {});
    two.execute("Create Table b (x int)", {});
    EXPECT_EQ(one.query("Select * from a", {}).at(0, 3).integer(), 7);
    EXPECT_EQ(one.query("Select extra from a", {}).at(0, 0).integer(), 7);
    EXPECT_EQ(one.query("Select * from b", {}).rowCount(), 0);
    two.execute("Drop Table b", {});
    EXPECT_TRUE(failure(one, "Select * from b").startsWith("208 "));
}

TEST_F(Sessions, MoreStatementsThanAreKeptAllRun) {
    EmbeddedEngine engine(file, false);
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 300; ++i)
            EXPECT_EQ(engine.query(QStringLiteral("Select %1 from a").arg(i), {}).at(0, 0).integer(), i);
}

TEST_F(Sessions, AStatementRunsAgainWithOtherValues) {
    EmbeddedEngine engine(file, false);
    for (int i = 0; i < 3; ++i)
        engine.execute("Insert Into a (name, day) Values (?, ?)", {QString::number(i), QDate(2026, 1, 1).addDays(i)});
    EXPECT_EQ(engine.query("Select id from a Where day = ?", {QDate(2026, 1, 3)}).at(0, 0).integer(), 4);
    EXPECT_EQ(engine.query("Select id from a Where day = ?", {QDate(2026, 1, 9)}).rowCount(), 0);
}

TEST_F(Sessions, AnOrdinaryToolOpensTheFileWithTheExtension) {
    sqlite3* tool = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &tool), SQLITE_OK);
    const char* search = "Select Month(day) From a Where name = 'X ' And day >= '03/11/2026'";
    sqlite3_stmt* statement = nullptr;
    EXPECT_NE(sqlite3_prepare_v2(tool, search, -1, &statement, nullptr), SQLITE_OK);
    sqlite3_enable_load_extension(tool, 1);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_load_extension(tool, SVS_DIALECT_EXTENSION, nullptr, &message), SQLITE_OK)
        << (message ? message : "");
    ASSERT_EQ(sqlite3_prepare_v2(tool, search, -1, &statement, nullptr), SQLITE_OK) << sqlite3_errmsg(tool);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(statement, 0), 3);
    sqlite3_finalize(statement);
    EXPECT_EQ(sqlite3_exec(tool, "Insert Into a (name, day) Values ('by tool', getdate())", nullptr, nullptr, nullptr),
              SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(tool, "Select month('soon')", nullptr, nullptr, nullptr), SQLITE_ERROR);
    EXPECT_STREQ(sqlite3_errmsg(tool), "Conversion failed when converting date and/or time from character string.");
    sqlite3_close(tool);
}

}  // namespace
