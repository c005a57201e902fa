#include <gtest/gtest.h>

#include <QPainter>
#include <QTextDocument>
#include <QXmlStreamReader>

#include "platform/printing/output.h"
#include "platform/printing/vsprinter.h"

namespace {

/// A document as one page for a browser.
class HtmlPage : public testing::Test {
  protected:
    [[nodiscard]] QString html() const { return printing::HtmlText(vp.Document()); }
    /// What a browser shows of it.
    [[nodiscard]] QStringList shown() const {
        QTextDocument page;
        page.setHtml(html());
        return page.toPlainText().split(u'\n', Qt::SkipEmptyParts);
    }

    VSPrinter vp;
};

}  // namespace

TEST_F(HtmlPage, WithoutTextItIsAPageAllTheSame) {
    EXPECT_TRUE(html().startsWith(QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\">")));
    EXPECT_TRUE(html().contains(QStringLiteral("<meta charset=\"utf-8\"/>")));
    EXPECT_TRUE(html().endsWith(QStringLiteral("</body>\n</html>\n")));
    EXPECT_TRUE(shown().isEmpty());
}

TEST_F(HtmlPage, TheTitleIsEscaped) {
    vp.SetTitle(QStringLiteral("Lane & <Reed>"));
    EXPECT_TRUE(html().contains(QStringLiteral("<title>Lane &amp; &lt;Reed&gt;</title>")));
}

TEST_F(HtmlPage, NothingThatATextSaysBecomesMarkup) {
    const QString text = QStringLiteral("<script>alert(\"x\")</script> & 'quotes'");
    vp.AddParagraph(text);
    vp.AddTable({.widths = {1000}, .titles = {text}, .rows = {{text}}});
    EXPECT_FALSE(html().contains(QStringLiteral("<script>")));
    EXPECT_EQ(shown(), (QStringList{text, text, text}));
}

TEST_F(HtmlPage, LineEndsAreBreaksHoweverTheyAreWritten) {
    vp.AddParagraph(QStringLiteral("a\r\nb\rc\nd"));
    EXPECT_TRUE(html().contains(QStringLiteral(">a<br/>b<br/>c<br/>d</p>")));
}

TEST_F(HtmlPage, AnEmptyParagraphIsAnEmptyLine) {
    vp.AddParagraph({});
    EXPECT_TRUE(html().contains(QStringLiteral(">&#160;</p>")));
}

TEST_F(HtmlPage, AParagraphHasItsFontItsSideAndItsIndent) {
    struct Case {
        Qt::Alignment alignment;
        const char* word;
    };
    for (const Case& entry : {Case{Qt::AlignLeft, "left"}, Case{Qt::AlignHCenter, "center"},
                              Case{Qt::AlignRight, "right"}, Case{Qt::AlignJustify, "justify"}}) {
        vp.StartDoc();
        vp.SetTextAlign(entry.alignment);
        vp.SetIndent(200);
        vp.AddParagraph(QStringLiteral("x"));
        EXPECT_TRUE(html().contains(QStringLiteral("text-align:%1;margin:0 0 0 10pt").arg(QLatin1String(entry.word))))
            << entry.word;
    }
    vp.StartDoc();
    vp.SetFontName(QStringLiteral("Times"));
    vp.SetFontSize(11.5);
    vp.SetFontBold(true);
    vp.SetFontItalic(true);
    vp.AddParagraph(QStringLiteral("x"));
    EXPECT_TRUE(html().contains(
        QStringLiteral("font-family:'Times',sans-serif;font-size:11.5pt;font-weight:bold;font-style:italic")));
}

TEST_F(HtmlPage, ATableHasItsWidthsInPoints) {
    vp.AddTable({.widths = {2000, 500}, .rows = {{QStringLiteral("a"), QStringLiteral("b")}}});
    EXPECT_TRUE(html().contains(QStringLiteral("width:125pt")));
    EXPECT_TRUE(html().contains(QStringLiteral("<col style=\"width:100pt\"/><col style=\"width:25pt\"/>")));
    EXPECT_FALSE(html().contains(QStringLiteral("<thead>")));
}

TEST_F(HtmlPage, GridAndShadesAreAsTold) {
    vp.AddTable({.widths = {2000}, .titles = {QStringLiteral("t")}, .rows = {{QStringLiteral("a")}}});
    EXPECT_TRUE(html().contains(QStringLiteral("<table class=\"grid\"")));
    EXPECT_TRUE(html().contains(QStringLiteral("<tr style=\"background:#e6e6e6\"><th>t</th></tr>")));
    vp.StartDoc();
    vp.AddTable({.widths = {2000}, .titles = {QStringLiteral("t")}, .rows = {{QStringLiteral("a")}}},
                {.grid = false, .titleShading = false, .shading = QColor(Qt::yellow)});
    EXPECT_TRUE(html().contains(QStringLiteral("<table class=\"plain\"")));
    EXPECT_TRUE(html().contains(QStringLiteral("<tr><th>t</th></tr>")));
    EXPECT_TRUE(html().contains(QStringLiteral("<tr style=\"background:#ffff00\"><td>a</td></tr>")));
}

TEST_F(HtmlPage, ARowOfTooFewCellsHasEmptyOnesAndTooManyGoIntoTheLast) {
    vp.AddTable(
        {.widths = {1000, 1000},
         .rows = {{QStringLiteral("one")}, {}, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}}});
    EXPECT_TRUE(html().contains(QStringLiteral("<tr><td>one</td><td></td></tr>")));
    EXPECT_TRUE(html().contains(QStringLiteral("<tr><td></td><td></td></tr>")));
    EXPECT_TRUE(html().contains(QStringLiteral("<tr><td>a</td><td>b c</td></tr>")));
}

TEST_F(HtmlPage, ATextWithPlaceSignsIsNotFilledIn) {
    vp.AddParagraph(QStringLiteral("%1 %2 %3 %4"));
    vp.AddTable({.widths = {1000}, .titles = {QStringLiteral("%2")}, .rows = {{QStringLiteral("%1")}}});
    vp.SetTitle(QStringLiteral("%1 %2 %5"));
    EXPECT_EQ(shown(), (QStringList{"%1 %2 %3 %4", "%2", "%1"}));
    EXPECT_TRUE(html().contains(QStringLiteral("<title>%1 %2 %5</title>")));
}

TEST_F(HtmlPage, SpacesAndPageBreaksHaveTheirPlacesAndPicturesNone) {
    vp.AddSpace(300);
    vp.NewPage();
    const QString before = html();
    EXPECT_TRUE(
        before.contains(QStringLiteral("<div style=\"height:15pt\"></div>\n<div style=\"page-break-before:always\">")));
    vp.AddFigure([](QPainter&, const QRectF&) { FAIL() << "A picture is made for paper."; });
    EXPECT_EQ(html(), before);
}

TEST_F(HtmlPage, WhatStandsInTheMarginsIsLeftAway) {
    vp.SetHeader(QStringLiteral("|head|"));
    vp.SetFooter(QStringLiteral("||Page %d"));
    EXPECT_FALSE(html().contains(QStringLiteral("head|")));
    EXPECT_FALSE(html().contains(QStringLiteral("Page 1")));
}

TEST_F(HtmlPage, LettersOfEveryScriptStandInIt) {
    const QString text = QStringLiteral("Zoë Müller 山田 😀");
    vp.AddParagraph(text);
    EXPECT_TRUE(html().contains(QStringLiteral(">%1</p>").arg(text)));
}

TEST_F(HtmlPage, OnlyTheRowsThatAreShadedHaveTheColour) {
    vp.AddTable({.widths = {1000}, .rows = {{QStringLiteral("a")}, {QStringLiteral("b")}, {QStringLiteral("c")}}},
                {.shading = QColor(Qt::yellow), .shadedRows = {true, false}});
    EXPECT_TRUE(html().contains(QStringLiteral("<tr style=\"background:#ffff00\"><td>a</td></tr>")));
    EXPECT_TRUE(html().contains(QStringLiteral("<tr><td>b</td></tr>")));
    EXPECT_TRUE(html().contains(QStringLiteral("<tr><td>c</td></tr>")));
}

TEST_F(HtmlPage, HeadingsAreHeadingsAndNoData) {
    vp.AddTable({.widths = {1000}, .rows = {{QStringLiteral("Today & more")}}}, {.grid = false, .headingLevel = 2});
    EXPECT_TRUE(html().contains(QStringLiteral("<table class=\"plain\" role=\"presentation\"")));
    EXPECT_TRUE(html().contains(QStringLiteral("<td><h2>Today &amp; more</h2></td>")));
}

TEST_F(HtmlPage, IsWellFormedWhateverItsTextsHold) {
    const QString text = QStringLiteral("<a href='x'>&nbsp;\x01 \x0b ]]> \"quoted\" \t - --> כהן");
    vp.SetTitle(text);
    vp.SetFontName(QStringLiteral("It's \"a\" <font>"));
    vp.AddParagraph(text);
    vp.AddParagraph({});
    vp.AddSpace(100);
    vp.NewPage();
    vp.AddTable({.widths = {1000, 1000}, .titles = {text}, .rows = {{text}, {}}}, {.headingLevel = 3});
    QXmlStreamReader reader(html().toUtf8());
    while (!reader.atEnd())
        reader.readNext();
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << html().toStdString();
}
