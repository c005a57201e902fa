#include "shell/frmabout.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/noticebar.h"
#include "platform/desktop/errorlog.h"
#include "tests/shell/mainwindowfixture.h"
#include "tests/support/files.h"
#include "tests/support/testdatabase.h"

namespace {

class AboutProgram : public MainWindowFixture {
  protected:
    AboutProgram() { qputenv("XDG_STATE_HOME", state.path().toLocal8Bit()); }
    ~AboutProgram() override { qunsetenv("XDG_STATE_HOME"); }

    ScriptedDesk desk;
    QTemporaryDir state;
};

}  // namespace

TEST_F(AboutProgram, NamesTheVersionsAndNeitherServerNorUser) {
    TestDatabase database;
    Session().Connection.Open(database.connectionText());
    const QString facts = ProgramFacts();
    EXPECT_TRUE(facts.startsWith(QStringLiteral("SVScheduler " SVS_VERSION "\nQt "))) << facts.toStdString();
    EXPECT_TRUE(
        facts.contains(database.isOnServer() ? QStringLiteral("\nDriver: ") : QStringLiteral("\nDatabase: SQLite 3")))
        << facts.toStdString();
    EXPECT_TRUE(facts.contains(QStringLiteral("\nSchema: without a number\n")));
    EXPECT_FALSE(facts.contains(QStringLiteral("REED")));
    EXPECT_FALSE(facts.contains(database.source()));
    qunsetenv("XDG_STATE_HOME");
    EXPECT_TRUE(ProgramFacts().endsWith(QStringLiteral("\nLog: ~/.local/state/svscheduler/errors.log")));
    WriteSchemaVersion(database.connection());
    EXPECT_TRUE(ProgramFacts().contains(QStringLiteral("\nSchema: %1\n").arg(CurrentSchema)));
}

TEST_F(AboutProgram, SaysThatThereIsNoConnection) {
    EXPECT_TRUE(ProgramFacts().contains(QStringLiteral("\nDatabase: not connected\n")));
    EXPECT_FALSE(ProgramFacts().contains(QStringLiteral("Schema")));
}

TEST_F(AboutProgram, CopiesItsFactsByTheButton) {
    desk.expectForm("frmabout", [](QDialog& form) {
        QTest::keyClick(form.findChild<QPushButton*>(QStringLiteral("cmdcopy")), Qt::Key_Space);
        EXPECT_EQ(QApplication::clipboard()->text(),
                  form.findChild<QPlainTextEdit*>(QStringLiteral("txtfacts"))->toPlainText());
        EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QStringLiteral("SVScheduler ")));
    });
    ShowAbout(nullptr);
}

TEST_F(AboutProgram, OffersTheNoteOfACrashOnce) {
    mdisched& open = start();
    auto* bar = open.findChild<NoticeBar*>();
    OfferCrashNote(&open);
    EXPECT_EQ(bar->Texts(), QStringList()) << "There was no crash.";
    QDir().mkpath(StateFolder());
    PutFile(StateFolder() + QStringLiteral("/crash.txt"), "SVScheduler was ended by SIGSEGV\n");
    OfferCrashNote(&open);
    ASSERT_EQ(bar->Texts().size(), 1);
    desk.expectForm("frmabout", [](QDialog& form) {
        EXPECT_TRUE(form.findChild<QPlainTextEdit*>(QStringLiteral("txtfacts"))
                        ->toPlainText()
                        .contains(QStringLiteral("was ended by SIGSEGV")));
    });
    auto* show = bar->findChild<QAbstractButton*>(QStringLiteral("cmdNotice"));
    ASSERT_NE(show, nullptr);
    show->click();
    QCoreApplication::processEvents();
    OfferCrashNote(&open);
    EXPECT_EQ(bar->Texts(), QStringList());
}
