#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPrinter>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include "platform/printing/output.h"
#include "platform/printing/pageview.h"
#include "platform/printing/printerror.h"
#include "platform/printing/printers.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/vsprinter.h"
#include "platform/theme/theme.h"
#include "tests/support/files.h"
#include "tests/support/scripteddesk.h"

namespace {

/// The pages of a document with their commands, in a window of their own.
class PreviewPages : public testing::Test {
  protected:
    PreviewPages() {
        Theme::Install(ThemeMode::Light);
        vp.SetPaper(QPageSize(QPageSize::Letter));
        preview.resize(700, 500);
        preview.show();
    }
    ~PreviewPages() override {
        Printers() = RealPrinters();
        Theme::Instance().setMode(ThemeMode::Light);
    }

    void show(int pages) {
        vp.StartDoc();
        for (int page = 0; page < pages; ++page) {
            vp.AddParagraph(QStringLiteral("page %1").arg(page + 1));
            vp.NewPage();
        }
        // The break behind the last one would make another.
        printing::Document document = vp.Document();
        document.blocks.pop_back();
        preview.ShowDocument(document);
        QTest::qWait(0);
    }
    [[nodiscard]] QAction& command(const char* name) const { return *preview.findChild<QAction*>(QLatin1String(name)); }
    [[nodiscard]] PageView& view() const { return *preview.findChild<PageView*>(); }
    [[nodiscard]] QSpinBox& number() const { return *preview.findChild<QSpinBox*>(QStringLiteral("txtpage")); }
    [[nodiscard]] QString count() const { return preview.findChild<QLabel*>(QStringLiteral("lblpages"))->text(); }
    [[nodiscard]] QString offered() const {
        QString letters;
        for (const char* name : {"cmdfirst", "cmdprevious", "cmdnext", "cmdlast"})
            letters += command(name).isEnabled() ? u'x' : u'-';
        return letters;
    }

    QTemporaryDir folder;
    ScriptedDesk desk;
    VSPrinter vp;
    PrintPreview preview;
};

}  // namespace

TEST_F(PreviewPages, BeforeADocumentThereIsOnePage) {
    EXPECT_EQ(preview.PageCount(), 1);
    EXPECT_EQ(preview.CurrentPage(), 1);
}

TEST_F(PreviewPages, OnePageOffersNoOther) {
    show(1);
    EXPECT_EQ(count(), QStringLiteral("of 1"));
    EXPECT_EQ(offered(), QStringLiteral("----"));
    EXPECT_EQ(number().maximum(), 1);
}

TEST_F(PreviewPages, TheCommandsOfferedAreThoseThatLeadSomewhere) {
    show(3);
    EXPECT_EQ(offered(), QStringLiteral("--xx"));
    command("cmdnext").trigger();
    EXPECT_EQ(offered(), QStringLiteral("xxxx"));
    command("cmdlast").trigger();
    EXPECT_EQ(offered(), QStringLiteral("xx--"));
    command("cmdfirst").trigger();
    EXPECT_EQ(offered(), QStringLiteral("--xx"));
    EXPECT_EQ(preview.CurrentPage(), 1);
}

TEST_F(PreviewPages, ANumberBeyondTheLastPageCannotBeTyped) {
    show(3);
    number().setFocus();
    number().selectAll();
    QTest::keyClicks(&number(), QStringLiteral("9"));
    QTest::keyClick(&number(), Qt::Key_Return);
    EXPECT_LE(preview.CurrentPage(), 3);
    EXPECT_EQ(number().value(), preview.CurrentPage());
}

TEST_F(PreviewPages, AnotherDocumentBeginsAtItsFirstPage) {
    show(5);
    command("cmdlast").trigger();
    EXPECT_EQ(preview.CurrentPage(), 5);
    show(2);
    EXPECT_EQ(preview.CurrentPage(), 1);
    EXPECT_EQ(count(), QStringLiteral("of 2"));
    EXPECT_EQ(number().maximum(), 2);
}

TEST_F(PreviewPages, EachCommandNamesItsKeyInItsTip) {
    for (const auto& [name, tip] :
         {std::pair("cmdfirst", "First Page (Ctrl+Home)"), std::pair("cmdprevious", "Previous Page (Ctrl+PgUp)"),
          std::pair("cmdnext", "Next Page (Ctrl+PgDown)"), std::pair("cmdlast", "Last Page (Ctrl+End)"),
          std::pair("cmdfitwidth", "Page Width (Ctrl+1)"), std::pair("cmdfitpage", "Whole Page (Ctrl+0)"),
          std::pair("cmdlandscape", "Landscape (Ctrl+L)")})
        EXPECT_EQ(command(name).toolTip(), QLatin1String(tip));
    EXPECT_EQ(number().accessibleName(), QStringLiteral("Page"));
}

TEST_F(PreviewPages, LargerAndSmallerAreEachOthersInverse) {
    show(1);
    command("cmdfitpage").trigger();
    const double before = preview.Zoom();
    for (int round = 0; round < 2; ++round) {
        command("cmdzoomin").trigger();
        EXPECT_GT(preview.Zoom(), before);
        command("cmdzoomout").trigger();
        EXPECT_NEAR(preview.Zoom(), before, 0.01);
    }
}

TEST_F(PreviewPages, TheWholePageIsSmallerThanItsWidthInABroadWindow) {
    show(1);
    command("cmdfitwidth").trigger();
    const double width = preview.Zoom();
    command("cmdfitpage").trigger();
    EXPECT_LT(preview.Zoom(), width);
}

TEST_F(PreviewPages, TurningThePaperThereAndBackLeavesItAsItWas) {
    show(3);
    for (int round = 0; round < 2; ++round) {
        command("cmdlandscape").trigger();
        EXPECT_EQ(preview.Document().setup.orientation, QPageLayout::Landscape);
        command("cmdlandscape").trigger();
        EXPECT_EQ(preview.Document().setup.orientation, QPageLayout::Portrait);
        EXPECT_EQ(preview.PageCount(), 3);
    }
}

TEST_F(PreviewPages, ADocumentThatLiesIsShownLying) {
    vp.SetOrientation(QPageLayout::Landscape);
    show(1);
    EXPECT_TRUE(command("cmdlandscape").isChecked());
    vp.SetOrientation(QPageLayout::Portrait);
    show(1);
    EXPECT_FALSE(command("cmdlandscape").isChecked());
}

TEST_F(PreviewPages, TheDeskAroundThePaperFollowsTheTheme) {
    show(1);
    const auto ground = [this] { return view().viewport()->grab().toImage().pixelColor(2, 2); };
    const QColor light = ground();
    EXPECT_EQ(light, preview.palette().color(QPalette::Mid));
    Theme::Instance().setMode(ThemeMode::Dark);
    QApplication::processEvents();
    EXPECT_NE(ground(), light);
    EXPECT_EQ(ground(), preview.palette().color(QPalette::Mid));
}

TEST_F(PreviewPages, ADocumentWithoutATitleIsProposedAsDocument) {
    show(1);
    EXPECT_EQ(preview.SaveAsPdf(), QString());
    ASSERT_EQ(desk.proposed.size(), 1);
    EXPECT_TRUE(desk.proposed[0].endsWith(QStringLiteral("/Document.pdf")));
    vp.SetTitle(QStringLiteral("a\\b:c*d?\"<e>|\n"));
    show(1);
    (void)preview.SaveAsPdf();
    EXPECT_TRUE(desk.proposed[1].endsWith(QStringLiteral("/a b c d e.pdf"))) << desk.proposed[1].toStdString();
}

TEST_F(PreviewPages, ThePathOfTheSavedFileIsToldAndItMayBeSavedAgain) {
    desk.chosenFile = folder.filePath(QStringLiteral("twice.pdf"));
    show(2);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(preview.SaveAsPdf(), desk.chosenFile);
        EXPECT_TRUE(FileBytes(desk.chosenFile).startsWith("%PDF-"));
    }
}

TEST_F(PreviewPages, ThePageAtHandIsWhatThePrinterPrintsWhereItIsToldThat) {
    show(3);
    command("cmdnext").trigger();
    const QString path = folder.filePath(QStringLiteral("one.pdf"));
    Printers().anyInstalled = [] { return true; };
    Printers().choose = [&path](QPrinter& printer, int) {
        printer.setOutputFileName(path);
        printer.setPrintRange(QPrinter::CurrentPage);
        return true;
    };
    EXPECT_TRUE(preview.Print());
    const QByteArray pdf = FileBytes(path);
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1) << pdf.count("/Type /Page");
}

TEST(PrinterSetup, ThePaperOfAPrinterAndOfADocumentAreEachOthersInverse) {
    printing::Document document;
    document.title = QStringLiteral("List");
    document.setup.paper = QPageSize(QPageSize::A5);
    document.setup.orientation = QPageLayout::Landscape;
    document.setup.margins.left = 1000;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printing::GiveSetup(printer, document);
    EXPECT_EQ(printer.docName(), QStringLiteral("List"));
    EXPECT_EQ(printing::SetupOf(printer, document.setup.margins), document.setup);
}

TEST(PrintErrorTest, SaysWhatCanBeShown) {
    const PrintError error(QStringLiteral("Das Gerät fehlt."));
    EXPECT_EQ(error.description(), QStringLiteral("Das Gerät fehlt."));
    EXPECT_STREQ(error.what(), "Das Gerät fehlt.");
}
