// What `check` finds in the rows of a practice, and how it is mended.

#include <gtest/gtest.h>

#include <algorithm>

#include "data/demo/demo.h"
#include "data/upkeep/finding.h"
#include "platform/database/sql.h"
#include "tests/support/testdatabase.h"

using upkeep::ApplyFix;
using upkeep::CheckRows;
using upkeep::Finding;

namespace {

/// A practice with one provider, one patient, one room and one sound appointment.
class CheckedRows : public testing::Test {
  protected:
    CheckedRows() {
        run("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)");
        run("Insert Into patient_info (id, last_name) Values ('10017', 'Jones')");
        run("Insert Into rooms (Room) Values ('Blue')");
        key = add("'REED'", "'10017'", "540", "590");
    }

    void run(const QString& statement) { database.connection().Execute(statement); }
    qint64 add(const char* provider, const char* patient, const char* start, const char* end, int colour = 16711681) {
        run(QStringLiteral(
                "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, appttype, clinicianid, patientid) Values ('2026/03/11', %3, %4, 'Jones, Mary', %5, 0, %1, %2)")
                .arg(QLatin1String(provider), QLatin1String(patient), QLatin1String(start), QLatin1String(end))
                .arg(colour));
        return database.connection().LastIdentity();
    }
    void change(const char* what) {
        run(QStringLiteral("Update appointments Set %1 Where nkeyid = %2").arg(QLatin1String(what)).arg(key));
    }
    [[nodiscard]] std::vector<Finding> found() { return CheckRows(database.connection()); }
    /// The one finding; the test fails where there are more or none.
    Finding theFinding() {
        const std::vector<Finding> all = found();
        for (std::size_t i = 1; i < all.size(); ++i)
            ADD_FAILURE() << all[i].table.toStdString() << ": " << all[i].text.toStdString();
        EXPECT_FALSE(all.empty());
        return all.empty() ? Finding{} : all.front();
    }
    /// Expects this sentence and mends it; afterwards nothing is found any more.
    void expectFixed(const char* text, const QString& answer = {}) {
        const Finding finding = theFinding();
        EXPECT_EQ(finding.text, QString::fromLatin1(text));
        ASSERT_TRUE(finding.fix);
        EXPECT_EQ(ApplyFix(database.connection(), finding, answer), "");
        EXPECT_EQ(found().size(), 0U);
        EXPECT_EQ(ApplyFix(database.connection(), finding, answer),
                  "The row has changed meanwhile and was left as it is.");
    }

    TestDatabase database;
    qint64 key = 0;
};

}  // namespace

TEST_F(CheckedRows, OfASoundPracticeAreNotFound) {
    run(QStringLiteral(
            "Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values (%1, 1, 540, 590, '2026/03/11')")
            .arg(key));
    run("Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values (0, 1, 600, 660, '2026/03/11')");
    add("'~EVT'", "Null", "600", "660", 16777088);
    add("'REED'", "''", "700", "700", 16744703);
    change("repeating = 1, repeating_ref = 4711");
    EXPECT_EQ(found().size(), 0U) << theFinding().text.toStdString();
}

TEST_F(CheckedRows, OfTheDemoPracticeAreSound) {
    TestDatabase main, companion(SchemaScript::Companion);
    demo::MakePractice({.appointments = 1000, .today = QDate(2026, 11, 18)}, main.connection(), companion.connection(),
                       {"s", "c"});
    const std::vector<Finding> all = CheckRows(main.connection());
    EXPECT_EQ(all.size(), 0U) << all.front().table.toStdString() << ' ' << all.front().key << ": "
                              << all.front().text.toStdString();
}

TEST_F(CheckedRows, NameNoPatient) {
    change("clinicianid = Null");
    EXPECT_FALSE(theFinding().text.contains(QStringLiteral("Jones")));
    EXPECT_EQ(theFinding().key, key);
    EXPECT_EQ(theFinding().table, "appointments");
}

TEST_F(CheckedRows, WithoutAProviderAreGivenToOne) {
    change("clinicianid = 'O''GONE'");
    EXPECT_EQ(ApplyFix(database.connection(), theFinding(), QStringLiteral("O'GONE")),
              "\"O'GONE\" cannot be that; nothing was changed.");
    expectFixed(
        "The appointment of 2026-03-11 at 9:00 AM has no provider of this practice, so that no schedule shows it.",
        QStringLiteral("REED"));
    EXPECT_EQ(database.text("Select clinicianid from appointments"), "REED");
}

TEST_F(CheckedRows, WithoutAPatientAreGivenToOne) {
    change("patientid = '99999'");
    expectFixed("The appointment of 2026-03-11 at 9:00 AM is a patient's and has no patient of this practice.",
                QStringLiteral("10017"));
    EXPECT_EQ(database.text("Select patientid from appointments"), "10017");
}

TEST_F(CheckedRows, OfASlotOfAnAppointmentTypeNeedNoPatient) {
    change("patientid = Null, appttype = 4");
    EXPECT_EQ(found().size(), 0U);
}

TEST_F(CheckedRows, WithoutADateAreDeleted) {
    change("dapptdate = Null");
    run(QStringLiteral("Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime) Values (%1, 1, 540, 590)")
            .arg(key));
    run(QStringLiteral("Insert Into AppointmentsGroup (nKeyId, PatientId) Values (%1, '10017')").arg(key));
    expectFixed("The appointment has no date, so that no view shows it.");
    EXPECT_EQ(database.number("Select Count(*) from appointments"), 0);
}

TEST_F(CheckedRows, WithoutAStartAreGivenOne) {
    for (const char* start : {"nStartTime = Null", "nStartTime = -5"}) {
        change(start);
        for (const char* wrong : {"", "nine", "1440", "-1", "540.5"})
            EXPECT_NE(ApplyFix(database.connection(), theFinding(), QString::fromLatin1(wrong)), "") << wrong;
        expectFixed("The appointment of 2026-03-11 has no start within its day.", QStringLiteral("540"));
        EXPECT_EQ(database.number("Select nStartTime from appointments"), 540);
    }
}

TEST_F(CheckedRows, WithoutAnEndAreGivenOne) {
    for (const char* end : {"nEndTime = Null", "nEndTime = 1500"}) {
        change(end);
        expectFixed("The appointment of 2026-03-11 at 9:00 AM has no end within its day.", QStringLiteral("600"));
        EXPECT_EQ(database.number("Select nEndTime from appointments"), 600);
    }
}

TEST_F(CheckedRows, ThatEndBeforeTheyStartAreTurned) {
    change("nStartTime = 590, nEndTime = 540");
    expectFixed("The appointment of 2026-03-11 at 9:50 AM ends before it starts.");
    EXPECT_EQ(database.number("Select nStartTime from appointments"), 540);
    EXPECT_EQ(database.number("Select nEndTime from appointments"), 590);
}

TEST_F(CheckedRows, OfASeriesWithoutItsNumberBeginOne) {
    change("repeating = 1, repeating_ref = Null");
    expectFixed("The appointment of 2026-03-11 at 9:00 AM is marked as one of a series and names none.");
    EXPECT_EQ(database.number("Select repeating_ref from appointments"), key);
}

TEST_F(CheckedRows, ThatNameASeriesAreMarkedAsOneOfIt) {
    change("repeating = Null, repeating_ref = 17");
    expectFixed("The appointment of 2026-03-11 at 9:00 AM names a series and is not marked as one of it.");
    EXPECT_EQ(database.number("Select repeating from appointments"), 1);
}

TEST_F(CheckedRows, WhoseNoteIsGoneLoseItsMark) {
    change("NoteID = 12");
    expectFixed("The session note of the appointment of 2026-03-11 at 9:00 AM is gone.");
    EXPECT_EQ(database.text("Select NoteID from appointments"), "");
}

TEST_F(CheckedRows, OfRoomsWhoseAppointmentIsGoneFreeTheRoom) {
    run("Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values (4711, 1, 600, 660, '2026/03/11')");
    expectFixed("The booking of 2026-03-11 at 10:00 AM of a room belongs to an appointment that is gone.");
}

TEST_F(CheckedRows, OfRoomsThatAreGoneAreDeleted) {
    run("Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values (0, 9, 600, 660, '2026/03/11')");
    expectFixed("The booking of 2026-03-11 at 10:00 AM is of a room that is gone.");
}

TEST_F(CheckedRows, OfRoomsThatEndBeforeTheyStartAreTurned) {
    run("Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values (0, 1, 660, 600, '2026/03/11')");
    expectFixed("The booking of 2026-03-11 at 11:00 AM of a room ends before it starts.");
}

TEST_F(CheckedRows, OfGroupMembersWithoutTheirAppointmentAreDeleted) {
    run("Insert Into AppointmentsGroup (nKeyId, PatientId) Values (4711, '10017')");
    expectFixed("A member belongs to a group appointment that is gone.");
}

TEST_F(CheckedRows, OfGroupMembersWhoAreNoPatientsAreDeleted) {
    run(QStringLiteral("Insert Into AppointmentsGroup (nKeyId, PatientId) Values (%1, '99999')").arg(key));
    expectFixed("A member of a group appointment is no patient of this practice.");
}

TEST_F(CheckedRows, OfAttendeesWithoutTheirActivityAreDeleted) {
    run("Insert Into appointmentsevents (nkeyid, clinicianid) Values (4711, 'REED'), (4711, 'LANE')");
    expectFixed("Attendees belong to an activity that is gone.");
}

TEST_F(CheckedRows, OfNotesThatAreGoneAreDeleted) {
    run("Insert Into SessionSignatures (session_id) Values (4711)");
    expectFixed("A signature belongs to a session note that is gone.");
    run("Insert Into MissedAppt (id, reason) Values (4711, 'The bus was late.')");
    expectFixed("The reason of a missed appointment belongs to a session note that is gone.");
}

TEST_F(CheckedRows, OfTheWaitListWithoutAPatientAreDeleted) {
    run("Insert Into WaitList (PatientId, Minutes) Values ('GONE', 50)");
    expectFixed("Who waits for an hour is no patient of this practice.");
}

TEST_F(CheckedRows, ThatCannotBeChangedStayAsTheyAre) {
    change("nStartTime = 590, nEndTime = 540");
    const Finding finding = theFinding();
    const QString reason = database.refuse(QStringLiteral("Update"), QStringLiteral("appointments"));
    try {
        static_cast<void>(ApplyFix(database.connection(), finding, {}));
        ADD_FAILURE() << "The database refused nothing.";
    } catch (const db::DatabaseError& error) {
        EXPECT_TRUE(error.description.contains(reason));
    }
    EXPECT_EQ(theFinding().text, finding.text);
}
