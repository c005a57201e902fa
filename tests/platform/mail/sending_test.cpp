#include "platform/mail/sending.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>

#include "tests/support/files.h"
#include "tests/support/mailserver.h"
#include "tests/support/testdatabase.h"

using mail::Address;
using mail::Encryption;
using mail::Outcome;
using mail::Step;

namespace mail {

static void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << outcome.number << ' ' << outcome.description.toStdString();
}

}  // namespace mail

namespace {

constexpr int Patience = 60'000;  ///< A busy machine may take its time.

const QString MaybeSent =
    QStringLiteral(" The server had the whole message, but did not confirm it: it may have been sent all the same.");

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

class MailSending : public testing::Test {
  protected:
    /// The server of the test, as the program knows it.
    [[nodiscard]] mail::Server at(const MailServer& server, Encryption encryption = Encryption::WhereOffered) const {
        return {.host = QStringLiteral("127.0.0.1"),
                .port = server.port(),
                .encryption = encryption,
                .user = {},
                .password = {},
                .logFile = logFile()};
    }
    [[nodiscard]] mail::Server withAccount(mail::Server server, const char* user, const char* password) const {
        server.user = QString::fromUtf8(user);
        server.password = QString::fromUtf8(password);
        return server;
    }
    [[nodiscard]] QString logFile() const { return folder.filePath(QStringLiteral("smtplog.txt")); }
    [[nodiscard]] QByteArray log() const { return FileBytes(logFile()); }

    /// Sends the message and waits for the end.
    Outcome send(const mail::Server& server) {
        mail::Sending sending(server, message);
        return endOf(sending);
    }
    Outcome endOf(mail::Sending& sending) {
        std::optional<Outcome> outcome;
        QObject::connect(&sending, &mail::Sending::Progressed, &sending, [this](Step step) { steps.push_back(step); });
        QObject::connect(&sending, &mail::Sending::Finished, &sending, [&](const Outcome& end) { outcome = end; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return outcome.has_value(); }, Patience)) << "The sending has no end.";
        return outcome.value_or(Outcome{-1, {}});
    }
    void giveRecipients(const char* to, const char* cc = "", const char* bcc = "") {
        message.to = mail::ReadAddresses(QString::fromUtf8(to)).addresses;
        message.cc = mail::ReadAddresses(QString::fromUtf8(cc)).addresses;
        message.bcc = mail::ReadAddresses(QString::fromUtf8(bcc)).addresses;
    }

    QTemporaryDir folder{TestFolderTemplate()};
    mail::Message message{.from = *Address::From("Reed Practice <desk@practice.example>"),
                          .to = {*Address::From("anna@example.org")},
                          .cc = {},
                          .bcc = {},
                          .subject = "Appointment Confirmation",
                          .text = "See you.\n"};
    std::vector<Step> steps;
};

}  // namespace

TEST_F(MailSending, APlainMessageArrives) {
    MailServer server;
    EXPECT_EQ(send(at(server)), Outcome());
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].from, "desk@practice.example");
    EXPECT_EQ(messages[0].to, QStringList("anna@example.org"));
    EXPECT_FALSE(messages[0].encrypted);
    EXPECT_EQ(messages[0].user, "");
    EXPECT_EQ(messages[0].read["From"], "Reed Practice <desk@practice.example>");
    EXPECT_EQ(messages[0].read["To"], "anna@example.org");
    EXPECT_EQ(messages[0].read["Subject"], "Appointment Confirmation");
    EXPECT_EQ(messages[0].read["body"], "See you.\r\n");
    EXPECT_EQ(messages[0].read["defects"], "");
}

TEST_F(MailSending, EverybodyGetsItAndNobodyReadsTheBcc) {
    MailServer server;
    giveRecipients("a@example.org; \"Müller, Änne\" <b@example.org>", "c@example.org", "d@example.org, a@example.org");
    EXPECT_EQ(send(at(server)), Outcome());
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].to, QStringList({"a@example.org", "b@example.org", "c@example.org", "d@example.org"}));
    EXPECT_EQ(messages[0].read["To"], QStringLiteral("a@example.org, \"Müller, Änne\" <b@example.org>"));
    EXPECT_EQ(messages[0].read["Cc"], "c@example.org");
    EXPECT_FALSE(messages[0].text.contains("d@example.org"));
}

TEST_F(MailSending, LoneDotsLongLinesAndLettersArriveAsTyped) {
    MailServer server;
    const QString text =
        QStringLiteral(".\n..\nGrüße\n.leading\n\n.\n") + QString(5'000, 'x') + QStringLiteral("\n. \nFrom me\n.");
    message.text = text;
    message.subject = QStringLiteral("Terminbestätigung 😀 ") + QString(500, QChar(0xe4));
    EXPECT_EQ(send(at(server)), Outcome());
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(QString(messages[0].read["body"]).replace("\r\n", "\n"), text + "\n");
    EXPECT_EQ(messages[0].read["Subject"], message.subject);
    EXPECT_EQ(messages[0].read["defects"], "");
}

TEST_F(MailSending, DotsInPlainLinesArriveAsTyped) {
    MailServer server;
    message.text = ".\n..\n.leading\n\n.\n";
    EXPECT_EQ(send(at(server)), Outcome());
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_TRUE(server.messages()[0].text.endsWith("\r\n\r\n.\r\n..\r\n.leading\r\n\r\n.\r\n"));
}

TEST_F(MailSending, AnAccountSignsIn) {
    MailServer server({"--account", "desk:s3cret pässword"});
    EXPECT_EQ(send(withAccount(at(server), "desk", "s3cret pässword")), Outcome());
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_EQ(server.messages()[0].user, "desk");
}

TEST_F(MailSending, AWrongPasswordIsToldAndStandsNowhere) {
    MailServer server({"--account", "desk:right"});
    const Outcome outcome = send(withAccount(at(server), "desk", "wr0ng-pass"));
    EXPECT_EQ(outcome.number, 535);
    EXPECT_EQ(outcome.description,
              "The mail server refused the account: 535 5.7.8 Authentication credentials invalid. Nothing was sent.");
    EXPECT_EQ(server.messages().size(), 0U);
    for (const QByteArray& secret : {QByteArray("wr0ng-pass"), QByteArray("wr0ng-pass").toBase64(),
                                     QByteArray("\0desk\0wr0ng-pass", 16).toBase64(), QByteArray("desk").toBase64()})
        EXPECT_FALSE(log().contains(secret)) << secret.constData();
    EXPECT_TRUE(log().contains("> AUTH ")) << log().constData();
    EXPECT_TRUE(log().contains("> ****\n"));
}

TEST_F(MailSending, WithStartTlsTheMessageIsEncrypted) {
    const MailCertificate certificate(QStringLiteral("127.0.0.1"));
    const TrustedCertificate trusted(certificate);
    MailServer server(words("--starttls --account desk:secret") + certificate.options());
    EXPECT_EQ(send(withAccount(at(server, Encryption::StartTls), "desk", "secret")), Outcome());
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_TRUE(server.messages()[0].encrypted);
    EXPECT_EQ(server.messages()[0].user, "desk");
}

TEST_F(MailSending, WithImplicitTlsTheMessageIsEncrypted) {
    const MailCertificate certificate(QStringLiteral("127.0.0.1"));
    const TrustedCertificate trusted(certificate);
    MailServer server(words("--implicit") + certificate.options());
    EXPECT_EQ(send(at(server, Encryption::Implicit)), Outcome());
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_TRUE(server.messages()[0].encrypted);
}

TEST_F(MailSending, WithoutEncryptionAskedForItIsUsedWhereOffered) {
    const MailCertificate certificate(QStringLiteral("mail.example.org"));
    MailServer server(words("--starttls") + certificate.options());
    EXPECT_EQ(send(at(server, Encryption::WhereOffered)), Outcome());
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_TRUE(server.messages()[0].encrypted);
}

TEST_F(MailSending, ACertificateThatNobodyVouchesForGetsNothing) {
    const MailCertificate certificate(QStringLiteral("127.0.0.1"));
    MailServer server(words("--starttls --account desk:secret") + certificate.options());
    const Outcome outcome = send(withAccount(at(server, Encryption::StartTls), "desk", "secret"));
    EXPECT_EQ(outcome.number, 60);
    EXPECT_TRUE(outcome.description.startsWith("The mail server's certificate was not accepted: "))
        << outcome.description.toStdString();
    EXPECT_TRUE(outcome.description.endsWith(" Nothing was sent."));
    EXPECT_EQ(server.messages().size(), 0U);
    EXPECT_FALSE(log().contains("AUTH P"));
}

TEST_F(MailSending, TheCertificateOfAnotherServerGetsNothing) {
    const MailCertificate certificate(QStringLiteral("mail.example.org"));
    const TrustedCertificate trusted(certificate);
    MailServer server(words("--implicit") + certificate.options());
    const Outcome outcome = send(at(server, Encryption::Implicit));
    EXPECT_EQ(outcome.number, 60);
    EXPECT_TRUE(outcome.description.startsWith("The mail server's certificate was not accepted: "));
    EXPECT_EQ(server.messages().size(), 0U);
}

TEST_F(MailSending, AServerWithoutEncryptionGetsNothingWhereItIsRequired) {
    MailServer server({"--account", "desk:secret"});
    const Outcome outcome = send(withAccount(at(server, Encryption::StartTls), "desk", "secret"));
    EXPECT_EQ(outcome.number, 64);
    EXPECT_TRUE(outcome.description.startsWith("The mail server does not offer encryption: 127.0.0.1, port "));
    EXPECT_EQ(server.messages().size(), 0U);
    EXPECT_FALSE(log().contains("> AUTH"));
}

TEST_F(MailSending, ARefusedRecipientIsToldAndNobodyGetsIt) {
    MailServer server({"--refuse", "gone@example.org"});
    giveRecipients("anna@example.org", "gone@example.org");
    const Outcome outcome = send(at(server));
    EXPECT_EQ(outcome.number, 550);
    EXPECT_EQ(outcome.description,
              "The mail server refused the message: 550 5.1.1 There is nobody of that name. Nothing was sent.");
    EXPECT_EQ(server.messages().size(), 0U);
}

TEST_F(MailSending, ARefusedSenderOrMessageIsTold) {
    MailServer ofSender({"--refuse", "desk@practice.example"});
    EXPECT_EQ(send(at(ofSender)).number, 553);
    MailServer ofMessage({"--refuse", "message"});
    const Outcome outcome = send(at(ofMessage));
    EXPECT_EQ(outcome.number, 554);
    EXPECT_EQ(outcome.description,
              "The mail server refused the message: 554 5.7.1 This message is refused. Nothing was sent.");
}

TEST_F(MailSending, AnInternationalAddressGoesToAServerThatTakesIt) {
    MailServer server;
    giveRecipients("Änne <änne@example.org>", "bo@bücher.example");
    EXPECT_EQ(send(at(server)), Outcome());
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].to, QStringList({QStringLiteral("änne@example.org"), "bo@xn--bcher-kva.example"}));
    EXPECT_TRUE(messages[0].options.contains("SMTPUTF8"));
    EXPECT_EQ(messages[0].read["To"], QStringLiteral("Änne <änne@example.org>"));
}

TEST_F(MailSending, AnInternationalAddressIsNotForcedOnAServerThatDoesNotOfferIt) {
    MailServer server({"--unsaid"});
    giveRecipients("änne@example.org");
    const Outcome outcome = send(at(server));
    EXPECT_FALSE(outcome.isSent());
    EXPECT_FALSE(outcome.cancelled);
    EXPECT_EQ(
        outcome.description,
        QStringLiteral(
            "The mail server cannot deliver to an address with such letters: änne@example.org. Nothing was sent."));
    EXPECT_EQ(server.messages().size(), 0U);
}

TEST_F(MailSending, AServerThatRefusesAnInternationalAddressIsTold) {
    MailServer server({"--ascii"});
    giveRecipients("änne@example.org");
    const Outcome outcome = send(at(server));
    EXPECT_EQ(outcome.number, 500);
    EXPECT_EQ(server.messages().size(), 0U);
}

TEST_F(MailSending, AnInternationalDomainNeedsNothingOfTheServer) {
    MailServer server({"--ascii"});
    giveRecipients("Bo <bo@bücher.example>");
    EXPECT_EQ(send(at(server)), Outcome());
    ASSERT_EQ(server.messages().size(), 1U);
    EXPECT_EQ(server.messages()[0].options, QStringList());
}

TEST_F(MailSending, AServerThatIsSilentIsGivenUp) {
    for (const char* place : {"greeting", "data", "end"}) {
        MailServer server({"--hang", place});
        mail::Server impatient = at(server);
        impatient.patience = std::chrono::milliseconds(200);
        const Outcome outcome = send(impatient);
        EXPECT_EQ(outcome.number, 28) << place;
        EXPECT_FALSE(outcome.cancelled);
        EXPECT_TRUE(outcome.description.startsWith("The mail server did not answer in time: 127.0.0.1, port "))
            << outcome.description.toStdString();
    }
}

TEST_F(MailSending, AMessageThatWasNotConfirmedMayHaveBeenSent) {
    MailServer silent({"--hang", "end"});
    mail::Sending sending(at(silent), message);
    silent.awaitPlace();
    sending.Cancel();
    const Outcome cancelled = endOf(sending);
    EXPECT_TRUE(cancelled.cancelled);
    EXPECT_EQ(cancelled.description, QStringLiteral("The sending was cancelled.") + MaybeSent);

    MailServer gone({"--close", "end"});
    const Outcome broken = send(at(gone));
    EXPECT_FALSE(broken.isSent());
    EXPECT_TRUE(broken.description.startsWith("The mail server broke off the conversation: "));
    EXPECT_TRUE(broken.description.endsWith(MaybeSent)) << broken.description.toStdString();
}

TEST_F(MailSending, AServerThatBreaksOffInMidMailIsTold) {
    for (const char* place : {"greeting", "data"}) {
        MailServer server({"--close", place});
        message.text = QStringLiteral("A long message.\n").repeated(200'000);
        const Outcome outcome = send(at(server));
        EXPECT_GT(outcome.number, 0);
        EXPECT_TRUE(outcome.description.startsWith("The mail server broke off the conversation: "))
            << place << ": " << outcome.description.toStdString();
        EXPECT_TRUE(outcome.description.endsWith(" Nothing was sent."));
    }
}

TEST_F(MailSending, AServerThatDoesNotSayGoodbyeHoldsNobodyUp) {
    MailServer server({"--hang", "quit"});
    QElapsedTimer since;
    since.start();
    EXPECT_EQ(send(at(server)), Outcome());
    EXPECT_LT(since.elapsed(), 20'000);
    EXPECT_EQ(server.messages().size(), 1U);
}

TEST_F(MailSending, AServerThatIsNotThereIsTold) {
    int port = 0;
    {
        const MailServer gone;
        port = gone.port();
    }
    mail::Server server{.host = "127.0.0.1", .port = port, .user = {}, .password = {}, .logFile = logFile()};
    Outcome outcome = send(server);
    EXPECT_EQ(outcome.number, 7);
    EXPECT_EQ(outcome.description,
              QStringLiteral("The mail server could not be reached: 127.0.0.1, port %1. Nothing was sent.").arg(port));
}

TEST_F(MailSending, ANameThatIsNoServerIsTold) {
    for (const char* host : {"mail server", "mail.example.org/path", "user@mail.example.org", "a\r\nb", ""}) {
        const Outcome outcome =
            send({.host = QString::fromLatin1(host), .port = 25, .user = {}, .password = {}, .logFile = {}});
        EXPECT_EQ(outcome.number, 3) << host;
    }
    for (const int port : {0, -1, 65'536}) {
        const Outcome outcome = send({.host = "127.0.0.1", .port = port, .user = {}, .password = {}, .logFile = {}});
        EXPECT_EQ(outcome.number, 3) << port;
        EXPECT_EQ(outcome.description,
                  QStringLiteral("The mail server's name or port is not valid: 127.0.0.1, port %1. Nothing was sent.")
                      .arg(port));
    }
}

TEST_F(MailSending, TheUserSeesHowFarItIs) {
    MailServer server({"--account", "desk:secret"});
    send(withAccount(at(server), "desk", "secret"));
    ASSERT_FALSE(steps.empty());
    EXPECT_EQ(steps.front(), Step::Connecting);
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
}

TEST_F(MailSending, TheUserSeesThatAServerConsidersTheMessage) {
    MailServer server({"--hang", "end"});
    mail::Sending sending(at(server), message);
    Step step = Step::Connecting;
    QObject::connect(&sending, &mail::Sending::Progressed, &sending, [&](Step reached) { step = reached; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return step == Step::Confirming; }, Patience));
}

TEST_F(MailSending, CancelEndsItWhereverTheServerHangs) {
    for (const char* place : {"greeting", "data"}) {
        MailServer server({"--hang", place});
        mail::Sending sending(at(server), message);
        server.awaitPlace();
        sending.Cancel();
        const Outcome outcome = endOf(sending);
        EXPECT_TRUE(outcome.cancelled) << place;
        EXPECT_FALSE(outcome.isSent());
        EXPECT_EQ(server.messages().size(), 0U);
    }
}

TEST_F(MailSending, ACancelledMessageDoesNotArriveInPart) {
    MailServer server({"--stall"});
    message.text = QStringLiteral("A long message.\n").repeated(2'000'000);
    mail::Sending sending(at(server), message);
    server.awaitPlace();
    sending.Cancel();
    const Outcome outcome = endOf(sending);
    EXPECT_TRUE(outcome.cancelled);
    EXPECT_EQ(outcome.description, "The sending was cancelled. Nothing was sent.");
    server.goOn();
    EXPECT_EQ(server.wholeMessages(), 0);
}

TEST_F(MailSending, AMessageThatIsNotFinishedInTimeDoesNotArriveInPart) {
    MailServer server({"--stall"});
    message.text = QStringLiteral("A long message.\n").repeated(2'000'000);
    mail::Server impatient = at(server);
    impatient.patience = std::chrono::milliseconds(300);
    EXPECT_EQ(send(impatient).number, 28);
    server.goOn();
    EXPECT_EQ(server.wholeMessages(), 0);
}

TEST_F(MailSending, AClosedWindowEndsItsSending) {
    MailServer server({"--stall"});
    message.text = QStringLiteral("A long message.\n").repeated(2'000'000);
    {
        const mail::Sending sending(at(server), message);
        server.awaitPlace();
    }
    server.goOn();
    EXPECT_EQ(server.wholeMessages(), 0);
}

TEST_F(MailSending, TheLogHoldsTheConversationAndNoMessage) {
    MailServer server;
    message.subject = "Hidden subject";
    message.text = "Hidden text\n";
    send(at(server));
    EXPECT_TRUE(log().contains("\n< 220 ")) << log().constData();
    EXPECT_TRUE(log().contains("\n> RCPT TO:<anna@example.org>"));
    EXPECT_TRUE(log().endsWith("= sent\n"));
    EXPECT_FALSE(log().contains("Hidden"));
    EXPECT_FALSE(log().contains(message.text.toUtf8().toBase64()));
    const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
    EXPECT_EQ(QFile::permissions(logFile()) & others, QFileDevice::Permissions());
}

TEST_F(MailSending, ALogOnAFullDiskStopsNoMessage) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), logFile()));
    MailServer server;
    EXPECT_EQ(send(at(server)), Outcome());
    EXPECT_EQ(server.messages().size(), 1U);
}

TEST_F(MailSending, ALogThatCannotBeWrittenStopsNoMessage) {
    MailServer server;
    mail::Server place = at(server);
    place.logFile = folder.filePath(QStringLiteral("missing/smtplog.txt"));
    EXPECT_EQ(send(place), Outcome());
    place.logFile = folder.path();
    EXPECT_EQ(send(place), Outcome());
    EXPECT_EQ(server.messages().size(), 2U);
}

TEST_F(MailSending, ALogThatHasGrownIsPutAside) {
    PutFile(logFile(), QByteArray(1'100'000, 'x'));
    MailServer server;
    send(at(server));
    EXPECT_LT(log().size(), 10'000);
    EXPECT_EQ(FileBytes(logFile() + QStringLiteral(".old")).size(), 1'100'000);
}
