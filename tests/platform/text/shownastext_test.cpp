#include <gtest/gtest.h>

#include <QLabel>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include "platform/text/plaintext.h"

TEST(ShownAsText, NothingIsNothing) {
    EXPECT_EQ(OneLine({}), QString());
    EXPECT_EQ(ManyLines({}), QString());
    EXPECT_EQ(TipText({}), QString());
    EXPECT_EQ(CaptionText({}), QString());
}

TEST(ShownAsText, NoControlCharacterIsLeftInALineAndTheLengthTellsNothingWasLost) {
    for (ushort code = 0; code < 0xA0; ++code) {
        if (code >= 0x20 && code < 0x7F)
            continue;
        const QString text = QStringLiteral("a") + QChar(code) + QStringLiteral("b");
        EXPECT_EQ(OneLine(text), QStringLiteral("a b")) << code;
        const bool breaks = code == '\n' || code == '\r';
        EXPECT_EQ(ManyLines(text), breaks ? QStringLiteral("a\nb") : QStringLiteral("a b")) << code;
    }
}

TEST(ShownAsText, TwoBreaksAreTwoAndAReturnWithItsFeedIsOne) {
    EXPECT_EQ(ManyLines(QStringLiteral("a\r\n\r\nb\n\rc")), QStringLiteral("a\n\nb\n\nc"));
    EXPECT_EQ(OneLine(QStringLiteral("\r\n")), QStringLiteral(" "));
}

TEST(ShownAsText, DoingItAgainChangesNothing) {
    for (const QString& text : {QStringLiteral("a\r\nb\tc"), QStringLiteral("plain"), QStringLiteral("\n\n")}) {
        EXPECT_EQ(OneLine(OneLine(text)), OneLine(text));
        EXPECT_EQ(ManyLines(ManyLines(text)), ManyLines(text));
    }
}

TEST(ShownAsText, ATipShowsWhateverItIsGivenLineByLine) {
    for (const QString& text : {QStringLiteral("<b>"), QStringLiteral("<qt>x</qt>"), QStringLiteral("a < b & c > d"),
                                QStringLiteral("<p>one</p>\n<p>two</p>"), QStringLiteral("&amp; <i>")}) {
        const QString tip = TipText(text);
        const QString shown = Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
        EXPECT_EQ(shown, text);
    }
}

TEST(ShownAsText, ACaptionHasNoAltKeyHoweverManyAmpersandsItHas) {
    EXPECT_EQ(CaptionText(QStringLiteral("&A && B&")), QStringLiteral("&&A &&&& B&&"));
}
