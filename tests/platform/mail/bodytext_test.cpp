#include "platform/mail/bodytext.h"

#include <gtest/gtest.h>

using mail::BodyText;
using mail::EncodeBody;

namespace {

/// The text that a quoted-printable body stands for, by the rules of RFC 2045.
QString decoded(QByteArray lines) {
    lines.replace("=\r\n", "");
    QByteArray octets;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i] != '=') {
            octets += lines[i];
            continue;
        }
        octets += QByteArray::fromHex(lines.mid(i + 1, 2));
        i += 2;
    }
    return QString::fromUtf8(octets);
}

qsizetype longestLine(const QByteArray& lines) {
    qsizetype longest = 0;
    for (const QByteArray& line : lines.split('\n'))
        longest = std::max(longest, line.size() - (line.endsWith('\r') ? 1 : 0));
    return longest;
}

}  // namespace

TEST(MailBody, ShortLinesOfAsciiAreSentAsTheyAre) {
    EXPECT_EQ(EncodeBody("Dear Anna,\n\n.\nsee you.\n"), (BodyText{"7bit", "Dear Anna,\r\n\r\n.\r\nsee you.\r\n"}));
    EXPECT_EQ(EncodeBody("no end"), (BodyText{"7bit", "no end\r\n"}));
    EXPECT_EQ(EncodeBody(""), (BodyText{"7bit", ""}));
}

TEST(MailBody, EveryKindOfLineBreakIsOne) {
    EXPECT_EQ(EncodeBody(QStringLiteral("a\r\nb\rc\nd\u2028e\u2029f")).lines, "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\n");
}

TEST(MailBody, ControlCharactersBecomeBlanksAndTabsStay) {
    EXPECT_EQ(EncodeBody(QStringLiteral("a") + QChar(0) + QStringLiteral("b\tc\x1b[d")).lines, "a b\tc [d\r\n");
}

TEST(MailBody, LettersBeyondAsciiAreQuoted) {
    const BodyText body = EncodeBody(QStringLiteral("Grüße = 100 €"));
    EXPECT_EQ(body.encoding, "quoted-printable");
    EXPECT_EQ(body.lines, "Gr=C3=BC=C3=9Fe =3D 100 =E2=82=AC\r\n");
}

TEST(MailBody, AParagraphWithoutBreaksIsSentInShortLinesAndReadInOne) {
    const QString paragraph = QStringLiteral("The appointment is on Wednesday. ").repeated(400).trimmed();
    const BodyText body = EncodeBody(paragraph);
    EXPECT_EQ(body.encoding, "quoted-printable");
    EXPECT_LE(longestLine(body.lines), 76);
    EXPECT_EQ(decoded(body.lines), paragraph + "\r\n");
}

TEST(MailBody, EveryCharacterIsReadAsItWasWritten) {
    QString text;
    for (char16_t c = 0x20; c < 0x2000; ++c)
        if (c < 0x7f || c > 0x9f)
            text += QChar(c);
    text += QStringLiteral("😀👩‍👧");
    const BodyText body = EncodeBody(text.repeated(3));
    EXPECT_EQ(decoded(body.lines), text.repeated(3) + "\r\n");
    EXPECT_LE(longestLine(body.lines), 76);
    for (const char c : body.lines)
        ASSERT_LT(static_cast<unsigned char>(c), 0x7f);
}

TEST(MailBody, BlanksAtTheEndOfALineAreKept) {
    EXPECT_EQ(EncodeBody("a \nb\t\nc").lines, "a=20\r\nb=09\r\nc\r\n");
}

TEST(MailBody, HalfACharacterDoesNoHarm) {
    EXPECT_EQ(decoded(EncodeBody(QString(QChar(0xd83d)) + "x").lines), "?x\r\n");
}
