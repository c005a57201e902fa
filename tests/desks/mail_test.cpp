#include "tests/desks/deskfront.h"
#include "tests/support/mailserver.h"

TEST_F(FrontDesk, AConfirmationIsSentByMouseAndKeyboard) {
    MailServer server;
    for (const QString& statement :
         {db::Sql("Update settings Set SMTPServer = '127.0.0.1', SMTPPort = {}", server.port()),
          QStringLiteral("Insert Into CompanyInfo (emailaddress) Values ('desk@practice.example')"),
          QStringLiteral("Update patient_info Set EmailAddress = 'anna@example.org' Where id = '10017'")})
        connection.Execute(statement);
    person->doubleClick(at(540));
    person->turnTo("frmnore");
    person->type(QStringLiteral("o'b"));
    desk->tell("click", QStringLiteral("ckemail"));
    person->press({QStringLiteral("Return")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("frmEmail");
    person->press({QStringLiteral("alt+c")});
    person->type(QStringLiteral("cc@example.org"));
    person->picture("mail-new");
    person->press({QStringLiteral("ctrl+Return")});
    person->turnTo("box");
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].to, QStringList({"anna@example.org", "cc@example.org"}));
    EXPECT_TRUE(FileBytes(folder.filePath(QStringLiteral("smtplog.txt"))).endsWith("= sent\n"));
}
