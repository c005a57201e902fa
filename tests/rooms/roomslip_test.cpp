#include <QAction>
#include <QMenu>

#include "data/codes.h"
#include "output/frmpappt.h"
#include "platform/controls/textfield.h"
#include "session/hiddennames.h"
#include "tests/rooms/roomsfixture.h"

namespace {

/// Room Blue with a slot of Mary Jones at nine and a meeting at noon.
class RoomSlips : public RoomScheduler {
  protected:
    RoomSlips() {
        run("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)");
        mary = add(anAppointment("Jones, Mary").at(9, 0).until(10, 0).with("CLOCATION", "'Main Office'"));
        slot = book("Jones, Mary", 540, 600, 1, static_cast<int>(mary));
        meeting = book("Staff's meeting", 720, 780);
        open();
    }
    void change(qint64 key, const char* what) {
        otherDesk(QStringLiteral("Update appointments Set %1 Where nkeyid = %2").arg(QLatin1String(what)).arg(key));
    }
    QStringList slip() {
        QStringList told;
        desk.expectForm("frmpappt", [&](QDialog& dialog) {
            auto& form = dynamic_cast<frmpappt&>(dialog);
            for (const TextField* field : {form.txtafor, form.txtawith, form.txtlocation, form.txtdatetime})
                told << field->text();
            form.reject();
        });
        trigger("mnuFPrintA");
        return told;
    }

    qint64 mary = 0;
    int slot = 0;
    int meeting = 0;
};

const QString Why = QStringLiteral("Only a patient's appointment that is blank, pending or tentative has a slip.");

}  // namespace

TEST_F(RoomSlips, OfASlotTellItsAppointmentWithTheRoom) {
    select("Jones, Mary");
    for (int round = 1; round <= 2; ++round)
        EXPECT_EQ(slip(),
                  (QStringList{"Jones, Mary", "Reed", "Main Office, Blue", "Wednesday Mar 11, 2026 at 9:00 AM"}));
}

TEST_F(RoomSlips, OfAMeetingTellItsTextAndTheRoom) {
    select("Staff's meeting");
    for (int round = 1; round <= 2; ++round)
        EXPECT_EQ(slip(), (QStringList{"Staff's meeting", "", "Blue", "Wednesday Mar 11, 2026 at 12:00 Noon"}));
}

TEST_F(RoomSlips, NeedASelectedMeeting) {
    calendar().clearSelection();
    EXPECT_FALSE(command("mnuFPrintA").isEnabled());
    EXPECT_EQ(command("mnuFPrintA").toolTip(), "Select a meeting first.");
}

TEST_F(RoomSlips, AreNotOfSlotsWhoseAppointmentHasNone) {
    for (const int code : {ncolor::Kept, ncolor::PatientCancelled, ncolor::Activity, ncolor::Group}) {
        change(mary, QStringLiteral("ncolor = %1").arg(code).toLatin1().constData());
        calendar().clearSelection();
        select("Jones, Mary");
        EXPECT_FALSE(command("mnuFPrintA").isEnabled()) << code;
        EXPECT_EQ(command("mnuFPrintA").toolTip(), Why);
    }
    change(mary, QStringLiteral("ncolor = %1").arg(ncolor::Tentative).toLatin1().constData());
    calendar().clearSelection();
    select("Jones, Mary");
    EXPECT_TRUE(command("mnuFPrintA").isEnabled());
    change(mary, "appttype = 4");
    calendar().clearSelection();
    select("Jones, Mary");
    EXPECT_FALSE(command("mnuFPrintA").isEnabled());
}

TEST_F(RoomSlips, StandInThePopup) {
    rightClick(rectOf("Staff's meeting").center());
    auto* popup = view_->findChild<QMenu*>(QStringLiteral("popup"));
    ASSERT_TRUE(popup->isVisible());
    EXPECT_TRUE(popup->actions().contains(&command("mnuFPrintA")));
    popup->close();
}

TEST_F(RoomSlips, OfAnAppointmentThatAnotherDeskDeletedAreNot) {
    select("Jones, Mary");
    otherDesk(QStringLiteral("Delete from appointments"));
    desk.expectBox("Appointment not found in database. It may have been deleted by another user.",
                   "Appointment not found");
    trigger("mnuFPrintA");
    EXPECT_FALSE(command("mnuFPrintA").isEnabled()) << "The slot that is left behind has no appointment.";
}

TEST_F(RoomSlips, OfAnAppointmentThatAnotherDeskCancelledAreNot) {
    select("Jones, Mary");
    change(mary, "ncolor = 193");
    desk.expectBox("Another user has changed this appointment. " + Why, "Print Appointment Slip");
    trigger("mnuFPrintA");
    EXPECT_FALSE(command("mnuFPrintA").isEnabled());
}

TEST_F(RoomSlips, OfAMeetingThatAnotherDeskDeletedAreNot) {
    select("Staff's meeting");
    otherDesk(QStringLiteral("Delete from roomschedule Where nKeyId = %1").arg(meeting));
    desk.expectBox("This booking is not there any more. Another user may have deleted it.", "Print Appointment Slip");
    trigger("mnuFPrintA");
    EXPECT_EQ(itemTexts(), QStringList{"Jones, Mary"});
}

TEST_F(RoomSlips, OfAMeetingThatAnotherDeskMovedTellWhereItIsNow) {
    select("Staff's meeting");
    otherDesk(QStringLiteral("Update roomschedule Set nStartTime = 840, nEndTime = 900, croomid = 2 Where nKeyId = %1")
                  .arg(meeting));
    EXPECT_EQ(slip(), (QStringList{"Staff's meeting", "", "Green", "Wednesday Mar 11, 2026 at 2:00 PM"}));
    EXPECT_EQ(itemTexts(), QStringList{"Jones, Mary"});
}

TEST_F(RoomSlips, CannotBeReadFromALostDatabase) {
    const QString closed = QStringLiteral(
        "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    select("Staff's meeting");
    Session().Connection.Close();
    desk.expectBox("Error reading room schedule. " + closed, "Error");
    trigger("mnuFPrintA");
    EXPECT_EQ(itemTexts().size(), 2);
    select("Jones, Mary");
    EXPECT_FALSE(command("mnuFPrintA").isEnabled()) << "Nobody knows its status.";
}

TEST_F(RoomSlips, HideThePatientAndNotTheMeeting) {
    SetNamesHidden(true);
    select("Jones, Mary");
    EXPECT_EQ(slip().first(), "(hidden)");
    select("Staff's meeting");
    EXPECT_EQ(slip().first(), "Staff's meeting");
}
