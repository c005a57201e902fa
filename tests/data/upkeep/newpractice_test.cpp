// What answers where a practice may be, and the desk that is made for it.

#include "data/upkeep/newpractice.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "data/scramble.h"
#include "data/upkeep/schemaversion.h"
#include "platform/desktop/credentials.h"
#include "platform/desktop/inifile.h"
#include "tests/support/testdatabase.h"

using upkeep::AskServer;
using upkeep::ServerAnswer;
using upkeep::ServerPlace;

namespace {

using State = ServerAnswer::State;

class NewDesk : public testing::Test {
  protected:
    [[nodiscard]] ServerPlace place() const {
        return {database.source(),
                database.catalog(),
                BuildDbPassword(QStringLiteral("SVS"), database.source(), QString()),
                {}};
    }
    void dropAll() {
        for (const QString& table : SchemaTables(SchemaScript::Main))
            DropTable(database.connection(), table);
    }

    TestDatabase database;
    QTemporaryDir temporary{TestFolderTemplate()};
    const QString folder = temporary.path() + QStringLiteral("/desk");
    const upkeep::NewUser novak{.id = QStringLiteral("NOVAK"),
                                .lastName = QStringLiteral("Novak"),
                                .password = QStringLiteral("let me in"),
                                .isAdministrator = true};
};

}  // namespace

TEST_F(NewDesk, APracticeWithUsersIsReady) {
    EXPECT_FALSE(AskServer(place()).hasUsers);
    ASSERT_EQ(upkeep::AddUser(database.connection(), novak, 3), "");
    const ServerAnswer answer = AskServer(place());
    EXPECT_EQ(answer.state, State::Ready);
    EXPECT_TRUE(answer.hasUsers);
    EXPECT_EQ(answer.missing, QStringList());
    EXPECT_EQ(answer.engine, database.connection().Facts().engine);
}

TEST_F(NewDesk, APracticeOfAnOlderVersionIsReadyAndTellsWhatItLacks) {
    DropTable(database.connection(), QStringLiteral("WaitList"));
    const ServerAnswer answer = AskServer(place());
    EXPECT_EQ(answer.state, State::Ready);
    EXPECT_EQ(answer.missing, QStringList{"WaitList"});
}

TEST_F(NewDesk, ADatabaseWithoutAppointmentsIsForeign) {
    DropTable(database.connection(), QStringLiteral("appointments"));
    EXPECT_EQ(AskServer(place()).state, State::Foreign);
}

TEST_F(NewDesk, NobodyAnswersForADatabaseThatIsNotThere) {
    ServerPlace nowhere = place();
    nowhere.database = QStringLiteral("not there; \"at all\"");
    const ServerAnswer answer = AskServer(nowhere);
    EXPECT_EQ(answer.state, State::Silent);
    EXPECT_FALSE(answer.why.isEmpty());
}

TEST_F(NewDesk, AnEmptyDatabaseGetsItsTablesAndItsFirstUser) {
    if (database.isOnServer())
        GTEST_SKIP() << "The program's login may make no tables on the server for tests.";
    dropAll();
    EXPECT_EQ(AskServer(place()).state, State::Empty);
    ServerPlace there = place();
    there.companionPassword = QStringLiteral("f;h");
    upkeep::MakeServerDesk(folder, there, novak, 3);
    EXPECT_EQ(upkeep::MissingParts(database.connection(), SchemaScript::Main), QStringList());
    EXPECT_EQ(upkeep::SchemaVersion(database.connection()), CurrentSchema);
    EXPECT_EQ(upkeep::Users(database.connection()).size(), 1U);
    EXPECT_EQ(database.number("Select Count(*) from settings"), 1);
    const auto value = [this](const char* file, const char* section, const char* key) {
        return ReadIniValue(folder + QLatin1Char('/') + QLatin1String(file), QLatin1String(section),
                            QLatin1String(key));
    };
    EXPECT_EQ(value("solvane.ini", "SQLServer", "DataSource"), database.source());
    EXPECT_EQ(value("solvane.ini", "SQLServer", "InitialCatalog"), database.catalog());
    EXPECT_EQ(value("solvane.ini", "USER", "UID"), "NOVAK");
    EXPECT_EQ(value("credentials.ini", "Password", "FH"), "f;h");
    EXPECT_EQ(QFile::permissions(folder + "/credentials.ini") & QFile::Permissions(0x0077), QFile::Permissions());
}

TEST_F(NewDesk, TablesWhoseFirstRowsFailedGetThemAtTheNextTry) {
    database.connection().Execute("Delete from DefaultFieldValues Where dfltfieldname = 'SVSchedulerSchema'");
    database.connection().Execute("Insert Into NoteTypes (NoteType, applyauths) Values ('Ours', 0)");
    ASSERT_EQ(database.number("Select Count(*) from settings"), 0);
    upkeep::MakeServerDesk(folder, place(), novak, 3);
    EXPECT_EQ(upkeep::SchemaVersion(database.connection()), CurrentSchema);
    EXPECT_EQ(database.number("Select Count(*) from settings"), 1);
    EXPECT_EQ(database.number("Select Count(*) from CourtesyCallCodes"), 7);
    EXPECT_EQ(database.number("Select Count(*) from facesheet"), 3);
    EXPECT_EQ(database.number("Select Count(*) from session_types"), 5);
    EXPECT_EQ(database.text("Select NoteType from NoteTypes"), "Ours");
    EXPECT_EQ(database.number("Select Count(*) from NoteTypes"), 1) << "A list that has rows stays as it is.";
    EXPECT_EQ(upkeep::Users(database.connection()).size(), 1U);
}

TEST_F(NewDesk, APracticeAtWorkGetsNoFirstRows) {
    ASSERT_EQ(upkeep::AddUser(database.connection(), novak, 3), "");
    upkeep::MakeServerDesk(folder, place(), novak, 3);
    EXPECT_EQ(database.number("Select Count(*) from settings"), 0);
    EXPECT_EQ(database.number("Select Count(*) from session_types"), 0);
}

TEST_F(NewDesk, SettingsWithoutUsersAreAPracticeThatKeepsItsLists) {
    database.connection().Execute("Insert Into settings (ALEnabled, recallpw, wordusage) Values (0, 0, 'Client')");
    upkeep::MakeServerDesk(folder, place(), novak, 3);
    EXPECT_EQ(database.text("Select wordusage from settings"), "Client");
    EXPECT_EQ(database.number("Select Count(*) from session_types"), 0);
}

TEST_F(NewDesk, APracticeThatHasUsersKeepsThem) {
    ASSERT_EQ(upkeep::AddUser(database.connection(), novak, 3), "");
    upkeep::NewUser other = novak;
    other.id = QStringLiteral("OTHER");
    upkeep::MakeServerDesk(folder, place(), other, 3);
    EXPECT_EQ(database.text("Select pswd_user_id from passwords"), "NOVAK");
    EXPECT_EQ(database.number("Select Count(*) from passwords"), 1);
}
