#include "companion/frmfhappt.h"
#include "companion/companionrefusals.h"
#include "companion/keyedcombo.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/notefield.h"
#include "platform/database/sql.h"
#include "session/hiddennames.h"
#include "session/session.h"
#include "tests/companion/editorfixture.h"
#include "tests/support/combohand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

const QString NoCharge = QStringLiteral("Client does not have a standard charge setup in Fernhall");

QStringList entriesOf(const QComboBox& box) {
    QStringList entries;
    for (int i = 0; i < box.count(); ++i)
        entries << box.itemText(i);
    return entries;
}

class CompanionAppointmentForm : public CompanionEditorFixture {
  protected:
    static void typeStatus(frmFHAppt& form, const QString& text) {
        form.cbostatus->setFocus();
        form.cbostatus->lineEdit()->selectAll();
        QTest::keyClicks(form.cbostatus, text);
    }
};

using CompanionAppointmentLoad = CompanionAppointmentForm;

// A new appointment.

TEST_F(CompanionAppointmentLoad, ANewAppointmentTakesItsFieldsFromTheSchedule) {
    const frmFHAppt& form = openNew();
    EXPECT_EQ(form.windowTitle(), "Fernhall Appointment");
    EXPECT_EQ(form.lblClient->text(), "Client: Stone, Mary");
    EXPECT_EQ(form.findChild<QLabel*>("lblheading")->text(),
              QString::fromUtf8("Fernhall Appointment · Thu, Mar 12, 2026 · Reed, Anna"));
    EXPECT_EQ(form.txtdate->Date(), QDate(2026, 3, 12));
    EXPECT_EQ(form.txtstarttime->Time(), 600);
    EXPECT_EQ(form.txtduration->Value(), 50);
    EXPECT_EQ(form.cboProviders->currentText(), "Reed, Anna");
    EXPECT_EQ(form.cbostatus->ListIndex(), -1);
    EXPECT_EQ(form.txtmemo->toPlainText(), "");
    EXPECT_FALSE(form.IsWritten());
    EXPECT_EQ(form.CtrnKey(), 0);
}

TEST_F(CompanionAppointmentLoad, TheHeadingFollowsTheDateAndTheProvider) {
    const frmFHAppt& form = openNew();
    form.txtdate->setDate(QDate(2026, 3, 13));
    form.cboProviders->setCurrentIndex(-1);
    EXPECT_EQ(form.findChild<QLabel*>("lblheading")->text(),
              QString::fromUtf8("Fernhall Appointment · Fri, Mar 13, 2026"));
}

TEST_F(CompanionAppointmentLoad, AHiddenNameIsHiddenHereToo) {
    Session().HidePatientNames = true;
    EXPECT_FALSE(openNew().lblClient->text().contains("Stone"));
    EXPECT_FALSE(openRow(addAppointment()).lblClient->text().contains("Stone"));
}

TEST_F(CompanionAppointmentLoad, ANameThatIsHiddenOrShownWhileTheFormIsOpenFollows) {
    const auto follow = [](const frmFHAppt& form) {
        SetNamesHidden(true);
        EXPECT_FALSE(form.lblClient->text().contains("Stone"));
        SetNamesHidden(false);
        EXPECT_EQ(form.lblClient->text(), "Client: Stone, Mary");
    };
    follow(openNew());
    follow(openRow(addAppointment()));
}

TEST_F(CompanionAppointmentLoad, TheFieldsAreReachedByTabAndByTheirLetters) {
    frmFHAppt& form = openNew();
    QStringList order;
    for (int i = 0; i < 9; ++i) {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(' '),
              "txtdate txtstarttime txtduration cboProviders cboChargetype cbostatus txtmemo cmdOk cmdCancel");
    QSet<QChar> letters;
    int labels = 0;
    for (const QLabel* label : form.findChildren<QLabel*>())
        if (label->buddy() != nullptr) {
            EXPECT_FALSE(label->buddy()->accessibleName().isEmpty()) << label->text().toStdString();
            const qsizetype at = label->text().indexOf('&');
            ASSERT_GE(at, 0);
            letters << label->text()[at + 1].toLower();
            ++labels;
        }
    EXPECT_EQ(labels, 7);
    EXPECT_EQ(letters.size(), labels);
}

TEST_F(CompanionAppointmentLoad, TheListsHoldEveryProviderChargeAndStatus) {
    const frmFHAppt& form = openNew();
    EXPECT_EQ(entriesOf(*form.cboProviders), (QStringList{"Reed, Anna", "Young, Bo"}));
    EXPECT_EQ(entriesOf(*form.cboChargetype), (QStringList{"90834 Session", "90837 Long session", "PMT Payment"}));
    EXPECT_EQ(entriesOf(*form.cbostatus), (QStringList{"Not Seen", "Cancelled", "Missed", "Arrived", "Seen"}));
    for (int i = 0; i < form.cbostatus->count(); ++i)
        EXPECT_EQ(form.cbostatus->itemData(i).toInt(), i + 1);
}

TEST_F(CompanionAppointmentLoad, TheClientsStandardChargeIsChosen) {
    const frmFHAppt& form = openNew();
    EXPECT_EQ(form.cboChargetype->Key(), Session60);
    EXPECT_FALSE(form.lblstatus->isVisible());
}

TEST_F(CompanionAppointmentLoad, AClientWithoutAStandardChargeIsToldInTheFormAndNotInABox) {
    CompanionAppointmentRequest request = newRequest();
    request.ClientId = Ian;
    frmFHAppt& form = open(request);
    EXPECT_EQ(form.lblstatus->text(), NoCharge);
    EXPECT_TRUE(form.lblstatus->isVisible());
    EXPECT_EQ(form.cboChargetype->currentIndex(), -1);
    // A charge can still be chosen by hand.
    QTest::keyClicks(form.cboChargetype, "90834");
    EXPECT_EQ(form.cboChargetype->Key(), Session45);
}

TEST_F(CompanionAppointmentLoad, AStandardChargeThatIsNotOnTheListIsToldAlike) {
    run("Update Clients Set TranIDQuickCharge = 99");
    const frmFHAppt& form = openNew();
    EXPECT_EQ(form.lblstatus->text(), NoCharge);
    EXPECT_EQ(form.cboChargetype->currentIndex(), -1);
}

TEST_F(CompanionAppointmentLoad, AUserOfTheOwnScheduleSeesOnlyThatProvider) {
    Session().AllProviders = false;
    EXPECT_EQ(entriesOf(*openNew().cboProviders), QStringList{"Reed, Anna"});
}

TEST_F(CompanionAppointmentLoad, TheColleagueOfTheColumnIsAddedToTheListOfTheOwnSchedule) {
    Session().AllProviders = false;
    CompanionAppointmentRequest request = newRequest();
    request.ProvId = Young;
    const frmFHAppt& form = open(request);
    EXPECT_EQ(entriesOf(*form.cboProviders), (QStringList{"Reed, Anna", "Young, Bo"}));
    EXPECT_EQ(form.cboProviders->Key(), Young);
}

TEST_F(CompanionAppointmentLoad, ProvidersAndChargesOfTheSameNameAreToldApartByTheirKeys) {
    run("Insert Into Providers (ProvLastName, ProvFirstName) Values ('Reed', 'Anna')");
    run("Insert Into TransactionCodes (TranName, TranDescription) Values ('90837', 'Long session')");
    run("Update Clients Set TranIDQuickCharge = 4");
    CompanionAppointmentRequest request = newRequest();
    request.ProvId = 3;
    const frmFHAppt& form = open(request);
    EXPECT_EQ(form.cboProviders->Key(), 3);
    EXPECT_EQ(form.cboChargetype->Key(), 4);
}

TEST_F(CompanionAppointmentLoad, AProviderWhoIsGoneIsShownByTheKey) {
    CompanionAppointmentRequest request = newRequest();
    request.ProvId = 9;
    EXPECT_EQ(open(request).cboProviders->currentText(), "(no name, 9)");
}

TEST_F(CompanionAppointmentLoad, AChargeWithoutADescriptionCanStillBeChosen) {
    run("Insert Into TransactionCodes (TranName) Values ('X')");
    EXPECT_TRUE(entriesOf(*openNew().cboChargetype).contains("(no name, 4)"));
}

// An appointment that is there.

TEST_F(CompanionAppointmentLoad, AnAppointmentIsShownAsItsRowHoldsIt) {
    const int key = addAppointment();
    const frmFHAppt& form = openRow(key);
    EXPECT_EQ(form.lblClient->text(), "Client: Stone, Mary");
    EXPECT_EQ(form.txtdate->Date(), QDate(2026, 3, 12));
    EXPECT_EQ(form.txtstarttime->Time(), 540);
    EXPECT_EQ(form.txtduration->Value(), 45);
    EXPECT_EQ(form.cboProviders->Key(), Reed);
    EXPECT_EQ(form.cboChargetype->Key(), Session45);
    EXPECT_EQ(form.txtmemo->toPlainText(), "Bring forms");
    EXPECT_EQ(form.cbostatus->Text(), "Cancelled");
    EXPECT_FALSE(form.lblstatus->isVisible());
    EXPECT_FALSE(form.IsChanged());
}

TEST_F(CompanionAppointmentLoad, ATimeWithoutItsDayIsReadAlike) {
    const int key = addAppointment();
    run("Update ClientTransactions Set CtrnTime = '1899-12-30 14:45'");
    EXPECT_EQ(openRow(key).txtstarttime->Time(), 885);
}

TEST_F(CompanionAppointmentLoad, WhatIsNullIsShownEmpty) {
    const int key = addAppointment();
    run("Update ClientTransactions Set CtrnDate = Null, CtrnTime = Null, CtrnDuration = Null, TranId = Null, ProvId = Null, CtrnNotes = Null, appt_status = Null");
    const frmFHAppt& form = openRow(key);
    EXPECT_EQ(form.txtdate->Text(), "");
    EXPECT_EQ(form.txtstarttime->Text(), "");
    EXPECT_EQ(form.txtduration->Value(), 0);
    EXPECT_EQ(form.cboProviders->currentIndex(), -1);
    EXPECT_EQ(form.cboChargetype->currentIndex(), -1);
    EXPECT_EQ(form.txtmemo->toPlainText(), "");
    EXPECT_EQ(form.cbostatus->ListIndex(), -1);
}

TEST_F(CompanionAppointmentLoad, ADurationOfTwoThousandMinutesIsShown) {
    const int key = addAppointment();
    run("Update ClientTransactions Set CtrnDuration = 2000");
    EXPECT_EQ(openRow(key).txtduration->Value(), 2000);
}

TEST_F(CompanionAppointmentLoad, StatusesOutsideTheListSelectNone) {
    const int key = addAppointment();
    for (const int status : {0, 6, -1}) {
        run(db::Sql("Update ClientTransactions Set appt_status = {}", status));
        EXPECT_EQ(openRow(key).cbostatus->ListIndex(), -1) << status;
    }
}

TEST_F(CompanionAppointmentLoad, AProviderWhoIsNotOnTheListIsAdded) {
    const int key = addAppointment();
    run("Update ClientTransactions Set ProvId = 2");
    Session().AllProviders = false;
    EXPECT_EQ(openRow(key).cboProviders->currentText(), "Young, Bo");
}

TEST_F(CompanionAppointmentLoad, AChargeThatIsNotOnTheListIsNotAdded) {
    const int key = addAppointment();
    run("Update ClientTransactions Set TranId = 99");
    const frmFHAppt& form = openRow(key);
    EXPECT_EQ(form.cboChargetype->currentIndex(), -1);
    EXPECT_EQ(form.cboChargetype->count(), 3);
}

TEST_F(CompanionAppointmentLoad, AnAppointmentThatIsGoneLeavesTheFormBlankAndCannotBeSaved) {
    const int key = addAppointment();
    run("Delete From ClientTransactions");
    const frmFHAppt& form = openRow(key);
    EXPECT_EQ(form.txtdate->Text(), "");
    EXPECT_EQ(form.lblstatus->text(), "This appointment is no longer in Fernhall.");
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(CompanionAppointmentLoad, AnAppointmentThatHasBeenChargedSaysSoAndCannotBeSaved) {
    const int key = addAppointment();
    run("Update ClientTransactions Set CtrnStatus = 'C', RecurTranId = 5");
    const frmFHAppt& form = openRow(key);
    EXPECT_EQ(form.lblstatus->text(), NotModified.charged);
    EXPECT_FALSE(form.cmdOk->isEnabled());
    EXPECT_EQ(form.txtstarttime->Time(), 540);
}

TEST_F(CompanionAppointmentLoad, AnAppointmentOfASeriesSaysSoAndCannotBeSaved) {
    const int key = addAppointment();
    run("Update ClientTransactions Set RecurTranId = 5");
    const frmFHAppt& form = openRow(key);
    EXPECT_EQ(form.lblstatus->text(), NotModified.ofSeries);
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(CompanionAppointmentLoad, ACompanionWithoutTheSessionColumnIsRead) {
    dropSessionColumn();
    CompanionAppointmentRequest request{.CtrnKey = addAppointment(), .ClientName = {}, .date = {}};
    request.HasSVSessionCol = false;
    EXPECT_EQ(open(request).txtstarttime->Time(), 540);
}

// What cannot be read.

TEST_F(CompanionAppointmentLoad, ProvidersThatCannotBeReadAreToldAndTheRestIsLoaded) {
    const int key = addAppointment();
    const QString why = DropTable(companion.connection(), "Providers");
    desk.expectBox("Error loading Fernhall providers. " + why, "Error");
    desk.expectBox("Error retreiving provider in Fernhall. " + why, "Error");
    const frmFHAppt& form = openRow(key);
    EXPECT_EQ(form.cboProviders->currentText(), "(no name, 1)");
    EXPECT_EQ(form.cboChargetype->Key(), Session45);
}

TEST_F(CompanionAppointmentLoad, ChargesThatCannotBeReadAreTold) {
    const int key = addAppointment();
    desk.expectBox("Error loading Fernhall charge types. " + DropTable(companion.connection(), "TransactionCodes"),
                   "Error");
    EXPECT_EQ(openRow(key).txtmemo->toPlainText(), "Bring forms");
}

TEST_F(CompanionAppointmentLoad, AStandardChargeThatCannotBeReadIsTold) {
    desk.expectBox(
        "Error retreiving client's standard charge in Fernhall. " + DropTable(companion.connection(), "Clients"),
        "Error");
    EXPECT_EQ(openNew().lblstatus->text(), NoCharge);
}

TEST_F(CompanionAppointmentLoad, AnAppointmentThatCannotBeReadIsToldAndCannotBeWrittenOver) {
    const int key = addAppointment();
    desk.expectBox(
        "Error loading client appointment from Fernhall. " + DropTable(companion.connection(), "ClientTransactions"),
        "Error");
    EXPECT_FALSE(openRow(key).cmdOk->isEnabled());
}

TEST_F(CompanionAppointmentLoad, ACompanionThatCannotBeReachedIsToldOnceAndTheScheduledTimeStands) {
    Session().FHConnectionString = QStringLiteral("Data Source=/nowhere;Initial Catalog=gone");
    desk.expectBox(
        "Error loading Fernhall providers. Cannot open database \"gone\" requested by the login. The login failed.",
        "Error");
    const frmFHAppt& form = openNew();
    EXPECT_EQ(form.lblClient->text(), "Client: Stone, Mary");
    EXPECT_EQ(form.txtstarttime->Time(), 600);
}

TEST_F(CompanionAppointmentLoad, LoadingAsksTheCompanionAsFewTimesAsItsStatements) {
    const int key = addAppointment();
    // The login, three statements.
    EXPECT_TRUE(TakesAtMost(4, [&] { openRow(key); }));
}

// The status.

TEST_F(CompanionAppointmentForm, ArrivedShowsThePatientsAlertEachTimeItIsPicked) {
    addAlert("P1", "Check-In", "Co-payment is due");
    frmFHAppt& form = openRow(addAppointment());
    for (int time = 0; time < 2; ++time) {
        expectAlert("Co-payment is due");
        PickRow(*form.cbostatus, 3);
        EXPECT_EQ(form.cbostatus->Text(), "Arrived");
        PickRow(*form.cbostatus, 4);
        EXPECT_EQ(form.cbostatus->Text(), "Seen");
    }
}

TEST_F(CompanionAppointmentForm, ArrivedThatWasTypedShowsTheAlertWhenTheBoxIsLeft) {
    addAlert("P1", "Check-In", "Co-payment is due");
    frmFHAppt& form = openRow(addAppointment());
    typeStatus(form, "Arr");
    expectAlert("Co-payment is due");
    QTest::keyClick(form.cbostatus, Qt::Key_Tab);
    EXPECT_EQ(form.cbostatus->Text(), "Arrived");
}

TEST_F(CompanionAppointmentForm, ArrivedOfAClientWithoutAPatientShowsNothing) {
    addAlert("P1", "Check-In", "Co-payment is due");
    runMain("Update FHDataPairs Set FHDatabase = 'FH-2'");
    frmFHAppt& form = openRow(addAppointment());
    PickRow(*form.cbostatus, 3);
    EXPECT_EQ(form.cbostatus->Text(), "Arrived");
}

TEST_F(CompanionAppointmentForm, ArrivedOfAClientWhosePatientCannotBeLookedUpIsToldInTheBar) {
    const QString why = DropTable(main.connection(), "FHDataPairs");
    frmFHAppt& form = openRow(addAppointment());
    PickRow(*form.cbostatus, 3);
    EXPECT_EQ(bar.Texts(), QStringList{"Error reading patient alerts. " + why});
}

TEST_F(CompanionAppointmentForm, ArrivedOfANewAppointmentShowsBothAlerts) {
    addAlert("P1", "Check-In", "Co-payment is due");
    addAlert("P1", "Appointment", "Needs a referral");
    frmFHAppt& form = openNew();
    typeStatus(form, "Arr");
    expectAlert("Co-payment is due");
    expectAlert("Needs a referral");
    form.cmdOk->click();
    EXPECT_EQ(stored("appt_status"), "4");
}

TEST_F(CompanionAppointmentForm, ArrivedThatIsGivenUpByEscapeShowsNothing) {
    addAlert("P1", "Check-In", "Co-payment is due");
    frmFHAppt& form = openRow(addAppointment());
    typeStatus(form, "Arr");
    desk.expectBox("Close without saving what you have changed?", "Fernhall Appointment", Answer::Yes);
    QTest::keyClick(&form, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(CompanionAppointmentForm, AnAppointmentThatHasArrivedIsLoadedWithoutAnAlert) {
    addAlert("P1", "Check-In", "Co-payment is due");
    const int key = addAppointment();
    run("Update ClientTransactions Set appt_status = 4");
    EXPECT_EQ(openRow(key).cbostatus->Text(), "Arrived");
}

// What is checked before a save.

struct Missing {
    const char* message;
    std::function<void(frmFHAppt&)> make;
    std::function<QWidget*(frmFHAppt&)> field;
};

TEST_F(CompanionAppointmentForm, WhatIsMissingIsToldInOrderAndTheFocusGoesToTheField) {
    // Each row is the first fault of a form in which all that come after it are missing too.
    const Missing rows[] = {
        {"Enter a valid date.", [](frmFHAppt& form) { form.txtdate->setText("soon"); },
         [](frmFHAppt& form) { return form.txtdate; }},
        {"Enter a valid time.",
         [](frmFHAppt& form) {
             form.txtdate->setDate({2026, 3, 12});
         },
         [](frmFHAppt& form) { return form.txtstarttime; }},
        {"Enter a valid duration.", [](frmFHAppt& form) { form.txtstarttime->setTime(600); },
         [](frmFHAppt& form) { return form.txtduration; }},
        {"Enter a provider.", [](frmFHAppt& form) { form.txtduration->setValue(1); },
         [](frmFHAppt& form) { return form.cboProviders; }},
        {"Enter a charge type for the appointment.", [](frmFHAppt& form) { form.cboProviders->SelectKey(Reed); },
         [](frmFHAppt& form) { return form.cboChargetype; }},
    };
    frmFHAppt& form = open({.ClientId = Ian, .ClientName = "O'Brien, Ian", .date = {}, .start = -1});
    for (const Missing& row : rows) {
        row.make(form);
        desk.expectBox(row.message, "Solvane");
        form.cmdOk->click();
        EXPECT_EQ(QApplication::focusWidget(), row.field(form)) << row.message;
        EXPECT_TRUE(form.isVisible());
    }
    form.cboChargetype->SelectKey(Session45);
    form.cmdOk->click();
    EXPECT_EQ(appointments(), 1);
}

TEST_F(CompanionAppointmentForm, ADurationOfZeroOrBelowIsRefused) {
    frmFHAppt& form = openNew();
    for (const char* text : {"0", "-5", "", "ten"}) {
        form.txtduration->setText(text);
        desk.expectBox("Enter a valid duration.", "Solvane");
        form.cmdOk->click();
    }
    EXPECT_EQ(appointments(), 0);
}

TEST_F(CompanionAppointmentForm, ADurationOfTwoThousandMinutesIsTaken) {
    frmFHAppt& form = openNew();
    form.txtduration->setText("2000");
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnDuration"), "2000");
}

TEST_F(CompanionAppointmentForm, CancelClosesAtOnceAndWritesNothing) {
    frmFHAppt& form = openNew();
    form.txtmemo->setPlainText("typed");
    form.cmdCancel->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.IsWritten());
    EXPECT_EQ(appointments(), 0);
}

TEST_F(CompanionAppointmentForm, EscapeAsksBeforeWhatWasTypedIsLost) {
    frmFHAppt& form = openNew();
    form.txtmemo->setPlainText("typed");
    desk.expectBox("Close without saving what you have changed?", "Fernhall Appointment", Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.txtmemo->toPlainText(), "typed");
}

TEST_F(CompanionAppointmentForm, TheWheelOverAListChoosesNothing) {
    const frmFHAppt& form = openNew();
    const int before = form.cboChargetype->currentIndex();
    QWheelEvent wheel({5, 5}, form.cboChargetype->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(form.cboChargetype, &wheel);
    EXPECT_EQ(form.cboChargetype->currentIndex(), before);
}

}  // namespace
