#include "output/frmemail.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/files.h"
#include "tests/support/mailserver.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

constexpr int Patience = 60'000;  ///< A busy machine may take its time.

const QString Solvane = QStringLiteral("Solvane");
const QString NewMessageTitle = QStringLiteral("New Message");
const QString GiveUp = QStringLiteral("Close without sending the message?");
const QString Sent = QStringLiteral("Message sent successfully.");
const QString WhereToSet =
    QStringLiteral("\nPlease have an admin user login, and go to Setup, Preferences, e-Prescribing, Email.");

class MailForm : public testing::Test {
  protected:
    MailForm() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Session().AppPath = folder.path();
        sql("Insert Into settings (wordusage) Values ('Client')");
        sql("Insert Into CompanyInfo (CompanyName, emailaddress) Values ('Reed Practice', 'desk@practice.example')");
    }
    ~MailForm() override {
        form.reset();
        ResetSession();
    }

    void sql(const QString& statement) { database.connection().Execute(statement); }
    void useServer(const MailServer& server, int ssl = 0) {
        sql(db::Sql("Update settings Set SMTPServer = '127.0.0.1', SMTPPort = {}, SMTPSSL = {}", server.port(), ssl));
    }
    void useAccount(const QString& user, const QString& password) {
        sql(db::Sql("Update settings Set SMTPUser = '{}', SMTPPW = '{}'", user,
                    ScramblePassword(password, Session().ScrambleKey)));
    }

    frmEmail& open(const NewMessage& message = {"anna@example.org", "Appointment Confirmation", "See you."}) {
        form = std::make_unique<frmEmail>(message);
        form->show();
        form->activateWindow();
        QApplication::processEvents();
        return *form;
    }
    void clickSend() const { QTest::mouseClick(form->SSRibbon1, Qt::LeftButton); }
    void awaitEnd() const {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !form->IsSending(); }, Patience)) << "The sending has no end.";
    }
    void send() const {
        clickSend();
        awaitEnd();
    }
    /// Puts a text in place of the one in the field, as an input method does.
    static void type(QLineEdit* field, const QString& text) {
        field->setFocus();
        field->selectAll();
        field->insert(text);
    }
    [[nodiscard]] QString status() const { return form->lblstatus->text(); }
    [[nodiscard]] QByteArray log() const { return FileBytes(folder.filePath(QStringLiteral("smtplog.txt"))); }

    TestDatabase database;
    ScriptedDesk desk;
    QTemporaryDir folder{TestFolderTemplate()};
    std::unique_ptr<frmEmail> form;
};

}  // namespace

TEST_F(MailForm, OpensWithItsMessageAndTheFixedNotice) {
    const frmEmail& message = open();
    EXPECT_EQ(message.windowTitle(), NewMessageTitle);
    EXPECT_EQ(message.lblfrom->text(), "desk@practice.example");
    EXPECT_EQ(message.txtto->text(), "anna@example.org");
    EXPECT_EQ(message.txtcc->text(), "");
    EXPECT_EQ(message.txtbcc->text(), "");
    EXPECT_EQ(message.txtsubject->text(), "Appointment Confirmation");
    EXPECT_EQ(message.txtbody->toPlainText(), "See you.");
    EXPECT_EQ(message.SSRibbon1->text(), "&Send");
    EXPECT_EQ(
        message.findChild<QLabel*>("lblnotice")->text(),
        "Note: EMail sent using this feature is not sent via secure email. Do not send PHI using this function. For PHI contained in the email, you are required to use a secure email service.");
    QStringList captions;
    for (const QLabel* label : message.findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            captions << label->text();
    EXPECT_EQ(captions, QStringList({"&To:", "&Cc:", "&Bcc:", "S&ubject:"}));
}

TEST_F(MailForm, WithoutAServerItSaysSo) {
    open();
    desk.expectBox(QStringLiteral("SMTP Server name needs to be set."), Solvane);
    clickSend();
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->IsSending());
}

TEST_F(MailForm, NullSettingsAndNoRowAtAllAreNoServer) {
    sql("Update settings Set SMTPServer = null, SMTPUser = null, SMTPPW = null, SMTPPort = null, SMTPSSL = null, SMTPAuthMethod = null");
    open();
    desk.expectBox(QStringLiteral("SMTP Server name needs to be set."), Solvane);
    clickSend();
    sql("Delete from settings");
    open();
    desk.expectBox(QStringLiteral("SMTP Server name needs to be set."), Solvane);
    clickSend();
}

TEST_F(MailForm, WithoutASenderItSaysWhereToSetOne) {
    const MailServer server;
    useServer(server);
    for (const char* statement : {"Update CompanyInfo Set emailaddress = ''",
                                  "Update CompanyInfo Set emailaddress = null", "Delete from CompanyInfo"}) {
        sql(statement);
        open();
        desk.expectBox(QStringLiteral("A company email address is required.") + WhereToSet, Solvane);
        clickSend();
        EXPECT_TRUE(form->isVisible());
    }
}

TEST_F(MailForm, TheServerIsAskedForBeforeTheSender) {
    sql("Delete from CompanyInfo");
    open({});
    desk.expectBox(QStringLiteral("SMTP Server name needs to be set."), Solvane);
    clickSend();
}

TEST_F(MailForm, ASenderThatIsNoAddressIsTold) {
    const MailServer server;
    useServer(server);
    sql("Update CompanyInfo Set emailaddress = 'the desk'");
    open();
    desk.expectBox(QStringLiteral("The company email address is not valid: the desk") + WhereToSet, Solvane);
    clickSend();
}

TEST_F(MailForm, AMessageIsSentAndTheFormCloses) {
    MailServer server;
    useServer(server);
    open();
    desk.expectBox(Sent, Solvane);
    send();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].from, "desk@practice.example");
    EXPECT_EQ(messages[0].to, QStringList("anna@example.org"));
    EXPECT_EQ(messages[0].read["Subject"], "Appointment Confirmation");
    EXPECT_EQ(messages[0].read["body"], "See you.\r\n");
    EXPECT_FALSE(messages[0].read.contains("Cc"));
    EXPECT_EQ(messages[0].user, "");
    EXPECT_TRUE(log().contains("> RCPT TO:<anna@example.org>"));
}

TEST_F(MailForm, EverythingIsSentAsTyped) {
    MailServer server;
    useServer(server);
    open({});
    type(form->txtto, QStringLiteral("\"Müller, Änne\" <anne@example.org>; bo@example.org"));
    type(form->txtcc, QStringLiteral("cc@example.org, second@example.org"));
    type(form->txtbcc, QStringLiteral("secret@example.org"));
    type(form->txtsubject, QString(500, QChar(0xfc)));
    form->txtbody->setPlainText(QStringLiteral(".\nGrüße; a|b\n") + QString(3'000, 'x'));
    desk.expectBox(Sent, Solvane);
    QTest::keyClick(form->txtbody, Qt::Key_Return, Qt::ControlModifier);
    awaitEnd();
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].to, QStringList({"anne@example.org", "bo@example.org", "cc@example.org", "second@example.org",
                                           "secret@example.org"}));
    EXPECT_EQ(messages[0].read["To"], QStringLiteral("\"Müller, Änne\" <anne@example.org>, bo@example.org"));
    EXPECT_EQ(messages[0].read["Cc"], "cc@example.org, second@example.org");
    EXPECT_EQ(messages[0].read["Subject"], QString(500, QChar(0xfc)));
    EXPECT_EQ(messages[0].read["body"],
              QStringLiteral(".\r\nGrüße; a|b\r\n") + QString(3'000, 'x') + QStringLiteral("\r\n"));
    EXPECT_FALSE(messages[0].text.contains("secret"));
}

TEST_F(MailForm, AnAccountSignsInWithItsRestoredPassword) {
    MailServer server({"--account", "desk:s3cret"});
    useServer(server);
    useAccount("desk", "s3cret");
    open();
    desk.expectBox(Sent, Solvane);
    send();
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_EQ(server.messages()[0].user, "desk");
}

TEST_F(MailForm, TheEncryptedPathSendsTheCopiesTooAndHasItsOwnWords) {
    const MailCertificate certificate(QStringLiteral("127.0.0.1"));
    const TrustedCertificate trusted(certificate);
    MailServer server(QStringList{"--starttls", "--account", "desk:s3cret"} + certificate.options());
    useServer(server, 1);
    useAccount("desk", "s3cret");
    open();
    type(form->txtcc, "cc@example.org");
    type(form->txtbcc, "bcc@example.org");
    desk.expectBox(QStringLiteral("E-Mail Sent"), Solvane);
    send();
    EXPECT_FALSE(form->isVisible());
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].encrypted);
    EXPECT_EQ(messages[0].to, QStringList({"anna@example.org", "cc@example.org", "bcc@example.org"}));
}

TEST_F(MailForm, TheEncryptedPathSendsNothingInTheClear) {
    MailServer server;
    useServer(server, 1);
    open();
    desk.expectBox(
        QStringLiteral(
            "Error sending email. 64, The mail server does not offer encryption: 127.0.0.1, port %1. Nothing was sent.")
            .arg(server.port()),
        Solvane);
    send();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(server.messages().size(), 0U);
}

TEST_F(MailForm, OnlyOneMeansEncrypted) {
    for (const char* ssl : {"null", "0", "2"}) {
        MailServer server;
        useServer(server);
        sql(db::Sql("Update settings Set SMTPSSL = {}", db::Raw{QString::fromLatin1(ssl)}));
        open();
        desk.expectBox(Sent, Solvane);
        send();
    }
}

TEST_F(MailForm, ARefusalLeavesEverythingThatWasTyped) {
    MailServer server({"--refuse", "gone@example.org"});
    useServer(server);
    open();
    type(form->txtcc, "gone@example.org");
    form->txtbody->setFocus();
    form->txtbody->appendPlainText("More");
    desk.expectBox(QStringLiteral("There was an error sending your message. Error: 550"), Solvane);
    send();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(status(),
              "The mail server refused the message: 550 5.1.1 There is nobody of that name. Nothing was sent.");
    EXPECT_EQ(form->txtcc->text(), "gone@example.org");
    EXPECT_EQ(form->txtbody->toPlainText(), "See you.\nMore");
    EXPECT_FALSE(form->txtbody->isReadOnly());
    EXPECT_TRUE(form->SSRibbon1->isEnabled());
    EXPECT_FALSE(form->pnlprogress->isVisible());

    // Once it is mended the same form sends it.
    type(form->txtcc, "cc@example.org");
    desk.expectBox(Sent, Solvane);
    send();
    EXPECT_EQ(server.messages().size(), 1U);
}

TEST_F(MailForm, AServerThatIsNotThereLeavesTheFormOpen) {
    {
        const MailServer gone;
        useServer(gone);
    }
    open();
    desk.expectBox(QStringLiteral("There was an error sending your message. Error: 7"), Solvane);
    send();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(status().startsWith("The mail server could not be reached: 127.0.0.1, port "))
        << status().toStdString();
}

TEST_F(MailForm, WithoutARecipientNothingIsSent) {
    MailServer server;
    useServer(server);
    open();
    type(form->txtto, " ; ");
    type(form->txtcc, "cc@example.org");
    desk.expectBox(QStringLiteral("Enter the address of whom the message goes to."), Solvane);
    clickSend();
    EXPECT_TRUE(form->txtto->hasFocus());
    EXPECT_FALSE(form->IsSending());
}

TEST_F(MailForm, WhatIsNoAddressIsShownInItsField) {
    MailServer server;
    useServer(server);
    open();
    for (QLineEdit* field : {form->txtto, form->txtcc, form->txtbcc}) {
        type(field, "anna@example.org; nobody, bo@example.org");
        desk.expectBox(
            QStringLiteral(
                "This is not an e-mail address: nobody\nSeveral addresses are separated by commas or semicolons. A name that holds one of these stands in quotes."),
            Solvane);
        clickSend();
        EXPECT_TRUE(field->hasFocus());
        EXPECT_EQ(field->selectedText(), "nobody");
        type(field, "anna@example.org, anna");
        desk.expectBox(
            QStringLiteral(
                "This is not an e-mail address: anna\nSeveral addresses are separated by commas or semicolons. A name that holds one of these stands in quotes."),
            Solvane);
        clickSend();
        EXPECT_EQ(field->selectionStart(), 18) << "The first Anna is right.";
        type(field, "anna@example.org");
    }
}

TEST_F(MailForm, ALineBreakThatIsPastedMakesNoRecipientAndNoHeader) {
    MailServer server;
    useServer(server);
    open({"anna@example.org\r\nBcc: eve@example.org", "Hello\r\nBcc: eve@example.org", "See you."});
    EXPECT_EQ(form->txtto->text(), "anna@example.org Bcc: eve@example.org");
    desk.expectBox(
        QStringLiteral(
            "This is not an e-mail address: anna@example.org Bcc: eve@example.org\nSeveral addresses are separated by commas or semicolons. A name that holds one of these stands in quotes."),
        Solvane);
    clickSend();
    type(form->txtto, "anna@example.org");
    desk.expectBox(Sent, Solvane);
    send();
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_EQ(server.messages()[0].to, QStringList("anna@example.org"));
    EXPECT_FALSE(server.messages()[0].read.contains("Bcc"));
}

TEST_F(MailForm, EscapeAsksOnlyAfterSomethingWasTyped) {
    open();
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());

    open();
    type(form->txtsubject, "Another");
    desk.expectBox(GiveUp, NewMessageTitle, Answer::No);
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    desk.expectBox(GiveUp, NewMessageTitle, Answer::No);
    form->close();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->txtsubject->text(), "Another");
    desk.expectBox(GiveUp, NewMessageTitle, Answer::Yes);
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(MailForm, WhileItSendsTheWindowLivesAndCancelEndsTheSending) {
    for (const char* way : {"button", "escape", "close"}) {
        MailServer server({"--hang", "data"});
        useServer(server);
        open();
        form->SSRibbon1->setFocus();
        QTest::keyClick(form->SSRibbon1, Qt::Key_Space);
        EXPECT_TRUE(form->IsSending());
        EXPECT_TRUE(form->txtbody->isReadOnly());
        EXPECT_FALSE(form->SSRibbon1->isEnabled());
        EXPECT_FALSE(form->cmdCancel->hasFocus()) << "A second Space would cancel what the first one began.";
        server.awaitPlace();
        EXPECT_TRUE(QTest::qWaitFor([&] { return form->pnlprogress->value() >= 3; }, Patience));
        EXPECT_TRUE(form->pnlprogress->isVisible());
        EXPECT_FALSE(status().isEmpty());
        if (QLatin1String(way) == QLatin1String("button"))
            QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
        else if (QLatin1String(way) == QLatin1String("escape"))
            QTest::keyClick(form.get(), Qt::Key_Escape);
        else
            form->close();
        awaitEnd();
        EXPECT_TRUE(form->isVisible()) << way;
        EXPECT_TRUE(status().startsWith("The sending was cancelled.")) << status().toStdString();
        EXPECT_FALSE(form->txtbody->isReadOnly());
        EXPECT_TRUE(form->SSRibbon1->hasFocus());
        EXPECT_EQ(form->txtbody->toPlainText(), "See you.");
    }
}

TEST_F(MailForm, AFormThatGoesAwayEndsItsSending) {
    MailServer server({"--hang", "data"});
    useServer(server);
    open();
    clickSend();
    server.awaitPlace();
    form.reset();
    EXPECT_TRUE(log().contains("The sending was cancelled.")) << log().toStdString();
    EXPECT_EQ(server.messages().size(), 0U);
}

TEST_F(MailForm, ALogOnAFullDiskStopsNoMessage) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), folder.filePath(QStringLiteral("smtplog.txt"))));
    MailServer server;
    useServer(server);
    open();
    desk.expectBox(Sent, Solvane);
    send();
    EXPECT_EQ(server.messages().size(), 1U);
}

TEST_F(MailForm, SettingsThatCannotBeReadAreToldAndReadAgainOnSend) {
    MailServer server;
    useServer(server);
    const QString reason = DropTable(database.connection(), QStringLiteral("Settings"));
    desk.expectBox(QStringLiteral("Error reading SMTP Settings. ") + reason, QStringLiteral("Error"));
    open();
    desk.expectBox(QStringLiteral("Error reading SMTP Settings. ") + reason, QStringLiteral("Error"));
    clickSend();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->txtbody->toPlainText(), "See you.");

    sql("Create Table settings (SMTPServer nvarchar(255) null, SMTPUser nvarchar(255) null, SMTPPW nvarchar(255) null, SMTPPort int null, SMTPSSL smallint null, SMTPAuthMethod smallint null)");
    sql(db::Sql("Insert Into settings (SMTPServer, SMTPPort) Values ('127.0.0.1', {})", server.port()));
    desk.expectBox(Sent, Solvane);
    send();
    EXPECT_EQ(server.messages().size(), 1U);
}

TEST_F(MailForm, ACompanyThatCannotBeReadIsTold) {
    const QString reason = DropTable(database.connection(), QStringLiteral("CompanyInfo"));
    desk.expectBox(QStringLiteral("Error reading company information. ") + reason, QStringLiteral("Error"));
    open();
    desk.expectBox(QStringLiteral("Error reading company information. ") + reason, QStringLiteral("Error"));
    clickSend();
    EXPECT_TRUE(form->isVisible());
}

TEST_F(MailForm, EveryFieldHasANameAndAKeyOfItsOwn) {
    open();
    for (const QWidget* field : std::initializer_list<QWidget*>{form->txtto, form->txtcc, form->txtbcc,
                                                                form->txtsubject, form->txtbody, form->pnlprogress})
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
    QStringList letters;
    for (const QLabel* label : form->findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            letters << label->text().mid(label->text().indexOf('&') + 1, 1).toLower();
    for (const QPushButton* button : {form->SSRibbon1, form->cmdCancel})
        letters << button->text().mid(button->text().indexOf('&') + 1, 1).toLower();
    EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(' ').toStdString();
}
