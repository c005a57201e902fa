#include <gtest/gtest.h>

#include <QLocale>

#include "platform/printing/vsprinter.h"
#include "tests/platform/printing/pagereader.h"

using printing::Paragraph;

namespace {

const Paragraph& paragraphOf(const VSPrinter& vp, std::size_t block = 0) {
    return std::get<Paragraph>(vp.Document().blocks.at(block));
}

}  // namespace

TEST(NewDocument, BeginsInArialTenOnThePaperOfTheCountry) {
    VSPrinter vp;
    vp.AddParagraph(QStringLiteral("x"));
    EXPECT_EQ(paragraphOf(vp).font.family(), QStringLiteral("Arial"));
    EXPECT_EQ(paragraphOf(vp).font.pointSizeF(), 10);
    EXPECT_EQ(paragraphOf(vp).alignment, Qt::AlignLeft);
    EXPECT_EQ(paragraphOf(vp).indent, 0);
    const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    EXPECT_EQ(vp.Document().setup.paper.id(), american ? QPageSize::Letter : QPageSize::A4);
    EXPECT_EQ(vp.Document().setup.margins,
              (printing::PageMargins{.left = 720, .top = 1080, .right = 720, .bottom = 1080}));
    EXPECT_EQ(vp.Document().marginFont.pointSizeF(), 9);
}

TEST(NewDocument, EachFontHasAnotherAsNarrowBehindIt) {
    VSPrinter vp;
    vp.SetFontName(QStringLiteral("Nobody's Font"));
    vp.AddParagraph(QStringLiteral("x"));
    EXPECT_EQ(paragraphOf(vp).font.families().first(), QStringLiteral("Nobody's Font"));
    EXPECT_GT(paragraphOf(vp).font.families().size(), 2);
}

TEST(NewDocument, FontAndAlignmentHoldForWhatIsAddedAfterThemAlone) {
    VSPrinter vp;
    vp.AddParagraph(QStringLiteral("before"));
    vp.SetFontBold(true);
    vp.SetTextAlign(Qt::AlignRight);
    vp.SetIndent(300);
    vp.AddParagraph(QStringLiteral("after"));
    EXPECT_FALSE(paragraphOf(vp, 0).font.bold());
    EXPECT_EQ(paragraphOf(vp, 0).indent, 0);
    EXPECT_TRUE(paragraphOf(vp, 1).font.bold());
    EXPECT_EQ(paragraphOf(vp, 1).alignment, Qt::AlignRight);
    EXPECT_EQ(paragraphOf(vp, 1).indent, 300);
    vp.AddTable({.widths = {1000}});
    EXPECT_TRUE(std::get<printing::Table>(vp.Document().blocks.at(2)).font.bold());
}

TEST(NewDocument, ATableLooksAsTold) {
    VSPrinter vp;
    vp.AddTable({.widths = {1000}});
    vp.AddTable({.widths = {1000}}, {.grid = false, .titleShading = false, .shading = QColor(Qt::red)});
    const auto& usual = std::get<printing::Table>(vp.Document().blocks.at(0));
    EXPECT_TRUE(usual.grid && usual.titleShading && !usual.shading);
    const auto& told = std::get<printing::Table>(vp.Document().blocks.at(1));
    EXPECT_TRUE(!told.grid && !told.titleShading && told.shading == QColor(Qt::red));
}
