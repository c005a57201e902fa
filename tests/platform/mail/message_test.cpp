#include "platform/mail/message.h"

#include <gtest/gtest.h>

#include <QTimeZone>

#include "platform/mail/headertext.h"

using mail::Address;

namespace {

mail::Message sample() {
    return {.from = *Address::From("Reed Practice <desk@practice.example>"),
            .to = {*Address::From("anna@example.org")},
            .cc = {},
            .bcc = {},
            .subject = "Appointment Confirmation",
            .text = "See you.\n"};
}

QByteArray written(const mail::Message& message) {
    return mail::MessageText(message, QDateTime({2026, 3, 11}, {9, 5}, QTimeZone(-5 * 3600)), "id1");
}

std::vector<Address> addresses(const QString& text) {
    return mail::ReadAddresses(text).addresses;
}

/// The header in one line, as a mail program puts it together.
QByteArray unfolded(QByteArray header) {
    return header.replace("\r\n ", " ");
}

}  // namespace

TEST(MailMessage, OfPlainAsciiIsWrittenToTheLetter) {
    EXPECT_EQ(written(sample()).toStdString(),
              "Date: 11 Mar 2026 09:05:00 -0500\r\n"
              "From: Reed Practice <desk@practice.example>\r\n"
              "To: anna@example.org\r\n"
              "Subject: Appointment Confirmation\r\n"
              "Message-ID: <id1@practice.example>\r\n"
              "MIME-Version: 1.0\r\n"
              "Content-Type: text/plain; charset=utf-8\r\n"
              "Content-Transfer-Encoding: 7bit\r\n"
              "\r\n"
              "See you.\r\n");
}

TEST(MailMessage, DoesNotNameTheBccAnywhere) {
    mail::Message message = sample();
    message.cc = addresses("cc@example.org");
    message.bcc = addresses("Secret Sam <secret@hidden.example>");
    const QByteArray text = written(message);
    EXPECT_TRUE(text.contains("Cc: cc@example.org\r\n"));
    EXPECT_FALSE(text.toLower().contains("bcc"));
    EXPECT_FALSE(text.contains("ecret"));
    EXPECT_FALSE(text.contains("hidden"));
}

TEST(MailMessage, GoesToEverybodyOnce) {
    mail::Message message = sample();
    message.to = addresses("a@example.org, b@example.org");
    message.cc = addresses("Bo <b@example.org>; c@example.org");
    message.bcc = addresses("c@example.org, d@example.org");
    QStringList all;
    for (const Address& address : mail::Recipients(message))
        all << address.address();
    EXPECT_EQ(all, QStringList({"a@example.org", "b@example.org", "c@example.org", "d@example.org"}));
}

TEST(MailMessage, NeedsMoreOfTheServerForAnInternationalOwnerOnly) {
    mail::Message message = sample();
    message.to = addresses(QStringLiteral("\"Änne\" <anne@bücher.example>"));
    EXPECT_EQ(mail::InternationalAddress(message), nullptr);
    message.bcc = addresses(QStringLiteral("änne@example.org"));
    ASSERT_NE(mail::InternationalAddress(message), nullptr);
    EXPECT_EQ(mail::InternationalAddress(message)->address(), QStringLiteral("änne@example.org"));
}

TEST(MailHeader, ALineBreakInTheSubjectMakesNoHeader) {
    EXPECT_EQ(mail::TextHeader("Subject", "Hello\r\nBcc: eve@example.org\r\n\r\nbody"),
              "Subject: =?UTF-8?B?SGVsbG8gQmNjOiBldmVAZXhhbXBsZS5vcmcgIGJvZHk=?=\r\n");
    EXPECT_EQ(mail::TextHeader("Subject", QStringLiteral("a\u0085b\nc")), "Subject: a b c\r\n");
}

TEST(MailHeader, ALineBreakInANameMakesNoHeader) {
    EXPECT_EQ(mail::AddressHeader("To", addresses("Anna\r\nBcc: eve@example.org <anna@example.org>")),
              "To: \"Anna Bcc: eve@example.org\" <anna@example.org>\r\n");
}

TEST(MailHeader, ASubjectOf500LettersIsFoldedAtItsBlanks) {
    const QString subject = QStringLiteral("Appointment ").repeated(42).left(500).trimmed();
    const QByteArray header = mail::TextHeader("Subject", subject);
    for (const QByteArray& line : header.split('\n'))
        EXPECT_LE(line.size(), 79) << line.constData();
    EXPECT_EQ(unfolded(header), "Subject: " + subject.toLatin1() + "\r\n");
}

TEST(MailHeader, ASubjectOf500UmlautsStandsInEncodedWordsOfWholeLetters) {
    const QByteArray header = mail::TextHeader("Subject", QString(500, QChar(0xe4)));
    QString read;
    for (const QByteArray& line : header.mid(qstrlen("Subject: ")).split('\n')) {
        const QByteArray word = line.trimmed();
        if (word.isEmpty())
            continue;
        EXPECT_LE(word.size(), 75);
        ASSERT_TRUE(word.startsWith("=?UTF-8?B?") && word.endsWith("?=")) << word.constData();
        const QString part = QString::fromUtf8(QByteArray::fromBase64(word.mid(10, word.size() - 12)));
        EXPECT_FALSE(part.contains(QChar::ReplacementCharacter));
        read += part;
    }
    EXPECT_EQ(read, QString(500, QChar(0xe4)));
}

TEST(MailHeader, ASubjectWithoutBlanksIsEncoded) {
    const QByteArray header = mail::TextHeader("Subject", QString(500, 'x'));
    for (const QByteArray& line : header.split('\n'))
        EXPECT_LE(line.size(), 79);
    EXPECT_TRUE(header.startsWith("Subject: =?UTF-8?B?"));
}

TEST(MailHeader, ASubjectThatLooksEncodedIsEncoded) {
    EXPECT_EQ(mail::TextHeader("Subject", "=?UTF-8?Q?x?="), "Subject: =?UTF-8?B?PT9VVEYtOD9RP3g/PQ==?=\r\n");
}

TEST(MailHeader, WithoutATextOrAnAddressThereIsNone) {
    EXPECT_EQ(mail::TextHeader("Subject", " "), "");
    EXPECT_EQ(mail::AddressHeader("Cc", {}), "");
}

TEST(MailHeader, ANameIsQuotedWhereItsMarksWouldMeanSomething) {
    EXPECT_EQ(mail::AddressHeader("To", addresses("\"Reed, Anna\" <anna@example.org>")),
              "To: \"Reed, Anna\" <anna@example.org>\r\n");
    EXPECT_EQ(mail::AddressHeader("To", addresses("\"Anna \\\"Nan\\\" \\\\ Reed\" <anna@example.org>")),
              "To: \"Anna \\\"Nan\\\" \\\\ Reed\" <anna@example.org>\r\n");
}

TEST(MailHeader, ManyAddressesAreFoldedBetweenThem) {
    const QByteArray header = mail::AddressHeader(
        "To", addresses(QStringLiteral("\"Müller, Änne\" <anne@example.org>, bo@example.org;").repeated(9)));
    for (const QByteArray& line : header.split('\n'))
        EXPECT_LE(line.size(), 79) << line.constData();
    EXPECT_EQ(unfolded(header).count("@example.org"), 18);
    EXPECT_EQ(unfolded(header).count(", "), 17);
    EXPECT_TRUE(header.startsWith("To: =?UTF-8?B?TcO8bGxlciwgw4RubmU=?= <anne@example.org>, bo@example.org"));
}
