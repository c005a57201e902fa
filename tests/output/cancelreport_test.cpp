#include "output/cancelreport.h"

#include <QLocale>

#include "session/hiddennames.h"
#include "tests/output/reportfixture.h"
#include "tests/support/triplog.h"

namespace {

class CancelReport : public ReportFixture {
  protected:
    CancelReport() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~CancelReport() override { QLocale::setDefault(before_); }

    /// The report's lines below the heading's three.
    QStringList report(const ReportRequest& request) {
        EXPECT_TRUE(docancelreport(request, vp, everyStep));
        return linesOf(vp).mid(3);
    }
    static QStringList totals(int missed, int byTherapist, int byPatient) {
        return {QStringLiteral("Total Missed Appointments = %1").arg(missed),
                QStringLiteral("Total Therapist Cancellations = %1").arg(byTherapist),
                QStringLiteral("Total Patient Cancellations = %1").arg(byPatient)};
    }
    void bookText(const QString& text, const QString& location) {
        const qint64 key = book({.code = ncolor::Missed, .account = ""});
        run(db::Sql("Update appointments Set cappttext = '{}', CLOCATION = '{}' Where nkeyid = {}", text, location,
                    key));
    }

  private:
    const QLocale before_;
};

}  // namespace

TEST_F(CancelReport, TheHeadingTellsTitleDatesAndProvider) {
    report(march("REED"));
    EXPECT_EQ(linesOf(vp).mid(0, 3), (QStringList{"*Missed Appointment/Cancellation Report*",
                                                  "Dates: 3/1/2026 to 3/31/2026", "Provider: Reed"}));
    report(march());
    EXPECT_EQ(linesOf(vp).mid(2, 1), QStringList{"Provider: All Providers"});
}

TEST_F(CancelReport, NoRowsGiveThreeTotalsOfZero) {
    EXPECT_EQ(report(march()), totals(0, 0, 0));
    EXPECT_EQ(report(march("REED")), totals(0, 0, 0));
}

TEST_F(CancelReport, OneProvidersRowsStandByStatusAndTheTotalsInAnOrderOfTheirOwn) {
    book({.text = "Third, C", .code = ncolor::TherapistCancelled, .account = ""});
    book({.text = "Second, B", .start = 600, .end = 645, .code = ncolor::PatientCancelled, .account = ""});
    book({.text = "First, A", .start = 720, .end = 779, .code = ncolor::Missed, .account = "A-55"});
    book({.text = "Fourth, D", .start = 0, .end = 1440, .code = ncolor::TherapistCancelled, .account = ""});
    book({.text = "another's", .code = ncolor::Missed, .provider = "LANE"});
    book({.text = "kept", .code = ncolor::Kept});
    EXPECT_EQ(
        report(march("REED")),
        (QStringList{" *Missed Appointment*", "  3/11/2026 - 12:00 Noon - 0:59 PM: First, A  [A-55]",
                     "   Location: Main Office", " *Patient Cancelled*", "  3/11/2026 - 10:00 AM - 10:45 AM: Second, B",
                     "   Location: Main Office", " *Therapist Cancelled*",
                     "  3/11/2026 - 12:00 Mid - 12:00 Mid: Fourth, D", "   Location: Main Office",
                     "  3/11/2026 - 9:00 AM - 9:50 AM: Third, C", "   Location: Main Office"} +
         totals(1, 2, 1)));
}

TEST_F(CancelReport, AllProvidersStandUnderTheirNamesWithTotalsOverAll) {
    book({.text = "Reed's", .code = ncolor::Missed, .account = ""});
    book({.text = "Lane's", .code = ncolor::PatientCancelled, .provider = "LANE", .account = ""});
    EXPECT_EQ(report(march()), (QStringList{"*Lane*", " *Patient Cancelled*", "  3/11/2026 - 9:00 AM - 9:50 AM: Lane's",
                                            "   Location: Main Office", "*Reed*", " *Missed Appointment*",
                                            "  3/11/2026 - 9:00 AM - 9:50 AM: Reed's", "   Location: Main Office"} +
                                totals(1, 0, 1)));
}

TEST_F(CancelReport, AProvidersFirstStatusHasItsHeadingEvenWhereTheProviderBeforeEndedWithIt) {
    book({.text = "Reed's", .code = ncolor::Missed, .account = ""});
    book({.text = "Lane's", .code = ncolor::Missed, .provider = "LANE", .account = ""});
    EXPECT_EQ(report(march()).filter("Missed Appointment*").size(), 2);
}

TEST_F(CancelReport, OneProviderWhoseIdIsWrittenInTwoWaysIsOneProvider) {
    book({.text = "one", .code = ncolor::Missed, .provider = "Reed"});
    book({.text = "two", .code = ncolor::Missed});
    EXPECT_EQ(report(march()).filter("*Reed*").size(), 1);
}

TEST_F(CancelReport, ACodeThatIsNoStatusStandsWithoutHeadingAndIsNotCounted) {
    book({.text = "odd", .code = 191, .account = ""});
    book({.text = "missed", .code = ncolor::Missed, .account = ""});
    EXPECT_EQ(report(march("REED")),
              (QStringList{"  3/11/2026 - 9:00 AM - 9:50 AM: odd", "   Location: Main Office", " *Missed Appointment*",
                           "  3/11/2026 - 9:00 AM - 9:50 AM: missed", "   Location: Main Office"} +
               totals(1, 0, 0)));
}

TEST_F(CancelReport, BothDaysOfTheRangeBelongToIt) {
    for (const QDate date : {QDate(2026, 2, 28), QDate(2026, 3, 1), QDate(2026, 3, 31), QDate(2026, 4, 1)})
        book({.date = date, .code = ncolor::Missed});
    EXPECT_EQ(report(march("REED")).mid(5), totals(2, 0, 0));
}

TEST_F(CancelReport, ARowWithoutALocationHasNoLineForIt) {
    bookText("Jones, Mary", "");
    EXPECT_EQ(report(march("REED")),
              (QStringList{" *Missed Appointment*", "  3/11/2026 - 9:00 AM - 9:50 AM: Jones, Mary"} + totals(1, 0, 0)));
}

TEST_F(CancelReport, TheTimesAreThoseOfTheUsersClock) {
    Session().MilitaryTime = true;
    book({.start = 845, .end = 900, .code = ncolor::Missed});
    EXPECT_TRUE(report(march("REED"))[1].contains("14:05 - 15:00"));
}

TEST_F(CancelReport, AUserOfTheOwnScheduleGetsItWhateverWasAskedFor) {
    Session().AllProviders = false;
    Session().UserName = QStringLiteral("Reed");
    book({.text = "Reed's", .code = ncolor::Missed, .account = ""});
    book({.text = "Lane's", .code = ncolor::Missed, .provider = "LANE", .account = ""});
    for (const char* provider : {"", "LANE", "REED", "reed"}) {
        const QStringList rows = report(march(provider));
        EXPECT_EQ(rows, (QStringList{" *Missed Appointment*", "  3/11/2026 - 9:00 AM - 9:50 AM: Reed's",
                                     "   Location: Main Office"} +
                         totals(1, 0, 0)))
            << provider;
        EXPECT_EQ(linesOf(vp)[2], "Provider: Reed");
    }
}

TEST_F(CancelReport, ARemovedProviderStandsByTheId) {
    book({.code = ncolor::Missed, .provider = "GONE"});
    EXPECT_EQ(report(march()).first(), "*GONE*");
}

TEST_F(CancelReport, HiddenNamesStayHiddenWithTheirAccounts) {
    SetNamesHidden(true);
    book({.text = "Jones, Mary", .code = ncolor::Missed, .account = "A-55"});
    const QString page = report(march()).join('\n');
    SetNamesHidden(false);
    EXPECT_TRUE(page.contains("9:50 AM: (hidden)\n"));
    EXPECT_FALSE(page.contains("Jones") || page.contains("A-55"));
}

TEST_F(CancelReport, EveryTextStandsAsItWasTyped) {
    const QString hebrew = QString::fromUtf8("כהן, משה");
    for (const QString& text : {QStringLiteral("O'Brien; a|b, <b>bold</b> & %1 %d 😀"), hebrew, QString(255, u'x')}) {
        run("Delete From appointments");
        bookText(text, text.left(100));
        EXPECT_EQ(report(march("REED")).mid(1, 2),
                  (QStringList{"  3/11/2026 - 9:00 AM - 9:50 AM: " + text, "   Location: " + text.left(100)}));
        EXPECT_GE(vp.PageCount(), 1);
    }
}

TEST_F(CancelReport, ALineBreakInATextIsABlank) {
    bookText("Jones,\r\nMary\tAnn", "Main\nOffice");
    EXPECT_EQ(report(march("REED")).mid(1, 2),
              (QStringList{"  3/11/2026 - 9:00 AM - 9:50 AM: Jones, Mary Ann", "   Location: Main Office"}));
}

TEST_F(CancelReport, EachRowIsAStepAndTheUserMayEndTheReportAtAnyOfThem) {
    for (int start = 540; start < 545; ++start)
        book({.start = start, .code = ncolor::Missed});
    for (const char* provider : {"", "REED"}) {
        QStringList steps;
        EXPECT_FALSE(docancelreport(march(provider), vp, [&](int row, int rows) {
            steps << QStringLiteral("%1/%2").arg(row).arg(rows);
            return row < 3;
        }));
        EXPECT_EQ(steps, (QStringList{"1/5", "2/5", "3/5"}));
        EXPECT_EQ(linesOf(vp).filter("9:50 AM").size(), 3);
        EXPECT_TRUE(linesOf(vp).filter("Total").isEmpty());
    }
}

TEST_F(CancelReport, AReportMadeTwiceIsTheSame) {
    book({.code = ncolor::Missed});
    const QStringList first = report(march());
    EXPECT_EQ(report(march()), first);
}

TEST_F(CancelReport, ALostDatabaseIsToldUnderTheHeading) {
    desk.expectBox("Error generating report. " + loseDatabase(), "Error");
    EXPECT_FALSE(docancelreport(march(), vp, everyStep));
    EXPECT_EQ(linesOf(vp).size(), 3);
}

TEST_F(CancelReport, AFailureAfterTheRowsIsToldAndNoRowStandsWithoutItsProvider) {
    book({.code = ncolor::Missed});
    desk.expectBox("Error generating report. " + DropTable(database.connection(), "provider_info"), "Error");
    EXPECT_FALSE(docancelreport(march(), vp, everyStep));
    EXPECT_EQ(linesOf(vp).size(), 3);
    // One provider's report does not need the names.
    EXPECT_EQ(report(march("REED")).size(), 6);
}

TEST_F(CancelReport, TheDatabaseIsAskedOnceForAllProvidersAndRows) {
    for (int provider = 0; provider < 20; ++provider)
        book({.code = ncolor::Missed, .provider = QStringLiteral("P%1").arg(provider)});
    EXPECT_TRUE(TakesAtMost(1, [&] { report(march()); }));
    EXPECT_TRUE(TakesAtMost(1, [&] { report(march("P1")); }));
}

TEST_F(CancelReport, TenYearsAreToldInTheOrderOfTheirDays) {
    for (int month = 0; month < 120; ++month)
        book({.date = QDate(2016, 4, 11).addMonths(month), .code = ncolor::Missed});
    ReportRequest request = march("REED");
    request.from = QDate(2016, 4, 1);
    const QStringList rows = report(request).filter("9:50 AM");
    EXPECT_EQ(rows.size(), 120);
    EXPECT_TRUE(rows.first().contains("4/11/2016") && rows.last().contains("3/11/2026"));
    EXPECT_GT(vp.PageCount(), 2);
}

TEST_F(CancelReport, ARangeThatEndsBeforeItStartsHasNoRows) {
    book({.code = ncolor::Missed});
    ReportRequest request = march("REED");
    std::swap(request.from, request.to);
    EXPECT_EQ(report(request), totals(0, 0, 0));
}

TEST_F(CancelReport, EachPagesFootTellsWhatItBelongsTo) {
    report(march());
    EXPECT_EQ(vp.Document().title, "Missed Appointment/Cancellation Report");
    EXPECT_EQ(vp.Document().footer, "Missed Appointment/Cancellation Report, 3/1/2026 to 3/31/2026||Page %d");
}
