#include <QAction>
#include <QPlainTextEdit>

#include "data/codes.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

class DayView : public DayFixture {};

TEST_F(DayView, ShowsTheProvidersAppointmentsOfTheDayInOrder) {
    add(anAppointment("Later").at(14, 0));
    add(anAppointment("Earlier").at(9, 0));
    add(anAppointment("Of a colleague").of("LANE"));
    add(anAppointment("Of tomorrow").on(QDate(2026, 3, 12)));

    open();

    EXPECT_EQ(itemTexts(), (QStringList{"Earlier", "Later"}));
    EXPECT_EQ(item("Later").ItemStart, 840);
}

TEST_F(DayView, AnActivityShowsForEachOfItsProviders) {
    const qint64 key = add(anAppointment("Staff meeting").of("~EVT").status(ncolor::Activity));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'REED')").arg(key));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'LANE')").arg(key));
    const qint64 other = add(anAppointment("Elsewhere").of("~EVT").status(ncolor::Activity));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'LANE')").arg(other));

    open();

    EXPECT_EQ(itemTexts(), QStringList{"Staff meeting"});
}

TEST_F(DayView, AnActivityOfTheProviderWithFurtherProvidersShowsOnce) {
    const qint64 key = add(anAppointment("Staff meeting").status(ncolor::Activity));
    for (const char* provider : {"BAKER", "OTT", "REED"})
        run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, '%2')")
                .arg(key)
                .arg(QLatin1String(provider)));

    open();

    EXPECT_EQ(itemTexts(), QStringList{"Staff meeting"});
}

TEST_F(DayView, AnAppointmentBeforeTheDayBeginsWidensTheGrid) {
    add(anAppointment("Early bird").at(6, 30));

    open();

    EXPECT_EQ(calendar().FirstTime(), 390);
    EXPECT_EQ(calendar().TopTime(), 390);
}

TEST_F(DayView, AnAppointmentAfterTheDayEndsDoesNotWidenTheGrid) {
    add(anAppointment("Night owl").at(20, 0));

    open();

    EXPECT_EQ(calendar().LastTime(), 18 * 60 - 1);
    EXPECT_EQ(itemTexts(), QStringList{"Night owl"});
}

TEST_F(DayView, ARepeatingHolidayOfAnotherYearShows) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders'' Day', '2019/03/11', 1)");

    open();

    const CalendarItem& banner = item("Founders' Day");
    EXPECT_EQ(banner.ItemKey, "0");
    EXPECT_TRUE(banner.ItemBanner);
    EXPECT_EQ(banner.ItemStart, 0);
    EXPECT_EQ(banner.ItemEnd, 1439);
    EXPECT_EQ(banner.ItemColor, 49344);
    EXPECT_TRUE(calendar().HolidayFlag());
    EXPECT_EQ(calendar().DayHeaderColor(), 49344);
    EXPECT_EQ(calendar().DayBackColor(), 49344);
}

TEST_F(DayView, TheDayAfterAHolidayHasItsUsualColours) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders'' Day', '2026/03/11', 0)");
    CalendarView& view = open();

    main.SetDate(QDate(2026, 3, 12));
    view.Reload();

    EXPECT_FALSE(calendar().HolidayFlag());
    EXPECT_NE(calendar().DayHeaderColor(), 49344);
    EXPECT_NE(calendar().DayBackColor(), 49344);
}

TEST_F(DayView, AHolidayOfAnotherYearThatDoesNotRepeatIsNoHoliday) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Once', '2019/03/11', 0)");

    open();

    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_FALSE(calendar().HolidayFlag());
}

TEST_F(DayView, OfTwoHolidaysOnADayTheFirstGivesTheBanner) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('First', '2026/03/11', 0)");
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Second', '2026/03/11', 0)");

    open();

    EXPECT_EQ(itemTexts().size(), 1);
}

TEST_F(DayView, TheHolidayBannerIsLockedAndHasNoRow) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Once', '2026/03/11', 0)");

    open();
    select("Once");

    EXPECT_TRUE(item("Once").ItemTextLocked);
    EXPECT_TRUE(item("Once").ItemMoveLocked);
    EXPECT_EQ(info().first(), "Appointment;Once");
}

TEST_F(DayView, AmongRowsOfOneMinuteTheTypeSlotComesFirst) {
    add(anAppointment("Patient one").with("appttype", "0"));
    add(anAppointment("Slot").with("appttype", "4").status(0x123456));

    open();

    EXPECT_EQ(itemTexts(), (QStringList{"Slot", "Patient one"}));
}

TEST_F(DayView, AnotherDayIsReadWhenTheDateChanges) {
    add(anAppointment("Wednesday"));
    add(anAppointment("Thursday").on(QDate(2026, 3, 12)));
    CalendarView& view = open();

    main.SetDate(QDate(2026, 3, 12));
    view.Reload();

    EXPECT_EQ(itemTexts(), QStringList{"Thursday"});
    EXPECT_EQ(main.dateText, "Thursday, March 12, 2026");
    EXPECT_EQ(main.title, "March 12, 2026");
}

TEST_F(DayView, AReloadKeepsThePlaceAndTheSelectedAppointment) {
    add(anAppointment("First").at(9, 0));
    add(anAppointment("Second").at(16, 0));
    CalendarView& view = open();
    select("Second");
    calendar().setTopTime(600);
    const int top = calendar().TopTime();

    add(anAppointment("New one").at(8, 0));
    view.Reload();

    EXPECT_EQ(calendar().TopTime(), top);
    ASSERT_GT(calendar().SelectedItem(), 0);
    EXPECT_EQ(std::as_const(calendar()).Item(calendar().SelectedItem()).ItemText, "Second");
    EXPECT_EQ(info().first(), "Appointment;Second");
}

TEST_F(DayView, AnAppointmentThatAnotherDeskDeletedLeavesTheDayAtTheNextReload) {
    const qint64 key = add(anAppointment("Gone"));
    CalendarView& view = open();
    select("Gone");

    run(QStringLiteral("Delete from appointments Where nkeyid = %1").arg(key));
    view.Reload();

    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_EQ(info(), QStringList{";No Appointment Selected"});
}

TEST_F(DayView, ALostDatabaseIsToldSoThatTheEmptyDayIsNotTakenForAFreeOne) {
    add(anAppointment("Was here"));
    CalendarView& view = open();

    Session().Connection.Close();
    desk.expectBox(
        QStringLiteral(
            "Error reading appointments. The connection cannot be used to perform this operation. It is either closed or invalid in this context."),
        QStringLiteral("Error"));
    view.Reload();

    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_EQ(main.dateText, "Wednesday, March 11, 2026");
}

TEST_F(DayView, ARowWithNothingInItsColumnsStillShows) {
    run("Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, CapptNote, ncolor, appttype, clinicianid, patientid, BLOCATEICO, BremindIco, BTentIco) Values('2026/03/11', null, null, null, null, null, null, 'REED', null, null, null, null)");

    open();

    ASSERT_EQ(calendar().ItemCount(), 1);
    EXPECT_EQ(calendar().FirstTime(), 480);
}

TEST_F(DayView, RowsThatMakeNoSenseDoNotDisturbTheDay) {
    add(anAppointment("Backwards").at(11, 0).until(10, 0));
    add(anAppointment("To midnight").at(23, 0).until(24, 0));
    add(anAppointment("Beyond").at(30, 0).until(31, 0));
    add(anAppointment("Before").at(-2, 0).until(-1, 0));
    QString longText = QStringLiteral("x").repeated(200);
    add(anAppointment(longText.toUtf8().constData())
            .with("CapptNote", QStringLiteral("'|%1'").arg(QStringLiteral("n").repeated(100'000))));

    open();
    for (int index = 1; index <= calendar().ItemCount(); ++index)
        calendar().setSelectedItem(index);
    view_->grab();

    EXPECT_EQ(calendar().ItemCount(), 5);
}

TEST_F(DayView, TenThousandRowsOnOneDayAllShow) {
    Session().Connection.BeginTrans();
    for (int i = 0; i < 10'000; ++i)
        add(anAppointment("Busy").at(8 + i % 9, i % 60));
    Session().Connection.CommitTrans();

    open();
    view_->grab();

    EXPECT_EQ(calendar().ItemCount(), 10'000);
}

TEST_F(DayView, TheGridFollowsThePreferences) {
    Session().TimeUnit = 5;
    Session().MilitaryTime = true;
    Session().DayStartHour = 7;
    Session().DayEndHour = 21;

    open();

    EXPECT_EQ(calendar().TimeInterval(), 5);
    EXPECT_TRUE(calendar().TwentyFourHour());
    EXPECT_EQ(calendar().FirstTime(), 420);
    EXPECT_EQ(calendar().PrimeStart(), 420);
    EXPECT_EQ(calendar().PrimeEnd(), 1260);
    EXPECT_EQ(calendar().LastTime(), 1259);
}

TEST_F(DayView, ChangedPreferencesKeepAnEarlyAppointmentInTheGrid) {
    add(anAppointment("Early bird").at(6, 30));
    CalendarView& view = open();

    Session().DayStartHour = 9;
    Session().TimeUnit = 30;
    view.ApplyPreferences();

    EXPECT_EQ(calendar().TimeInterval(), 30);
    EXPECT_EQ(calendar().PrimeStart(), 540);
    EXPECT_EQ(calendar().FirstTime(), 390);
}

TEST_F(DayView, ChangedPreferencesReadTheDayAgain) {
    CalendarView& view = open();
    add(anAppointment("From another desk"));

    view.ApplyPreferences();

    EXPECT_EQ(itemTexts(), QStringList{"From another desk"});
}
