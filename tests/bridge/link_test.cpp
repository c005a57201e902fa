#include "bridge/link.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "data/courtesycalls.h"
#include "data/schema.h"
#include "platform/desktop/desktop.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

class Link : public testing::Test {
  protected:
    Link() {
        main.Create("Data Source=:memory:;Initial Catalog=practice;");
        ApplySchema(main, SchemaScript::Main);
        main.Execute("Delete From settings");
        main.Execute("Insert Into settings (FHServer, FHDatabaseName) Values ('billing', 'fernhall')");
    }
    void pair(int list, const char* database, int fhValue, const char* svValue) {
        main.Execute(
            QString(
                "Insert Into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (%1, '%2', %3, '%4')")
                .arg(list)
                .arg(QString::fromLatin1(database))
                .arg(fhValue)
                .arg(QString::fromLatin1(svValue)));
    }
    // The companion database in the test's folder, and its text.
    QString companion() {
        const QString text = "Data Source=" + folder.path() + ";Initial Catalog=fernhall;";
        db::Connection connection;
        connection.Create(text);
        ApplySchema(connection, SchemaScript::Companion);
        connection.Execute("Delete From DefaultFieldValues");
        return text;
    }

    ScriptedDesk desk;
    QTemporaryDir folder;
    db::Connection main;
};

}  // namespace

TEST_F(Link, TheConnectionTextNamesServerAndDatabaseOfTheSettings) {
    EXPECT_EQ(GetFHConnectionString(main, folder.path()),
              "Provider=SQLOLEDB;Data Source=billing;Initial Catalog=fernhall;User Id=FHMaster;Password=; ");
}

TEST_F(Link, ThePasswordOfTheCompanionIsItsOwn) {
    qputenv("SVSCHEDULER_PASSWORD_FH", "secret");
    const QString text = GetFHConnectionString(main, folder.path());
    qunsetenv("SVSCHEDULER_PASSWORD_FH");

    EXPECT_EQ(text,
              "Provider=SQLOLEDB;Data Source=billing;Initial Catalog=fernhall;User Id=FHMaster;Password=secret; ");
}

TEST_F(Link, AServerThatIsAFolderMovesWithTheIniFiles) {
    main.Execute("Update settings Set FHServer = '.'");

    EXPECT_EQ(GetFHConnectionString(main, "/srv/practice"),
              "Provider=SQLOLEDB;Data Source=/srv/practice;Initial Catalog=fernhall;User Id=FHMaster;Password=; ");
}

TEST_F(Link, WithoutServerOrDatabaseThereIsNoLinkAndNoMessage) {
    for (const char* change :
         {"FHServer = ''", "FHServer = NULL", "FHServer = 'billing', FHDatabaseName = ''", "FHDatabaseName = NULL"}) {
        main.Execute(QString("Update settings Set ") + change);
        EXPECT_EQ(GetFHConnectionString(main, folder.path()), "") << change;
    }
    main.Execute("Delete From settings");
    EXPECT_EQ(GetFHConnectionString(main, folder.path()), "");
}

TEST_F(Link, SettingsThatCannotBeReadAreTold) {
    desk.expectBox("Error retrieving Fernhall Server and Database Name. " + DropTable(main, "settings"), "Error");

    EXPECT_EQ(GetFHConnectionString(main, folder.path()), "");
}

TEST_F(Link, ASettingIsOnAtExactlyOne) {
    main.Execute("Update settings Set FHAutoExport = 1, UseFHSchedView = 1");
    EXPECT_EQ(GetFHLinkSettings(main), (FHLinkSettings{true, true}));

    main.Execute("Update settings Set FHAutoExport = 2, UseFHSchedView = -1");
    EXPECT_EQ(GetFHLinkSettings(main), (FHLinkSettings{false, false}));

    main.Execute("Update settings Set FHAutoExport = 0, UseFHSchedView = 1");
    EXPECT_EQ(GetFHLinkSettings(main), (FHLinkSettings{false, true}));
}

TEST_F(Link, ASettingThatIsNullIsOff) {
    main.Execute("Update settings Set FHAutoExport = NULL, UseFHSchedView = NULL");
    EXPECT_EQ(GetFHLinkSettings(main), FHLinkSettings());

    main.Execute("Drop Table settings");
    EXPECT_EQ(GetFHLinkSettings(main), FHLinkSettings());
}

TEST_F(Link, TheCompanionTellsItsIdentity) {
    const QString text = companion();
    EXPECT_EQ(GetFHDBId(text), "");

    db::Connection connection;
    connection.Open(text);
    connection.Execute("Insert Into DefaultFieldValues (DfltFieldName, DfltValue) Values ('DBID', 'FH-1')");
    connection.Close();
    EXPECT_EQ(GetFHDBId(text), "FH-1");
}

TEST_F(Link, ACompanionThatCannotBeReachedIsTold) {
    desk.expectBox("Error connecting to Fernhall database. Make sure the connection settings are correct.", "Error");

    EXPECT_EQ(GetFHDBId("Data Source=" + folder.path() + ";Initial Catalog=gone;"), "");
}

TEST_F(Link, ADatabaseThatIsNoCompanionIsTold) {
    db::Connection connection;
    connection.Create("Data Source=" + folder.path() + ";Initial Catalog=empty;");
    desk.expectBox("Error connecting to Fernhall database. Make sure the connection settings are correct.", "Error");

    EXPECT_EQ(GetFHDBId("Data Source=" + folder.path() + ";Initial Catalog=empty;"), "");
}

TEST_F(Link, ProvidersAndPatientsAreFoundByTheirPairs) {
    pair(1, "FH-1", 42, "ANNA");
    pair(4, "FH-1", 42, "P7");

    EXPECT_EQ(GetFHProviderId(main, "FH-1", "ANNA"), 42);
    EXPECT_EQ(GetSVProviderFromFH(main, "FH-1", 42), "ANNA");
    EXPECT_EQ(GetSVPatientFromFH(main, "FH-1", 42), "P7");
}

TEST_F(Link, APairOfAnotherCompanionDatabaseIsNotFound) {
    pair(1, "FH-2", 42, "ANNA");
    pair(4, "FH-2", 42, "P7");

    EXPECT_EQ(GetFHProviderId(main, "FH-1", "ANNA"), 0);
    EXPECT_EQ(GetSVProviderFromFH(main, "FH-1", 42), "");
    EXPECT_EQ(GetSVPatientFromFH(main, "FH-1", 42), "");
}

TEST_F(Link, WithoutADatabaseNothingIsPaired) {
    pair(1, "FH-1", 42, "O''BRIEN");
    std::optional<db::DatabaseError> failure;
    EXPECT_EQ(GetFHProviderId(main, "FH-1", "O'BRIEN", &failure), 42);
    EXPECT_EQ(GetSVPatientFromFH(main, "FH-1", 42, &failure), "");
    EXPECT_FALSE(failure);

    main.Close();

    EXPECT_EQ(GetFHProviderId(main, "FH-1", "O'BRIEN", &failure), 0);
    EXPECT_TRUE(failure);
    failure.reset();
    EXPECT_EQ(GetSVProviderFromFH(main, "FH-1", 42, &failure), "");
    EXPECT_TRUE(failure);
    failure.reset();
    EXPECT_EQ(GetSVPatientFromFH(main, "FH-1", 42, &failure), "");
    EXPECT_TRUE(failure);

    EXPECT_EQ(GetFHProviderId(main, "FH-1", "O'BRIEN"), 0);
    EXPECT_EQ(GetSVProviderFromFH(main, "FH-1", 42), "");
}

TEST_F(Link, ACourtesyCallShowsThePictureOfItsCategory) {
    main.Execute("Delete From CourtesyCallCodes");
    const std::pair<int, int> pictures[] = {{1, 7}, {2, 4}, {3, 5}, {4, 6}, {5, -1}, {0, -1}};
    for (const auto& [category, picture] : pictures) {
        main.Execute(
            QString(
                "Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values ('CP', 'C%1', %1, 'Text %1')")
                .arg(category));
        EXPECT_EQ(GetCallStatusIcon(main, QString("C%1").arg(category)), picture);
        EXPECT_EQ(GetCallStatusText(main, QString("C%1").arg(category)), QString("Text %1").arg(category));
    }
}

TEST_F(Link, ACourtesyCallCodeNobodyKnowsShowsNothing) {
    main.Execute("Delete From CourtesyCallCodes");
    main.Execute(
        "Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values ('XX', 'LM', 1, 'Left message')");

    for (const char* code : {"", "LM", "it's"}) {
        EXPECT_EQ(GetCallStatusIcon(main, QString::fromLatin1(code)), -1) << code;
        EXPECT_EQ(GetCallStatusText(main, QString::fromLatin1(code)), "") << code;
    }
    main.Close();
    EXPECT_EQ(GetCallStatusIcon(main, "LM"), -1);
    EXPECT_EQ(GetCallStatusText(main, "LM"), "");
}
