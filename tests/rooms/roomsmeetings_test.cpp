#include <QAction>
#include <QPushButton>

#include "platform/controls/noticebar.h"
#include "rooms/frmroomappt.h"
#include "tests/rooms/roomsfixture.h"

namespace {

constexpr char refusedText[] =
    "Unable to edit times or duration in Room Scheduler. This room slot is associated with a scheduled event or appointment.";

}  // namespace

TEST_F(RoomScheduler, TypingOnASelectedTimeBooksAtOnceAndNamesTheMeeting) {
    open();
    chooseTime(600, 660);

    QTest::keyClick(&calendar(), 'T');
    EXPECT_EQ(database_.text(QStringLiteral("Select croomtext from roomschedule")), "New mtg.");
    ASSERT_NE(editor(), nullptr);
    QTest::keyClicks(editor(), QStringLiteral("eam"));
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();

    const int stands = std::as_const(calendar()).Item(1).ItemKey.toInt();
    EXPECT_EQ(stored(stands, "croomtext"), "Team");
    EXPECT_EQ(stored(stands, "nStartTime"), "600");
    EXPECT_EQ(stored(stands, "nEndTime"), "660");
    EXPECT_EQ(stored(stands, "croomid"), "1");
}

TEST_F(RoomScheduler, EscapeLeavesTheTypedMeetingUnnamed) {
    open();
    chooseTime(600, 660);
    QTest::keyClick(&calendar(), 'x');
    QTest::keyClick(editor(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(itemTexts(), QStringList{"New mtg."});
    EXPECT_EQ(bookings(), 1);
}

TEST_F(RoomScheduler, AMeetingThatCannotBeStoredIsToldAndNotShown) {
    open();
    chooseTime(600, 660);
    const QString reason = database_.refuse(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    desk.expectBox(QStringLiteral("Error saving room schedule. ") + reason, QStringLiteral("Error"));
    NoticeBar bar;
    QTest::keyClick(&calendar(), 'x');
    settle();
    EXPECT_EQ(calendar().ItemCount(), 0);

    // What was typed waits in the bar, through as many tries as it takes.
    const QStringList kept{QStringLiteral("Not saved: the meeting on 3/11/2026 at 10:00 AM")};
    EXPECT_EQ(bar.Texts(), kept);
    desk.expectBox(QStringLiteral("Error saving room schedule. ") + reason, QStringLiteral("Error"));
    takeNotice(bar);
    EXPECT_EQ(bar.Texts(), kept);
    database_.allow(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    takeNotice(bar);
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_EQ(database_.text(QStringLiteral("Select croomtext from roomschedule Where nStartTime = 600")), "x");
}

TEST_F(RoomScheduler, ATextThatCannotBeStoredIsKeptForAnotherTry) {
    const int key = book("Meeting");
    open();
    NoticeBar bar;
    const QString reason = database_.refuse(QStringLiteral("Update"), QStringLiteral("roomschedule"));
    desk.expectBox(QStringLiteral("Error saving room schedule. ") + reason, QStringLiteral("Error"));
    type("Meeting", QStringLiteral("Supervision"));
    EXPECT_EQ(item("Meeting").ItemStart, 540);
    EXPECT_EQ(bar.Texts(), QStringList{QStringLiteral("Not saved: the meeting on 3/11/2026 at 9:00 AM")});
    database_.allow(QStringLiteral("Update"), QStringLiteral("roomschedule"));

    // What another desk has written meanwhile is told before it is written over.
    otherDesk(QStringLiteral("Update roomschedule Set croomtext = 'Board' Where nKeyId = %1").arg(key));
    const QString changed = db::RowChangedError().description;
    desk.expectBox(QStringLiteral("Error saving room schedule. ") + changed, QStringLiteral("Error"));
    takeNotice(bar);
    EXPECT_EQ(stored(key, "croomtext"), "Board");
    takeNotice(bar);
    EXPECT_EQ(stored(key, "croomtext"), "Supervision");
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(RoomScheduler, AMeetingTypedInTheGridIsOnTheShownDateAndOneOfTheDialogOnTheCalendarsDate) {
    frmrooms& view = open();
    date().setDate(QDate(2026, 3, 20));
    settle();
    EXPECT_EQ(calendar().Date(), QDate(2026, 3, 20));
    chooseTime(600, 660);
    QTest::keyClick(&calendar(), 'x');
    settle();
    EXPECT_EQ(database_.text(QStringLiteral("Select Count(*) from roomschedule Where nApptDate = '2026/03/20'")), "1");

    calendar().CommitEdit();
    chooseTime(700, 760);
    desk.expectForm("frmRoomAppt", [](QDialog& form) {
        auto& dialog = dynamic_cast<frmRoomAppt&>(form);
        EXPECT_EQ(dialog.ctedate->Date(), QDate(2026, 3, 11));
        dialog.txtsubject->setText(QStringLiteral("From the dialog"));
        dialog.cmdOk->click();
    });
    view.AddAppointment();
    EXPECT_EQ(database_.text(QStringLiteral("Select Count(*) from roomschedule Where nApptDate = '2026/03/11'")), "1");
}

TEST_F(RoomScheduler, AMeetingIsMovedAndSizedAtOnce) {
    const int key = book("Meeting");
    open();
    moveTo("Meeting", 660);
    EXPECT_EQ(stored(key, "nStartTime"), "660");
    EXPECT_EQ(stored(key, "nEndTime"), "720");
    sizeTo("Meeting", 780);
    EXPECT_EQ(stored(key, "nStartTime"), "660");
    EXPECT_EQ(stored(key, "nEndTime"), "780");
}

TEST_F(RoomScheduler, AMovedMeetingThatAnotherDeskDeletedIsToldAndLeaves) {
    const int key = book("Meeting");
    open();
    otherDesk(QStringLiteral("Delete from roomschedule Where nKeyId = %1").arg(key));
    expectGone();
    moveTo("Meeting", 660);
    EXPECT_EQ(calendar().ItemCount(), 0);
}

TEST_F(RoomScheduler, AMeetingThatAnotherDeskMovedIsNotMovedBackUnseen) {
    const int key = book("Meeting");
    open();
    otherDesk(QStringLiteral("Update roomschedule Set nStartTime = 800, nEndTime = 860 Where nKeyId = %1").arg(key));
    desk.expectBox(
        QStringLiteral(
            "Error saving room schedule. Row cannot be located for updating. Some values may have been changed since it was last read."),
        QStringLiteral("Error"));
    moveTo("Meeting", 660);
    EXPECT_EQ(stored(key, "nStartTime"), "800");
    EXPECT_EQ(item("Meeting").ItemStart, 800);
}

TEST_F(RoomScheduler, NamingAMeetingKeepsTheTimeThatAnotherDeskGaveIt) {
    const int key = book("Meeting");
    open();
    otherDesk(QStringLiteral("Update roomschedule Set nStartTime = 500 Where nKeyId = %1").arg(key));
    type("Meeting", QStringLiteral("Supervision"));
    EXPECT_EQ(stored(key, "croomtext"), "Supervision");
    EXPECT_EQ(stored(key, "nStartTime"), "500");
}

TEST_F(RoomScheduler, AMoveThatFailsPutsTheMeetingBack) {
    const int key = book("Meeting");
    open();
    const QString reason = database_.refuse(QStringLiteral("Update"), QStringLiteral("roomschedule"));
    desk.expectBox(QStringLiteral("Error saving room schedule. ") + reason, QStringLiteral("Error"));
    moveTo("Meeting", 660);
    EXPECT_EQ(item("Meeting").ItemStart, 540);
    EXPECT_EQ(stored(key, "nStartTime"), "540");
}

TEST_F(RoomScheduler, ASlotOfAnAppointmentRefusesAnotherTime) {
    const int key = book("Anna", 540, 600, 1, 77);
    open();
    desk.expectBox(QLatin1String(refusedText), QStringLiteral("Room Scheduler"));
    moveTo("Anna", 660);
    EXPECT_EQ(stored(key, "nStartTime"), "540");
    EXPECT_EQ(item("Anna").ItemStart, 540);
}

TEST_F(RoomScheduler, ATextIsStoredWhenItsEditEnds) {
    const int key = book("Meeting");
    open();
    type("Meeting", QStringLiteral("D'Arcy; 50%"));
    EXPECT_EQ(stored(key, "croomtext"), "D'Arcy; 50%");
}

TEST_F(RoomScheduler, AnEmptiedTextComesBack) {
    const int key = book("Meeting");
    open();
    type("Meeting", QString());
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
    EXPECT_EQ(stored(key, "croomtext"), "Meeting");
}

TEST_F(RoomScheduler, ATextOfAMeetingThatIsGoneIsTold) {
    const int key = book("Meeting");
    open();
    otherDesk(QStringLiteral("Delete from roomschedule Where nKeyId = %1").arg(key));
    expectGone();
    type("Meeting", QStringLiteral("Other"));
    EXPECT_EQ(calendar().ItemCount(), 0);
}

TEST_F(RoomScheduler, DeletingAsksAndDeletesTheSlotOfAnAppointmentToo) {
    const qint64 appt = add(anAppointment("Anna"));
    book("Anna", 540, 600, 1, static_cast<int>(appt));
    open();
    select("Anna");
    desk.expectBox(QStringLiteral("Are you sure you want to delete this meeting?"), QStringLiteral("Delete Meeting"),
                   Answer::No);
    trigger("mnuDelete");
    EXPECT_EQ(bookings(), 1);
    desk.expectBox(QStringLiteral("Are you sure you want to delete this meeting?"), QStringLiteral("Delete Meeting"),
                   Answer::Yes);
    key(Qt::Key_Delete);
    EXPECT_EQ(bookings(), 0);
    EXPECT_EQ(calendar().ItemCount(), 0);
    EXPECT_EQ(database_.text(QStringLiteral("Select Count(*) from appointments")), "1");
}

TEST_F(RoomScheduler, DeletingWhatAnotherDeskDeletedJustTakesItAway) {
    const int key = book("Meeting");
    open();
    select("Meeting");
    otherDesk(QStringLiteral("Delete from roomschedule Where nKeyId = %1").arg(key));
    desk.expectBox(QStringLiteral("Are you sure you want to delete this meeting?"), QStringLiteral("Delete Meeting"),
                   Answer::Yes);
    trigger("mnuDelete");
    EXPECT_EQ(calendar().ItemCount(), 0);
}

TEST_F(RoomScheduler, ADeletionThatFailsKeepsTheMeeting) {
    book("Meeting");
    open();
    select("Meeting");
    const QString reason = database_.refuse(QStringLiteral("Delete"), QStringLiteral("roomschedule"));
    desk.expectBox(QStringLiteral("Are you sure you want to delete this meeting?"), QStringLiteral("Delete Meeting"),
                   Answer::Yes);
    desk.expectBox(QStringLiteral("Error deleting room schedule. ") + reason, QStringLiteral("Error"));
    trigger("mnuDelete");
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(RoomScheduler, OnlyTheLevelOfDeletingDeletes) {
    book("Meeting");
    for (const int level : {2, 7}) {
        Session().ScreenAccess = level;
        open();
        select("Meeting");
        EXPECT_FALSE(command("mnuDelete").isEnabled()) << level;
        key(Qt::Key_Delete);
        view_->deleteappt();
        EXPECT_EQ(bookings(), 1) << level;
    }
}

TEST_F(RoomScheduler, WhoMayOnlyReadChangesNothing) {
    Session().ScreenAccess = 1;
    const int stands = book("Meeting");
    open();
    moveTo("Meeting", 660);
    EXPECT_EQ(stored(stands, "nStartTime"), "540");
    chooseTime(700, 760);
    QTest::keyClick(&calendar(), 'x');
    key(Qt::Key_Return);
    view_->editappt(1);
    EXPECT_EQ(bookings(), 1);
    EXPECT_FALSE(command("mnuNew").isEnabled());
    EXPECT_FALSE(command("mnuEdit").isEnabled());
    EXPECT_TRUE(command("mnuFind").isEnabled());
}
