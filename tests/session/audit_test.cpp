#include "session/audit.h"

#include <gtest/gtest.h>

#include "session/session.h"
#include "tests/session/practice.h"
#include "tests/support/scripteddesk.h"

namespace {

class Audit : public testing::Test {
  protected:
    Audit() {
        practice.connect();
        Session().UID = "ANNA";
        Session().OsUserName = "anna's account";
        Session().ComputerName = "desk1";
        Session().ALEnabled = true;
    }
    [[nodiscard]] QString field(const char* name) {
        return practice.value(QString("Select %1 From AuditLog").arg(QString::fromLatin1(name)));
    }

    ScriptedDesk desk;
    Practice practice;
};

}  // namespace

TEST_F(Audit, ALineTellsWhoDidWhatWhenAndWhere) {
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(14, 5, 9)));

    AuditLog("ANNA", "Patient", "New Patient", "by phone", "Added new patient - Moor, Tom");

    EXPECT_EQ(field("LogUser"), "ANNA");
    EXPECT_EQ(field("LogDate"), "2026/03/11 02:05:09 PM");
    EXPECT_EQ(field("LogLocation"), "Patient");
    EXPECT_EQ(field("LogListId"), "New Patient");
    EXPECT_EQ(field("LogNotes"), "by phone");
    EXPECT_EQ(field("LogDescription"), "Added new patient - Moor, Tom");
    EXPECT_EQ(field("CompUser"), "anna's account");
    EXPECT_EQ(field("CompName"), "desk1");
}

TEST_F(Audit, TheHoursAroundNoonAndMidnightReadAsTwelve) {
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(0, 30)));
    AuditLog("ANNA", "Scheduler", "Add Appointment", {}, "x");
    EXPECT_EQ(field("LogDate"), "2026/03/11 12:30:00 AM");

    practice.sql("Delete From AuditLog");
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(12, 0)));
    AuditLog("ANNA", "Scheduler", "Add Appointment", {}, "x");
    EXPECT_EQ(field("LogDate"), "2026/03/11 12:00:00 PM");
}

TEST_F(Audit, AnApostropheIsStored) {
    AuditLog("O'BRIEN", "Scheduler", "Add Appointment", "it's", "Added Appointment for Tom O'Neill's group");

    EXPECT_EQ(field("LogUser"), "O'BRIEN");
    EXPECT_EQ(field("LogNotes"), "it's");
    EXPECT_EQ(field("LogDescription"), "Added Appointment for Tom O'Neill's group");
}

TEST_F(Audit, EmptyNotesAreADash) {
    AuditLog("ANNA", "Scheduler", "Add Appointment", {}, "x");

    EXPECT_EQ(field("LogNotes"), "-");
}

TEST_F(Audit, SwitchedOffNothingIsWritten) {
    Session().ALEnabled = false;

    AuditLog("ANNA", "Scheduler", "Add Appointment", {}, "x");
    AuditDeletedAppointment("3/11/2026", "9:00 AM", "Moor, Tom");

    EXPECT_EQ(practice.value("Select Count(*) From AuditLog"), "0");
}

TEST_F(Audit, ALineThatCannotBeWrittenStopsNothing) {
    Session().Connection.Close();

    AuditLog("ANNA", "Scheduler", "Add Appointment", {}, "x");

    EXPECT_EQ(practice.value("Select Count(*) From AuditLog"), "0");
}

TEST_F(Audit, ADeletedAppointmentLeavesItsLine) {
    AuditDeletedAppointment("3/11/2026", "9:00 AM", "O'Neill, Pat");

    EXPECT_EQ(field("LogDescription"), "Deleted appointment - O'Neill, Pat at 9:00 AM on 3/11/2026");
    EXPECT_EQ(field("LogListId"), "Delete Appointment");
    EXPECT_EQ(field("LogLocation"), "Scheduler");
    EXPECT_EQ(field("LogUser"), "ANNA");
}

TEST_F(Audit, ThePracticeSwitchesItOnWithExactlyOne) {
    for (const char* value : {"0", "2", "-1", "NULL"}) {
        practice.sql(QString("Update settings Set ALEnabled = %1").arg(QString::fromLatin1(value)));
        GetALSettings();
        EXPECT_FALSE(Session().ALEnabled) << value;
    }
    practice.sql("Update settings Set ALEnabled = 1");
    GetALSettings();
    EXPECT_TRUE(Session().ALEnabled);
}

TEST_F(Audit, WithoutASettingsRowItIsOff) {
    practice.sql("Delete From settings");

    GetALSettings();

    EXPECT_FALSE(Session().ALEnabled);
}

TEST_F(Audit, ASettingThatCannotBeReadSaysSoAndLeavesItOff) {
    desk.expectBox(
        "Error reading global setings from database. " + DropTable(practice.database().connection(), "settings"),
        "Error");

    GetALSettings();

    EXPECT_FALSE(Session().ALEnabled);
}
