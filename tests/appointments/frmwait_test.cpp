#include "appointments/frmwait.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "appointments/frmwaitentry.h"
#include "appointments/matchlist.h"
#include "appointments/patientbox.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/notefield.h"
#include "platform/controls/textfield.h"
#include "session/hiddennames.h"
#include "tests/appointments/appointmentfixture.h"

namespace {

constexpr char Failed[] = "Error saving wait list. ";

/// A practice of Reed and Lane with three patients, whose wait list a desk with all rights works on.
class WaitListForm : public AppointmentFixture {
  protected:
    WaitListForm() {
        Session().AllProviders = true;
        Session().ScreenAccess = 3;
        Session().UID = QStringLiteral("DESK");
        Session().ProviderId = QStringLiteral("REED");
        Session().WordUsage = QStringLiteral("Patient");
        Session().TimeUnit = 15;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(8, 0)));
        provider(QStringLiteral("LANE"), QStringLiteral("Lane"));
        person("1", "Jones", "Mary");
        person("2", "Jordan", "Ed");
        person("3", "O'Brien", "Anna");
        run("Insert Into session_types (sess_cpt_code, sess_cpt_name, sess_cpt_time) Values ('90834', 'Therapy', 45)");
        run("Update patient_info Set defaultCPT = '90834' Where id = '3'");
    }
    void run(const QString& statement) { database.connection().Execute(statement); }
    void person(const char* id, const char* last, const char* first) {
        run(db::Sql("Insert Into patient_info (id, last_name, first_name, archive) Values ('{}', '{}', '{}', 0)", id,
                    last, first));
    }
    int waits(const char* patient, const QString& columns = {}, const QString& values = {}) {
        run(QStringLiteral(
                "Insert Into WaitList (PatientId, PatientName, Minutes, createddate%1) Values('%2', 'Old Name', 45, "
                "'2026/03/01'%3)")
                .arg(columns, QLatin1String(patient), values));
        return static_cast<int>(database.number("Select Max(WaitId) from WaitList"));
    }
    /// The columns of an entry, joined by blanks.
    QString stored(const char* columns, int id = 0) {
        const db::Recordset row(
            db::Sql("Select {} From WaitList Where WaitId = {} Or 0 = {}", db::Raw{columns}, id, id),
            database.connection());
        QStringList texts;
        for (int column = 0; !row.Eof() && column < static_cast<int>(row.Columns().size()); ++column)
            texts << row[column].text();
        return texts.join(u' ');
    }
    QStringList states(const frmwait& form) {
        QStringList texts;
        for (int row = 0; row < form.ctList1->RowCount(); ++row)
            texts << form.ctList1->Cell(row, 9);
        return texts;
    }
    static frmwaitentry& entryForm(QDialog& form) { return dynamic_cast<frmwaitentry&>(form); }
    static void strike(frmwaitentry& form, const QString& text) {
        form.show();
        form.activateWindow();
        form.pnlpatient->txtpatients->setFocus();
        QTest::keyClicks(form.pnlpatient->txtpatients, text);
        QApplication::processEvents();  // Letters that come together are looked up together.
    }
    std::unique_ptr<frmwait> open(const WaitOpening& opening = {}) {
        auto form = std::make_unique<frmwait>(opening);
        form->show();
        return form;
    }
};

}  // namespace

TEST_F(WaitListForm, AnEntryIsAddedByTypingAndEnter) {
    auto form = open();
    EXPECT_EQ(form->lblcount->text(), "Nobody waits.");
    desk.expectForm("frmwaitentry", [](QDialog& dialog) {
        EXPECT_FALSE(entryForm(dialog).pnlpatient->txtpatients->accessibleName().isEmpty());
        strike(entryForm(dialog), QStringLiteral("o'b"));
        EXPECT_EQ(entryForm(dialog).pnlpatient->txtpatients->text(), "O'Brien, Anna");
        EXPECT_EQ(entryForm(dialog).ctlength->Value(), 45) << "the usual service of the patient";
        QTest::keyClick(entryForm(dialog).pnlpatient->txtpatients, Qt::Key_Return);
    });
    form->cmdadd->click();
    EXPECT_EQ(stored("PatientId, Minutes, Days, FromTime, ToTime, Closed, createduid"), "3 45 127 0 1440 0 DESK");
    EXPECT_EQ(stored("Providers, nkeyid, ValidUntil").trimmed(), "");
    EXPECT_EQ(form->ctList1->Cells(0).first(8).join(u'|'), "O'Brien, Anna|45 minutes|any|any|any||3/11/2026|");
    EXPECT_EQ(states(*form), QStringList("Waiting"));
    EXPECT_EQ(form->lblcount->text(), "1 patient waits.");
}

TEST_F(WaitListForm, AllThatIsWantedIsKeptAndShownAgain) {
    auto form = open();
    desk.expectForm("frmwaitentry", [](QDialog& dialog) {
        frmwaitentry& entry = entryForm(dialog);
        EXPECT_TRUE(entry.pnlpatient->SetPatient(QStringLiteral("2")));
        entry.ctlength->setValue(60);
        entry.List1->SelectRow(0);
        QTest::keyClick(entry.List1, Qt::Key_Space);
        EXPECT_EQ(entry.lblproviders->text(), "Waits for Lane.");
        for (const int weekday : {0, 6})
            entry.ckday[static_cast<std::size_t>(weekday)]->setChecked(false);
        entry.ctfrom->setText(QStringLiteral("9"));
        entry.ctto->setText(QStringLiteral("12:30"));
        entry.ctuntil->setDate(QDate(2026, 4, 1));
        entry.txtnote->setPlainText(QStringLiteral("it's late; call first | \U0001F642"));
        entry.cmdOk->click();
    });
    form->cmdadd->click();
    EXPECT_EQ(form->ctList1->Cells(0).join(u'|'),
              QStringLiteral("Jordan, Ed|60 minutes|Lane|Mon, Tue, Wed, Thu, Fri|9:00 AM - 12:30 PM|4/1/2026|3/11/2026|"
                             "it's late; call first | \U0001F642|Waiting"));
    desk.expectForm("frmwaitentry", [](QDialog& dialog) {
        frmwaitentry& entry = entryForm(dialog);
        EXPECT_EQ(entry.pnlpatient->txtpatients->text(), "Jordan, Ed");
        EXPECT_EQ(entry.ctfrom->Time(), 540);
        EXPECT_EQ(entry.ctto->Time(), 750);
        EXPECT_TRUE(entry.List1->Checked(0, 1));
        EXPECT_FALSE(entry.List1->Checked(1, 1));
        EXPECT_FALSE(entry.ckday[0]->isChecked());
        EXPECT_FALSE(entry.IsChanged());
        entry.ctto->setText(QString());
        entry.cmdOk->click();
    });
    form->cmdedit->click();
    EXPECT_EQ(form->ctList1->Cell(0, 5), "from 9:00 AM");
    EXPECT_EQ(stored("Providers, Minutes, ToTime"), "LANE 60 1440");
}

TEST_F(WaitListForm, ANewEntryBeginsWithTheVisitFromWhichTheListWasOpened) {
    auto form = open({QStringLiteral("1"), 50, QStringLiteral("LANE")});
    desk.expectForm("frmwaitentry", [](QDialog& dialog) {
        EXPECT_EQ(entryForm(dialog).pnlpatient->txtpatients->text(), "Jones, Mary");
        EXPECT_EQ(entryForm(dialog).ctlength->Value(), 50);
        entryForm(dialog).cmdOk->click();
    });
    form->cmdadd->click();
    EXPECT_EQ(stored("PatientId, Minutes, Providers"), "1 50 LANE");
}

TEST_F(WaitListForm, OneOfSeveralWhoFitIsChosenByTheArrowKeys) {
    auto form = open();
    desk.expectForm("frmwaitentry", [](QDialog& dialog) {
        frmwaitentry& entry = entryForm(dialog);
        strike(entry, QStringLiteral("jo"));
        QTest::keyClick(entry.pnlpatient->txtpatients, Qt::Key_Down);
        QTest::keyClick(entry.pnlpatient->txtpatients, Qt::Key_Return);
        EXPECT_EQ(entry.pnlpatient->txtpatients->text(), "Jordan, Ed");
        EXPECT_TRUE(dialog.isVisible()) << "The first Enter only chooses.";
        QTest::keyClick(entry.pnlpatient->txtpatients, Qt::Key_Return);
    });
    form->cmdadd->click();
    EXPECT_EQ(stored("PatientId"), "2");
}

TEST_F(WaitListForm, WhoeverLeavesTheNameBeforeTheListOfThoseWhoFitCameSeesItFirst) {
    auto form = open();
    desk.expectForm("frmwaitentry", [](QDialog& dialog) {
        frmwaitentry& entry = entryForm(dialog);
        QLineEdit& box = *entry.pnlpatient->txtpatients;
        strike(entry, QStringLiteral("jo"));
        entry.ctlength->setFocus();
        QApplication::processEvents();
        EXPECT_TRUE(entry.pnlpatient->IsAsking());
        EXPECT_TRUE(box.hasFocus());
        QTest::keyClick(&box, Qt::Key_Down);
        entry.ctlength->setFocus();
        QApplication::processEvents();
        EXPECT_FALSE(entry.pnlpatient->IsAsking());
        EXPECT_EQ(box.text(), "Jordan, Ed");

        box.setFocus();
        box.selectAll();
        strike(entry, QStringLiteral("jo"));
        entry.cmdOk->click();
        EXPECT_TRUE(dialog.isVisible()) << "OK asks too.";
        EXPECT_TRUE(entry.pnlpatient->IsAsking());
        QTest::keyClick(&box, Qt::Key_Down);
        entry.cmdOk->click();
        EXPECT_FALSE(dialog.isVisible());
    });
    form->cmdadd->click();
    EXPECT_EQ(stored("PatientId"), "2");
}

TEST_F(WaitListForm, WhatIsMissingIsToldAndNothingIsSaved) {
    auto form = open();
    desk.expectForm("frmwaitentry", [this](QDialog& dialog) {
        frmwaitentry& entry = entryForm(dialog);
        dialog.show();
        const auto refused = [&](const char* text) {
            desk.expectBox(QString::fromLatin1(text), "Missing Data");
            entry.cmdOk->click();
        };
        refused("Choose who waits, from the names that appear while you type or by Look Up.");
        entry.pnlpatient->SetPatient(QStringLiteral("1"));
        entry.ctlength->setText(QStringLiteral("0"));
        refused("Enter the length of the visit, from 1 to 720 minutes.");
        entry.ctlength->setText(QStringLiteral("721"));
        refused("Enter the length of the visit, from 1 to 720 minutes.");
        entry.ctlength->setValue(45);
        for (QCheckBox* weekday : entry.ckday)
            weekday->setChecked(false);
        refused("Check at least one day.");
        entry.ckday[3]->setChecked(true);
        entry.ctfrom->setText(QStringLiteral("noon?"));
        refused("Enter a valid time, or leave the field empty.");
        entry.ctfrom->setText(QStringLiteral("9"));
        entry.ctto->setText(QStringLiteral("9:30"));
        refused("A visit of 45 minutes does not fit between these times.");
        entry.ctto->setText(QStringLiteral("8"));
        refused("A visit of 45 minutes does not fit between these times.");
        entry.ctto->setText(QString());
        entry.ctuntil->setText(QStringLiteral("2/30/2026"));
        refused("Enter a valid date, or leave the field empty.");
        entry.ctuntil->setDate(QDate(2026, 3, 10));
        refused("This date is past. Enter a later one, or leave the field empty.");
        dialog.reject();
    });
    form->cmdadd->click();
    EXPECT_EQ(database.number("Select Count(*) from WaitList"), 0);
}

TEST_F(WaitListForm, TheListSaysWhoIsOfferedNothing) {
    run("Insert Into provider_info (id, prov_lastname, archive) Values ('OLD', 'Old', 1)");
    person("4", "Quinn", "Pat");
    run("Update patient_info Set archive = 1 Where id = '4'");
    waits("1");
    waits("2", ", ValidUntil", ", '2026/03/10'");
    waits("3", ", ValidUntil", ", '2026/03/11'");
    waits("4");
    waits("99");
    waits("1", ", Providers", ", 'OLD'");
    waits("1", ", Providers", ", 'OLD|reed'");
    waits("1", ", Providers", ", 'OLD|GONE'");
    waits("2", ", Closed", ", 1");
    const auto form = open();
    EXPECT_EQ(states(*form), QStringList({"Waiting", "Date has passed", "Waiting", "Patient archived",
                                          "Patient deleted", "Provider archived", "Waiting", "Providers archived"}));
    EXPECT_EQ(form->ctList1->Cell(4, 1), "Old Name");
    EXPECT_EQ(form->lblcount->text(), "8 patients wait.");
}

TEST_F(WaitListForm, AnEntryIsTakenOffTheListAfterAQuestion) {
    const int id = waits("1");
    auto form = open();
    desk.expectBox("Take this entry off the wait list?", "Wait List", Answer::No);
    form->cmdclosed->click();
    EXPECT_EQ(stored("Closed", id), "0");
    desk.expectBox("Take this entry off the wait list?", "Wait List", Answer::Yes);
    form->cmdclosed->click();
    EXPECT_EQ(stored("Closed", id), "1");
    EXPECT_EQ(form->ctList1->RowCount(), 0);
    EXPECT_FALSE(form->cmdedit->isEnabled());
    EXPECT_EQ(form->cmdprint->toolTip(), "Nobody waits.");
}

TEST_F(WaitListForm, WhatAnotherDeskChangedIsNotWrittenOver) {
    waits("1");
    auto form = open();
    desk.expectForm("frmwaitentry", [this](QDialog& dialog) {
        run("Update WaitList Set Minutes = 30");
        entryForm(dialog).txtnote->setPlainText(QStringLiteral("mine"));
        desk.expectBox(Failed + db::RowClash({}).description, "Error");
        entryForm(dialog).cmdOk->click();
        EXPECT_EQ(dialog.result(), QDialog::Rejected) << "The form stays with what was typed.";
    });
    form->cmdedit->click();
    EXPECT_EQ(stored("Minutes, Note").trimmed(), "30");
    EXPECT_EQ(form->ctList1->Cell(0, 2), "30 minutes") << "The list shows it as it is stored.";

    desk.expectForm("frmwaitentry", [this](QDialog& dialog) {
        run("Update WaitList Set Closed = 1");
        desk.expectBox("Another user has booked or closed this entry in the meantime. Nothing has been saved.",
                       "Edit Entry of Wait List");
        entryForm(dialog).cmdOk->click();
    });
    form->cmdedit->click();
    EXPECT_EQ(form->ctList1->RowCount(), 0);
}

TEST_F(WaitListForm, AFailingSaveKeepsWhatWasTyped) {
    auto form = open();
    desk.expectForm("frmwaitentry", [this](QDialog& dialog) {
        frmwaitentry& entry = entryForm(dialog);
        entry.pnlpatient->SetPatient(QStringLiteral("1"));
        desk.expectBox(Failed + database.refuse("Insert", "WaitList"), "Error");
        entry.cmdOk->click();
        EXPECT_EQ(entry.pnlpatient->txtpatients->text(), "Jones, Mary");
        database.allow("Insert", "WaitList");
        entry.cmdOk->click();
    });
    form->cmdadd->click();
    EXPECT_EQ(database.number("Select Count(*) from WaitList"), 1);
}

TEST_F(WaitListForm, WithoutTheRightToAllSchedulesOnlyOnesOwnEntriesAreListed) {
    waits("1", ", Providers", ", 'LANE'");
    waits("2", ", Providers", ", 'LANE|REED'");
    waits("3");
    Session().AllProviders = false;
    auto form = open();
    EXPECT_EQ(form->ctList1->RowCount(), 2);
    desk.expectForm("frmwaitentry", [](QDialog& dialog) {
        EXPECT_EQ(entryForm(dialog).List1->RowCount(), 1);
        EXPECT_EQ(entryForm(dialog).lblproviders->text(), "Waits for Reed.");
        dialog.reject();
    });
    form->cmdadd->click();
}

TEST_F(WaitListForm, WhoMayOnlyReadChangesNothing) {
    waits("1");
    Session().ScreenAccess = 1;
    auto form = open();
    for (const QPushButton* button : {form->cmdadd, form->cmdedit, form->cmdclosed}) {
        EXPECT_FALSE(button->isEnabled());
        EXPECT_EQ(button->toolTip(), "Not available to you.");
    }
    QTest::keyClick(form->ctList1, Qt::Key_Return);
    EXPECT_TRUE(form->cmdprint->isEnabled());
}

TEST_F(WaitListForm, HiddenNamesAreHiddenInTheListAndOnPaper) {
    waits("1", ", Note", ", 'after surgery'");
    auto form = open();
    SetNamesHidden(true);
    EXPECT_EQ(form->ctList1->ShownCell(0, 1), HiddenNameText());
    EXPECT_EQ(form->ctList1->ShownCell(0, 8), HiddenNameText());
    SetNamesHidden(false);
    EXPECT_EQ(form->ctList1->ShownCell(0, 1), "Jones, Mary");
}

TEST_F(WaitListForm, TheListIsPrintedThroughThePreview) {
    waits("1");
    auto form = open();
    bool shown = false;
    desk.expectForm("frmpreview", [&](QDialog&) { shown = true; });
    form->cmdprint->click();
    EXPECT_TRUE(shown);
}

TEST_F(WaitListForm, ALostDatabaseIsToldAndTheFormStays) {
    waits("1");
    auto form = open();
    const QString lost = loseDatabase();
    desk.expectBox("Take this entry off the wait list?", "Wait List", Answer::Yes);
    desk.expectBox(Failed + lost, "Error");
    desk.expectBox("Error reading wait list. " + lost, "Error");
    form->cmdclosed->click();
    EXPECT_EQ(form->ctList1->RowCount(), 0);
    EXPECT_EQ(form->lblcount->text(), QString()) << "Whether somebody waits is not known.";
}
