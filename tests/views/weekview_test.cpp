#include <QAction>
#include <QPushButton>

#include "appointments/frmnore.h"
#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "session/preferences.h"
#include "session/session.h"
#include "tests/views/dayhand.h"
#include "views/frmweekv.h"

namespace {

constexpr char deletedByOthers[] = "Error saving appointment. Another user may have deleted this appointment. ";
const QDate Monday(2026, 3, 9);

/// REED's week of March 9, 2026, seen from the Wednesday in it.
class WeekView : public DayHand {
  protected:
    WeekView() {
        Session().CurrentView = View::Week;
        Session().AllProviders = true;
        Session().ALEnabled = true;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        run("Insert Into rooms (Room) Values('Blue')");
    }

    std::unique_ptr<CalendarView> makeView() override { return std::make_unique<frmweekv>(main); }
    frmweekv& week() { return dynamic_cast<frmweekv&>(*view_); }

    void prefer(const char* columns) {
        SetPreference(QString::fromLatin1(columns), QStringLiteral("WeekCols"), QStringLiteral("SchedulerGeneral"));
    }
    [[nodiscard]] int columnOf(const char* text) {
        return calendar().ColumnOfItem(calendar().IndexOfKey(item(text).ItemKey));
    }
    void moveTo(const char* text, int column, int minute) {
        const QRect from = calendar().CellRect(columnOf(text), item(text).ItemStart);
        const QRect to = calendar().CellRect(column, minute);
        const QPoint press = rectOf(text).center();
        mouseDrag(press, press + (to.topLeft() - from.topLeft()));
    }
    [[nodiscard]] QString when(qint64 key) {
        return stored(key, "dapptdate").left(10) + QLatin1Char(' ') + stored(key, "nStartTime") + QLatin1Char('-') +
               stored(key, "nEndTime");
    }
    void book(qint64 key, int start, int end, const char* date) {
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values(%1, 1, 'Reed', %2, %3, '%4')")
                .arg(key)
                .arg(start)
                .arg(end)
                .arg(QLatin1String(date)));
    }
    [[nodiscard]] QStringList shaded() {
        QStringList ranges;
        for (const TimeRange& range : calendar().TimeRanges())
            ranges << QStringLiteral("%1 %2-%3")
                          .arg(range.day.toString(QStringLiteral("ddd")))
                          .arg(range.start)
                          .arg(range.end);
        return ranges;
    }
};

}  // namespace

TEST_F(WeekView, ShowsFiveDaysFromMondayOn) {
    open();

    EXPECT_EQ(calendar().Date(), Monday);
    EXPECT_EQ(calendar().ColumnCount(), 5);
    EXPECT_EQ(main.dateText, "Week of March 9, 2026");
    EXPECT_TRUE(command("mnuVWeek").isChecked());
    EXPECT_EQ(command("mnuVNext").text(), "&Next Week\tAlt+Right");
}

TEST_F(WeekView, ShowsSevenDaysWhereTheUserPrefersThem) {
    prefer("7");
    open();
    EXPECT_EQ(calendar().ColumnCount(), 7);
    prefer("6");
    week().ApplyPreferences();
    EXPECT_EQ(calendar().ColumnCount(), 5);
}

TEST_F(WeekView, SundayEndsTheWeek) {
    main.SetDate(QDate(2026, 3, 15));
    open();
    EXPECT_EQ(calendar().Date(), Monday);
    EXPECT_EQ(week().Stepped(QDate(2026, 3, 15), 1), QDate(2026, 3, 16));
    EXPECT_EQ(week().Stepped(QDate(2026, 3, 11), -1), QDate(2026, 3, 2));
}

TEST_F(WeekView, EachRowStandsInTheColumnOfItsDate) {
    add(anAppointment("Mon").on(Monday));
    add(anAppointment("Fri").on(QDate(2026, 3, 13)));
    add(anAppointment("Of Lane").of("LANE"));
    add(anAppointment("Before").on(QDate(2026, 3, 8)));
    open();
    EXPECT_EQ(itemTexts(), (QStringList{"Mon", "Fri"}));
    EXPECT_EQ(columnOf("Mon"), 1);
    EXPECT_EQ(columnOf("Fri"), 5);
}

TEST_F(WeekView, OfTheEightDaysThatAreReadThoseBeyondTheColumnsHaveNoPlace) {
    add(anAppointment("Sat").on(QDate(2026, 3, 14)));
    add(anAppointment("Next Monday").on(QDate(2026, 3, 16)));
    add(anAppointment("Next Tuesday").on(QDate(2026, 3, 17)));
    open();
    EXPECT_EQ(itemTexts(), (QStringList{"Sat", "Next Monday"}));
    EXPECT_EQ(columnOf("Sat"), 0);
    EXPECT_EQ(columnOf("Next Monday"), 0);
    EXPECT_FALSE(rectOf("Sat").isValid());
}

TEST_F(WeekView, AnAllDayRowIsNotShownButWidensTheGrid) {
    Session().DayStartHour = 8;
    add(anAppointment("Vacation").at(7, 0).until(8, 0).with("allday", "-1"));
    open();
    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_EQ(calendar().FirstTime(), 420);
}

TEST_F(WeekView, AnActivityOfAnotherOwnerShowsWhereTheProviderAttends) {
    const qint64 key = add(anAppointment("Meeting").of("~EVT").status(ncolor::Activity));
    for (const char* attendee : {"REED", "LANE"})
        run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, '%2')")
                .arg(key)
                .arg(QLatin1String(attendee)));
    open();
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(WeekView, AHolidayHasABannerAndNoShading) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2026/03/12', 0)");
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Saturday Fair', '2001/03/14', 1)");
    open();
    EXPECT_EQ(itemTexts(), (QStringList{"Founders", "Saturday Fair"}));
    EXPECT_EQ(columnOf("Founders"), 4);
    EXPECT_TRUE(item("Founders").ItemBanner);
    EXPECT_EQ(item("Founders").ItemColor, ncolor::Holiday);
    EXPECT_TRUE(calendar().HolidayFlag());
    EXPECT_EQ(calendar().DayHeaderColor(), ncolor::Holiday);
    EXPECT_EQ(shaded(), QStringList());
}

TEST_F(WeekView, EachDayIsShadedAroundItsOwnWorkingHours) {
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', 2, 600, 720)");
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', 4, null, null)");
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('LANE', 5, 600, 720)");
    open();
    EXPECT_EQ(shaded(), (QStringList{"Mon 480-599", "Mon 721-1079", "Wed 480-1079"}));
}

TEST_F(WeekView, AReloadKeepsThePlaceAndTheSelectedItem) {
    add(anAppointment("Anna").on(Monday).at(15, 0).until(16, 0));
    openByHand();
    calendar().setTopTime(600);
    const int top = calendar().TopTime();
    select("Anna");
    week().Reload();
    EXPECT_EQ(calendar().TopTime(), top);
    ASSERT_TRUE(view_->SelectedItem());
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anna");
    main.SetDate(QDate(2026, 3, 13));
    week().Reload();
    EXPECT_TRUE(view_->SelectedItem()) << "Another day of the same week.";
    main.SetDate(QDate(2026, 3, 18));
    week().Reload();
    EXPECT_FALSE(view_->SelectedItem());
    EXPECT_EQ(main.dateText, "Week of March 16, 2026");
}

TEST_F(WeekView, AppointmentsThatCannotBeReadAreTold) {
    const QString why = DropTable(database_.connection(), "appointmentsevents");
    desk.expectBox(QStringLiteral("Error loading schedule. ") + why, "Error");
    open();
    EXPECT_EQ(main.dateText, "Week of March 9, 2026");
}

TEST_F(WeekView, TheMonthsHaveTheirEnglishNames) {
    EXPECT_EQ(frmweekv::getmonth(1), "January");
    EXPECT_EQ(frmweekv::getmonth(12), "December");
    EXPECT_EQ(frmweekv::getmonth(0), "");
    EXPECT_EQ(frmweekv::getmonth(13), "");
}

TEST_F(WeekView, HasNoTasks) {
    open();
    EXPECT_EQ(view_->findChild<QAction*>(QStringLiteral("mnuToDo")), nullptr);
}

TEST_F(WeekView, OffersAllProvidersOnlyToWhoMaySeeThem) {
    open();
    EXPECT_TRUE(command("mnuVAll").isEnabled());
    Session().AllProviders = false;
    open();
    EXPECT_EQ(command("mnuVAll").toolTip(), "This needs access to all schedules.");
}

TEST_F(WeekView, ANewAppointmentIsForTheDayOfItsColumn) {
    openByHand();
    desk.expectForm("frmnore", [](QDialog& form) {
        auto& editor = dynamic_cast<frmnore&>(form);
        EXPECT_EQ(editor.ctedate->Date(), QDate(2026, 3, 12));
        EXPECT_EQ(editor.ctstart->Time(), 600);
        EXPECT_FALSE(editor.ctedate->isHidden());
        editor.reject();
    });
    doubleClick(calendar().CellRect(4, 600).center());
}

TEST_F(WeekView, WithoutASelectedColumnNothingIsAdded) {
    openByHand();
    view_->DropSelection();
    for (const char* name : {"mnuANewPat", "mnuASGroup", "mnuANewEvent", "mnuASCat", "mnuANAvail"}) {
        desk.expectBox("No Appointment Time is Currently Selected", "Warning");
        command(name).trigger();
    }
}

TEST_F(WeekView, WhoMayOnlyReadAddsNothingByDoubleClick) {
    Session().ScreenAccess = 1;
    openByHand();
    doubleClick(calendar().CellRect(4, 600).center());
}

TEST_F(WeekView, ADragToAnotherDayChangesTheDateAndTheTime) {
    const qint64 key = add(anAppointment("O'Brien, Anna").on(Monday).at(9, 0).until(9, 50));
    openByHand();

    moveTo("O'Brien, Anna", 3, 660);

    EXPECT_EQ(when(key), "2026-03-11 660-710");
    EXPECT_EQ(columnOf("O'Brien, Anna"), 3);
    EXPECT_EQ(stored(key, "lastmodifieduid"), "REED");
    EXPECT_EQ(stored(key, "clinicianid"), "REED");
    EXPECT_TRUE(
        database_.text("Select LogDescription from AuditLog").endsWith(") to 03/11/26 at 11:00 AM for O'Brien, Anna"));
}

TEST_F(WeekView, ADragToAnotherDayTakesTheRoomAlong) {
    const qint64 key = add(anAppointment("Anna").on(Monday).at(9, 0).until(9, 50));
    book(key, 540, 590, "2026/03/09");
    openByHand();

    moveTo("Anna", 3, 660);

    EXPECT_EQ(database_.text("Select nApptDate from roomschedule").left(10), "2026-03-11");
    EXPECT_EQ(database_.number("Select nStartTime from roomschedule"), 660);
}

TEST_F(WeekView, ARoomThatIsTakenOnTheOtherDayIsAskedAboutAndRefused) {
    const qint64 key = add(anAppointment("Anna").on(Monday).at(9, 0).until(9, 50));
    book(key, 540, 590, "2026/03/09");
    book(77, 660, 720, "2026/03/11");
    openByHand();
    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.reject(); });

    moveTo("Anna", 3, 660);

    EXPECT_EQ(when(key), "2026-03-09 540-590");
    EXPECT_EQ(columnOf("Anna"), 1);
}

TEST_F(WeekView, AnItemThatAnotherDeskDeletedLeavesTheWeekWhenItIsDragged) {
    const qint64 key = add(anAppointment("Anna").on(Monday).at(9, 0).until(9, 50));
    openByHand();
    otherDeskDeletes(key);
    desk.expectBox(deletedByOthers, "Error");

    moveTo("Anna", 3, 660);

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(WeekView, AnItemThatAnotherDeskDeletedIsToldWhenItIsOpened) {
    const qint64 key = add(anAppointment("Anna").on(Monday).at(9, 0).until(9, 50));
    openByHand();
    select("Anna");
    otherDeskDeletes(key);
    desk.expectBox("Appointment not found in database. It may have been deleted by another user.",
                   "Appointment not found");

    this->key(Qt::Key_Return);

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(WeekView, AnItemThatAnotherDeskMovedToAnotherDayIsNotOverwritten) {
    const qint64 key = add(anAppointment("Anna").on(Monday).at(9, 0).until(9, 50));
    openByHand();
    otherDeskSets(key, "dapptdate = '2026/03/13'");
    desk.expectBox(
        "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.",
        "Error");

    moveTo("Anna", 3, 660);

    EXPECT_EQ(when(key), "2026-03-13 540-590");
    EXPECT_EQ(columnOf("Anna"), 5);
}

TEST_F(WeekView, AStatusIsGivenToTheItemOfAnyDay) {
    const qint64 key = add(anAppointment("Anna").on(QDate(2026, 3, 13)).status(ncolor::Pending));
    openByHand();
    select("Anna");
    command("mnuAKept").trigger();
    EXPECT_EQ(stored(key, "ncolor"), QString::number(ncolor::Kept));
    EXPECT_EQ(when(key), "2026-03-13 540-590");
}

TEST_F(WeekView, ATextTypedInPlaceLeavesTheItemOnItsDay) {
    const qint64 key = add(anAppointment("Lunch").on(QDate(2026, 3, 13)).status(ncolor::Unavailable));
    openByHand();
    type("Lunch", QStringLiteral("Long lunch"));
    EXPECT_EQ(stored(key, "cappttext"), "Long lunch");
    EXPECT_EQ(when(key), "2026-03-13 540-590");
}

TEST_F(WeekView, TheDeletionAuditsTheItemsOwnDate) {
    add(anAppointment("Anna").on(QDate(2026, 3, 13)));
    openByHand();
    select("Anna");
    desk.expectBox("Are you sure you want to delete this appointment?", "Delete Appointment", Answer::Yes);
    command("mnuADelete").trigger();
    EXPECT_TRUE(database_.text("Select LogDescription from AuditLog").contains("13"));
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(WeekView, AWeekOfAThousandRowsIsShownWhole) {
    for (int i = 0; i < 1000; ++i)
        add(anAppointment("Many").on(Monday.addDays(i % 5)).at(8 + i % 9, 0).until(9 + i % 9, 0));
    open();
    EXPECT_EQ(calendar().ItemCount(), 1000);
}
