#include "tests/appointments/restfixture.h"

#include "session/hiddennames.h"

using db::Sql;
using Kind = RestChange::Kind;

TEST_F(RestOfSeries, NothingIsChosenThatWouldChangeAnythingYet) {
    const auto form = open();
    EXPECT_EQ(form->lblsource->text(), "Jones, Mary, Wed 03/11/2026, 9:00 AM - 10:00 AM");
    EXPECT_EQ(form->lblseries->text(), "Appointment 3 of 6 in this series, from Wed 02/25/2026 to Wed 04/01/2026");
    EXPECT_EQ(listed(*form),
              (QStringList{"02/25 | not chosen", "03/04 | not chosen", "03/11 | stays as it is",
                           "03/18 | stays as it is", "03/25 | stays as it is", "04/01 | stays as it is"}));
    EXPECT_FALSE(form->cmdOk->isEnabled());
    EXPECT_FALSE(form->cmdOk->toolTip().isEmpty());
}

TEST_F(RestOfSeries, WhatIsPastOrSettledIsShownAndStays) {
    set(keys[3], "ncolor = 49152");
    set(keys[4], "NoteID = 5");
    set(keys[5], "ncolor = 194");
    const int missed = join(appointment({.date = QDate(2026, 4, 8)}), ncolor::Missed);
    const int here = join(appointment({.date = QDate(2026, 4, 15)}), ncolor::CheckedIn);
    ASSERT_NE(missed, here);
    const auto form = open();
    choose(*form, Kind::Delete);
    choose(*form, RestScope::All);
    EXPECT_EQ(listed(*form), (QStringList{"02/25 | stays: is past", "03/04 | stays: is past", "x 03/11 | deleted",
                                          "03/18 | stays: was kept", "03/25 | stays: has a session note",
                                          "04/01 | stays: is cancelled", "04/08 | stays: was missed",
                                          "04/15 | stays: the patient has checked in"}));
    EXPECT_EQ(form->lblcount->text(), "1 will be deleted, 7 stay");
    ok(*form);
    EXPECT_EQ(stored().size(), 7);
    EXPECT_EQ(bar.Texts(), QStringList{"1 of 1 appointments of the series are deleted."});
}

TEST_F(RestOfSeries, AGroupsDateToWhichAMemberCameStays) {
    for (const int key : {keys[3], keys[4]}) {
        set(key, "ncolor = 12632064");
        run(Sql("Insert Into AppointmentsGroup (nKeyId, PatientId, Kept) Values({}, '10017', 0)", key));
        run(Sql("Insert Into AppointmentsGroup (nKeyId, PatientId, Kept) Values({}, '10020', {})", key,
                key == keys[4] ? 1 : 0));
    }
    const auto form = open(keys[3]);
    choose(*form, Kind::Delete);
    EXPECT_EQ(listed(*form).mid(3), (QStringList{"x 03/18 | deleted", "03/25 | stays: was kept", "x 04/01 | deleted"}));
    ok(*form);
    EXPECT_EQ(stored().mid(3), QStringList{"03/25 540"});
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from AppointmentsGroup")), 2);
}

TEST_F(RestOfSeries, ThisThisAndFollowingAndAllAreTold) {
    const auto form = open(keys[3]);
    choose(*form, Kind::Delete);
    EXPECT_EQ(form->lblcount->text(), "3 will be deleted");
    choose(*form, RestScope::This);
    EXPECT_EQ(form->lblcount->text(), "1 will be deleted");
    choose(*form, RestScope::All);
    EXPECT_EQ(form->lblcount->text(), "4 will be deleted, 2 stay");
}

TEST_F(RestOfSeries, IsDeletedWithRoomsAttendeesAndMembersAndALineEach) {
    Session().ALEnabled = true;
    const int blue = room(QStringLiteral("Blue"));
    for (const int key : keys)
        booking(blue, 540, 600, QStringLiteral("Reed"), key);
    run(Sql("Insert Into AppointmentsGroup (nKeyId, PatientId) Values({}, '10017')", keys[4]));
    set(keys[4], "ncolor = 12632064");
    const auto form = open(keys[4]);
    choose(*form, Kind::Delete);
    ok(*form);
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(stored(), (QStringList{"02/25 540", "03/04 540", "03/11 540", "03/18 540"}));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule")), 4);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from AppointmentsGroup")), 0);
    EXPECT_EQ(audit(), (QStringList{"Deleted appointment - Jones, Mary at 9:00 AM on 03/25/2026",
                                    "Deleted appointment - Jones, Mary at 9:00 AM on 04/01/2026"}));
}

TEST_F(RestOfSeries, MovesByMinutesWithItsRoomAndItsAlarm) {
    Session().ALEnabled = true;
    booking(room(QStringLiteral("Blue")), 540, 600, QStringLiteral("Reed"), keys[5]);
    set(keys[5], "BremindIco = 1, ReminderTime = 525");
    const auto form = open(keys[4]);
    moveBy(*form, 30);
    EXPECT_EQ(listed(*form)[5], "x 04/01 | moves to 9:30 AM - 10:30 AM");
    ok(*form);
    EXPECT_EQ(stored(), (QStringList{"02/25 540", "03/04 540", "03/11 540", "03/18 540", "03/25 570", "04/01 570"}));
    EXPECT_EQ(database.number(QStringLiteral("Select ReminderTime from appointments Where BremindIco = 1")), 555);
    EXPECT_EQ(database.number(QStringLiteral("Select nStartTime from roomschedule")), 570);
    EXPECT_EQ(database.number(QStringLiteral("Select nEndTime from roomschedule")), 630);
    EXPECT_EQ(audit(),
              (QStringList{"Modified Appointment (03/25/2026 at 9:00 AM) to 03/25/26 at 9:30 AM for Jones, Mary",
                           "Modified Appointment (04/01/2026 at 9:00 AM) to 04/01/26 at 9:30 AM for Jones, Mary"}));
    EXPECT_EQ(bar.Texts(), QStringList{"2 of 2 appointments of the series are changed."});
}

TEST_F(RestOfSeries, MovesEarlierAndToAnotherWeekdayOfTheWeek) {
    const auto form = open(keys[3]);
    moveBy(*form, -60);
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to 8:00 AM - 9:00 AM");
    form->cmbweekday->setCurrentIndex(6);
    EXPECT_EQ(form->radWhat->checkedId(), static_cast<int>(Kind::MoveTo)) << "What is chosen in a field chooses it.";
    form->ctstart->setTime(14 * 60);
    EXPECT_FALSE(form->ReadObstacles());
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to Fri 03/20/2026, 2:00 PM - 3:00 PM");
    ok(*form);
    EXPECT_EQ(stored(), (QStringList{"02/25 540", "03/04 540", "03/11 540", "03/20 840", "03/27 840", "04/03 840"}));
}

TEST_F(RestOfSeries, IsNotMovedIntoThePastOrOverMidnight) {
    const auto form = open();
    form->cmbweekday->setCurrentIndex(2);
    EXPECT_FALSE(form->ReadObstacles());
    EXPECT_EQ(listed(*form)[2], "03/11 | stays: would come to lie in the past");
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to Mon 03/16/2026, 9:00 AM - 10:00 AM");
    moveBy(*form, 841);
    EXPECT_EQ(listed(*form)[3], "03/18 | stays: would not lie within the day");
    moveBy(*form, 840);
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to 11:00 PM - 12:00 Mid");
    moveBy(*form, -540);
    EXPECT_EQ(listed(*form)[3], "03/18 | stays: would not lie within the day");
    EXPECT_FALSE(form->cmdOk->isEnabled());
}

TEST_F(RestOfSeries, ATimeThatIsNotUnderstoodMovesNothing) {
    const auto form = open();
    form->ctstart->setText(QStringLiteral("noonish"));
    EXPECT_EQ(form->radWhat->checkedId(), static_cast<int>(Kind::MoveTo));
    form->cmbweekday->setCurrentIndex(6);
    EXPECT_FALSE(form->cmdOk->isEnabled());
}

TEST_F(RestOfSeries, WhatIsInTheWayOfANewTimeIsListed) {
    patient(QStringLiteral("10017"), QStringLiteral("Jones"));
    const int blue = room(QStringLiteral("Blue"));
    booking(blue, 540, 600, QStringLiteral("Reed"), keys[5]);
    booking(blue, 600, 660, QStringLiteral("Team"));
    run(Sql("Update roomschedule Set nApptDate = '2026/04/01'"));
    appointment({.start = 600, .end = 630, .text = "Smith, Zed", .patient = "10020", .date = QDate(2026, 3, 18)});
    appointment({.start = 615, .end = 630, .provider = "LANE", .date = QDate(2026, 3, 25)});
    appointment({.start = 660, .end = 690, .text = "After", .patient = "10021", .date = QDate(2026, 3, 18)});
    const int slot = appointment({.start = 600, .end = 660, .text = "Slot", .patient = "", .kind = 4});
    ASSERT_GT(slot, 0);
    run(QStringLiteral(
        "Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values ('Spring', '2025/03/25', 1)"));
    const auto form = open();
    moveBy(*form, 60);
    EXPECT_EQ(listed(*form).mid(2),
              (QStringList{
                  "x 03/11 | moves to 10:00 AM - 11:00 AM",
                  "x 03/18 | moves to 10:00 AM - 11:00 AM | Smith, Zed with Reed 10:00 AM - 10:30 AM",
                  "x 03/25 | moves to 10:00 AM - 11:00 AM | Jones, Mary with Lane 10:15 AM - 10:30 AM; Holiday: Spring",
                  "x 04/01 | moves to 10:00 AM - 11:00 AM | Blue: Team 10:00 AM - 11:00 AM"}));
    EXPECT_EQ(form->lblcount->text(), "4 will be changed, 3 with something in the way");

    SetNamesHidden(true);
    EXPECT_TRUE(listed(*form)[3].endsWith("A patient with Reed 10:00 AM - 10:30 AM"));
    EXPECT_FALSE(form->lblsource->text().contains("Jones"));
    SetNamesHidden(false);

    // Who says No goes back to the list, and leaves out what is taken.
    expectConflicts("3 of 4", Answer::No);
    ok(*form);
    EXPECT_EQ(form->result(), 0);
    form->cmdskip->click();
    EXPECT_EQ(form->lblcount->text(), "1 will be changed, 3 stay");
    ok(*form);
    EXPECT_EQ(stored(), (QStringList{"02/25 540", "03/04 540", "03/11 600", "03/18 540", "03/25 540", "04/01 540"}));
}

TEST_F(RestOfSeries, IsChangedOverABookingForWhoSaysYes) {
    appointment({.start = 600, .end = 630, .text = "Smith, Zed", .patient = "10020", .date = QDate(2026, 3, 18)});
    const auto form = open();
    moveBy(*form, 60);
    expectConflicts("1 of 4", Answer::Yes);
    ok(*form);
    EXPECT_EQ(stored().mid(2), (QStringList{"03/11 600", "03/18 600", "03/25 600", "04/01 600"}));
}

TEST_F(RestOfSeries, AnAppointmentOfItStandsInTheWayWhereItWillStand) {
    // Twice a day: the second hour leaves when the first one comes, unless it is taken out.
    const int second = join(appointment({.start = 600, .end = 660, .date = QDate(2026, 3, 18)}));
    ASSERT_GT(second, 0);
    const auto form = open();
    moveBy(*form, 60);
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to 10:00 AM - 11:00 AM");
    pressSpaceOn(*form, 4);
    EXPECT_EQ(listed(*form)[4], "- 03/18 | left out");
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to 10:00 AM - 11:00 AM | Jones, Mary with Reed 10:00 AM - 11:00 AM");
    pressSpaceOn(*form, 4);
    form->ctstart->setTime(13 * 60);
    EXPECT_FALSE(form->ReadObstacles());
    EXPECT_TRUE(listed(*form)[3].endsWith("another appointment of this series, 1:00 PM - 2:00 PM"));
}

TEST_F(RestOfSeries, GetsAnotherRoomOrNone) {
    const int blue = room(QStringLiteral("Blue"));
    const int green = room(QStringLiteral("Green"));
    booking(blue, 540, 600, QStringLiteral("Dr. R."), keys[4]);
    booking(green, 570, 630, QStringLiteral("Team"));
    run(Sql("Update roomschedule Set nApptDate = '2026/03/18' Where apptid = 0"));
    const auto form = open();
    form->cborooms->SetListIndex(form->cborooms->FindItemData(green));
    EXPECT_FALSE(form->ReadObstacles());
    EXPECT_EQ(listed(*form).mid(2),
              (QStringList{"x 03/11 | gets Green", "x 03/18 | gets Green | Green: Team 9:30 AM - 10:30 AM",
                           "x 03/25 | gets Green", "x 04/01 | gets Green"}));
    form->cmdskip->click();
    ok(*form);
    EXPECT_EQ(database.number(Sql("Select Count(*) from roomschedule Where croomid = {} And apptid > 0", green)), 3);
    EXPECT_EQ(database.text(Sql("Select croomtext from roomschedule Where apptid = {}", keys[4])), "Dr. R.");
    EXPECT_EQ(database.text(Sql("Select croomtext from roomschedule Where apptid = {}", keys[5])), "Reed");
    EXPECT_EQ(database.number(Sql("Select nStartTime from roomschedule Where apptid = {}", keys[5])), 540);

    const auto again = open();
    again->cborooms->SetListIndex(0);
    choose(*again, Kind::Room);
    EXPECT_EQ(listed(*again)[3], "03/18 | stays as it is");
    EXPECT_EQ(listed(*again)[4], "x 03/25 | gives up Green");
    ok(*again);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule")), 1);
}

TEST_F(RestOfSeries, GoesToAnotherProviderWhoIsFree) {
    Session().ALEnabled = true;
    appointment({.start = 570,
                 .end = 600,
                 .text = "Smith, Zed",
                 .provider = "LANE",
                 .patient = "10020",
                 .date = QDate(2026, 4, 1)});
    booking(room(QStringLiteral("Blue")), 540, 600, QStringLiteral("Reed"), keys[4]);
    const auto form = open(keys[4]);
    form->cboproviders->setCurrentIndex(form->cboproviders->findText(QStringLiteral("Lane")));
    EXPECT_FALSE(form->ReadObstacles());
    EXPECT_EQ(listed(*form).mid(4), (QStringList{"x 03/25 | goes to Lane",
                                                 "x 04/01 | goes to Lane | Smith, Zed with Lane 9:30 AM - 10:00 AM"}));
    expectConflicts("1 of 2", Answer::Yes);
    ok(*form);
    EXPECT_EQ(stored("clinicianid").mid(3), (QStringList{"03/18 REED", "03/25 LANE", "04/01 LANE"}));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule Where croomtext = 'Lane'")), 1);
    EXPECT_EQ(
        audit().front(),
        "Modified Appointment (03/25/2026 at 9:00 AM with Reed) to 03/25/26 at 9:00 AM for Jones, Mary with Lane");
}

TEST_F(RestOfSeries, IsNotGivenToAProviderWhoWasArchivedMeanwhile) {
    const auto form = open(keys[4]);
    form->cboproviders->setCurrentIndex(form->cboproviders->findText(QStringLiteral("Lane")));
    EXPECT_FALSE(form->ReadObstacles());
    run(QStringLiteral("Update provider_info Set archive = 1 Where id = 'LANE'"));
    desk.expectBox(QStringLiteral("Lane has been archived meanwhile. Choose another provider."),
                   QStringLiteral("Rest of Series"));
    ok(*form);
    EXPECT_EQ(stored("clinicianid").back(), "04/01 REED");
    EXPECT_EQ(open()->cboproviders->findText(QStringLiteral("Lane")), -1);
}

TEST_F(RestOfSeries, IsNotBroughtIntoARoomThatWasDeletedMeanwhile) {
    const int blue = room(QStringLiteral("Blue"));
    const auto form = open();
    form->cborooms->SetListIndex(form->cborooms->FindItemData(blue));
    EXPECT_FALSE(form->ReadObstacles());
    run(QStringLiteral("Delete from rooms"));
    desk.expectBox(QStringLiteral("Blue has been deleted meanwhile. Choose another room."),
                   QStringLiteral("Rest of Series"));
    ok(*form);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule")), 0);
}

TEST_F(RestOfSeries, IsCancelledByPatientOrTherapist) {
    Session().ALEnabled = true;
    const auto form = open(keys[5]);
    choose(*form, Kind::TherapistCancel);
    EXPECT_EQ(listed(*form)[5], "x 04/01 | Therapist Cancelled");
    ok(*form);
    const auto again = open();
    choose(*again, Kind::PatientCancel);
    ok(*again);
    EXPECT_EQ(stored("ncolor").mid(1),
              (QStringList{"03/04 16711681", "03/11 193", "03/18 193", "03/25 193", "04/01 194"}));
    EXPECT_EQ(audit(), QStringList()) << "A status has no line of its own.";
}

TEST_F(RestOfSeries, OfSeveralProvidersMovesWithAllOfThemAndHasNoStatusOrProvider) {
    for (const int key : keys) {
        set(key, "clinicianid = '~EVT', ncolor = 16777088, patientid = '', cappttext = 'Staff'");
        for (const char* attendee : {"REED", "LANE"})
            run(Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values({}, '{}')", key, attendee));
    }
    appointment({.start = 600, .end = 630, .text = "Smith, Zed", .provider = "LANE", .date = QDate(2026, 3, 18)});
    const auto form = open();
    choose(*form, Kind::PatientCancel);
    EXPECT_EQ(listed(*form)[3], "03/18 | stays: only a patient's appointment has a status");
    form->cboproviders->setCurrentIndex(0);
    EXPECT_EQ(listed(*form)[3], "03/18 | stays: has several providers");
    moveBy(*form, 60);
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to 10:00 AM - 11:00 AM | Smith, Zed with Lane 10:00 AM - 10:30 AM");
    EXPECT_EQ(listed(*form)[4], "x 03/25 | moves to 10:00 AM - 11:00 AM");
    choose(*form, Kind::Delete);
    ok(*form);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from appointmentsevents")), 4);
}

TEST_F(RestOfSeries, WhoseFirstAppointmentIsGoneIsStillASeries) {
    run(Sql("Delete from appointments Where nkeyid = {}", keys.front()));
    const auto form = open();
    moveBy(*form, 15);
    ok(*form);
    EXPECT_EQ(stored(), (QStringList{"03/04 540", "03/11 555", "03/18 555", "03/25 555", "04/01 555"}));
}

TEST_F(RestOfSeries, OfAnotherProviderStaysWithoutTheRightToAll) {
    Session().AllProviders = false;
    Session().ScreenAccess = 2;
    set(keys[4], "clinicianid = 'LANE'");
    set(keys[5], "clinicianid = 'reed'");
    const auto form = open();
    EXPECT_FALSE(form->radWhat->button(static_cast<int>(Kind::Provider))->isEnabled());
    EXPECT_FALSE(form->radWhat->button(static_cast<int>(Kind::Delete))->isEnabled());
    EXPECT_FALSE(form->cboproviders->isEnabled());
    moveBy(*form, 15);
    EXPECT_EQ(listed(*form)[4], "03/25 | stays: is with another provider");
    EXPECT_EQ(listed(*form)[5], "x 04/01 | moves to 9:15 AM - 10:15 AM");
    EXPECT_EQ(open(keys[5])->cboproviders->currentText(), open()->cboproviders->currentText());
}

TEST_F(RestOfSeries, WithoutARowOrASeriesDoesNotOpen) {
    const int single = appointment({});
    desk.expectBox(QStringLiteral("This appointment does not belong to a series."), QStringLiteral("Rest of Series"));
    EXPECT_FALSE(OpenSeries(single));
    run(Sql("Delete from appointments Where nkeyid = {}", single));
    desk.expectBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   QStringLiteral("Error"));
    EXPECT_FALSE(OpenSeries(single));
}
