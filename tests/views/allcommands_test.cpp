#include <QAction>
#include <QPushButton>

#include "appointments/frmgrptx.h"
#include "appointments/frmnore.h"
#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "tests/views/allfixture.h"

namespace {

constexpr char deletedByOthers[] = "Error saving appointment. Another user may have deleted this appointment. ";

}  // namespace

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

TEST_F(AllProviders, ADragNamesAProviderWhoseIdIsWrittenOtherwiseInTheRow) {
    const qint64 key = add(anAppointment("Anna").of("lane").at(9, 0).until(9, 50));
    openByHand();

    dragTo("Anna", 3, 660);

    EXPECT_EQ(times(key), "REED 660-710");
    EXPECT_TRUE(audit().contains(" with Lane) to 03/11/26")) << audit().toStdString();
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

TEST_F(AllProviders, ADropOnTheOtherProvidersBookedTimeIsAskedAboutAndRefused) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50).with("patientid", "'P1'"));
    add(anAppointment("Of Baker").of("BAKER").at(11, 0).until(12, 0));
    openByHand();
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        const auto* list = form.findChild<ctList*>();
        EXPECT_EQ(list->RowCount(), 1);
        EXPECT_EQ(list->Cell(0, 4), "Of Baker");
        EXPECT_EQ(list->Cell(0, 5), "Baker");
        form.reject();
    });

    dragTo("Anna", 1, 660);

    EXPECT_EQ(times(key), "LANE 540-590");
    EXPECT_EQ(columnOf("Anna"), 2);
}

TEST_F(AllProviders, TheOtherProvidersBookedTimeIsTakenWhereTheConflictIsAccepted) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50).with("patientid", "'P1'"));
    add(anAppointment("Of Baker").of("BAKER").at(11, 0).until(12, 0));
    openByHand();
    desk.expectForm("AppointmentConflict",
                    [](QDialog& form) { form.findChild<QPushButton*>(QStringLiteral("cmdaccept"))->click(); });

    dragTo("Anna", 1, 660);

    EXPECT_EQ(times(key), "BAKER 660-710");
}

TEST_F(AllProviders, ADropAmongTheSessionsProvidersBookingsIsAskedAboutOnce) {
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50).with("patientid", "'P1'"));
    add(anAppointment("Of Reed").of("REED").at(11, 0).until(12, 0));
    openByHand();
    desk.expectForm("AppointmentConflict",
                    [](QDialog& form) { form.findChild<QPushButton*>(QStringLiteral("cmdaccept"))->click(); });

    dragTo("Anna", 3, 660);

    EXPECT_EQ(times(key), "REED 660-710");
}

TEST_F(AllProviders, UnavailableTimeOnBookedTimeIsAskedAboutToo) {
    const qint64 key = add(anAppointment("Lunch").of("LANE").status(ncolor::Unavailable).at(9, 0).until(9, 50));
    add(anAppointment("Of Baker").of("BAKER").at(11, 0).until(12, 0));
    openByHand();
    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.reject(); });

    dragTo("Lunch", 1, 660);

    EXPECT_EQ(times(key), "LANE 540-590");
}

TEST_F(AllProviders, WhatNamesNoPatientIsNotAskedAboutTheSessionsProvider) {
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

// What is selected and the chosen provider.

TEST_F(AllProviders, ChoosingAProviderTakesTheSelectedTimeAlong) {
    openByHand();
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, calendar().CellRect(2, 600).center());
    choose("Reed");
    EXPECT_EQ(calendar().SelColumn(), 3);
    EXPECT_EQ(calendar().SelStart(), 600);
    EXPECT_EQ(view_->Provider().id, "REED");
}

TEST_F(AllProviders, ChoosingAProviderLetsGoOfAnothersAppointment) {
    add(anAppointment("Of Lane").of("LANE"));
    openByHand();
    select("Of Lane");
    choose("Lane");
    EXPECT_TRUE(view_->SelectedItem());
    choose("Reed");
    EXPECT_FALSE(view_->SelectedItem());
    EXPECT_FALSE(command("mnuEdit").isEnabled());
    select("Of Lane");
    EXPECT_EQ(view_->Provider().id, "LANE");
}

TEST_F(AllProviders, AnotherHeadingLetsGoOfTheAppointment) {
    add(anAppointment("Of Lane").of("LANE"));
    openByHand();
    select("Of Lane");
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, calendar().HeadingRect(3).center());
    EXPECT_FALSE(view_->SelectedItem());
    EXPECT_EQ(view_->Provider().id, "REED");
}

TEST_F(AllProviders, ChoosingAProviderBringsTheColumnIntoView) {
    addMany();
    openByHand();
    ASSERT_TRUE(calendar().HeadingRect(20).isEmpty() || !calendar().rect().contains(calendar().HeadingRect(20)));
    choose("Xu16");
    EXPECT_TRUE(calendar().rect().contains(calendar().HeadingRect(20)));
}

TEST_F(AllProviders, AnEditedAppointmentStaysItsProviders) {
    run("Insert Into patient_info (id, last_name, first_name, archive) Values('P1', 'Abel', 'Ann', 0)");
    const qint64 key = add(anAppointment("Abel, Ann").of("LANE").with("patientid", "'P1'"));
    openByHand();
    select("Abel, Ann");
    choose("Reed");
    desk.expectForm("frmnore", [this](QDialog& form) {
        EXPECT_EQ(view_->Provider().id, "LANE");
        dynamic_cast<frmnore&>(form).ctend->setTime(660);
        form.findChild<QPushButton*>("cmdOk")->click();
    });
    doubleClick(rectOf("Abel, Ann").center());
    EXPECT_EQ(times(key), "LANE 540-660");
}

// Commands on a row that another desk has deleted.

TEST_F(AllProviders, KeptOnADeletedRowIsToldAndTakesItOffTheDay) {
    const qint64 key = add(anAppointment("Anna").of("LANE").status(ncolor::Pending));
    openByHand();
    select("Anna");
    otherDeskDeletes(key);
    desk.expectBox("Unable to save. Appointment not found. It may have been deleted by another user.",
                   "Appointment not found");
    command("mnuAKept").trigger();
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, MissedAndTheCancellationsOfADeletedRowSayNothing) {
    const qint64 key = add(anAppointment("Anna").of("LANE").status(ncolor::Pending));
    openByHand();
    select("Anna");
    otherDeskDeletes(key);
    for (const char* name : {"mnuAMissed", "mnuAPCancel", "mnuTCancel"})
        command(name).trigger();
    EXPECT_EQ(database_.number("Select Count(*) from appointments"), 0);
}

TEST_F(AllProviders, ADeletedRowLeavesTheDayWhenItIsDeletedHereToo) {
    const qint64 key = add(anAppointment("Anna").of("LANE"));
    openByHand();
    select("Anna");
    otherDeskDeletes(key);
    desk.expectBox("Are you sure you want to delete this appointment?", "Delete Appointment", Answer::Yes);
    command("mnuDelete").trigger();
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, AnArrivalAtADeletedRowIsTold) {
    const qint64 key = add(anAppointment("Anna").of("LANE").status(ncolor::Pending));
    openByHand();
    select("Anna");
    desk.expectForm("frmarrivalTime", [&](QDialog& form) {
        otherDeskDeletes(key);
        form.findChild<QPushButton*>("cmdOk")->click();
    });
    desk.expectBox("Unable to save. Appointment not found. It may have been deleted by another user.",
                   "Appointment not found");
    command("mnuaCheckin").trigger();
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, NothingIsRepeatedWithoutAnAppointment) {
    openByHand();
    desk.expectBox("No appointment selected. First add or select an appointment and then perform Repeating function.",
                   "Warning");
    command("mnuRepeating").trigger();
}

TEST_F(AllProviders, AnArrivalIsShownAndLeavesTheProviderAsItIs) {
    const qint64 key = add(anAppointment("Anna").of("LANE").status(ncolor::Pending));
    openByHand();
    select("Anna");
    desk.expectForm("frmarrivalTime", [](QDialog& form) { form.findChild<QPushButton*>("cmdOk")->click(); });
    command("mnuaCheckin").trigger();
    EXPECT_EQ(stored(key, "ncolor"), QString::number(ncolor::CheckedIn));
    EXPECT_EQ(stored(key, "clinicianid"), "LANE");
    EXPECT_EQ(item("Anna").ItemStatusIcon, 3);
}

TEST_F(AllProviders, AHolidayBannerCannotBeDraggedOpenedOrDeleted) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2026/03/11', 0)");
    openByHand();
    mouseDrag(calendar().ItemRect(2).center(), calendar().CellRect(3, 660).center());
    EXPECT_EQ(calendar().ColumnOfItem(2), 2);
    EXPECT_EQ(calendar().SelectedItem(), 2);
    EXPECT_EQ(box("cboprovs").currentText(), "Lane");
    for (const char* name : {"mnuEdit", "mnuDelete", "mnuAKept"})
        EXPECT_FALSE(command(name).isEnabled()) << name;
}

TEST_F(AllProviders, ADraggedActivityOpensItsSchedulerAndNothingElseIsSaved) {
    const qint64 key = add(anAppointment("Meeting").of("LANE").status(ncolor::Activity).at(9, 0).until(10, 0));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'LANE')").arg(key));
    openByHand();
    desk.expectForm("frmactsc", [key](QDialog& form) {
        EXPECT_EQ(Session().ActivityKey, key);
        form.reject();
    });
    dragTo("Meeting", 3, 660);
    EXPECT_EQ(times(key), "LANE 540-600");
    EXPECT_EQ(columnOf("Meeting"), 2);
    EXPECT_EQ(audit(), "(none)");
}

TEST_F(AllProviders, AReadOnlyUserOpensAndDragsNothing) {
    Session().ScreenAccess = 1;
    const qint64 key = add(anAppointment("Anna").of("LANE").at(9, 0).until(9, 50));
    openByHand();
    dragTo("Anna", 3, 660);
    doubleClick(rectOf("Anna").center());
    doubleClick(calendar().CellRect(2, 840).center());
    EXPECT_EQ(times(key), "LANE 540-590");
    EXPECT_FALSE(command("mnuNew").isEnabled());
}

TEST_F(AllProviders, SelectTherapistAsksTheMainWindow) {
    open();
    command("mnuFSelect").trigger();
    EXPECT_EQ(main.asked, QStringList{"provider"});
}
