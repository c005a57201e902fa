#include <algorithm>
#include <QAction>
#include <QMenuBar>
#include <QPushButton>

#include "appointments/frmactsc.h"
#include "data/codes.h"
#include "people/frmlocs.h"
#include "platform/calendar/ctweek.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "search/frmfinda.h"
#include "tests/shell/practicefixture.h"
#include "views/frmmtv.h"

namespace {

const QDate Wednesday(2026, 3, 11);

/// REED's March 2026.
class MonthView : public PracticeFixture {
  protected:
    MonthView() {
        Session().CurrentView = View::Month;
        Session().AllProviders = true;
    }
    frmmtv& open() {
        view_ = std::make_unique<frmmtv>(main);
        view_->resize(1000, 700);
        view_->show();
        settle();
        return *view_;
    }
    [[nodiscard]] QWidget& openView() override { return *view_; }
    [[nodiscard]] ctWeek& month() { return *view_->findChild<ctWeek*>(QStringLiteral("ctWeek1")); }
    [[nodiscard]] QStringList texts() {
        QStringList found;
        for (int index = 1; index <= month().ItemCount(); ++index)
            found << month().Item(index).ItemText;
        return found;
    }
    [[nodiscard]] const MonthCell& cellOf(QDate day) {
        const std::vector<MonthCell>& cells = month().Layout().cells;
        return *std::find_if(cells.begin(), cells.end(), [day](const MonthCell& cell) { return cell.day == day; });
    }
    [[nodiscard]] QString tipOn(QDate day) { return month().TipAt(cellOf(day).lines.front().rect.center()); }
    void press(Qt::Key key) {
        QTest::keyClick(&month(), key);
        settle();
    }
    void attend(qint64 key, const char* provider) {
        run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, '%2')")
                .arg(key)
                .arg(QLatin1String(provider)));
    }

    std::unique_ptr<frmmtv> view_;
};

TEST(DaysOfAMonth, AreCountedWithALeapDayInEveryFourthYear) {
    EXPECT_EQ(DaysInMonth(1, 2026), 31);
    EXPECT_EQ(DaysInMonth(4, 2026), 30);
    EXPECT_EQ(DaysInMonth(12, 2026), 31);
    EXPECT_EQ(DaysInMonth(2, 2026), 28);
    EXPECT_EQ(DaysInMonth(2, 2028), 29);
    EXPECT_EQ(DaysInMonth(2, 2000), 29);
    EXPECT_EQ(DaysInMonth(2, 2100), 29);
    EXPECT_EQ(DaysInMonth(2, 1900), 29);
    EXPECT_EQ(DaysInMonth(0, 2026), 0);
    EXPECT_EQ(DaysInMonth(13, 2026), 0);
    EXPECT_EQ(DaysInMonth(-1, 2026), 0);
}

TEST_F(MonthView, ShowsTheProvidersMonthAndTheNeighbouringDaysInItsWeeks) {
    add(anAppointment("First day").on(QDate(2026, 3, 1)));
    add(anAppointment("Last day").on(QDate(2026, 3, 31)));
    add(anAppointment("Monday before").on(QDate(2026, 2, 23)));
    add(anAppointment("Sunday after").on(QDate(2026, 4, 5)));
    add(anAppointment("Week before").on(QDate(2026, 2, 22)));
    add(anAppointment("Week after").on(QDate(2026, 4, 6)));
    add(anAppointment("Another's").of("LANE"));
    add(anAppointment("Another's before").of("LANE").on(QDate(2026, 2, 24)));

    for (int time = 1; time <= 2; ++time) {
        open();

        EXPECT_EQ(texts(), (QStringList{"First day", "Last day", "Monday before", "Sunday after"}));
        EXPECT_EQ(month().Month(), 3);
        EXPECT_EQ(month().Year(), 2026);
        EXPECT_EQ(main.dateText, "Month of March, 2026");
    }
    EXPECT_EQ(tipOn(QDate(2026, 2, 23)), "Monday before - 9:00 AM - 9:50 AM");
    EXPECT_EQ(tipOn(QDate(2026, 3, 31)), "Last day - 9:00 AM - 9:50 AM");
}

TEST_F(MonthView, ShowsTheHolidaysOfAllItsDays) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders'' Day', '2020/03/11', 1)");
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Before', '2026/02/24', 0)");
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('After', '2026/04/03', 0)");
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Unseen', '2026/04/10', 0)");

    open();

    EXPECT_EQ(texts(), (QStringList{"Founders' Day", "Before", "After"}));
    EXPECT_EQ(tipOn(Wednesday), "Founders' Day");
    EXPECT_EQ(tipOn(QDate(2026, 4, 3)), "After");
    EXPECT_TRUE(month().Item(2).ItemBanner);
}

TEST_F(MonthView, AMonthThatFillsItsWeeksHasNoNeighbours) {
    main.SetDate(QDate(2027, 2, 10));  // Monday the 1st to Sunday the 28th.
    add(anAppointment("Inside").on(QDate(2027, 2, 28)));
    add(anAppointment("Before").on(QDate(2027, 1, 31)));
    add(anAppointment("After").on(QDate(2027, 3, 1)));

    open();

    EXPECT_EQ(texts(), QStringList{"Inside"});
}

TEST_F(MonthView, AnActivityOnANeighbouringDayShowsOnce) {
    const qint64 theirs =
        add(anAppointment("Staff meeting").of("~EVT").status(ncolor::Activity).on(QDate(2026, 2, 25)));
    attend(theirs, "REED");
    attend(theirs, "LANE");

    open();

    EXPECT_EQ(texts(), QStringList{"Staff meeting"});
}

TEST_F(MonthView, TheItemsHaveTheColoursAndTheMarksOfTheirStatus) {
    add(anAppointment("Anna").status(ncolor::Kept));
    add(anAppointment("Type slot").status(0x123456).with("appttype", "4"));

    open();

    EXPECT_EQ(month().Item(1).ItemColor, ncolor::Kept);
    EXPECT_EQ(month().Item(1).ItemStatusMark, StatusMark::Kept);
    EXPECT_EQ(month().Item(2).ItemColor, 0x123456);
    EXPECT_EQ(month().Item(2).ItemBackColor, std::nullopt);
}

TEST_F(MonthView, AnAllDayAppointmentShows) {
    add(anAppointment("Conference").with("allday", "1"));

    open();

    EXPECT_EQ(texts(), QStringList{"Conference"});
}

TEST_F(MonthView, AnActivityInWhichTheProviderTakesPartShowsOnce) {
    const qint64 theirs = add(anAppointment("Staff meeting").of("~EVT").status(ncolor::Activity));
    attend(theirs, "REED");
    attend(theirs, "LANE");
    const qint64 own = add(anAppointment("Own meeting").status(ncolor::Activity));
    attend(own, "BAKER");
    attend(own, "LANE");
    attend(add(anAppointment("Elsewhere").of("~EVT").status(ncolor::Activity)), "LANE");

    open();

    EXPECT_EQ(texts().size(), 2);
    EXPECT_TRUE(texts().contains(QStringLiteral("Staff meeting")));
    EXPECT_TRUE(texts().contains(QStringLiteral("Own meeting")));
}

TEST_F(MonthView, FebruaryOfACenturyReadsTwentyNineDays) {
    main.SetDate(QDate(2100, 2, 10));
    add(anAppointment("The 28th").on(QDate(2100, 2, 28)));
    add(anAppointment("The day after").on(QDate(2100, 3, 1)));
    add(anAppointment("Too late").on(QDate(2100, 3, 2)));

    open();

    EXPECT_EQ(texts(), (QStringList{"The 28th", "The day after"}));
    EXPECT_EQ(main.dateText, "Month of February, 2100");
}

TEST_F(MonthView, TheTipTellsTheTextAndTheTimes) {
    add(anAppointment("Anna O'Brien").at(9, 0));

    open();

    EXPECT_EQ(tipOn(Wednesday), "Anna O'Brien - 9:00 AM - 9:50 AM");
    EXPECT_EQ(month().TipAt(cellOf(QDate(2026, 3, 20)).rect.center()), QString());
    EXPECT_EQ(month().TipAt(QPoint(-5, -5)), QString());
}

TEST_F(MonthView, TheTipFollowsTheOrderOfTheDayAndNotOfTheDatabase) {
    add(anAppointment("Later").at(15, 0));
    add(anAppointment("Sooner").at(8, 0));

    open();

    EXPECT_EQ(tipOn(Wednesday), "Sooner - 8:00 AM - 8:50 AM");
}

TEST_F(MonthView, HiddenNamesAreNeitherInTheMonthNorInTheTip) {
    Session().HidePatientNames = true;
    add(anAppointment("Anna").status(ncolor::Pending));
    add(anAppointment("Staff meeting").on(QDate(2026, 3, 12)).status(ncolor::Activity));

    open();

    EXPECT_EQ(month().Item(1).ItemTextColor, TextColor::SameAsBackground);
    EXPECT_EQ(tipOn(Wednesday), "9:00 AM - 9:50 AM");
    EXPECT_FALSE(month().SelectionText().contains(QStringLiteral("Anna")));
    EXPECT_EQ(tipOn(QDate(2026, 3, 12)), "Staff meeting - 9:00 AM - 9:50 AM");
}

TEST_F(MonthView, AStepIsThirtyDays) {
    const frmmtv& view = open();
    EXPECT_EQ(view.Stepped(QDate(2026, 3, 11), 1), QDate(2026, 4, 10));
    EXPECT_EQ(view.Stepped(QDate(2026, 3, 11), -1), QDate(2026, 2, 9));
    EXPECT_EQ(view.Stepped(QDate(2026, 1, 31), 1), QDate(2026, 3, 2));
}

TEST_F(MonthView, TheWheelAndThePageKeysStep) {
    open();
    press(Qt::Key_PageDown);
    press(Qt::Key_PageUp);
    QWheelEvent turn(QPointF(50, 200), QPointF(50, 200), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&month(), &turn);
    EXPECT_EQ(main.asked, (QStringList{"cycledate 1", "cycledate 0", "cycledate 1"}));
}

TEST_F(MonthView, AClickOnADayIsTheMainWindowsDateAndStaysOverAReload) {
    frmmtv& view = open();
    QTest::mouseClick(&month(), Qt::LeftButton, {}, cellOf(QDate(2026, 3, 20)).rect.center());
    EXPECT_EQ(main.Date(), QDate(2026, 3, 20));
    add(anAppointment("From another desk"));

    view.Reload();

    EXPECT_EQ(month().Date(), QDate(2026, 3, 20));
    EXPECT_EQ(texts(), QStringList{"From another desk"});
}

TEST_F(MonthView, AClickOnADayOfAnotherMonthLeavesTheMonthOpen) {
    open();
    QTest::mouseClick(&month(), Qt::LeftButton, {}, cellOf(QDate(2026, 4, 1)).rect.center());
    EXPECT_EQ(main.Date(), Wednesday);
    EXPECT_EQ(month().Month(), 3);
}

TEST_F(MonthView, AnArrowOverTheEndOfTheMonthGoesOnWithTheNextDay) {
    add(anAppointment("In April").on(QDate(2026, 4, 2)));
    main.SetDate(QDate(2026, 3, 31));
    open();

    press(Qt::Key_Right);

    EXPECT_EQ(main.Date(), QDate(2026, 4, 1));
    EXPECT_EQ(texts(), QStringList{"In April"});
}

TEST_F(MonthView, ADoubleClickOpensTheDayInTheDayView) {
    open();
    const QPoint place = cellOf(QDate(2026, 4, 1)).rect.center();
    QTest::mouseDClick(&month(), Qt::LeftButton, {}, place);
    settle();
    EXPECT_EQ(main.Date(), QDate(2026, 4, 1));
    EXPECT_EQ(main.asked, QStringList{"changeview 0"});
}

TEST_F(MonthView, EnterOpensTheSelectedDay) {
    open();
    press(Qt::Key_Left);
    press(Qt::Key_Return);
    EXPECT_EQ(main.Date(), QDate(2026, 3, 10));
    EXPECT_EQ(main.asked, QStringList{"changeview 0"});
}

TEST_F(MonthView, ItsMenusHoldFileViewAndHelpOnly) {
    frmmtv& view = open();
    QMenuBar bar;
    view.FillMenus(bar);
    QStringList titles;
    for (const QAction* menu : bar.actions())
        titles << menu->text();
    EXPECT_EQ(titles, (QStringList{"&File", "&View", "&Help"}));
    EXPECT_TRUE(command("mnuVMonth").isChecked());
    EXPECT_FALSE(view.CanAdd());
    EXPECT_FALSE(view.CanPrint());
}

TEST_F(MonthView, TheCommandsAskTheMainWindow) {
    open();
    for (const char* name : {"mnuFSelect", "mnuFPrefs", "mnuVDay", "mnuVWeek", "mnuVRoom", "mnuVToday", "mnuVNext",
                             "mnuHContents", "mnuFExit"})
        command(name).trigger();
    EXPECT_EQ(main.asked, (QStringList{"provider", "preferences", "changeview 0", "changeview 1", "changeview 4",
                                       "today", "cycledate 1", "help", "leave"}));
}

TEST_F(MonthView, TheAddressBookOpensFromTheViewMenu) {
    open();
    desk.expectForm("frmabook", [](QDialog&) {});
    command("mnuVABook").trigger();
}

TEST_F(MonthView, TheListsOpenInTheirModes) {
    open();
    const std::pair<const char*, const char*> lists[] = {
        {"mnuFLoc", "Locations"}, {"mnuFRoom", "Rooms"}, {"mnuFActList", "Activities/Events"}};
    QStringList titles;
    for (const auto& [name, title] : lists) {
        desk.expectForm("frmlocs", [&titles](QDialog& form) {
            titles << form.windowTitle();
            form.reject();
        });
        command(name).trigger();
    }
    EXPECT_EQ(titles.size(), 3);
    titles.removeDuplicates();
    EXPECT_EQ(titles.size(), 3);
}

TEST_F(MonthView, TheActivitySchedulerOpensAndTheMonthIsReadAfterwards) {
    main.SetDate(QDate(2026, 3, 20));
    open();
    desk.expectForm("frmactsc", [this](QDialog& form) {
        EXPECT_EQ(dynamic_cast<frmactsc&>(form).Request().ActivityKey, 0);
        EXPECT_EQ(dynamic_cast<frmactsc&>(form).ctDEditComp->Date(), QDate(2026, 3, 20));
        add(anAppointment("Booked there"));
        form.reject();
    });
    command("mnuVAct").trigger();
    EXPECT_EQ(texts(), QStringList{"Booked there"});
}

TEST_F(MonthView, WhoMayOnlyReadSeesNoLists) {
    Session().ScreenAccess = 1;
    open();
    for (const char* name : {"mnuFLoc", "mnuFRoom", "mnuFActList", "mnuVAct"})
        EXPECT_FALSE(command(name).isVisible()) << name;
    EXPECT_TRUE(command("mnuFSelect").isVisible());
}

TEST_F(MonthView, WhoSeesOneScheduleChoosesNoOther) {
    Session().AllProviders = false;
    open();
    EXPECT_FALSE(command("mnuFSelect").isVisible());
    EXPECT_FALSE(command("mnuVAll").isVisible());
    EXPECT_TRUE(command("mnuFLoc").isVisible());
}

TEST_F(MonthView, TheCompanionIsOfferedWhereThereIsOne) {
    open();
    EXPECT_FALSE(command("mnuVFH").isVisible());
    Session().FHDatabaseId = QStringLiteral("7");
    open();
    EXPECT_TRUE(command("mnuVFH").isVisible());
}

TEST_F(MonthView, AnotherProviderIsReadAtTheNextLoad) {
    add(anAppointment("Lane's").of("LANE"));
    frmmtv& view = open();
    Session().ProviderId = QStringLiteral("LANE");
    view.Reload();
    EXPECT_EQ(texts(), QStringList{"Lane's"});
}

TEST_F(MonthView, FindGoesToTheMonthAndTheDay) {
    add(anAppointment("Zoe").on(QDate(2026, 5, 6)));
    frmmtv& view = open();
    desk.expectForm("frmfinda", [](QDialog& form) {
        auto& find = dynamic_cast<frmfinda&>(form);
        find.txtfind->setText(QStringLiteral("Zoe"));
        find.cmdfind->click();
        find.cmdgoto->click();
    });
    view.FindAppointment();
    EXPECT_EQ(main.Date(), QDate(2026, 5, 6));
    EXPECT_EQ(texts(), QStringList{"Zoe"});
}

TEST_F(MonthView, TheTimesFollowThePreferences) {
    add(anAppointment("Anna").at(14, 0));
    frmmtv& view = open();
    Session().MilitaryTime = true;
    view.ApplyPreferences();
    EXPECT_EQ(tipOn(Wednesday), "Anna - 14:00 - 14:50");
}

TEST_F(MonthView, ALostDatabaseIsTold) {
    add(anAppointment("Was here"));
    frmmtv& view = open();
    Session().Connection.Close();
    desk.expectBox(
        QStringLiteral(
            "Error reading appointments. The connection cannot be used to perform this operation. It is either closed or invalid in this context."),
        QStringLiteral("Error"));
    view.Reload();
    EXPECT_EQ(month().ItemCount(), 0);
    EXPECT_EQ(main.dateText, "Month of March, 2026");
}

TEST_F(MonthView, ADayOfAThousandAndRowsThatMakeNoSenseArePainted) {
    Session().Connection.BeginTrans();
    for (int i = 0; i < 1000; ++i)
        add(anAppointment("Busy").at(8 + i % 9, i % 60));
    Session().Connection.CommitTrans();
    add(anAppointment("Backwards").at(11, 0).until(10, 0).on(QDate(2026, 3, 12)));
    add(anAppointment("Before").at(-2, 0).until(-1, 0).on(QDate(2026, 3, 13)));
    run("Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Values('2026/03/14', null, null, null, null, 'REED')");

    open();
    view_->grab();

    EXPECT_EQ(month().ItemCount(), 1003);
    EXPECT_GT(cellOf(Wednesday).hidden, 900);
}

}  // namespace
