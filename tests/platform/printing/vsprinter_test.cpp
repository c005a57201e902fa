#include "platform/printing/vsprinter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <stdexcept>

#include "platform/printing/pagelayout.h"
#include "platform/printing/printerror.h"
#include "platform/printing/tabletext.h"
#include "tests/platform/printing/pagereader.h"
#include "tests/support/files.h"
#include "tests/support/fulldisk.h"

using printing::PageLayout;
using printing::ParseTable;
using printing::Piece;

namespace {

class PaperDocument : public testing::Test {
  protected:
    PaperDocument() { vp.SetPaper(QPageSize(QPageSize::Letter)); }

    [[nodiscard]] PageLayout laid() const { return PageLayout(vp.Document()); }
    [[nodiscard]] QStringList words(int page = 0) const { return WordsOf(laid(), page); }
    /// Of a text on the first page; fails the test where it is not there.
    [[nodiscard]] QPointF placeOf(const char* text) const {
        for (const PaperText& painted : TextsOf(laid(), 0))
            if (painted.text.trimmed() == QLatin1String(text))
                return painted.place;
        ADD_FAILURE() << text << " is not on the page";
        return {};
    }
    static QString rows(int count, const QString& row = QStringLiteral("Jones, Mary|03/07/2026;")) {
        return row.repeated(count);
    }
    /// How many pages a PDF file has.
    static int pdfPages(const QByteArray& pdf) {
        return static_cast<int>(QString::fromLatin1(pdf).count(QRegularExpression(QStringLiteral("/Type */Page\\b"))));
    }

    VSPrinter vp;
    QTemporaryDir folder;
};

}  // namespace

TEST_F(PaperDocument, WithoutTextIsOneEmptyPage) {
    EXPECT_EQ(vp.PageCount(), 1);
    EXPECT_TRUE(words().isEmpty());
}

TEST_F(PaperDocument, ATabLeadsToTheNextHalfInch) {
    vp.SetMargins({.left = 1440, .top = 1440, .right = 1440, .bottom = 1440});
    vp.AddParagraph(QStringLiteral("a\tb\t\tc"));
    EXPECT_EQ(placeOf("a").x(), 1440);
    EXPECT_EQ(placeOf("b").x(), 1440 + 720);
    EXPECT_EQ(placeOf("c").x(), 1440 + 3 * 720);
}

TEST_F(PaperDocument, AParagraphStandsAtTheLeftMargin) {
    vp.SetMargins({.left = 1440, .top = 2880, .right = 1440, .bottom = 1440});
    vp.AddParagraph(QStringLiteral("Schedule"));
    EXPECT_EQ(placeOf("Schedule").x(), 1440);
    EXPECT_GT(placeOf("Schedule").y(), 2880);
    EXPECT_LT(placeOf("Schedule").y(), 2880 + 300);
}

TEST_F(PaperDocument, AlignmentAndIndentMoveAParagraph) {
    vp.SetIndent(500);
    vp.AddParagraph(QStringLiteral("Indented"));
    vp.SetIndent(0);
    vp.SetTextAlign(Qt::AlignHCenter);
    vp.AddParagraph(QStringLiteral("Centre"));
    vp.SetTextAlign(Qt::AlignRight);
    vp.AddParagraph(QStringLiteral("R"));
    EXPECT_EQ(placeOf("Indented").x(), 720 + 500);
    EXPECT_NEAR(placeOf("Centre").x(), 12240 / 2, 500);
    EXPECT_LT(placeOf("Centre").x(), 12240 / 2);
    EXPECT_GT(placeOf("R").x(), 12240 - 720 - 250);
}

TEST_F(PaperDocument, ALargerFontIsHigher) {
    vp.AddParagraph(QStringLiteral("small"));
    vp.SetFontSize(20);
    vp.SetFontBold(true);
    vp.SetFontItalic(true);
    vp.AddParagraph(QStringLiteral("large"));
    const PageLayout layout = laid();
    EXPECT_NEAR(layout.pieces(0)[1].height, 2 * layout.pieces(0)[0].height, 2);
    EXPECT_NEAR(layout.pieces(0)[0].height, 10 * 20 * 1.17, 10);
}

TEST_F(PaperDocument, ALongParagraphBreaksIntoLinesAndALineEndIsOne) {
    vp.AddParagraph(QStringLiteral("first\r\nsecond\rthird\nfourth"));
    EXPECT_EQ(words(), (QStringList{"first", "second", "third", "fourth"}));
    vp.StartDoc();
    vp.AddParagraph(QStringLiteral("word ").repeated(60));
    EXPECT_GT(words().size(), 1);
}

TEST_F(PaperDocument, AnEmptyParagraphAndASpaceMoveDown) {
    vp.AddParagraph(QStringLiteral("a"));
    vp.AddParagraph({});
    vp.AddParagraph(QStringLiteral("b"));
    vp.AddSpace(300);
    vp.AddParagraph(QStringLiteral("c"));
    const double line = laid().pieces(0)[0].height;
    EXPECT_NEAR(placeOf("b").y() - placeOf("a").y(), 2 * line, 0.1);
    EXPECT_NEAR(placeOf("c").y() - placeOf("b").y(), line + 300, 0.1);
}

TEST_F(PaperDocument, HeaderAndFooterHaveThreePartsAndThePagesNumber) {
    vp.SetHeader(QStringLiteral("left|Appointments|right"));
    vp.SetFooter(QStringLiteral("||Page %d"));
    vp.AddParagraph(QStringLiteral("one"));
    vp.NewPage();
    vp.AddParagraph(QStringLiteral("two"));
    EXPECT_EQ(words(0), (QStringList{"left", "Appointments", "right", "Page 1", "one"}));
    EXPECT_EQ(words(1), (QStringList{"left", "Appointments", "right", "Page 2", "two"}));
    EXPECT_EQ(placeOf("left").x(), 720);
    EXPECT_NEAR(placeOf("Appointments").x(), 12240 / 2, 700);
    EXPECT_GT(placeOf("right").x(), 12240 - 720 - 500);
    EXPECT_LT(placeOf("left").y(), 1080);
    EXPECT_GT(placeOf("Page 1").y(), 15840 - 1080);
}

TEST_F(PaperDocument, TextInTheMarginsNeverCoversTheBody) {
    vp.SetMargins({.left = 0, .top = 0, .right = 0, .bottom = 0});
    vp.SetHeader(QStringLiteral("|top|"));
    vp.SetFooter(QStringLiteral("|bottom|"));
    for (int line = 0; line < 100; ++line)
        vp.AddParagraph(QStringLiteral("line"));
    const PageLayout layout = laid();
    EXPECT_GT(layout.pieces(0).front().top, placeOf("top").y());
    const Piece& last = layout.pieces(0).back();
    EXPECT_LT(last.top + last.height, placeOf("bottom").y());
}

TEST_F(PaperDocument, TheTableHasItsColumnsAtTheirWidths) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), QStringLiteral("Description|Date;"), rows(1)));
    EXPECT_EQ(words(), (QStringList{"Description", "Date", "Jones, Mary", "03/07/2026"}));
    EXPECT_EQ(placeOf("Date").x() - placeOf("Description").x(), 2880);
    EXPECT_EQ(placeOf("03/07/2026").x() - placeOf("Jones, Mary").x(), 2880);
}

TEST_F(PaperDocument, ATableThatIsTooWideIsNarrowedToThePage) {
    vp.AddTable(ParseTable(QStringLiteral("10800|10800;"), {}, QStringLiteral("a|b;")));
    EXPECT_EQ(placeOf("b").x() - placeOf("a").x(), 5400);
}

TEST_F(PaperDocument, ALongCellBreaksIntoLinesAndMakesItsRowHigher) {
    vp.AddTable(ParseTable(
        QStringLiteral("1440|1440;"), {},
        QStringLiteral("short|b;a text of many words that has no room|b;Unbrokenlongwordthatfillsmorethanaline|b;")));
    const std::vector<Piece> pieces = laid().pieces(0);
    ASSERT_EQ(pieces.size(), 3);
    EXPECT_EQ(pieces[0].lineCount, 1);
    EXPECT_GT(pieces[1].lineCount, 2);
    EXPECT_GT(pieces[2].lineCount, 1);
    EXPECT_EQ(pieces[1].top, pieces[0].top + pieces[0].height);
}

TEST_F(PaperDocument, ARowOfTooFewCellsHasEmptyOnesAndTooManyGoIntoTheLast) {
    vp.AddTable(ParseTable(QStringLiteral("2880|2880;"), {}, QStringLiteral("one;|;a|b|c;")));
    EXPECT_EQ(words(), (QStringList{"one", "a", "b c"}));
    EXPECT_EQ(laid().pieces(0).size(), 3);
}

TEST_F(PaperDocument, ACellPrintsEverySignThatItHolds) {
    vp.AddTable({.widths = {2880, 2880},
                 .titles = {QStringLiteral("Who|What;"), QStringLiteral("Where")},
                 .rows = {{QStringLiteral("Jones; Mary"), QStringLiteral("Room 1|2")}}});
    EXPECT_EQ(words(), (QStringList{"Who|What;", "Where", "Jones; Mary", "Room 1|2"}));
    EXPECT_EQ(laid().pieces(0).size(), 2);
}

TEST_F(PaperDocument, AnEmptyTableHasItsTitlesAlone) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), QStringLiteral("Description|Date;"), {}));
    EXPECT_EQ(words(), (QStringList{"Description", "Date"}));
}

TEST_F(PaperDocument, TheTitlesStandOnEachPage) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), QStringLiteral("Description|Date;"), rows(100)));
    ASSERT_GT(vp.PageCount(), 1);
    for (int page = 0; page < vp.PageCount(); ++page)
        EXPECT_EQ(words(page).mid(0, 2), (QStringList{"Description", "Date"})) << page;
}

TEST_F(PaperDocument, ARowIsNeverDividedWhileItFitsAPage) {
    QString body;
    for (int row = 0; row < 60; ++row)
        body += QStringLiteral("%1").arg(row) + QStringLiteral("\nline").repeated(row % 9) + u';';
    vp.AddTable(ParseTable(QStringLiteral("2880;"), QStringLiteral("Title;"), body));
    const PageLayout layout = laid();
    ASSERT_GT(layout.pageCount(), 2);
    int row = 0;
    for (int page = 0; page < layout.pageCount(); ++page) {
        for (const Piece& piece : layout.pieces(page)) {
            EXPECT_LE(piece.top + piece.height, layout.body().bottom());
            if (piece.row < 0)
                continue;
            EXPECT_EQ(piece.row, row);
            EXPECT_EQ(piece.lineCount, 1 + row % 9);
            ++row;
        }
    }
    EXPECT_EQ(row, 60);
}

TEST_F(PaperDocument, ARowHigherThanAPageIsDividedAndLosesNoLine) {
    QStringList lines;
    for (int line = 0; line < 150; ++line)
        lines << QString::number(line);
    vp.AddParagraph(QStringLiteral("above"));
    vp.AddTable(ParseTable(QStringLiteral("2880;"), QStringLiteral("Title;"), lines.join(u'\n') + u';'));
    QStringList painted;
    for (int page = 0; page < vp.PageCount(); ++page)
        painted << words(page);
    painted.removeAll(QStringLiteral("Title"));
    painted.removeAll(QStringLiteral("above"));
    EXPECT_EQ(painted, lines);
}

TEST_F(PaperDocument, TheTitlesNeverStandAloneAtTheFootOfAPage) {
    for (int above = 40; above < 70; ++above) {
        vp.StartDoc();
        for (int line = 0; line < above; ++line)
            vp.AddParagraph(QStringLiteral("line"));
        vp.AddTable(ParseTable(QStringLiteral("2880;"), QStringLiteral("Title;"), QStringLiteral("row;")));
        const PageLayout layout = laid();
        for (int page = 0; page < layout.pageCount(); ++page)
            EXPECT_GE(layout.pieces(page).back().row, 0) << above;
    }
}

TEST_F(PaperDocument, ALongParagraphGoesOnOnTheNextPage) {
    QStringList lines;
    for (int line = 0; line < 130; ++line)
        lines << QString::number(line);
    vp.AddParagraph(lines.join(u'\n'));
    EXPECT_EQ(vp.PageCount(), 3);
    EXPECT_EQ(words(0) + words(1) + words(2), lines);
}

TEST_F(PaperDocument, PagesBeginWithoutEmptyHeight) {
    vp.AddParagraph(QStringLiteral("a"));
    vp.NewPage();
    vp.NewPage();
    vp.AddSpace(3000);
    vp.AddParagraph(QStringLiteral("b"));
    EXPECT_EQ(vp.PageCount(), 2);
    EXPECT_EQ(laid().pieces(1)[0].top, laid().body().top());
}

TEST_F(PaperDocument, PaperWithoutRoomComesToAnEndToo) {
    vp.SetMargins({.left = 12000, .top = 15000, .right = 12000, .bottom = 15000});
    vp.AddTable(ParseTable(QStringLiteral("2880;"), QStringLiteral("A title of many words here;"), rows(3)));
    EXPECT_GE(vp.PageCount(), 1);
}

TEST_F(PaperDocument, LandscapeIsAcross) {
    vp.SetOrientation(QPageLayout::Landscape);
    EXPECT_EQ(laid().setup().sizeTwips(), QSizeF(15840, 12240));
    vp.SetPaper(QPageSize(QPageSize::A4));
    EXPECT_EQ(laid().setup().sizeTwips(), QSizeF(16840, 11900));
}

TEST_F(PaperDocument, TheTableIsPaintedWithLinesAndShades) {
    const auto colourIn = [this](const printing::TableLook& look, QPointF inchFromBody) {
        vp.StartDoc();
        vp.SetHeader({});
        vp.AddTable(ParseTable(QStringLiteral("2880|2880;"), QStringLiteral(" | ;"), QStringLiteral("|;|;")), look);
        const QImage picture = PictureOf(laid(), 0, 144);
        const QPointF at = (QPointF(0.5, 0.75) + inchFromBody) * 144;
        return picture.pixelColor(at.toPoint());
    };
    const QPointF title(0.5, 0.1);
    const QPointF row(0.5, 0.3);
    EXPECT_EQ(colourIn({}, title), QColor(0xe6, 0xe6, 0xe6));
    EXPECT_EQ(colourIn({.titleShading = false}, title), QColor(Qt::white));
    EXPECT_EQ(colourIn({}, row), QColor(Qt::white));
    EXPECT_EQ(colourIn({.shading = QColor(0xC0, 0xC0, 0xFF)}, row), QColor(0xC0, 0xC0, 0xFF));
    const QPointF line(2, 0.3);
    EXPECT_NE(colourIn({}, line), QColor(Qt::white));
    EXPECT_EQ(colourIn({.grid = false}, line), QColor(Qt::white));
}

TEST_F(PaperDocument, AFormatWithoutWidthsIsAnErrorOfTheProgram) {
    for (const char* format : {"", ";", "a|b;", "100|0;", "-5;"})
        EXPECT_THROW(vp.AddTable(ParseTable(QLatin1String(format), {}, QStringLiteral("a;"))), std::invalid_argument)
            << format;
}

TEST_F(PaperDocument, StartingAnewEmptiesTheDocumentAndKeepsThePage) {
    vp.SetFooter(QStringLiteral("|foot|"));
    vp.SetFontSize(30);
    vp.AddParagraph(QStringLiteral("old"));
    vp.StartDoc();
    vp.AddParagraph(QStringLiteral("new"));
    EXPECT_EQ(words(), (QStringList{"foot", "new"}));
    EXPECT_LT(laid().pieces(0)[0].height, 300);
}

TEST_F(PaperDocument, ThePdfHasThePagesAndThePaper) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), QStringLiteral("Description|Date;"), rows(100)));
    const QString path = folder.filePath(QStringLiteral("list.pdf"));
    vp.SavePdf(path);
    const QByteArray pdf = FileBytes(path);
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_EQ(pdfPages(pdf), vp.PageCount());
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 612.000000 792.000000]"));
}

TEST_F(PaperDocument, AFileThatCannotBeWrittenIsToldAndStaysAsItWas) {
    const QString path = folder.filePath(QStringLiteral("list.pdf"));
    PutFile(path, "before");
    const QString nowhere = folder.filePath(QStringLiteral("gone/list.pdf"));
    for (const auto write : {&VSPrinter::SavePdf, &VSPrinter::ExportHtml}) {
        try {
            (vp.*write)(nowhere);
            ADD_FAILURE() << "a file without a folder was written";
        } catch (const PrintError& error) {
            EXPECT_TRUE(error.description().contains(QStringLiteral("gone/list.pdf"))) << error.what();
        }
    }
    EXPECT_EQ(FileBytes(path), "before");
}

TEST_F(PaperDocument, AFileThatADiskHasNoRoomForStaysAsItWas) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), {}, rows(100)));
    const QString path = folder.filePath(QStringLiteral("list.pdf"));
    for (const auto write : {&VSPrinter::SavePdf, &VSPrinter::ExportHtml}) {
        PutFile(path, "before");
        const FullDisk disk(2'000);
        EXPECT_THROW((vp.*write)(path), PrintError);
        EXPECT_EQ(FileBytes(path), "before");
    }
}

TEST_F(PaperDocument, APrinterPrintsOnItsOwnPaper) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), {}, rows(100)));
    const QString path = folder.filePath(QStringLiteral("printed.pdf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(path);
    printer.setPageSize(QPageSize(QPageSize::A5));
    vp.PrintDoc(printer);
    const QByteArray pdf = FileBytes(path);
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 420.000000 595.000000]"));
    EXPECT_GT(pdfPages(pdf), vp.PageCount());
}

TEST_F(PaperDocument, APrinterPrintsThePagesThatItWasTold) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), {}, rows(300)));
    ASSERT_GT(vp.PageCount(), 4);
    const auto printed = [this](int from, int to) {
        const QString path = folder.filePath(QStringLiteral("range.pdf"));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(path);
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(from, to);
        vp.PrintDoc(printer);
        return pdfPages(FileBytes(path));
    };
    EXPECT_EQ(printed(2, 3), 2);
    EXPECT_EQ(printed(4, 4), 1);
    EXPECT_EQ(printed(2, 100), vp.PageCount() - 1);
    EXPECT_THROW(printed(100, 101), PrintError);
}

TEST_F(PaperDocument, AsHtmlItHasTheSameTextEscaped) {
    vp.SetTitle(QStringLiteral("Day"));
    vp.SetFontSize(18);
    vp.SetTextAlign(Qt::AlignHCenter);
    vp.AddParagraph(QStringLiteral("Lane & Reed\n<both>"));
    vp.AddSpace(300);
    vp.SetFontSize(11);
    vp.AddTable(ParseTable(QStringLiteral("2000|4500;"), QStringLiteral("Start|Text;"),
                           QStringLiteral("9:00 AM|O'Brien %1;a|b|c;")),
                {.shading = QColor(0xC0, 0xC0, 0xFF)});
    const QString path = folder.filePath(QStringLiteral("day.htm"));
    vp.ExportHtml(path);
    const QString html = QString::fromUtf8(FileBytes(path));
    EXPECT_TRUE(html.contains("<title>Day</title>"));
    EXPECT_TRUE(html.contains("Lane &amp; Reed<br/>&lt;both&gt;"));
    EXPECT_TRUE(html.contains("font-size:18pt;text-align:center"));
    EXPECT_TRUE(html.contains("<div style=\"height:15pt\"></div>"));
    EXPECT_TRUE(html.contains("<col style=\"width:100pt\"/><col style=\"width:225pt\"/>"));
    EXPECT_TRUE(html.contains("<th>Start</th><th>Text</th>"));
    EXPECT_TRUE(html.contains("<tr style=\"background:#c0c0ff\"><td>9:00 AM</td><td>O'Brien %1</td></tr>"));
    EXPECT_TRUE(html.contains("<td>a</td><td>b c</td>"));
}

TEST_F(PaperDocument, ATableMadeForAStandingPageFillsOneThatLies) {
    const QString format = QStringLiteral("2160|1300|1300|1300|2800|1440;");
    vp.AddTable(ParseTable(format, QStringLiteral("A|B|C|D|E|Status;"), QStringLiteral("a|b|c|d|e|Kept;")));
    const double left = laid().body().left();
    EXPECT_NEAR(placeOf("Status").x() - left - 80, 8860, 2);
    vp.SetOrientation(QPageLayout::Landscape);
    const double width = laid().body().width();
    EXPECT_NEAR(placeOf("Status").x() - left - 80, 8860 * width / 10300, 2);
    EXPECT_GT(width, 13000);
}

TEST_F(PaperDocument, ANarrowTableStaysNarrowOnEveryPage) {
    vp.AddTable(ParseTable(QStringLiteral("2880|1440;"), QStringLiteral("Name|Date;"), QStringLiteral("a|b;")));
    vp.SetOrientation(QPageLayout::Landscape);
    EXPECT_NEAR(placeOf("Date").x() - laid().body().left() - 80, 2880, 2);
}
