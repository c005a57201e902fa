#include <QAction>
#include <QMenu>
#include <QPushButton>

#include "rooms/frmroomappt.h"
#include "tests/rooms/roomsfixture.h"

TEST_F(RoomScheduler, ShowsOneRoomOnOneDay) {
    book("Team meeting");
    book("In the other room", 540, 600, 2);
    book("Tomorrow", 540, 600, 1, 0, "2026/03/12");

    open();

    EXPECT_EQ(rooms().count(), 2);
    EXPECT_EQ(rooms().currentText(), "Blue");
    EXPECT_EQ(itemTexts(), QStringList{"Team meeting"});
    EXPECT_EQ(main.dateText, "Wednesday, March 11, 2026");
    EXPECT_EQ(date().Date(), QDate(2026, 3, 11));

    rooms().setCurrentIndex(1);
    EXPECT_EQ(itemTexts(), QStringList{"In the other room"});
}

TEST_F(RoomScheduler, TheRoomOfLastTimeOpens) {
    open();
    rooms().setCurrentIndex(1);
    open();
    EXPECT_EQ(rooms().currentText(), "Green");
    run("Delete from rooms Where Room = 'Green'");
    open();
    EXPECT_EQ(rooms().currentText(), "Blue");
}

TEST_F(RoomScheduler, WithoutAnyRoomNothingCanBeBookedAndTheViewSaysWhy) {
    run("Delete from rooms");
    open();
    EXPECT_FALSE(calendar().isEnabled());
    EXPECT_FALSE(command("mnuPrint").isEnabled());
    EXPECT_FALSE(command("mnuNew").isEnabled());
    EXPECT_EQ(hint(), "There are no rooms yet. Add them by File, Rooms.");
    view_->AddAppointment();
    EXPECT_EQ(bookings(), 0);
}

TEST_F(RoomScheduler, ADayThatCannotBeReadIsNotTakenForAPracticeWithoutRooms) {
    open();
    const QString why = DropTable(database_.connection(), QStringLiteral("roomschedule"));
    desk.expectBox(QStringLiteral("Error reading room schedule. ") + why, QStringLiteral("Error"));
    view_->Reload();
    EXPECT_EQ(rooms().currentText(), "Blue");
    EXPECT_EQ(hint(), "This could not be read. Reload to try again.");
    EXPECT_FALSE(command("mnuNew").isEnabled());
    EXPECT_EQ(command("mnuNew").toolTip(), hint());
}

TEST_F(RoomScheduler, RoomsThatCouldNotBeReadAreReadAgainByAReload) {
    const QString why = DropTable(Session().Connection, QStringLiteral("Rooms"));
    desk.expectBox(QStringLiteral("Error loading room list. ") + why, QStringLiteral("Error"));
    open();
    EXPECT_EQ(hint(), "This could not be read. Reload to try again.");
    EXPECT_FALSE(calendar().isEnabled());

    run("Create Table rooms (RoomID int Identity(1,1) Not Null Primary Key, Room varchar(50) Null)");
    run("Insert Into rooms (Room) Values('Blue')");
    view_->Reload();
    EXPECT_EQ(rooms().currentText(), "Blue");
    EXPECT_TRUE(calendar().isEnabled());
    EXPECT_TRUE(command("mnuNew").isEnabled());
}

TEST_F(RoomScheduler, ASlotOfAnAppointmentIsLockedMarkedAndRed) {
    book("Anna O'Brien", 540, 600, 1, 77);
    book("Meeting", 600, 660);
    open();
    const CalendarItem& bound = item("Anna O'Brien");
    EXPECT_EQ(bound.ItemColor, 255);
    EXPECT_TRUE(bound.ItemBound);
    EXPECT_TRUE(bound.ItemMoveLocked);
    EXPECT_TRUE(bound.ItemTextLocked);
    EXPECT_FALSE(bound.ItemStatusText.isEmpty());
    EXPECT_FALSE(item("Meeting").ItemBound);
    EXPECT_NE(item("Meeting").ItemColor, 255);
}

TEST_F(RoomScheduler, HiddenNamesHideTheTextsOfAppointmentsOnly) {
    Session().HidePatientNames = true;
    book("Anna O'Brien", 540, 600, 1, 77);
    book("Meeting", 600, 660);
    open();
    EXPECT_EQ(item("Anna O'Brien").ItemTextColor, TextColor::SameAsBackground);
    EXPECT_EQ(item("Meeting").ItemTextColor, TextColor::Normal);
}

TEST_F(RoomScheduler, NewWithoutASelectedTimeIsTold) {
    open();
    desk.expectBox(QStringLiteral("No Appointment Time is Currently Selected"), QStringLiteral("Warning"));
    trigger("mnuNew");
}

TEST_F(RoomScheduler, EditWithoutASelectedMeetingIsTold) {
    open();
    desk.expectBox(QStringLiteral("No appoinyment time is currently selected."), QStringLiteral("Warning"));
    trigger("mnuEdit");
}

TEST_F(RoomScheduler, ADoubleClickOnFreeTimeAddsByTheDialogAndSelectsTheMeeting) {
    open();
    desk.expectForm("frmRoomAppt", [](QDialog& form) {
        auto& dialog = dynamic_cast<frmRoomAppt&>(form);
        EXPECT_EQ(dialog.lblRoom->text(), "Blue");
        EXPECT_EQ(dialog.ctstart->Time(), 600);
        EXPECT_FALSE(dialog.IsEdit());
        dialog.txtsubject->setText(QStringLiteral("D'Arcy"));
        dialog.cmdOk->click();
    });
    doubleClick(calendar().CellRect(1, 600).center());
    EXPECT_EQ(itemTexts(), QStringList{"D'Arcy"});
    EXPECT_EQ(calendar().SelectedItem(), 1);
}

TEST_F(RoomScheduler, ADoubleClickOnAMeetingEditsItAndOnASlotDoesNothing) {
    const int stands = book("Meeting");
    book("Anna", 660, 720, 1, 77);
    open();
    desk.expectForm("frmRoomAppt", [](QDialog& form) {
        auto& dialog = dynamic_cast<frmRoomAppt&>(form);
        EXPECT_TRUE(dialog.IsEdit());
        EXPECT_EQ(dialog.txtsubject->text(), "Meeting");
        dialog.ctend->setTime(630);
        dialog.cmdOk->click();
    });
    doubleClick(rectOf("Meeting").center());
    EXPECT_EQ(stored(stands, "nEndTime"), "630");
    doubleClick(rectOf("Anna").center());
    select("Anna");
    EXPECT_FALSE(command("mnuEdit").isEnabled());
}

TEST_F(RoomScheduler, ADateTypedThereIsGoneTo) {
    book("On Friday", 540, 600, 1, 0, "2026/03/13");
    open();
    date().setFocus();
    date().selectAll();
    QTest::keyClicks(&date(), QStringLiteral("3/13/26"));
    EXPECT_EQ(calendar().Date(), QDate(2026, 3, 11)) << "Not before the date is finished.";
    QTest::keyClick(&date(), Qt::Key_Return);
    settle();
    EXPECT_EQ(itemTexts(), QStringList{"On Friday"});
    EXPECT_EQ(main.dateText, "Friday, March 13, 2026");
    EXPECT_EQ(main.Date(), QDate(2026, 3, 11)) << "The main window's calendar stays.";
}

TEST_F(RoomScheduler, NonsenseInTheDateKeepsTheDayThatIsShown) {
    book("Meeting");
    open();
    date().setText(QStringLiteral("soon"));
    QTest::keyClick(&date(), Qt::Key_Return);
    settle();
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(RoomScheduler, StepsGoByDaysFromTheShownDateAndBackToToday) {
    frmrooms& view = open();
    EXPECT_TRUE(view.StepOwnDate(1));
    EXPECT_EQ(date().Date(), QDate(2026, 3, 12));
    view.cycledate(0);
    view.cycledate(0);
    EXPECT_EQ(calendar().Date(), QDate(2026, 3, 10));
    view.cycledate(2);
    EXPECT_EQ(calendar().Date(), QDate(2026, 3, 11));
    view.ShowDate(QDate(2026, 4, 1));
    EXPECT_EQ(view.ShownDay(main.Date()), QDate(2026, 4, 1));
}

TEST_F(RoomScheduler, AReloadKeepsTheSelectedMeetingAndThePlace) {
    book("Late", 960, 1020);
    frmrooms& view = open();
    select("Late");
    calendar().setTopTime(700);
    const int top = calendar().TopTime();
    book("From another desk");
    view.Reload();
    EXPECT_EQ(calendar().TopTime(), top);
    EXPECT_EQ(std::as_const(calendar()).Item(calendar().SelectedItem()).ItemText, "Late");
    EXPECT_EQ(calendar().ItemCount(), 2);
}

TEST_F(RoomScheduler, AReloadStoresWhatIsBeingTyped) {
    const int stands = book("Meeting");
    frmrooms& view = open();
    beginTyping("Meeting", QStringLiteral("Half typed"));
    view.Reload();
    EXPECT_EQ(stored(stands, "croomtext"), "Half typed");
    EXPECT_EQ(itemTexts(), QStringList{"Half typed"});
}

TEST_F(RoomScheduler, AnEarlyMeetingWidensTheGrid) {
    book("Early", 360, 420);
    open();
    EXPECT_EQ(calendar().FirstTime(), 360);
}

TEST_F(RoomScheduler, TheScaleIsOfFifteenOrSixtyMinutesElseOfThirty) {
    open();
    EXPECT_EQ(calendar().TimeInterval(), 15);
    Session().TimeUnit = 60;
    view_->ApplyPreferences();
    EXPECT_EQ(calendar().TimeInterval(), 60);
    Session().TimeUnit = 5;
    view_->ApplyPreferences();
    EXPECT_EQ(calendar().TimeInterval(), 30);
}

TEST_F(RoomScheduler, ALostDatabaseIsTold) {
    book("Meeting");
    frmrooms& view = open();
    Session().Connection.Close();
    desk.expectBox(
        QStringLiteral(
            "Error reading room schedule. The connection cannot be used to perform this operation. It is either closed or invalid in this context."),
        QStringLiteral("Error"));
    view.Reload();
    EXPECT_EQ(calendar().ItemCount(), 0);
}

TEST_F(RoomScheduler, EditedRoomsAreReadAndTheChosenOneStays) {
    open();
    rooms().setCurrentIndex(1);
    desk.expectForm("frmlocs", [this](QDialog& form) {
        run("Insert Into rooms (Room) Values('Attic')");
        form.reject();
    });
    trigger("mnuRoomList");
    EXPECT_EQ(rooms().count(), 3);
    EXPECT_EQ(rooms().currentText(), "Green");
}

TEST_F(RoomScheduler, ADayOfAThousandMeetingsAndRowsThatMakeNoSenseArePainted) {
    Session().Connection.BeginTrans();
    for (int i = 0; i < 1000; ++i)
        book("Busy", 480 + i % 500, 540 + i % 500);
    Session().Connection.CommitTrans();
    book("Backwards", 700, 600);
    book("Beyond", 1500, 1600);
    run("Insert Into roomschedule (nApptDate, croomid) Values('2026/03/11', 1)");
    open();
    view_->grab();
    EXPECT_EQ(calendar().ItemCount(), 1003);
}

TEST_F(RoomScheduler, TheCommandsAskTheMainWindow) {
    open();
    for (const char* name : {"mnuDay", "mnuWeek", "mnuMonth", "mnuVToday", "mnuVNext", "mnuHContents"})
        command(name).trigger();
    EXPECT_EQ(main.asked,
              (QStringList{"changeview 0", "changeview 1", "changeview 2", "today", "cycledate 1", "help"}));
}

TEST_F(RoomScheduler, TheAddressBookOpensFromTheViewMenu) {
    open();
    desk.expectForm("frmabook", [](QDialog&) {});
    command("mnuVABook").trigger();
}

TEST_F(RoomScheduler, ThePopupOffersWhatIsUnderThePointer) {
    book("Meeting");
    open();
    const auto offered = [this] {
        QStringList names;
        for (const QMenu* menu : view_->findChildren<QMenu*>(QStringLiteral("popup")))
            for (const QAction* action : menu->actions())
                names << action->objectName();
        for (QMenu* menu : view_->findChildren<QMenu*>(QStringLiteral("popup")))
            menu->close();
        settle();
        return names;
    };
    rightClick(rectOf("Meeting").center());
    EXPECT_EQ(offered(), (QStringList{"mnuEdit", "mnuDelete", "mnuFPrintA"}));
    rightClick(calendar().CellRect(1, 700).center());
    EXPECT_EQ(offered(), QStringList{"mnuNew"});
}

TEST_F(RoomScheduler, TheDialogOfAMeetingHasTheCalendarsDateAndSaysWhereTheMeetingIs) {
    const int meeting = book("Team meeting", 540, 600, 1, 0, "2026/03/12");
    open();
    date().setDate(QDate(2026, 3, 12));
    settle();
    ASSERT_EQ(itemTexts(), QStringList{"Team meeting"});
    const auto edit = [this](const QString& subject) {
        calendar().setSelectedItem(1);
        desk.expectForm("frmRoomAppt", [subject](QDialog& form) {
            auto& dialog = dynamic_cast<frmRoomAppt&>(form);
            EXPECT_EQ(dialog.ctedate->Date(), QDate(2026, 3, 11));
            EXPECT_TRUE(dialog.lblmoves->text().contains("12"));
            dialog.txtsubject->setText(subject);
            dialog.cmdOk->click();
        });
        trigger("mnuEdit");
    };
    edit(QStringLiteral("Team meeting"));
    EXPECT_EQ(stored(meeting, "nApptDate").left(10), "2026-03-12") << "Nothing was changed.";
    edit(QStringLiteral("Retreat"));
    EXPECT_EQ(stored(meeting, "croomtext"), "Retreat");
    EXPECT_EQ(stored(meeting, "nApptDate").left(10), "2026-03-11");
}

TEST_F(RoomScheduler, AMeetingThatIsBookedOnAnotherDayThanTheOneShownSaysSo) {
    open();
    date().setDate(QDate(2026, 3, 12));
    settle();
    chooseTime(600, 660);
    desk.expectForm("frmRoomAppt", [](QDialog& form) {
        auto& dialog = dynamic_cast<frmRoomAppt&>(form);
        EXPECT_EQ(dialog.ctedate->Date(), QDate(2026, 3, 11));
        EXPECT_TRUE(dialog.lblmoves->isVisible());
        EXPECT_TRUE(dialog.lblmoves->text().startsWith("The schedule shows 3/12"))
            << dialog.lblmoves->text().toStdString();
        dialog.ctedate->setDate(QDate(2026, 3, 12));
        EXPECT_FALSE(dialog.lblmoves->isVisible());
        dialog.ctedate->setDate(QDate(2026, 3, 11));
        dialog.txtsubject->setText("Retreat");
        dialog.cmdOk->click();
    });
    trigger("mnuNew");
    EXPECT_EQ(database_.text("Select nApptDate from roomschedule").left(10), "2026-03-11");
    EXPECT_TRUE(hint().startsWith("The meeting was booked on 3/11")) << hint().toStdString();

    chooseTime(700, 760);
    EXPECT_EQ(hint(), "The meeting was booked on 3/11/2026, which is not the day shown here.")
        << "A selection by the program leaves it.";
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, calendar().CellRect(1, 800).center());
    EXPECT_EQ(hint(), view_->windowTitle());
}

TEST_F(RoomScheduler, AMeetingOnTheDayShownSaysNothingOfDays) {
    open();
    chooseTime(600, 660);
    desk.expectForm("frmRoomAppt", [](QDialog& form) {
        auto& dialog = dynamic_cast<frmRoomAppt&>(form);
        EXPECT_FALSE(dialog.lblmoves->isVisible());
        dialog.txtsubject->setText("Retreat");
        dialog.cmdOk->click();
    });
    trigger("mnuNew");
    EXPECT_EQ(hint(), view_->windowTitle());
}

TEST_F(RoomScheduler, TheHintNeverMovesTheGridUnderThePointer) {
    book("Anna", 540, 600, 1, 7);
    book("Meeting", 660, 700);
    open();
    for (const int width : {1000, 760, 620, 480}) {
        view_->resize(width, 700);
        settle();
        calendar().clearSelection();
        const QPoint noon = calendar().mapTo(view_.get(), calendar().CellRect(1, 720).center());
        for (const char* selected : {"Anna", "Meeting"}) {
            select(selected);
            settle();
            EXPECT_EQ(calendar().mapTo(view_.get(), calendar().CellRect(1, 720).center()), noon) << width << selected;
        }
    }
}

TEST_F(RoomScheduler, FitsBesideTheTaskPaneOfASmallScreen) {
    EXPECT_LE(open().minimumSizeHint().width(), 440);
}
