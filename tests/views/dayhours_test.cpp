#include <QAction>
#include <QDialog>
#include <QMenuBar>

#include "data/codes.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

// March 11, 2026, is a Wednesday: workdayvalue 4.
class DayHours : public DayFixture {
  protected:
    void addHours(const char* start, const char* end, int weekday = 4) {
        run(QStringLiteral(
                "Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', %1, %2, %3)")
                .arg(weekday)
                .arg(QString::fromLatin1(start), QString::fromLatin1(end)));
    }
    /// The shaded ranges as "480-539 660-1079".
    [[nodiscard]] std::string shaded() {
        QStringList ranges;
        for (const TimeRange& range : calendar().TimeRanges()) {
            EXPECT_EQ(range.color, 8421504);
            ranges << QStringLiteral("%1-%2").arg(range.start).arg(range.end);
        }
        return ranges.join(QLatin1Char(' ')).toStdString();
    }
};

TEST_F(DayHours, TimeBeforeAndAfterWorkIsShaded) {
    addHours("540", "960");

    open();

    EXPECT_EQ(shaded(), "480-539 961-1079");
}

TEST_F(DayHours, ADayOffIsShadedWhole) {
    addHours("null", "null");

    open();

    EXPECT_EQ(shaded(), "480-1079");
}

TEST_F(DayHours, WorkFromMidnightCountsAsADayOff) {
    addHours("0", "720");

    open();

    EXPECT_EQ(shaded(), "480-1079");
}

TEST_F(DayHours, AProviderWithoutHoursOnThatWeekdayIsNotShaded) {
    addHours("540", "960", 5);

    open();

    EXPECT_EQ(shaded(), "");
}

TEST_F(DayHours, HoursThatFillTheGridLeaveNothingToShade) {
    addHours("420", "1200");

    open();

    EXPECT_EQ(shaded(), "");
}

TEST_F(DayHours, ShadingBeginsWhereAnEarlyAppointmentWidenedTheGrid) {
    addHours("540", "1080");
    add(anAppointment("Early").at(6, 30));

    open();

    EXPECT_EQ(shaded(), "390-539");
}

class DayRights : public DayFixture {
  protected:
    [[nodiscard]] bool enabled(const char* name) { return command(name).isEnabled(); }
    /// Whether rights take the command away, be there something behind it yet or not.
    [[nodiscard]] bool forbidden(const char* name) {
        const QString tip = command(name).toolTip();
        return !enabled(name) && (tip.startsWith("You may ") || tip == "This needs access to all schedules.");
    }
    [[nodiscard]] bool shown(const char* name) { return command(name).isVisible(); }
};

TEST_F(DayRights, AReadOnlyUserCanNeitherAddNorSeeTheLists) {
    Session().ScreenAccess = 1;

    open();

    for (const char* name : {"mnuANew", "mnuAEdit", "mnuADelete", "mnuToDo"})
        EXPECT_TRUE(forbidden(name)) << name;
    for (const char* name : {"mnuARepeat", "mnuARest", "mnuFLoc", "mnuFRoomList", "mnuFActList", "mnuFAtypes",
                             "mnuVActivity", "mnuFHolidays"})
        EXPECT_FALSE(shown(name)) << name;
}

TEST_F(DayRights, AUserWithoutDeleteRightsKeepsTheMenusButDeletion) {
    Session().ScreenAccess = 2;

    open();

    EXPECT_TRUE(enabled("mnuANew"));
    EXPECT_TRUE(enabled("mnuToDo"));
    EXPECT_TRUE(forbidden("mnuADelete"));
    EXPECT_TRUE(forbidden("mnuTDelete"));
    EXPECT_TRUE(shown("mnuFLoc"));
}

TEST_F(DayRights, OnlyWhoSeesAllProvidersMayChooseAnother) {
    Session().AllProviders = false;
    open();
    for (const char* name : {"mnuFSelect", "mnuVAll", "mnuASearchA"})
        EXPECT_TRUE(forbidden(name)) << name;

    view_.reset();
    Session().AllProviders = true;
    open();
    EXPECT_TRUE(enabled("mnuFSelect"));
    command("mnuFSelect").trigger();
    EXPECT_EQ(main.asked, QStringList{"provider"});
}

TEST_F(DayRights, TheCompanionsScheduleIsOnlyForThoseWithALink) {
    open();
    EXPECT_FALSE(enabled("mnuVFH"));
    EXPECT_EQ(command("mnuVFH").toolTip(), "There is no Fernhall schedule for you.");

    view_.reset();
    Session().FHDatabaseId = "FH1";
    open();
    EXPECT_NE(command("mnuVFH").toolTip(), "There is no Fernhall schedule for you.");
}

TEST_F(DayRights, TheWordForAPatientStandsInTheCommand) {
    Session().WordUsage = "Client";

    open();

    EXPECT_EQ(command("mnuANPat").text(), "&Client...");
}

TEST_F(DayRights, TheMenusHoldEveryCommandOnce) {
    CalendarView& view = open();
    QMenuBar bar;

    view.FillMenus(bar);

    QStringList titles;
    for (const QAction* action : bar.actions())
        titles << action->text();
    EXPECT_EQ(titles, (QStringList{"&File", "&Appointments", "&Tasks", "&View", "&Help"}));
}

TEST_F(DayRights, TheTaskPaneCommandSaysWhatItWillDo) {
    open();

    command("mnuVHideTP").trigger();
    EXPECT_EQ(command("mnuVHideTP").text(), "S&how Task Pane");
    command("mnuVHideTP").trigger();
    EXPECT_EQ(command("mnuVHideTP").text(), "&Hide Task Pane");
}

TEST_F(DayHours, ARowWithoutAStartOrBeforeMidnightDoesNotOpenTheNight) {
    const qint64 without = add(anAppointment("Without").until(9, 30));
    add(anAppointment("Before").at(0, 0).until(8, 30));
    run(QStringLiteral("Update appointments Set nStartTime = null Where nkeyid = %1").arg(without));
    run("Update appointments Set nStartTime = -30 Where cappttext = 'Before'");
    open();
    EXPECT_EQ(calendar().FirstTime(), 480);
    EXPECT_EQ(itemTexts().size(), 2);
    EXPECT_EQ(calendar().Content().pageOf(1, 1).firstTime, 480) << "on paper";

    add(anAppointment("Night").at(0, 0).until(0, 30));
    view_->Reload();
    EXPECT_EQ(calendar().FirstTime(), 0);
}

TEST_F(DayRights, TheListOfUnavailableTimeOpensFromTheFileMenu) {
    open();
    desk.expectForm("frmlocs", [](QDialog& list) { EXPECT_EQ(list.windowTitle(), "Edit Unavailable Time"); });
    command("mnuFAvail").trigger();
}
