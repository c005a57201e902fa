#include "tests/session/startupfixture.h"

#include <unistd.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "platform/desktop/inifile.h"
#include "tests/support/files.h"

namespace {

// Takes the right to write away from the test, which root has everywhere.
class ReadOnlyFolders {
  public:
    explicit ReadOnlyFolders(const QStringList& paths) : paths_(paths), wasRoot_(geteuid() == 0) {
        for (const QString& path : paths) {
            for (const QString& name : QDir(path).entryList(QDir::Files))
                QFile::setPermissions(path + "/" + name, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
            QFile::setPermissions(path, QFile::Permissions(0x5555));
        }
        if (wasRoot_)
            taken_ = seteuid(65534) == 0;
    }
    ~ReadOnlyFolders() {
        if (taken_ && seteuid(0) != 0)
            ADD_FAILURE() << "The test stays without its rights.";
        for (const QString& path : paths_)
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ReadOnlyFolders(const ReadOnlyFolders&) = delete;
    ReadOnlyFolders& operator=(const ReadOnlyFolders&) = delete;

  private:
    QStringList paths_;
    bool wasRoot_;
    bool taken_ = false;
};

class StartingUpInTrouble : public StartingUp {
  protected:
    // What the database client says to the connection that solvane.ini asks for.
    [[nodiscard]] QString connectError() const {
        const QString ini = practice.file("solvane.ini");
        QString source = ReadIniValue(ini, "SQLServer", "DataSource");
        if (source == ".")
            source = practice.path();
        try {
            db::Connection connection;
            connection.Open(QString("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=%2;User Id=SVMaster;Password=%3;")
                                .arg(source, ReadIniValue(ini, "SQLServer", "InitialCatalog"),
                                     qEnvironmentVariable("SVSCHEDULER_PASSWORD_SVS")));
        } catch (const db::DatabaseError& error) {
            return QString("Error connecting to database! %1, %2").arg(error.number).arg(error.description);
        }
        return {};
    }
    void expectNoDatabase() {
        const QString error = connectError();
        ASSERT_FALSE(error.isEmpty()) << "The database could be opened.";
        desk.expectBox(error, "Error");
        desk.expectBox("Error reading global setings from database. " + closedConnection(), "Error");
        expectLogon("ANNA", "secret");
        desk.expectBox("You must first run Solvane and setup a User Id and Password!", "No Passwords");
    }
    [[nodiscard]] static QString closedConnection() {
        try {
            db::Connection().Execute("Select 1");
        } catch (const db::DatabaseError& error) {
            return error.description;
        }
        return {};
    }
};

}  // namespace

TEST_F(StartingUpInTrouble, WithoutSolvaneIniTheProgramEnds) {
    QFile::remove(practice.file("solvane.ini"));
    QFile::remove(practice.file("svwsched.ini"));
    desk.expectBox("Unable to find configuration file solvane.ini. Program will terminate.", "File Not Found");

    EXPECT_FALSE(start());

    EXPECT_FALSE(window.calls.contains("show"));
}

TEST_F(StartingUpInTrouble, WithoutSvwschedIniTheProgramEnds) {
    QFile::remove(practice.file("svwsched.ini"));
    desk.expectBox("Unable to find configuration file svwsched.ini. Program will terminate.", "File Not Found");

    EXPECT_FALSE(start());
}

TEST_F(StartingUpInTrouble, AMissingDatabaseIsToldAndTheLogonFindsNobody) {
    PutFile(practice.file("solvane.ini"), "[SQLServer]\nDataSource=.\nInitialCatalog=gone\n");
    expectNoDatabase();

    EXPECT_FALSE(start(""));

    EXPECT_TRUE(window.calls.contains("show"));
    EXPECT_FALSE(Session().Connection.IsOpen());
}

TEST_F(StartingUpInTrouble, AServerThatIsAwayIsToldAndTheLogonFindsNobody) {
    PutFile(practice.file("solvane.ini"), "[SQLServer]\nDataSource=127.0.0.1,1\nInitialCatalog=practice\n");
    expectNoDatabase();

    EXPECT_FALSE(start(""));
}

TEST_F(StartingUpInTrouble, AnIniFileWithoutADatabaseNameIsToldLikeAMissingDatabase) {
    PutFile(practice.file("solvane.ini"), "[SQLServer]\nDataSource=.\nInitialCatalog\n");
    expectNoDatabase();

    EXPECT_FALSE(start(""));
}

TEST_F(StartingUpInTrouble, AFileThatIsNoDatabaseIsTold) {
    PutFile(practice.file("other.db"), QByteArray("This is a letter to the practice. ").repeated(200));
    PutFile(practice.file("solvane.ini"), "[SQLServer]\nDataSource=.\nInitialCatalog=other\n");
    expectNoDatabase();

    EXPECT_FALSE(start(""));
}

TEST_F(StartingUpInTrouble, ADatabaseFileThatWasCutShortIsTold) {
    {
        db::Connection whole;
        whole.Create(QString("Data Source=%1;Initial Catalog=whole").arg(practice.path()));
        ApplySchema(whole, SchemaScript::Main);
    }
    PutFile(practice.file("other.db"), FileBytes(practice.file("whole.db")).left(6000));
    PutFile(practice.file("solvane.ini"), "[SQLServer]\nDataSource=.\nInitialCatalog=other\n");
    expectNoDatabase();

    EXPECT_FALSE(start(""));
}

TEST_F(StartingUpInTrouble, AFolderThatMayOnlyBeReadStillShowsTheDay) {
    PutFile(practice.file("svwsched.ini"), "[PrintLayout]\n");
    const bool onServer = practice.database().isOnServer();
    QStringList folders{practice.path()};
    if (!onServer)
        folders << QFileInfo(practice.database().file()).path();
    const ReadOnlyFolders readOnly(folders);
    expectLogon("ANNA", "secret");

    ASSERT_TRUE(start(""));

    EXPECT_EQ(window.calls.last(), "day view 1");
    EXPECT_FALSE(Session().EmailReminderText.isEmpty());
    EXPECT_EQ(FileBytes(practice.file("svwsched.ini")), "[PrintLayout]\n");
    EXPECT_EQ(practice.value("Select Count(*) From User_Preferences"), onServer ? "1" : "0");
}

TEST_F(StartingUpInTrouble, APairThatCannotBeReadIsToldAndNotTakenForNone) {
    practice.addCompanion("FH-1");
    practice.pairProvider("FH-1", 42, "ANNA");
    practice.sql("Update passwords Set pswd_screen_access = '000012006'");
    const QString reason = DropTable(practice.database().connection(), "FHDataPairs");
    desk.expectBox("Error reading the provider's pair with Fernhall. " + reason, "Error");

    ASSERT_TRUE(start());

    EXPECT_EQ(Session().FHDatabaseId, "FH-1");
    EXPECT_EQ(window.calls.last(), "day view 1");
}

TEST_F(StartingUpInTrouble, AMissingSettingsTableIsToldThreeTimesAndTheDayIsShownAllTheSame) {
    const QString reason = DropTable(practice.database().connection(), "settings");
    desk.expectBox("Error reading global setings from database. " + reason, "Error");
    desk.expectBox("Error reading setings from database. " + reason, "Error");
    desk.expectBox("Error retrieving Fernhall Server and Database Name. " + reason, "Error");

    ASSERT_TRUE(start());

    EXPECT_EQ(window.calls.last(), "day view 1");
}
