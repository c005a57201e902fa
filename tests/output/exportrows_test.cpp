#include "output/exportrows.h"

#include "tests/output/exportfixture.h"

namespace {

using Which = ExportChoice::Which;

class ExportRows : public ExportFixture {
  protected:
    static QStringList texts(const ExportChoice& choice) {
        QStringList texts;
        for (const ExportedAppointment& row : GetExportRows(choice))
            texts << row.cappttext;
        return texts;
    }
    [[nodiscard]] QStringList between(QDate from, QDate to) const {
        return texts({.which = Which::FromTo, .from = from, .to = to});
    }
    static ExportChoice shown(int range, QDate first = {}, QDate last = {}) {
        return {.which = Which::All, .request = {.ExportRange = range, .WeekStart = first, .WeekEnd = last}};
    }
};

}  // namespace

TEST_F(ExportRows, TheStatementIsAsTold) {
    const QString begin =
        "SELECT appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid ";
    const QString end =
        " and (appointments.clinicianid = 'REED' or appointmentsevents.clinicianid = 'REED') Order by DApptDate, NStartTime";
    EXPECT_EQ(ExportStatement({.request = {.SelectedKey = 812}}), begin + " WHERE appointments.nkeyid = 812 " + end);
    EXPECT_EQ(ExportStatement({.which = Which::FromTo, .from = today, .to = today.addDays(2)}),
              begin + " WHERE dapptdate BETWEEN '2026/03/11 00:00 ' And '2026/03/13 23:59 ' " + end);
    EXPECT_EQ(ExportStatement(shown(exportrange::Day)), begin + " WHERE dapptdate = '2026/03/11' " + end);
    EXPECT_EQ(ExportStatement(shown(exportrange::Week, QDate(2026, 3, 9), QDate(2026, 3, 15))),
              begin + " WHERE dapptdate BETWEEN '2026/03/09 00:00 ' And '2026/03/15 23:59 ' " + end);
    EXPECT_EQ(ExportStatement(shown(0)), begin + end);
}

TEST_F(ExportRows, AProviderWithAnApostropheIsOne) {
    Session().ProviderId = QStringLiteral("O'BRIEN");
    book({.provider = QStringLiteral("O'BRIEN")});
    EXPECT_EQ(texts(shown(exportrange::Day)), QStringList{"Jones, Mary"});
}

TEST_F(ExportRows, TodayIsTheRealDateWhateverDayIsShown) {
    book({.text = "today"});
    book({.text = "tomorrow", .date = today.addDays(1)});
    EXPECT_EQ(texts(shown(exportrange::Day)), QStringList{"today"});
}

TEST_F(ExportRows, TheWeekIsFromItsFirstDayToItsLast) {
    for (int day = -3; day <= 5; ++day)
        book({.text = QString::number(day), .date = today.addDays(day)});
    EXPECT_EQ(texts(shown(exportrange::Week, today.addDays(-2), today.addDays(4))),
              (QStringList{"-2", "-1", "0", "1", "2", "3", "4"}));
}

TEST_F(ExportRows, ARangeOfOneDayHasAllOfTheDay) {
    book({.text = "late", .start = 1430, .end = 1440});
    book({.text = "early", .start = 0, .end = 10});
    EXPECT_EQ(between(today, today), (QStringList{"early", "late"}));
}

TEST_F(ExportRows, TheOrderIsByDateAndStart) {
    book({.text = "c", .date = today.addDays(1), .start = 540});
    book({.text = "b", .start = 600});
    book({.text = "a", .start = 540});
    EXPECT_EQ(between(today, today.addDays(1)), (QStringList{"a", "b", "c"}));
}

TEST_F(ExportRows, EveryStatusAndKindGoesAlong) {
    for (const int code : {ncolor::Kept, ncolor::Missed, ncolor::PatientCancelled, ncolor::TherapistCancelled,
                           ncolor::Activity, ncolor::Unavailable, ncolor::Group})
        book({.text = QString::number(code), .code = code});
    EXPECT_EQ(between(today, today).size(), 7);
}

TEST_F(ExportRows, OnlyTheProvidersOwnAndSharedAppointmentsGoAlong) {
    book({.text = "another's", .provider = "LANE"});
    const qint64 shared = book({.text = "shared", .code = ncolor::Activity, .provider = EventClinicianId});
    share(shared, "LANE");
    EXPECT_EQ(between(today, today), QStringList());
    share(shared, "REED");
    EXPECT_EQ(between(today, today), QStringList{"shared"});
}

TEST_F(ExportRows, AnOwnAppointmentThatOthersAttendComesOnceForEachOfThem) {
    const qint64 key = book({.text = "meeting", .code = ncolor::Activity});
    share(key, "LANE");
    share(key, "ABEL");
    EXPECT_EQ(between(today, today), (QStringList{"meeting", "meeting"}));
}

TEST_F(ExportRows, TheSelectedAppointmentIsOneOfTheProvidersToo) {
    const qint64 own = book({.text = "own"});
    const qint64 other = book({.text = "other", .provider = "LANE"});
    EXPECT_EQ(texts({.request = {.SelectedKey = static_cast<int>(own)}}), QStringList{"own"});
    EXPECT_EQ(texts({.request = {.SelectedKey = static_cast<int>(other)}}), QStringList());
    EXPECT_EQ(texts({.request = {.SelectedKey = 0}}), QStringList());
}

TEST_F(ExportRows, ARangeOfTenYearsHasAllItsDays) {
    run("Delete from appointments");
    for (int month = 0; month < 120; ++month)
        book({.text = QString::number(month), .date = today.addMonths(month)});
    EXPECT_EQ(between(today, today.addYears(10)).size(), 120);
}

TEST_F(ExportRows, ARangeThatEndsBeforeItStartsHasNothing) {
    book({});
    EXPECT_EQ(between(today, today.addDays(-1)), QStringList());
}

TEST_F(ExportRows, ColumnsAreReadByTheirPlaceAndNullsAreEmpty) {
    const qint64 key = book({});
    ExportedAppointment row = GetExportRows({.request = {.SelectedKey = static_cast<int>(key)}}).at(0);
    EXPECT_EQ(row.nkeyid, key);
    EXPECT_EQ(row.DApptDate, today);
    EXPECT_EQ(row.nStartTime, 540);
    EXPECT_EQ(row.nEndTime, 590);
    EXPECT_EQ(row.cappttext, "Jones, Mary");
    EXPECT_EQ(row.CapptNote, "90834|call first");
    EXPECT_EQ(row.CLOCATION, "Main Office");
    EXPECT_EQ(row.patientNumber, "A-55");
    EXPECT_TRUE(row.namesPatient);
    run("Update appointments Set nStartTime = Null, nEndTime = Null, cappttext = Null, CapptNote = Null, CLOCATION = Null, PatientAcct = Null, ncolor = Null");
    row = GetExportRows({.request = {.SelectedKey = static_cast<int>(key)}}).at(0);
    EXPECT_EQ(row.cappttext + row.CapptNote + row.CLOCATION, "");
    EXPECT_EQ(row.nStartTime + row.nEndTime, 0);
    EXPECT_EQ(row.patientNumber, "10017");
}

TEST_F(ExportRows, ADatabaseThatIsLostIsToldAndGivesNothing) {
    book({});
    desk.expectBox("Error getting appointments from database. \n" + loseDatabase(),
                   "Error Exporting Appointments From DB");
    EXPECT_EQ(between(today, today), QStringList());
}
