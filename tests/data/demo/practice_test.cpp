// What the demo practice promises, asked of its databases.

#include <gtest/gtest.h>

#include "data/codes.h"
#include "data/pipefields.h"
#include "data/scramble.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/data/demo/practicefixture.h"

namespace {

const QDate Wednesday(2026, 11, 18);

/// All tests of a run read one practice; the server of a test run holds one database.
DemoPractice& practice() {
    static DemoPractice made(Wednesday);
    return made;
}

qint64 count(const QString& condition) {
    return practice().main.number(QStringLiteral("Select Count(*) from appointments Where ") + condition);
}

qint64 countOf(int color, const QString& condition) {
    return count(db::Sql("ncolor = {} And {}", color, db::Raw{condition}));
}

TEST(DemoPractice, EveryAppointmentEndsAfterItBeginsOnItsOwnDay) {
    EXPECT_EQ(count("nEndTime <= nStartTime"), 0);
    EXPECT_EQ(count("nStartTime < 0 Or nEndTime > 1440"), 0);
    EXPECT_EQ(count("dapptdate is null Or cappttext is null Or cappttext = ''"), 0);
}

TEST(DemoPractice, ThePastIsMostlyKeptAndTheFutureIsOpen) {
    const QString past = QStringLiteral("dapptdate < '2026/11/18' And patientid <> ''");
    const qint64 all = count(past);
    EXPECT_GT(all, 300);
    EXPECT_GT(countOf(ncolor::Kept, past), all * 70 / 100);
    EXPECT_LT(countOf(ncolor::Kept, past), all * 90 / 100);
    EXPECT_GT(countOf(ncolor::Missed, past), 0);
    EXPECT_GT(countOf(ncolor::PatientCancelled, past), 0);
    EXPECT_GT(countOf(ncolor::TherapistCancelled, past), 0);
    EXPECT_EQ(countOf(ncolor::Tentative, past), 0);
    EXPECT_EQ(countOf(ncolor::CheckedIn, past), 0);

    const QString future = QStringLiteral("dapptdate > '2026/11/18' And patientid <> ''");
    EXPECT_GT(count(future), 50);
    EXPECT_EQ(countOf(ncolor::Kept, future), 0);
    EXPECT_GT(countOf(ncolor::Pending, future), count(future) / 2);
    EXPECT_GT(countOf(ncolor::Tentative, future), 0);
    EXPECT_GT(countOf(ncolor::Blank, future), 0);
}

TEST(DemoPractice, EveryKindOfRowIsThere) {
    for (const int color : ncolor::PatientRows)
        EXPECT_GT(countOf(color, "0=0"), 0) << color;
    EXPECT_GT(countOf(ncolor::Activity, "clinicianid = '~EVT'"), 0);
    EXPECT_GT(countOf(ncolor::Unavailable, "patientid = ''"), 0);
    EXPECT_GT(countOf(ncolor::Group, "patientid = ''"), 0);
    EXPECT_GT(count("appttype = 4 And ncolor = appointment_type"), 0);
    EXPECT_EQ(count("appttype = 4 And patientid <> ''"), 0);
    EXPECT_EQ(count("BTentIco = 1 And ncolor <> 126322256"), 0);
}

TEST(DemoPractice, ASeriesIsNamedByItsFirstRowAndStaysWithOnePatient) {
    TestDatabase& main = practice().main;
    EXPECT_GT(count("repeating = 1"), 100);
    EXPECT_EQ(count("repeating = 0 And repeating_ref is not null"), 0);
    EXPECT_EQ(count("repeating = 1 And repeating_ref is null"), 0);
    EXPECT_EQ(
        main.number("Select Count(*) from (Select repeating_ref as ref, Min(nkeyid) as lowest, Count(*) as members, "
                    "Min(patientid) as low, Max(patientid) as high from appointments Where repeating = 1 "
                    "Group by repeating_ref) series Where ref <> lowest Or members < 2 Or low <> high"),
        0);
}

TEST(DemoPractice, AGroupHasMembersAndAttendanceAndAnActivityHasAttendees) {
    TestDatabase& main = practice().main;
    EXPECT_EQ(
        main.number("Select Count(*) from appointments Where ncolor = 12632064 And nkeyid not in (Select nKeyId from "
                    "AppointmentsGroup)"),
        0);
    EXPECT_GT(main.number("Select Count(*) from AppointmentsGroup Where Kept = 1"), 20);
    EXPECT_EQ(main.number("Select Count(*) from AppointmentsGroup Inner Join appointments On appointments.nkeyid = "
                          "AppointmentsGroup.nKeyId Where Kept = 1 And dapptdate > '2026/11/18'"),
              0);
    EXPECT_EQ(
        main.number("Select Count(*) from appointments Where clinicianid = '~EVT' And nkeyid not in (Select nkeyid "
                    "from appointmentsevents)"),
        0);
}

TEST(DemoPractice, ARoomIsNeverBookedTwiceAtOneTime) {
    TestDatabase& main = practice().main;
    EXPECT_GT(main.number("Select Count(*) from roomschedule Where apptid > 0"), 100);
    EXPECT_GT(main.number("Select Count(*) from roomschedule Where apptid = 0"), 5);
    EXPECT_EQ(main.number("Select Count(*) from roomschedule a Inner Join roomschedule b On a.croomid = b.croomid And "
                          "a.nApptDate = b.nApptDate And a.nkeyid < b.nkeyid Where a.nStartTime < b.nEndTime And "
                          "b.nStartTime < a.nEndTime"),
              0);
}

TEST(DemoPractice, ANoteOfAnAppointmentBelongsToItsPatient) {
    TestDatabase& main = practice().main;
    EXPECT_GT(count("NoteID > 0"), 200);
    EXPECT_GT(count("NoteID is Null and ncolor = 49152 and clinicianid = 'REED'"), 0);
    EXPECT_EQ(
        main.number("Select Count(*) from appointments Inner Join sessions On sessions.id = appointments.NoteID Where "
                    "sessions.patientid <> appointments.patientid"),
        0);
    EXPECT_EQ(main.number("Select Count(*) from sessions Where stype >= 6 And id not in (Select id from MissedAppt)"),
              0);
    EXPECT_GT(main.number("Select Count(*) from sessions Where stype >= 6"), 5);
}

TEST(DemoPractice, FreeTextKeepsTheFieldsOfANoteApart) {
    db::Recordset rows("Select CapptNote, cappttext, ncolor from appointments", practice().main.connection());
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString note = rows["CapptNote"].text();
        ASSERT_EQ(note.count(QLatin1Char('|')), rows["ncolor"].integer() == ncolor::Group ? 4 : 1)
            << note.toStdString();
        ASSERT_FALSE(note.contains(QLatin1Char(';')));
        ASSERT_LE(rows["cappttext"].text().size(), 100);
    }
}

TEST(DemoPractice, TheLogonFindsItsUsersWithTheirRights) {
    TestDatabase& main = practice().main;
    const QString password = ScramblePassword(QStringLiteral("demo"), DefaultScrambleKey);
    EXPECT_EQ(main.number(db::Sql("Select Count(*) from passwords Where pswd_password <> '{}'", password)), 0);
    const auto digit = [&](const char* user, int place) {
        db::Recordset row(
            db::Sql("Select passwords.*, 'Inactive' = Case when archive is null then 0 else archive end From "
                    "passwords left join provider_info on provider_info.id = passwords.pswd_user_id Where "
                    "pswd_user_id = '{}'",
                    user),
            main.connection());
        EXPECT_EQ(row.RecordCount(), 1) << user;
        EXPECT_EQ(row["Inactive"].integer(), 0) << user;
        return row["pswd_screen_access"].text().mid(place - 1, 1);
    };
    EXPECT_EQ(digit("REED", 9), "3");
    EXPECT_EQ(digit("LANE", 9), "2");
    EXPECT_EQ(digit("VIEW", 9), "1");
    EXPECT_EQ(digit("DESK", 9), "6");
    EXPECT_EQ(main.number("Select pswd_type_of_access from passwords Where pswd_user_id = 'ADMIN'"), 2);
    EXPECT_EQ(main.text("Select prov_lastname from provider_info, passwords Where Id = pswd_user_id AND Id = 'DESK'"),
              "Front Desk");
}

TEST(DemoPractice, TheProviderListOffersEverybodyWhoSeesPatientsButNotTheDesk) {
    db::Recordset rows(
        "Select id, prov_lastname, pswd_type_of_access from provider_info, passwords Where provider_info.id = "
        "passwords.pswd_user_id AND archive = 0 and ((ExcludeFromScheduler IS NULL or ExcludeFromScheduler = 0) "
        "or id = 'REED') Order by prov_lastname",
        practice().main.connection());
    EXPECT_EQ(rows.RecordCount(), 14);
    rows.Find("id = 'DESK'");
    EXPECT_TRUE(rows.Eof());
}

TEST(DemoPractice, TheCompanionKnowsThePairedByTheSameNames) {
    TestDatabase& main = practice().main;
    TestDatabase& companion = practice().companion;
    const QString id = companion.text("Select DfltValue from DefaultFieldValues Where dfltfieldname = 'DBID'");
    EXPECT_EQ(main.number(db::Sql("Select Count(*) from FHDataPairs Where FHDatabase <> '{}'", id)), 0);
    EXPECT_EQ(main.number("Select Count(*) from FHDataPairs Where FHDataList = 1 And SVDataValue = 'REED'"), 1);
    EXPECT_EQ(main.number("Select Count(*) from FHDataPairs Where FHDataList = 1 And SVDataValue = 'VIEW'"), 0);

    db::Recordset pairs(
        "Select FHDataValue, last_name, first_name from FHDataPairs Inner Join patient_info On "
        "patient_info.id = SVDataValue Where FHDataList = 4",
        main.connection());
    EXPECT_GT(pairs.RecordCount(), 20);
    for (; !pairs.Eof(); pairs.MoveNext()) {
        EXPECT_EQ(companion.text(db::Sql("Select ClntLastName + ', ' + ClntFirstName from Clients Where ClntId = {}",
                                         pairs["FHDataValue"].integer())),
                  pairs["last_name"].text() + QStringLiteral(", ") + pairs["first_name"].text());
    }
}

TEST(DemoPractice, NobodysDayIsAHolidayToday) {
    EXPECT_EQ(
        practice().main.number(
            "Select Count(*) from Holidays where HolidayDate = '2026/11/18' or (HolidayRepeat = 1 and MONTH(HolidayDate) = MONTH('2026/11/18') and Day(HolidayDate) = Day('2026/11/18'))"),
        0);
    EXPECT_GT(practice().main.number("Select Count(*) from Holidays Where HolidayRepeat = 1"), 2);
}

TEST(DemoPractice, AlertsAuthorizationsAndTasksAreThere) {
    TestDatabase& main = practice().main;
    EXPECT_GT(main.number("Select Count(*) from Patient_Alerts Where alert_type = 'Appointment' And Status = 1"), 0);
    EXPECT_GT(main.number("Select Count(*) from Patient_Alerts Where alert_type = 'Check-In'"), 0);
    EXPECT_GT(main.number("Select Count(*) from authorizations Where authoriz_active = 0 And sess_remaining > 0"), 10);
    EXPECT_EQ(main.number("Select Count(Distinct Priority) from ToDo Where ClinicianId = 'REED'"), 5);
}

}  // namespace
