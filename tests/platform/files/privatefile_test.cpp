#include "platform/files/privatefile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/database/connection.h"
#include "platform/desktop/inifile.h"
#include "platform/desktop/userstore.h"

namespace {

class PrivateFiles : public testing::Test {
  protected:
    PrivateFiles() : umaskBefore_(umask(0)) {}  // Nothing else keeps the others out.
    ~PrivateFiles() override {
        umask(umaskBefore_);
        files::ShareNothing();
    }
    [[nodiscard]] QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    [[nodiscard]] static unsigned mode(const QString& file) {
        struct stat facts {};
        return stat(QFile::encodeName(file).constData(), &facts) == 0 ? facts.st_mode & 0777U : 0U;
    }
    void setFolder(mode_t mode) const { chmod(QFile::encodeName(folder_.path()).constData(), mode); }
    static void write(const QString& file, mode_t mode) {
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.close();
        chmod(QFile::encodeName(file).constData(), mode);
    }
    void makePractice() {
        db::Connection made;
        made.Create(QStringLiteral("Data Source=\"%1\";Initial Catalog=practice;").arg(folder_.path()));
        made.Execute("Create Table t (n int null)");
        EXPECT_EQ(mode(path("practice.db")), expected_) << "while it is open";
        EXPECT_EQ(mode(path("practice.db-wal")), expected_);
        EXPECT_EQ(mode(path("practice.db-shm")), expected_);
    }

    QTemporaryDir folder_;
    unsigned expected_ = 0600;

  private:
    mode_t umaskBefore_;
};

}  // namespace

TEST_F(PrivateFiles, TheFilesOfAPracticeAreTheirOwnersAlone) {
    setFolder(0755);
    makePractice();
}

TEST_F(PrivateFiles, InAFolderThatAGroupWritesToTheyAreTheGroupsToo) {
    setFolder(0770);
    expected_ = 0660;
    makePractice();
}

TEST_F(PrivateFiles, InACentralInstallationTheyAreAsTheFolderSays) {
    setFolder(0755);
    files::Share(folder_.path());
    expected_ = 0644;
    makePractice();
}

TEST_F(PrivateFiles, APracticeThatOthersCouldReadIsClosedToThemWhenItIsOpened) {
    makePractice();
    chmod(QFile::encodeName(path("practice.db")).constData(), 0644);
    db::Connection opened;
    opened.Open(QStringLiteral("Data Source=\"%1\";Initial Catalog=practice;").arg(folder_.path()));
    EXPECT_EQ(mode(path("practice.db")), 0600U);
}

TEST_F(PrivateFiles, AnIniFileIsItsOwnersAloneWhetherNewOrRewritten) {
    setFolder(0755);
    ASSERT_TRUE(WriteIniValue(path("solvane.ini"), "USER", "Password", "x"));
    EXPECT_EQ(mode(path("solvane.ini")), 0600U);
    chmod(QFile::encodeName(path("solvane.ini")).constData(), 0664);
    ASSERT_TRUE(WriteIniValue(path("solvane.ini"), "USER", "Password", "y"));
    EXPECT_EQ(mode(path("solvane.ini")), 0600U);
}

TEST_F(PrivateFiles, AnIniFileOfACentralInstallationKeepsItsReaders) {
    setFolder(0755);
    files::Share(folder_.path());
    write(path("solvane.ini"), 0664);
    ASSERT_TRUE(WriteIniValue(path("solvane.ini"), "USER", "UID", "ANNA"));
    EXPECT_EQ(mode(path("solvane.ini")), 0644U);
}

TEST_F(PrivateFiles, AFolderIsMadeForItsOwnerAlone) {
    ASSERT_TRUE(files::MakePrivateFolder(path("data/practice")));
    EXPECT_EQ(mode(path("data/practice")), 0700U);
    setFolder(0755);
    EXPECT_TRUE(files::MakePrivateFolder(folder_.path()));
    EXPECT_EQ(mode(folder_.path()), 0755U);
    write(path("file"), 0600);
    EXPECT_FALSE(files::MakePrivateFolder(path("file/below")));
}

TEST_F(PrivateFiles, AFolderOfOneUserAloneIsClosedToAllOthers) {
    setFolder(0755);
    files::KeepPrivateFolder(folder_.path());
    EXPECT_EQ(mode(folder_.path()), 0700U);
    for (const mode_t shared : {0770, 0757}) {
        setFolder(shared);
        files::KeepPrivateFolder(folder_.path());
        EXPECT_EQ(mode(folder_.path()), shared);
    }
    setFolder(0755);
    files::Share(folder_.path());
    files::KeepPrivateFolder(folder_.path());
    EXPECT_EQ(mode(folder_.path()), 0755U);
    write(path("file"), 0644);
    files::KeepPrivateFolder(path("file"));
    EXPECT_EQ(mode(path("file")), 0644U);
}

TEST_F(PrivateFiles, TheFolderOfAUsersSettingsIsMadeForThatUserAlone) {
    SetUserStoreFile(path("config/Solvane/svwschd.ini"));
    WriteUserSetting(QStringLiteral("key"), QStringLiteral("value"));
    EXPECT_EQ(ReadUserSetting(QStringLiteral("key")), QStringLiteral("value"));
    EXPECT_EQ(mode(path("config/Solvane")), 0700U);
    SetUserStoreFile({});
}

TEST_F(PrivateFiles, AFileThatIsThereIsNotMadeAgain) {
    write(path("there"), 0644);
    QFile there(path("there"));
    ASSERT_TRUE(there.open(QIODevice::WriteOnly));
    there.write("kept");
    there.close();
    EXPECT_TRUE(files::MakePrivate(path("there")));
    EXPECT_EQ(mode(path("there")), 0600U);
    EXPECT_EQ(there.size(), 4);
    EXPECT_FALSE(files::MakePrivate(path("missing/file")));
}

TEST_F(PrivateFiles, WhatTheProgramMakesMeanwhileIsItsOwnersAloneAndAfterwardsAsBefore) {
    const auto modeOfNew = [this](const char* name) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther);
    };
    const auto usual = modeOfNew("before");
    {
        const files::OwnerOnly outer;
        {
            const files::OwnerOnly inner;
            EXPECT_EQ(modeOfNew("inner"), QFile::Permissions());
        }
        EXPECT_EQ(modeOfNew("outer"), QFile::Permissions());
    }
    EXPECT_EQ(modeOfNew("after"), usual);
}

TEST_F(PrivateFiles, AFolderIsMadeForThePeopleOfTheFolderAboveIt) {
    setFolder(0755);
    EXPECT_TRUE(files::MakeFolderIn(folder_.path(), QStringLiteral("own")));
    EXPECT_EQ(mode(path("own")), 0700U);
    setFolder(02770);
    EXPECT_TRUE(files::MakeFolderIn(folder_.path(), QStringLiteral("group")));
    struct stat facts {};
    ASSERT_EQ(stat(QFile::encodeName(path("group")).constData(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777U, 02770U) << "What is made in it is the group's, too.";
    EXPECT_TRUE(files::MakeFolderIn(folder_.path(), QStringLiteral("own")));
    EXPECT_EQ(mode(path("own")), 0700U) << "It was there.";
    write(path("file"), 0600);
    EXPECT_FALSE(files::MakeFolderIn(path("file"), QStringLiteral("folder")));
}
