#include "appointments/waitbar.h"

#include <initializer_list>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "appointments/appointmentdelete.h"
#include "appointments/appointmentwrites.h"
#include "appointments/frmnore.h"
#include "appointments/frmwait.h"
#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/noticebar.h"
#include "platform/database/sql.h"
#include "session/hiddennames.h"
#include "tests/support/triplog.h"
#include "tests/views/waitfixture.h"
#include "views/frmall.h"
#include "views/frmweekv.h"

namespace {

class WaitOffersInWeek : public WaitOffers {
  protected:
    WaitOffersInWeek() { Session().CurrentView = View::Week; }
    std::unique_ptr<CalendarView> makeView() override { return std::make_unique<frmweekv>(main); }
};

class WaitOffersInAll : public WaitOffers {
  protected:
    WaitOffersInAll() {
        Session().CurrentView = View::AllProviders;
        Session().AllProviders = true;
    }
    std::unique_ptr<CalendarView> makeView() override { return std::make_unique<frmall>(main); }
};

}  // namespace

TEST_F(WaitOffers, ACancelledHourIsOfferedToWhoFitsInTheOrderOfWaiting) {
    waits("N", 50);
    waits("J", 45);
    waits("M", 50, ", Days", ", 2");
    start();
    EXPECT_EQ(offered(), "-");

    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Novak Jones");
    EXPECT_EQ(bar_->lbloffers->text(),
              "Wed, Mar 11, 10:00 AM - 10:50 AM with Reed is free. 2 patients on the wait list fit.");
    EXPECT_EQ(bar_->lstoffers->Cell(0, 4), "50 minutes");
}

TEST_F(WaitOffers, ATherapistsCancellationADeletionAMoveAndAShorterVisitFreeTimeToo) {
    waits("J", 20);
    start();
    choose("Anna", "mnuATCancel");
    EXPECT_EQ(offered(), "Jones");
    bar_->Clear();

    const qint64 bert = add(patientRow("Bert", "P8").at(13, 0).until(13, 50));
    view_->Reload();
    remove("Bert");
    EXPECT_EQ(offered(), "Jones");
    EXPECT_EQ(stored(bert, "nkeyid"), "(none)");
    bar_->Clear();

    add(patientRow("Cora", "P7").at(14, 0).until(14, 50));
    view_->Reload();
    moveTo("Cora", 960);
    EXPECT_EQ(offered(), "Jones");
    EXPECT_TRUE(bar_->lstoffers->Cell(0, 1).contains("2:00 PM - 2:20 PM"));
    bar_->Clear();

    sizeTo("Cora", 990);
    EXPECT_EQ(offered(), "Jones");
    EXPECT_TRUE(bar_->lstoffers->Cell(0, 1).contains("4:30 PM - 4:50 PM")) << bar_->lstoffers->Cell(0, 1).toStdString();
}

TEST_F(WaitOffers, NothingIsOfferedForOtherStatusesAndTexts) {
    waits("J", 20);
    start();
    choose("Anna", "mnuAMissed");
    EXPECT_EQ(offered(), "-");
    choose("Anna", "mnuAKept");
    EXPECT_EQ(offered(), "-");
    add(anAppointment("Meeting").at(13, 0).until(14, 0).status(ncolor::Activity));
    view_->Reload();
    type("Meeting", "Long meeting");
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, AnAppointmentThatTakesPlaceAfterAllTakesTheBarAway) {
    waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Jones");
    choose("Anna", "mnuAKept");
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, AnAppointmentThatIsPendingAgainTakesTheBarAway) {
    waits("J", 50);
    start();
    choose("Anna", "mnuATCancel");
    EXPECT_EQ(offered(), "Jones");
    EXPECT_TRUE(SetApptStatus(static_cast<int>(anna), ncolor::Pending).IsDone());
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, AnArchivedProviderHasNoHourToOffer) {
    waits("J", 50);
    run("Update provider_info Set archive = 1 Where id = 'REED'");
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, TheScreenReaderHearsAnAlertThatNamesNobody) {
    waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    const QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(bar_.get());
    EXPECT_EQ(bar->role(), QAccessible::AlertMessage);
    EXPECT_EQ(bar->text(QAccessible::Name),
              "Wed, Mar 11, 10:00 AM - 10:50 AM with Reed is free. 1 patient on the wait list fits.");
    for (QWidget* part : std::initializer_list<QWidget*>{bar_->lstoffers, bar_->cmdbook, bar_->cmdcloseoffers})
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(part)->text(QAccessible::Name).isEmpty());
}

TEST_F(WaitOffers, OnlyWhatMayFreeAnHourCostsAFurtherTrip) {
    start();
    choose("Anna", "mnuAMissed");
    select("Anna");
    EXPECT_TRUE(TakesAtMost(3, [&] { choose("Anna", "mnuAKept"); }));
    EXPECT_TRUE(TakesAtMost(3 + 3, [&] { choose("Anna", "mnuAPCancel"); }))
        << "the row before, whether there is a list, and the list, on which nobody waits";
}

TEST_F(WaitOffers, WhatIsLeftOfAPartlyTakenHourIsOffered) {
    waits("J", 50);
    waits("M", 20);
    add(patientRow("Cora", "P7").at(10, 0).until(10, 30));
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', 4, 540, 650)");
    run("Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Values('2026/03/11', 650, 700, 'Lunch', 16744703, 'REED')");
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Miller");
    EXPECT_TRUE(bar_->lstoffers->Cell(0, 1).contains("10:30 AM - 10:50 AM"));
}

TEST_F(WaitOffers, APastHourIsOfferedToNobodyAndTheRestOfThisOneIs) {
    waits("J", 20);
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 28)));
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', 4, 540, 650)");
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Jones");
    EXPECT_TRUE(bar_->lstoffers->Cell(0, 1).contains("10:30 AM - 10:50 AM"));
    bar_->Clear();
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 50)));
    choose("Anna", "mnuATCancel");
    remove("Anna");
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, WhoCannotComeIsNotOffered) {
    waits("J", 20, ", ValidUntil", ", '2026/03/10'");
    waits("M", 20, ", Providers", ", 'LANE'");
    waits("N", 20, ", Closed", ", 1");
    waits("X", 20);
    waits("P9", 20);
    person("Quinn");
    run("Update patient_info Set archive = 1 Where id = 'Q'");
    waits("Q", 20);
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, WhoHasAnotherVisitThenIsNotOffered) {
    waits("J", 50);
    waits("M", 50);
    waits("N", 50);
    add(patientRow("Jones", "J").at(10, 15).until(11, 0).of("LANE"));
    const qint64 group = add(anAppointment("Grief").at(10, 0).until(11, 0).of("LANE").status(ncolor::Group));
    run(QStringLiteral("Insert Into AppointmentsGroup (nKeyId, PatientId) Values(%1, 'M')").arg(group));
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Novak");
}

TEST_F(WaitOffers, WhoseGroupSessionIsCancelledThenIsOffered) {
    waits("J", 50);
    waits("M", 50);
    const auto inGroup = [this](const char* patient, int code) {
        const qint64 group = add(anAppointment("Grief").at(10, 0).until(11, 0).of("LANE").status(code));
        run(db::Sql("Insert Into AppointmentsGroup (nKeyId, PatientId) Values({}, '{}')", group, patient));
    };
    inGroup("J", ncolor::TherapistCancelled);
    inGroup("M", ncolor::PatientCancelled);
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Jones Miller");
}

TEST_F(WaitOffers, AnActivityThatTheProviderAttendsTakesItsTime) {
    waits("J", 50);
    const qint64 meeting = add(anAppointment("Meeting").at(10, 30).until(11, 0).of("~EVT").status(ncolor::Activity));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'REED')").arg(meeting));
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', 4, 600, 660)");
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, EnterBooksWhoIsMarkedAndClosesTheEntry) {
    waits("N", 50);
    const int jones = waits("J", 45);
    start();
    choose("Anna", "mnuAPCancel");
    desk.expectForm("frmnore", [&](QDialog& form) {
        frmnore& editor = theEditor(form);
        EXPECT_EQ(editor.txtpatients->text(), "Jones, Eva");
        EXPECT_EQ(editor.PatientTag(), "J");
        EXPECT_EQ(editor.ctedate->Date(), QDate(2026, 3, 11));
        EXPECT_EQ(editor.ctstart->Time(), 600);
        EXPECT_EQ(editor.ctend->Time(), 645);
        EXPECT_EQ(editor.Request().provider.id, "REED");
        editor.cmdOk->click();
    });
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    const QString key = database_.text("Select nkeyid from appointments Where patientid = 'J'");
    EXPECT_NE(key, "(none)");
    EXPECT_EQ(entry(jones), "1 " + key);
    EXPECT_EQ(offered(), "-") << "Ten to a quarter to eleven is taken, and nobody waits for the rest.";
}

TEST_F(WaitOffers, AClickBooksAndGivingTheEditorUpLeavesTheOffer) {
    const int jones = waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    bar_->resize(900, bar_->sizeHint().height());
    look();
    desk.expectForm("frmnore", [](QDialog& form) { form.reject(); });
    QTest::mouseClick(bar_->lstoffers->viewport(), Qt::LeftButton, {},
                      bar_->lstoffers->visualRect(bar_->lstoffers->model()->index(0, 0)).center());
    look();
    EXPECT_EQ(offered(), "Jones");
    EXPECT_EQ(entry(jones), "0 ");
    desk.expectForm("frmnore", [this](QDialog& form) { theEditor(form).cmdOk->click(); });
    bar_->cmdbook->click();
    look();
    EXPECT_EQ(database_.number("Select Count(*) from appointments Where patientid = 'J'"), 1);
}

TEST_F(WaitOffers, EscapeClosesTheBarAndTheFreeCellAsksAgain) {
    waits("J", 45);
    start();
    choose("Anna", "mnuAPCancel");
    press(Qt::Key_Escape);
    EXPECT_EQ(offered(), "-");
    view_->Reload();
    EXPECT_EQ(offered(), "-") << "The hour was offered already.";

    remove("Anna");
    EXPECT_EQ(offered(), "-") << "It was free before.";
    calendar().selectRange(1, 600, 615);
    auto* ask = view_->findChild<QAction*>(QStringLiteral("mnuAWaitHour"));
    EXPECT_EQ(view_->findChild<QMenu*>(QStringLiteral("popupNew"))->actions().last(), ask);
    ask->trigger();
    EXPECT_EQ(offered(), "Jones");
    EXPECT_TRUE(bar_->lstoffers->Cell(0, 1).contains("10:00 AM - 10:45 AM"));
}

TEST_F(WaitOffers, AFreeCellForWhichNobodyWaitsSaysSo) {
    NoticeBar notices;
    start();
    calendar().selectRange(1, 840, 855);
    view_->findChild<QAction*>(QStringLiteral("mnuAWaitHour"))->trigger();
    EXPECT_EQ(offered(), "-");
    EXPECT_EQ(notices.Texts(), QStringList("Nobody on the wait list fits Wed, Mar 11, 2:00 PM - 3:00 PM."));
}

TEST_F(WaitOffers, APastHourAboutWhichTheUserAsksIsSaidToBePast) {
    NoticeBar notices;
    waits("J", 50);
    start();
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(15, 0)));
    AskWhoWaits({QStringLiteral("REED"), QDate(2026, 3, 11), {840, 900}, {}});
    EXPECT_EQ(notices.Texts(), QStringList("Wed, Mar 11, 2:00 PM - 3:00 PM is past."));
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, AskingAboutAnotherHourKeepsTheOffersThatStand) {
    NoticeBar notices;
    waits("J", 50, ", FromTime, ToTime", ", 600, 660");
    waits("M", 50, ", FromTime, ToTime", ", 840, 900");
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Jones");
    const auto ask = [](int from, int to) {
        AskWhoWaits({QStringLiteral("REED"), QDate(2026, 3, 11), {from, to}, {}});
    };
    ask(840, 900);
    EXPECT_EQ(offered(), "Jones Miller");
    EXPECT_EQ(bar_->lstoffers->SelectedRow(), 1);
    EXPECT_EQ(bar_->lbloffers->text(), "2 times are free. 2 patients on the wait list fit.");

    ask(960, 1020);
    EXPECT_EQ(offered(), "Jones Miller");
    EXPECT_EQ(notices.Texts(), QStringList("Nobody on the wait list fits Wed, Mar 11, 4:00 PM - 5:00 PM."));

    ask(600, 660);
    EXPECT_EQ(offered(), "Jones Miller");
    EXPECT_EQ(bar_->lstoffers->SelectedRow(), 0) << "Who is offered a time from the same minute fits this one.";
    EXPECT_EQ(notices.Texts(), QStringList());
}

TEST_F(WaitOffers, NamesAndNotesAreHiddenWithTheNames) {
    waits("J", 50, ", Note", ", 'after the surgery'");
    start();
    SetNamesHidden(true);
    choose("Anna", "mnuAPCancel");
    ASSERT_EQ(offered(), "Jones");
    EXPECT_EQ(bar_->lstoffers->ShownCell(0, 3), HiddenNameText());
    EXPECT_EQ(bar_->lstoffers->ShownCell(0, 6), HiddenNameText());
    EXPECT_FALSE(bar_->lbloffers->text().contains("Jones"));
    SetNamesHidden(false);
    EXPECT_EQ(bar_->lstoffers->ShownCell(0, 3), "Jones, Eva");
}

TEST_F(WaitOffers, WhoMayOnlyReadIsOfferedNothing) {
    waits("J", 50);
    Session().ScreenAccess = 1;
    start();
    otherDeskSets(anna, QStringLiteral("ncolor = 193"));
    view_->Reload();
    EXPECT_EQ(offered(), "-");
}

TEST_F(WaitOffers, SeveralDeletedAtOnceAreOfferedTogether) {
    waits("J", 50);
    for (int week = 0; week < 3; ++week)
        add(patientRow("Weekly", "P7")
                .at(13, 0)
                .until(13, 50)
                .on(QDate(2026, 3, 11).addDays(7 * week))
                .with("repeating", "1")
                .with("repeating_ref", "5"));
    start();
    desk.expectBox("Are you sure you want to delete this appointment?", "Delete Appointment", Answer::Yes);
    desk.expectForm("frmdelrepeat", [](QDialog& form) {
        form.findChild<QPushButton*>(QStringLiteral("cmdselect0"))->click();
        form.findChild<QPushButton*>(QStringLiteral("cmdOk"))->click();
    });
    select("Weekly");
    command("mnuADelete").trigger();
    EXPECT_EQ(offered(), "Jones Jones Jones");
    EXPECT_EQ(bar_->lbloffers->text(), "3 times are free. 1 patient on the wait list fits.");
    EXPECT_TRUE(bar_->lstoffers->Cell(2, 1).startsWith("Wed, Mar 25, 1:00 PM"));
}

TEST_F(WaitOffers, APracticeWithoutTheTableHasTheRest) {
    run("Drop Table WaitList");
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "-");
    EXPECT_EQ(stored(anna, "ncolor"), "193");
    desk.expectBox(NoWaitListText(), "Wait List");
    command("mnuAWait").trigger();
}

TEST_F(WaitOffers, TheListBeginsANewEntryWithTheSelectedVisit) {
    start();
    select("Anna");
    desk.expectForm("frmwait", [](QDialog&) {});
    command("mnuAWait").trigger();
}

TEST_F(WaitOffersInWeek, ACancelledHourIsOffered) {
    waits("J", 50);
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "Jones");
}

TEST_F(WaitOffersInAll, AnHourOfAnotherProviderIsOfferedAndBookedThere) {
    waits("J", 50, ", Providers", ", 'LANE'");
    add(patientRow("Dora", "P6").at(15, 0).until(15, 50).of("LANE"));
    start();
    choose("Anna", "mnuAPCancel");
    EXPECT_EQ(offered(), "-");
    choose("Dora", "mnuTCancel");
    EXPECT_EQ(offered(), "Jones");
    desk.expectForm("frmnore", [this](QDialog& form) {
        EXPECT_EQ(theEditor(form).Request().provider.id, "LANE");
        theEditor(form).cmdOk->click();
    });
    press(Qt::Key_Return);
    EXPECT_EQ(database_.text("Select clinicianid from appointments Where patientid = 'J'"), "LANE");
}

TEST_F(WaitOffersInAll, AnActivityThatIsDeletedFreesTheTimeOfAllWhoAttended) {
    waits("J", 50);
    const qint64 meeting = add(anAppointment("Meeting").at(13, 0).until(14, 0).of("~EVT").status(ncolor::Activity));
    for (const char* who : {"REED", "LANE"})
        run(db::Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values({}, '{}')", meeting, who));
    start();
    EXPECT_TRUE(DeleteActivity(static_cast<int>(meeting)).IsDone());
    EXPECT_EQ(offered(), "Jones Jones");
}
