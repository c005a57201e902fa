#include <gtest/gtest.h>

#include <QPageRanges>
#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>
#include <QTemporaryDir>

#include "platform/printing/printerror.h"
#include "platform/printing/vsprinter.h"
#include "tests/support/files.h"

namespace {

/// Keeps the texts that are painted, page by page.
class TextEngine : public QPaintEngine {
  public:
    TextEngine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice*) override { return isPrinting = true; }
    bool end() override { return !(isPrinting = false); }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF&, const QTextItem& item) override { pages.last() << item.text(); }
    [[nodiscard]] Type type() const override { return User; }

    QList<QStringList> pages{QStringList()};
    bool isPrinting = false;
};

/// A driver as the program sees it. What is set is what it answers.
class Driver : public QPrintEngine {
  public:
    explicit Driver(TextEngine& texts) : texts_(texts) {}
    void setProperty(PrintEnginePropertyKey key, const QVariant& value) override { values_[key] = value; }
    [[nodiscard]] QVariant property(PrintEnginePropertyKey key) const override { return values_.value(key); }
    bool newPage() override {
        texts_.pages << QStringList();
        return true;
    }
    bool abort() override { return true; }
    [[nodiscard]] int metric(QPaintDevice::PaintDeviceMetric metric) const override {
        switch (metric) {
            case QPaintDevice::PdmWidth:
                return 850;
            case QPaintDevice::PdmHeight:
                return 1100;
            default:
                return 100;
        }
    }
    [[nodiscard]] QPrinter::PrinterState printerState() const override {
        return texts_.isPrinting ? QPrinter::Active : QPrinter::Idle;
    }

  private:
    TextEngine& texts_;
    QHash<int, QVariant> values_;
};

class DrivenPrinter : public QPrinter {
  public:
    explicit DrivenPrinter(bool makesCopies) {
        driver.setProperty(QPrintEngine::PPK_SupportsMultipleCopies, makesCopies);
        driver.setProperty(QPrintEngine::PPK_CopyCount, 1);
        driver.setProperty(QPrintEngine::PPK_CollateCopies, true);
        driver.setProperty(QPrintEngine::PPK_PageOrder, FirstPageFirst);
        driver.setProperty(QPrintEngine::PPK_QPageLayout,
                           QVariant::fromValue(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, {})));
        setEngines(&driver, &texts);
    }
    [[nodiscard]] QString printed() const {
        QStringList pages;
        for (const QStringList& page : texts.pages)
            pages << page.join(QString());
        return pages.join(QLatin1Char(' '));
    }

    TextEngine texts;
    Driver driver{texts};
};

/// A document of four pages, "A" to "D".
class SettingsOfThePrinter : public testing::Test {
  protected:
    SettingsOfThePrinter() {
        for (const char* page : {"A", "B", "C", "D"}) {
            if (*page != 'A')
                vp.NewPage();
            vp.AddParagraph(QString::fromLatin1(page));
        }
    }
    static void choose(QPrinter& printer, const char* pages) {
        printer.setPrintRange(QPrinter::PageRange);
        printer.setPageRanges(QPageRanges::fromString(QString::fromLatin1(pages)));
    }

    VSPrinter vp;
    DrivenPrinter printer{false};
};

}  // namespace

TEST_F(SettingsOfThePrinter, WithoutAChoiceEachPageIsPrintedOnce) {
    vp.PrintDoc(printer);
    EXPECT_EQ(printer.printed(), "A B C D");
}

TEST_F(SettingsOfThePrinter, PagesThatDoNotFollowEachOtherArePrintedWithoutThoseBetween) {
    choose(printer, "1,3-4");
    vp.PrintDoc(printer);
    EXPECT_EQ(printer.printed(), "A C D");
}

TEST_F(SettingsOfThePrinter, PagesBeyondTheLastAreLeftOut) {
    choose(printer, "3-9");
    vp.PrintDoc(printer);
    EXPECT_EQ(printer.printed(), "C D");
}

TEST_F(SettingsOfThePrinter, ARangeWithoutAPageOfTheDocumentIsTold) {
    choose(printer, "8-9");
    try {
        vp.PrintDoc(printer);
        ADD_FAILURE() << "printed " << printer.printed().toStdString();
    } catch (const PrintError& error) {
        EXPECT_EQ(error.description(), "The document has no page 8-9. It ends with page 4.");
    }
    EXPECT_EQ(printer.printed(), "");
}

TEST_F(SettingsOfThePrinter, CopiesComeOneAfterTheOther) {
    printer.setCopyCount(2);
    choose(printer, "1-2");
    vp.PrintDoc(printer);
    EXPECT_EQ(printer.printed(), "A B A B");
}

TEST_F(SettingsOfThePrinter, CopiesThatAreNotCollatedComePageByPage) {
    printer.setCopyCount(3);
    printer.setCollateCopies(false);
    choose(printer, "2,4");
    vp.PrintDoc(printer);
    EXPECT_EQ(printer.printed(), "B B B D D D");
}

TEST_F(SettingsOfThePrinter, TheLastPageComesFirstWhereThatIsChosen) {
    printer.setPageOrder(QPrinter::LastPageFirst);
    printer.setCopyCount(2);
    vp.PrintDoc(printer);
    EXPECT_EQ(printer.printed(), "D C B A D C B A");
}

TEST_F(SettingsOfThePrinter, ADriverThatMakesTheCopiesGetsEachPageOnce) {
    DrivenPrinter copier(true);
    copier.setCopyCount(5);
    vp.PrintDoc(copier);
    EXPECT_EQ(copier.printed(), "A B C D");
    EXPECT_EQ(copier.driver.property(QPrintEngine::PPK_CopyCount), 5) << "The driver still knows of the copies.";
}

TEST_F(SettingsOfThePrinter, BothSidesOfThePaperStayChosen) {
    printer.setDuplex(QPrinter::DuplexLongSide);
    vp.PrintDoc(printer);
    EXPECT_EQ(printer.driver.property(QPrintEngine::PPK_Duplex), QPrinter::DuplexLongSide);
}

TEST_F(SettingsOfThePrinter, AFileHasTheCopiesTheRangeAndThePaper) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("printed.pdf"));
    QPrinter file(QPrinter::HighResolution);
    file.setOutputFileName(path);
    file.setPageSize(QPageSize(QPageSize::A5));
    file.setPageOrientation(QPageLayout::Landscape);
    file.setCopyCount(2);
    choose(file, "1,3");
    vp.PrintDoc(file);
    const QByteArray pdf = FileBytes(path);
    EXPECT_EQ(pdf.count("/Type /Page\n"), 4);
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 595.000000 420.000000]"));
}
