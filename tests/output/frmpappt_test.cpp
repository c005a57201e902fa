#include "output/frmpappt.h"

#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QTest>

#include "platform/controls/notefield.h"
#include "platform/controls/textfield.h"
#include "platform/printing/frmpreview.h"
#include "platform/printing/printers.h"
#include "platform/printing/printpreview.h"
#include "session/hiddennames.h"
#include "session/preferences.h"
#include "tests/output/exportfixture.h"
#include "tests/platform/printing/shownpaper.h"

namespace {

const QString StandardNotice = QStringLiteral("24 HOUR NOTICE REQUESTED FOR CANCELLATION");
const QString GiveUp = QStringLiteral("Close without printing or saving what you have changed?");
const QString Title = QStringLiteral("Print Appointment Slip");

class Slip : public ExportFixture {
  protected:
    Slip() {
        Printers().anyInstalled = [] { return true; };
        Printers().choose = [this](QPrinter& printer, int) {
            printer.setOutputFileName(file("printed.pdf"));
            return true;
        };
    }
    ~Slip() override { Printers() = RealPrinters(); }

    frmpappt& open() {
        form = std::make_unique<frmpappt>(slip);
        form->show();
        return *form;
    }
    void addHeader(const QString& text) {
        run(QStringLiteral("Insert Into report_headers (header, [default]) Values ('Old practice', 0)"));
        run(db::Sql("Insert Into report_headers (header, [default]) Values ('{}', 1)", text));
    }
    /// What the preview shows, when the user only looks at it.
    printing::Document previewed() {
        return PreviewOf(desk, [this] { form->cmdprint->click(); });
    }
    /// Each paragraph in a line.
    QStringList printed() { return ParagraphsOf(previewed()); }
    void notice(const QString& text) {
        form->txtnotice->selectAll();
        form->txtnotice->insertPlainText(text);
    }
    /// Saves the notice, opens the form anew and gives what its notice is.
    QString noticeOfNextSlip() {
        form->cmdsave->click();
        return open().txtnotice->toPlainText();
    }
    QString kept() {
        return database.text(QStringLiteral(
            "Select UP_PD_Value from User_Preferences Where UP_Pref_Category = 'General' AND UP_Pref_Detail = 'Notice'"));
    }

    AppointmentSlip slip{QStringLiteral("Jones, Mary"), QStringLiteral("Reed"), QStringLiteral("Main Office"),
                         QDate(2026, 3, 11), 540};
    std::unique_ptr<frmpappt> form;
};

}  // namespace

TEST_F(Slip, TellsForWhomWithWhomWhereAndWhen) {
    open();
    EXPECT_EQ(form->windowTitle(), Title);
    EXPECT_EQ(form->txtafor->text(), "Jones, Mary");
    EXPECT_EQ(form->txtawith->text(), "Reed");
    EXPECT_EQ(form->txtlocation->text(), "Main Office");
    EXPECT_EQ(form->txtdatetime->text(), "Wednesday Mar 11, 2026 at 9:00 AM");
}

TEST_F(Slip, PutsTheDayFirstWhereTheComputerDoes) {
    Session().DateOrder = 1;
    EXPECT_EQ(open().txtdatetime->text(), "Wednesday, 11 Mar 2026 at 9:00 AM");
    Session().DateOrder = 2;
    EXPECT_EQ(open().txtdatetime->text(), "Wednesday Mar 11, 2026 at 9:00 AM");
}

TEST_F(Slip, TellsTheTimeAsTheScreenDoes) {
    slip.start = 720;
    EXPECT_EQ(open().txtdatetime->text(), "Wednesday Mar 11, 2026 at 12:00 Noon");
    slip.start = 845;
    Session().MilitaryTime = true;
    EXPECT_EQ(open().txtdatetime->text(), "Wednesday Mar 11, 2026 at 14:05");
}

TEST_F(Slip, OfAWholeDayTellsNoTime) {
    slip.start.reset();
    EXPECT_EQ(open().txtdatetime->text(), "Wednesday Mar 11, 2026");
}

TEST_F(Slip, StandsOnPaperAsItStandsInTheForm) {
    addHeader(QStringLiteral("Hill Street Practice"));
    open();
    EXPECT_EQ(form->txtheader->toPlainText(), "Hill Street Practice");
    EXPECT_EQ(printed(), (QStringList{"Hill Street Practice", "", "", "Appointment for: Jones, Mary", "",
                                      "Appointment with: Reed", "", "Location: Main Office", "",
                                      "Date/Time: Wednesday Mar 11, 2026 at 9:00 AM", "", StandardNotice}));
}

TEST_F(Slip, BeginsWithTheAppointmentWhereThereIsNoHeader) {
    open();
    EXPECT_EQ(form->txtheader->toPlainText(), QString());
    EXPECT_EQ(printed().first(), "Appointment for: Jones, Mary");
    form->txtheader->setPlainText(QStringLiteral(" \n "));
    EXPECT_EQ(printed().first(), "Appointment for: Jones, Mary");
}

TEST_F(Slip, TakesTheHeaderThatIsMarkedByMinusOneToo) {
    run(QStringLiteral("Insert Into report_headers (header, [default]) Values ('By the old program', -1)"));
    EXPECT_EQ(open().txtheader->toPlainText(), "By the old program");
}

TEST_F(Slip, GivesEachPartOfTheHeaderALineOfItsOwn) {
    addHeader(QStringLiteral("|Hill Street Practice|\r\n210 Foundry St | Larkspur Falls"));
    open();
    EXPECT_EQ(form->txtheader->toPlainText(), "Hill Street Practice\n210 Foundry St\nLarkspur Falls");
    EXPECT_EQ(printed().mid(0, 3), (QStringList{"Hill Street Practice", "210 Foundry St\nLarkspur Falls", ""}));
}

TEST_F(Slip, OpensWithoutAHeaderThatCannotBeReadAndSaysSo) {
    desk.expectBox("Error reading report header. " + loseDatabase(), "Error");
    open();
    EXPECT_EQ(form->txtafor->text(), "Jones, Mary");
    EXPECT_EQ(printed().last(), StandardNotice);
}

TEST_F(Slip, CanBeChangedBeforeItIsPrinted) {
    open();
    form->txtheader->setPlainText(QStringLiteral("Front desk"));
    form->txtafor->setText(QStringLiteral("Mary and Tom"));
    form->txtawith->setText(QStringLiteral("Dr. Reed"));
    form->txtlocation->setText(QStringLiteral("2nd floor"));
    form->txtdatetime->setText(QStringLiteral("Wednesday at nine"));
    notice(QStringLiteral("Bring your card"));
    EXPECT_EQ(printed(),
              (QStringList{"Front desk", "", "", "Appointment for: Mary and Tom", "", "Appointment with: Dr. Reed", "",
                           "Location: 2nd floor", "", "Date/Time: Wednesday at nine", "", "Bring your card"}));
}

TEST_F(Slip, ASavedNoticeReplacesTheStandardTextOnEveryLaterSlipOfThatUser) {
    open();
    notice(QStringLiteral("Please come ten minutes early"));
    EXPECT_EQ(noticeOfNextSlip(), "Please come ten minutes early");
    EXPECT_EQ(open().txtnotice->toPlainText(), "Please come ten minutes early");
    Session().UID = QStringLiteral("STONE");
    EXPECT_EQ(open().txtnotice->toPlainText(), StandardNotice);
}

TEST_F(Slip, ANoticeOfThePracticeHoldsForWhoHasNoneOfTheirOwn) {
    ASSERT_TRUE(SetPreference("Ring the bell", "Notice", "General", AllUsers));
    open();
    EXPECT_EQ(form->txtnotice->toPlainText(), "Ring the bell");
    notice(QStringLiteral("Knock"));
    EXPECT_EQ(noticeOfNextSlip(), "Knock");
}

TEST_F(Slip, AnEmptiedNoticeIsTheStandardTextNextTime) {
    open();
    notice(QStringLiteral("Knock"));
    form->cmdsave->click();
    notice({});
    EXPECT_EQ(noticeOfNextSlip(), StandardNotice);
}

TEST_F(Slip, ANoticeIsKeptWithApostropheQuotesMarkupEmojiAndLineBreaks) {
    for (const QString& text :
         {QStringLiteral("Can't come? Call \"us\"; it's free | day & night"), QStringLiteral("x', UP_UserID = 'STONE"),
          QStringLiteral("<b>Bold</b> &amp; <img src='x'>"), QString::fromUtf8("See you soon \xF0\x9F\x99\x82"),
          QString::fromUtf8("\xD7\x91\xD7\x95\xD7\xA7\xD7\xA8 \xD7\x98\xD7\x95\xD7\x91"),
          QStringLiteral("Line one\n\nLine three")}) {
        open();
        notice(text);
        EXPECT_EQ(noticeOfNextSlip(), text) << text.toStdString();
        EXPECT_EQ(printed().last(), text);
    }
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from User_Preferences")), 1);
}

TEST_F(Slip, FiveHundredCharactersAreKeptAndPrintedWhole) {
    const QString text = QStringLiteral("Please come early. ").repeated(27).left(500).trimmed();
    slip.appointmentFor = QStringLiteral("Wolfeschlegelsteinhausenbergerdorff ").repeated(14).left(500).trimmed();
    open();
    notice(text);
    EXPECT_EQ(noticeOfNextSlip(), text);
    const QStringList lines = printed();
    EXPECT_EQ(lines.first(), "Appointment for: " + slip.appointmentFor);
    EXPECT_EQ(lines.last(), text);
}

TEST_F(Slip, ShowsANameAsItStands) {
    for (const QString& name :
         {QStringLiteral("O'Brien, Anna"), QStringLiteral("<b>Jones</b> &amp; Co"), QStringLiteral("Smith; Ann | Bob"),
          QString::fromUtf8("\xD7\x9C\xD7\x95\xD7\x99, \xD7\xA9\xD7\xA8\xD7\x94"),
          QString::fromUtf8("Anna \xF0\x9F\x8C\xB7")}) {
        slip.appointmentFor = name;
        open();
        EXPECT_EQ(form->txtafor->text(), name);
        EXPECT_EQ(printed().first(), "Appointment for: " + name);
    }
}

TEST_F(Slip, ASaveSaysSoUntilTheNoticeChanges) {
    open();
    EXPECT_EQ(form->lblstatus->text(), QString());
    notice(QStringLiteral("Knock"));
    form->cmdsave->click();
    EXPECT_EQ(form->lblstatus->text(), "The notice is saved for all your later slips.");
    notice(QStringLiteral("Ring"));
    EXPECT_EQ(form->lblstatus->text(), QString());
}

TEST_F(Slip, ASaveThatFailsSaysSoAndTheNoticeStaysForThisSlip) {
    open();
    notice(QStringLiteral("Knock"));
    database.refuse("Insert", "User_Preferences");
    desk.expectBox("The notice could not be saved. It holds for this slip.", Title);
    form->cmdsave->click();
    EXPECT_EQ(form->lblstatus->text(), QString());
    EXPECT_EQ(printed().last(), "Knock");
    EXPECT_TRUE(form->IsChanged());
    database.allow("Insert", "User_Preferences");
    form->cmdsave->click();
    EXPECT_EQ(kept(), "Knock");
}

TEST_F(Slip, ADatabaseThatWasLostIsToldAtTheSave) {
    open();
    notice(QStringLiteral("Knock"));
    loseDatabase();
    desk.expectBox("The notice could not be saved. It holds for this slip.", Title);
    form->cmdsave->click();
    EXPECT_EQ(form->txtnotice->toPlainText(), "Knock");
}

TEST_F(Slip, ClosesAtOnceWhereNothingIsLost) {
    open();
    form->cmdclose->click();
    EXPECT_FALSE(form->isVisible());
    open();
    notice(QStringLiteral("Knock"));
    form->cmdsave->click();
    form->cmdclose->click();
    EXPECT_FALSE(form->isVisible());
    open();
    form->txtlocation->setText(QStringLiteral("2nd floor"));
    desk.expectForm("frmpreview", [](QDialog& preview) { dynamic_cast<frmpreview&>(preview).cmdprint->click(); });
    form->cmdprint->click();
    form->cmdclose->click();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(Slip, AsksBeforeWhatWasTypedIsLost) {
    open();
    notice(QStringLiteral("Knock"));
    for (const auto& close : {std::function<void()>([this] { form->cmdclose->click(); }),
                              std::function<void()>([this] { QTest::keyClick(form.get(), Qt::Key_Escape); }),
                              std::function<void()>([this] { form->close(); })}) {
        desk.expectBox(GiveUp, Title, Answer::No);
        close();
        EXPECT_TRUE(form->isVisible());
    }
    // Only looked at, it is not printed.
    previewed();
    desk.expectBox(GiveUp, Title, Answer::Yes);
    form->cmdclose->click();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(kept(), "(none)");
}

TEST_F(Slip, ASavedNoticeDoesNotSettleTheOtherFields) {
    open();
    form->txtlocation->setText(QStringLiteral("2nd floor"));
    form->cmdsave->click();
    EXPECT_TRUE(form->IsChanged());
}

TEST_F(Slip, HidesTheNameOnScreenAndPaperAndGivesItBack) {
    open();
    form->txtafor->setText(QStringLiteral("Mary and Tom"));
    for (int round = 1; round <= 2; ++round) {
        SetNamesHidden(true);
        EXPECT_EQ(form->txtafor->text(), "(hidden)");
        EXPECT_TRUE(form->txtafor->isReadOnly());
        EXPECT_EQ(printed().first(), "Appointment for: (hidden)");
        SetNamesHidden(false);
        EXPECT_EQ(form->txtafor->text(), "Mary and Tom");
        EXPECT_FALSE(form->txtafor->isReadOnly());
    }
}

TEST_F(Slip, OpenedWhileNamesAreHiddenHasNotChanged) {
    SetNamesHidden(true);
    open();
    EXPECT_EQ(form->txtafor->text(), "(hidden)");
    EXPECT_EQ(form->txtawith->text(), "Reed");
    EXPECT_FALSE(form->IsChanged());
    SetNamesHidden(false);
    EXPECT_EQ(form->txtafor->text(), "Jones, Mary");
    EXPECT_FALSE(form->IsChanged());
}

TEST_F(Slip, OfAMeetingHidesNothing) {
    slip.namesPatient = false;
    slip.appointmentFor = QStringLiteral("Staff meeting");
    SetNamesHidden(true);
    open();
    EXPECT_EQ(printed().first(), "Appointment for: Staff meeting");
}

TEST_F(Slip, WithoutAPrinterCanStillBeSavedAsAFile) {
    Printers().anyInstalled = [] { return false; };
    open();
    form->txtlocation->setText(QStringLiteral("2nd floor"));
    desk.chosenFile = file("slip.pdf");
    desk.expectForm("frmpreview", [this](QDialog& preview) {
        desk.expectBox("No printer is installed on this computer. You can save the document as a PDF file instead.",
                       "Print");
        dynamic_cast<frmpreview&>(preview).cmdprint->click();
        EXPECT_TRUE(form->IsChanged());
        dynamic_cast<frmpreview&>(preview).cmdsave->click();
    });
    form->cmdprint->click();
    EXPECT_TRUE(QFile::exists(desk.chosenFile));
    EXPECT_EQ(desk.proposed.first().section(u'/', -1), "Appointment Slip.pdf");
    EXPECT_FALSE(form->IsChanged());
}

TEST_F(Slip, SavesAndPrintsByKeys) {
    open();
    notice(QStringLiteral("Knock"));
    for (int round = 1; round <= 2; ++round) {
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        QTest::keyClick(form->txtnotice, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(kept(), "Knock");
        bool isShown = false;
        desk.expectForm("frmpreview", [&](QDialog&) { isShown = true; });
        QTest::keyClick(form->txtnotice, Qt::Key_P, Qt::ControlModifier);
        EXPECT_TRUE(isShown) << round;
    }
}

TEST_F(Slip, TellsAReaderOfTheScreenWhatEachFieldIs) {
    open();
    QStringList names;
    for (const QWidget* field : {static_cast<QWidget*>(form->txtheader), static_cast<QWidget*>(form->txtafor),
                                 static_cast<QWidget*>(form->txtawith), static_cast<QWidget*>(form->txtlocation),
                                 static_cast<QWidget*>(form->txtdatetime), static_cast<QWidget*>(form->txtnotice)})
        names << field->accessibleName();
    EXPECT_EQ(names, (QStringList{"Header", "Appointment for", "Appointment with", "Location", "Date/Time", "Notice"}));
}
