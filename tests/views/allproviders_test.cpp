#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>

#include "appointments/frmgrptx.h"
#include "appointments/frmnore.h"
#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/sql.h"
#include "session/preferences.h"
#include "session/session.h"
#include "tests/views/dayhand.h"
#include "views/frmall.h"

namespace {

constexpr char deletedByOthers[] = "Error saving appointment. Another user may have deleted this appointment. ";

/// The practice of Baker, Lane and Reed on Wednesday, March 11, 2026, at Reed's desk.
class AllProviders : public DayHand {
  protected:
    AllProviders() {
        Session().CurrentView = 4;
        Session().AllProviders = true;
        Session().ALEnabled = true;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        addProvider("BAKER", "Baker", "Nursing");
        addProvider("LANE", "Lane", "Psychology");
        addProvider("REED", "Reed", "Psychology");
    }

    std::unique_ptr<CalendarView> makeView() override { return std::make_unique<frmall>(main); }
    frmall& all() { return dynamic_cast<frmall&>(*view_); }

    void addProvider(const char* id, const char* name, const char* discipline) {
        run(db::Sql("Insert Into provider_info (id, prov_lastname, discipline, archive) Values('{}', '{}', '{}', 0)",
                    id, name, discipline));
    }
    ctList& panel() { return *view_->findChild<ctList*>(QStringLiteral("ctList1")); }
    QComboBox& box(const char* name) { return *view_->findChild<QComboBox*>(QLatin1String(name)); }
    /// The titles of the columns, which cboprovs must hold too.
    QString columns() {
        QStringList titles;
        for (int column = 1; column <= calendar().ColumnCount(); ++column)
            titles << calendar().ColumnTitle(column);
        QStringList offered;
        for (int i = 0; i < box("cboprovs").count(); ++i)
            offered << box("cboprovs").itemText(i);
        EXPECT_EQ(offered, titles);
        return titles.join(QLatin1Char(' '));
    }
    void filter(const char* discipline) {
        QComboBox& disciplines = box("cbodisc");
        disciplines.setCurrentText(QString::fromLatin1(discipline));
        Q_EMIT disciplines.activated(disciplines.currentIndex());
    }
    void turn(const char* provider) {
        for (int row = 0; row < panel().RowCount(); ++row)
            if (panel().Cell(row, 2) == QLatin1String(provider)) {
                panel().SelectRow(row);
                QTest::keyClick(&panel(), Qt::Key_Space);
            }
    }
    [[nodiscard]] int columnOf(const char* text) {
        return calendar().ColumnOfItem(calendar().IndexOfKey(item(text).ItemKey));
    }
    void dragTo(const char* text, int column, int minute) {
        const QRect from = calendar().CellRect(columnOf(text), item(text).ItemStart);
        const QPoint press = rectOf(text).center();
        mouseDrag(press, press + (calendar().CellRect(column, minute).topLeft() - from.topLeft()));
    }
    [[nodiscard]] QString times(qint64 key) {
        return stored(key, "clinicianid") + QLatin1Char(' ') + stored(key, "nStartTime") + QLatin1Char('-') +
               stored(key, "nEndTime");
    }
    void book(qint64 key, int start, int end) {
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values(%1, 1, 'Reed', %2, %3, '2026/03/11')")
                .arg(key)
                .arg(start)
                .arg(end));
    }
    void hours(const char* provider, const char* start, const char* end) {
        run(QStringLiteral(
                "Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('%1', 4, %2, %3)")
                .arg(QLatin1String(provider), QLatin1String(start), QLatin1String(end)));
    }
    [[nodiscard]] QStringList shaded() {
        QStringList ranges;
        for (const TimeRange& range : calendar().TimeRanges())
            ranges << QStringLiteral("%1: %2-%3").arg(range.column).arg(range.start).arg(range.end);
        return ranges;
    }
    [[nodiscard]] QString audit() { return database_.text("Select LogDescription from AuditLog"); }
};

}  // namespace

// The panel and the columns.

TEST_F(AllProviders, EveryProviderIsAColumnByName) {
    open();
    EXPECT_EQ(columns(), "Baker Lane Reed");
    EXPECT_EQ(box("cbodisc").itemText(0), "Show All");
    EXPECT_EQ(box("cbodisc").count(), 3) << "Each discipline once.";
    EXPECT_TRUE(all().providerchecked("LANE"));
    EXPECT_FALSE(all().providerchecked("NOBODY"));
    EXPECT_TRUE(command("mnuVAll").isChecked());
}

TEST_F(AllProviders, WhoIsArchivedOrExcludedHasNoColumnButTheUserHas) {
    addProvider("GONE", "Gone", "");
    run("Update provider_info Set archive = 1 Where id = 'GONE'");
    run("Update provider_info Set ExcludeFromScheduler = 1 Where id in ('BAKER', 'REED')");
    open();
    EXPECT_EQ(columns(), "Lane Reed");
}

TEST_F(AllProviders, ADisciplineLeavesItsProviders) {
    open();
    filter("Psychology");
    EXPECT_EQ(columns(), "Lane Reed");
    EXPECT_FALSE(all().providerchecked("BAKER"));
    filter("Show All");
    EXPECT_EQ(columns(), "Baker Lane Reed");
}

TEST_F(AllProviders, AFilterThatNobodyFitsLeavesNoColumnsAndNoItems) {
    add(anAppointment("Anna"));
    open();
    box("cbodisc").addItem("Surgery");
    filter("Surgery");
    EXPECT_EQ(box("cboprovs").count(), 0);
    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_FALSE(view_->findChild<QPushButton*>("cmdgo")->isEnabled());
    EXPECT_EQ(view_->Provider().id, "REED");
    filter("Show All");
    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}

TEST_F(AllProviders, AProviderTakenOffThePanelLosesTheColumnAndTheItems) {
    add(anAppointment("Of Lane").of("LANE"));
    add(anAppointment("Of Reed").of("REED"));
    open();
    turn("Lane");
    EXPECT_EQ(columns(), "Baker Reed");
    EXPECT_EQ(itemTexts(), QStringList{"Of Reed"});
    EXPECT_EQ(columnOf("Of Reed"), 2);
    all().Reload();
    EXPECT_EQ(columns(), "Baker Reed") << "A reload keeps the choice.";
}

TEST_F(AllProviders, TheLastProviderCannotBeTakenOff) {
    open();
    turn("Baker");
    turn("Lane");
    turn("Reed");
    EXPECT_EQ(columns(), "Reed");
    EXPECT_TRUE(all().providerchecked("REED"));
}

TEST_F(AllProviders, TheColumnsToDisplayAreKeptWithinFiveAndTen) {
    open();
    for (const auto& [stored, shown] :
         {std::pair("4", 5), std::pair("5", 5), std::pair("10", 10), std::pair("11", 5), std::pair("many", 5)}) {
        SetPreference(QString::fromLatin1(stored), "AllCols", "Scheduler");
        all().ApplyPreferences();
        EXPECT_EQ(calendar().VisibleColumns(), shown) << stored;
    }
}

TEST_F(AllProviders, ThePanelIsHiddenAndShownByItsCommand) {
    open();
    command("mnuVDisplay").trigger();
    EXPECT_FALSE(panel().isVisible());
    command("mnuVDisplay").trigger();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(AllProviders, OnASmallScreenThePanelWaitsForItsCommand) {
    view_ = makeView();
    view_->resize(400, 300);
    view_->show();
    QApplication::processEvents();
    EXPECT_FALSE(panel().isVisible());
    EXPECT_FALSE(command("mnuVDisplay").isChecked());
    command("mnuVDisplay").trigger();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(AllProviders, AnotherUsersNameForAPatientStandsInTheCommand) {
    Session().WordUsage = "Client";
    open();
    EXPECT_EQ(command("mnuPatient").text(), "&Schedule Client");
}

TEST_F(AllProviders, ThreeHundredProvidersHaveAColumnEach) {
    for (int i = 0; i < 297; ++i)
        run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values('P%1', 'Xu%1', 0)").arg(i));
    add(anAppointment("Of the last").of("P99"));
    open();
    EXPECT_EQ(calendar().ColumnCount(), 300);
    EXPECT_EQ(calendar().ColumnTitle(columnOf("Of the last")), "Xu99");
}

// The day.

TEST_F(AllProviders, EachRowStandsInTheColumnOfItsProvider) {
    add(anAppointment("Of Lane").of("lane"));
    add(anAppointment("Of Reed").of("REED"));
    add(anAppointment("Of one who is gone").of("GONE"));
    add(anAppointment("Tomorrow").on(QDate(2026, 3, 12)));
    open();
    QStringList texts = itemTexts();
    texts.sort();
    EXPECT_EQ(texts, (QStringList{"Of Lane", "Of Reed"}));
    EXPECT_EQ(columnOf("Of Lane"), 2);
    EXPECT_EQ(columnOf("Of Reed"), 3);
    EXPECT_TRUE(main.dateText.contains("2026"));
}

TEST_F(AllProviders, AllDayRowsAndActivitiesOfSeveralAreNotShown) {
    add(anAppointment("Vacation").with("allday", "-1"));
    const qint64 key = add(anAppointment("Meeting").of("~EVT").status(ncolor::Activity));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'REED')").arg(key));
    open();
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, AnEarlyRowWidensTheGridOfAllAndALateOneDoesNot) {
    add(anAppointment("Early").of("LANE").at(7, 0).until(8, 0));
    add(anAppointment("Late").of("LANE").at(19, 0).until(20, 0));
    open();
    EXPECT_EQ(calendar().FirstTime(), 420);
    EXPECT_EQ(calendar().LastTime(), 1079);
}

TEST_F(AllProviders, HiddenNamesCannotBeRead) {
    add(anAppointment("Anna").status(ncolor::Pending));
    Session().HidePatientNames = true;
    open();
    EXPECT_EQ(item("Anna").ItemTextColor, TextColor::SameAsBackground);
}

TEST_F(AllProviders, AHolidayStandsInEveryColumn) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2026/03/11', 0)");
    open();
    ASSERT_EQ(itemTexts(), (QStringList{"Founders", "Founders", "Founders"}));
    for (int index = 1; index <= 3; ++index) {
        EXPECT_EQ(calendar().ColumnOfItem(index), index);
        EXPECT_EQ(std::as_const(calendar()).Item(index).ItemKey, "0");
        EXPECT_TRUE(std::as_const(calendar()).Item(index).ItemBanner);
    }
    EXPECT_TRUE(calendar().HolidayFlag());
    EXPECT_EQ(calendar().DayBackColor(), ncolor::Holiday);
}

TEST_F(AllProviders, AWeekdayWithOneRowOfHoursIsNotShaded) {
    hours("LANE", "600", "720");
    open();
    EXPECT_EQ(shaded(), QStringList());
}

TEST_F(AllProviders, EachColumnIsShadedAroundItsProvidersHours) {
    hours("LANE", "600", "720");
    hours("REED", "null", "null");
    open();
    EXPECT_EQ(shaded(), (QStringList{"2: 480-599", "2: 721-1079", "3: 480-1079"}));
}

TEST_F(AllProviders, AnApostropheInAProvidersIdFindsTheHours) {
    run("Insert Into provider_info (id, prov_lastname, archive) Values('O''BRIEN', 'O''Brien', 0)");
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('O''BRIEN', 4, 600, 1100)");
    hours("LANE", "480", "1100");
    open();
    EXPECT_EQ(shaded(), QStringList{"3: 480-599"});
}

TEST_F(AllProviders, AReloadKeepsThePlaceAndTheSelectedItem) {
    add(anAppointment("Anna").of("LANE").at(15, 0).until(16, 0));
    openByHand();
    calendar().setTopTime(600);
    const int top = calendar().TopTime();
    select("Anna");
    all().Reload();
    EXPECT_EQ(calendar().TopTime(), top);
    ASSERT_TRUE(view_->SelectedItem());
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anna");
    EXPECT_EQ(box("cboprovs").currentText(), "Lane");
}

TEST_F(AllProviders, AppointmentsThatCannotBeReadAreTold) {
    database_.connection().Execute("Drop Table appointmentsevents");
    QString why;
    try {
        const db::Recordset rows(QStringLiteral("Select * from appointmentsevents"), Session().Connection);
    } catch (const db::DatabaseError& error) {
        why = error.description;
    }
    desk.expectBox(QStringLiteral("Error loading schedule. ") + why, "Error");
    open();
    EXPECT_EQ(columns(), "Baker Lane Reed");
}

TEST_F(AllProviders, ADayOfAThousandRowsIsShownWhole) {
    for (int i = 0; i < 1000; ++i)
        add(anAppointment("Many").of(i % 2 == 0 ? "LANE" : "REED").at(8 + i % 9, 0).until(9 + i % 9, 0));
    open();
    EXPECT_EQ(calendar().ItemCount(), 1000);
}

// Booking.

TEST_F(AllProviders, WhatIsBookedInAColumnIsItsProviders) {
    run("Insert Into patient_info (id, last_name, first_name, archive) Values('P1', 'Abel', 'Ann', 0)");
    openByHand();
    desk.expectForm("frmnore", [this](QDialog& form) {
        EXPECT_EQ(view_->Provider().id, "LANE");
        EXPECT_EQ(view_->Provider().name, "Lane");
        auto& editor = dynamic_cast<frmnore&>(form);
        EXPECT_EQ(editor.ctstart->Time(), 600);
        EXPECT_EQ(editor.ctedate->Date(), QDate(2026, 3, 11));
        form.reject();
    });
    doubleClick(calendar().CellRect(2, 600).center());
    EXPECT_EQ(box("cboprovs").currentText(), "Lane");
}

TEST_F(AllProviders, AHeadingChoosesItsProvider) {
    openByHand();
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, calendar().HeadingRect(3).center());
    EXPECT_EQ(box("cboprovs").currentText(), "Reed");
}

TEST_F(AllProviders, WithoutASelectedColumnNothingIsAdded) {
    openByHand();
    view_->DropSelection();
    for (const char* name : {"mnuPatient", "mnuSGroup", "mnuSEvent", "mnuSAType", "mnuSAvail"}) {
        desk.expectBox("No Appointment Time is Currently Selected", "Warning");
        command(name).trigger();
    }
    EXPECT_FALSE(view_->CanAdd());
}

TEST_F(AllProviders, AGroupOpensItsAttendance) {
    add(anAppointment("Anger").of("LANE").status(ncolor::Group));
    openByHand();
    select("Anger");
    desk.expectForm("frmgrptx", [](QDialog& form) { form.reject(); });
    command("mnuEdit").trigger();
}

// Drags.

TEST_F(AllProviders, ADragToAnotherColumnMakesItTheOtherProviders) {
    const qint64 key = add(anAppointment("O'Brien, Anna").of("LANE").at(9, 0).until(9, 50));
    openByHand();

    dragTo("O'Brien, Anna", 3, 660);

    EXPECT_EQ(times(key), "REED 660-710");
    EXPECT_EQ(columnOf("O'Brien, Anna"), 3);
    EXPECT_EQ(box("cboprovs").currentText(), "Reed");
    EXPECT_TRUE(audit().contains(" with Lane) to 03/11/26 at 11:00 AM for O'Brien, Anna with Reed"))
        << audit().toStdString();
}

TEST_F(AllProviders, ADragWithinItsColumnNamesTheProviderOnce) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50));
    openByHand();

    dragTo("Anna", 2, 660);

    EXPECT_EQ(times(key), "LANE 660-710");
    EXPECT_TRUE(audit().contains("9:00 AM) to 03/11/26 at 11:00 AM for Anna with Lane")) << audit().toStdString();
}

TEST_F(AllProviders, ADropInTheWayOfTheSessionsProviderIsAskedAboutAndRefused) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50).with("patientid", "'P1'"));
    add(anAppointment("Of Reed").of("REED").at(11, 0).until(12, 0));
    openByHand();
    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.reject(); });

    dragTo("Anna", 1, 660);

    EXPECT_EQ(times(key), "LANE 540-590");
    EXPECT_EQ(columnOf("Anna"), 2);
}

TEST_F(AllProviders, ADropOfWhatNamesNoPatientIsNotAskedAbout) {
    const qint64 key = add(anAppointment("Lunch").of("LANE").status(ncolor::Unavailable).at(9, 0).until(9, 50));
    add(anAppointment("Of Reed").of("REED").at(11, 0).until(12, 0));
    openByHand();

    dragTo("Lunch", 1, 660);

    EXPECT_EQ(times(key), "BAKER 660-710");
}

TEST_F(AllProviders, ATakenRoomIsAskedAboutAndTheDayIsReadAnew) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50));
    run("Insert Into rooms (Room) Values('Blue')");
    book(key, 540, 590);
    book(77, 660, 720);
    openByHand();
    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.reject(); });

    dragTo("Anna", 3, 660);

    EXPECT_EQ(times(key), "LANE 540-590");
    EXPECT_EQ(columnOf("Anna"), 2);
}

TEST_F(AllProviders, ABookedRoomMovesAlong) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50));
    run("Insert Into rooms (Room) Values('Blue')");
    book(key, 540, 590);
    openByHand();

    dragTo("Anna", 3, 660);

    EXPECT_EQ(database_.number("Select nStartTime from roomschedule"), 660);
}

TEST_F(AllProviders, AnItemThatAnotherDeskDeletedLeavesTheDayWhenItIsDragged) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50));
    openByHand();
    otherDeskDeletes(key);
    desk.expectBox(deletedByOthers, "Error");

    dragTo("Anna", 3, 660);

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, AnItemThatAnotherDeskGaveToSomebodyElseIsNotOverwritten) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50));
    openByHand();
    otherDeskSets(key, "clinicianid = 'BAKER'");
    desk.expectBox(
        "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.",
        "Error");

    dragTo("Anna", 3, 660);

    EXPECT_EQ(times(key), "BAKER 540-590");
    EXPECT_EQ(columnOf("Anna"), 1);
}

TEST_F(AllProviders, AnItemThatAnotherDeskDeletedIsToldWhenItIsOpened) {
    const qint64 key = add(anAppointment("Anna").of("LANE"));
    openByHand();
    select("Anna");
    otherDeskDeletes(key);
    desk.expectBox("Appointment not found in database. It may have been deleted by another user.",
                   "Appointment not found");
    this->key(Qt::Key_Return);
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, AnAppointmentMayBeDraggedOntoAHoliday) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2026/03/11', 0)");
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50));
    openByHand();
    dragTo("Anna", 3, 660);
    EXPECT_EQ(times(key), "REED 660-710");
}

TEST_F(AllProviders, AStatusLeavesTheProviderAsItIs) {
    const qint64 key = add(anAppointment("Anna").of("LANE").status(ncolor::Pending));
    openByHand();
    select("Anna");
    command("mnuAKept").trigger();
    EXPECT_EQ(stored(key, "ncolor"), QString::number(ncolor::Kept));
    EXPECT_EQ(stored(key, "clinicianid"), "LANE");
    select("Anna");
    command("mnuTCancel").trigger();
    EXPECT_EQ(stored(key, "ncolor"), QString::number(ncolor::TherapistCancelled));
}

// Moving to one provider.

TEST_F(AllProviders, GoShowsTheDayOfTheChosenProvider) {
    run("Insert Into passwords (pswd_user_id, pswd_type_of_access) Values('LANE', 1)");
    open();
    box("cboprovs").setCurrentText("Lane");
    view_->findChild<QPushButton*>("cmdgo")->click();
    EXPECT_EQ(Session().ProviderId, "LANE");
    EXPECT_EQ(Session().ProviderName, "Lane");
    EXPECT_EQ(main.asked, (QStringList{"changeview 0", "provider chosen"}));
}

TEST_F(AllProviders, GoToTheSessionsProviderOnlyChangesTheView) {
    open();
    box("cboprovs").setCurrentText("Reed");
    view_->findChild<QPushButton*>("cmdgo")->click();
    EXPECT_EQ(main.asked, QStringList{"changeview 0"});
}

TEST_F(AllProviders, GoToOneWithoutAPasswordIsToldAndStays) {
    open();
    box("cboprovs").setCurrentText("Lane");
    desk.expectBox("Error moving to selected provider. ", "Error");
    view_->findChild<QPushButton*>("cmdgo")->click();
    EXPECT_EQ(Session().ProviderId, "REED");
    EXPECT_EQ(main.asked, QStringList());
}
