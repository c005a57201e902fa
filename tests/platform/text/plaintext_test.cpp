#include "platform/text/plaintext.h"

#include <gtest/gtest.h>

#include <QTextDocumentFragment>

TEST(OneLine, MakesOneBlankOfALineBreakHoweverItIsWritten) {
    EXPECT_EQ(OneLine(QStringLiteral("a\r\nb\nc\rd\u2028e\u2029f")), "a b c d e f");
    EXPECT_EQ(OneLine(QStringLiteral("a\n\nb")), "a  b");
}

TEST(OneLine, MakesABlankOfTabsEscapeAndNul) {
    EXPECT_EQ(OneLine(QStringLiteral("a\tb\x1b") + QChar(0) + QStringLiteral("c\x7f\u0085d")), "a b  c  d");
}

TEST(OneLine, LeavesEveryOtherTextAlone) {
    const QString text = QStringLiteral("Ö'Brien; <b> & 😀");
    EXPECT_EQ(OneLine(text), text);
}

TEST(ManyLines, KeepTheirLineBreaksAndNothingElseThatIsNotSeen) {
    EXPECT_EQ(ManyLines(QStringLiteral("a\r\nb\rc\td\x1b")), "a\nb\nc d ");
}

TEST(TipText, ShowsMarkupAsItStands) {
    const QString text = QStringLiteral("<b>Bold</b> & <img src=\"/etc/hostname\">\nsecond line");
    EXPECT_EQ(QTextDocumentFragment::fromHtml(TipText(text)).toPlainText(), text);
    EXPECT_FALSE(TipText(text).contains(QLatin1String("<img")));
}

TEST(TipText, LeavesAnOrdinaryTextAsItIs) {
    EXPECT_EQ(TipText(QStringLiteral("Group A & B")), "Group A & B");
}

TEST(CaptionText, ShowsAnAmpersandInsteadOfAnAltKey) {
    EXPECT_EQ(CaptionText(QStringLiteral("R&D\nclient")), "R&&D client");
}

TEST(FirstCharacters, AreAtMostSoManyAndWhole) {
    const QString pair = QStringLiteral("\U0001F600");
    EXPECT_EQ(FirstCharacters(QString(), 100), QString());
    EXPECT_EQ(FirstCharacters(QStringLiteral("Anna"), 100), "Anna");
    EXPECT_EQ(FirstCharacters(QString(101, QLatin1Char('x')), 100).size(), 100);
    EXPECT_EQ(FirstCharacters(QString(99, QLatin1Char('x')) + pair, 100).size(), 99);
    EXPECT_EQ(FirstCharacters(QString(98, QLatin1Char('x')) + pair, 100).size(), 100);
}
