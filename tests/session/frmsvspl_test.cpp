#include "session/frmsvspl.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QCompleter>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "data/scramble.h"
#include "platform/desktop/inifile.h"
#include "session/session.h"
#include "tests/session/practice.h"
#include "tests/support/files.h"
#include "tests/support/scripteddesk.h"

namespace {

class Logon : public testing::Test {
  protected:
    Logon() {
        practice.connect();
        practice.addUser("ANNA", "Adler", 1, "000012006", "secret");
        practice.addLogin("ADMIN", 2, "000001000", "master");
    }
    // The dialog as the user finds it; made when a test first asks for it.
    frmsvspl& form() {
        if (!form_) {
            form_ = std::make_unique<frmsvspl>();
            form_->show();
            form_->activateWindow();
            QApplication::processEvents();
        }
        return *form_;
    }
    template <typename Widget>
    Widget& part(const char* name) {
        auto* found = form().findChild<Widget*>(QString::fromLatin1(name));
        if (!found)
            throw std::runtime_error(name);
        return *found;
    }
    QLineEdit& txtuid() { return part<QLineEdit>("txtuid"); }
    /// The list below the user id, after a failure.
    QAbstractItemView& offered() { return *txtuid().completer()->popup(); }
    QLineEdit& txtpassword() { return part<QLineEdit>("txtpassword"); }
    void logOn(const char* uid, const char* password) {
        txtuid().setText(QString::fromLatin1(uid));
        txtpassword().setText(QString::fromLatin1(password));
        QTest::mouseClick(&part<QPushButton>("cmdOk"), Qt::LeftButton);
    }
    [[nodiscard]] QString remembered(const char* key) const {
        return ReadIniValue(Session().SolvaneIni, "USER", QString::fromLatin1(key));
    }

    ScriptedDesk desk;
    Practice practice;

  private:
    std::unique_ptr<frmsvspl> form_;
};

const char* const WrongUser = "Invalid User ID or Password. Try again.";

}  // namespace

TEST_F(Logon, AProviderIsKnownWithNameAndRights) {
    logOn("ANNA", "secret");

    EXPECT_EQ(form().result(), QDialog::Accepted);
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(Session().UID, "ANNA");
    EXPECT_EQ(Session().UserType, 1);
    EXPECT_EQ(Session().UserName, "Adler");
    EXPECT_EQ(Session().ScreenAccess, 3);
    EXPECT_TRUE(Session().AllProviders);
    EXPECT_EQ(Session().NotesAccess, 2);
}

TEST_F(Logon, TheAdministratorHasEveryRightButTheirOwnNotesDigit) {
    logOn("ADMIN", "master");

    EXPECT_EQ(Session().UID, "ADMIN");
    EXPECT_EQ(Session().UserName, "System Administrator");
    EXPECT_EQ(Session().ScreenAccess, 3);
    EXPECT_TRUE(Session().AllProviders);
    EXPECT_EQ(Session().NotesAccess, 1);
}

TEST_F(Logon, AUserWithoutAccessToTheSchedulerMayRead) {
    practice.addUser("BERT", "Brandt", 0, "000000000");

    logOn("BERT", "secret");

    EXPECT_EQ(Session().UID, "BERT");
    EXPECT_EQ(Session().ScreenAccess, 1);
    EXPECT_FALSE(Session().AllProviders);
}

TEST_F(Logon, AWrongPasswordClearsBothBoxesAndGoesBackToTheUser) {
    desk.expectBox(WrongUser, "No Matching Record");

    logOn("ANNA", "Secret");

    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(txtuid().text(), "");
    EXPECT_EQ(txtpassword().text(), "");
    EXPECT_TRUE(txtuid().hasFocus());
    EXPECT_EQ(Session().UID, "");
    EXPECT_FALSE(part<QPushButton>("cmdOk").isEnabled());
}

TEST_F(Logon, AnUnknownUserIsRefusedInTheSameWordsAndMayTryAgain) {
    desk.expectBox(WrongUser, "No Matching Record");
    logOn("NOBODY", "secret");
    EXPECT_EQ(Session().UID, "");

    logOn("ANNA", "secret");

    EXPECT_EQ(Session().UID, "ANNA");
}

TEST_F(Logon, AQuoteInARememberedUserIsNoWayAround) {
    PutFile(Session().SolvaneIni, "[USER]\nUID=x' or 'a' = 'a\n");
    desk.expectBox(WrongUser, "No Matching Record");
    txtpassword().setText("secret");

    QTest::mouseClick(&part<QPushButton>("cmdOk"), Qt::LeftButton);

    EXPECT_EQ(Session().UID, "");
}

TEST_F(Logon, AnInactiveUserIsRefused) {
    practice.sql("Update provider_info Set archive = 1");
    desk.expectBox("This user is inactive. Activate before attempting loggon.", "User Inactive");

    logOn("ANNA", "secret");

    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(txtuid().text(), "");
    EXPECT_EQ(txtpassword().text(), "");
    EXPECT_TRUE(txtuid().hasFocus());
    EXPECT_EQ(Session().UID, "");
}

TEST_F(Logon, WithoutAnyUserThereIsNobodyToLogOn) {
    practice.sql("Delete From passwords");
    desk.expectBox("You must first run Solvane and setup a User Id and Password!", "No Passwords");

    logOn("ANNA", "secret");

    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(form().result(), QDialog::Rejected);
    EXPECT_EQ(Session().UID, "");
}

TEST_F(Logon, WithoutADatabaseThereIsNobodyToLogOn) {
    Session().Connection.Close();
    desk.expectBox("You must first run Solvane and setup a User Id and Password!", "No Passwords");

    logOn("ANNA", "secret");

    EXPECT_FALSE(form().isVisible());
}

TEST_F(Logon, EscapeAndCancelLeaveNobodyLoggedOn) {
    Session().UID = "BEFORE";
    QTest::keyClick(&form(), Qt::Key_Escape);
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(Session().UID, "");
}

TEST_F(Logon, TheCancelButtonLeavesNobodyLoggedOn) {
    Session().UID = "BEFORE";
    QTest::mouseClick(&part<QPushButton>("cmdcancel"), Qt::LeftButton);
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(Session().UID, "");
}

TEST_F(Logon, AfterAFailureTheLastUserIdIsOfferedFromItsFirstLetterAndNoPasswordIs) {
    for (int time = 0; time < 2; ++time) {
        desk.expectBox("Invalid User ID or Password. Try again.", "No Matching Record");
        logOn("anna", "wrong");
        EXPECT_EQ(txtuid().text(), "");
        EXPECT_EQ(txtpassword().text(), "");
        EXPECT_EQ(txtpassword().completer(), nullptr);
        EXPECT_EQ(txtuid().placeholderText(), "Down arrow: anna");
        QTest::keyClicks(&txtuid(), "A");
        EXPECT_EQ(txtuid().text(), "A");
        ASSERT_TRUE(offered().isVisible());
        QTest::keyClick(&offered(), Qt::Key_Down);
        QTest::keyClick(&offered(), Qt::Key_Return);
        EXPECT_EQ(txtuid().text(), "anna");
        EXPECT_FALSE(offered().isVisible());
    }
    QTest::keyClick(&txtuid(), Qt::Key_Tab);
    QTest::keyClicks(&txtpassword(), "secret");
    QTest::keyClick(&txtpassword(), Qt::Key_Return);
    EXPECT_EQ(Session().UID, "ANNA");
}

TEST_F(Logon, AfterAFailureTheDownKeyBringsTheLastUserIdBack) {
    desk.expectBox("Invalid User ID or Password. Try again.", "No Matching Record");
    logOn("ANNA", "wrong");
    QTest::keyClick(&txtuid(), Qt::Key_Down);
    EXPECT_EQ(txtuid().text(), "ANNA");
}

TEST_F(Logon, TheDownKeyBringsTheLastUserIdBackAfterAnotherOneWasBegun) {
    desk.expectBox(WrongUser, "No Matching Record");
    logOn("ANNA", "wrong");
    QTest::keyClicks(&txtuid(), "B");
    QTest::keyClick(&txtuid(), Qt::Key_Backspace);
    ASSERT_EQ(txtuid().text(), "");
    QTest::keyClick(&txtuid(), Qt::Key_Down);
    EXPECT_EQ(txtuid().text(), "ANNA");
}

TEST_F(Logon, AUserIdThatBeginsTheOneThatFailedStaysAsItWasTyped) {
    practice.addUser("ANN", "Arnold", 1, "000012006", "hers");
    desk.expectBox(WrongUser, "No Matching Record");
    logOn("ANNA", "wrong");
    QTest::keyClicks(&txtuid(), "ANN");
    QTest::keyClick(&offered(), Qt::Key_Tab);
    EXPECT_EQ(txtuid().text(), "ANN");
    EXPECT_TRUE(txtpassword().hasFocus());
    EXPECT_FALSE(offered().isVisible());
    QTest::keyClicks(&txtpassword(), "hers");
    QTest::keyClick(&txtpassword(), Qt::Key_Return);
    EXPECT_EQ(Session().UID, "ANN");
}

TEST_F(Logon, BeforeAFailureNobodyIsOffered) {
    QTest::keyClicks(&txtuid(), "A");
    EXPECT_EQ(txtuid().text(), "A");
    EXPECT_EQ(txtuid().completer(), nullptr);
}

TEST_F(Logon, EnterLogsOnFromThePasswordBox) {
    QTest::keyClicks(&txtuid(), "anna");
    QTest::keyClicks(&txtpassword(), "secret");
    QTest::keyClick(&txtpassword(), Qt::Key_Return);

    EXPECT_EQ(Session().UID, "ANNA");
}

TEST_F(Logon, OkWaitsUntilBothBoxesHoldSomethingBeyondBlanks) {
    QPushButton& ok = part<QPushButton>("cmdOk");
    EXPECT_FALSE(ok.isEnabled());
    QTest::keyClicks(&txtuid(), "ANNA");
    EXPECT_FALSE(ok.isEnabled());
    QTest::keyClicks(&txtpassword(), "  ");
    EXPECT_FALSE(ok.isEnabled());
    QTest::keyClicks(&txtpassword(), "x");
    EXPECT_TRUE(ok.isEnabled());
    txtuid().clear();
    EXPECT_FALSE(ok.isEnabled());
}

TEST_F(Logon, TheUserBoxTakesOnlyItsCharacters) {
    QString every;
    QString accepted;
    for (char16_t c = 32; c < 128; ++c) {
        every += QChar(c);
        if ((c >= 48 && c <= 123) || c == 125 || c == 126)
            accepted += QChar(c);
    }

    QTest::keyClicks(&txtuid(), every.chopped(1));
    EXPECT_EQ(txtuid().text(), accepted);

    QTest::keyClick(&txtuid(), Qt::Key_Backspace);
    EXPECT_EQ(txtuid().text(), accepted.chopped(1));
}

TEST_F(Logon, ThePasswordBoxDropsFiveCharacters) {
    QTest::keyClicks(&txtpassword(), "a!b\"c'd;e|f g#");

    EXPECT_EQ(txtpassword().text(), "abcdef g#");
}

TEST_F(Logon, PastedTextIsFilteredLikeTypedText) {
    QGuiApplication::clipboard()->setText("an-na.ad|ler \u00e9");
    txtuid().paste();
    EXPECT_EQ(txtuid().text(), "annaadler");

    QGuiApplication::clipboard()->setText("it's \"ok\"!");
    txtpassword().paste();
    EXPECT_EQ(txtpassword().text(), "its ok");
}

TEST_F(Logon, ADroppedCharacterLeavesTheCursorWhereItWas) {
    txtuid().setText("ANNA");
    txtuid().setCursorPosition(2);

    QTest::keyClicks(&txtuid(), "-x");

    EXPECT_EQ(txtuid().text(), "ANxNA");
    EXPECT_EQ(txtuid().cursorPosition(), 3);
}

TEST_F(Logon, EnteringABoxSelectsItsText) {
    txtuid().setText("ANNA");
    txtpassword().setText("secret");
    for (QLineEdit* box : {&txtpassword(), &txtuid(), &txtpassword()}) {
        QTest::mouseClick(box, Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_EQ(box->selectedText(), box->text());
    }
}

TEST_F(Logon, TypingIntoABoxReachedByKeyReplacesItsText) {
    txtuid().setText("ANNA");
    txtpassword().setText("secret");
    QTest::keyClick(&txtuid(), Qt::Key_Tab);
    QTest::keyClicks(&txtpassword(), "new");

    EXPECT_EQ(txtpassword().text(), "new");
}

TEST_F(Logon, AltKeysReachTheBoxes) {
    txtpassword().setFocus();
    QTest::keyClick(&form(), Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(txtuid().hasFocus());
    QTest::keyClick(&form(), Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(txtpassword().hasFocus());
}

TEST_F(Logon, TheTabKeyWalksFromUserToPasswordToTheButtons) {
    txtuid().setText("ANNA");
    txtpassword().setText("x");
    txtuid().setFocus();
    for (const char* next : {"txtpassword", "cmdOk", "cmdcancel", "txtuid"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QString::fromLatin1(next));
    }
}

TEST_F(Logon, TheLastUserStandsInTheBoxAndThePasswordIsNext) {
    PutFile(Session().SolvaneIni, "[USER]\nUID=ANNA\n");

    EXPECT_EQ(txtuid().text(), "ANNA");
    EXPECT_TRUE(txtpassword().hasFocus());
}

TEST_F(Logon, WithNobodyRememberedTheUserComesFirst) {
    EXPECT_TRUE(txtuid().hasFocus());
}

TEST_F(Logon, TheUserIsRememberedAsTypedAndThePasswordIsNot) {
    logOn("anna", "secret");

    EXPECT_EQ(remembered("UID"), "anna");
    EXPECT_EQ(remembered("Password"), "");
    EXPECT_EQ(Session().UID, "ANNA");
}

TEST_F(Logon, WhereThePracticeRecallsPasswordsItIsKeptScrambled) {
    practice.sql("Update settings Set recallpw = 1");

    logOn("ANNA", "secret");

    EXPECT_EQ(remembered("Password"), ScramblePassword("secret", DefaultScrambleKey));
    EXPECT_FALSE(FileBytes(Session().SolvaneIni).contains("secret"));
}

TEST_F(Logon, ARecalledPasswordStandsInTheBoxAndTheTickTellsSo) {
    practice.sql("Update settings Set recallpw = 1");
    PutFile(Session().SolvaneIni, "[USER]\nUID=ANNA\n");
    WriteIniValue(Session().SolvaneIni, "USER", "Password", ScramblePassword("secret", DefaultScrambleKey));

    EXPECT_EQ(txtpassword().text(), "secret");
    EXPECT_TRUE(part<QCheckBox>("ckpassword").isChecked());
    EXPECT_TRUE(part<QCheckBox>("ckpassword").isVisible());
    QTest::keyClick(&txtpassword(), Qt::Key_Return);
    EXPECT_EQ(Session().UID, "ANNA");
}

TEST_F(Logon, WhereThePracticeDoesNotRecallPasswordsAStoredOneIsNotShown) {
    PutFile(Session().SolvaneIni, "[USER]\nUID=ANNA\nPassword=abc\n");

    EXPECT_EQ(txtpassword().text(), "");
    EXPECT_FALSE(part<QCheckBox>("ckpassword").isChecked());
    EXPECT_FALSE(part<QCheckBox>("ckpassword").isVisible());
}

TEST_F(Logon, ARefusedUserIsNotRemembered) {
    PutFile(Session().SolvaneIni, "[USER]\nUID=ANNA\n");
    desk.expectBox(WrongUser, "No Matching Record");

    logOn("BERT", "secret");

    EXPECT_EQ(remembered("UID"), "ANNA");
}

TEST_F(Logon, ThePasswordIsNeverReadableOnTheScreen) {
    EXPECT_EQ(txtpassword().echoMode(), QLineEdit::Password);
}

TEST_F(Logon, VersionAndLegalTextAreTold) {
    EXPECT_EQ(part<QLabel>("Label3").text(), "Version " SVS_VERSION);
    EXPECT_FALSE(part<QLabel>("Label4").text().isEmpty());
}

TEST_F(Logon, AfterFiveWrongPasswordsEachFurtherTryWaitsLonger) {
    desk.setNow(QDateTime(QDate(2026, 11, 16), QTime(8, 0)));
    const auto wrongTry = [this] {
        desk.expectBox(WrongUser, "No Matching Record");
        logOn("ANNA", "guess");
        txtuid().setText("ANNA");
        txtpassword().setText("secret");
    };
    for (int wrong = 1; wrong < 5; ++wrong) {
        wrongTry();
        EXPECT_TRUE(part<QPushButton>("cmdOk").isEnabled()) << wrong;
        EXPECT_FALSE(part<QLabel>("lblwait").isVisible()) << wrong;
    }
    wrongTry();
    EXPECT_FALSE(part<QPushButton>("cmdOk").isEnabled());
    EXPECT_EQ(part<QLabel>("lblwait").text(), "Too many wrong passwords. Try again in 5 seconds.");
    EXPECT_TRUE(part<QLabel>("lblwait").isVisible());
    QTest::keyClick(&txtpassword(), Qt::Key_Return);
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(part<QPushButton>("cmdcancel").isEnabled());

    desk.setNow(QDateTime(QDate(2026, 11, 16), QTime(8, 0, 3)));
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return part<QLabel>("lblwait").text() == "Too many wrong passwords. Try again in 2 seconds."; }));
    desk.setNow(QDateTime(QDate(2026, 11, 16), QTime(8, 0, 5)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return part<QPushButton>("cmdOk").isEnabled(); }));
    EXPECT_FALSE(part<QLabel>("lblwait").isVisible());

    wrongTry();
    EXPECT_EQ(part<QLabel>("lblwait").text(), "Too many wrong passwords. Try again in 10 seconds.");
    // Setting the clock back locks nobody out for longer.
    desk.setNow(QDateTime(QDate(2026, 11, 15), QTime(8, 0)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !part<QPushButton>("cmdOk").isEnabled(); }));
    EXPECT_EQ(part<QLabel>("lblwait").text(), "Too many wrong passwords. Try again in 10 seconds.");
    desk.setNow(QDateTime(QDate(2026, 11, 16), QTime(8, 0, 15)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return part<QPushButton>("cmdOk").isEnabled(); }));
    logOn("ANNA", "secret");
    EXPECT_EQ(form().result(), QDialog::Accepted);
}

TEST_F(Logon, WrongPasswordsFromTheFifthOnGoToTheAuditLog) {
    desk.setNow(QDateTime(QDate(2026, 11, 16), QTime(16, 5, 9)));
    Session().ALEnabled = true;
    for (int wrong = 1; wrong <= 5; ++wrong) {
        EXPECT_EQ(practice.value("Select Count(*) from AuditLog"), "0");
        desk.expectBox(WrongUser, "No Matching Record");
        logOn("ANNA", "guess");
    }
    EXPECT_EQ(practice.value("Select Count(*) from AuditLog"), "1");
    EXPECT_EQ(
        practice.value(
            "Select LogUser + '|' + LogDate + '|' + LogLocation + '|' + LogListId + '|' + LogNotes + '|' + LogDescription from AuditLog"),
        "ANNA|2026/11/16 04:05:09 PM|Scheduler|Log On|-|Wrong User ID or Password given 5 times, last for ANNA");
}

TEST_F(Logon, TheRememberedPasswordIsReadableByItsOwnerAlone) {
    practice.sql("Update settings Set recallpw = 1");
    QFile::setPermissions(Session().SolvaneIni,
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    logOn("ANNA", "secret");
    EXPECT_NE(remembered("Password"), "");
    EXPECT_EQ(QFile::permissions(Session().SolvaneIni),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
}
