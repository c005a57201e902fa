#include <gtest/gtest.h>

#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QTemporaryDir>

#include "platform/desktop/busypointer.h"
#include "platform/desktop/computer.h"
#include "platform/desktop/credentials.h"
#include "platform/desktop/installation.h"
#include "platform/desktop/localefacts.h"
#include "platform/desktop/userstore.h"
#include "tests/support/files.h"

namespace {

// Sets an environment variable for one test.
class Variable {
  public:
    Variable(const char* name, const QByteArray& value) : name_(name) { qputenv(name, value); }
    ~Variable() { qunsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* name_;
};

void keepForOwner(const QString& file) {
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
}

class Credentials : public testing::Test {
  protected:
    [[nodiscard]] QString password(const char* tag, const char* server = "frontdesk") const {
        return BuildDbPassword(QString::fromLatin1(tag), QString::fromLatin1(server), folder.path());
    }

    QTemporaryDir folder;
    QString file = folder.filePath("credentials.ini");
};

}  // namespace

TEST(Computer, TheAuditLogAlwaysHasAUserAndAComputerToName) {
    EXPECT_FALSE(OsUserName().isEmpty());
    EXPECT_FALSE(ComputerName().isEmpty());
}

TEST(LocaleFacts, TheOrderOfTheShortDateIsTheLocales) {
    EXPECT_EQ(DateOrderOf(QLocale(QLocale::English, QLocale::UnitedStates)), 0);
    EXPECT_EQ(DateOrderOf(QLocale(QLocale::English, QLocale::UnitedKingdom)), 1);
    EXPECT_EQ(DateOrderOf(QLocale(QLocale::German, QLocale::Germany)), 1);
    EXPECT_EQ(DateOrderOf(QLocale(QLocale::Swedish, QLocale::Sweden)), 2);
}

TEST(LocaleFacts, WhereNoLocaleWasChosenTheMonthComesFirst) {
    EXPECT_EQ(DateOrderOf(QLocale::c()), 0);
}

TEST(LocaleFacts, DatesReadAsTheUserKnowsThem) {
    EXPECT_EQ(LongDateText(QDate(2026, 3, 11)), "Wednesday, March 11, 2026");
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(LongDateText(QDate(2026, 3, 11)), "Wednesday, 11 March 2026");
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    EXPECT_EQ(LongDateText(QDate(2026, 3, 11)), "2026 March 11, Wednesday");
    QLocale::setDefault(before);
    EXPECT_EQ(ShortDateText(QDate(2026, 3, 11)), "3/11/2026");
}

TEST(UserStore, AWindowsPlaceIsRememberedInTheUsersOwnFile) {
    const QTemporaryDir folder;
    SetUserStoreFile(folder.filePath("new/place.ini"));

    WriteUserSetting("mdisched", "1,2,3,4,0");

    EXPECT_EQ(ReadUserSetting("mdisched"), "1,2,3,4,0");
    EXPECT_EQ(ReadUserSetting("frmother"), "");
    EXPECT_EQ(FileBytes(folder.filePath("new/place.ini")), "[svwschd]\nmdisched=1,2,3,4,0\n");
    SetUserStoreFile({});
    EXPECT_TRUE(UserStoreFile().endsWith("/Solvane/svwschd.ini"));
}

TEST(Installation, WithoutTheFileThereIsNoCentralInstallation) {
    const QTemporaryDir folder;

    EXPECT_FALSE(CentralInstallation(folder.filePath("installation.ini")));
    EXPECT_EQ(InstallationScrambleKey(folder.filePath("installation.ini"), 3), 3);
}

TEST(Installation, AFileWithoutFoldersIsNoCentralInstallationButMaySetTheScrambleKey) {
    const QTemporaryDir folder;
    PutFile(folder.filePath("installation.ini"), "[Scramble]\nKey=7\n");

    EXPECT_FALSE(CentralInstallation(folder.filePath("installation.ini")));
    EXPECT_EQ(InstallationScrambleKey(folder.filePath("installation.ini"), 3), 7);
}

TEST(Installation, AScrambleKeyThatCannotBeIsNotUsed) {
    const QTemporaryDir folder;
    for (const char* key : {"0", "10", "-3", "x", ""}) {
        PutFile(folder.filePath("installation.ini"), QByteArray("[Scramble]\nKey=") + key);
        EXPECT_EQ(InstallationScrambleKey(folder.filePath("installation.ini"), 3), 3) << key;
    }
}

TEST(Installation, TheNotesProgramIsWhereTheFileSaysOrElseInTheApplicationFolder) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("installation.ini");
    EXPECT_EQ(NotesProgram(file, "/opt/solvane"), "/opt/solvane/solvaned.exe");
    PutFile(file, "[Programs]\nNotes=\n");
    EXPECT_EQ(NotesProgram(file, "/opt/solvane"), "/opt/solvane/solvaned.exe");
    PutFile(file, "[Programs]\nNotes=/usr/local/bin/notes program\n");
    EXPECT_EQ(NotesProgram(file, "/opt/solvane"), "/usr/local/bin/notes program");
    PutFile(file, "[Programs]\nNotes=bin/solvaned\n");
    EXPECT_EQ(NotesProgram(file, "/opt/solvane"), folder.filePath("bin/solvaned"));
}

TEST(Installation, TheFiveFoldersComeFromTheFile) {
    const QTemporaryDir folder;
    PutFile(folder.filePath("installation.ini"),
            "[Folders]\nAppPath=/opt/solvane/\nIniPath=ini\nDocPath=/srv/doc\nSharedPath2=/srv/shared\n");

    const auto folders = CentralInstallation(folder.filePath("installation.ini"));

    ASSERT_TRUE(folders);
    EXPECT_EQ(*folders,
              (InstallationFolders{"/opt/solvane", folder.filePath("ini"), "/srv/doc", "/srv/shared", "/opt/solvane"}));
}

TEST(Installation, TheFileMayStandWhereTheEnvironmentSays) {
    EXPECT_EQ(InstallationFile(), QCoreApplication::applicationDirPath() + "/installation.ini");

    const Variable variable("SVSCHEDULER_INSTALLATION", "/srv/solvane/installation.ini");
    EXPECT_EQ(InstallationFile(), "/srv/solvane/installation.ini");
}

TEST(DataSource, AFolderIsAnEmbeddedDatabaseAndAnythingElseAServer) {
    for (const char* embedded : {".", "./data", "/srv/data", "data/", ":memory:"})
        EXPECT_TRUE(IsEmbeddedDataSource(QString::fromLatin1(embedded))) << embedded;
    for (const char* server : {"", "frontdesk", "frontdesk\\practice", ".\\practice", "10.0.0.5,1433"})
        EXPECT_FALSE(IsEmbeddedDataSource(QString::fromLatin1(server))) << server;
}

TEST(DataSource, AFolderMovesWithTheIniFileThatNamesIt) {
    EXPECT_EQ(ResolvedDataSource(".", "/home/anna/practice"), "/home/anna/practice");
    EXPECT_EQ(ResolvedDataSource("./db", "/home/anna/practice"), "/home/anna/practice/db");
    EXPECT_EQ(ResolvedDataSource("/srv/db", "/home/anna/practice"), "/srv/db");
    EXPECT_EQ(ResolvedDataSource("frontdesk", "/home/anna/practice"), "frontdesk");
    EXPECT_EQ(ResolvedDataSource(":memory:", "/home/anna/practice"), ":memory:");
}

TEST_F(Credentials, EachDatabaseHasItsOwnPasswordInAnOwnersFile) {
    PutFile(file, "[Password]\nSVS=main secret\nFH=companion\n");
    keepForOwner(file);

    EXPECT_EQ(password("SVS"), "main secret");
    EXPECT_EQ(password("FH"), "companion");
}

TEST_F(Credentials, AFileThatOthersMayReadIsRefused) {
    PutFile(file, "[Password]\nSVS=secret\n");
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));

    testing::internal::CaptureStderr();
    EXPECT_EQ(password("SVS"), "");
    const std::string said = testing::internal::GetCapturedStderr();

    EXPECT_NE(said.find("credentials.ini holds a password and may be read by others"), std::string::npos) << said;
    EXPECT_EQ(said.find("secret"), std::string::npos) << said;
}

TEST_F(Credentials, TheEnvironmentComesBeforeTheFile) {
    PutFile(file, "[Password]\nSVS=from file\n");
    keepForOwner(file);

    const Variable variable("SVSCHEDULER_PASSWORD_SVS", "from environment");

    EXPECT_EQ(password("SVS"), "from environment");
}

TEST_F(Credentials, NothingSetIsAnEmptyPassword) {
    EXPECT_EQ(password("SVS"), "");
}

TEST_F(Credentials, AnEmbeddedDatabaseNeedsNone) {
    const Variable variable("SVSCHEDULER_PASSWORD_SVS", "secret");

    EXPECT_EQ(password("SVS", "."), "");
}

TEST_F(Credentials, APasswordWithASemicolonStaysOneFieldOfTheConnectionText) {
    const Variable variable("SVSCHEDULER_PASSWORD_SVS", "a;b\"c");

    EXPECT_EQ(password("SVS"), "\"a;b\"\"c\"");
}

TEST(BusyPointer, ThePointerIsBusyOnlyForAsLongAsTheWorkLasts) {
    {
        const BusyPointer outer;
        const BusyPointer inner;
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
