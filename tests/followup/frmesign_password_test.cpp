// Signing by password.

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "followup/signaturestamp.h"
#include "platform/controls/textfield.h"
#include "platform/signature/websurface.h"
#include "tests/followup/signaturefixture.h"

namespace {

const QString WrongPassword =
    QStringLiteral("Error validating password for selected user or invalid password. Try again.");
const QString Solvane = QStringLiteral("Solvane");

class SigningByPassword : public SignatureFixture {
  protected:
    SigningByPassword() { open(request(SignatureWay::Password)); }

    void open(const SignatureRequest& asked) {
        form = std::make_unique<frmesign>(asked);
        form->show();
    }
    void type(const QString& user, const QString& password) {
        form->txtuserid->clear();
        form->txtpw->clear();
        QTest::keyClicks(form->txtuserid, user);
        QTest::keyClicks(form->txtpw, password);
    }
    void sign(const QString& user, const QString& password) {
        type(user, password);
        form->cmdSign->click();
    }
    [[nodiscard]] bool stays() const { return form->isVisible(); }

    std::unique_ptr<frmesign> form;
};

}  // namespace

TEST_F(SigningByPassword, ShowsWhoIsToSignAndWhatIsConfirmed) {
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Electronic Signature"));
    EXPECT_EQ(form->lblusername->text(), QStringLiteral("REED"));
    EXPECT_EQ(form->lblmessage1->text(), request(SignatureWay::Password).Message);
    EXPECT_TRUE(form->pnlpassword->isVisible());
    EXPECT_FALSE(form->pnlpad->isVisible() || form->pnlweb->isVisible());
    EXPECT_EQ(form->txtpw->echoMode(), QLineEdit::Password);
    EXPECT_EQ(form->focusWidget(), form->txtuserid);
}

TEST_F(SigningByPassword, StampsTheNoteWithSoundAndCloses) {
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_FALSE(stays());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(desk.sounds, QStringList{QStringLiteral("/practice/findlist.wav")});
    EXPECT_EQ(stamped("SignatureName"), QStringLiteral("Anna O'Reed"));
    EXPECT_EQ(stamped("SignatureNameSuper"), QStringLiteral("REED"));
    EXPECT_EQ(database.number(QStringLiteral(
                  "Select Count(*) from sessions Where DateDiff(minute, SignatureDate, GetDate()) Between 0 And 1")),
              1);
    EXPECT_EQ(drawings(), 0);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(SigningByPassword, OtherNotesStayUnsigned) {
    const int other = addNote(QStringLiteral("Null"));
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_EQ(database.number(db::Sql("Select Count(*) from sessions Where id = {} And SignatureDate Is Null", other)),
              1);
}

TEST_F(SigningByPassword, AUserIdTypedInAnotherCaseIsAccepted) {
    sign(QStringLiteral("rEeD"), QStringLiteral("secret"));
    EXPECT_TRUE(isStamped());
}

TEST_F(SigningByPassword, TheEnterKeySigns) {
    type(QStringLiteral("REED"), QStringLiteral("secret"));
    QTest::keyClick(form->txtpw, Qt::Key_Return);
    EXPECT_TRUE(isStamped());
}

TEST_F(SigningByPassword, TheUserIdOfSomebodyElseIsRefusedFirst) {
    addUser(QStringLiteral("WARD"), QStringLiteral("other"));
    for (const char* user : {"WARD", "", "REED ", "REE"}) {
        desk.expectBox(QStringLiteral("User ID is not correct for selected Provider."), Solvane);
        sign(QString::fromLatin1(user), {});
        EXPECT_TRUE(stays());
        EXPECT_EQ(form->focusWidget(), form->txtuserid);
    }
    EXPECT_TRUE(nothingIsWritten());
    EXPECT_TRUE(desk.sounds.isEmpty());
}

TEST_F(SigningByPassword, AnEmptyPasswordIsAskedFor) {
    desk.expectBox(QStringLiteral("Enter a valid password."), Solvane);
    sign(QStringLiteral("REED"), {});
    EXPECT_TRUE(stays());
    EXPECT_EQ(form->focusWidget(), form->txtpw);
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningByPassword, AProviderWithoutALoginCannotSign) {
    SignatureRequest asked = request(SignatureWay::Password);
    asked.UserName.clear();
    open(asked);
    EXPECT_EQ(form->lblusername->text(), QStringLiteral("None. This provider cannot sign by password."));
    desk.expectBox(QStringLiteral("Enter a User ID."), Solvane);
    sign({}, QStringLiteral("secret"));
    EXPECT_EQ(form->focusWidget(), form->txtuserid);
    desk.expectBox(QStringLiteral("User ID is not correct for selected Provider."), Solvane);
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningByPassword, AWrongPasswordIsToldAndCanBeTypedAgain) {
    for (const char* password : {"Secret", "SECRET", "secret ", " secret", "secre", "x"}) {
        desk.expectBox(WrongPassword, Solvane);
        sign(QStringLiteral("REED"), QString::fromLatin1(password));
        EXPECT_TRUE(stays());
    }
    EXPECT_TRUE(nothingIsWritten());
    EXPECT_TRUE(desk.sounds.isEmpty());
    EXPECT_EQ(form->focusWidget(), form->txtpw);
    QTest::keyClicks(form->txtpw, QStringLiteral("secret"));
    form->cmdSign->click();
    EXPECT_TRUE(isStamped()) << "What was typed first was selected, and typed over.";
}

TEST_F(SigningByPassword, TheScrambledPasswordIsNotThePassword) {
    desk.expectBox(WrongPassword, Solvane);
    sign(QStringLiteral("REED"), ScramblePassword(QStringLiteral("secret"), Session().ScrambleKey));
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningByPassword, EveryPrintableCharacterMayStandInAPassword) {
    for (char character = ' '; character <= '~'; ++character) {
        const QString password = QStringLiteral("a%1%1b").arg(QLatin1Char(character));
        database.connection().Execute(QStringLiteral("Delete From passwords"));
        addUser(QStringLiteral("REED"), password);
        type(QStringLiteral("REED"), password);
        bool ok = false;
        form->VerifyPassword(QStringLiteral("REED"), ok);
        EXPECT_TRUE(ok) << character;
        form->txtpw->setText(password + u'x');
        desk.expectBox(WrongPassword, Solvane);
        form->VerifyPassword(QStringLiteral("REED"), ok);
        EXPECT_FALSE(ok) << character;
    }
}

TEST_F(SigningByPassword, APasswordThatIsNotStoredIsNeverRight) {
    for (const char* stored : {"''", "Null"}) {
        database.connection().Execute(
            db::Sql("Update passwords Set pswd_password = {}", db::Raw{QString::fromLatin1(stored)}));
        bool ok = true;
        desk.expectBox(WrongPassword, Solvane);
        form->VerifyPassword(QStringLiteral("REED"), ok);
        EXPECT_FALSE(ok) << stored;
    }
    database.connection().Execute(QStringLiteral("Delete From passwords"));
    desk.expectBox(WrongPassword, Solvane);
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningByPassword, AQuoteInTheUserIdIsPartOfIt) {
    SignatureRequest asked = request(SignatureWay::Password);
    asked.UserName = QStringLiteral("O'REED");
    open(asked);
    desk.expectBox(WrongPassword, Solvane);
    sign(QStringLiteral("O'REED"), QStringLiteral("secret"));
    addUser(QStringLiteral("O'REED"), QStringLiteral("se'cret"));
    sign(QStringLiteral("o'reed"), QStringLiteral("se'cret"));
    EXPECT_EQ(stamped("SignatureNameSuper"), QStringLiteral("O'REED"));
}

TEST_F(SigningByPassword, ALostDatabaseIsToldLikeAWrongPassword) {
    loseDatabase();
    desk.expectBox(WrongPassword, Solvane);
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_TRUE(stays());
}

TEST_F(SigningByPassword, CancelAndEscapeWriteNothing) {
    type(QStringLiteral("REED"), QStringLiteral("secret"));
    form->cmdcancel->click();
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_FALSE(stays());
    form->show();
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(stays());
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningByPassword, WhatTheDatabaseRefusesIsToldInTheBar) {
    const QString why = database.refuse(QStringLiteral("Update"), QStringLiteral("sessions"));
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_FALSE(stays());
    EXPECT_TRUE(nothingIsWritten());
    EXPECT_EQ(bar.Texts(), QStringList{QStringLiteral("The note is not signed. ") + why});
    EXPECT_TRUE(noTransactionIsOpen());
    database.allow(QStringLiteral("Update"), QStringLiteral("sessions"));
    open(request(SignatureWay::Password));
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_TRUE(isStamped());
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(SigningByPassword, ANameThatIsTooLongLeavesTheNoteUnsigned) {
    SignatureRequest asked = request(SignatureWay::Password);
    asked.ProviderName = QString(300, u'a');
    open(asked);
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_TRUE(nothingIsWritten());
    EXPECT_EQ(bar.Texts().size(), 1);
    EXPECT_TRUE(noTransactionIsOpen());
}

TEST_F(SigningByPassword, ANoteThatAnotherDeskDeletedStaysSilent) {
    removeNote();
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_FALSE(stays());
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(SigningByPassword, ForAnotherFormNothingIsStored) {
    SignatureRequest asked = request(SignatureWay::Password);
    asked.CallerName = QStringLiteral("frmother");
    open(asked);
    sign(QStringLiteral("REED"), QStringLiteral("secret"));
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_TRUE(nothingIsWritten());
}

TEST_F(SigningByPassword, NoBrowserIsLoaded) {
    int loaded = 0;
    MakeWebSurface() = [&loaded](QWidget*, QString*) -> WebSurface* {
        ++loaded;
        return nullptr;
    };
    open(request(SignatureWay::Password));
    open(request(SignatureWay::Pad));
    EXPECT_EQ(loaded, 0);
    MakeWebSurface() = WebSurfacePluginMaker();
}

TEST_F(SigningByPassword, EachAltKeyMeansOneThing) {
    for (const SignatureWay way : {SignatureWay::Password, SignatureWay::Pad}) {
        open(request(way));
        QString letters;
        for (const QLabel* label : form->findChildren<QLabel*>())
            if (label->isVisible() && label->buddy() != nullptr)
                letters += label->text().section(u'&', 1).left(1).toUpper();
        for (const QPushButton* button : form->findChildren<QPushButton*>())
            if (button->isVisible())
                letters += button->text().section(u'&', 1).left(1).toUpper();
        EXPECT_EQ(letters.size(), 4);
        for (const QChar letter : letters)
            EXPECT_EQ(letters.count(letter), 1) << letters.toStdString();
    }
}

TEST_F(SigningByPassword, ADrawingOfADeletedNoteIsNotStored) {
    SaveSignature({note + 1000, QStringLiteral("Anna Reed"), QStringLiteral("Anna Reed"), QStringLiteral("REED"),
                   QStringLiteral("SVSIG1")});
    EXPECT_TRUE(nothingIsWritten());
    EXPECT_TRUE(noTransactionIsOpen());
}
