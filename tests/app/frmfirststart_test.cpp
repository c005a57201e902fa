// The first start on a computer that has no practice yet.

#include "app/frmfirststart.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QCommandLinkButton>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include "app/firststart.h"
#include "app/firstuserfields.h"
#include "app/options.h"
#include "data/scramble.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/desktop/practicedatabase.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

using upkeep::ServerAnswer;
using upkeep::ServerPlace;

namespace {

using State = ServerAnswer::State;

class FirstStart : public testing::Test {
  protected:
    FirstStart() {
        EXPECT_TRUE(temporary.isValid());
        form.show();
    }
    ~FirstStart() override { QThreadPool::globalInstance()->waitForDone(); }

    static void fill(const FirstUserFields& fields, const QString& again = QStringLiteral("let me in")) {
        QTest::keyClicks(fields.txtuid, QStringLiteral("novak"));
        fields.txtfirst->setText(QStringLiteral("Eva"));
        fields.txtlast->setText(QStringLiteral("O'Novak"));
        fields.txtpassword->setText(QStringLiteral("let me in"));
        fields.txtagain->setText(again);
    }
    /// Types a server and a database, and waits for the answer.
    void typeServer(const QString& server = QStringLiteral("db.practice.example")) {
        form.cmdserver->click();
        form.txtserver->setText(server);
        form.txtdatabase->setText(QStringLiteral("practice"));
        form.txtsvs->setText(QStringLiteral("secret"));
        await();
    }
    void await() {
        desk.passTime();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QString path(const char* name) const { return folder + QLatin1Char('/') + QLatin1String(name); }

    ScriptedDesk desk;
    QTemporaryDir temporary{TestFolderTemplate()};
    QString folder = temporary.path() + QStringLiteral("/svscheduler");
    ServerAnswer answer{.state = State::Ready, .engine = QStringLiteral("SQL Server 16"), .hasUsers = true};
    QList<ServerPlace> asked;
    frmfirststart form{folder, 3, [this](const ServerPlace& place) {
                           asked << place;
                           return answer;
                       }};
};

}  // namespace

TEST_F(FirstStart, OffersThreeWaysToBegin) {
    EXPECT_EQ(form.pages->currentIndex(), 0);
    EXPECT_FALSE(form.cmdOk->isVisible());
    EXPECT_EQ(form.focusWidget(), form.cmddemo);
    form.cmddemo->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.Chosen(), frmfirststart::Choice::Demo);
    EXPECT_FALSE(QFile::exists(folder));
}

TEST_F(FirstStart, OneDeskGetsAPracticeWithItsFirstUser) {
    form.cmddesk->click();
    EXPECT_FALSE(form.cmdOk->isEnabled());
    fill(*form.deskUser);
    EXPECT_EQ(form.deskUser->txtuid->text(), "NOVAK");
    ASSERT_TRUE(form.cmdOk->isEnabled());
    form.cmdOk->click();
    ASSERT_EQ(form.Chosen(), frmfirststart::Choice::OneDesk);
    db::Connection main;
    main.Open(PracticeConnectionText(folder));
    const std::vector<upkeep::User> users = upkeep::Users(main);
    ASSERT_EQ(users.size(), 1U);
    EXPECT_TRUE(users[0].isAdministrator);
    const auto value = [&](const char* statement) {
        return db::Recordset(QString::fromLatin1(statement), main)[0].text();
    };
    EXPECT_EQ(value("Select prov_lastname from provider_info Where id = 'NOVAK'"), "O'Novak");
    EXPECT_EQ(UnscramblePassword(value("Select pswd_password from passwords"), 3), "let me in");
    EXPECT_EQ(value("Select Count(*) from settings"), "1");
    EXPECT_EQ(value("Select facesheetmask from facesheet Where FacesheetId = 3"), "(###) ###-####");
    EXPECT_TRUE(QFile::exists(path("svwsched.ini")));
    EXPECT_FALSE(QFile::exists(path("credentials.ini")));
    EXPECT_EQ(QFile::permissions(path("practice.db")) & QFile::Permissions(0x0077), QFile::Permissions());
}

TEST_F(FirstStart, TwoPasswordsThatDifferAreToldAndNothingIsMade) {
    form.cmddesk->click();
    fill(*form.deskUser, QStringLiteral("let me on"));
    for (int time = 0; time < 2; ++time) {
        desk.expectBox("The two passwords differ.", "Password");
        form.cmdOk->click();
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(form.focusWidget(), form.deskUser->txtagain);
        EXPECT_FALSE(QFile::exists(folder));
    }
}

TEST_F(FirstStart, APasswordThatTheLogonCannotTakeLeavesNothingBehind) {
    form.cmddesk->click();
    fill(*form.deskUser);
    for (TextField* field : {form.deskUser->txtpassword, form.deskUser->txtagain})
        field->setText(QStringLiteral("a|b"));
    desk.expectBox(
        "The practice could not be set up. A password has letters, digits and signs of the English keyboard, without ! \" ' ; and |.",
        "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(QFile::exists(folder));
}

TEST_F(FirstStart, AFolderThatHasAPracticeMeanwhileIsLeftAlone) {
    form.cmddesk->click();
    fill(*form.deskUser);
    QDir().mkpath(folder);
    QFile theirs(path("practice.db"));
    ASSERT_TRUE(theirs.open(QIODevice::WriteOnly));
    theirs.write("theirs");
    theirs.close();
    desk.expectBox("The practice could not be set up. " + path("practice.db") +
                       " is there already. A new practice goes into a folder without one; nothing was changed.",
                   "Error");
    form.cmdOk->click();
    EXPECT_EQ(theirs.size(), 6);
    EXPECT_EQ(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{"practice.db"});
}

TEST_F(FirstStart, AServerIsAskedOnceAfterThePauseInTyping) {
    typeServer();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0].server, "db.practice.example");
    EXPECT_EQ(asked[0].password, "secret");
    EXPECT_EQ(form.lblanswer->text(), "SQL Server 16 answers. The database practice holds the practice.");
    EXPECT_TRUE(form.cmdOk->isEnabled());
    EXPECT_FALSE(form.serverUser->isVisible());
    form.txtsvs->setText(QStringLiteral("other"));
    EXPECT_EQ(form.lblanswer->text(), "");
    EXPECT_FALSE(form.cmdOk->isEnabled()) << "What is typed now was not asked yet.";
}

TEST_F(FirstStart, AnAnswerToWhatIsNoLongerTypedIsDropped) {
    form.cmdserver->click();
    form.txtserver->setText(QStringLiteral("old.example"));
    form.txtdatabase->setText(QStringLiteral("practice"));
    desk.passTime();
    QThreadPool::globalInstance()->waitForDone();
    form.txtserver->setText(QStringLiteral("new.example"));
    QCoreApplication::processEvents();
    EXPECT_EQ(form.lblanswer->text(), "");
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(FirstStart, WhoDoesNotAnswerIsToldInTheServersWords) {
    answer = {.state = State::Silent, .why = QStringLiteral("Login failed for user 'SVMaster'.")};
    typeServer();
    EXPECT_EQ(form.lblanswer->text(), "No connection. Login failed for user 'SVMaster'.");
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(FirstStart, ADatabaseThatIsNoPracticeIsNotTaken) {
    answer = {.state = State::Foreign,
              .engine = QStringLiteral("SQL Server 16"),
              .missing = {"appointments", "passwords", "rooms", "Groups", "Events", "ToDo"}};
    typeServer();
    EXPECT_EQ(
        form.lblanswer->text(),
        "SQL Server 16 answers, but the database practice is not one of a practice. It lacks appointments, passwords, rooms, Groups and 2 more.");
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(FirstStart, APracticeOfAnOlderVersionIsTakenAndTold) {
    answer.missing = {"WaitList"};
    typeServer();
    EXPECT_TRUE(form.lblanswer->text().contains("lacks WaitList; \"svscheduler-admin upgrade\" adds that."));
    EXPECT_TRUE(form.cmdOk->isEnabled());
}

TEST_F(FirstStart, AnEmptyDatabaseAsksForTheFirstAdministrator) {
    answer = {.state = State::Empty, .engine = QStringLiteral("SQL Server 16")};
    typeServer();
    EXPECT_TRUE(form.serverUser->isVisible());
    EXPECT_FALSE(form.cmdOk->isEnabled());
    fill(*form.serverUser);
    EXPECT_TRUE(form.cmdOk->isEnabled());
}

TEST_F(FirstStart, AFolderIsNoServer) {
    typeServer(QStringLiteral("/srv/practice"));
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(form.lblanswer->text(), "This is a folder. The practice's server has a name or an address.");
}

TEST_F(FirstStart, IsOnlyWhereNothingNamesAPractice) {
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", temporary.path().toLocal8Bit());
    const QString nowhere = temporary.path() + QStringLiteral("/installation.ini");
    EXPECT_TRUE(IsFirstStart({}, nowhere));
    AppOptions options;
    options.commandLine = QStringLiteral("1|REED");
    EXPECT_FALSE(IsFirstStart(options, nowhere));
    options = {};
    options.dataFolder = temporary.path();
    EXPECT_FALSE(IsFirstStart(options, nowhere));
    options = {};
    options.demo = true;
    EXPECT_FALSE(IsFirstStart(options, nowhere));
    QFile installation(nowhere);
    ASSERT_TRUE(installation.open(QIODevice::WriteOnly));
    installation.write("[Folders]\nAppPath=/opt/solvane\n");
    installation.close();
    EXPECT_FALSE(IsFirstStart({}, nowhere));
    installation.remove();
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(own);
    EXPECT_TRUE(IsFirstStart({}, nowhere)) << "An empty folder is no practice.";
    QFile file(own + QStringLiteral("/svwsched.ini"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_FALSE(IsFirstStart({}, nowhere)) << "A practice without solvane.ini is told.";
    before.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", before);
}
