#include "platform/printing/frmpreview.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "platform/printing/printers.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/tabletext.h"
#include "platform/printing/vsprinter.h"
#include "tests/support/files.h"
#include "tests/support/scripteddesk.h"

namespace {

class PreviewOfADocument : public testing::Test {
  protected:
    PreviewOfADocument() {
        vp.SetTitle(QStringLiteral("Appointments: O'Brien/Lane"));
        vp.SetPaper(QPageSize(QPageSize::Letter));
        vp.SetFooter(QStringLiteral("||Page %d"));
        vp.AddTable(printing::ParseTable(QStringLiteral("2880|1440;"), QStringLiteral("Description|Date;"),
                                         QStringLiteral("Jones, Mary|03/07/2026;").repeated(120)));
        Printers().anyInstalled = [] { return true; };
        Printers().choose = [this](QPrinter& printer, int pages) {
            chosenFrom = pages;
            printer.setOutputFileName(printed);
            return chooses;
        };
    }
    ~PreviewOfADocument() override { Printers() = RealPrinters(); }

    frmpreview& open() {
        form = std::make_unique<frmpreview>(vp.Document());
        form->show();
        QTest::qWait(0);
        return *form;
    }
    /// Opens a document of many pages, and plays the user on what tells how far its saving is.
    void saveLong(const std::function<void(QProgressDialog&)>& act) {
        for (int page = 0; page < 250; ++page) {
            vp.NewPage();
            vp.AddParagraph(QStringLiteral("Page"));
        }
        desk.chosenFile = folder.filePath(QStringLiteral("long.pdf"));
        open();
        QTimer::singleShot(0, form.get(), [this, act] {
            auto* progress = form->findChild<QProgressDialog*>();
            ASSERT_NE(progress, nullptr) << "The window is blocked while the file is written.";
            EXPECT_TRUE(progress->isVisible());
            EXPECT_LT(progress->value(), progress->maximum());
            act(*progress);
        });
        form->cmdsave->click();
    }
    [[nodiscard]] QAction& command(const char* name) const { return *form->findChild<QAction*>(QLatin1String(name)); }
    [[nodiscard]] QString shownPage() const {
        return form->findChild<QSpinBox*>(QStringLiteral("txtpage"))->text() + u' ' +
               form->findChild<QLabel*>(QStringLiteral("lblpages"))->text();
    }
    void press(int key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(form.get(), Qt::Key(key), modifiers); }

    QTemporaryDir folder;
    QString printed = folder.filePath(QStringLiteral("printed.pdf"));
    bool chooses = true;
    int chosenFrom = 0;
    VSPrinter vp;
    ScriptedDesk desk;
    std::unique_ptr<frmpreview> form;
};

}  // namespace

TEST_F(PreviewOfADocument, ShowsTheFirstPageOfAll) {
    open();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Print Preview - Appointments: O'Brien/Lane"));
    EXPECT_EQ(form->vp->PageCount(), 3);
    EXPECT_EQ(shownPage(), QStringLiteral("1 of 3"));
    EXPECT_FALSE(command("cmdprevious").isEnabled());
    EXPECT_TRUE(command("cmdnext").isEnabled());
}

TEST_F(PreviewOfADocument, TheKeysTurnThePages) {
    open();
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(shownPage(), QStringLiteral("2 of 3"));
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(shownPage(), QStringLiteral("3 of 3"));
    EXPECT_FALSE(command("cmdnext").isEnabled());
    EXPECT_FALSE(command("cmdlast").isEnabled());
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(shownPage(), QStringLiteral("2 of 3"));
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(shownPage(), QStringLiteral("1 of 3"));
}

TEST_F(PreviewOfADocument, APagesNumberLeadsThere) {
    open();
    auto* page = form->findChild<QSpinBox*>(QStringLiteral("txtpage"));
    page->setFocus();
    page->selectAll();
    QTest::keyClicks(page, QStringLiteral("3"));
    QTest::keyClick(page, Qt::Key_Tab);
    EXPECT_EQ(form->vp->CurrentPage(), 3);
}

TEST_F(PreviewOfADocument, TheKeysMakeItLargerAndSmallerWithinBounds) {
    open();
    const double before = form->vp->Zoom();
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(form->vp->Zoom(), before * 1.25, 0.01);
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(form->vp->Zoom(), before, 0.01);
    for (int i = 0; i < 40; ++i)
        command("cmdzoomout").trigger();
    EXPECT_NEAR(form->vp->Zoom(), 0.1, 0.01);
    for (int i = 0; i < 60; ++i)
        command("cmdzoomin").trigger();
    EXPECT_NEAR(form->vp->Zoom(), 8, 0.1);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_LT(form->vp->Zoom(), 1);
    const double wholePage = form->vp->Zoom();
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_GT(form->vp->Zoom(), wholePage);
}

TEST_F(PreviewOfADocument, TurningThePaperLaysTheDocumentOutAnew) {
    open();
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(form->vp->PageCount(), 4);
    EXPECT_EQ(shownPage(), QStringLiteral("1 of 4"));
    EXPECT_TRUE(command("cmdlandscape").isChecked());
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(form->vp->PageCount(), 3);
}

TEST_F(PreviewOfADocument, PrintsOnThePrinterThatTheUserChooses) {
    open();
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(chosenFrom, 3);
    EXPECT_TRUE(FileBytes(printed).startsWith("%PDF-"));
    EXPECT_EQ(form->lblstatus->text(), QStringLiteral("The document has gone to the printer."));
    EXPECT_TRUE(form->isVisible());
}

TEST_F(PreviewOfADocument, AUserWhoGivesUpPrintsNothing) {
    chooses = false;
    open().cmdprint->click();
    EXPECT_FALSE(QFile::exists(printed));
    EXPECT_TRUE(form->lblstatus->text().isEmpty());
}

TEST_F(PreviewOfADocument, TellsThatNoPrinterIsInstalled) {
    Printers().anyInstalled = [] { return false; };
    open();
    desk.expectBox(
        QStringLiteral("No printer is installed on this computer. You can save the document as a PDF file instead."),
        QStringLiteral("Print"));
    form->cmdprint->click();
    EXPECT_TRUE(form->isVisible());
}

TEST_F(PreviewOfADocument, TellsThatThePrinterFailed) {
    printed = folder.filePath(QStringLiteral("gone/printed.pdf"));
    open();
    desk.expectBox(QStringLiteral("The printer could not be reached, or refused the document."),
                   QStringLiteral("Print"));
    form->cmdprint->click();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->lblstatus->text().isEmpty());
}

TEST_F(PreviewOfADocument, SavesAPdfUnderItsTitle) {
    desk.chosenFile = folder.filePath(QStringLiteral("list.pdf"));
    open();
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_EQ(desk.proposed.size(), 1);
    EXPECT_TRUE(desk.proposed[0].endsWith(QStringLiteral("/Appointments O'Brien Lane.pdf")))
        << desk.proposed[0].toStdString();
    EXPECT_TRUE(FileBytes(desk.chosenFile).startsWith("%PDF-"));
    EXPECT_EQ(form->lblstatus->text(), QStringLiteral("Saved as ") + desk.chosenFile);
}

TEST_F(PreviewOfADocument, WhatIsSavedAndPrintedIsTurnedAsTheUserTurnedIt) {
    desk.chosenFile = folder.filePath(QStringLiteral("list.pdf"));
    open();
    command("cmdlandscape").trigger();
    form->cmdsave->click();
    form->cmdprint->click();
    for (const QString& file : {desk.chosenFile, printed})
        EXPECT_TRUE(FileBytes(file).contains("/MediaBox [0 0 792.000000 612.000000]")) << file.toStdString();
}

TEST_F(PreviewOfADocument, ALongSaveShowsHowFarItIsWhileTheWindowLives) {
    bool wasSeen = false;
    saveLong([&wasSeen](QProgressDialog&) { wasSeen = true; });
    EXPECT_TRUE(wasSeen);
    EXPECT_TRUE(FileBytes(desk.chosenFile).startsWith("%PDF-"));
    EXPECT_EQ(form->lblstatus->text(), QStringLiteral("Saved as ") + desk.chosenFile);
    EXPECT_EQ(form->findChild<QProgressDialog*>(), nullptr);
    const qint64 size = QFileInfo(desk.chosenFile).size();
    form->cmdsave->click();
    EXPECT_EQ(QFileInfo(desk.chosenFile).size(), size);
}

TEST_F(PreviewOfADocument, ALongSaveThatIsCancelledLeavesTheFileAsItWas) {
    PutFile(folder.filePath(QStringLiteral("long.pdf")), "before");
    saveLong([](QProgressDialog& progress) { QTest::mouseClick(progress.findChild<QPushButton*>(), Qt::LeftButton); });
    EXPECT_EQ(FileBytes(desk.chosenFile), "before");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"long.pdf"});
    EXPECT_TRUE(form->lblstatus->text().isEmpty());
    form->cmdsave->click();
    EXPECT_TRUE(FileBytes(desk.chosenFile).startsWith("%PDF-")) << "It can be saved again.";
}

TEST_F(PreviewOfADocument, AWindowThatGoesInTheMiddleOfALongSaveEndsIt) {
    saveLong([this](QProgressDialog&) { form.reset(); });
    EXPECT_EQ(form, nullptr);
    EXPECT_FALSE(QFileInfo::exists(desk.chosenFile));
}

TEST_F(PreviewOfADocument, ASaveThatIsGivenUpWritesNothing) {
    open().cmdsave->click();
    EXPECT_TRUE(form->lblstatus->text().isEmpty());
}

TEST_F(PreviewOfADocument, TellsThatTheFileCannotBeWrittenAndStays) {
    desk.chosenFile = folder.filePath(QStringLiteral("gone/list.pdf"));
    open();
    desk.expectBox(QStringLiteral("The file %1 could not be written: No such file or directory.").arg(desk.chosenFile),
                   QStringLiteral("Save as PDF"));
    form->cmdsave->click();
    EXPECT_TRUE(form->isVisible());
}

TEST_F(PreviewOfADocument, EscapeCloses) {
    open();
    press(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PreviewOfADocument, FitsASmallScreen) {
    open();
    EXPECT_LE(form->minimumSizeHint().width(), 640);
    EXPECT_LE(form->minimumSizeHint().height(), 400);
}

TEST_F(PreviewOfADocument, IsShownByThePrinterItself) {
    desk.expectForm("frmpreview", [](QDialog& shown) {
        EXPECT_EQ(shown.findChild<PrintPreview*>(QStringLiteral("vp"))->PageCount(), 3);
    });
    vp.Preview(nullptr);
}

TEST_F(PreviewOfADocument, WhoeverShowedItLearnsWhetherItWasPrintedOrSaved) {
    const auto click = [this](const char* button) {
        desk.expectForm("frmpreview",
                        [button](QDialog& shown) { shown.findChild<QPushButton*>(QLatin1String(button))->click(); });
        return vp.Preview(nullptr);
    };
    EXPECT_FALSE(click("cmdclose"));
    EXPECT_FALSE(click("cmdsave")) << "The user has chosen no file.";
    desk.chosenFile = folder.filePath(QStringLiteral("list.pdf"));
    EXPECT_TRUE(click("cmdsave"));
    EXPECT_TRUE(click("cmdprint"));
    chooses = false;
    EXPECT_FALSE(click("cmdprint"));
}
