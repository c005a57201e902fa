#include "output/frmexportopts.h"

#include <QComboBox>
#include <QFileInfo>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStandardPaths>
#include <QTest>

#include "platform/controls/ctdedit.h"
#include "platform/controls/noticebar.h"
#include "platform/controls/textfield.h"
#include "session/hiddennames.h"
#include "session/preferences.h"
#include "tests/output/exportfixture.h"
#include "tests/support/fulldisk.h"

namespace {

/// The form that exports Reed's appointments, and a hand on it.
class ExportOptions : public ExportFixture {
  protected:
    frmExportOpts& open(const ExportRequest& request = {.ExportRange = exportrange::Day}) {
        form = std::make_unique<frmExportOpts>(request);
        form->show();
        QCoreApplication::processEvents();
        return *form;
    }
    /// Opens the form on a file, with an appointment to export.
    frmExportOpts& openOn(const QString& path, const ExportRequest& request = {.ExportRange = exportrange::Day}) {
        book({});
        open(request).txtFilePath->setText(path);
        return *form;
    }
    void exportNow() { form->cmdok->click(); }
    void expectDone(const QString& path) {
        desk.expectBox("iCalender export done. \n" + path, "Exporting Appointments To File");
    }
    void expectNothingFound() {
        desk.expectBox("There are No Appointments in the Date Range specified.", "No Appointments For Export");
    }
    /// Exports with success.
    void exportTo(const QString& path) {
        exportNow();
        expectDone(path);
        desk.passTime();
    }
    void chooseStandard() { form->cboformat->setCurrentIndex(1); }
    void chooseNaming(QComboBox* combo, PatientNaming naming) {
        combo->setCurrentIndex(static_cast<int>(naming));
        Q_EMIT combo->activated(combo->currentIndex());
    }
    void chooseRange(const QString& from, const QString& to) {
        form->optSelect[2]->click();
        form->txtfrom->setText(from);
        form->txtto->setText(to);
    }
    [[nodiscard]] bool isUsable() const {
        return form->cmdok->isEnabled() && form->cmdcancel->isEnabled() && form->fraSelect->isEnabled() &&
               form->fraFile->isEnabled() && !form->SSPanel->isVisible();
    }
    static QStringList summaries(const QString& path) {
        QStringList texts;
        for (const QString& line : QString::fromUtf8(FileBytes(path)).split("\r\n"))
            if (line.startsWith("SUMMARY:"))
                texts << line.mid(8);
        return texts;
    }

    std::unique_ptr<frmExportOpts> form;
};

}  // namespace

TEST_F(ExportOptions, FromTheDayItOffersTodaysAppointments) {
    open({.SelectedKey = 7, .ExportRange = exportrange::Day});
    EXPECT_EQ(form->windowTitle(), "Export Appointments");
    EXPECT_TRUE(form->optSelect[1]->isChecked());
    EXPECT_EQ(form->optSelect[1]->text().remove('&'), "All Appointments for Today");
    EXPECT_EQ(form->optSelect[0]->text().remove('&'), "Selected Appt. Only");
    EXPECT_EQ(form->optSelect[2]->text().remove('&'), "Appts. -    From:");
    EXPECT_EQ(form->txtfrom->Date(), today);
    EXPECT_EQ(form->txtto->Date(), today);
    EXPECT_EQ(form->txtFilePath->text(), "");
    EXPECT_TRUE(form->cmdok->isDefault());
    EXPECT_TRUE(isUsable());
}

TEST_F(ExportOptions, FromTheWeekItOffersTheWeeksAppointments) {
    open({.ExportRange = exportrange::Week});
    EXPECT_TRUE(form->optSelect[1]->isChecked());
    EXPECT_EQ(form->optSelect[1]->text().remove('&'), "All Appointments for this Week");
}

TEST_F(ExportOptions, FromElsewhereItPresetsNoRange) {
    open({});
    EXPECT_TRUE(form->optSelect[0]->isChecked());
    EXPECT_EQ(form->optSelect[1]->text().remove('&'), "All Appointments");
}

TEST_F(ExportOptions, DatesAreInTheOrderOfTheSessionAndOnForARangeAlone) {
    Session().DateOrder = 1;
    open();
    EXPECT_EQ(form->txtfrom->Text(), "11/03/2026");
    EXPECT_FALSE(form->txtfrom->isEnabled());
    EXPECT_FALSE(form->txtto->isEnabled());
    form->optSelect[2]->click();
    EXPECT_TRUE(form->txtfrom->isEnabled());
    EXPECT_TRUE(form->txtto->isEnabled());
    form->optSelect[0]->click();
    EXPECT_FALSE(form->txtfrom->isEnabled());
}

TEST_F(ExportOptions, TodaysAppointmentsAreExported) {
    book({.text = "Smith, Bo", .start = 600, .end = 650});
    book({.text = "Tomorrow", .date = today.addDays(1)});
    openOn(file("today.ics"));
    exportTo(file("today.ics"));
    EXPECT_EQ(summaries(file("today.ics")), (QStringList{"Jones, Mary", "Smith, Bo"}));
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(form->IsUnsaved());
}

TEST_F(ExportOptions, TheSelectedAppointmentAloneIsExported) {
    const qint64 key = book({.text = "Smith, Bo", .date = today.addDays(9)});
    openOn(file("one.ics"), {.SelectedKey = static_cast<int>(key), .ExportRange = exportrange::Day});
    form->optSelect[0]->click();
    exportTo(file("one.ics"));
    EXPECT_EQ(summaries(file("one.ics")), QStringList{"Smith, Bo"});
}

TEST_F(ExportOptions, WithoutASelectionNothingIsExported) {
    openOn(file("none.ics"));
    form->optSelect[0]->click();
    expectNothingFound();
    exportNow();
    EXPECT_FALSE(QFileInfo::exists(file("none.ics")));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(isUsable());
}

TEST_F(ExportOptions, ARangeOfDatesIsExported) {
    openOn(file("range.ics"));
    for (int day = 1; day <= 4; ++day)
        book({.text = QString::number(day), .date = today.addDays(day)});
    chooseRange("3/12/2026", "3/14/2026");
    exportTo(file("range.ics"));
    EXPECT_EQ(summaries(file("range.ics")), (QStringList{"1", "2", "3"}));
}

TEST_F(ExportOptions, AnEndDateEqualToTheStartDateIsAccepted) {
    openOn(file("day.ics"));
    chooseRange("3/11/2026", "3/11/2026");
    exportTo(file("day.ics"));
    EXPECT_EQ(summaries(file("day.ics")).size(), 1);
}

TEST_F(ExportOptions, TenYearsAreExported) {
    openOn(file("years.ics"));
    for (int month = 1; month < 120; ++month)
        book({.text = QString::number(month), .date = today.addMonths(month)});
    chooseRange("3/11/2026", "3/11/2036");
    chooseStandard();
    exportTo(file("years.ics"));
    EXPECT_EQ(summaries(file("years.ics")).size(), 120);
}

TEST_F(ExportOptions, DatesThatAreNoneAreToldInOrder) {
    openOn(file("no.ics"));
    chooseRange("", "nonsense");
    desk.expectBox("Enter a valid date.", "Date");
    exportNow();
    EXPECT_TRUE(form->txtfrom->hasFocus());
    form->txtfrom->setText("3/11/2026");
    desk.expectBox("Enter a valid date.", "Date");
    exportNow();
    EXPECT_TRUE(form->txtto->hasFocus());
    form->txtto->setText("3/10/2026");
    desk.expectBox("Invalid date range. End date must be greater than Start date.", "Date");
    exportNow();
    EXPECT_TRUE(form->txtfrom->hasFocus());
    EXPECT_TRUE(isUsable());
    EXPECT_FALSE(QFileInfo::exists(file("no.ics")));
}

TEST_F(ExportOptions, DatesThatDoNotCountAreNotAsked) {
    openOn(file("today.ics"));
    form->txtfrom->setText("nonsense");
    exportTo(file("today.ics"));
}

TEST_F(ExportOptions, ARangeWithoutAppointmentsIsToldAndTheDateGetsTheFocus) {
    openOn(file("none.ics"));
    chooseRange("3/12/2026", "3/14/2026");
    expectNothingFound();
    exportNow();
    EXPECT_TRUE(form->txtfrom->hasFocus());
    EXPECT_TRUE(isUsable());
}

TEST_F(ExportOptions, AFailedQueryLeavesTheFormOpen) {
    openOn(file("none.ics"));
    desk.expectBox("Error getting appointments from database. \n" + loseDatabase(),
                   "Error Exporting Appointments From DB");
    expectNothingFound();
    exportNow();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(isUsable());
    EXPECT_EQ(form->txtFilePath->text(), file("none.ics"));
}

TEST_F(ExportOptions, AQueryThatFailsInTheMiddleWritesNothing) {
    openOn(file("none.ics"));
    PutFile(file("none.ics"), "before");
    const QString why = DropTable(database.connection(), "appointmentsevents");
    desk.expectBox("Error getting appointments from database. \n" + why, "Error Exporting Appointments From DB");
    expectNothingFound();
    exportNow();
    EXPECT_EQ(FileBytes(file("none.ics")), "before");
    EXPECT_TRUE(isUsable());
}

TEST_F(ExportOptions, WithoutAPathTheUserIsAskedForOne) {
    openOn({});
    exportNow();
    ASSERT_EQ(desk.proposed.size(), 1);
    EXPECT_TRUE(desk.proposed[0].endsWith("/Appointments.ics"));
    EXPECT_TRUE(form->isVisible()) << "Nothing was chosen.";
    EXPECT_TRUE(isUsable());
    desk.chosenFile = file("asked.ics");
    exportTo(file("asked.ics"));
    EXPECT_EQ(summaries(file("asked.ics")).size(), 1);
}

TEST_F(ExportOptions, TheChosenPathStandsInItsField) {
    open();
    desk.chosenFile = file("march.ics");
    form->cmdCmdDlg->click();
    EXPECT_EQ(form->txtFilePath->text(), file("march.ics"));
    desk.chosenFile = file("april");
    form->cmdCmdDlg->click();
    EXPECT_EQ(form->txtFilePath->text(), file("april.ics"));
    EXPECT_EQ(desk.proposed.last(), file("march.ics"));
    desk.chosenFile.clear();
    form->cmdCmdDlg->click();
    EXPECT_EQ(form->txtFilePath->text(), file("april.ics"));
    PutFile(file("calendar"), "before");
    desk.chosenFile = file("calendar");
    form->cmdCmdDlg->click();
    EXPECT_EQ(form->txtFilePath->text(), file("calendar")) << "The file that is there is meant.";
}

TEST_F(ExportOptions, APathThatIsNotWholeIsInTheUsersDocumentsOrAtHome) {
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", folder.path().toUtf8());
    open().txtFilePath->setText("sub/../mine.ics");
    form->cmdCmdDlg->click();
    EXPECT_EQ(desk.proposed.last(), file("mine.ics"));
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(documents);
    form->cmdCmdDlg->click();
    EXPECT_EQ(desk.proposed.last(), documents + "/mine.ics");
    EXPECT_TRUE(documents.startsWith(folder.path()));
    qputenv("HOME", home);
}

TEST_F(ExportOptions, AFileThatExistsIsReplacedAfterAQuestion) {
    openOn(file("old.ics"));
    PutFile(file("old.ics"), QByteArray(5000, 'x'));
    desk.expectBox(file("old.ics") + " already exists.\nDo you want to replace it?", "Export iCal - Save As",
                   Answer::Yes);
    exportTo(file("old.ics"));
    EXPECT_TRUE(FileBytes(file("old.ics")).startsWith("BEGIN:VCALENDAR\r\n"));
    EXPECT_FALSE(FileBytes(file("old.ics")).contains("xxx"));
}

TEST_F(ExportOptions, AFileThatIsNotToBeReplacedIsNotTouchedAndTheFormCloses) {
    openOn(file("old.ics"));
    PutFile(file("old.ics"), "before");
    desk.expectBox(file("old.ics") + " already exists.\nDo you want to replace it?", "Export iCal - Save As",
                   Answer::No);
    exportNow();
    EXPECT_EQ(FileBytes(file("old.ics")), "before");
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(form->IsUnsaved());
}

TEST_F(ExportOptions, AWriteThatFailsIsToldAndTheFormCanBeOpenedAgain) {
    openOn(file("gone/march.ics"));
    exportNow();
    desk.expectBox("Error writing iCalender export file. \nNo such file or directory",
                   "Error Exporting Appointments To File");
    desk.passTime();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->IsUnsaved());
    form->show();
    EXPECT_TRUE(isUsable());
    form->txtFilePath->setText(file("march.ics"));
    exportTo(file("march.ics"));
    EXPECT_FALSE(form->IsUnsaved());
}

TEST_F(ExportOptions, AFullDiskKeepsAPartOfTheFixedFileAndAllOfTheStandardOneThatWasThere) {
    for (int i = 0; i < 300; ++i)
        book({.start = i, .end = i + 1});
    openOn(file("large.ics"));
    for (const bool standard : {false, true}) {
        form->show();
        PutFile(file("large.ics"), "before");
        if (standard)
            chooseStandard();
        desk.expectBox(file("large.ics") + " already exists.\nDo you want to replace it?", "Export iCal - Save As",
                       Answer::Yes);
        {
            const FullDisk disk(20'000);
            exportNow();
        }
        desk.expectBox("Error writing iCalender export file. \nFile too large", "Error Exporting Appointments To File");
        desk.passTime();
        EXPECT_EQ(QFileInfo(file("large.ics")).size(), standard ? 6 : 20'000);
    }
}

TEST_F(ExportOptions, WhileItExportsThePanelStandsForASecondAndTheFormCannotBeUsedOrClosed) {
    openOn(file("march.ics"));
    exportNow();
    EXPECT_TRUE(form->SSPanel->isVisible());
    EXPECT_EQ(form->SSPanel->findChild<QLabel*>()->text(), "Exporting Appointments");
    EXPECT_EQ(desk.waits, QList<int>{1000});
    EXPECT_FALSE(form->cmdok->isEnabled());
    EXPECT_FALSE(form->cmdcancel->isEnabled());
    EXPECT_FALSE(form->fraSelect->isEnabled());
    EXPECT_FALSE(form->fraFile->isEnabled());
    QTest::keyClick(form.get(), Qt::Key_Escape);
    QTest::keyClick(form.get(), Qt::Key_Return);
    form->reject();
    form->close();
    EXPECT_TRUE(form->isVisible());
    expectDone(file("march.ics"));
    desk.passTime();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ExportOptions, AFormThatIsGoneTellsNothing) {
    openOn(file("march.ics"));
    exportNow();
    form.reset();
    desk.passTime();
}

TEST_F(ExportOptions, CancelEscapeAndTheCloseButtonCloseItWithoutAQuestion) {
    open().txtFilePath->setText("typed");
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    form->show();
    form->cmdcancel->click();
    EXPECT_FALSE(form->isVisible());
    form->show();
    form->close();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ExportOptions, EnterExports) {
    openOn(file("march.ics"));
    QTest::keyClick(form->txtFilePath, Qt::Key_Return);
    expectDone(file("march.ics"));
    desk.passTime();
    EXPECT_EQ(summaries(file("march.ics")).size(), 1);
}

TEST_F(ExportOptions, TheFixedFormIsTheFirstChoiceEachTime) {
    openOn(file("a.ics"));
    EXPECT_EQ(form->cboformat->currentIndex(), 0);
    chooseStandard();
    exportTo(file("a.ics"));
    EXPECT_FALSE(FileBytes(file("a.ics")).contains("METHOD:PUBLISH"));
    EXPECT_TRUE(FileBytes(file("a.ics")).contains("BEGIN:VTIMEZONE"));
    open();
    EXPECT_EQ(form->cboformat->currentIndex(), 0);
    EXPECT_EQ(form->cboformat->itemText(1), "Standard calendar file (RFC 5545)");
}

TEST_F(ExportOptions, ARowThatComesTwiceStandsTwiceInTheFixedFileAndOnceInTheStandardOne) {
    const qint64 key = book({.text = "meeting", .code = ncolor::Activity, .patient = ""});
    share(key, "LANE");
    share(key, "ABEL");
    open().txtFilePath->setText(file("a.ics"));
    exportTo(file("a.ics"));
    EXPECT_EQ(summaries(file("a.ics")), (QStringList{"meeting", "meeting"}));
    open().txtFilePath->setText(file("b.ics"));
    chooseStandard();
    exportTo(file("b.ics"));
    EXPECT_EQ(summaries(file("b.ics")), QStringList{"meeting"});
}

TEST_F(ExportOptions, PatientsAreNamedAsTheFormatHasItUntilTheUserChooses) {
    openOn(file("a.ics"));
    EXPECT_EQ(form->cbonames->currentText(), "Full name");
    EXPECT_EQ(form->cbohtmlnames->currentText(), "Full name");
    chooseStandard();
    EXPECT_EQ(form->cbonames->currentText(), "Initials");
    exportTo(file("a.ics"));
    EXPECT_EQ(summaries(file("a.ics")), QStringList{"M. J."});
}

TEST_F(ExportOptions, HowPatientsAreNamedIsKeptAlsoWhenTheFormIsCancelled) {
    openOn(file("a.ics"));
    chooseNaming(form->cbonames, PatientNaming::PatientNumber);
    chooseNaming(form->cbohtmlnames, PatientNaming::Initials);
    chooseStandard();
    EXPECT_EQ(form->cbonames->currentText(), "Initials");
    EXPECT_EQ(form->cbohtmlnames->currentText(), "Initials");
    form->reject();
    open().txtFilePath->setText(file("a.ics"));
    EXPECT_EQ(form->cbonames->currentText(), "Patient number");
    exportTo(file("a.ics"));
    EXPECT_EQ(summaries(file("a.ics")), QStringList{"A-55"});
    EXPECT_EQ(NamingIn(ExportFormat::HtmlPage), PatientNaming::Initials);
}

TEST_F(ExportOptions, AChoiceThatCannotBeKeptIsToldAndHoldsForThisFile) {
    NoticeBar bar;
    openOn(file("a.ics"));
    const QString what = "How patients are named in exports could not be kept.";
    (void)database.refuse("Insert", "User_Preferences");
    chooseNaming(form->cbonames, PatientNaming::Initials);
    EXPECT_TRUE(NoticeStands(what));
    exportTo(file("a.ics"));
    EXPECT_EQ(summaries(file("a.ics")), QStringList{"M. J."});
    database.allow("Insert", "User_Preferences");
    open();
    chooseNaming(form->cbonames, PatientNaming::Initials);
    EXPECT_FALSE(NoticeStands(what));
}

TEST_F(ExportOptions, HiddenNamesAreHiddenInTheFileAndTheFormSaysSo) {
    book({.text = "Lunch", .start = 720, .end = 780, .note = "|outside", .code = ncolor::Unavailable, .patient = ""});
    openOn(file("a.ics"));
    EXPECT_FALSE(form->lblhidden->isVisible());
    SetNamesHidden(true);
    EXPECT_TRUE(form->lblhidden->isVisible());
    exportTo(file("a.ics"));
    EXPECT_EQ(summaries(file("a.ics")), (QStringList{"(hidden)", "Lunch"}));
    EXPECT_TRUE(FileBytes(file("a.ics")).contains("DESCRIPTION:90834\\n(hidden)\r\n"));
    EXPECT_FALSE(FileBytes(file("a.ics")).contains("call first"));
}

TEST_F(ExportOptions, ThePracticesWordForAPatientStandsInIt) {
    Session().WordUsage = QStringLiteral("Client & Guest");
    open();
    EXPECT_EQ(form->cbonames->itemText(2), "Client & Guest number");
    QStringList labels;
    for (const QLabel* label : form->findChildren<QLabel*>())
        labels << label->text();
    EXPECT_TRUE(labels.contains("Client && Guest &names:")) << labels.join('|').toStdString();
}

TEST_F(ExportOptions, EveryAltKeyStandsOnceAndEveryFieldHasAName) {
    open();
    QString keys;
    for (const QLabel* label : form->findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            keys += label->text().section('&', 1, 1).left(1).toUpper();
    for (const QAbstractButton* button : form->findChildren<QAbstractButton*>())
        if (const QString text = button->text(); text.contains('&'))
            keys += text.section('&', 1, 1).left(1).toUpper();
    std::sort(keys.begin(), keys.end());
    EXPECT_EQ(keys, "ABCEHNOPRST");
}

TEST_F(ExportOptions, TabGoesThroughTheFieldsAsTheyStand) {
    open();
    form->optSelect[2]->click();
    form->optSelect[2]->setFocus();
    form->activateWindow();
    QStringList names;
    for (int step = 0; step < 9; ++step) {
        names << form->focusWidget()->objectName();
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(names, (QStringList{"optSelect2", "txtfrom", "txtto", "txtFilePath", "cmdCmdDlg", "cboformat", "cbonames",
                                  "cbohtmlnames", "cmdok"}));
}

TEST_F(ExportOptions, TheChosenOptionHasTheFocusAtFirst) {
    open();
    EXPECT_EQ(form->focusWidget(), form->optSelect[1]);
    open({});
    EXPECT_EQ(form->focusWidget(), form->optSelect[0]);
}

TEST_F(ExportOptions, OnASmallScreenEveryFieldStaysWholeAndTheButtonsStayInSight) {
    open().resize(640 - 16, 400 - 56);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->size(), QSize(624, 344));
    for (const QWidget* field : std::initializer_list<QWidget*>{form->optSelect[2], form->txtfrom, form->txtto})
        EXPECT_GE(field->width(), field->minimumSizeHint().width()) << field->objectName().toStdString();
    EXPECT_LT(form->txtFilePath->geometry().right(), form->cmdCmdDlg->geometry().left());
    const auto* area = form->findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_LE(area->widget()->width(), area->viewport()->width()) << "Only the height is scrolled.";
    EXPECT_TRUE(form->rect().contains(form->cmdok->geometry()));
    EXPECT_TRUE(form->rect().contains(form->cmdcancel->geometry()));
}
