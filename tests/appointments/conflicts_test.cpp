#include "appointments/conflicts.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>

#include "appointments/appointmentconflict.h"
#include "data/codes.h"
#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "tests/appointments/appointmentfixture.h"

namespace {

const QString Reed = QStringLiteral("REED");
const QString Mary = QStringLiteral("10017");
constexpr int Hour = 60;
constexpr int Nine = 9 * Hour;
constexpr int Ten = 10 * Hour;

/// Every check here is of a proposal from 9 to 10 with Reed unless it says otherwise.
class Conflicts : public AppointmentFixture {
  protected:
    /// The next check must show these rows; the user then presses the button.
    void expectList(const QStringList& rows, const QString& button = QStringLiteral("cmdreschedule")) {
        desk.expectForm("AppointmentConflict", [rows, button](QDialog& form) {
            const auto& conflict = dynamic_cast<AppointmentConflict&>(form);
            QStringList shown;
            for (int row = 0; row < conflict.ctList1->RowCount(); ++row)
                shown << conflict.ctList1->Cells(row).join(u';');
            EXPECT_EQ(shown, rows);
            form.findChild<QPushButton*>(button)->click();
        });
    }
    bool check(int key = 0, const QString& patient = {}) {
        return CheckApptConflicts(key, day, Nine, Ten, patient, Reed);
    }
    void expectFailure(const QString& description) {
        desk.expectBox(QStringLiteral("Error checking for conflicts. Nothing has been saved. ") + description,
                       QStringLiteral("Error"));
    }
};

class RoomConflicts : public Conflicts {
  protected:
    bool check(int key = 0, int byAppointment = 0) {
        return CheckRoomConflicts(key, day, Nine, Ten, blueRoom, byAppointment);
    }
    int blueRoom = room(QStringLiteral("Blue Room"));
};

}  // namespace

TEST_F(Conflicts, AFreeTimeAsksNothing) {
    appointment({.start = Nine - Hour, .end = Nine});
    appointment({.start = Ten, .end = Ten + Hour});
    EXPECT_FALSE(check());
}

TEST_F(Conflicts, ATakenTimeTellsWhoWhenAndWithWhom) {
    appointment({.start = Nine + 30, .end = Ten + 30});
    expectList({QStringLiteral("3/11/2026;9:30 AM;10:30 AM;Jones, Mary;Reed")});
    EXPECT_TRUE(check());
}

TEST_F(Conflicts, AnAcceptedConflictLetsTheSaveGoOn) {
    appointment({});
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;Reed")}, QStringLiteral("cmdaccept"));
    EXPECT_FALSE(check());
}

TEST_F(Conflicts, ClosingTheListWithoutAChoiceStopsTheSave) {
    appointment({});
    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.close(); });
    EXPECT_TRUE(check());
}

TEST_F(Conflicts, TheListIsInTheOrderOfTheDay) {
    appointment({.start = Nine + 30, .end = Ten, .text = QStringLiteral("Later")});
    appointment({.start = Nine, .end = Nine + 45, .text = QStringLiteral("Longer")});
    appointment({.start = Nine, .end = Nine + 30, .text = QStringLiteral("Shorter")});
    expectList({QStringLiteral("3/11/2026;9:00 AM;9:30 AM;Shorter;Reed"),
                QStringLiteral("3/11/2026;9:00 AM;9:45 AM;Longer;Reed"),
                QStringLiteral("3/11/2026;9:30 AM;10:00 AM;Later;Reed")});
    EXPECT_TRUE(check());
}

TEST_F(Conflicts, ANewAppointmentHasNoRowLeftOut) {
    appointment({});
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;Reed")});
    EXPECT_TRUE(check(0));
}

TEST_F(Conflicts, AnAppointmentDoesNotConflictWithItself) {
    const int key = appointment({});
    EXPECT_FALSE(check(key, Mary));
}

TEST_F(Conflicts, ASlotOfAnAppointmentTypeNeverConflicts) {
    appointment({.kind = ApptTypeSlot});
    EXPECT_FALSE(check(0, Mary));
}

TEST_F(Conflicts, MissedAndCancelledAppointmentsConflictLikeOthers) {
    const int key = appointment({});
    for (const int code : {ncolor::Missed, ncolor::PatientCancelled, ncolor::TherapistCancelled}) {
        database.connection().Execute(db::Sql("Update appointments Set ncolor = {} Where nkeyid = {}", code, key));
        expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;Reed")});
        EXPECT_TRUE(check());
    }
}

TEST_F(Conflicts, AnotherDayAndAnotherProviderAreFree) {
    appointment({.date = day.addDays(1)});
    appointment({.provider = QStringLiteral("OBRIEN")});
    EXPECT_FALSE(check());
}

TEST_F(Conflicts, ThePatientsHourWithAnotherProviderConflictsOnlyWhenThePatientIsNamed) {
    appointment({.provider = QStringLiteral("OBRIEN")});
    EXPECT_FALSE(check(0, {}));
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;O'Brien")});
    EXPECT_TRUE(check(0, Mary));
}

TEST_F(Conflicts, ARowOfTheProviderAndThePatientIsListedOnce) {
    appointment({});
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;Reed")});
    EXPECT_TRUE(check(0, Mary));
}

TEST_F(Conflicts, AProposalOfNoLengthAtTheStartOfAnotherConflicts) {
    appointment({});
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;Reed")});
    EXPECT_TRUE(CheckApptConflicts(0, day, Nine, Nine, {}, Reed));
}

TEST_F(Conflicts, FractionsOfAMinuteAreAllowed) {
    appointment({});
    EXPECT_FALSE(CheckApptConflicts(0, day, Ten - 0.05, Ten + 30, {}, Reed));
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;Reed")});
    EXPECT_TRUE(CheckApptConflicts(0, day, Ten - 0.5, Ten + 30, {}, Reed));
}

TEST_F(Conflicts, TheClockIsTheUsers) {
    Session().MilitaryTime = true;
    appointment({.start = Nine, .end = 13 * Hour + 5});
    expectList({QStringLiteral("3/11/2026;09:00;13:05;Jones, Mary;Reed")});
    EXPECT_TRUE(check());
}

TEST_F(Conflicts, TheSelectedRowTellsForHowLongItIsInTheWay) {
    appointment({.start = Nine + 30, .end = Ten + 30});
    appointment({.start = Nine + 45, .end = Nine + 46, .text = QString()});
    appointment({.start = Nine + 50, .end = Nine + 50, .text = QStringLiteral("A moment")});
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        const auto& conflict = dynamic_cast<AppointmentConflict&>(form);
        EXPECT_EQ(conflict.lbllength->text(), QStringLiteral("Jones, Mary: 60 minutes, 30 of them in the new time."));
        conflict.ctList1->SelectRow(1);
        EXPECT_EQ(conflict.lbllength->text(), QStringLiteral("Reed: 1 minute, all in the new time."));
        conflict.ctList1->SelectRow(2);
        EXPECT_EQ(conflict.lbllength->text(), QStringLiteral("A moment: 0 minutes."));
        conflict.cmdaccept->click();
    });
    EXPECT_FALSE(check());
}

TEST_F(Conflicts, TheTipOfARowAndTheLineBelowTellItsStatus) {
    const auto set = [this](int key, int code) {
        database.connection().Execute(db::Sql("Update appointments Set ncolor = {} Where nkeyid = {}", code, key));
    };
    set(appointment({.end = Nine + 30}), ncolor::PatientCancelled);
    set(appointment({.start = Nine + 10, .text = QStringLiteral("D'Arcy, Jo")}), ncolor::Kept);
    set(appointment({.start = Nine + 20, .text = QStringLiteral("Odd")}), 0x123456);
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        const auto& conflict = dynamic_cast<AppointmentConflict&>(form);
        EXPECT_EQ(conflict.TipOf(0), "Jones, Mary\nReed\n9:00 AM - 9:30 AM\nStatus: Patient Cancelled");
        EXPECT_EQ(conflict.TipOf(1), "D'Arcy, Jo\nReed\n9:10 AM - 10:00 AM\nStatus: Kept");
        EXPECT_EQ(conflict.TipOf(2), "Odd\nReed\n9:20 AM - 10:00 AM") << "a colour that is no status";
        EXPECT_EQ(conflict.TipOf(3), "");
        EXPECT_TRUE(conflict.lbllength->text().endsWith(" Status: Patient Cancelled."));
        conflict.ctList1->SelectRow(2);
        EXPECT_FALSE(conflict.lbllength->text().contains("Status"));
        conflict.cmdaccept->click();
    });
    EXPECT_FALSE(check());
}

TEST_F(Conflicts, BookingsThatLookAlikeTellAllTheirStatuses) {
    const int first = appointment({});
    appointment({.provider = QStringLiteral("OBRIEN")});
    database.connection().Execute(db::Sql("Update appointments Set ncolor = 192 Where nkeyid = {}", first));
    database.connection().Execute(db::Sql("Update appointments Set ncolor = 49152 Where nkeyid <> {}", first));
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        const QString tip = dynamic_cast<AppointmentConflict&>(form).TipOf(0);
        EXPECT_TRUE(tip.contains("Missed") && tip.contains("Kept")) << tip.toStdString();
        form.reject();
    });
    EXPECT_TRUE(check(0, Mary));
}

TEST_F(RoomConflicts, TheTipTellsTheStatusOfTheVisitInTheRoom) {
    const int key = appointment({});
    database.connection().Execute(db::Sql("Update appointments Set ncolor = 194 Where nkeyid = {}", key));
    booking(blueRoom, Nine, Ten, QStringLiteral("Jones, Mary"), key);
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        EXPECT_EQ(dynamic_cast<AppointmentConflict&>(form).TipOf(0),
                  "Jones, Mary\nBlue Room\n9:00 AM - 10:00 AM\nStatus: Therapist Cancelled");
        form.reject();
    });
    EXPECT_TRUE(check());
}

TEST_F(Conflicts, ApostrophesInIdsAndNamesAreHarmless) {
    provider(QStringLiteral("O'B"), QStringLiteral("O'Byrne"));
    appointment(
        {.text = QStringLiteral("D'Arcy, Jo"), .provider = QStringLiteral("O'B"), .patient = QStringLiteral("7'")});
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;D'Arcy, Jo;O'Byrne")});
    EXPECT_TRUE(CheckApptConflicts(0, day, Nine, Ten, QStringLiteral("7'"), QStringLiteral("O'B")));
}

TEST_F(Conflicts, ASemicolonInATextDoesNotSlipIntoTheNextColumn) {
    provider(QStringLiteral("ODD"), QStringLiteral("Odd;Name"));
    appointment({.text = QStringLiteral("Team; lunch\nroom 2"), .provider = QStringLiteral("ODD")});
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Team; lunch\nroom 2;Odd;Name")});
    EXPECT_TRUE(CheckApptConflicts(0, day, Nine, Ten, {}, QStringLiteral("ODD")));
}

TEST_F(Conflicts, AProviderWhoWasRemovedIsNamedByTheId) {
    appointment({.provider = QStringLiteral("GONE")});
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Jones, Mary;GONE")});
    EXPECT_TRUE(check(0, Mary));
}

TEST_F(Conflicts, EmptyColumnsAreEmptyCells) {
    const int key = appointment({});
    database.connection().Execute(
        db::Sql("Update appointments Set cappttext = Null, clinicianid = Null Where nkeyid = {}", key));
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;;")});
    EXPECT_TRUE(check(0, Mary));
}

TEST_F(Conflicts, ARowWithoutTimesIsInNobodysWay) {
    const int key = appointment({});
    database.connection().Execute(
        db::Sql("Update appointments Set nStartTime = Null, nEndTime = Null Where nkeyid = {}", key));
    EXPECT_FALSE(check(0, Mary));
}

TEST_F(Conflicts, ARowThatAnEditorMadeWithoutAKindIsInTheWay) {
    db::Recordset row(QStringLiteral("Select * from appointments where 0=1"), database.connection(),
                      db::Lock::Optimistic);
    row.AddNew();
    row.Set("dapptdate", day);
    row.Set("nStartTime", Nine);
    row.Set("nEndTime", Ten);
    row.Set("clinicianid", Reed);
    row.Update();
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;;Reed")});
    EXPECT_TRUE(check());
}

TEST_F(Conflicts, WithoutADatabaseTheUserIsToldAndTheSaveStops) {
    expectFailure(loseDatabase());
    EXPECT_TRUE(check());
}

TEST_F(Conflicts, AProviderThatCannotBeReadStopsTheSaveToo) {
    appointment({});
    expectFailure(DropTable(database.connection(), QStringLiteral("provider_info")));
    EXPECT_TRUE(check());
}

TEST_F(RoomConflicts, AFreeRoomAsksNothing) {
    booking(blueRoom, Nine - Hour, Nine, QStringLiteral("Early"));
    booking(blueRoom, Ten, Ten + Hour, QStringLiteral("Late"));
    booking(room(QStringLiteral("Green Room")), Nine, Ten, QStringLiteral("Elsewhere"));
    EXPECT_FALSE(check());
}

TEST_F(RoomConflicts, ATakenRoomIsToldWithItsOwnTitleAndText) {
    booking(blueRoom, Nine, Ten, QStringLiteral("Staff meeting"));
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        const auto& conflict = dynamic_cast<AppointmentConflict&>(form);
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Room Conflict"));
        EXPECT_EQ(conflict.ctList1->Header(5), QStringLiteral("Room"));
        EXPECT_EQ(conflict.ctList1->Cells(0).join(u';'),
                  QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Staff meeting;Blue Room"));
        EXPECT_EQ(
            conflict.lblmessage->text(),
            QStringLiteral(
                "The appointment being scheduled conflicts with an existing appointment in the room listed below. You can accept the conflict or change the current appointment room, date or time."));
        conflict.cmdaccept->click();
    });
    EXPECT_FALSE(check());
}

TEST_F(RoomConflicts, ReschedulingStopsTheSave) {
    booking(blueRoom, Nine, Ten, QStringLiteral("Staff meeting"));
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Staff meeting;Blue Room")});
    EXPECT_TRUE(check());
}

TEST_F(RoomConflicts, ABookingThatLiesWithinIsFoundByTheThirdQuestion) {
    booking(blueRoom, Nine + 15, Nine + 30, QStringLiteral("Within"));
    expectList({QStringLiteral("3/11/2026;9:15 AM;9:30 AM;Within;Blue Room")});
    EXPECT_TRUE(check());
}

TEST_F(RoomConflicts, OnlyTheRowsOfTheFirstQuestionThatHitAreListed) {
    booking(blueRoom, Nine + 15, Nine + 30, QStringLiteral("Within"));
    booking(blueRoom, Nine + 45, Ten + 15, QStringLiteral("Over the end"));
    expectList({QStringLiteral("3/11/2026;9:45 AM;10:15 AM;Over the end;Blue Room")});
    EXPECT_TRUE(check());
    booking(blueRoom, Nine - 15, Nine + 10, QStringLiteral("Over the start"));
    expectList({QStringLiteral("3/11/2026;8:45 AM;9:10 AM;Over the start;Blue Room")});
    EXPECT_TRUE(check());
}

TEST_F(RoomConflicts, TheBookingOfTheAppointmentItselfIsLeftOut) {
    booking(blueRoom, Nine, Ten, QStringLiteral("Own"), 812);
    EXPECT_FALSE(check(812, 812));
}

TEST_F(RoomConflicts, AMeetingOfNoAppointmentIsInTheWayOfAnAppointment) {
    booking(blueRoom, Nine, Ten, QStringLiteral("Staff meeting"));
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Staff meeting;Blue Room")});
    EXPECT_TRUE(check(812, 812));
}

TEST_F(RoomConflicts, ABookingCanBeLeftOutByItsOwnKey) {
    const int own = booking(blueRoom, Nine, Ten, QStringLiteral("Own"), 812);
    EXPECT_FALSE(check(own, 0));
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;Own;Blue Room")});
    EXPECT_TRUE(check(own, 1));
}

TEST_F(RoomConflicts, ABookingWithoutATextIsAnEmptyCellAndASemicolonStaysInItsCell) {
    const int bare = booking(blueRoom, Nine, Ten, {});
    booking(blueRoom, Nine, Ten, QStringLiteral("A;B"));
    database.connection().Execute(db::Sql("Update roomschedule Set croomtext = Null Where nkeyid = {}", bare));
    expectList({QStringLiteral("3/11/2026;9:00 AM;10:00 AM;;Blue Room"),
                QStringLiteral("3/11/2026;9:00 AM;10:00 AM;A;B;Blue Room")});
    EXPECT_TRUE(check());
}

TEST_F(RoomConflicts, ARoomThatWasRemovedHasNoConflicts) {
    booking(blueRoom, Nine, Ten, QStringLiteral("Staff meeting"));
    database.connection().Execute(QStringLiteral("Delete from rooms"));
    EXPECT_FALSE(check());
}

TEST_F(RoomConflicts, WithoutADatabaseTheUserIsToldAndTheSaveStops) {
    expectFailure(loseDatabase());
    EXPECT_TRUE(check());
}

TEST_F(RoomConflicts, ABrokenRoomScheduleIsToldAndStopsTheSave) {
    expectFailure(DropTable(database.connection(), QStringLiteral("roomschedule")));
    EXPECT_TRUE(check());
}
