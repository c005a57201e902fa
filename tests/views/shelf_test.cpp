#include <QDialog>
#include <QPushButton>

#include "appointments/appointmentconflict.h"
#include "platform/controls/ctlist.h"
#include "tests/platform/printing/pagereader.h"
#include "tests/platform/printing/shownpaper.h"
#include "tests/views/shelffixture.h"
#include "views/frmmtv.h"
#include "views/frmweekv.h"

namespace {

constexpr char changedByOthers[] =
    "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.";
constexpr char deletedByOthers[] = "Error saving appointment. Another user may have deleted this appointment. ";

const QDate Thursday(2026, 3, 12);

}  // namespace

class Shelf : public WithShelf<DayHand> {
  protected:
    Shelf() { run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)"); }
    QStringList wordsOnPaper() {
        const printing::Document document = PreviewOf(desk, [this] { view_->PrintSchedule(); });
        const printing::PageLayout pages(document);
        return WordsOf(pages, 0);
    }
};

class ShelfOfAll : public WithShelf<AllProviders> {};

TEST_F(Shelf, IsHiddenUntilSomethingIsPutOnItAndGoesWithTheLast) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    EXPECT_FALSE(shelf().isVisible());
    EXPECT_FALSE(command("mnuVShelf").isChecked());

    shelve("Anna");
    EXPECT_TRUE(shelf().isVisible());
    EXPECT_TRUE(command("mnuVShelf").isChecked());
    EXPECT_EQ(rows(), QStringList{"Anna, Wed, Mar 11, 9:00 AM, 50 minutes · Reed"});

    press(shelf().List(), Qt::Key_Delete);
    EXPECT_FALSE(shelf().isVisible());
    EXPECT_EQ(shelved(), 0);
}

TEST_F(Shelf, LeavesTheAppointmentBookedAndMarkedWhereItIs) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();

    shelve("Anna");

    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_TRUE(item("Anna").ItemShelved);
    EXPECT_TRUE(calendar().AccessibleItemName(1).endsWith("On the shelf"));
    EXPECT_TRUE(calendar().ToolTipOf(1).contains("On the shelf"));
    shelf().findChild<QPushButton*>("cmdremove")->click();
    EXPECT_FALSE(item("Anna").ItemShelved);
    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
}

TEST_F(Shelf, LandsOnTheSelectedTimeOfAnotherDayWithItsLength) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    goTo(Thursday);

    calendar().selectRange(1, 660, 675);
    trigger("mnuALand");

    EXPECT_EQ(place(anna), "2026-03-12 660-710 REED");
    EXPECT_EQ(stored(anna, "lastmodifieduid"), "REED");
    EXPECT_EQ(database_.text("Select LogDescription from AuditLog"),
              "Modified Appointment (03/11/2026 at 9:00 AM) to 03/12/26 at 11:00 AM for Anna");
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anna");
    EXPECT_EQ(shelved(), 0);
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(bar.Texts(), QStringList{"Moved to Thu, Mar 12 at 11:00 AM."});
}

TEST_F(Shelf, TakesAnItemThatIsDraggedOntoItAndLetsItBeDraggedBack) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    trigger("mnuVShelf");
    ASSERT_TRUE(shelf().isVisible());
    const QPoint onShelf = calendar().mapFromGlobal(shelf().mapToGlobal(shelf().rect().center()));

    mouseDrag(rectOf("Anna").center(), onShelf);
    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_EQ(rows().size(), 1);

    goTo(Thursday);
    const QRect cell = calendar().CellRect(1, 600);
    dragFromShelf(0, cell.center());
    EXPECT_EQ(place(anna), "2026-03-12 600-650 REED");
    EXPECT_EQ(shelved(), 0);
    // The user has shown it, so it stays.
    EXPECT_TRUE(shelf().isVisible());
}

TEST_F(Shelf, ADragFromItEndsWithEscapeAndBesideTheCalendar) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    shelf().List().setFocus();

    dragFromShelf(0, calendar().CellRect(1, 600).center(), false);
    press(shelf().List(), Qt::Key_Escape);
    QTest::mouseRelease(shelf().List().viewport(), Qt::LeftButton);
    dragFromShelf(0, {-400, 100});

    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_EQ(shelved(), 1);
}

TEST_F(Shelf, ADragHoldsOnToItsAppointmentWhenTheShelfIsReadAnew) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    const qint64 bert = add(anAppointment("Bert").at(10, 0).until(10, 30));
    openByHand();
    shelve("Anna");
    shelve("Bert");
    shelf().List().setFocus();
    QWidget& port = *shelf().List().viewport();
    const QPoint there = calendar().CellRect(1, 900).center();
    const QPoint seen = port.mapFromGlobal(calendar().mapToGlobal(there));

    dragFromShelf(1, there, false);
    shelf().TakeOff(static_cast<int>(anna));
    QTest::mouseRelease(&port, Qt::LeftButton, {}, seen);
    settle();
    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_EQ(place(bert), "2026-03-11 900-930 REED");

    shelve("Anna");
    shelve("Bert");
    shelf().List().setFocus();
    dragFromShelf(0, calendar().CellRect(1, 720).center(), false);
    shelf().TakeOff(static_cast<int>(anna));
    QTest::mouseRelease(&port, Qt::LeftButton, {},
                        port.mapFromGlobal(calendar().mapToGlobal(calendar().CellRect(1, 720).center())));
    settle();
    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_EQ(place(bert), "2026-03-11 900-930 REED");
    EXPECT_EQ(shelved(), 1);
}

TEST_F(Shelf, HoldsSeveralAndLandsTheOneThatIsSelectedThere) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    const qint64 bert = add(anAppointment("Bert").at(10, 0).until(10, 30));
    openByHand();
    shelve("Anna");
    shelve("Bert");
    shelve("Bert");
    EXPECT_EQ(rows().size(), 2);
    EXPECT_EQ(shelf().Selected()->key, bert) << "the one put there last";
    shelf().List().setCurrentRow(0);

    calendar().selectRange(1, 900, 915);
    trigger("mnuALand");

    EXPECT_EQ(place(anna), "2026-03-11 900-950 REED");
    EXPECT_EQ(place(bert), "2026-03-11 600-630 REED");
    EXPECT_EQ(rows(), QStringList{"Bert, Wed, Mar 11, 10:00 AM, 30 minutes · Reed"});
}

TEST_F(Shelf, IsTheUsersAndOutlastsTheView) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");

    openByHand();
    EXPECT_EQ(rows().size(), 1);
    EXPECT_TRUE(shelf().isVisible());
    EXPECT_TRUE(item("Anna").ItemShelved);

    Session().UID = QStringLiteral("LANE");
    openByHand();
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(shelf().isVisible());
}

TEST_F(Shelf, ThatTheUserHidStaysHiddenUntilTheNextIsPutThere) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    add(anAppointment("Bert").at(10, 0));
    openByHand();
    shelve("Anna");
    trigger("mnuVShelf");
    EXPECT_FALSE(shelf().isVisible());

    openByHand();
    EXPECT_FALSE(shelf().isVisible());
    EXPECT_TRUE(item("Anna").ItemShelved);
    shelve("Bert");
    EXPECT_TRUE(shelf().isVisible());
}

TEST_F(Shelf, WithoutASelectedTimeNothingLandsAndTheUserIsTold) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    select("Anna");
    desk.expectBox("No Appointment Time is Currently Selected", "Warning");

    trigger("mnuALand");

    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_EQ(shelved(), 1);
}

TEST_F(Shelf, LandingWhereItIsBookedOnlyTakesItOff) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    calendar().selectRange(1, 540, 555);

    trigger("mnuALand");

    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_EQ(shelved(), 0);
    EXPECT_FALSE(item("Anna").ItemShelved);
    EXPECT_EQ(database_.text("Select LogDescription from AuditLog"), "(none)");
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(Shelf, ATimeThatWouldPassMidnightIsRefused) {
    Session().DayEndHour = 24;
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(11, 0));
    openByHand();
    shelve("Anna");
    calendar().selectRange(1, 1380, 1395);
    desk.expectBox("An appointment must end after it starts, on the same day. Open it to change its times.",
                   "Move Appointment");

    trigger("mnuALand");

    EXPECT_EQ(place(anna), "2026-03-11 540-660 REED");
    EXPECT_EQ(shelved(), 1);
}

TEST_F(Shelf, TheRoomMovesAlongAndATakenRoomIsAskedAbout) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(10, 0));
    bookRoom(anna, 540, 600);
    bookRoom(0, 660, 720, "2026/03/12");
    openByHand();
    shelve("Anna");
    goTo(Thursday);
    calendar().selectRange(1, 660, 675);
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        EXPECT_EQ(form.windowTitle(), "Room Conflict");
        form.findChild<QPushButton*>("cmdreschedule")->click();
    });
    trigger("mnuALand");
    EXPECT_EQ(place(anna), "2026-03-11 540-600 REED");
    EXPECT_EQ(shelved(), 1);

    calendar().selectRange(1, 840, 855);
    trigger("mnuALand");
    EXPECT_EQ(place(anna), "2026-03-12 840-900 REED");
    EXPECT_EQ(database_.text(QStringLiteral("Select nApptDate from roomschedule Where apptid = %1").arg(anna)).left(10),
              "2026-03-12");
    EXPECT_EQ(database_.number(QStringLiteral("Select nStartTime from roomschedule Where apptid = %1").arg(anna)), 840);
}

TEST_F(Shelf, WhatAnotherDeskDeletedIsToldAndTakenOff) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    otherDeskDeletes(anna);

    goTo(Thursday);

    EXPECT_EQ(
        bar.Texts(),
        QStringList{"The appointment of Wed, Mar 11 at 9:00 AM was deleted, and was taken off the holding shelf."});
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(shelved(), 0);
}

TEST_F(Shelf, WhatAnotherDeskMovedIsToldOnceAndShownWhereItIsNow) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    otherDeskSets(anna, "dapptdate = '2026/03/13', lastmodifieduid = 'LANE'");

    goTo(Thursday);

    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "The appointment of Wed, Mar 11 at 9:00 AM on the holding shelf was moved by another user. It is on Fri, Mar 13 at 9:00 AM with Reed now."});
    EXPECT_EQ(rows(), QStringList{"Anna, Fri, Mar 13, 9:00 AM, 50 minutes · Reed"});
    bar.Clear();
    goTo(Thursday);
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(Shelf, WhatAnotherDeskChangesBetweenIsNotWrittenOver) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    calendar().selectRange(1, 660, 675);
    otherDeskSets(anna, "nStartTime = 900, nEndTime = 950, lastmodifieduid = 'LANE'");
    desk.expectBox(changedByOthers, "Error");
    trigger("mnuALand");
    EXPECT_EQ(place(anna), "2026-03-11 900-950 REED");
    EXPECT_EQ(rows(), QStringList{"Anna, Wed, Mar 11, 3:00 PM, 50 minutes · Reed"});

    otherDeskDeletes(anna);
    calendar().selectRange(1, 660, 675);
    desk.expectBox(deletedByOthers, "Error");
    trigger("mnuALand");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(Shelf, WhatTheUserMovesOrDeletesInTheCalendarLeavesIt) {
    add(anAppointment("Anna").at(9, 0).until(9, 45));
    add(anAppointment("Bert").at(11, 0).until(11, 45));
    openByHand();
    shelve("Anna");
    shelve("Bert");

    moveTo("Anna", 840);
    EXPECT_EQ(rows().size(), 1);
    select("Bert");
    desk.expectBox("Are you sure you want to delete this appointment?", "Delete Appointment", Answer::Yes);
    trigger("mnuADelete");

    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(shelved(), 0);
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(Shelf, RefusesWhatADragRefuses) {
    add(anAppointment("Slot").with("appttype", "4").status(0x123456));
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Once', '2026/03/11', 0)");
    openByHand();
    EXPECT_FALSE(command("mnuAShelve").isEnabled());
    EXPECT_EQ(command("mnuAShelve").toolTip(), "Select an appointment first.");
    EXPECT_EQ(command("mnuALand").toolTip(), "The holding shelf is empty.");

    select("Slot");
    EXPECT_EQ(command("mnuAShelve").toolTip(), "The slot of an appointment type stays where it is.");
    EXPECT_EQ(command("mnuAMove").toolTip(), "The slot of an appointment type stays where it is.");
    select("Once");
    EXPECT_EQ(command("mnuAMove").toolTip(), "A holiday is not an appointment.");
    EXPECT_FALSE(command("mnuAMove").isEnabled());
}

TEST_F(Shelf, WhoMayOnlyReadPutsNothingThereAndLandsNothing) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    Session().ScreenAccess = 1;
    openByHand();
    select("Anna");

    for (const char* name : {"mnuAMove", "mnuAShelve", "mnuALand"})
        EXPECT_FALSE(command(name).isEnabled()) << name;
    dragFromShelf(0, calendar().CellRect(1, 720).center());
    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
}

TEST_F(Shelf, NeedsItsTableAndTheRestWorksWithoutIt) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    DropTable(database_.connection(), "HoldingShelf");
    openByHand();
    select("Anna");

    for (const char* name : {"mnuAShelve", "mnuALand", "mnuVShelf"}) {
        EXPECT_FALSE(command(name).isEnabled()) << name;
        EXPECT_EQ(
            command(name).toolTip(),
            "The practice's database has no holding shelf yet. The administrator adds it with \"svscheduler-admin upgrade\".");
    }
    EXPECT_TRUE(command("mnuAMove").isEnabled());
    moveTo("Anna", 660);
    EXPECT_EQ(item("Anna").ItemStart, 660);
}

TEST_F(Shelf, ARefusedWriteIsToldInTheBar) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    const QString why = database_.refuse("Insert", "HoldingShelf");

    shelve("Anna");

    EXPECT_EQ(bar.Texts(), QStringList{("The holding shelf could not be changed. " + why).simplified()});
    EXPECT_FALSE(item("Anna").ItemShelved);
}

TEST_F(Shelf, HidesThePatientsNamesWithTheRest) {
    add(anAppointment("O'Brien, Anna").status(ncolor::Pending).with("patientid", "'P1'").at(9, 0));
    add(anAppointment("Staff").status(ncolor::Activity).at(11, 0));
    openByHand();
    shelve("O'Brien, Anna");
    shelve("Staff");
    ASSERT_TRUE(rows()[0].startsWith("O'Brien, Anna"));

    SetNamesHidden(true);
    EXPECT_FALSE(rows()[0].contains("O'Brien"));
    EXPECT_FALSE(shelf().List().item(0)->toolTip().contains("Brien"));
    EXPECT_TRUE(rows()[1].startsWith("Staff"));
    SetNamesHidden(false);
    EXPECT_TRUE(rows()[0].startsWith("O'Brien, Anna"));
}

TEST_F(Shelf, EnterGoesToWhereTheAppointmentIsBooked) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    Session().CurrentView = View::Day;
    shelve("Anna");
    goTo(Thursday);

    press(shelf().List(), Qt::Key_Return);

    EXPECT_EQ(main.Date(), QDate(2026, 3, 11));
    EXPECT_EQ(main.asked.last(), "cycledate 2");
    view_->Reload();
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anna");
}

TEST_F(Shelf, AnActivityOfSeveralLandsInTheActivityScheduler) {
    const qint64 staff = add(anAppointment("Staff").status(ncolor::Activity).at(9, 0).until(9, 30));
    run(QStringLiteral("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values(%1, 'REED')").arg(staff));
    openByHand();
    shelve("Staff");
    calendar().selectRange(1, 660, 675);
    desk.expectForm("frmactsc", [](QDialog& form) { form.reject(); });

    trigger("mnuALand");

    EXPECT_EQ(place(staff), "2026-03-11 540-570 REED");
    EXPECT_EQ(rows().size(), 1) << "The scheduler was given up.";
}

TEST_F(Shelf, AnActivityOfSeveralAsksWhetherSomethingOfAnyoneWhoAttendsIsInTheWay) {
    const qint64 staff = add(anAppointment("Staff").status(ncolor::Activity).of("~EVT").at(9, 0).until(9, 30));
    for (const char* who : {"REED", "LANE"})
        run(db::Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, '{}')", staff, who));
    add(anAppointment("Anna").of("LANE").at(11, 0).until(12, 0));
    openByHand();
    shelve("Staff");
    calendar().selectRange(1, 660, 675);
    const auto answer = [this](bool accept) {
        desk.expectForm("AppointmentConflict", [accept](QDialog& dialog) {
            auto& form = dynamic_cast<AppointmentConflict&>(dialog);
            EXPECT_EQ(form.ctList1->RowCount(), 1);
            EXPECT_EQ(form.ctList1->Cell(0, AppointmentConflict::TextColumn), "Anna");
            EXPECT_EQ(form.ctList1->Cell(0, AppointmentConflict::TextColumn + 1), "LANE");
            (accept ? form.cmdaccept : form.cmdreschedule)->click();
        });
    };
    answer(false);
    trigger("mnuALand");
    answer(true);
    desk.expectForm("frmactsc", [](QDialog& form) { form.reject(); });
    trigger("mnuALand");
}

TEST_F(Shelf, AnActivityOfSeveralIsGoneToInTheSchedulesOfItsAttendees) {
    const qint64 staff = add(anAppointment("Staff").status(ncolor::Activity).of("~EVT").at(9, 0).until(9, 30));
    run(QStringLiteral("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values(%1, 'REED')").arg(staff));
    openByHand();
    Session().CurrentView = View::Day;
    shelve("Staff");
    EXPECT_EQ(rows(), QStringList{"Staff, Wed, Mar 11, 9:00 AM, 30 minutes · its attendees"});
    goTo(Thursday);

    press(shelf().List(), Qt::Key_Return);

    EXPECT_EQ(Session().ProviderId, "REED");
    view_->Reload();
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Staff");
}

TEST_F(Shelf, WhatWasGivenToAScheduleThatTheUserMayNotWorkOnIsNeitherGoneToNorLanded) {
    Session().AllProviders = false;
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    otherDeskSets(anna, "clinicianid = 'LANE', lastmodifieduid = 'ADMIN'");
    goTo(Thursday);

    press(shelf().List(), Qt::Key_Return);
    EXPECT_EQ(Session().ProviderId, "REED");
    EXPECT_EQ(bar.Texts()[0], "The appointment belongs to the schedule of LANE now, which you may not work on.");
    calendar().selectRange(1, 660, 675);
    trigger("mnuALand");
    EXPECT_EQ(place(anna), "2026-03-11 540-590 LANE");
}

TEST_F(Shelf, TheWeekAndTheMonthHaveItToo) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");

    frmweekv week(main);
    EXPECT_EQ(week.findChild<ShelfPanel*>()->List().count(), 1);
    EXPECT_EQ(week.SidePanes().size(), 1);
    frmmtv month(main);
    auto& panel = *month.findChild<ShelfPanel*>();
    EXPECT_EQ(panel.List().count(), 1);
    QTest::keyClick(&panel.List(), Qt::Key_Return);
    EXPECT_EQ(main.asked.last(), "cycledate 2");
}

TEST_F(Shelf, IsNotPrinted) {
    add(anAppointment("Anna").at(9, 0).until(10, 30));
    openByHand();
    const QStringList before = wordsOnPaper();

    shelve("Anna");

    EXPECT_TRUE(before.contains("Anna"));
    EXPECT_EQ(wordsOnPaper(), before);
}

TEST_F(ShelfOfAll, LandingInAnotherColumnGivesItToThatProvider) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    shelve("Anna");
    EXPECT_EQ(rows(), QStringList{"Anna, Wed, Mar 11, 9:00 AM, 50 minutes · Reed"});
    goTo(Thursday);

    calendar().selectRange(2, 660, 675);
    trigger("mnuALand");

    EXPECT_EQ(place(anna), "2026-03-12 660-710 LANE");
    EXPECT_EQ(bar.Texts(), QStringList{"Moved to Thu, Mar 12 at 11:00 AM with Lane."});
    EXPECT_EQ(database_.text("Select LogDescription from AuditLog"),
              "Modified Appointment (03/11/2026 at 9:00 AM with Reed) to 03/12/26 at 11:00 AM for Anna with Lane");
    EXPECT_EQ(calendar().ColumnOfItem(calendar().SelectedItem()), 2);
}

TEST_F(ShelfOfAll, AsksAboutOverlapsAsADragDoes) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    add(anAppointment("Bert").at(11, 0).until(12, 0).of("LANE"));
    openByHand();
    shelve("Anna");
    calendar().selectRange(2, 660, 675);
    desk.expectForm("AppointmentConflict",
                    [](QDialog& form) { form.findChild<QPushButton*>("cmdreschedule")->click(); });
    trigger("mnuALand");
    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");

    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.findChild<QPushButton*>("cmdaccept")->click(); });
    dragFromShelf(0, calendar().CellRect(2, 660).center());
    EXPECT_EQ(place(anna), "2026-03-11 660-710 LANE");
}

TEST_F(ShelfOfAll, ShowGivesTheProviderAColumnAndSelectsTheAppointmentThere) {
    add(anAppointment("Anna").at(9, 0).until(9, 50).of("LANE"));
    openByHand();
    shelve("Anna");
    filter("Nursing");
    goTo(Thursday);
    ASSERT_EQ(columns(), "Baker");

    press(shelf().List(), Qt::Key_Return);
    view_->Reload();

    EXPECT_EQ(columns(), "Baker Lane");
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anna");
    EXPECT_EQ(box("cboprovs").currentText(), "Lane");
}
