// The wait list's offers while other desks work, and while the database does not.

#include "appointments/appointmentdelete.h"
#include "appointments/appointmentwrites.h"
#include "appointments/frmwait.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/noticebar.h"
#include "tests/views/waitfixture.h"

TEST_F(WaitOffers, AnotherDesksCancellationIsSeenWhenTheViewIsReadAgain) {
    waits("J", 50);
    start();
    otherDeskSets(anna, QStringLiteral("ncolor = 193"));
    EXPECT_EQ(offered(), "-");
    view_->Reload();
    EXPECT_EQ(offered(), "Jones");
}

TEST_F(WaitOffers, AnotherDesksDeletionOfAnActivityOfSeveralIsOfferedInTheSchedulesOfThoseWhoAttended) {
    waits("J", 50);
    const qint64 meeting = add(anAppointment("Meeting").at(13, 0).until(14, 0).of("~EVT").status(ncolor::Activity));
    for (const char* who : {"REED", "LANE"})
        run(db::Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values({}, '{}')", meeting, who));
    start();
    view_->Reload();
    EXPECT_EQ(offered(), "-");
    otherDesk(db::Sql("Delete From appointmentsevents Where nkeyid = {}", meeting));
    otherDesk(db::Sql("Delete From appointments Where nkeyid = {}", meeting));
    view_->Reload();
    EXPECT_EQ(offered(), "Jones");
    EXPECT_EQ(bar_->lstoffers->Cell(0, 2), "Reed");
}

TEST_F(WaitOffers, AnHourThatAnotherDeskHasTakenIsOfferedNoMore) {
    NoticeBar notices;
    waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Jones");
    otherDesk(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Values('2026/03/11', 600, 650, 'Cora', 16711681, 'REED')");
    press(Qt::Key_Return);
    EXPECT_EQ(notices.Texts(),
              QStringList("This time or this entry of the wait list is not free any more. Another user may have been "
                          "quicker."));
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, WhoWasBookedByAnotherDeskMeanwhileIsAskedAbout) {
    const int jones = waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    const QString question =
        "Another user has booked or closed this entry of the wait list in the meantime. Book the appointment all the same?";
    desk.expectForm("frmnore", [&](QDialog& form) {
        otherDesk("Update WaitList Set Closed = 1, nkeyid = 77");
        desk.expectBox(question, "New Appointment", Answer::No);
        theEditor(form).cmdOk->click();
        EXPECT_EQ(database_.number("Select Count(*) from appointments Where patientid = 'J'"), 0);
        desk.expectBox(question, "New Appointment", Answer::Yes);
        theEditor(form).cmdOk->click();
    });
    press(Qt::Key_Return);
    EXPECT_EQ(database_.number("Select Count(*) from appointments Where patientid = 'J'"), 1);
    EXPECT_EQ(entry(jones), "1 77");
}

TEST_F(WaitOffers, AnEntryStaysOpenWhenAnotherPatientIsBookedInstead) {
    const int jones = waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    desk.expectForm("frmnore", [&](QDialog& form) {
        frmnore& editor = theEditor(form);
        editor.txtpatients->setText(QStringLiteral("Miller, Eva"));
        editor.SetPatientTag(QStringLiteral("M"));
        otherDesk("Update WaitList Set Closed = 1");  // Which is nobody's concern any more, so that nothing is asked.
        editor.cmdOk->click();
    });
    press(Qt::Key_Return);
    EXPECT_EQ(database_.number("Select Count(*) from appointments Where patientid = 'M'"), 1);
    EXPECT_EQ(entry(jones), "1 ") << "It is not closed with the other patient's appointment.";
}

TEST_F(WaitOffers, AnHourThatCouldNotBeReadIsOfferedWhenItCanBeReadAgain) {
    NoticeBar notices;
    waits("J", 50);
    const qint64 meeting = add(anAppointment("Meeting").at(13, 0).until(14, 0).of("~EVT").status(ncolor::Activity));
    run(db::Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values({}, 'REED')", meeting));
    Session().ConnectionString = database_.connectionText();
    start();
    EXPECT_TRUE(SetApptStatus(static_cast<int>(anna), ncolor::PatientCancelled).IsDone());
    EXPECT_TRUE(DeleteActivity(static_cast<int>(meeting)).IsDone());
    Session().Connection.Close();
    EXPECT_EQ(offered(), "-");
    EXPECT_TRUE(notices.Texts().join(u' ').contains("The wait list could not be read.")) << "It is told.";

    Session().Connection.Open(database_.connectionText());
    RecheckOffers();
    EXPECT_EQ(offered(), "Jones Jones");
    EXPECT_EQ(notices.Texts(), QStringList());

    Session().Connection.Close();
    RecheckOffers();
    EXPECT_EQ(offered(), "-");
    Session().Connection.Open(database_.connectionText());
    RecheckOffers();
    EXPECT_EQ(offered(), "Jones Jones");
}

TEST_F(WaitOffers, AnotherDatabaseHasNothingOfTheTimesOfTheOneBefore) {
    waits("J", 50);
    Session().ConnectionString = QStringLiteral("the one before");
    start();
    EXPECT_TRUE(HasWaitList());
    EXPECT_TRUE(SetApptStatus(static_cast<int>(anna), ncolor::PatientCancelled).IsDone());
    bar_->Forget();
    EXPECT_EQ(offered(), "-");
    run("Drop Table WaitList");
    bar_->Forget();
    EXPECT_FALSE(HasWaitList());
}

TEST_F(WaitOffers, AnEntryThatCannotBeClosedBooksNothing) {
    waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    desk.expectForm("frmnore", [this](QDialog& form) { theEditor(form).cmdOk->click(); });
    desk.expectBox("Error saving wait list. " + database_.refuse("Update", "WaitList"), "Error");
    press(Qt::Key_Return);
    EXPECT_EQ(database_.number("Select Count(*) from appointments Where patientid = 'J'"), 0);
    EXPECT_EQ(database_.number("Select Count(*) from WaitList Where Closed = 0"), 1);
}
