// Backups of a practice with embedded databases.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

#include "data/demo/demo.h"
#include "data/upkeep/practicefiles.h"
#include "platform/database/recordset.h"
#include "platform/desktop/practicedatabase.h"
#include "tests/support/files.h"
#include "tests/support/fulldisk.h"
#include "tests/support/testdatabase.h"

using upkeep::BackUp;
using upkeep::FilesOf;
using upkeep::PracticeFiles;
using upkeep::Restore;

namespace {

class BackedUpPractice : public testing::Test {
  protected:
    BackedUpPractice() { demo::MakeDemoFolder({.appointments = 200, .today = QDate(2026, 11, 18)}, home()); }

    [[nodiscard]] QString home() const { return folder.filePath(QStringLiteral("practice")); }
    [[nodiscard]] PracticeFiles practice() const { return FilesOf(PracticeConnectionText(home()), home()); }
    [[nodiscard]] QString backedUp() const {
        return BackUp(practice(), folder.filePath(QStringLiteral("backups")), now, tell);
    }
    [[nodiscard]] int rowsOf(const char* statement) const {
        db::Connection connection;
        connection.Open(PracticeConnectionText(home()));
        return db::Recordset(QString::fromLatin1(statement), connection).RecordCount();
    }
    void run(const char* statement) const {
        db::Connection connection;
        connection.Open(PracticeConnectionText(home()));
        connection.Execute(QString::fromLatin1(statement));
    }

    QTemporaryDir folder{TestFolderTemplate()};
    /// Restores and returns what is told.
    QStringList restored(const QString& backup) {
        told.clear();
        Restore(backup, PracticeConnectionText(home()), home(), now, tell);
        return told;
    }

    mutable QStringList told;
    const upkeep::Tell tell = [this](const QString& sentence) { told << sentence; };
    const QDateTime now{QDate(2026, 11, 22), QTime(13, 30)};
};

}  // namespace

TEST_F(BackedUpPractice, HasBothDatabasesAndItsIniFilesButNoPasswords) {
    PutFile(home() + QStringLiteral("/credentials.ini"), "[Password]\nSVS=secret\n");
    const QString backup = backedUp();
    EXPECT_EQ(QFileInfo(backup).fileName(), "svscheduler-20261122-133000");
    EXPECT_EQ(QDir(backup).entryList(QDir::Files),
              (QStringList{QStringLiteral("companion.db"), QStringLiteral("main.db"), QStringLiteral("solvane.ini"),
                           QStringLiteral("svwsched.ini")}));
    EXPECT_FALSE(QFile::permissions(backup) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(BackedUpPractice, ComesBackAndKeepsWhatWasThere) {
    const int before = rowsOf("Select nkeyid from appointments");
    const QString backup = backedUp();
    run("Delete from appointments");
    EXPECT_EQ(restored(backup).size(), 4);
    EXPECT_EQ(rowsOf("Select nkeyid from appointments"), before);
    EXPECT_TRUE(QFile::exists(home() + QStringLiteral("/practice-before-20261122-133000.db")));
    EXPECT_TRUE(QFile::exists(home() + QStringLiteral("/companion-before-20261122-133000.db")));
}

TEST_F(BackedUpPractice, ComesBackToAComputerThatLostEverythingButItsIniFile) {
    const QString backup = backedUp();
    const PracticeFiles files = practice();
    QFile::remove(files.main);
    QFile::remove(files.companion);
    QFile::remove(home() + QStringLiteral("/svwsched.ini"));
    EXPECT_EQ(restored(backup).size(), 2);
    EXPECT_TRUE(QFile::exists(home() + QStringLiteral("/svwsched.ini")));
    EXPECT_TRUE(QFile::exists(files.companion));
}

TEST_F(BackedUpPractice, ThatNamesNoCompanionAnyMoreSaysThatItIsNotPutBack) {
    run("Update settings Set FHServer = ''");
    const QString without = backedUp();
    EXPECT_FALSE(QFile::exists(without + QStringLiteral("/companion.db")));
    PutFile(without + QStringLiteral("/companion.db"), "from elsewhere");
    EXPECT_EQ(restored(without).last(),
              "The companion database of the backup was not put back: the settings name no file for it.");
}

TEST_F(BackedUpPractice, WithoutItsCompanionsFileSaysSo) {
    QFile::remove(practice().companion);
    const QString backup = backedUp();
    EXPECT_EQ(told.size(), 1);
    EXPECT_TRUE(told.value(0).contains(QStringLiteral("is not there, so it is not in the backup")));
    EXPECT_TRUE(QFile::exists(backup + QStringLiteral("/main.db")));
}

TEST_F(BackedUpPractice, IsNotPutBackUnderADeskThatWorks) {
    const QString backup = backedUp();
    db::Connection desk;
    desk.Open(PracticeConnectionText(home()));
    desk.Execute("Delete from appointments");
    EXPECT_THROW(restored(backup), db::DatabaseError);
    EXPECT_EQ(rowsOf("Select nkeyid from appointments"), 0);
}

TEST_F(BackedUpPractice, IsWholeOrNotThere) {
    const QString backups = folder.filePath(QStringLiteral("backups"));
    {
        const FullDisk disk(100'000);
        EXPECT_THROW(static_cast<void>(backedUp()), db::DatabaseError);
    }
    EXPECT_EQ(QDir(backups).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    static_cast<void>(backedUp());
    EXPECT_THROW(static_cast<void>(backedUp()), std::runtime_error) << "The folder of this second is there already.";
    EXPECT_TRUE(QFile::exists(backups + QStringLiteral("/svscheduler-20261122-133000/main.db")));
}

TEST_F(BackedUpPractice, IsNotAnyFolder) {
    EXPECT_THROW(restored(home()), std::runtime_error);
}
