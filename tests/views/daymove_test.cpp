#include <QDialog>
#include <QPushButton>

#include "data/codes.h"
#include "session/session.h"
#include "tests/views/dayhand.h"

namespace {

constexpr char deletedByOthers[] = "Error saving appointment. Another user may have deleted this appointment. ";
constexpr char changedByOthers[] =
    "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.";

}  // namespace

/// Items dragged and sized with the mouse, and by key.
class DayMove : public DayHand {
  protected:
    DayMove() {
        Session().UID = QStringLiteral("LANE");
        Session().ALEnabled = true;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        run("Insert Into rooms (Room) Values('Blue')");
    }

    void book(qint64 key, int start, int end) {
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values(%1, 1, 'Reed', %2, %3, '2026/03/11')")
                .arg(key)
                .arg(start)
                .arg(end));
    }
    [[nodiscard]] QString times(qint64 key) {
        return stored(key, "nStartTime") + QLatin1Char('-') + stored(key, "nEndTime");
    }
    [[nodiscard]] qint64 room(qint64 key, const char* column) {
        return database_.number(QStringLiteral("Select %1 from roomschedule Where apptid = %2")
                                    .arg(QLatin1String(column), QString::number(key)));
    }
    [[nodiscard]] QString audit() { return database_.text("Select LogDescription from AuditLog"); }
};

TEST_F(DayMove, ADragStoresTheNewTimeWithWhoAndWhen) {
    const qint64 key = add(anAppointment("O'Brien, Anna").at(9, 0).until(9, 50));
    openByHand();

    moveTo("O'Brien, Anna", 660);

    EXPECT_EQ(times(key), "660-710");
    EXPECT_EQ(stored(key, "dapptdate"), "2026-03-11 00:00:00");
    EXPECT_EQ(stored(key, "lastmodifieduid"), "LANE");
    EXPECT_EQ(stored(key, "lastmodifieddate"), "2026-03-11 10:30:00");
    EXPECT_EQ(stored(key, "cappttext"), "O'Brien, Anna");
    EXPECT_EQ(item("O'Brien, Anna").ItemStart, 660);
    EXPECT_EQ(info().mid(0, 3),
              (QStringList{"Appointment;O'Brien, Anna", "Time;11:00 AM - 11:50 AM", "Length;50 mins."}));
}

TEST_F(DayMove, ADragIsWrittenIntoTheAuditLog) {
    add(anAppointment(QString(120, QLatin1Char('x')).toUtf8()).at(9, 0));
    openByHand();

    moveTo(QString(120, QLatin1Char('x')).toUtf8(), 660);

    EXPECT_EQ(audit(), "Modified Appointment (03/11/2026 at 9:00 AM) to 03/11/26 at 11:00 AM for " +
                           QString(100, QLatin1Char('x')));
    EXPECT_EQ(database_.text("Select LogListId from AuditLog"), "Modify Appointment");
    EXPECT_EQ(database_.text("Select LogLocation from AuditLog"), "Scheduler");
    EXPECT_EQ(database_.text("Select LogUser from AuditLog"), "LANE");
    EXPECT_EQ(database_.text("Select LogNotes from AuditLog"), "-");
}

TEST_F(DayMove, DraggingTheLowerEdgeStoresTheNewEnd) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();

    sizeTo("Anna", 675);

    EXPECT_EQ(times(key), "540-675");
    EXPECT_EQ(info()[2], "Length;135 mins.");
}

TEST_F(DayMove, CtrlAndAnArrowMovesTheItemARow) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    select("Anna");

    this->key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(times(key), "555-615");
    this->key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(times(key), "555-630");
}

TEST_F(DayMove, TheSelectionAndThePlaceStayAfterADrag) {
    add(anAppointment("Anna").at(14, 0).until(15, 0));
    openByHand();
    view_->resize(1000, 350);
    calendar().setTopTime(780);
    settle();
    const int top = yOf(840);

    moveTo("Anna", 870);

    EXPECT_EQ(calendar().SelectedItem(), 1);
    EXPECT_EQ(yOf(840), top);
}

TEST_F(DayMove, WhatAnotherDeskChangedElsewhereInTheRowIsKeptAndShown) {
    const qint64 key = add(anAppointment("Anna").at(9, 0));
    openByHand();
    otherDeskSets(key, QStringLiteral("ncolor = 49152, CapptNote = '|Bring chairs'"));

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "660-710");
    EXPECT_EQ(stored(key, "ncolor"), "49152");
    EXPECT_EQ(item("Anna").ItemColor, ncolor::Kept);
    EXPECT_TRUE(item("Anna").ItemNoteIcon);
}

TEST_F(DayMove, ARowThatAnotherDeskMovedIsToldAndStandsWhereThatDeskPutIt) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    otherDeskSets(key, QStringLiteral("nStartTime = 900, nEndTime = 960"));
    desk.expectBox(changedByOthers, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "900-960");
    EXPECT_EQ(item("Anna").ItemStart, 900);
    EXPECT_EQ(audit(), "(none)");
}

TEST_F(DayMove, ARowThatAnotherDeskPutOnAnotherDayIsToldAndLeavesThisOne) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    otherDeskSets(key, QStringLiteral("dapptdate = '2026/03/12'"));
    desk.expectBox(changedByOthers, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayMove, ARowThatAnotherDeskGaveToAnotherProviderIsToldAndLeavesThisOnesDay) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    otherDeskSets(key, QStringLiteral("clinicianid = 'BAKER'"));
    desk.expectBox(changedByOthers, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayMove, ARowThatAnotherDeskDeletedIsToldAndLeavesTheDay) {
    const qint64 key = add(anAppointment("Anna").at(9, 0));
    openByHand();
    otherDeskDeletes(key);
    desk.expectBox(deletedByOthers, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_EQ(info(), QStringList{";No Appointment Selected"});
    EXPECT_EQ(database_.number("Select Count(*) from appointments"), 0);
}

TEST_F(DayMove, AnItemStaysInTheColumnThatItsViewGaveIt) {
    add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    calendar().Item(1).ItemColumn = 1;

    moveTo("Anna", 660);

    EXPECT_EQ(item("Anna").ItemColumn, 1);
}

TEST_F(DayMove, ASecondDragSeesNoOtherDeskInTheFirst) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();

    moveTo("Anna", 660);
    moveTo("Anna", 720);

    EXPECT_EQ(times(key), "720-780");
}

TEST_F(DayMove, TheBookedRoomMovesAlongAndKeepsItsText) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    openByHand();

    moveTo("Anna", 660);

    EXPECT_EQ(room(key, "nStartTime"), 660);
    EXPECT_EQ(room(key, "nEndTime"), 720);
    EXPECT_EQ(database_.text("Select croomtext from roomschedule"), "Reed");
}

TEST_F(DayMove, ARefusedRoomConflictRestoresTheDay) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    book(0, 660, 720);
    openByHand();
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        EXPECT_EQ(form.windowTitle(), "Room Conflict");
        form.findChild<QPushButton*>("cmdreschedule")->click();
    });

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(room(key, "nStartTime"), 540);
    EXPECT_EQ(item("Anna").ItemStart, 540);
    EXPECT_EQ(item("Anna").ItemEnd, 600);
    EXPECT_EQ(audit(), "(none)");
}

TEST_F(DayMove, AnAcceptedRoomConflictIsBooked) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    book(0, 660, 720);
    openByHand();
    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.findChild<QPushButton*>("cmdaccept")->click(); });

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "660-720");
    EXPECT_EQ(room(key, "nStartTime"), 660);
}

TEST_F(DayMove, WhatAnotherDeskDoesWhileTheConflictIsAskedAboutIsSeen) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    book(0, 660, 720);
    openByHand();
    desk.expectForm("AppointmentConflict", [this, key](QDialog& form) {
        otherDeskSets(key, QStringLiteral("nStartTime = 900, nEndTime = 960"));
        form.findChild<QPushButton*>("cmdaccept")->click();
    });
    desk.expectBox(changedByOthers, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "900-960");
    EXPECT_EQ(room(key, "nStartTime"), 540);
}

TEST_F(DayMove, AnAppointmentIsNotInItsOwnWay) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    openByHand();

    moveTo("Anna", 570);

    EXPECT_EQ(times(key), "570-630");
}

TEST_F(DayMove, WithoutARoomNobodyAsksForConflicts) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    add(anAppointment("Ben").at(11, 0).until(12, 0));
    openByHand();

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "660-720");
}

TEST_F(DayMove, AnActivityOfOneProviderUnavailableTimeAndAGroupCanBeMoved) {
    const qint64 activity = add(anAppointment("Call").status(ncolor::Activity).at(9, 0).until(9, 30));
    const qint64 away = add(anAppointment("Away").status(ncolor::Unavailable).at(10, 0).until(10, 30));
    const qint64 group = add(anAppointment("Anger").status(ncolor::Group).at(11, 0).until(11, 30));
    openByHand();

    moveTo("Call", 720);
    moveTo("Away", 780);
    moveTo("Anger", 840);

    EXPECT_EQ(times(activity), "720-750");
    EXPECT_EQ(times(away), "780-810");
    EXPECT_EQ(times(group), "840-870");
}

TEST_F(DayMove, ATimeWithoutLengthIsNotWritten) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(9, 0));
    openByHand();
    desk.expectBox("An appointment must end after it starts, on the same day. Open it to change its times.",
                   "Move Appointment");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-540");
    EXPECT_EQ(item("Anna").ItemStart, 540);
}

TEST_F(DayMove, TheLatestEndIsTheMidnightThatEndsTheDay) {
    Session().DayEndHour = 24;
    const qint64 key = add(anAppointment("Anna").at(22, 45).until(23, 30));
    openByHand();
    select("Anna");

    for (int presses = 0; presses < 4; ++presses)
        this->key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);

    EXPECT_EQ(times(key), "1365-1440");
}

// What of a move fails, and what the calendar and the tables hold then.

TEST_F(DayMove, AnEventsTableThatCannotBeReadStopsTheMove) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    const QString why = DropTable(database_.connection(), "appointmentsevents");
    desk.expectBox("Error saving appointment. " + why, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(item("Anna").ItemStart, 540);
}

TEST_F(DayMove, ARoomThatCannotBeReadStopsTheMove) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    const QString why = DropTable(database_.connection(), "roomschedule");
    desk.expectBox("Error reading room schedule. " + why, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(item("Anna").ItemStart, 540);
}

TEST_F(DayMove, ConflictsThatCannotBeReadStopTheMove) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    openByHand();
    const QString why = DropTable(database_.connection(), "rooms");
    desk.expectBox("Error checking for conflicts. Nothing has been saved. " + why, "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(item("Anna").ItemStart, 540);
}

TEST_F(DayMove, ARefusedUpdateIsToldAndTheItemGoesBack) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    openByHand();
    desk.expectBox("Error saving appointment. " + database_.refuse("Update", "appointments"), "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(room(key, "nStartTime"), 540);
    EXPECT_EQ(item("Anna").ItemStart, 540);
    EXPECT_EQ(info()[1], "Time;9:00 AM - 10:00 AM");
    EXPECT_EQ(audit(), "(none)");
}

TEST_F(DayMove, AnAuditLineThatCannotBeWrittenDoesNotStopTheMove) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    openByHand();
    database_.refuse("Insert", "AuditLog");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "660-720");
    EXPECT_EQ(room(key, "nStartTime"), 660);
}

TEST_F(DayMove, ARoomThatCannotBeMovedIsToldAndTheAppointmentGoesBackWithIt) {
    const qint64 key = add(anAppointment("Anna").at(9, 0).until(10, 0));
    book(key, 540, 600);
    openByHand();
    desk.expectBox("Error saving room schedule. " + database_.refuse("Update", "roomschedule"), "Error");

    moveTo("Anna", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(room(key, "nStartTime"), 540);
    EXPECT_EQ(item("Anna").ItemStart, 540);
    EXPECT_EQ(audit(), "(none)");
}

/// Which items can be moved and typed into.
class DayLocks : public DayHand {
  protected:
    /// What becomes of an item that the user wants to move and to rename: "moved", "renamed".
    QStringList whatMoves(const char* text) {
        const CalendarItem before = item(text);
        QStringList done;
        select(text);
        key(Qt::Key_F2);
        if (editor() != nullptr) {
            done << QStringLiteral("text");
            QTest::keyClick(editor(), Qt::Key_Escape);
            settle();
        }
        moveTo(text, before.ItemStart + 60);
        if (item(text).ItemStart != before.ItemStart)
            done << QStringLiteral("move");
        return done;
    }
};

TEST_F(DayLocks, PatientsAndGroupsMoveButKeepTheirText) {
    for (const int code : ncolor::PatientRows)
        add(anAppointment(QByteArray::number(code)).status(code));
    add(anAppointment("Group").status(ncolor::Group));
    openByHand();

    for (const int code : ncolor::PatientRows)
        EXPECT_EQ(whatMoves(QByteArray::number(code)), QStringList{"move"}) << code;
    EXPECT_EQ(whatMoves("Group"), QStringList{"move"});
}

TEST_F(DayLocks, EventsAndUnavailableTimeMoveAndTakeText) {
    add(anAppointment("Event").status(ncolor::Activity).at(9, 0));
    add(anAppointment("Away").status(ncolor::Unavailable).at(12, 0));
    openByHand();

    EXPECT_EQ(whatMoves("Event"), (QStringList{"text", "move"}));
    EXPECT_EQ(whatMoves("Away"), (QStringList{"text", "move"}));
}

TEST_F(DayLocks, ASlotOfAnAppointmentTypeStays) {
    add(anAppointment("Slot").with("appttype", "4").status(0x123456));
    openByHand();

    EXPECT_EQ(whatMoves("Slot"), QStringList());
}

TEST_F(DayLocks, TheHolidayBannerStays) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Once', '2026/03/11', 0)");
    openByHand();

    EXPECT_EQ(whatMoves("Once"), QStringList());
    EXPECT_EQ(item("Once").ItemKey, "0");
    EXPECT_TRUE(item("Once").ItemTextLocked);
    EXPECT_TRUE(item("Once").ItemMoveLocked);
}

TEST_F(DayLocks, WhoMayOnlyReadMovesNothing) {
    Session().ScreenAccess = 1;
    const qint64 key = add(anAppointment("Event").status(ncolor::Activity).at(9, 0));
    add(anAppointment("Anna").at(12, 0));
    openByHand();

    EXPECT_EQ(whatMoves("Event"), QStringList());
    EXPECT_EQ(whatMoves("Anna"), QStringList());
    this->key(Qt::Key_Down, Qt::ControlModifier);

    EXPECT_EQ(stored(key, "nStartTime"), "540");
}

TEST_F(DayLocks, AnItemThatWentBackIsLockedAsBefore) {
    add(anAppointment("Anna").at(9, 0));
    openByHand();
    desk.expectBox("Error saving appointment. " + database_.refuse("Update", "appointments"), "Error");

    moveTo("Anna", 720);

    EXPECT_TRUE(item("Anna").ItemTextLocked);
    EXPECT_FALSE(item("Anna").ItemMoveLocked);
}
