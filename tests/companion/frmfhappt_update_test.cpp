#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include "companion/companionrefusals.h"
#include "companion/frmfhappt.h"
#include "companion/keyedcombo.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/notefield.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/companion/editorfixture.h"

namespace {

const QString Boy = QString::fromUtf8("\xF0\x9F\xA7\x92");  // A character beyond sixteen bits.

using CompanionAppointmentUpdate = CompanionEditorFixture;

TEST_F(CompanionAppointmentUpdate, AnEditIsStoredAndTouchesNothingElse) {
    const int key = addAppointment();
    run("Update ClientTransactions Set RecurTranId = 0, CtrnCallStatus = 'LM', ProvIdAdditional = 2");
    frmFHAppt& form = openRow(key);
    form.txtdate->setDate({2026, 3, 13});
    form.txtstarttime->setTime(825);
    form.txtduration->setValue(30);
    form.cboChargetype->SelectKey(Session60);
    form.cbostatus->SetListIndex(4);
    form.txtmemo->setPlainText("Moved");
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_TRUE(form.IsWritten());
    EXPECT_EQ(form.CtrnKey(), key);
    EXPECT_EQ(stored("CtrnDate"), "2026-03-13 00:00:00");
    EXPECT_EQ(stored("CtrnTime"), "2026-03-13 13:45:00");
    EXPECT_EQ(stored("CtrnDuration"), "30");
    EXPECT_EQ(stored("TranId"), "2");
    EXPECT_EQ(stored("appt_status"), "5");
    EXPECT_EQ(stored("CtrnNotes"), "Moved");
    EXPECT_EQ(stored("LastModifiedDate"), "2026-03-11 09:30:00");
    EXPECT_EQ(stored("UserIdLastModified"), "1");
    EXPECT_EQ(stored("ClntId"), "1");
    EXPECT_EQ(stored("CtrnStatus"), "S");
    EXPECT_EQ(stored("CtrnCallStatus"), "LM");
    EXPECT_EQ(stored("ProvIdAdditional"), "2");
    EXPECT_EQ(stored("DateCreated"), "");
}

TEST_F(CompanionAppointmentUpdate, TheStatementIsTheOneThatTheCompanionExpects) {
    const int key = addAppointment();
    frmFHAppt& form = openRow(key);
    form.txtmemo->setPlainText("it's");
    const TripLog log;
    form.cmdOk->click();
    EXPECT_EQ(
        SentLike(log, "Update ClientTransactions"),
        QStringLiteral(
            "Update ClientTransactions Set TranID = 1, CtrnDate = '2026/03/12', CtrnTime = '03/12/2026 9:00 AM', CTRNDuration = 45, CTRNNotes = 'it''s', LastModifiedDate = '03/11/2026 9:30:00 AM', UserIdLastModified = '1', appt_status = 2 Where CtrnId = %1")
            .arg(key));
}

TEST_F(CompanionAppointmentUpdate, AnEmptiedMemoBecomesNull) {
    frmFHAppt& form = openRow(addAppointment());
    form.txtmemo->clear();
    const TripLog log;
    form.cmdOk->click();
    EXPECT_TRUE(SentLike(log, "Update ClientTransactions").contains("CTRNNotes = NUll, LastModifiedDate"));
    EXPECT_EQ(companion.number("Select Count(*) From ClientTransactions Where CtrnNotes Is Null"), 1);
}

TEST_F(CompanionAppointmentUpdate, AMemoThatWasOnlyShownKeepsItsLineEnds) {
    const int key = addAppointment();
    run("Update ClientTransactions Set CtrnNotes = 'one" + QStringLiteral("\n") + "two'");
    frmFHAppt& form = openRow(key);
    form.txtduration->setValue(60);
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnNotes"), "one\ntwo");
}

TEST_F(CompanionAppointmentUpdate, AMemoWithQuotesAnEmojiAndAHundredThousandCharactersIsKept) {
    const QString memo = QStringLiteral("it's \"long\" ").repeated(10'000) + Boy;
    frmFHAppt& form = openRow(addAppointment());
    form.txtmemo->setPlainText(memo);
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnNotes"), memo);
}

TEST_F(CompanionAppointmentUpdate, AChangedProviderIsNeverSavedAndTheUserIsToldSo) {
    frmFHAppt& form = openRow(addAppointment());
    form.cboProviders->SelectKey(Young);
    form.txtduration->setValue(60);
    form.cmdOk->click();
    EXPECT_EQ(stored("ProvId"), "1");
    EXPECT_EQ(stored("CtrnDuration"), "60");
    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "The Fernhall appointment on 03/12/2026 at 9:00 AM keeps its provider. Move it to another provider in the schedule or in Fernhall."});
}

TEST_F(CompanionAppointmentUpdate, NoStatusLoadsAsNoneAndIsWrittenAsZero) {
    const int key = addAppointment();
    for (const char* status : {"0", "Null", "7"}) {
        run(db::Sql("Update ClientTransactions Set appt_status = {}", db::Raw{QString::fromLatin1(status)}));
        frmFHAppt& form = openRow(key);
        EXPECT_EQ(form.cbostatus->ListIndex(), -1);
        form.cmdOk->click();
        EXPECT_EQ(stored("appt_status"), "0") << status;
    }
}

TEST_F(CompanionAppointmentUpdate, ARowWithoutATimeGetsTheOneThatIsTyped) {
    const int key = addAppointment();
    run("Update ClientTransactions Set CtrnTime = Null, CtrnDate = Null");
    frmFHAppt& form = openRow(key);
    desk.expectBox("Enter a valid date.", "Solvane");
    form.cmdOk->click();
    form.txtdate->setDate({2026, 3, 12});
    desk.expectBox("Enter a valid time.", "Solvane");
    form.cmdOk->click();
    form.txtstarttime->setText("9:30 am");
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnTime"), "2026-03-12 09:30:00");
}

TEST_F(CompanionAppointmentUpdate, AnEditShowsNoAlertOfANewAppointment) {
    addAlert("P1", "Appointment", "Needs a referral");
    openRow(addAppointment()).cmdOk->click();
    EXPECT_EQ(stored("LastModifiedDate"), "2026-03-11 09:30:00");
}

// The note of the appointment.

class CompanionAppointmentNote : public CompanionEditorFixture {
  protected:
    int addLinked(int session = 5) {
        const int key = addAppointment();
        run(db::Sql("Update ClientTransactions Set SVSessionID = {}", session));
        return key;
    }
    void expectWarning(const QString& changes) {
        desk.expectBox(
            QStringLiteral("This appointment has a corresponding note in Solvane.\n\nThe change(s) you made to the ") +
                changes + QStringLiteral(" will not be reflected in the note."),
            "Solvane-Fernhall");
    }
};

TEST_F(CompanionAppointmentNote, ChangingOnlyTheProviderWarnsAndSavesEverythingElse) {
    frmFHAppt& form = openRow(addLinked());
    form.cboProviders->SelectKey(Young);
    expectWarning("Provider");
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored("ProvId"), "1");
    EXPECT_EQ(stored("LastModifiedDate"), "2026-03-11 09:30:00");
    EXPECT_EQ(stored("SVSessionID"), "5");
}

TEST_F(CompanionAppointmentNote, TheChangesAreNamedInTheirOrder) {
    frmFHAppt& form = openRow(addLinked());
    form.cboProviders->SelectKey(Young);
    form.cboChargetype->SelectKey(Session60);
    form.txtdate->setDate({2026, 3, 13});
    expectWarning("Date, Service Code, Provider");
    form.cmdOk->click();
    EXPECT_EQ(stored("TranId"), "2");
}

TEST_F(CompanionAppointmentNote, OtherChangesWarnOfNothing) {
    frmFHAppt& form = openRow(addLinked());
    form.txtstarttime->setTime(600);
    form.txtduration->setValue(60);
    form.txtmemo->setPlainText("x");
    form.cmdOk->click();
    EXPECT_EQ(stored("CtrnDuration"), "60");
}

TEST_F(CompanionAppointmentNote, WithoutANoteNothingIsWarnedOf) {
    const int key = addAppointment();
    for (const char* session : {"Null", "0", "-1"}) {
        run(db::Sql("Update ClientTransactions Set SVSessionID = {}, TranId = 1",
                    db::Raw{QString::fromLatin1(session)}));
        frmFHAppt& form = openRow(key);
        form.cboChargetype->SelectKey(Session60);
        form.cmdOk->click();
        EXPECT_EQ(stored("TranId"), "2") << session;
    }
}

TEST_F(CompanionAppointmentNote, ACompanionThatCannotLinkNotesWarnsOfNothing) {
    CompanionAppointmentRequest request{.CtrnKey = addLinked(), .ClientName = {}, .date = {}};
    request.HasSVSessionCol = false;
    frmFHAppt& form = open(request);
    form.cboChargetype->SelectKey(Session60);
    form.cmdOk->click();
    EXPECT_EQ(stored("TranId"), "2");
}

TEST_F(CompanionAppointmentNote, AFaultInTheFieldsIsToldBeforeTheNote) {
    frmFHAppt& form = openRow(addLinked());
    form.txtdate->setText("");
    desk.expectBox("Enter a valid date.", "Solvane");
    form.cmdOk->click();
}

// What the companion program does meanwhile.

class CompanionAppointmentMeanwhile : public CompanionEditorFixture {
  protected:
    CompanionAppointmentMeanwhile() : form(openRow(addAppointment())) {}

    void save() {
        form.cmdOk->click();
        EXPECT_EQ(form.result(), QDialog::Accepted);
    }
    void expectRefused(const char* text) {
        form.txtmemo->setPlainText("typed");
        for (int time = 0; time < 2; ++time) {
            desk.expectBox(text, "Solvane");
            form.cmdOk->click();
            EXPECT_TRUE(form.isVisible());
            EXPECT_FALSE(form.IsWritten());
        }
        EXPECT_EQ(form.txtmemo->toPlainText(), "typed");
        EXPECT_EQ(stored("CtrnNotes"), "Bring forms");
        EXPECT_EQ(bar.Texts(), QStringList());
    }
    /// The bar has this notice alone.
    void expectNotice(const QString& text) { EXPECT_EQ(bar.Texts(), QStringList{text}); }

    frmFHAppt& form;
};

TEST_F(CompanionAppointmentMeanwhile, ARowThatWasDeletedClosesTheFormAndIsToldInTheBar) {
    run("Delete From ClientTransactions");
    form.txtmemo->setPlainText("x");
    save();
    EXPECT_EQ(appointments(), 0);
    expectNotice(
        "The Fernhall appointment on 03/12/2026 at 9:00 AM was deleted in Fernhall meanwhile. Nothing was saved.");
}

TEST_F(CompanionAppointmentMeanwhile, ARowThatWasChargedIsLeftAloneAndTheFormStaysOpenWithWhatWasTyped) {
    run("Update ClientTransactions Set CtrnStatus = 'C'");
    expectRefused(NotModified.charged);
}

TEST_F(CompanionAppointmentMeanwhile, ARowThatJoinedASeriesIsLeftAloneAndTheFormStaysOpenWithWhatWasTyped) {
    run("Update ClientTransactions Set RecurTranId = 5");
    expectRefused(NotModified.ofSeries);
    run("Update ClientTransactions Set RecurTranId = 0");
    save();
    EXPECT_EQ(stored("CtrnNotes"), "typed");
}

TEST_F(CompanionAppointmentMeanwhile, TheRowIsHeldFromTheLookAtItToTheWrite) {
    const TripLog log;
    form.cmdOk->click();
    const qsizetype held = log.sent().indexOf(QRegularExpression("^Select .* With \\(UpdLock\\) .*"));
    const qsizetype written = log.sent().indexOf(QRegularExpression("^Update ClientTransactions.*"));
    EXPECT_LE(0, log.sent().indexOf("(begin)"));
    EXPECT_LT(log.sent().indexOf("(begin)"), held);
    EXPECT_LT(held, written);
    EXPECT_LT(written, log.sent().indexOf("(commit)"));
}

TEST_F(CompanionAppointmentMeanwhile, WhatTheUserLeftAloneKeepsTheCompanionsChangeAndIsTold) {
    run("Update ClientTransactions Set CtrnDate = '2026/03/13', CtrnTime = '2026-03-13 11:00', CtrnDuration = 90, TranId = 2, appt_status = 5, CtrnNotes = 'theirs'");
    form.txtduration->setValue(30);
    save();
    EXPECT_EQ(stored("CtrnTime"), "2026-03-13 11:00:00");
    EXPECT_EQ(stored("CtrnDuration"), "30");
    EXPECT_EQ(stored("TranId"), "2");
    EXPECT_EQ(stored("appt_status"), "5");
    EXPECT_EQ(stored("CtrnNotes"), "theirs");
    expectNotice(
        "The Fernhall appointment on 03/12/2026 at 9:00 AM was changed in Fernhall meanwhile. Kept from there: date, start time, charge type, status, memo. Replaced by yours: duration.");
}

TEST_F(CompanionAppointmentMeanwhile, ADayOfTheirsAndATimeOfOursAreNotMixed) {
    run("Update ClientTransactions Set CtrnDate = '2026/03/13', CtrnTime = '2026-03-13 11:00'");
    form.txtstarttime->setTime(600);
    save();
    EXPECT_EQ(stored("CtrnDate"), "2026-03-12 00:00:00");
    EXPECT_EQ(stored("CtrnTime"), "2026-03-12 10:00:00");
    expectNotice(
        "The Fernhall appointment on 03/12/2026 at 10:00 AM was changed in Fernhall meanwhile. Replaced by yours: date, start time.");
}

TEST_F(CompanionAppointmentMeanwhile, ADayOfOursAndATimeOfTheirsAreNotMixed) {
    run("Update ClientTransactions Set CtrnTime = '2026-03-12 11:00'");
    form.txtdate->setDate({2026, 3, 13});
    save();
    EXPECT_EQ(stored("CtrnDate"), "2026-03-13 00:00:00");
    EXPECT_EQ(stored("CtrnTime"), "2026-03-13 09:00:00");
    expectNotice(
        "The Fernhall appointment on 03/13/2026 at 9:00 AM was changed in Fernhall meanwhile. Replaced by yours: start time.");
}

TEST_F(CompanionAppointmentMeanwhile, TheSamePlaceFromBothTellsNothing) {
    run("Update ClientTransactions Set CtrnDate = '2026/03/13', CtrnTime = '2026-03-13 10:00'");
    form.txtdate->setDate({2026, 3, 13});
    form.txtstarttime->setTime(600);
    save();
    EXPECT_EQ(stored("CtrnTime"), "2026-03-13 10:00:00");
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(CompanionAppointmentMeanwhile, ARowThatLostWhatEveryAppointmentNeedsGetsItFromTheForm) {
    run("Update ClientTransactions Set CtrnDate = Null, CtrnTime = Null, CtrnDuration = 0, TranId = Null");
    form.txtmemo->setPlainText("x");
    save();
    EXPECT_EQ(stored("CtrnDate"), "2026-03-12 00:00:00");
    EXPECT_EQ(stored("CtrnTime"), "2026-03-12 09:00:00");
    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "The Fernhall appointment on 03/12/2026 at 9:00 AM was changed in Fernhall meanwhile. Replaced by yours: date, start time, duration, charge type."});
    EXPECT_EQ(stored("CtrnDuration"), "45");
    EXPECT_EQ(stored("TranId"), "1");
}

TEST_F(CompanionAppointmentMeanwhile, ASaveWithoutOtherChangesTellsNothing) {
    form.txtmemo->setPlainText("x");
    save();
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(CompanionAppointmentMeanwhile, AProviderWhoWasUnpairedMeanwhileChangesNothing) {
    runMain("Delete From FHDataPairs");
    form.cbostatus->SetListIndex(3);
    save();
    EXPECT_EQ(stored("appt_status"), "4");
}

TEST_F(CompanionAppointmentMeanwhile, AFailedUpdateIsToldAndTheFormStaysOpenWithWhatWasTyped) {
    const QString why = companion.refuse("Update", "ClientTransactions");
    form.txtmemo->setPlainText("typed");
    for (int time = 0; time < 2; ++time) {
        desk.expectBox("Error updating appointment in Fernhall. Error " + why, "Error");
        form.cmdOk->click();
        EXPECT_TRUE(form.isVisible());
        EXPECT_FALSE(form.IsWritten());
        EXPECT_EQ(form.txtmemo->toPlainText(), "typed");
    }
    companion.allow("Update", "ClientTransactions");
    save();
    EXPECT_EQ(stored("CtrnNotes"), "typed");
}

TEST_F(CompanionAppointmentMeanwhile, ARowThatCannotBeReadAgainIsToldAndTheFormStaysOpen) {
    desk.expectBox(
        "Error updating appointment in Fernhall. Error " + DropTable(companion.connection(), "ClientTransactions"),
        "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
}

TEST_F(CompanionAppointmentMeanwhile, ACompanionThatIsLostIsTold) {
    Session().FHConnectionString = QStringLiteral("Data Source=/nowhere;Initial Catalog=gone");
    desk.expectBox(
        "Error updating appointment in Fernhall. Error Cannot open database \"gone\" requested by the login. The login failed.",
        "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
}

}  // namespace
