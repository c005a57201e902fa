#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>

#include "appointments/frmslist.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "tests/appointments/recurringfixture.h"

using db::Sql;

namespace {

const QString Title = QStringLiteral("Solvane Scheduler");

}  // namespace

TEST_F(Recurring, StartsWithTheAppointmentsOwnWeekday) {
    const frmRecurAppt form;
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Recurrance"));
    EXPECT_EQ(form.txtRecrStartDate->Date(), day);
    EXPECT_EQ(form.txtRecrMaxEvents->Value(), 2);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every week on Wednesday, 2 times, until 18 March 2026: 1 new appointment"));
}

TEST_F(Recurring, OneMoreDateIsWrittenForAnEndAfterTwo) {
    frmRecurAppt form;
    press(form, 0);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18"));
    EXPECT_EQ(form.result(), QDialog::Accepted);
    const db::Recordset copy(QStringLiteral("Select * from appointments Where dapptdate = '2026/03/18'"),
                             database.connection());
    EXPECT_EQ(copy["cappttext"].text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(copy["CapptNote"].text(), QStringLiteral("90834|bring the card"));
    EXPECT_EQ(copy["patientid"].text(), QStringLiteral("10017"));
    EXPECT_EQ(copy["PatientAcct"].text(), QStringLiteral("A-17"));
    EXPECT_EQ(copy["CLOCATION"].text(), QStringLiteral("Annex"));
    EXPECT_EQ(copy["repeating"].integer(), 1);
    EXPECT_EQ(copy["clinicianid"].text(), QStringLiteral("REED"));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from AuditLog")), 0);
}

TEST_F(Recurring, TheStatusOfTheCopiesFollowsTheSources) {
    const std::pair<int, int> statuses[] = {{0xC0C0C0, 0xC0C0C0}, {0xC000, 0xFF0001},   {0xC0, 0xFF0001},
                                            {0xC2, 0xFF0001},     {0xFF0000, 0xFF0000}, {0xC0C000, 0xC0C000}};
    for (const auto& [source, copy] : statuses) {
        run(Sql("Delete from appointments Where nkeyid <> {}", key));
        run(Sql("Update appointments Set ncolor = {} Where nkeyid = {}", source, key));
        frmRecurAppt form;
        press(form, 0);
        EXPECT_EQ(database.number(Sql("Select ncolor from appointments Where nkeyid <> {}", key)), copy) << source;
    }
}

TEST_F(Recurring, AMemberOfASeriesContinuesUnderTheFirstMembersKey) {
    const int first = appointment({.date = day.addDays(-7)});
    run(Sql("Update appointments Set repeating = 1, repeating_ref = {}", first));
    frmRecurAppt form;
    press(form, 0);
    EXPECT_EQ(database.number(Sql("Select Count(*) from appointments Where repeating_ref = {}", first)), 3);
}

TEST_F(Recurring, AnsweringNoToAConflictSkipsThatDateAlone) {
    appointment({.start = 600, .end = 660, .date = day.addDays(7)});  // Touching counts.
    appointment({.start = 540, .end = 600, .date = day.addDays(14)});
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(4);
    expectConflict("3/18/2026", Answer::No);
    expectConflict("3/25/2026", Answer::Yes);
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/25 4/1"));
}

TEST_F(Recurring, TheRoomGoesAlongOnlyAfterAYes) {
    const int blue = room(QStringLiteral("O'Brien's room"));
    booking(blue, 540, 600, QStringLiteral("Reed"), key);
    const QString question = QStringLiteral(
        "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        run(Sql("Delete from appointments Where nkeyid <> {}", key));
        frmRecurAppt form;
        desk.expectBox(question, QStringLiteral("Recurring Appointment"), answer);
        press(form, 0);
        EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule")), answer == Answer::Yes ? 2 : 1);
    }
    EXPECT_EQ(database.text(Sql("Select croomtext from roomschedule Where apptid <> {}", key)),
              QStringLiteral("O'Brien's room"));
}

TEST_F(Recurring, AStartBehindTheAppointmentIsBookedLikeEveryOtherDate) {
    frmRecurAppt form;
    form.txtRecrStartDate->setDate(day.addDays(7));
    form.txtRecrMaxEvents->setValue(3);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every week on Wednesday, 3 times, until 1 April 2026: 3 new appointments"));
    EXPECT_EQ(listed(form), QStringList({QStringLiteral("x Wed 03/18/2026 |  | booked"),
                                         QStringLiteral("x Wed 03/25/2026 |  | booked"),
                                         QStringLiteral("x Wed 04/01/2026 |  | booked")}));
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18 3/25 4/1"));
}

TEST_F(Recurring, AStartBeforeTheAppointmentDoesNotBookItsOwnDateTwice) {
    frmRecurAppt form;
    form.txtRecrStartDate->setDate(day.addDays(-7));
    form.txtRecrMaxEvents->setValue(3);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every week on Wednesday, 3 times, until 18 March 2026: 2 new appointments"));
    EXPECT_EQ(listed(form), QStringList({QStringLiteral("x Wed 03/04/2026 |  | booked"),
                                         QStringLiteral("Wed 03/11/2026 | this appointment itself | "),
                                         QStringLiteral("x Wed 03/18/2026 |  | booked")}));
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/4 3/11 3/18"));
}

TEST_F(Recurring, AStartThatFitsNoPatternLeavesTheOwnDateAloneToo) {
    frmRecurAppt form;
    form.txtRecrStartDate->setDate(day.addDays(-3));
    form.txtRecrMaxEvents->setValue(2);
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18"));
}

TEST_F(Recurring, AWeekWithNoDayTickedIsToldWhenItIsSaved) {
    frmRecurAppt form;
    for (QCheckBox* box : form.chkRecrWeekly)
        box->setChecked(false);
    EXPECT_EQ(form.lblsentence->text(), QStringLiteral("Every week on no day: no date fits."));
    desk.expectBox(QStringLiteral("Recurring appointment must have more than one date."), Title);
    press(form, 0);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(database.number(QStringLiteral("Select repeating from appointments")), 0);
}

TEST_F(Recurring, WhatIsMissingIsToldTogether) {
    frmRecurAppt form;
    form.txtRecrStartDate->setText({});
    choose(form.radEnd, 1);
    form.txtRecrWeeklyWeeks->setValue(0);
    desk.expectBox(
        QStringLiteral(
            "Please enter the following information: \n\n   Start Date,\n   End Date or Number of Occurrences\n   Invalid Recurrance Pattern"),
        Title);
    press(form, 0);
    EXPECT_NE(form.result(), QDialog::Accepted);
}

TEST_F(Recurring, AMissingEndAloneLosesItsLastLetter) {
    frmRecurAppt form;
    choose(form.radEnd, 1);
    desk.expectBox(QStringLiteral("Please enter the following information: \n\n   End Date or Number of Occurrence"),
                   Title);
    press(form, 0);
}

TEST_F(Recurring, EachPatternChecksItsOwnNumbers) {
    frmRecurAppt form;
    const auto refused = [&](int type, const char* text) {
        choose(form.radRecurrence, type);
        desk.expectBox(QStringLiteral("Please enter the following information: \n\n") + QLatin1String(text), Title);
        EXPECT_FALSE(form.Validate());
    };
    form.txtRecrDailyDays->setValue(0);
    refused(0, "   Invalid Recurrance Pattern");
    choose(form.radDaily, 1);
    EXPECT_TRUE(form.Validate());
    form.txtRecrMonthlyDay->setValue(0);
    form.txtRecrMonthlyMonths[0]->setValue(0);
    refused(2, "   Invalid Recurrance Pattern,\n   Invalid Recurrance Pattern");
    form.txtRecrYearlyDay->setValue(0);
    refused(3, "   Invalid Recurrance Pattern");
    choose(form.radYearlyScaleInd, 1);
    EXPECT_TRUE(form.Validate());
}

TEST_F(Recurring, ThePreviewMarksTheDatesThatCollide) {
    appointment({.date = day.addDays(7)});
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(3);
    desk.expectForm("frmslist", [](QDialog& dialog) {
        const auto& list = *static_cast<frmslist&>(dialog).List1;
        ASSERT_EQ(list.count(), 3);
        EXPECT_EQ(list.item(0)->text(), QStringLiteral("Wed 03/11/2026   this appointment itself"));
        EXPECT_EQ(list.item(1)->text(), QStringLiteral("Wed 03/18/2026   Jones, Mary 9:00 AM - 10:00 AM"));
        EXPECT_EQ(list.item(2)->text(), QStringLiteral("Wed 03/25/2026"));
    });
    press(form, 2);
    EXPECT_EQ(count(), 2);
}

TEST_F(Recurring, TheDayComesFirstWhereTheSystemWritesItSo) {
    Session().DateOrder = 1;
    frmRecurAppt form;
    desk.expectForm("frmslist", [](QDialog& dialog) {
        EXPECT_EQ(static_cast<frmslist&>(dialog).List1->item(1)->text(), QStringLiteral("Wed 18/03/2026"));
    });
    press(form, 2);
}

TEST_F(Recurring, TheSentenceFollowsTheSettings) {
    frmRecurAppt form;
    form.chkRecrWeekly[4]->setChecked(true);
    form.txtRecrWeeklyWeeks->setValue(2);
    form.txtRecrMaxEvents->setValue(5);
    EXPECT_EQ(
        form.lblsentence->text(),
        QStringLiteral("Every 2 weeks on Wednesday and Thursday, 5 times, until 8 April 2026: 4 new appointments"));
    choose(form.radRecurrence, 0);
    EXPECT_EQ(form.lblsentence->text(), QStringLiteral("Every day, 5 times, until 15 March 2026: 4 new appointments"));
    choose(form.radRecurrence, 2);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every month on day 11, 5 times, until 11 July 2026: 4 new appointments"));
    choose(form.radMonthlyScaleInd, 1);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every month on the second Wednesday, 5 times, until 8 July 2026: 4 new appointments"));
    choose(form.radRecurrence, 3);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every year on 11 March, 5 times, until 11 March 2030: 4 new appointments"));
    choose(form.radEnd, 1);
    EXPECT_EQ(form.lblsentence->text(), QStringLiteral("Enter when the series ends."));
}

TEST_F(Recurring, AnEndBeforeTheStartGivesNoSeries) {
    frmRecurAppt form;
    choose(form.radEnd, 1);
    form.txtRecrEndDate->setDate(day.addDays(-1));
    desk.expectBox(QStringLiteral("Recurring appointment must have more than one date."), Title);
    press(form, 0);
}

TEST_F(Recurring, TheLargestCountStopsAfterFiveThousandDays) {
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(32767);
    choose(form.radRecurrence, 0);
    EXPECT_TRUE(form.lblsentence->text().startsWith(QStringLiteral("Every day, 5001 times")))
        << form.lblsentence->text().toStdString();
}

TEST_F(Recurring, WithoutASelectedAppointmentTheFormClosesItself) {
    view.item.reset();
    desk.expectBox(QStringLiteral("Error retreiving Appointment values."), QStringLiteral("Error"));
    frmRecurAppt form;
    form.show();
    QApplication::processEvents();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Recurring, AnAppointmentThatAnotherUserDeletedIsTold) {
    frmRecurAppt form;
    run(QStringLiteral("Delete from appointments"));
    desk.expectBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   QStringLiteral("Error"));
    press(form, 0);
    EXPECT_EQ(count(), 0);
}

TEST_F(Recurring, ALostDatabaseIsTold) {
    frmRecurAppt form;
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error opening database. ") + why, QStringLiteral("Error"));
    press(form, 0);
}

TEST_F(Recurring, ADateWhoseRoomCannotBeBookedIsNotBooked) {
    const int blue = room(QStringLiteral("Blue"));
    booking(blue, 540, 600, QStringLiteral("Reed"), key);
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(4);
    const QString why = database.refuse(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    desk.expectBox(
        QStringLiteral(
            "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?"),
        QStringLiteral("Recurring Appointment"), Answer::Yes);
    desk.expectBox(QStringLiteral("Error adding appointment. ") + why, QStringLiteral("Error"));
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11"));
}

TEST_F(Recurring, CancelWritesNothing) {
    frmRecurAppt form;
    press(form, 1);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(database.number(QStringLiteral("Select repeating from appointments")), 0);
}
