#include <gtest/gtest.h>

#include <QImage>
#include <stdexcept>

#include "platform/printing/pagelayout.h"
#include "platform/printing/textrow.h"
#include "platform/printing/vsprinter.h"
#include "tests/platform/printing/pagereader.h"

using printing::PageLayout;
using printing::Piece;
using printing::Table;
using printing::TableContent;
using printing::TextRow;

namespace {

/// A document on letter paper, looked at page by page.
class PageBreaks : public testing::Test {
  protected:
    PageBreaks() { vp.SetPaper(QPageSize(QPageSize::Letter)); }

    [[nodiscard]] PageLayout laid() const { return PageLayout(vp.Document()); }
    void addLines(int count) {
        for (int line = 0; line < count; ++line)
            vp.AddParagraph(QString::number(line));
    }
    /// How many lines of the body's height fit a page.
    [[nodiscard]] static int linesOfAPage() {
        VSPrinter page;
        page.SetPaper(QPageSize(QPageSize::Letter));
        page.AddParagraph(QStringLiteral("x"));
        const PageLayout layout(page.Document());
        return static_cast<int>(layout.body().height() / layout.pieces(0)[0].height);
    }
    static TableContent table(int rows, const QStringList& titles = {QStringLiteral("Title")}) {
        TableContent content{.widths = {2880}, .titles = titles};
        for (int row = 0; row < rows; ++row)
            content.rows.push_back({QString::number(row)});
        return content;
    }
    static std::vector<int> rowsOn(const PageLayout& layout, int page) {
        std::vector<int> rows;
        for (const Piece& piece : layout.pieces(page))
            rows.push_back(piece.row);
        return rows;
    }

    VSPrinter vp;
};

}  // namespace

TEST_F(PageBreaks, APageTakesAsManyLinesAsFitAndNoneIsLost) {
    const int fitting = linesOfAPage();
    addLines(fitting);
    EXPECT_EQ(vp.PageCount(), 1);
    vp.AddParagraph(QStringLiteral("one more"));
    EXPECT_EQ(vp.PageCount(), 2);
    const PageLayout layout = laid();
    EXPECT_EQ(static_cast<int>(layout.pieces(0).size()), fitting);
    EXPECT_EQ(WordsOf(layout, 1), QStringList{"one more"});
}

TEST_F(PageBreaks, NoPieceReachesBelowTheBodyOrOverItsNeighbour) {
    addLines(30);
    vp.AddTable(table(70));
    addLines(30);
    const PageLayout layout = laid();
    for (int page = 0; page < layout.pageCount(); ++page) {
        double above = layout.body().top();
        for (const Piece& piece : layout.pieces(page)) {
            EXPECT_GE(piece.top, above - 0.01) << page;
            above = piece.top + piece.height;
        }
        EXPECT_LE(above, layout.body().bottom() + 0.01) << page;
    }
}

TEST_F(PageBreaks, EveryRowOfATableStandsOnceInOrder) {
    vp.AddTable(table(200));
    const PageLayout layout = laid();
    std::vector<int> rows;
    for (int page = 0; page < layout.pageCount(); ++page)
        for (const int row : rowsOn(layout, page))
            if (row >= 0)
                rows.push_back(row);
    ASSERT_EQ(rows.size(), 200U);
    for (int row = 0; row < 200; ++row)
        EXPECT_EQ(rows[static_cast<std::size_t>(row)], row);
}

TEST_F(PageBreaks, ATableWithoutTitlesHasNone) {
    vp.AddTable(table(100, {}));
    const PageLayout layout = laid();
    for (int page = 0; page < layout.pageCount(); ++page)
        EXPECT_GE(rowsOn(layout, page).front(), 0);
}

TEST_F(PageBreaks, AnEmptyTableWhoseTitlesFindNoRoomHasThemOnTheNextPage) {
    addLines(linesOfAPage());
    vp.AddTable(table(0));
    const PageLayout layout = laid();
    ASSERT_EQ(layout.pageCount(), 2);
    EXPECT_EQ(rowsOn(layout, 1), std::vector<int>{-1});
}

TEST_F(PageBreaks, ARowThatIsDividedHasTheTitlesAboveEachPart) {
    TableContent content = table(0);
    content.rows.push_back({QStringLiteral("line\n").repeated(120) + QStringLiteral("end")});
    vp.AddTable(content);
    const PageLayout layout = laid();
    ASSERT_GT(layout.pageCount(), 2);
    int lines = 0;
    for (int page = 0; page < layout.pageCount(); ++page) {
        ASSERT_EQ(rowsOn(layout, page), (std::vector<int>{-1, 0})) << page;
        EXPECT_EQ(layout.pieces(page)[1].firstLine, lines);
        lines += layout.pieces(page)[1].lineCount;
    }
    EXPECT_EQ(lines, 121);
}

TEST_F(PageBreaks, ASpaceAtTheFootOfAPageIsNotCarriedOver) {
    addLines(linesOfAPage());
    vp.AddSpace(5000);
    vp.AddParagraph(QStringLiteral("next"));
    const PageLayout layout = laid();
    ASSERT_EQ(layout.pageCount(), 2);
    EXPECT_EQ(layout.pieces(1)[0].top, layout.body().top());
}

TEST_F(PageBreaks, APageBreakAtTheEndMakesAnotherPageAndAtTheBeginningNone) {
    vp.NewPage();
    vp.AddParagraph(QStringLiteral("a"));
    EXPECT_EQ(vp.PageCount(), 1);
    vp.NewPage();
    EXPECT_EQ(vp.PageCount(), 2);
    EXPECT_TRUE(laid().pieces(1).empty());
}

TEST_F(PageBreaks, OtherMarginsMakeOtherPages) {
    vp.AddTable(table(100));
    const int usual = vp.PageCount();
    vp.SetMargins({.left = 720, .top = 5000, .right = 720, .bottom = 5000});
    EXPECT_GT(vp.PageCount(), usual);
    const PageLayout layout = laid();
    EXPECT_EQ(layout.body().top(), 5000);
    EXPECT_EQ(layout.body().bottom(), 15840 - 5000);
}

TEST_F(PageBreaks, TextOnEachPageMakesRoomForItselfOnlyWhereItStands) {
    vp.SetMargins({.left = 720, .top = 0, .right = 720, .bottom = 0});
    EXPECT_EQ(laid().body().top(), 0);
    vp.SetHeader(QStringLiteral("|top|"));
    EXPECT_GT(laid().body().top(), 360);
    EXPECT_EQ(laid().body().bottom(), 15840);
    vp.SetFooter(QStringLiteral("|foot|"));
    EXPECT_LT(laid().body().bottom(), 15840 - 360);
}

TEST_F(PageBreaks, MoreThanThreePartsOnEachPageAreNotPrintedAndTheNumberIsCountedTwice) {
    vp.SetHeader(QStringLiteral("a|b|c|d"));
    vp.SetFooter(QStringLiteral("%d of %d"));
    EXPECT_EQ(WordsOf(laid(), 0), (QStringList{"a", "b", "c", "1 of 1"}));
}

TEST_F(PageBreaks, ATableWithoutColumnsIsAnErrorOfTheProgramAndAddsNothing) {
    EXPECT_THROW(vp.AddTable(TableContent{.widths = {}}), std::invalid_argument);
    EXPECT_THROW(vp.AddTable(TableContent{.widths = {100, 0}}), std::invalid_argument);
    EXPECT_TRUE(vp.Document().blocks.empty());
}

TEST_F(PageBreaks, TheMissingCellsOfARowHaveTheirBordersToo) {
    vp.AddTable({.widths = {2880, 2880}, .rows = {{QStringLiteral("one")}}});
    constexpr int PixelsPerInch = 144;
    const PageLayout layout = laid();
    const QImage picture = PictureOf(layout, 0, PixelsPerInch);
    const auto pixels = [](double twips) { return static_cast<int>(twips * PixelsPerInch / printing::TwipsPerInch); };
    const int end = pixels(layout.body().left() + 2 * 2880);
    const int middle = pixels(layout.body().top() + layout.pieces(0)[0].height / 2);
    bool hasLine = false;
    for (int x = end - 2; x <= end + 2; ++x)
        hasLine = hasLine || picture.pixelColor(x, middle) != QColor(Qt::white);
    EXPECT_TRUE(hasLine);
    EXPECT_EQ(picture.pixelColor(end + 10, middle), QColor(Qt::white));
}

TEST_F(PageBreaks, AThousandPagesComeToAnEnd) {
    vp.AddTable(table(40000));
    const PageLayout layout = laid();
    EXPECT_GT(layout.pageCount(), 800);
    EXPECT_EQ(layout.pieces(layout.pageCount() - 1).back().row, 39999);
}

TEST(TextRowTest, ALineIsAsHighAsItsFontAndARowAsItsLinesAndItsBorders) {
    Table table;
    table.widths = {2000};
    table.rows = {{QStringLiteral("one")}, {QStringLiteral("one\ntwo\nthree")}, {QString()}};
    table.font.setPointSizeF(10);
    const TextRow one(table, 0, 10000);
    const TextRow three(table, 1, 10000);
    const TextRow empty(table, 2, 10000);
    EXPECT_EQ(one.lineCount(), 1);
    EXPECT_EQ(three.lineCount(), 3);
    EXPECT_EQ(empty.lineCount(), 1);
    EXPECT_DOUBLE_EQ(empty.height(), one.height());
    EXPECT_NEAR(three.height() - one.height(), 2 * one.lineHeight(), 0.01);
    EXPECT_NEAR(one.height() - one.lineHeight(), 2 * TextRow::PadTop, 0.01);
    EXPECT_NEAR(one.height(0), 2 * TextRow::PadTop, 0.01);
}

TEST(TextRowTest, TheLongestCellMakesTheRow) {
    Table table;
    table.widths = {2000, 2000};
    table.rows = {{QStringLiteral("a"), QStringLiteral("b\nc\nd")}};
    EXPECT_EQ(TextRow(table, 0, 10000).lineCount(), 3);
}

TEST(TextRowTest, ANarrowPageNarrowsTheColumnsAndBreaksMoreLines) {
    Table table;
    table.widths = {6000, 6000};
    table.rows = {{QStringLiteral("many words that stand beside each other in one line on wide paper"), QString()}};
    EXPECT_GT(TextRow(table, 0, 3000).lineCount(), TextRow(table, 0, 12000).lineCount());
}

TEST(ColumnScaleTest, FitsNarrowsOrFills) {
    Table table;
    table.widths = {5000, 5000};
    EXPECT_DOUBLE_EQ(printing::ColumnScale(table, 10000), 1);
    EXPECT_DOUBLE_EQ(printing::ColumnScale(table, 5000), 0.5);
    EXPECT_DOUBLE_EQ(printing::ColumnScale(table, 12500), 1);
    EXPECT_DOUBLE_EQ(printing::ColumnScale(table, 14000), 1.4);
    table.widths = {4000, 4000};
    EXPECT_DOUBLE_EQ(printing::ColumnScale(table, 14000), 1) << "It was not made for the width of a page.";
}

TEST(FontInTwipsTest, APointIsTwentyTwipsAndAFontWithoutPointsHasTen) {
    QFont font;
    font.setPointSizeF(12);
    EXPECT_EQ(printing::FontInTwips(font).pixelSize(), 240);
    font.setPixelSize(50);
    EXPECT_EQ(printing::FontInTwips(font).pixelSize(), 200);
}

TEST(PageSetupTest, ThePaperIsMeasuredAsItIsRead) {
    printing::PageSetup setup;
    setup.paper = QPageSize(QPageSize::Letter);
    EXPECT_EQ(setup.sizeTwips(), QSizeF(12240, 15840));
    setup.orientation = QPageLayout::Landscape;
    EXPECT_EQ(setup.sizeTwips(), QSizeF(15840, 12240));
    printing::PageSetup same = setup;
    EXPECT_EQ(same, setup);
    same.margins.left = 1;
    EXPECT_NE(same, setup);
}
