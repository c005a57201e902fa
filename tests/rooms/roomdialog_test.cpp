#include <QPushButton>

#include "rooms/frmroomappt.h"
#include "tests/rooms/roomsfixture.h"

/// The dialog alone, on a new meeting in Blue from 9:00 to 10:00.
class RoomDialog : public RoomScheduler {
  protected:
    RoomDialog()
        : dialog({0, 540, 600, QDate(2026, 3, 11), {}, {}, 1, false}, QDate(2026, 3, 11), QStringLiteral("Blue")) {
        dialog.txtsubject->setText(QStringLiteral("Meeting"));
        dialog.show();
    }
    void expectComplaint(const char* text, const char* title = "Missing Data") {
        desk.expectBox(QLatin1String(text), QLatin1String(title));
        dialog.cmdOk->click();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(bookings(), 0);
    }
    frmRoomAppt dialog;
};

TEST_F(RoomDialog, AsksForWhatIsMissingInItsOrder) {
    dialog.ctedate->setText(QString());
    dialog.ctend->setText(QString());
    dialog.txtsubject->clear();
    expectComplaint("Enter a valid date.");
    dialog.ctedate->setDate(QDate(2026, 3, 11));
    expectComplaint("Enter valid end time.");
    dialog.ctend->setTime(0);
    expectComplaint("Enter valid end time.");
    dialog.ctend->setTime(540);
    expectComplaint("End time must be greater than start time", "Invalid Data");
    dialog.ctstart->setText(QString());
    expectComplaint("Enter valid start time.");
    dialog.ctstart->setTime(500);
    expectComplaint("No Subject for appointment time entered.");
    dialog.txtsubject->setText(QStringLiteral("Done"));
    dialog.cmdOk->click();
    EXPECT_EQ(bookings(), 1);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(RoomDialog, AMeetingMayLastUntilMidnight) {
    dialog.ctend->setTime(1439);
    dialog.ctend->stepBy(5);
    EXPECT_EQ(dialog.ctend->Time(), 1440);
    dialog.ctstart->setTime(1);
    dialog.ctstart->stepBy(-5);
    EXPECT_EQ(dialog.ctstart->Time(), 0);
    dialog.cmdOk->click();
    EXPECT_EQ(database_.text(QStringLiteral("Select nEndTime from roomschedule")), "1440");
}

TEST_F(RoomDialog, AFailureIsToldAndKeepsWhatWasTyped) {
    const QString reason = database_.refuse(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    desk.expectBox(QStringLiteral("Error saving room schedule. ") + reason, QStringLiteral("Error"));
    dialog.cmdOk->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(dialog.IsUnsaved());
    dialog.show();
    EXPECT_EQ(dialog.txtsubject->text(), "Meeting");
    database_.allow(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    dialog.cmdOk->click();
    EXPECT_FALSE(dialog.IsUnsaved());
    EXPECT_EQ(bookings(), 1);
}

TEST_F(RoomDialog, AChangedMeetingThatAnotherDeskDeletedIsToldAndKeepsWhatWasTyped) {
    const int stands = book("Old");
    const QDate day(2026, 3, 11);
    frmRoomAppt edit({stands, 540, 600, QDate(2026, 3, 11), QStringLiteral("Old"), {}, 1, false}, day,
                     QStringLiteral("Blue"));
    edit.show();
    otherDesk(QStringLiteral("Delete from roomschedule"));
    edit.cmdOk->click();
    EXPECT_FALSE(edit.isVisible()) << "Nothing was changed, nothing is written.";
    edit.show();
    edit.txtsubject->setText(QStringLiteral("New"));
    expectGone();
    edit.cmdOk->click();
    EXPECT_TRUE(edit.IsUnsaved());
    EXPECT_EQ(edit.txtsubject->text(), "New");
}

TEST_F(RoomDialog, ItsHeadingSaysTheDayAndTheRoomAndFollowsTheDate) {
    const frmRoomAppt meeting({0, 540, 600, QDate(2026, 3, 11), {}, {}, 1, false}, QDate(2026, 3, 11),
                              QStringLiteral("Blue"));
    const auto* heading = meeting.findChild<QLabel*>(QStringLiteral("lblheading"));
    EXPECT_EQ(heading->text(), QString::fromUtf8("Room Meeting · Wed, Mar 11, 2026 · Blue"));
    meeting.ctedate->setDate(QDate(2026, 3, 12));
    EXPECT_EQ(heading->text(), QString::fromUtf8("Room Meeting · Thu, Mar 12, 2026 · Blue"));
}

TEST_F(RoomDialog, OpensWholeOnASmallScreen) {
    // 1280 by 800 at 200 %, less what a frame and a panel take.
    frmRoomAppt moved({7, 540, 600, QDate(2026, 3, 10), QStringLiteral("Meeting"), {}, 1, false}, QDate(2026, 3, 11),
                      QStringLiteral("Blue"));
    EXPECT_LE(moved.sizeHint().width(), 624);
    EXPECT_LE(moved.sizeHint().height(), 344);
    EXPECT_GE(moved.height(), moved.sizeHint().height());
}

TEST_F(RoomDialog, SaysWhatItKeptOfALongSubject) {
    dialog.txtsubject->setFocus();
    dialog.txtsubject->selectAll();
    dialog.txtsubject->insert(QString(120, QLatin1Char('x')) + QStringLiteral("\n"));
    EXPECT_EQ(dialog.txtsubject->text().size(), 100);
    const auto* line = dialog.findChild<QLabel*>(QStringLiteral("lblkept"));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(), "Kept 100 characters; more does not fit here.");
}
