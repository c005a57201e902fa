#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "output/frmemail.h"
#include "platform/controls/noticebar.h"
#include "tests/appointments/editorfixture.h"
#include "tests/support/mailserver.h"

namespace {

constexpr int Patience = 60'000;  ///< A busy machine may take its time.

const QString Title = QStringLiteral("Send e-mail?");
const QString DirectQuestion = QStringLiteral("Send Appointment Reminder EMail to: mary@example.org");
const QString Body =
    QStringLiteral("This e-mail is to remind you of your appointment on 03/11/2026 at 9:00 AM with Anna Reed.");

/// Mary Jones is booked and wants a confirmation.
class EditorMail : public EditorFixture {
  protected:
    void setServer(const QString& host, int port = 25) {
        database.connection().Execute("Delete from settings");
        database.connection().Execute(
            db::Sql("Insert Into settings (wordusage, SMTPServer, SMTPPort) Values ('Patient', '{}', {})", host, port));
    }
    void book() {
        openNew(1);
        choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
        QTest::keyClick(form->ckemail, Qt::Key_Space);
        clickOk();
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(rowCount("appointments"), 1);
    }
    void expectMailProgram() { desk.expectBox(QStringLiteral("To: mary@example.org\n") + Body, Title, Answer::No); }
};

}  // namespace

TEST_F(EditorMail, WithAMailServerTheConfirmationOpensAsANewMessage) {
    setServer(QStringLiteral("mail.example.org"));
    desk.expectBox(DirectQuestion, Title, Answer::Yes);
    desk.expectForm("frmEmail", [this](QDialog& dialog) {
        const auto& message = dynamic_cast<frmEmail&>(dialog);
        EXPECT_EQ(rowCount("appointments"), 1) << "The appointment is saved before anything is sent.";
        EXPECT_EQ(message.txtto->text(), "mary@example.org");
        EXPECT_EQ(message.txtsubject->text(), "Appointment Confirmation");
        EXPECT_EQ(message.txtbody->toPlainText(), Body);
    });
    book();
    EXPECT_TRUE(desk.opened.isEmpty());
}

TEST_F(EditorMail, TheConfirmationReachesThePatient) {
    MailServer server;
    setServer(QStringLiteral("127.0.0.1"), server.port());
    Session().AppPath = userFolder.path();
    database.connection().Execute("Insert Into CompanyInfo (emailaddress) Values ('desk@practice.example')");
    desk.expectBox(DirectQuestion, Title, Answer::Yes);
    desk.expectForm("frmEmail", [](QDialog& dialog) {
        auto& message = dynamic_cast<frmEmail&>(dialog);
        message.SSRibbon1->click();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !message.IsSending(); }, Patience));
    });
    desk.expectBox(QStringLiteral("Message sent successfully."), QStringLiteral("Solvane"));
    book();
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_EQ(server.messages()[0].to, QStringList("mary@example.org"));
    EXPECT_EQ(server.messages()[0].read["body"], QString(Body) + "\r\n");
}

TEST_F(EditorMail, NoToTheQuestionSendsNothing) {
    setServer(QStringLiteral("mail.example.org"));
    desk.expectBox(DirectQuestion, Title, Answer::No);
    book();
    EXPECT_TRUE(desk.opened.isEmpty());
}

TEST_F(EditorMail, WithoutAMailServerItIsHandedToTheMailProgram) {
    setServer(QStringLiteral("  "));
    expectMailProgram();
    book();
}

TEST_F(EditorMail, WithAMailServerOfNullItIsHandedToTheMailProgram) {
    database.connection().Execute("Insert Into settings (wordusage, SMTPServer) Values ('Patient', null)");
    expectMailProgram();
    book();
}

TEST_F(EditorMail, SettingsThatCannotBeReadAreToldInTheBarAndTheMailProgramIsLeft) {
    const NoticeBar bar;
    const QString reason = DropTable(database.connection(), QStringLiteral("Settings"));
    expectMailProgram();
    book();
    EXPECT_EQ(bar.Texts(), QStringList(QStringLiteral("Error reading SMTP Settings. ") + reason));
}
