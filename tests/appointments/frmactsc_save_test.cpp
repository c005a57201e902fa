#include <QPushButton>
#include <QTest>

#include "appointments/attendeelist.h"
#include "appointments/frmactsc.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "tests/appointments/activityfixture.h"

using db::Sql;

namespace {

const QString Error = QStringLiteral("Error");
const QString Saving = QStringLiteral("Error saving appointment. ");
const QString ChangedMeanwhile =
    QStringLiteral("Row cannot be located for updating. Some values may have been changed since it was last read.");

class ActivitySave : public ActivityFixture {
  protected:
    void run(const QString& statement) { database.connection().Execute(statement); }
    void ok() { clickButton(scheduler->cmdOk); }
    void expectRefusal(const char* message, const char* title, QWidget* field) {
        desk.expectBox(QString::fromLatin1(message), QString::fromLatin1(title));
        ok();
        EXPECT_TRUE(field->hasFocus()) << message;
        EXPECT_TRUE(scheduler->isVisible());
    }
    [[nodiscard]] bool isOpen() const { return scheduler->isVisible(); }
    /// The save failed and closed the form, and the user opens it again.
    void openAgain() {
        EXPECT_FALSE(isOpen());
        EXPECT_TRUE(scheduler->IsUnsaved());
        scheduler->show();
    }
};

}  // namespace

TEST_F(ActivitySave, OkAsksForWhatIsMissing) {
    const frmactsc& dialog = openNewActivity();
    expectRefusal("Enter an activity or event.", "Missing Text", dialog.cboevents);
    type(dialog.cboevents, QStringLiteral("Training"));
    type(dialog.ctDEditComp, QString());
    press(dialog.ctDEditComp, Qt::Key_Delete);
    expectRefusal("Enter a date.", "Missing Data", dialog.ctDEditComp);
    type(dialog.ctDEditComp, QStringLiteral("3/11/2026"));
    expectRefusal("Enter a start time.", "Missing Data", dialog.ctstart);
    type(dialog.ctstart, QStringLiteral("9:00 AM"));
    expectRefusal("Enter an end time.", "Missing Data", dialog.ctend);
    type(dialog.ctend, QStringLiteral("10:00 AM"));
    expectRefusal("Enter one or more attendees.", "Missing Data", dialog.List1);
    EXPECT_EQ(rowCount("appointments"), 0);
    clickProvider("Lane");
    ok();
    EXPECT_EQ(stored(newestKey()), QStringLiteral("540-600 2026-03-11 Training @ "));
}

TEST_F(ActivitySave, ANewActivityIsOneRowWithARowForEachAttendee) {
    frmactsc& dialog = openFilledActivity();
    type(dialog.cbolocation, QStringLiteral("Annex"));
    ok();
    EXPECT_FALSE(isOpen());
    const int key = newestKey();
    EXPECT_EQ(rowCount("appointments"), 1);
    EXPECT_EQ(stored(key), QStringLiteral("540-600 2026-03-11 Staff Meeting @ Annex"));
    EXPECT_EQ(column("ncolor", key), QStringLiteral("16777088"));
    EXPECT_EQ(column("clinicianid", key), QStringLiteral("~EVT"));
    EXPECT_EQ(column("BLOCATEICO", key), QStringLiteral("1"));
    EXPECT_EQ(column("createduid", key), QStringLiteral("FRONT"));
    EXPECT_EQ(column("lastmodifieduid", key), QStringLiteral("FRONT"));
    EXPECT_EQ(attendees(key), QStringLiteral("OBRIEN REED"));
    EXPECT_EQ(rowCount("AuditLog"), 0);
}

TEST_F(ActivitySave, WithoutALocationThereIsNoLocationPicture) {
    openFilledActivity();
    ok();
    EXPECT_EQ(column("BLOCATEICO", newestKey()), QStringLiteral("0"));
    EXPECT_EQ(column("CLOCATION", newestKey()), QString());
}

TEST_F(ActivitySave, AnActivityAtMidnightIsSaved) {
    const frmactsc& dialog = openFilledActivity();
    type(dialog.ctstart, QStringLiteral("0:00"));
    press(dialog.ctstart, Qt::Key_Tab);
    ok();
    EXPECT_EQ(stored(newestKey()), QStringLiteral("0-600 2026-03-11 Staff Meeting @ "));
}

TEST_F(ActivitySave, AnEndBeforeTheStartIsNotRefused) {
    const frmactsc& dialog = openFilledActivity();
    type(dialog.ctstart, QStringLiteral("11:00 AM"));
    press(dialog.ctstart, Qt::Key_Tab);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(newestKey()), QStringLiteral("660-600 2026-03-11 Staff Meeting @ "));
}

TEST_F(ActivitySave, ALongEventAndALongLocationAreCut) {
    const frmactsc& dialog = openFilledActivity();
    dialog.cboevents->SetText(QString(150, u'e'));
    dialog.cbolocation->SetText(QString(80, u'p'));
    desk.expectBox(QStringLiteral("Event is not on the list. Do you want to add it?"), QStringLiteral("Item Not Found"),
                   Answer::No);
    desk.expectBox(QStringLiteral("Location is not on the list. Do you want to add it?"),
                   QStringLiteral("Item Not Found"), Answer::No);
    ok();
    EXPECT_EQ(column("cappttext", newestKey()), QString(100, u'e'));
    EXPECT_EQ(column("CLOCATION", newestKey()), QString(50, u'p'));
}

TEST_F(ActivitySave, OkWithoutAChangeWritesNothing) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(column("lastmodifieduid", key), QString());
}

TEST_F(ActivitySave, CancelAndEscapeWriteNothingAndEscapeAsks) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key);
    clickProvider("Lane");
    clickButton(scheduler->cmdCancel);
    EXPECT_FALSE(isOpen());
    openActivity(key);
    clickProvider("Lane");
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Activity Scheduler"),
                   Answer::No);
    press(scheduler->List1, Qt::Key_Escape);
    EXPECT_TRUE(isOpen());
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Activity Scheduler"),
                   Answer::Yes);
    press(scheduler->List1, Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(attendees(key), QStringLiteral("REED"));
}

TEST_F(ActivitySave, ANewTimeAndPlaceAreWrittenAndTheAttendeesStay) {
    const int key = activity({QStringLiteral("LANE"), QStringLiteral("REED")});
    const frmactsc& dialog = openActivity(key);
    type(dialog.ctstart, QStringLiteral("9:30 AM"));
    type(dialog.ctend, QStringLiteral("11:00 AM"));
    type(dialog.cbolocation, QStringLiteral("Main Office"));
    press(dialog.cbolocation, Qt::Key_Tab);
    // Whoever deletes the attendees to write them anew would fail here.
    database.refuse(QStringLiteral("Delete"), QStringLiteral("AppointmentsEvents"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(key), QStringLiteral("570-660 2026-03-11 Staff Meeting @ Main Office"));
    EXPECT_EQ(column("clinicianid", key), QStringLiteral("~EVT"));
    EXPECT_EQ(column("lastmodifieduid", key), QStringLiteral("FRONT"));
    EXPECT_EQ(attendees(key), QStringLiteral("LANE REED"));
}

TEST_F(ActivitySave, ChangedAttendeesReplaceTheOldOnes) {
    const int key = activity({QStringLiteral("LANE"), QStringLiteral("REED")});
    openActivity(key);
    clickProvider("Lane");
    clickProvider("Stone");
    ok();
    EXPECT_EQ(attendees(key), QStringLiteral("REED STONE"));
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(ActivitySave, AnEmptiedLocationIsEmptyInTheRowToo) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key);
    type(scheduler->cbolocation, QString());
    press(scheduler->cbolocation, Qt::Key_Delete);
    ok();
    EXPECT_EQ(column("CLOCATION", key), QString());
    EXPECT_EQ(column("BLOCATEICO", key), QStringLiteral("0"));
}

TEST_F(ActivitySave, AnAttendeeWhoHasLeftThePracticeIsNotLost) {
    run(QStringLiteral("Update provider_info Set Archive = 1 Where id = 'STONE'"));
    const int key = activity({QStringLiteral("REED"), QStringLiteral("STONE")});
    openActivity(key);
    clickProvider("Lane");
    ok();
    EXPECT_EQ(attendees(key), QStringLiteral("LANE REED STONE"));
    openActivity(key);
    clickProvider("Stone (no longer on the list)");
    ok();
    EXPECT_EQ(attendees(key), QStringLiteral("LANE REED"));
}

TEST_F(ActivitySave, ADraggedActivityIsSavedAtItsNewTime) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key, SelectedSlot{day, 660, 720});
    ok();
    EXPECT_EQ(stored(key), QStringLiteral("660-720 2026-03-11 Staff Meeting @ Annex"));
    EXPECT_EQ(attendees(key), QStringLiteral("REED"));
}

TEST_F(ActivitySave, ABookedRoomFollowsTheActivity) {
    const int key = activity({QStringLiteral("REED")});
    booking(office, 540, 600, QStringLiteral("Staff Meeting"), key);
    openActivity(key, SelectedSlot{day, 660, 720});
    ok();
    EXPECT_EQ(database.number(Sql("Select nStartTime from roomschedule Where apptid = {}", key)), 660);
    EXPECT_EQ(database.number(Sql("Select nEndTime from roomschedule Where apptid = {}", key)), 720);
}

// Failures and other desks.

TEST_F(ActivitySave, ANewOneIsWrittenWithItsAttendeesOrNotAtAll) {
    for (const char* table : {"appointments", "AppointmentsEvents"}) {
        run(QStringLiteral("Delete from appointments"));
        run(QStringLiteral("Delete from AppointmentsEvents"));
        openFilledActivity();
        const QString why = database.refuse(QStringLiteral("Insert"), QString::fromLatin1(table));
        desk.expectBox(Saving + why, Error);
        ok();
        EXPECT_EQ(rowCount("appointments"), 0) << table;
        EXPECT_EQ(rowCount("AppointmentsEvents"), 0) << table;
        openAgain();
        EXPECT_EQ(scheduler->cboevents->Text(), QStringLiteral("Staff Meeting"));
        database.allow(QStringLiteral("Insert"), QString::fromLatin1(table));
        ok();
        EXPECT_EQ(rowCount("appointments"), 1) << table;
        EXPECT_EQ(attendees(newestKey()), QStringLiteral("OBRIEN REED")) << table;
    }
}

TEST_F(ActivitySave, AnOldOneIsChangedWithAttendeesAndRoomOrNotAtAll) {
    struct Step {
        const char* operation;
        const char* table;
        QString trouble;
    };
    const QString room = QStringLiteral("Error saving room schedule. ");
    const Step steps[] = {{"Delete", "AppointmentsEvents", Saving},
                          {"Insert", "AppointmentsEvents", Saving},
                          {"Update", "appointments", Saving},
                          {"Update", "roomschedule", room}};
    for (const Step& step : steps) {
        run(QStringLiteral("Delete from appointments"));
        run(QStringLiteral("Delete from roomschedule"));
        run(QStringLiteral("Delete from AppointmentsEvents"));
        const int key = activity({QStringLiteral("REED")});
        booking(office, 540, 600, QStringLiteral("Staff Meeting"), key);
        openActivity(key, SelectedSlot{day, 660, 720});
        clickProvider("Lane");
        const QString why = database.refuse(QString::fromLatin1(step.operation), QString::fromLatin1(step.table));
        desk.expectBox(step.trouble + why, Error);
        ok();
        EXPECT_EQ(stored(key), QStringLiteral("540-600 2026-03-11 Staff Meeting @ Annex")) << step.table;
        EXPECT_EQ(attendees(key), QStringLiteral("REED")) << step.table;
        EXPECT_EQ(database.number(QStringLiteral("Select nStartTime from roomschedule")), 540) << step.table;
        openAgain();
        database.allow(QString::fromLatin1(step.operation), QString::fromLatin1(step.table));
        ok();
        EXPECT_EQ(stored(key), QStringLiteral("660-720 2026-03-11 Staff Meeting @ Annex")) << step.table;
        EXPECT_EQ(attendees(key), QStringLiteral("LANE REED")) << step.table;
        EXPECT_EQ(database.number(QStringLiteral("Select nStartTime from roomschedule")), 660) << step.table;
    }
}

TEST_F(ActivitySave, ALostDatabaseIsToldAndNothingTypedIsLost) {
    openFilledActivity();
    const QString why = loseDatabase();
    desk.expectBox(Saving + why, Error);
    ok();
    openAgain();
    EXPECT_EQ(scheduler->cboevents->Text(), QStringLiteral("Staff Meeting"));
}

TEST_F(ActivitySave, AnActivityThatAnotherDeskDeletedIsToldAndStaysDeleted) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key);
    clickProvider("Lane");
    run(QStringLiteral("Delete from appointments"));
    desk.expectBox(QStringLiteral("Error saving appointment. Another user may have deleted this appointment. "), Error);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(rowCount("appointments"), 0);
    EXPECT_EQ(attendees(key), QStringLiteral("REED"));
}

TEST_F(ActivitySave, AnActivityThatAnotherDeskMovedIsNotWrittenOver) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key);
    clickProvider("Lane");
    run(QStringLiteral("Update appointments Set nStartTime = 800, nEndTime = 860"));
    desk.expectBox(Saving + ChangedMeanwhile, Error);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(key), QStringLiteral("800-860 2026-03-11 Staff Meeting @ Annex"));
    EXPECT_EQ(attendees(key), QStringLiteral("REED"));
}

TEST_F(ActivitySave, AttendeesWhomAnotherDeskChangedAreNotWrittenOver) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key);
    clickProvider("Lane");
    run(Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, 'STONE')", key));
    desk.expectBox(Saving + ChangedMeanwhile, Error);
    ok();
    EXPECT_EQ(attendees(key), QStringLiteral("REED STONE"));
}

TEST_F(ActivitySave, AnotherDesksAttendeesDoNotStandInTheWayOfANewTime) {
    const int key = activity({QStringLiteral("REED")});
    openActivity(key, SelectedSlot{day, 660, 720});
    run(Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, 'STONE')", key));
    ok();
    EXPECT_EQ(stored(key), QStringLiteral("660-720 2026-03-11 Staff Meeting @ Annex"));
    EXPECT_EQ(attendees(key), QStringLiteral("REED STONE"));
}
