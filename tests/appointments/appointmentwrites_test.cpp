#include "appointments/appointmentwrites.h"

#include <utility>

#include "appointments/appointmentrows.h"
#include "data/codes.h"
#include "tests/appointments/appointmentfixture.h"

using db::Recordset;
using db::Sql;
using End = WriteOutcome::End;

namespace {

const ItemPainting Plain{false, [](const QString&) { return -1; }, false};

}  // namespace

/// The staff meeting, nine to ten on Reed's Wednesday, in the blue room.
class AppointmentWrites : public AppointmentFixture {
  protected:
    AppointmentWrites() {
        Session().UID = QStringLiteral("FRONT");
        Session().ALEnabled = true;
        desk.setNow(QDateTime(day, QTime(8, 0)));
        key = appointment({.text = QStringLiteral("Staff Meeting"), .patient = QString()});
        run(Sql("Update appointments Set ncolor = {} Where nkeyid = {}", ncolor::Activity, key));
        booking(room(QStringLiteral("Blue")), 540, 600, QStringLiteral("Staff Meeting"), key);
    }

    void run(const QString& statement) { database.connection().Execute(statement); }
    [[nodiscard]] ShownAppointment shown() const {
        const Recordset row(AppointmentStatement(key), Session().Connection);
        return RowOf(row, ItemFromAppointment(row, Plain));
    }
    [[nodiscard]] AppointmentMove toEleven() const {
        AppointmentMove move;
        move.before = shown();
        move.day = day.addDays(1);
        move.start = 660;
        move.end = 720;
        move.text = move.before.stored.ItemText;
        move.room = true;
        return move;
    }
    /// "start day provider text, room start day text"
    [[nodiscard]] QString stored() {
        const Recordset row(AppointmentStatement(key), database.connection());
        const Recordset slot(RoomSlotStatement(key), database.connection());
        const auto date = [](const Recordset& of, const char* column) { return of[column].date().toString("M/d"); };
        return QStringLiteral("%1 %2 %3 %4, room %5 %6 %7")
            .arg(row["nStartTime"].text(), date(row, "dapptdate"), row["clinicianid"].text(), row["cappttext"].text(),
                 slot["nStartTime"].text(), date(slot, "nApptDate"), slot["croomtext"].text());
    }
    [[nodiscard]] QString audit() {
        return database.text(QStringLiteral("Select LogDescription from AuditLog Order by LogId Desc"));
    }

    const QString untouched = QStringLiteral("540 3/11 REED Staff Meeting, room 540 3/11 Staff Meeting");
    int key = 0;
};

TEST_F(AppointmentWrites, ATextTypedInPlaceGoesToTheRoomTooAndComesBackAsTheRowHasIt) {
    CalendarItem wanted = shown().stored;
    wanted.ItemText = QStringLiteral("O'Brien's training");
    const RowOutcome outcome = SaveInPlace(shown().stored, wanted, Plain);
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_EQ(outcome.row.stored.ItemText, QStringLiteral("O'Brien's training"));
    EXPECT_EQ(stored(), QStringLiteral("540 3/11 REED O'Brien's training, room 540 3/11 O'Brien's training"));
}

TEST_F(AppointmentWrites, ATextIsNotStoredWithoutItsRoom) {
    CalendarItem wanted = shown().stored;
    wanted.ItemText = QStringLiteral("Training");
    const QString why = database.refuse(QStringLiteral("Update"), QStringLiteral("roomschedule"));
    const RowOutcome outcome = SaveInPlace(shown().stored, wanted, Plain);
    EXPECT_EQ(outcome.end, End::Failed);
    EXPECT_EQ(WriteTrouble(outcome.step), QStringLiteral("Error saving room schedule. "));
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->description, why);
    EXPECT_EQ(stored(), untouched);
}

TEST_F(AppointmentWrites, ATextThatAnotherDeskChangedTooIsAFailureOfTheAppointment) {
    const CalendarItem read = shown().stored;
    CalendarItem wanted = read;
    wanted.ItemText = QStringLiteral("Mine");
    run(Sql("Update appointments Set cappttext = 'Theirs' Where nkeyid = {}", key));
    const RowOutcome outcome = SaveInPlace(read, wanted, Plain);
    EXPECT_EQ(WriteTrouble(outcome.step), QStringLiteral("Error saving appointment. "));
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->number, db::RowChanged);
    EXPECT_EQ(stored(), QStringLiteral("540 3/11 REED Theirs, room 540 3/11 Staff Meeting"));
}

TEST_F(AppointmentWrites, AMoveTakesTheRoomAlongAndLeavesALine) {
    const RowOutcome outcome = MoveAppointment(toEleven(), Plain);
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_EQ(outcome.row.stored.ItemStart, 660);
    EXPECT_EQ(stored(), QStringLiteral("660 3/12 REED Staff Meeting, room 660 3/12 Staff Meeting"));
    EXPECT_EQ(audit(),
              QStringLiteral("Modified Appointment (03/11/2026 at 9:00 AM) to 03/12/26 at 11:00 AM for Staff Meeting"));
}

TEST_F(AppointmentWrites, AMoveToAnotherProviderTellsBothInTheLine) {
    AppointmentMove move = toEleven();
    move.provider = BookedProvider{QStringLiteral("OBRIEN"), QStringLiteral("O'Brien")};
    move.providerBefore = QStringLiteral("Reed");
    EXPECT_TRUE(MoveAppointment(move, Plain).IsDone());
    EXPECT_EQ(stored(), QStringLiteral("660 3/12 OBRIEN Staff Meeting, room 660 3/12 Staff Meeting"));
    EXPECT_EQ(
        audit(),
        QStringLiteral(
            "Modified Appointment (03/11/2026 at 9:00 AM with Reed) to 03/12/26 at 11:00 AM for Staff Meeting with O'Brien"));
}

TEST_F(AppointmentWrites, AMoveThatTheRoomRefusesLeavesAllWhereItWasAndNoLine) {
    (void)database.refuse(QStringLiteral("Update"), QStringLiteral("roomschedule"));
    const RowOutcome outcome = MoveAppointment(toEleven(), Plain);
    EXPECT_EQ(outcome.end, End::Failed);
    EXPECT_EQ(outcome.step, WriteStep::Room);
    EXPECT_EQ(stored(), untouched);
    EXPECT_EQ(audit(), QStringLiteral("(none)"));
}

TEST_F(AppointmentWrites, WhatAnotherDeskMovedIsNotMovedAway) {
    const AppointmentMove move = toEleven();
    run(Sql("Update appointments Set nStartTime = 570 Where nkeyid = {}", key));
    const RowOutcome outcome = MoveAppointment(move, Plain);
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->number, db::RowChanged);
    EXPECT_EQ(stored(), QStringLiteral("570 3/11 REED Staff Meeting, room 540 3/11 Staff Meeting"));
}

TEST_F(AppointmentWrites, WhatAnotherDeskDeletedIsGoneForEachOfThem) {
    const AppointmentMove move = toEleven();
    CalendarItem wanted = move.before.stored;
    wanted.ItemText = QStringLiteral("Training");
    run(Sql("Delete from appointments Where nkeyid = {}", key));
    EXPECT_EQ(SaveInPlace(move.before.stored, wanted, Plain).end, End::Gone);
    EXPECT_EQ(MoveAppointment(move, Plain).end, End::Gone);
    EXPECT_EQ(SetApptStatus(key, ncolor::Kept).end, End::Gone);
    EXPECT_EQ(CheckIn(key, QStringLiteral("03/11/26 09:05 AM")).end, End::Gone);
    EXPECT_EQ(CorrectArrival(key, QStringLiteral("03/11/26 09:05 AM")).end, End::Gone);
}

TEST_F(AppointmentWrites, OnlyTheArrivalOfACheckInChangesTheStatus) {
    EXPECT_TRUE(CheckIn(key, QStringLiteral("03/11/26 09:05 AM")).IsDone());
    const QString row = Sql("Select CheckInTime, ncolor from appointments Where nkeyid = {}", key);
    EXPECT_EQ(Recordset(row, database.connection())["ncolor"].integer(), ncolor::CheckedIn);
    EXPECT_TRUE(SetApptStatus(key, ncolor::Kept).IsDone());
    EXPECT_TRUE(CorrectArrival(key, QStringLiteral("03/11/26 09:15 AM")).IsDone());
    const Recordset corrected(row, database.connection());
    EXPECT_EQ(corrected["CheckInTime"].text(), QStringLiteral("03/11/26 09:15 AM"));
    EXPECT_EQ(corrected["ncolor"].integer(), ncolor::Kept);
}
