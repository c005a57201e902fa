#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "platform/controls/notefield.h"
#include "platform/printing/frmpreview.h"
#include "platform/printing/printers.h"
#include "platform/printing/printpreview.h"
#include "session/hiddennames.h"
#include "session/session.h"
#include "tests/followup/missednotefixture.h"
#include "tests/platform/printing/shownpaper.h"

namespace {

class MissedNotePrint : public MissedNoteFixture {
  protected:
    MissedNotePrint() {
        run(QStringLiteral("Insert Into report_headers (header, [default]) Values ('Old practice', 0)"));
        run(QStringLiteral("Insert Into report_headers (header, [default]) Values ('|Hill Street Practice|', 1)"));
        addNote(QStringLiteral("Called at 8\r\nno answer"));
        Printers().anyInstalled = [] { return true; };
        Printers().choose = [this](QPrinter& printer, int) {
            printer.setOutputFileName(folder.filePath(QStringLiteral("printed.pdf")));
            return true;
        };
    }
    ~MissedNotePrint() override { Printers() = RealPrinters(); }

    printing::Document previewed() {
        return PreviewOf(desk, [this] { QTest::mouseClick(form->cmdprint, Qt::LeftButton); });
    }
};

}  // namespace

TEST_F(MissedNotePrint, TheNoteStandsOnPaperAsItStandsInTheForm) {
    open();
    const printing::Document document = previewed();
    EXPECT_EQ(document.header, QStringLiteral("|Hill Street Practice|"));
    EXPECT_EQ(document.footer, QStringLiteral("||Page %d"));
    EXPECT_EQ(
        ParagraphsOf(document),
        (QStringList{
            QStringLiteral("Missed Appointment Note"), QStringLiteral("Patient: Jones, Mary"),
            QStringLiteral("Date: 03/11/2026"), QStringLiteral("Provider: Reed"), QStringLiteral("Type: Missed"),
            QStringLiteral("Reason/Action"), QStringLiteral("Called at 8\nno answer"),
            QStringLiteral("___________________________\t_____________"), QStringLiteral("Signature\t\t\t\tDate")}));
}

TEST_F(MissedNotePrint, AProviderWhoHasLeftIsPrintedByNameAlone) {
    run(QStringLiteral("Update sessions Set providerid = 'STONE'"));
    open();
    EXPECT_TRUE(ParagraphsOf(previewed()).contains(QStringLiteral("Provider: Stone")));
}

TEST_F(MissedNotePrint, WhatWasNotSavedYetIsPrintedToo) {
    open();
    type(QStringLiteral("Ill"));
    EXPECT_TRUE(ParagraphsOf(previewed()).contains(QStringLiteral("Ill")));
    EXPECT_TRUE(form->IsChanged());
}

TEST_F(MissedNotePrint, OnlyWhatWasPrintedOrSavedAsAFileIsLogged) {
    open();
    auditLines();
    previewed();
    EXPECT_EQ(auditLines(), QStringList());

    const QStringList line{
        QStringLiteral("Print: Printed Missed Appointment Note of 03/11/2026 for patient, Jones, Mary")};
    desk.expectForm("frmpreview", [](QDialog& preview) { dynamic_cast<frmpreview&>(preview).cmdprint->click(); });
    QTest::mouseClick(form->btnprint, Qt::LeftButton);
    EXPECT_EQ(auditLines(), line);

    desk.chosenFile = folder.filePath(QStringLiteral("note.pdf"));
    desk.expectForm("frmpreview", [](QDialog& preview) { dynamic_cast<frmpreview&>(preview).cmdsave->click(); });
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    QTest::keyClick(form->txtreason, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(auditLines(), line);
    EXPECT_TRUE(QFile::exists(desk.chosenFile));
}

TEST_F(MissedNotePrint, WithoutAReasonThereIsNothingToPrint) {
    open();
    EXPECT_TRUE(form->cmdprint->isEnabled());
    type(QStringLiteral(" "));
    EXPECT_FALSE(form->cmdprint->isEnabled());
    EXPECT_FALSE(form->btnprint->isEnabled());
    type(QStringLiteral("Ill"));
    EXPECT_TRUE(form->btnprint->isEnabled());
}

TEST_F(MissedNotePrint, WithoutAReportHeaderThePageHasNone) {
    run(QStringLiteral("Update report_headers Set [default] = null"));
    open();
    EXPECT_EQ(previewed().header, QString());
}

TEST_F(MissedNotePrint, AHeaderThatCannotBeReadIsToldAndNothingIsPrinted) {
    open();
    desk.expectBox(QStringLiteral("Error reading report header. ") + loseDatabase(), QStringLiteral("Error"));
    QTest::mouseClick(form->cmdprint, Qt::LeftButton);
    EXPECT_TRUE(isOpen());
}

TEST_F(MissedNotePrint, HiddenNamesAreNotOnThePaper) {
    SetNamesHidden(true);
    open();
    EXPECT_FALSE(ParagraphsOf(previewed()).join(QLatin1Char('\n')).contains(QStringLiteral("Jones")));
}

TEST_F(MissedNotePrint, ALongReasonGoesOnOverSeveralPages) {
    run(QStringLiteral("Delete from MissedAppt"));
    addNote(QStringLiteral("Called again, and nobody answered the telephone.\r\n").repeated(150));
    open();
    desk.expectForm("frmpreview",
                    [](QDialog& preview) { EXPECT_GT(dynamic_cast<frmpreview&>(preview).vp->PageCount(), 2); });
    QTest::mouseClick(form->cmdprint, Qt::LeftButton);
}
