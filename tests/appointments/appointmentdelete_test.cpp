#include "appointments/appointmentdelete.h"

#include "appointments/appointmentrows.h"
#include "data/codes.h"
#include "tests/appointments/appointmentfixture.h"

using db::Recordset;
using db::Sql;

/// An appointment with a room, and with attendees and members whatever its kind, so that each shows what a deletion
/// takes along.
class AppointmentDelete : public AppointmentFixture {
  protected:
    AppointmentDelete() {
        Session().UID = QStringLiteral("FRONT");
        Session().ALEnabled = true;
        desk.setNow(QDateTime(day, QTime(8, 0)));
        key = appointment({});
        booking(room(QStringLiteral("Blue")), 540, 600, QStringLiteral("Reed"), key);
        for (const char* provider : {"REED", "OBRIEN"})
            run(Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, '{}')", key, provider));
        run(Sql("Insert Into AppointmentsGroup (nKeyId, PatientId) Values({}, 'P1')", key));
    }

    void run(const QString& statement) { database.connection().Execute(statement); }
    void become(int code) { run(Sql("Update appointments Set ncolor = {} Where nkeyid = {}", code, key)); }
    [[nodiscard]] WriteOutcome deleteRow() const {
        Recordset row(AppointmentStatement(key), Session().Connection, db::Lock::Optimistic);
        return DeleteAppointment(row, audited);
    }
    /// "rows rooms attendees members lines"
    [[nodiscard]] QString left() {
        QStringList counts;
        for (const char* table :
             {"appointments", "roomschedule", "AppointmentsEvents", "AppointmentsGroup", "AuditLog"})
            counts << QString::number(
                database.number(Sql("Select Count(*) from {}", db::Raw{QString::fromLatin1(table)})));
        return counts.join(QLatin1Char(' '));
    }

    const AuditedAppointment audited{QStringLiteral("03/11/2026"), QStringLiteral("9:00 AM"),
                                     QStringLiteral("Jones, Mary")};
    int key = 0;
};

TEST_F(AppointmentDelete, OneThatWasChosenTakesItsRoomAndWhatItsKindHas) {
    become(ncolor::Pending);
    EXPECT_TRUE(deleteRow().IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 2 1 1"));
}

TEST_F(AppointmentDelete, AGroupTakesItsMembers) {
    become(ncolor::Group);
    EXPECT_TRUE(deleteRow().IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 2 0 1"));
}

TEST_F(AppointmentDelete, AnActivityTakesItsAttendees) {
    become(ncolor::Activity);
    EXPECT_TRUE(deleteRow().IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 0 1 1"));
}

TEST_F(AppointmentDelete, OneThatAnotherDeskChangedSinceItWasReadStaysWhole) {
    Recordset row(AppointmentStatement(key), Session().Connection, db::Lock::Optimistic);
    run(Sql("Update appointments Set cappttext = 'Theirs' Where nkeyid = {}", key));
    const WriteOutcome outcome = DeleteAppointment(row, audited);
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->number, db::RowChanged);
    EXPECT_EQ(left(), QStringLiteral("1 1 2 1 0"));
}

TEST_F(AppointmentDelete, OneOfASeriesTakesAllThatHangsOnItAlsoWhereItIsGone) {
    run(Sql("Delete from appointments Where nkeyid = {}", key));
    EXPECT_TRUE(DeleteOfSeries({key, audited, false}).IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 0 1 1"));
    EXPECT_TRUE(DeleteOfSeries({key, audited, true}).IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 0 0 2"));
}

TEST_F(AppointmentDelete, OneThatIsStillBeingAddedLeavesNoLine) {
    EXPECT_TRUE(CancelAddedAppointment(key).IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 2 1 0"));
}

TEST_F(AppointmentDelete, AnActivityGoesWithItsLastAttendee) {
    EXPECT_TRUE(DeleteAttendance(key, QStringLiteral("REED")).IsDone());
    EXPECT_EQ(left(), QStringLiteral("1 1 1 1 0"));
    EXPECT_TRUE(DeleteAttendance(key, QStringLiteral("OBRIEN")).IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 0 1 0"));
}

TEST_F(AppointmentDelete, AnActivityGoesForAllAtOnce) {
    EXPECT_TRUE(DeleteActivity(key).IsDone());
    EXPECT_EQ(left(), QStringLiteral("0 0 0 1 0"));
}

TEST_F(AppointmentDelete, WhatTheRoomRefusesLeavesAllAsItWas) {
    become(ncolor::Group);
    const QString why = database.refuse(QStringLiteral("Delete"), QStringLiteral("roomschedule"));
    for (const WriteOutcome& outcome :
         {deleteRow(), DeleteOfSeries({key, audited, true}), CancelAddedAppointment(key), DeleteActivity(key)}) {
        EXPECT_EQ(outcome.end, WriteOutcome::End::Failed);
        ASSERT_TRUE(outcome.failure);
        EXPECT_EQ(outcome.failure->description, why);
        EXPECT_EQ(left(), QStringLiteral("1 1 2 1 0"));
    }
}
