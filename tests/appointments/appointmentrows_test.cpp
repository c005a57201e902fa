#include "appointments/appointmentrows.h"

#include <gtest/gtest.h>

#include "appointments/alarmpreferences.h"
#include "appointments/appointmentroom.h"
#include "appointments/appointmentwrites.h"
#include "data/codes.h"
#include "tests/appointments/appointmentfixture.h"

namespace {

constexpr int Appointment = 812;

class AppointmentRows : public AppointmentFixture {
  protected:
    /// "start-end day room-text" of a booking.
    QString bookingText(int key) {
        const db::Recordset row(db::Sql("Select * from roomschedule Where nkeyid = {}", key), database.connection());
        return QStringLiteral("%1-%2 %3 %4")
            .arg(row["nStartTime"].text(), row["nEndTime"].text(), db::SqlDate(row["nApptDate"].date()),
                 row["croomtext"].text());
    }
    int blueRoom = room(QStringLiteral("Blue Room"));
};

class AlarmPreferences : public AppointmentFixture {
  protected:
    void preference(const QString& detail, const QString& value, const QString& user = QStringLiteral("REED")) {
        database.connection().Execute(db::Sql(
            "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('{}', 'Interfaces', '{}', '{}')",
            user, detail, value));
    }
    const QString status = QStringLiteral("ScheduleAlarm");
    const QString time = QStringLiteral("ScheduleAlarmTime");
    const QString reed = QStringLiteral("REED");
};

}  // namespace

TEST_F(AppointmentRows, AStatusIsOneWriteOfTheColour) {
    const int key = appointment({});
    const int other = appointment({});
    EXPECT_TRUE(SetApptStatus(key, ncolor::Missed).IsDone());
    EXPECT_EQ(database.number(db::Sql("Select ncolor from appointments Where nkeyid = {}", key)), ncolor::Missed);
    EXPECT_EQ(database.number(db::Sql("Select ncolor from appointments Where nkeyid = {}", other)), ncolor::Blank);
}

TEST_F(AppointmentRows, AStatusForARowThatIsGoneChangesNothingAndReportsNothing) {
    EXPECT_EQ(SetApptStatus(Appointment, ncolor::Missed).end, WriteOutcome::End::Gone);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from appointments")), 0);
}

TEST_F(AppointmentRows, AStatusThatCannotBeStoredReportsNothingButIsKnown) {
    const QString why = loseDatabase();
    const WriteOutcome outcome = SetApptStatus(Appointment, ncolor::Missed);
    EXPECT_EQ(outcome.end, WriteOutcome::End::Failed);
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->description, why);
}

TEST_F(AppointmentRows, TheRoomOfAnAppointmentIsTheOneBookedForIt) {
    booking(blueRoom + 1, 540, 600, QStringLiteral("Other"), Appointment + 1);
    booking(blueRoom, 540, 600, QStringLiteral("Own"), Appointment);
    EXPECT_EQ(ApptRoomId(Appointment), blueRoom);
}

TEST_F(AppointmentRows, AnAppointmentWithoutABookingHasNoRoom) {
    EXPECT_EQ(ApptRoomId(Appointment), 0);
}

TEST_F(AppointmentRows, ABookingWithoutARoomIsNoRoom) {
    const int key = booking(blueRoom, 540, 600, {}, Appointment);
    database.connection().Execute(db::Sql("Update roomschedule Set croomid = Null Where nkeyid = {}", key));
    EXPECT_EQ(ApptRoomId(Appointment), 0);
}

TEST_F(AppointmentRows, AnAppointmentThatIsNotSavedYetDoesNotTakeAMeetingsRoom) {
    const int meeting = booking(blueRoom, 540, 600, QStringLiteral("Staff meeting"));
    EXPECT_EQ(ApptRoomId(0), 0);
    UpdateRoomTime(0, 600, 660, day, QStringLiteral("Moved"));
    EXPECT_EQ(bookingText(meeting), QStringLiteral("540-600 2026/03/11 Staff meeting"));
}

TEST_F(AppointmentRows, ARoomThatCannotBeReadIsToldAndIsNotTakenForNone) {
    desk.expectBox(QStringLiteral("Error reading room schedule. ") + loseDatabase(), QStringLiteral("Error"));
    EXPECT_EQ(ApptRoomId(Appointment), -1);
}

TEST_F(AppointmentRows, AMovedAppointmentTakesItsRoomAlongAndKeepsItsText) {
    const int key = booking(blueRoom, 540, 600, QStringLiteral("Reed"), Appointment);
    UpdateRoomTime(Appointment, 615, 690, day.addDays(1), {});
    EXPECT_EQ(bookingText(key), QStringLiteral("615-690 2026/03/12 Reed"));
}

TEST_F(AppointmentRows, ANewTextGoesToTheRoomToo) {
    const int key = booking(blueRoom, 540, 600, QStringLiteral("Reed"), Appointment);
    UpdateRoomTime(Appointment, 540, 600, day, QStringLiteral("D'Arcy; Jo"));
    EXPECT_EQ(bookingText(key), QStringLiteral("540-600 2026/03/11 D'Arcy; Jo"));
}

TEST_F(AppointmentRows, ATextForTheRoomIsCutAtAHundredCharacters) {
    booking(blueRoom, 540, 600, {}, Appointment);
    UpdateRoomTime(Appointment, 540, 600, day, QString(300, QLatin1Char('x')));
    EXPECT_EQ(database.number(QStringLiteral("Select Len(croomtext) from roomschedule")), 100);
}

TEST_F(AppointmentRows, OnlyTheFirstSlotOfAnAppointmentIsMoved) {
    const int first = booking(blueRoom, 540, 570, QStringLiteral("First"), Appointment);
    const int second = booking(blueRoom, 570, 600, QStringLiteral("Second"), Appointment);
    UpdateRoomTime(Appointment, 660, 720, day, {});
    EXPECT_EQ(bookingText(first), QStringLiteral("660-720 2026/03/11 First"));
    EXPECT_EQ(bookingText(second), QStringLiteral("570-600 2026/03/11 Second"));
}

TEST_F(AppointmentRows, AnAppointmentWithoutARoomMovesNone) {
    UpdateRoomTime(Appointment, 660, 720, day, {});
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule")), 0);
}

TEST_F(AppointmentRows, ARoomThatCannotBeMovedEndsTheSaveOfItsAppointment) {
    DropTable(database.connection(), QStringLiteral("roomschedule"));
    EXPECT_THROW(UpdateRoomTime(Appointment, 660, 720, day, {}), db::DatabaseError);
}

TEST_F(AlarmPreferences, AnAlarmIsSetOnlyWhereTheNumberIsOne) {
    EXPECT_FALSE(GetAlarmStatus(reed));
    preference(status, QStringLiteral("1"));
    EXPECT_TRUE(GetAlarmStatus(reed));
    for (const char* value : {"0", "2", "True", "", "11"}) {
        preference(status, QString::fromLatin1(value), QString::fromLatin1(value));
        EXPECT_FALSE(GetAlarmStatus(QString::fromLatin1(value))) << value;
    }
    preference(status, QStringLiteral(" 1.0"), QStringLiteral("LEE"));
    EXPECT_TRUE(GetAlarmStatus(QStringLiteral("LEE")));
}

TEST_F(AlarmPreferences, TheLeadTimeIsTheNumberAboveZero) {
    EXPECT_EQ(GetAlarmTime(reed), 0);
    preference(time, QStringLiteral("25"));
    EXPECT_EQ(GetAlarmTime(reed), 25);
    preference(time, QStringLiteral("-5"), QStringLiteral("MINUS"));
    EXPECT_EQ(GetAlarmTime(QStringLiteral("MINUS")), 0);
    preference(time, QStringLiteral("soon"), QStringLiteral("WORD"));
    EXPECT_EQ(GetAlarmTime(QStringLiteral("WORD")), 0);
}

TEST_F(AlarmPreferences, ALeadTimeIsAtMostADay) {
    preference(time, QStringLiteral("99999"));
    EXPECT_EQ(GetAlarmTime(reed), 1440);
}

TEST_F(AlarmPreferences, AnEmptyValueAnApostropheAndALostDatabaseAreNoAlarm) {
    preference(status, {}, QStringLiteral("O'B"));
    database.connection().Execute(QStringLiteral("Update User_Preferences Set UP_PD_Value = Null"));
    EXPECT_FALSE(GetAlarmStatus(QStringLiteral("O'B")));
    (void)loseDatabase();
    EXPECT_FALSE(GetAlarmStatus(reed));
    EXPECT_EQ(GetAlarmTime(reed), 0);
}
