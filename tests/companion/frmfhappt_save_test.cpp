#include <QPushButton>
#include <QTest>

#include "companion/frmfhappt.h"
#include "companion/keyedcombo.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/notefield.h"
#include "platform/database/recordset.h"
#include "session/session.h"
#include "tests/companion/editorfixture.h"

namespace {

const QString Boy = QString::fromUtf8("\xF0\x9F\xA7\x92");  // A character beyond sixteen bits.

using CompanionAppointmentInsert = CompanionEditorFixture;

TEST_F(CompanionAppointmentInsert, ANewAppointmentIsStoredWithEveryColumn) {
    frmFHAppt& form = openNew();
    form.cbostatus->SetListIndex(2);
    form.txtmemo->setPlainText("Bring forms");
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_TRUE(form.IsWritten());
    const db::Recordset row("Select * From ClientTransactions", companion.connection());
    ASSERT_EQ(row.RecordCount(), 1);
    EXPECT_EQ(row["CtrnId"].integer(), form.CtrnKey());
    EXPECT_EQ(row["ClntId"].integer(), Mary);
    EXPECT_EQ(row["TranId"].integer(), Session60);
    EXPECT_EQ(row["ProvId"].integer(), Reed);
    EXPECT_EQ(row["CtrnDate"].dateTime(), QDateTime({2026, 3, 12}, {0, 0}, Qt::UTC));
    EXPECT_EQ(row["CtrnTime"].dateTime(), QDateTime({2026, 3, 12}, {10, 0}, Qt::UTC));
    EXPECT_EQ(row["CtrnDuration"].integer(), 50);
    EXPECT_EQ(row["CtrnStatus"].text(), "S");
    EXPECT_EQ(row["CTRNDiagnosisPointer"].integer(), 1);
    EXPECT_EQ(row["CTRNDiagnosisPointerS"].text(), "A");
    EXPECT_FALSE(row["ClaimSubmStatus"].isNull());
    EXPECT_EQ(row["ClaimSubmStatus"].integer(), 0);
    EXPECT_EQ(row["isICDBlock12"].integer(), 1);
    EXPECT_EQ(row["CtrnNotes"].text(), "Bring forms");
    EXPECT_EQ(row["appt_status"].integer(), 3);
    for (const char* column : {"DateCreated", "LastModifiedDate"})
        EXPECT_EQ(row[column].dateTime(), Now()) << column;
    for (const char* column : {"UserIDCreated", "UserIdLastModified"})
        EXPECT_EQ(row[column].integer(), Reed) << column;
    EXPECT_TRUE(row["ProvIdAdditional"].isNull());
    EXPECT_TRUE(row["SVSessionID"].isNull());
}

TEST_F(CompanionAppointmentInsert, TheStatementHoldsTheDateTwiceInDifferentForms) {
    frmFHAppt& form = openNew();
    form.txtmemo->setPlainText("it's");
    const TripLog log;
    form.cmdOk->click();
    EXPECT_EQ(
        SentLike(log, "Insert Into"),
        "Insert Into ClientTransactions (ClntID, TranID, Provid, CtrnDate, CtrnTime,  CtrnDuration, CtrnStatus, CTRNDiagnosisPointer, CTRNDiagnosisPointerS, ClaimSubmStatus, isICDBlock12, CtrnNotes, DateCreated, UserIDCreated, LastModifiedDate, UserIdLastModified, appt_status) Values(1, 2, 1, '2026/03/12', '03/12/2026 10:00 AM', 50, 'S', 1, 'A', 0, 1, 'it''s', '03/11/2026 9:30:00 AM', 1, '03/11/2026 9:30:00 AM', 1, 0)");
}

TEST_F(CompanionAppointmentInsert, TheFieldsAreStoredAsTheyWereTyped) {
    frmFHAppt& form = openNew();
    form.txtdate->setText("4/1");
    form.txtstarttime->setText("1:05p");
    form.txtduration->setText("25");
    form.cboProviders->SelectKey(Young);
    form.cboChargetype->SelectKey(Session45);
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnTime"), "2026-04-01 13:05:00");
    EXPECT_EQ(stored("CtrnDuration"), "25");
    EXPECT_EQ(stored("ProvId"), "2");
    EXPECT_EQ(stored("TranId"), "1");
}

TEST_F(CompanionAppointmentInsert, ADayFirstDeskStoresTheDayThatItShows) {
    Session().DateOrder = 1;
    Session().MilitaryTime = true;
    frmFHAppt& form = openNew();
    form.txtdate->setText("05/04/2026");
    form.txtstarttime->setText("14:45");
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnDate"), "2026-04-05 00:00:00");
    EXPECT_EQ(stored("CtrnTime"), "2026-04-05 14:45:00");
}

TEST_F(CompanionAppointmentInsert, NoonAndTheMinuteBeforeOneAreStoredAsSuch) {
    frmFHAppt& noon = openNew();
    noon.txtstarttime->setText("noon");
    noon.cmdOk->click();
    EXPECT_EQ(stored("CtrnTime"), "2026-03-12 12:00:00");
    run("Delete From ClientTransactions");
    frmFHAppt& late = openNew();
    late.txtstarttime->setTime(779);
    late.cmdOk->click();
    EXPECT_EQ(stored("CtrnTime"), "2026-03-12 12:59:00");
}

TEST_F(CompanionAppointmentInsert, AnAppointmentAtMidnightIsSavedAndItsUserIsToldThatNoScheduleShowsIt) {
    for (const char* text : {"mid", "24:00"}) {
        frmFHAppt& form = openNew();
        form.txtstarttime->setText(text);
        form.cmdOk->click();
        EXPECT_EQ(form.result(), QDialog::Accepted);
        ASSERT_EQ(bar.Texts().size(), 1);
        EXPECT_TRUE(bar.Texts()[0].contains("the schedule shows no appointment that starts at midnight"));
        bar.Clear();
        EXPECT_EQ(stored("CtrnTime"), "2026-03-12 00:00:00");
        run("Delete From ClientTransactions");
    }
}

TEST_F(CompanionAppointmentInsert, AnEmptyMemoStaysNull) {
    openNew().cmdOk->click();
    EXPECT_EQ(companion.number("Select Count(*) From ClientTransactions Where CtrnNotes Is Null"), 1);
    EXPECT_EQ(stored("appt_status"), "0");
}

TEST_F(CompanionAppointmentInsert, AMemoWithQuotesAnEmojiAndSeparatorsIsKept) {
    frmFHAppt& form = openNew();
    QTest::keyClicks(form.txtmemo, "O'Brien's \"mum\"; '' | ");
    form.txtmemo->insertPlainText(Boy);
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnNotes"), "O'Brien's \"mum\"; '' | " + Boy);
}

TEST_F(CompanionAppointmentInsert, AMemoOfAHundredThousandCharactersIsKeptWhole) {
    const QString memo = QStringLiteral("it's long ").repeated(10'000);
    frmFHAppt& form = openNew();
    form.txtmemo->setPlainText(memo);
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnNotes"), memo);
}

TEST_F(CompanionAppointmentInsert, ThePatientsAlertIsShownAfterTheSave) {
    addAlert("P1", "Appointment", "Needs a referral");
    frmFHAppt& form = openNew();
    desk.expectForm("frmAlert", [this](QDialog& alert) {
        EXPECT_EQ(appointments(), 1);
        alert.accept();
    });
    form.cmdOk->click();
    EXPECT_TRUE(form.IsWritten());
}

TEST_F(CompanionAppointmentInsert, AClientWhoIsPairedOnlyInAnotherCompanionHasNoAlert) {
    addAlert("P1", "Appointment", "Needs a referral");
    runMain("Update FHDataPairs Set FHDatabase = 'FH-2'");
    openNew().cmdOk->click();
    EXPECT_EQ(appointments(), 1);
}

TEST_F(CompanionAppointmentInsert, AnUnpairedClientIsBooked) {
    CompanionAppointmentRequest request = newRequest();
    request.ClientId = Ian;
    frmFHAppt& form = open(request);
    form.cboChargetype->SelectKey(Session45);
    form.cmdOk->click();
    EXPECT_EQ(stored("ClntId"), "2");
}

TEST_F(CompanionAppointmentInsert, AUserWithoutAPairIsWrittenAsZero) {
    Session().FHProviderId = 0;
    openNew().cmdOk->click();
    EXPECT_EQ(stored("UserIDCreated"), "0");
}

TEST_F(CompanionAppointmentInsert, ACompanionWithoutTheSessionColumnTakesTheAppointment) {
    dropSessionColumn();
    CompanionAppointmentRequest request = newRequest();
    request.HasSVSessionCol = false;
    open(request).cmdOk->click();
    EXPECT_EQ(appointments(), 1);
}

TEST_F(CompanionAppointmentInsert, AFailedSaveIsToldAndTheFormStaysOpenWithWhatWasTyped) {
    addAlert("P1", "Appointment", "Needs a referral");
    frmFHAppt& form = openNew();
    form.txtmemo->setPlainText("typed");
    const QString why = companion.refuse("Insert", "ClientTransactions");
    for (int time = 0; time < 2; ++time) {
        desk.expectBox("Error saving appointment to Fernhall. Error " + why, "Error");
        form.cmdOk->click();
        EXPECT_TRUE(form.isVisible());
        EXPECT_FALSE(form.IsWritten());
        EXPECT_EQ(form.txtmemo->toPlainText(), "typed");
    }
    companion.allow("Insert", "ClientTransactions");
    expectAlert("Needs a referral");
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(appointments(), 1);
}

TEST_F(CompanionAppointmentInsert, ACompanionThatIsLostBeforeTheSaveIsTold) {
    frmFHAppt& form = openNew();
    const QString text = Session().FHConnectionString;
    Session().FHConnectionString = QStringLiteral("Data Source=/nowhere;Initial Catalog=gone");
    desk.expectBox(
        "Error saving appointment to Fernhall. Error Cannot open database \"gone\" requested by the login. The login failed.",
        "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
    Session().FHConnectionString = text;
    form.cmdOk->click();
    EXPECT_EQ(appointments(), 1);
}

}  // namespace
