#include "output/companionreport.h"

#include <QLocale>

#include "tests/output/reportfixture.h"

namespace {

/// The companion's schedule of Reed (1) and Lane (2) in March 2026.
class CompanionOnPaper : public ReportFixture {
  protected:
    CompanionOnPaper() {
        Session().FHConnectionString = companion.connectionText();
        Session().FHProviderId = 1;
        for (
            const char* statement :
            {"Insert Into Providers (ProvFirstName, ProvLastName) Values ('Anna', 'Reed')",
             "Insert Into Providers (ProvFirstName, ProvLastName) Values ('Tom', 'Lane')",
             "Insert Into LookupValues (LookCode, LookName) Values ('NUMB', 'Policy')",
             "Insert Into LookupValues (LookCode, LookName) Values ('OTHR', 'Nothing')",
             "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values ('90834', 'Psychotherapy', 'C')",
             "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values ('PAY', 'Payment', 'P')"})
            fill(QString::fromLatin1(statement));
        addClient("Mary", "Jones", 1);
    }

    void fill(const QString& statement) { companion.connection().Execute(statement); }
    void addClient(const char* firstName, const char* surname, int kind) {
        fill(db::Sql(
            "Insert Into Clients (ClntFirstName, ClntLastName, ClntHomePhone, ClntWorkPhone, ClntWorkExt, ClntEmailAddress, ClntOtherNumberOne, LookIdNUMBOne) Values ('{}', '{}', '5551234567', '5550987', '12', 'mary@example.org', 'P-7', {})",
            firstName, surname, kind));
    }
    struct Visit {
        const char* time = "2026/03/11 14:30:00";
        int provider = 1;
        int client = 1;
        int code = 1;
        int status = 5;
        int duration = 50;
        const char* note = "call first";
    };
    void addVisit(const Visit& visit) {
        fill(db::Sql(
            "Insert Into ClientTransactions (ClntId, TranId, ProvId, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus, CtrnNotes, appt_status) Values ({}, {}, {}, '2026/03/11', '{}', {}, 'S', '{}', {})",
            visit.client, visit.code, visit.provider, visit.time, visit.duration, visit.note, visit.status));
    }
    void addEvent(const char* name, int attendee, const char* last = "'2026/12/31'") {
        fill(db::Sql(
            "Insert Into CalendarEvents (CEveName, CEveDate, CEveEndDate, CEveTime, CEveDuration, CEveAllProvidersInd, RecrId) Values ('{}', '2026/03/10', {}, '2026/03/10 09:00:00', 60, 1, 3)",
            name, db::Raw{QString::fromLatin1(last)}));
        fill(db::Sql("Insert Into CalendarProviderEvents (CEveId, ProvId) Values ({}, {})",
                     companion.connection().LastIdentity(), attendee));
    }
    QStringList report(const ReportRequest& request) {
        EXPECT_TRUE(DoScheduleFH(request, vp, everyStep));
        return linesOf(vp).mid(4);
    }

    TestDatabase companion{SchemaScript::Companion};
};

}  // namespace

TEST_F(CompanionOnPaper, AVisitTellsItsLengthItsStatusAndHowTheClientIsReached) {
    addVisit({});
    EXPECT_EQ(report(march()),
              (QStringList{"03/11/2026|02:30 pm|50|Mary, Jones|Reed, Anna|Seen",
                           "|Home Phone: (555) 123-4567\nWork Phone: 555-0987 Ext. 12\nPolicy: P-7\nEmail: "
                           "mary@example.org\nService: 90834 Psychotherapy\nNote: call first"}));
    EXPECT_EQ(linesOf(vp)[3], QStringLiteral("[Date|Time|Duration|Appointment|Provider|Status]"));
}

TEST_F(CompanionOnPaper, EachStatusHasItsWordAndAnEventNone) {
    const char* words[] = {"Not Seen", "Not Seen", "Cancelled", "Missed", "Arrived", "Seen"};
    for (int status = 0; status < 6; ++status) {
        fill("Delete from ClientTransactions");
        addVisit({.status = status});
        EXPECT_TRUE(report(march())[0].endsWith(u'|' + QLatin1String(words[status])));
    }
    fill("Delete from ClientTransactions");
    addEvent("Staff meeting", 1);
    EXPECT_EQ(report(march()), QStringList{"03/10/2026|09:00 am|60|Staff meeting|Reed, Anna|"});
}

TEST_F(CompanionOnPaper, ASeriesStandsOnItsFirstDayOnly) {
    addEvent("Every week", 1, "null");
    EXPECT_EQ(report(march()).size(), 1);
    ReportRequest april = march();
    april.from = QDate(2026, 4, 1);
    april.to = QDate(2026, 4, 30);
    EXPECT_EQ(report(april).size(), 0);
}

TEST_F(CompanionOnPaper, WhatIsNoAppointmentIsLeftOut) {
    addVisit({.code = 2});
    addVisit({.duration = 0});
    addVisit({.time = "2026/03/11 00:00:00"});
    addClient("Bo", "Smith", 2);
    addVisit({.client = 2});
    addClient("Cy", "Miles", 0);
    addVisit({.client = 3});
    EXPECT_EQ(report(march()), QStringList()) << "A client without a kind of number does not appear either.";
}

TEST_F(CompanionOnPaper, AProviderHasTheOwnVisitsAndEvents) {
    addVisit({});
    addVisit({.provider = 2});
    addEvent("Reed's", 1);
    addEvent("Lane's", 2);
    EXPECT_EQ(
        report(march("2")).filter(QStringLiteral("/2026|")),
        (QStringList{"03/10/2026|09:00 am|60|Lane's|Lane, Tom|", "03/11/2026|02:30 pm|50|Mary, Jones|Lane, Tom|Seen"}));
    EXPECT_EQ(report(march()).filter(QStringLiteral("/2026|")).size(), 4);
}

TEST_F(CompanionOnPaper, WithPatientsOnlyEventsAreLeftOut) {
    addVisit({});
    addEvent("Staff meeting", 1);
    ReportRequest request = march();
    request.patientsOnly = true;
    EXPECT_FALSE(report(request).join(u'\n').contains(QLatin1String("Staff meeting")));
    EXPECT_TRUE(linesOf(vp).join(u'\n').contains(QLatin1String("Mary, Jones")));
}

TEST_F(CompanionOnPaper, WithoutTheRightToAllProvidersItIsTheOwnSchedule) {
    addVisit({});
    addVisit({.provider = 2});
    Session().AllProviders = false;
    for (const char* asked : {"", "2"}) {
        const QStringList rows = report(march(asked)).filter(QStringLiteral("/2026|"));
        ASSERT_EQ(rows.size(), 1);
        EXPECT_TRUE(rows[0].contains(QLatin1String("Reed, Anna")));
    }
    Session().FHProviderId = 0;
    EXPECT_EQ(report(march()), QStringList());
}

TEST_F(CompanionOnPaper, WhileNamesAreHiddenNobodyIsNamedOrReached) {
    addVisit({});
    addEvent("Staff meeting", 1);
    Session().HidePatientNames = true;
    const QString all = report(march()).join(u'\n');
    for (const char* secret : {"Mary", "555", "P-7", "example.org", "call first"})
        EXPECT_FALSE(all.contains(QLatin1String(secret))) << secret;
    EXPECT_TRUE(all.contains(QLatin1String("90834 Psychotherapy")) && all.contains(QLatin1String("Staff meeting")));
}

TEST_F(CompanionOnPaper, TextsStandAsTheyAre) {
    fill("Update Clients Set ClntLastName = 'O''Brien|x; <b>'");
    addVisit({.note = "one\ntwo;three|four"});
    const QStringList lines = report(march());
    EXPECT_TRUE(lines[0].contains(QLatin1String("Mary, O'Brien|x; <b>")));
    EXPECT_TRUE(lines[1].endsWith(QLatin1String("Note: one\ntwo;three|four")));
}

TEST_F(CompanionOnPaper, ACompanionThatFailsIsToldOnce) {
    const QString said = DropTable(companion.connection(), QStringLiteral("ClientTransactions"));
    desk.expectBox(QStringLiteral("Error generating report. ") + said, QStringLiteral("Error"));
    EXPECT_FALSE(DoScheduleFH(march(), vp, everyStep));
    EXPECT_EQ(linesOf(vp).size(), 4) << "The heading and the titles stay.";
}

TEST_F(CompanionOnPaper, AStepMayEndIt) {
    addVisit({});
    addVisit({.time = "2026/03/11 16:00:00"});
    EXPECT_FALSE(DoScheduleFH(march(), vp, [](int row, int rows) {
        EXPECT_EQ(rows, 2);
        return row < 1;
    }));
    EXPECT_EQ(linesOf(vp).mid(4).size(), 2);
}
