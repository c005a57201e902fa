#include "output/callreport.h"

#include <QLocale>

#include "session/hiddennames.h"
#include "tests/output/reportfixture.h"
#include "tests/support/triplog.h"

namespace {

const QString Titles = QStringLiteral("[Date|Provider|Patient|Location|Service|Status]");
const QString Separator = QStringLiteral("|||||");

class CallReport : public ReportFixture {
  protected:
    CallReport() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values ('CP', 'LM', 2, 'Left message')");
        run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values ('XX', 'NA', 2, 'Of another service')");
    }
    ~CallReport() override { QLocale::setDefault(before_); }

    /// The report's table, row by row.
    QStringList report(const ReportRequest& request) {
        EXPECT_TRUE(CourtesyCallStatusReport(request, vp, everyStep));
        return linesOf(vp).mid(3);
    }
    /// The report's appointments without its titles and separators.
    QStringList rows(const ReportRequest& request) {
        QStringList rows = report(request);
        rows.removeAll(Titles);
        rows.removeAll(Separator);
        return rows;
    }
    /// The cells of the report's only appointment.
    QStringList cells(const ReportRequest& request) {
        const QStringList only = rows(request);
        EXPECT_EQ(only.size(), 1);
        return only.value(0).split(u'|');
    }
    /// The patients of the rows, in their order.
    QStringList patients(const ReportRequest& request) {
        QStringList names;
        for (const QString& row : rows(request))
            names << row.section(u'|', 2, 2).section(u',', 0, 0);
        return names;
    }
    void setCall(qint64 key, const char* code) {
        run(db::Sql("Update appointments Set CourtesyCallStatus = '{}' Where nkeyid = {}", code, key));
    }
    /// A group of Reed's at nine with that member.
    qint64 bookGroup(const char* member, const char* provider = "REED", const char* call = "") {
        const qint64 key = book({.text = "Group: Anxiety",
                                 .code = ncolor::Group,
                                 .provider = QString::fromUtf8(provider),
                                 .patient = "",
                                 .account = ""});
        addMember(key, member, call);
        return key;
    }
    void addMember(qint64 key, const char* member, const char* call = "") {
        run(db::Sql("Insert Into AppointmentsGroup (nKeyId, PatientId, CourtesyCallStatus) Values ({}, '{}', '{}')",
                    key, member, call));
    }
    void setPatient(const char* column, const QString& value) {
        run(db::Sql("Update patient_info Set {} = '{}' Where id = '10017'", db::Raw{QString::fromUtf8(column)}, value));
    }

  private:
    const QLocale before_;
};

}  // namespace

TEST_F(CallReport, TheHeadingTellsTitleDatesAndProvider) {
    report(march());
    EXPECT_EQ(linesOf(vp).mid(0, 3), (QStringList{"*Courtesy Calls - Reminder Status*", "Dates: 3/1/2026 to 3/31/2026",
                                                  "Provider: All Providers"}));
    report(march("REED"));
    EXPECT_EQ(linesOf(vp).mid(2, 1), QStringList{"Provider: Reed"});
    EXPECT_EQ(vp.Document().footer, "Courtesy Calls - Reminder Status, 3/1/2026 to 3/31/2026||Page %d");
}

TEST_F(CallReport, AnEmptyRangeHasTheTitlesOfTheTable) {
    EXPECT_EQ(report(march()), QStringList{Titles});
    const auto& table = std::get<printing::Table>(vp.Document().blocks.back());
    EXPECT_EQ(table.widths, (std::vector<int>{2000, 2200, 3000, 2000, 3000, 2000}));
}

TEST_F(CallReport, AnAppointmentStandsAboveARowOfEmptyCells) {
    setCall(book({}), "LM");
    EXPECT_EQ(
        report(march()),
        (QStringList{Titles,
                     "03/11/2026 9:00 AM|Reed, Anna|Jones, Mary\nPhone: 555-123-4567|Main Office|90834|Left message",
                     Separator}));
}

TEST_F(CallReport, ACallWithoutAStatusIsNotIndicated) {
    const qint64 key = book({});
    EXPECT_EQ(cells(march()).last(), "None Indicated");
    // A code that the practice does not have, or has for another service, tells nothing either.
    for (const char* code : {"??", "NA", "O'B", ""}) {
        setCall(key, code);
        EXPECT_EQ(cells(march()).last(), "None Indicated") << code;
    }
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory) Values ('CP', 'NN', 2)");
    setCall(key, "NN");
    EXPECT_EQ(cells(march()).last(), "None Indicated");
}

TEST_F(CallReport, APhoneIsWrittenInGroupsOfDigits) {
    book({});
    const std::pair<const char*, const char*> phones[] = {{"5551234567", "555-123-4567"},
                                                          {" 5551234567  ", "555-123-4567"},
                                                          {"(555) 123-4567", "555-123-4567"},
                                                          {"555.123.4567", "555-123-4567"},
                                                          {"5551234", "5551234"},
                                                          {"+44 20 7946 0018", "+44 20 7946 0018"},
                                                          {"555-123-4567 x12", "555-123-4567 x12"},
                                                          {"ask at desk", "ask at desk"}};
    for (const auto& [stored, shown] : phones) {
        setPatient("telephone_h", QString::fromUtf8(stored));
        EXPECT_EQ(cells(march())[2], QStringLiteral("Jones, Mary\nPhone: ") + QString::fromUtf8(shown));
    }
}

TEST_F(CallReport, TheNumberToCallGoesBeforeTheHomeTelephone) {
    book({});
    setPatient("CallPhoneNumber", "5550001111   ");
    EXPECT_EQ(cells(march())[2], "Jones, Mary\nPhone: 555-000-1111");
    setPatient("CallPhoneNumber", "");
    EXPECT_EQ(cells(march())[2], "Jones, Mary\nPhone: 555-123-4567");
}

TEST_F(CallReport, APatientWithoutATelephoneHasNoLineForIt) {
    book({});
    for (const char* none : {"", "   "}) {
        setPatient("telephone_h", none);
        EXPECT_EQ(cells(march())[2], "Jones, Mary\n");
    }
    run("Update patient_info Set telephone_h = Null");
    EXPECT_EQ(cells(march())[2], "Jones, Mary\n");
}

TEST_F(CallReport, OnlyTheToldCodesArePrinted) {
    const int printed[] = {ncolor::Blank,  ncolor::Pending,          ncolor::Tentative,          ncolor::CheckedIn,
                           ncolor::Missed, ncolor::PatientCancelled, ncolor::TherapistCancelled, ncolor::Group};
    const int left[] = {ncolor::Kept, ncolor::Activity, ncolor::Unavailable, ncolor::LegendTentative, 191, 0};
    int start = 540;
    for (const int code : printed)
        book({.start = start++, .code = code});
    for (const int code : left)
        book({.start = start++, .code = code});
    QStringList times;
    for (int minute = 0; minute < 8; ++minute)
        times << QStringLiteral("03/11/2026 9:0%1 AM").arg(minute);
    QStringList found;
    for (const QString& row : rows(march()))
        found << row.section(u'|', 0, 0);
    EXPECT_EQ(found, times);
}

TEST_F(CallReport, MembersOfAGroupStandWithCallsOfTheirOwn) {
    const qint64 key = bookGroup("10017", "REED", "LM");
    addMember(key, "10018");
    EXPECT_EQ(
        rows(march("", ReportSort::ByAppointment)),
        (QStringList{
            "03/11/2026 9:00 AM|Reed, Anna|Jones, Mary\nPhone: 555-123-4567|Main Office|Group Therapy|Left message",
            "03/11/2026 9:00 AM|Reed, Anna|Smith, Bo\n|Main Office|Group Therapy|None Indicated"}));
}

TEST_F(CallReport, AProviderWithGroupsAloneStandsThroughTheirMembers) {
    bookGroup("10018", "LANE");
    book({});
    EXPECT_EQ(patients(march("LANE")), QStringList{"Smith"});
}

TEST_F(CallReport, TheSameAppointmentBookedTwiceStandsOnce) {
    book({});
    book({});
    EXPECT_EQ(rows(march()).size(), 1);
    book({.start = 541});
    EXPECT_EQ(rows(march()).size(), 2);
}

TEST_F(CallReport, TheRowsStandInTheOrderThatWasChosen) {
    addPatient("10019", "Adams", "Cleo", "");
    book({.start = 600, .patient = "10017"});
    book({.start = 540, .patient = "10018"});
    book({.date = QDate(2026, 3, 10), .start = 660, .provider = "REED", .patient = "10018"});
    book({.start = 600, .provider = "LANE", .patient = "10019"});
    EXPECT_EQ(patients(march("", ReportSort::ByAppointment)), (QStringList{"Adams", "Jones", "Smith", "Smith"}));
    EXPECT_EQ(patients(march("", ReportSort::ByTime)), (QStringList{"Smith", "Smith", "Adams", "Jones"}));
    EXPECT_EQ(patients(march("", ReportSort::ByProvider)), (QStringList{"Adams", "Smith", "Smith", "Jones"}));
    EXPECT_EQ(rows(march("", ReportSort::ByAppointment))[2].section(u'|', 0, 0), "03/10/2026 11:00 AM");
    EXPECT_EQ(patients(march("REED", ReportSort::ByAppointment)), (QStringList{"Jones", "Smith", "Smith"}));
    // One provider's rows by provider are those by time.
    for (const ReportSort sort : {ReportSort::ByTime, ReportSort::ByProvider})
        EXPECT_EQ(patients(march("REED", sort)), (QStringList{"Smith", "Smith", "Jones"}));
}

TEST_F(CallReport, BothDaysOfTheRangeBelongToItAndARangeBackwardsIsEmpty) {
    for (const QDate date : {QDate(2026, 2, 28), QDate(2026, 3, 1), QDate(2026, 3, 31), QDate(2026, 4, 1)})
        book({.date = date});
    ReportRequest request = march("REED");
    EXPECT_EQ(rows(request).size(), 2);
    std::swap(request.from, request.to);
    EXPECT_EQ(report(request), QStringList{Titles});
}

TEST_F(CallReport, AUserOfTheOwnScheduleGetsItWhateverWasAskedFor) {
    Session().AllProviders = false;
    Session().UserName = QStringLiteral("Reed");
    book({});
    book({.provider = "LANE", .patient = "10018"});
    bookGroup("10018", "LANE");
    for (const char* provider : {"", "LANE", "REED"}) {
        EXPECT_EQ(patients(march(provider)), QStringList{"Jones"}) << provider;
        EXPECT_EQ(linesOf(vp)[2], "Provider: Reed");
    }
}

TEST_F(CallReport, RowsOfARemovedProviderOrPatientAreLeftOut) {
    book({.provider = "GONE"});
    book({.patient = "99999"});
    bookGroup("99999");
    EXPECT_EQ(report(march()), QStringList{Titles});
}

TEST_F(CallReport, HiddenNamesStayHiddenWithTheirTelephones) {
    book({});
    SetNamesHidden(true);
    const QStringList hidden = cells(march());
    SetNamesHidden(false);
    EXPECT_EQ(hidden[2], "(hidden)\nPhone: (hidden)");
    EXPECT_EQ(cells(march())[2], "Jones, Mary\nPhone: 555-123-4567");
}

TEST_F(CallReport, TheTimesAreThoseOfTheUsersClock) {
    Session().MilitaryTime = true;
    book({.start = 845});
    EXPECT_EQ(cells(march())[0], "03/11/2026 14:05");
}

TEST_F(CallReport, OnlyTheFirstFieldOfTheServiceStands) {
    book({.note = "90834; long|call first|10017"});
    EXPECT_EQ(cells(march())[4], "90834; long");
}

TEST_F(CallReport, EveryTextStaysInItsCell) {
    const QString odd = QStringLiteral("O'Brien; a|b <b>bold</b> & %1 %d 😀");
    const QString hebrew = QString::fromUtf8("כהן");
    for (const QString& text : {odd, hebrew, QString(100, u'x')}) {
        setPatient("last_name", text);
        run(db::Sql("Update CourtesyCallCodes Set CallDescription = '{}'", text));
        run("Delete From appointments");
        const qint64 key = book({.note = QString(500, u'x')});
        setCall(key, "LM");
        run(db::Sql("Update appointments Set CLOCATION = '{}'", text));
        report(march());
        const auto& table = std::get<printing::Table>(vp.Document().blocks.back());
        EXPECT_EQ(table.rows[0],
                  (QStringList{"03/11/2026 9:00 AM", "Reed, Anna", text + QStringLiteral(", Mary\nPhone: 555-123-4567"),
                               text, QString(500, u'x'), text}));
        EXPECT_GE(vp.PageCount(), 1);
    }
}

TEST_F(CallReport, ALineBreakOrTabInATextIsABlank) {
    setPatient("last_name", "Jo\r\nnes");
    setPatient("telephone_h", "555\t1234567");
    book({.note = "90\t834"});
    run("Update CourtesyCallCodes Set CallDescription = 'Left\nmessage'");
    run("Update appointments Set CourtesyCallStatus = 'LM', CLOCATION = 'Main\nOffice'");
    EXPECT_EQ(cells(march()), (QStringList{"03/11/2026 9:00 AM", "Reed, Anna", "Jo nes, Mary\nPhone: 555-123-4567",
                                           "Main Office", "90 834", "Left message"}));
}

TEST_F(CallReport, EachPrintedRowIsAStepAndTheUserMayEndTheReportAtAnyOfThem) {
    for (int start = 540; start < 545; ++start)
        book({.start = start});
    book({.start = 539, .code = ncolor::Kept});
    QStringList steps;
    EXPECT_FALSE(CourtesyCallStatusReport(march(), vp, [&](int row, int all) {
        steps << QStringLiteral("%1/%2").arg(row).arg(all);
        return row < 3;
    }));
    EXPECT_EQ(steps, (QStringList{"1/5", "2/5", "3/5"}));
    EXPECT_EQ(linesOf(vp).filter("Jones").size(), 3);
}

TEST_F(CallReport, AReportMadeTwiceIsTheSame) {
    book({});
    const QStringList first = report(march());
    EXPECT_EQ(report(march()), first);
}

TEST_F(CallReport, ALostDatabaseIsToldUnderTheHeading) {
    desk.expectBox("Error generating Courtesy Calls report. " + loseDatabase(), "Error");
    EXPECT_FALSE(CourtesyCallStatusReport(march(), vp, everyStep));
    EXPECT_EQ(linesOf(vp).size(), 3);
}

TEST_F(CallReport, AFailureAfterTheRowsIsToldAndNoCallIsSaidToBeNotIndicated) {
    setCall(book({}), "LM");
    desk.expectBox("Error generating Courtesy Calls report. " + DropTable(database.connection(), "CourtesyCallCodes"),
                   "Error");
    EXPECT_FALSE(CourtesyCallStatusReport(march(), vp, everyStep));
    EXPECT_EQ(linesOf(vp).size(), 3);
}

TEST_F(CallReport, TheDatabaseIsAskedTwiceForAllRowsAndCodes) {
    for (int start = 540; start < 560; ++start) {
        const QByteArray code = "C" + QByteArray::number(start % 10);
        setCall(book({.start = start}), code.constData());
    }
    EXPECT_TRUE(TakesAtMost(2, [&] { report(march()); }));
    run("Update appointments Set CourtesyCallStatus = Null");
    EXPECT_TRUE(TakesAtMost(1, [&] { report(march()); }));
}

TEST_F(CallReport, TenYearsFillTheirPages) {
    for (int month = 0; month < 120; ++month)
        book({.date = QDate(2016, 4, 11).addMonths(month)});
    ReportRequest request = march("REED");
    request.from = QDate(2016, 4, 1);
    EXPECT_EQ(rows(request).size(), 120);
    EXPECT_GT(vp.PageCount(), 2);
}
