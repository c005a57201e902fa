#include "platform/mail/address.h"

#include <gtest/gtest.h>

namespace {

/// The addresses of a text, "name|address" each, and what was refused behind a "!".
QStringList read(const QString& text) {
    const mail::AddressList list = mail::ReadAddresses(text);
    QStringList all;
    for (const mail::Address& address : list.addresses)
        all << address.name() + QLatin1Char('|') + address.address();
    for (const QString& refused : list.refused)
        all << QLatin1Char('!') + refused;
    return all;
}

}  // namespace

TEST(MailAddress, StandsAloneOrBehindAName) {
    EXPECT_EQ(read("anna@example.org"), QStringList("|anna@example.org"));
    EXPECT_EQ(read(" <anna@example.org> "), QStringList("|anna@example.org"));
    EXPECT_EQ(read("Anna Reed <anna@example.org>"), QStringList("Anna Reed|anna@example.org"));
    EXPECT_EQ(read("Anna Reed<anna@example.org>"), QStringList("Anna Reed|anna@example.org"));
    EXPECT_EQ(read("anna+visit.o'brien@mail.example.org"), QStringList("|anna+visit.o'brien@mail.example.org"));
    EXPECT_EQ(read("desk@localhost"), QStringList("|desk@localhost"));
    EXPECT_EQ(read("desk@[192.0.2.1]"), QStringList("|desk@[192.0.2.1]"));
}

TEST(MailAddress, SeveralAreSeparatedByCommasOrSemicolons) {
    EXPECT_EQ(read("a@example.org, b@example.org;c@example.org"),
              QStringList({"|a@example.org", "|b@example.org", "|c@example.org"}));
    EXPECT_EQ(read(",; a@example.org ;, "), QStringList("|a@example.org"));
    EXPECT_EQ(read("  "), QStringList());
}

TEST(MailAddress, ANameInQuotesMayHoldAComma) {
    EXPECT_EQ(read("\"Müller, Änne; Dr.\" <anne@example.org>; bo@example.org"),
              QStringList({"Müller, Änne; Dr.|anne@example.org", "|bo@example.org"}));
    EXPECT_EQ(read("\"Anna \\\"Nan\\\" Reed\" <anna@example.org>"), QStringList("Anna \"Nan\" Reed|anna@example.org"));
}

TEST(MailAddress, ANameWithACommaAndNoQuotesIsRefusedAndNobodyIsLeftOutUnseen) {
    EXPECT_EQ(read("Müller, Änne <anne@example.org>"), QStringList({"Änne|anne@example.org", "!Müller"}));
}

TEST(MailAddress, ALineBreakMakesNoSecondRecipientOrCommand) {
    EXPECT_EQ(read("anna@example.org\nBcc: eve@example.org"), QStringList("!anna@example.org Bcc: eve@example.org"));
    EXPECT_EQ(read("anna@example.org>\r\nRCPT TO:<eve@example.org"),
              QStringList("!anna@example.org> RCPT TO:<eve@example.org"));
    EXPECT_EQ(read("Anna\r\nBcc: eve@example.org <anna@example.org>"),
              QStringList("Anna Bcc: eve@example.org|anna@example.org"));
    EXPECT_EQ(read(QStringLiteral("anna") + QChar(0) + QStringLiteral("@example.org")),
              QStringList("!anna @example.org"));
}

TEST(MailAddress, WhatIsNoneIsRefused) {
    for (const char* text :
         {"anna", "anna@", "@example.org", "an na@example.org", "anna@exam ple.org", "a@b@example.org",
          "anna@example..org", "anna@.org", "Anna <anna>", "Anna <anna@example.org> Reed", "<anna@example.org",
          "anna@example.org>", "\"Anna <anna@example.org>", "anna@[nowhere]"})
        EXPECT_EQ(read(QString::fromLatin1(text)), QStringList(QLatin1Char('!') + QString::fromLatin1(text))) << text;
    EXPECT_FALSE(mail::Address::From(QString(65, 'a') + "@example.org"));
    EXPECT_TRUE(mail::Address::From(QString(64, 'a') + "@example.org"));
}

TEST(MailAddress, AnInternationalDomainIsTheOneOfTheDomainNameSystem) {
    const auto address = mail::Address::From(QStringLiteral("anna@bücher.example"));
    ASSERT_TRUE(address);
    EXPECT_EQ(address->address(), "anna@xn--bcher-kva.example");
    EXPECT_EQ(address->domain(), "xn--bcher-kva.example");
    EXPECT_FALSE(address->isInternational());
}

TEST(MailAddress, AnInternationalOwnerStaysAsWritten) {
    const auto address = mail::Address::From(QStringLiteral("änne@example.org"));
    ASSERT_TRUE(address);
    EXPECT_EQ(address->address(), QStringLiteral("änne@example.org"));
    EXPECT_TRUE(address->isInternational());
}
