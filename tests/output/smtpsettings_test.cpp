#include "output/smtpsettings.h"

#include <gtest/gtest.h>

#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/testdatabase.h"

namespace {

class MailSettings : public testing::Test {
  protected:
    MailSettings() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Session().AppPath = QStringLiteral("/app");
    }
    ~MailSettings() override { ResetSession(); }

    TestDatabase database;
};

mail::Server serverOf(int port, bool ssl) {
    return MailServerOf(
        {.SMTPServer = "mail.example.org", .SMTPUser = "desk", .SMTPPW = "pw", .SMTPPort = port, .SMTPSSL = ssl});
}

}  // namespace

TEST_F(MailSettings, AreReadWithThePasswordRestored) {
    Session().ScrambleKey = 5;
    database.connection().Execute(db::Sql(
        "Insert Into settings (SMTPServer, SMTPUser, SMTPPW, SMTPPort, SMTPSSL, SMTPAuthMethod) Values (' mail.example.org ', 'desk', '{}', 587, 1, 3)",
        ScramblePassword("pässword", 5)));
    EXPECT_EQ(GetSMTPSettings(), (SmtpSettings{"mail.example.org", "desk", QStringLiteral("pässword"), 587, true}));
}

TEST_F(MailSettings, OfNullAreEmptyAndNotEncrypted) {
    EXPECT_EQ(GetSMTPSettings(), SmtpSettings());
    database.connection().Execute("Insert Into settings (wordusage) Values ('Client')");
    EXPECT_EQ(GetSMTPSettings(), SmtpSettings());
}

TEST_F(MailSettings, TheUsualPortsAreKnown) {
    EXPECT_EQ(serverOf(0, false).port, 25);
    EXPECT_EQ(serverOf(0, true).port, 587);
    EXPECT_EQ(serverOf(2525, false).port, 2525);
    EXPECT_EQ(serverOf(-1, false).port, -1);
}

TEST_F(MailSettings, ThePortDecidesHowAConnectionIsEncrypted) {
    EXPECT_EQ(serverOf(587, true).encryption, mail::Encryption::StartTls);
    EXPECT_EQ(serverOf(25, true).encryption, mail::Encryption::StartTls);
    EXPECT_EQ(serverOf(465, true).encryption, mail::Encryption::Implicit);
    EXPECT_EQ(serverOf(465, false).encryption, mail::Encryption::WhereOffered);
}

TEST_F(MailSettings, TheLogLiesInTheApplicationFolder) {
    const mail::Server server = serverOf(25, false);
    EXPECT_EQ(server.host, "mail.example.org");
    EXPECT_EQ(server.user, "desk");
    EXPECT_EQ(server.password, "pw");
    EXPECT_EQ(server.logFile, "/app/smtplog.txt");
}
