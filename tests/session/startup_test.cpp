#include "tests/session/startupfixture.h"

#include <QFile>

#include "tests/support/files.h"

TEST_F(StartingUp, EverythingComesInItsOrder) {
    ASSERT_TRUE(start());

    const QStringList expected{"place",      "date order 0",     "date Wednesday, March 11, 2026",
                               "show",       "access 3",         "panels Adler/Adler",
                               "task pane ", "ready 2026-03-11", "day view 1"};
    EXPECT_EQ(window.calls, expected);
    EXPECT_EQ(window.helpFile, practice.file("Solvane.chm"));
}

TEST_F(StartingUp, TheSessionKnowsUserScheduleAndPractice) {
    Session().SoundEffects = true;

    ASSERT_TRUE(start());

    const SessionValues& session = Session();
    EXPECT_EQ(session.UID, "ANNA");
    EXPECT_EQ(session.UserType, 1);
    EXPECT_EQ(session.UserName, "Adler");
    EXPECT_EQ(session.ProviderId, "ANNA");
    EXPECT_EQ(session.ProviderName, "Adler");
    EXPECT_EQ(session.NotesAccess, 2);
    EXPECT_EQ(session.WordUsage, "Client");
    EXPECT_EQ(session.PhoneMask, "(###) ###-####");
    EXPECT_FALSE(session.SoundEffects);
    EXPECT_EQ(session.CurrentView, View::Day);
    EXPECT_FALSE(session.OsUserName.isEmpty());
    EXPECT_TRUE(session.Connection.IsOpen());
}

TEST_F(StartingUp, WithoutACentralInstallationAllFiveFoldersAreTheDataFolder) {
    ASSERT_TRUE(start());

    for (const QString& folder :
         {Session().AppPath, Session().IniPath, Session().DocPath, Session().SharedPath2, Session().SignaturePath})
        EXPECT_EQ(folder, practice.path());
    EXPECT_EQ(Session().SolvaneIni, practice.file("solvane.ini"));
    EXPECT_EQ(Session().SchedulerIni, practice.file("svwsched.ini"));
}

TEST_F(StartingUp, ACentralInstallationTellsFoldersAndScrambleKey) {
    PutFile(practice.file("installation.ini"),
            "[Folders]\nAppPath=/opt/solvane\nIniPath=.\nDocPath=/srv/doc\n[Scramble]\nKey=5\n");

    ASSERT_TRUE(StartUp("1|ANNA", {{}, practice.file("installation.ini")}, window));

    EXPECT_EQ(Session().AppPath, "/opt/solvane");
    EXPECT_EQ(Session().IniPath, practice.path());
    EXPECT_EQ(Session().DocPath, "/srv/doc");
    EXPECT_EQ(Session().SharedPath2, "/opt/solvane");
    EXPECT_EQ(Session().ScrambleKey, 5);
    EXPECT_EQ(window.helpFile, "/opt/solvane/Solvane.chm");
}

TEST_F(StartingUp, ADataFolderThatWasAskedForWinsOverTheCentralInstallation) {
    PutFile(practice.file("installation.ini"), "[Folders]\nAppPath=/opt/solvane\n");

    ASSERT_TRUE(start());

    EXPECT_EQ(Session().IniPath, practice.path());
}

TEST_F(StartingUp, TheConnectionTextIsBuiltInItsOrder) {
    ASSERT_TRUE(start());

    EXPECT_EQ(Session().ConnectionString, practice.connectionText());
    EXPECT_EQ(GetServerName(), practice.database().source());
}

TEST_F(StartingUp, AnOldSvwschedIniGetsTheKeysOfThePrintLayout) {
    PutFile(practice.file("svwsched.ini"), "; ours\n[PrintLayout]\nTitleAlign=1\nTitleFontBold=\n");

    ASSERT_TRUE(start());

    EXPECT_EQ(FileBytes(practice.file("svwsched.ini")),
              "; ours\n[PrintLayout]\nTitleAlign=1\nTitleFontBold=False\nTitleFontItalic=False\nTimeFontBold=False\n"
              "TimeFontItalic=False\nTitleFontSize=8.25\nTimeFontSize=8.25\n");
}

TEST_F(StartingUp, APrintLayoutThatIsThereIsLeftAlone) {
    ASSERT_TRUE(start());

    EXPECT_EQ(FileBytes(practice.file("svwsched.ini")), "[PrintLayout]\nTitleFontBold=True\n");
}

TEST_F(StartingUp, TheCommandLineOfANotesUserIsKnownWithoutALogon) {
    practice.addUser("BERT", "Brandt", 0, "000000005");

    ASSERT_TRUE(start("0|BERT"));

    EXPECT_EQ(Session().UserName, "Brandt");
    EXPECT_EQ(Session().ScreenAccess, 2);
    EXPECT_TRUE(Session().AllProviders);
    EXPECT_TRUE(window.calls.contains("link"));
}

TEST_F(StartingUp, ACommandLineOfAnUnknownUserEnds) {
    desk.expectBox("No Provider name associated with this UID. See your System Administrator.", "Error");

    EXPECT_FALSE(start("1|NOBODY"));
}

TEST_F(StartingUp, ACommandLineWithoutAPipeNamesNobody) {
    desk.expectBox("No Provider name associated with this UID. See your System Administrator.", "Error");

    EXPECT_FALSE(start("ANNA"));
}

TEST_F(StartingUp, ACommandLineWithAQuoteNamesNobody) {
    desk.expectBox("No Provider name associated with this UID. See your System Administrator.", "Error");

    EXPECT_FALSE(start("1|x' or 'a'='a"));
}

TEST_F(StartingUp, AGarbledTypeIsNoAdministrator) {
    ASSERT_TRUE(start("admin|ANNA"));

    EXPECT_EQ(Session().UserType, 0);
    EXPECT_EQ(Session().UserName, "Adler");
}

TEST_F(StartingUp, ACommandLineUserWithoutRightsEnds) {
    practice.sql("Update passwords Set pswd_screen_access = '33333333'");
    desk.expectBox(
        "The User associated with this logon does not have access to the Scheduler. Please see your system administrator.",
        "Error");

    EXPECT_FALSE(start());
}

TEST_F(StartingUp, TheAdministratorOfTheCommandLineChoosesASchedule) {
    window.chosenId = "ANNA";

    ASSERT_TRUE(start("2|ADMIN"));

    EXPECT_EQ(Session().UserName, "System Administrator");
    EXPECT_EQ(Session().ScreenAccess, 3);
    EXPECT_EQ(Session().NotesAccess, 3);
    EXPECT_TRUE(Session().AllProviders);
    EXPECT_EQ(Session().ProviderId, "ANNA");
    EXPECT_EQ(Session().ProviderName, "Chosen");
    EXPECT_TRUE(window.calls.contains("link"));
}

TEST_F(StartingUp, AnAdministratorWhoChoosesNobodyEnds) {
    EXPECT_FALSE(start("2|ADMIN"));

    EXPECT_FALSE(window.calls.contains("access 3"));
}

TEST_F(StartingUp, WithoutACommandLineTheLogonAsks) {
    expectLogon("ANNA", "secret");

    ASSERT_TRUE(start(""));

    EXPECT_EQ(Session().ProviderId, "ANNA");
    EXPECT_EQ(Session().ProviderName, "Adler");
    EXPECT_LT(window.calls.indexOf("show"), window.calls.indexOf("access 3"));
}

TEST_F(StartingUp, ACancelledLogonEnds) {
    desk.expectForm("frmsvspl", [](QDialog& form) { form.findChild<QPushButton*>("cmdcancel")->click(); });

    EXPECT_FALSE(start(""));
}

TEST_F(StartingUp, AnAdministratorAtTheLogonChoosesASchedule) {
    practice.addLogin("ADMIN", 2, "");
    window.chosenId = "ANNA";
    expectLogon("ADMIN", "secret");

    ASSERT_TRUE(start(""));

    EXPECT_EQ(Session().UID, "ADMIN");
    EXPECT_EQ(Session().ProviderId, "ANNA");
}

TEST_F(StartingUp, TheLookOfFormsFollowsThePracticesPreferences) {
    practice.preference("![ALL]!", "Interface", "Sizing", "1");
    practice.preference("![ALL]!", "Interface", "FontSize", "11");
    practice.preference("![ALL]!", "Interface", "FontName", "DejaVu Sans");
    practice.preference("ANNA", "Interface", "FontSize", "9");

    ASSERT_TRUE(start());

    EXPECT_TRUE(Session().InterfaceSizing);
    EXPECT_EQ(Session().InterfaceFontSize, 11);
    EXPECT_EQ(Session().InterfaceFontName, "DejaVu Sans");
}

TEST_F(StartingUp, AFontSizeThatCannotBeReadBecomes8AndNoFontNameArial) {
    for (const char* size : {"7", "13", "0", "big", ""}) {
        practice.sql("Delete From User_Preferences");
        practice.preference("![ALL]!", "Interface", "FontSize", QString::fromLatin1(size));
        ResetSession();
        ASSERT_TRUE(start());
        EXPECT_EQ(Session().InterfaceFontSize, 8) << size;
        EXPECT_EQ(Session().InterfaceFontName, "Arial");
        EXPECT_FALSE(Session().InterfaceSizing);
    }
}

TEST_F(StartingUp, APracticeWithACompanionIsLinkedToIt) {
    practice.addCompanion("FH-1");
    practice.pairProvider("FH-1", 42, "ANNA");
    practice.sql("Update settings Set FHAutoExport = 1, UseFHSchedView = 0");
    practice.sql("Update passwords Set pswd_fh_ledger = 1");

    ASSERT_TRUE(start());

    EXPECT_EQ(Session().FHConnectionString, practice.companionText() + " ");
    EXPECT_TRUE(Session().FHAutoExport);
    EXPECT_FALSE(Session().UseFHSchedView);
    EXPECT_EQ(Session().FHDatabaseId, "FH-1");
    EXPECT_EQ(Session().FHProviderId, 42);
    EXPECT_TRUE(Session().FHLedgerHidden);
    EXPECT_TRUE(window.calls.contains("task pane FH-1"));
    EXPECT_EQ(window.calls.last(), "day view 1");
}

TEST_F(StartingUp, WhereThePracticeWantsItTheCompanionScheduleOpensFirst) {
    practice.addCompanion("FH-1");
    practice.pairProvider("FH-1", 42, "ANNA");
    practice.sql("Update settings Set UseFHSchedView = 1");

    ASSERT_TRUE(start());

    EXPECT_EQ(window.calls.last(), "changeview 5");
    EXPECT_FALSE(window.calls.contains("day view 1"));
}

TEST_F(StartingUp, AUserOfOneScheduleWithoutAPairWorksWithoutTheLink) {
    practice.addCompanion("FH-1");
    practice.pairProvider("FH-OTHER", 42, "ANNA");
    practice.sql("Update settings Set UseFHSchedView = 1");

    ASSERT_TRUE(start());

    EXPECT_EQ(Session().FHDatabaseId, "");
    EXPECT_EQ(Session().FHProviderId, 0);
    EXPECT_EQ(window.calls.last(), "day view 1");
}

TEST_F(StartingUp, AUserOfAllSchedulesKeepsTheLinkWithoutAPair) {
    practice.addCompanion("FH-1");
    practice.sql("Update passwords Set pswd_screen_access = '000012006'");
    practice.sql("Update settings Set UseFHSchedView = 1");

    ASSERT_TRUE(start());

    EXPECT_EQ(Session().FHDatabaseId, "FH-1");
    EXPECT_EQ(window.calls.last(), "day view 1");
}

TEST_F(StartingUp, ACompanionThatIsAwayIsToldAndTheDayIsShown) {
    practice.sql("Update settings Set FHServer = '.', FHDatabaseName = 'gone', UseFHSchedView = 1");
    desk.expectBox("Error connecting to Fernhall database. Make sure the connection settings are correct.", "Error");

    ASSERT_TRUE(start());

    EXPECT_EQ(Session().FHDatabaseId, "");
    EXPECT_EQ(window.calls.last(), "day view 1");
}

TEST_F(StartingUp, TheDataFolderIsClosedToAllOthers) {
    const QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QFile::setPermissions(practice.path(), own | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther);
    ASSERT_TRUE(start());
    EXPECT_EQ(QFile::permissions(practice.path()) & QFile::Permissions(0x7077), own);
}
