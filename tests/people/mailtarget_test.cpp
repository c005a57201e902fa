#include "people/mailtarget.h"

#include <gtest/gtest.h>

#include <QUrl>
#include <QUrlQuery>

namespace {

struct Mail {
    const char* address;
    const char* target;
};

}  // namespace

TEST(MailTarget, AnAddressIsHandedOverAsItStands) {
    EXPECT_EQ(MailTarget(QStringLiteral("anna.o-brien_1@mail.example.org")),
              QStringLiteral("mailto:anna.o-brien_1@mail.example.org"));
}

TEST(MailTarget, WhatIsNoAddressIsEscaped) {
    static constexpr Mail mails[]{{"a@example.org?bcc=b@example.org", "mailto:a@example.org%3Fbcc%3Db@example.org"},
                                  {"a@example.org&subject=x", "mailto:a@example.org%26subject%3Dx"},
                                  {"a@example.org#top", "mailto:a@example.org%23top"},
                                  {"a%0d%0abcc:b@example.org", "mailto:a%250d%250abcc%3Ab@example.org"},
                                  {"  Anna Reed <a@example.org> ", "mailto:Anna%20Reed%20%3Ca@example.org%3E"},
                                  {"o'brien+x@example.org", "mailto:o%27brien%2Bx@example.org"},
                                  {"jürgen@example.org", "mailto:j%C3%BCrgen@example.org"},
                                  {"javascript:alert(1)", "mailto:javascript%3Aalert%281%29"},
                                  {"file:///etc/passwd", "mailto:file%3A%2F%2F%2Fetc%2Fpasswd"}};
    for (const Mail& mail : mails)
        EXPECT_EQ(MailTarget(QString::fromUtf8(mail.address)), QLatin1String(mail.target));
}

TEST(MailTarget, LineEndsNeverReachTheMailProgram) {
    EXPECT_EQ(MailTarget(QStringLiteral("a@example.org\r\nBcc: b@example.org")),
              QStringLiteral("mailto:a@example.org%20Bcc%3A%20b@example.org"));
}

TEST(MailTarget, SeveralAddressesAreSeveralRecipients) {
    EXPECT_EQ(MailTarget(QStringLiteral("a@example.org, b@example.org,, ")),
              QStringLiteral("mailto:a@example.org,b@example.org"));
    EXPECT_EQ(MailTarget(QStringLiteral("a@example.org; b@example.org")),
              QStringLiteral("mailto:a@example.org,b@example.org"));
}

TEST(MailTarget, TheMailProgramSeesNoQueryAndTheWholeText) {
    const QString address = QStringLiteral("a@example.org?bcc=b@example.org&body=x #1 100%");
    const QUrl url = QUrl::fromUserInput(MailTarget(address));
    EXPECT_EQ(url.scheme(), QStringLiteral("mailto"));
    EXPECT_FALSE(url.hasQuery());
    EXPECT_FALSE(url.hasFragment());
    EXPECT_EQ(url.path(QUrl::FullyDecoded), address);
}
