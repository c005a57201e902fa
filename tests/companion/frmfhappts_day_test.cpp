#include <QDialog>

#include "platform/calendar/content.h"
#include "session/hiddennames.h"
#include "tests/companion/schedulefixture.h"
#include "tests/support/triplog.h"

namespace {

class CompanionDay : public ScheduleFixture {};

/// The grid's hours, "480-1079".
QString hours(const ctMDay& grid) {
    return QStringLiteral("%1-%2").arg(grid.FirstTime()).arg(grid.LastTime());
}

}  // namespace

TEST_F(CompanionDay, AppointmentsStandInTheColumnsOfTheirProviders) {
    add({.provider = 2});
    add({.client = 2, .provider = 1, .time = "2026/03/11 10:15 AM", .duration = 30});
    add({.day = "2026/03/12", .time = "2026/03/12 9:00 AM"});
    add({.day = "2026/03/10", .time = "2026/03/10 9:00 AM"});
    open();
    EXPECT_EQ(column(Lane), QStringList{"540-590 O'Brien, Anna"});
    EXPECT_EQ(column(Moss), QStringList());
    EXPECT_EQ(column(Reed), QStringList{"615-645 Stray, Sam"});
    EXPECT_EQ(main.dateText, "Wednesday, March 11, 2026");
}

TEST_F(CompanionDay, AnAppointmentOfTwoProvidersStandsInBothColumns) {
    add({.provider = 2, .second = 3});
    open();
    EXPECT_EQ(column(Lane), QStringList{"540-590 O'Brien, Anna"});
    EXPECT_EQ(column(Moss), QStringList{"540-590 O'Brien, Anna"});
    EXPECT_EQ(column(Reed), QStringList());
}

TEST_F(CompanionDay, RowsWithoutATimeOrALengthAreNoAppointments) {
    add({.time = "2026/03/11 12:00 AM"});
    add({.duration = 0});
    add({.duration = -5});
    const int untimed = add({});
    there(db::Sql("Update ClientTransactions Set CtrnTime = Null Where CtrnId = {}", untimed));
    const int timeOnly = add({.time = "10:00 AM"});
    there("Insert Into TransactionCodes (TranName, TranType) Values('PAY', 'P')");
    there(db::Sql("Update ClientTransactions Set TranId = 2 Where CtrnId = {}", add({.time = "2026/03/11 1:00 PM"})));
    open();
    EXPECT_EQ(column(Reed), QStringList{"600-650 O'Brien, Anna"});
    EXPECT_EQ(appointment(timeOnly).ItemStart, 600);
}

TEST_F(CompanionDay, AnEndlessAppointmentLastsToMidnight) {
    const int key = add({.duration = 2000});
    open();
    EXPECT_EQ(appointment(key).ItemEnd, 2540);
    EXPECT_GT(grid().ItemRect(indexOf(key, companioncolor::Scheduled)).height(), 0);
}

TEST_F(CompanionDay, ANoteIconStandsOnAppointmentsWithALinkedNote) {
    const int linked = add({.session = 7});
    const int noted = add({.time = "2026/03/11 11:00 AM", .notes = "Bring forms"});
    open();
    EXPECT_TRUE(view_->HasSVSessionCol());
    EXPECT_TRUE(HasNoteIcon(appointment(linked)));
    EXPECT_EQ(appointment(linked).ItemSessionIcon, 1);
    EXPECT_FALSE(HasNoteIcon(appointment(noted)));
    EXPECT_EQ(appointment(noted).ItemTip, "Bring forms");
}

TEST_F(CompanionDay, AnOlderCompanionShowsANoteIconOnEveryAppointmentWithNoteText) {
    dropSessionColumn();
    const int plain = addPlain();
    const int noted = addPlain();
    there(db::Sql("Update ClientTransactions Set CtrnNotes = 'Bring forms' Where CtrnId = {}", noted));
    open();
    EXPECT_FALSE(view_->HasSVSessionCol());
    EXPECT_FALSE(HasNoteIcon(appointment(plain)));
    EXPECT_TRUE(HasNoteIcon(appointment(noted)));
    EXPECT_EQ(appointment(noted).ItemSessionIcon, 0);
}

TEST_F(CompanionDay, AScheduledAppointmentCanBeMovedButNotTyped) {
    const int key = add({});
    open();
    EXPECT_EQ(appointment(key).ItemColor, companioncolor::Scheduled);
    EXPECT_TRUE(appointment(key).ItemTextLocked);
    EXPECT_FALSE(appointment(key).ItemMoveLocked);
    EXPECT_EQ(appointment(key).ItemStatusIcon, 0);
}

TEST_F(CompanionDay, AStatusInASmallLetterIsNotCharged) {
    const int key = add({.status = "s"});
    open();
    EXPECT_EQ(appointment(key).ItemColor, companioncolor::Scheduled);
}

TEST_F(CompanionDay, AChargedAppointmentIsLockedAndSaysSo) {
    const int key = add({.status = "C"});
    const int unknown = add({.time = "2026/03/11 11:00 AM", .status = ""});
    open();
    EXPECT_EQ(appointment(key).ItemColor, companioncolor::Charged);
    EXPECT_TRUE(appointment(key).ItemMoveLocked);
    EXPECT_EQ(appointment(key).ItemStatusIcon, 2);
    EXPECT_EQ(appointment(key).ItemStatusText, "Charged");
    EXPECT_EQ(appointment(unknown).ItemColor, companioncolor::Charged);
    EXPECT_TRUE(grid().ToolTipOf(indexOf(key, companioncolor::Charged)).contains("Charged"));
}

TEST_F(CompanionDay, AnAppointmentOfASeriesIsLocked) {
    const int key = add({.series = 5});
    open();
    EXPECT_EQ(appointment(key).ItemSeriesIcon, 3);
    EXPECT_TRUE(appointment(key).ItemMoveLocked);
}

TEST_F(CompanionDay, TheCourtesyCallIsShownOnAppointmentsThatAreNotCharged) {
    here("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory) Values('CP', 'LM', 2)");
    const int awaited = add({});
    const int charged = add({.time = "2026/03/11 11:00 AM", .status = "C"});
    const int unknown = add({.time = "2026/03/11 1:00 PM"});
    there("Update ClientTransactions Set CtrnCallStatus = 'LM'");
    there(db::Sql("Update ClientTransactions Set CtrnCallStatus = 'XX' Where CtrnId = {}", unknown));
    open();
    EXPECT_EQ(appointment(awaited).ItemStatusIcon, 4);
    EXPECT_EQ(appointment(charged).ItemStatusIcon, 2);
    EXPECT_EQ(appointment(unknown).ItemStatusIcon, -1);
}

TEST_F(CompanionDay, AUserWhoMayOnlyReadMovesNothing) {
    const int key = add({});
    Session().ScreenAccess = 1;
    open();
    EXPECT_TRUE(appointment(key).ItemMoveLocked);
    EXPECT_TRUE(grid().ReadOnly());
}

TEST_F(CompanionDay, AnEarlyAppointmentOpensTheDayAtItsMinute) {
    add({.time = "2026/03/11 7:20 AM"});
    add({.day = "2026/03/12", .time = "2026/03/12 9:00 AM"});
    open();
    EXPECT_EQ(hours(grid()), "440-1079");
    EXPECT_EQ(grid().TopTime(), 440);
    main.SetDate(QDate(2026, 3, 12));
    view_->Reload();
    EXPECT_EQ(hours(grid()), "480-1079");
}

TEST_F(CompanionDay, AnEventOfSeveralProvidersStandsOnceInEachOfTheirColumns) {
    const int shared = addEvent({.attendees = {1, 2}});
    open();
    EXPECT_EQ(column(Lane), QStringList{"780-840 Staff meeting"});
    EXPECT_EQ(column(Moss), QStringList());
    EXPECT_EQ(column(Reed), QStringList{"780-840 Staff meeting"});
    EXPECT_EQ(event(shared).ItemColor, companioncolor::Event);
    EXPECT_TRUE(event(shared).ItemTextLocked);
    EXPECT_TRUE(event(shared).ItemMoveLocked);
    EXPECT_EQ(event(shared).ItemStatusText, "Event");
}

TEST_F(CompanionDay, AnEventOfAllProvidersStandsOnceInEveryColumn) {
    addEvent({.attendees = {1, 2}, .allProviders = true});
    open();
    for (const int number : {Lane, Moss, Reed})
        EXPECT_EQ(column(number), QStringList{"780-840 Staff meeting"}) << number;
}

TEST_F(CompanionDay, AnEventWithoutAttendeesStandsInEveryColumn) {
    addEvent({.attendees = {}});
    open();
    for (const int number : {Lane, Moss, Reed})
        EXPECT_EQ(column(number), QStringList{"780-840 Staff meeting"}) << number;
}

TEST_F(CompanionDay, AnEventOfSeveralDaysShowsOnEachOfThem) {
    const int key = addEventRow("CEveDate, CEveEndDate, CEveTime, CEveDuration",
                                "'2026/03/10', '2026/03/12', '1900-01-01 13:00', 60");
    for (int day = 9; day <= 13; ++day) {
        main.SetDate(QDate(2026, 3, day));
        if (view_ == nullptr)
            open();
        view_->Reload();
        EXPECT_EQ(hasEvent(key), day >= 10 && day <= 12) << day;
    }
}

TEST_F(CompanionDay, AnAllDayEventSpansTheHoursThatAreShown) {
    const int key = addEventRow("CEveDate, CEveEndDate, CEveTime, CEveDuration, CEveAllDayInd",
                                "'2026/03/11', '2026/03/11', '2026-03-11 09:00', 0, 1");
    open();
    EXPECT_EQ(event(key).ItemStart, 480);
    EXPECT_EQ(event(key).ItemEnd, 1079);
}

TEST_F(CompanionDay, OnlySingleEventsThatRemindNobodyOpenTheHoursBefore) {
    const char* columns = "CEveReminderInd, CEveDate, CEveEndDate, CEveTime, CEveDuration";
    addEventRow(columns, "1, '2026/03/11', '2026/03/11', '2026-03-11 06:40', 30");
    open();
    EXPECT_EQ(hours(grid()), "480-1079");
    addEventRow(columns, "0, '2026/03/11', '2026/03/11', '2026-03-11 07:40', 30");
    view_->Reload();
    EXPECT_EQ(hours(grid()), "420-1079");
    addEventRow(columns, "Null, '2026/03/11', '2026/03/11', '2026-03-11 05:30', 30");
    view_->Reload();
    EXPECT_EQ(hours(grid()), "300-1079");
}

TEST_F(CompanionDay, OnlySeriesThatRemindOpenTheHoursBefore) {
    addDailySeries("1900-01-01 05:10", "0");
    open();
    EXPECT_EQ(hours(grid()), "480-1079");
    addDailySeries("1900-01-01 06:10", "1");
    view_->Reload();
    EXPECT_EQ(hours(grid()), "360-1079");
}

TEST_F(CompanionDay, ASeriesShowsOnItsDaysAndIsMarked) {
    const int key = addDailySeries();
    open();
    EXPECT_EQ(column(Reed), QStringList{"540-570 Meeting"});
    EXPECT_EQ(event(key).ItemSeriesIcon, 3);
    main.SetDate(QDate(2026, 3, 1));
    view_->Reload();
    EXPECT_FALSE(hasEvent(key));
}

TEST_F(CompanionDay, ASeriesWithoutAnEndGoesOn) {
    const int open_ = addDailySeries();
    const int ended = addDailySeries("1900-01-01 10:00", "0", "'2026/03/10'");
    open();
    EXPECT_TRUE(hasEvent(open_));
    EXPECT_FALSE(hasEvent(ended));
    main.SetDate(QDate(2036, 3, 11));
    view_->Reload();
    EXPECT_TRUE(hasEvent(open_));
}

TEST_F(CompanionDay, AnExceptionOfOneProviderLeavesTheOthers) {
    const int key = addDailySeries("1900-01-01 09:00", "0", "Null", {1, 2});
    there("Insert Into RecurringEventExceptions (RecrId, RExcDate, ProvId) Values (1, '2026/03/11', 2)");
    open();
    EXPECT_FALSE(hasEvent(key, Lane));
    EXPECT_TRUE(hasEvent(key, Reed));
    there("Insert Into RecurringEventExceptions (RecrId, RExcDate, ProvId) Values (1, '2026/03/11', Null)");
    view_->Reload();
    EXPECT_FALSE(hasEvent(key));
}

TEST_F(CompanionDay, ASeriesOfAPatternThatNobodyKnowsShowsNothing) {
    const int key = addDailySeries();
    const int lost = addDailySeries();
    there("Update RecurringEvents Set RecrPattern = 9 Where RecrId = 1");
    there("Delete from RecurringEvents Where RecrId = 2");
    open();
    EXPECT_FALSE(hasEvent(key));
    EXPECT_FALSE(hasEvent(lost));
}

TEST_F(CompanionDay, ASeriesWithoutAnIntervalIsToldOnceAndTheRestIsShown) {
    addDailySeries("1900-01-01 09:00", "0", "Null", {1, 2, 3});
    there("Update RecurringEvents Set RecrDailyDays = 0");
    const int other = addEvent({});
    add({.provider = 2});
    desk.expectBox("Error loading appointments. Division by zero", "Error");
    open();
    EXPECT_TRUE(hasEvent(other, Reed));
    EXPECT_EQ(column(Lane), QStringList{"540-590 O'Brien, Anna"});
}

TEST_F(CompanionDay, EventsWithBadTimesAreKeptInTheirPlace) {
    const char* columns = "CEveDate, CEveEndDate, CEveTime, CEveDuration";
    const int untimed = addEventRow(columns, "'2026/03/11', '2026/03/11', Null, 60");
    const int backwards = addEventRow(columns, "'2026/03/11', '2026/03/11', '2026-03-11 10:00', -90");
    const int ended = addEventRow(columns, "'2026/03/11', '2026/03/10', '2026-03-11 11:00', 60");
    const int endless = addEventRow(columns, "'2026/03/11', '2026/03/11', '2026-03-11 11:00', 2000");
    const int dateless = addEventRow(columns, "Null, Null, '2026-03-11 11:00', 60");
    open();
    EXPECT_EQ(hours(grid()), "480-1079");
    EXPECT_LT(event(untimed).ItemStart, 0);
    EXPECT_TRUE(hasEvent(backwards));
    EXPECT_FALSE(hasEvent(ended));
    EXPECT_EQ(event(endless).ItemEnd, 2660);
    EXPECT_FALSE(hasEvent(dateless));
    grid().grab();
}

TEST_F(CompanionDay, AReloadKeepsThePlaceAndTheSelectedRow) {
    const int key = add({.time = "2026/03/11 3:00 PM"});
    open();
    view_->resize(1000, 300);
    settle();
    selectAppointment(key);
    grid().setTopTime(720);
    const int top = grid().TopTime();
    there("Update ClientTransactions Set CtrnStatus = 'C'");
    view_->Reload();
    EXPECT_EQ(grid().TopTime(), top);
    EXPECT_EQ(grid().SelectedItem(), indexOf(key, companioncolor::Charged));
    EXPECT_FALSE(details().contains("Appointment|No Appointment Selected"));
}

TEST_F(CompanionDay, TheSelectionDoesNotGoOverToAnEventOfTheSameKey) {
    const int key = add({});
    ASSERT_EQ(addEvent({}), key);
    open();
    selectAppointment(key);
    there("Delete from ClientTransactions");
    view_->Reload();
    EXPECT_EQ(grid().SelectedItem(), 0);
    EXPECT_EQ(details(), QStringList{"Appointment|No Appointment Selected"});
}

TEST_F(CompanionDay, HiddenNamesLeaveTheEventsReadable) {
    const int key = add({});
    const int meeting = addEvent({});
    open();
    SetNamesHidden(true);
    EXPECT_EQ(appointment(key).ItemTextColor, TextColor::SameAsBackground);
    EXPECT_EQ(event(meeting).ItemTextColor, TextColor::Normal);
    view_->Reload();
    EXPECT_EQ(appointment(key).ItemTextColor, TextColor::SameAsBackground);
    SetNamesHidden(false);
    EXPECT_EQ(appointment(key).ItemTextColor, TextColor::Normal);
}

TEST_F(CompanionDay, ThePreferencesSetRowsAndHours) {
    Session().TimeUnit = 30;
    open();
    EXPECT_EQ(grid().TimeInterval(), 30);
    Session().TimeUnit = 10;
    Session().MilitaryTime = true;
    Session().DayStartHour = 6;
    view_->ApplyPreferences();
    EXPECT_EQ(grid().TimeInterval(), 10);
    EXPECT_TRUE(grid().TwentyFourHour());
    EXPECT_EQ(hours(grid()), "360-1079");
}

TEST_F(CompanionDay, TheSelectionTellsTimeAndProvider) {
    open();
    EXPECT_EQ(view_->SelectedProvider(), std::nullopt);
    EXPECT_EQ(view_->SelectedTime(), std::nullopt);
    grid().selectRange(Moss, 600, 660);
    EXPECT_EQ(view_->SelectedProvider()->provId, 3);
    EXPECT_EQ(view_->SelectedTime(), (SelectedSlot{QDate(2026, 3, 11), 600, 660}));
}

TEST_F(CompanionDay, TheKeysOfTheGridStepTheDay) {
    open();
    QTest::keyClick(&grid(), Qt::Key_PageDown, Qt::ControlModifier);
    QTest::keyClick(&grid(), Qt::Key_PageUp, Qt::ControlModifier);
    trigger("mnuVToday");
    EXPECT_EQ(main.asked, (QStringList{"cycledate 1", "cycledate 0", "today"}));
    EXPECT_EQ(view_->Stepped(QDate(2026, 3, 11), -1), QDate(2026, 3, 10));
}

TEST_F(CompanionDay, TheMenuOpensTheOtherViews) {
    open();
    for (const char* name : {"mnuDay", "mnuMonth", "mnuAll", "mnuRoom", "mnuFH"})
        trigger(name);
    EXPECT_EQ(main.asked,
              (QStringList{"changeview 0", "changeview 2", "changeview 3", "changeview 4", "changeview 5"}));
}

TEST_F(CompanionDay, TheLegendTellsTheColoursOfTheCompanion) {
    open();
    QStringList told;
    desk.expectForm("frmcleg", [&told](QDialog& form) {
        for (const QLabel* text : form.findChildren<QLabel*>(QStringLiteral("lblctext")))
            told << text->text();
    });
    trigger("mnuVColor");
    EXPECT_EQ(told, (QStringList{"Scheduled", "Charged", "Event"}));
}

TEST_F(CompanionDay, ADayOfThreeProvidersTakesFewTrips) {
    add({});
    add({.provider = 2});
    addEvent({.attendees = {1, 2, 3}});
    addDailySeries("1900-01-01 09:00", "0", "Null", {1, 2, 3});
    addDailySeries("1900-01-01 10:00", "0", "Null", {1, 2});
    open();
    // The login, the rows, the patterns, the exceptions.
    EXPECT_TRUE(TakesAtMost(4, [&] { view_->Reload(); }));
    selectAppointment(1);
    // The client's insurances and shares besides.
    EXPECT_TRUE(TakesAtMost(5, [&] { view_->Reload(); }));
    selectEvent(1);
    EXPECT_TRUE(TakesAtMost(3, [&] { selectAppointment(1); }));
}
