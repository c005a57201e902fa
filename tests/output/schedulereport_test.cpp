#include "output/schedulereport.h"

#include <malloc.h>

#include <algorithm>
#include <QCoreApplication>
#include <QLocale>

#include "platform/printing/pagelayout.h"
#include "session/hiddennames.h"
#include "tests/output/reportfixture.h"
#include "tests/support/triplog.h"

namespace {

class ScheduleOnPaper : public ReportFixture {
  protected:
    ScheduleOnPaper() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        run("Update patient_info Set telephone_b = '5550987', Other_Phone = ' 5553334444 ', EmailAddress = 'mary@example.org' Where id = '10017'");
    }
    ~ScheduleOnPaper() override { QLocale::setDefault(before_); }

    /// The lines below the heading and the titles.
    QStringList report(const ReportRequest& request,
                       bool (*routine)(const ReportRequest&, VSPrinter&, const ReportStep&) = doschedule) {
        EXPECT_TRUE(routine(request, vp, everyStep));
        return linesOf(vp).mid(4);
    }
    /// The rows alone, without what stands under them.
    QStringList rows(const ReportRequest& request) { return report(request).filter(QStringLiteral("/2026|")); }
    [[nodiscard]] ReportRequest patientsOnly() const {
        ReportRequest request = march();
        request.patientsOnly = true;
        return request;
    }
    /// A row that has nothing under it.
    qint64 bookBare(const char* text, int code, const char* provider = "REED", int start = 540) {
        const qint64 key = book({.text = QString::fromUtf8(text),
                                 .start = start,
                                 .end = start + 50,
                                 .note = "",
                                 .code = code,
                                 .provider = QString::fromUtf8(provider),
                                 .patient = "",
                                 .account = ""});
        run(db::Sql("Update appointments Set CLOCATION = '' Where nkeyid = {}", key));
        return key;
    }
    qint64 bookGroup(const char* text = "Grief group") {
        const qint64 key = bookBare(text, ncolor::Group, "REED", 840);
        for (const auto& [id, name, kept] :
             {std::tuple("10018", "Smith, Bo", 0), std::tuple("10017", "Jones, Mary", 1)})
            run(db::Sql(
                "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept) Values ({}, '{}', '{}', {})", key,
                id, name, kept));
        return key;
    }

  private:
    const QLocale before_;
};

constexpr const char* Titles = "[Date|Time|Appointment|Provider|Status]";

}  // namespace

TEST_F(ScheduleOnPaper, TheHeadingTellsPracticeDatesAndProviderAboveTheTitles) {
    ReportRequest request = march("REED");
    request.header = QStringLiteral("Elm Street Practice\nSuite 4");
    report(request);
    EXPECT_EQ(linesOf(vp).mid(0, 5), (QStringList{"*Elm Street Practice\nSuite 4*", "*Schedule*",
                                                  "Dates: 3/1/2026 to 3/31/2026", "Provider: Reed", Titles}));
    report(march(), DoSchedule2);
    EXPECT_EQ(linesOf(vp).mid(0, 4), (QStringList{"*Schedule*", "Dates: 3/1/2026 to 3/31/2026",
                                                  "Provider: All Providers", "[Date|Time|Appointment|Status]"}));
}

TEST_F(ScheduleOnPaper, AnEmptyRangeGivesTheHeadingAndTheTitlesAlone) {
    EXPECT_EQ(report(march()), QStringList());
    EXPECT_EQ(linesOf(vp).last(), QLatin1String(Titles));
    EXPECT_EQ(report(march(), DoSchedule2), QStringList());
}

TEST_F(ScheduleOnPaper, ABookedRowTellsHowThePatientIsReached) {
    book({});
    EXPECT_EQ(report(march("REED")),
              (QStringList{"3/11/2026|9:00 AM - 9:50 AM|Jones, Mary  [A-55]|Reed|",
                           "|Home Phone: (555) 123-4567\nWork Phone: 555-0987\nCell Phone: (555) 333-4444\nEmail: "
                           "mary@example.org\nLocation: Main Office\nService: 90834\nNote: call first"}));
}

TEST_F(ScheduleOnPaper, APatientIsReachedHoweverTheIdIsWrittenInTheAppointment) {
    addPatient("K7", "King", "Ada", "5550001111");
    for (const char* id : {"K7", "k7", "K7 "}) {
        run("Delete From appointments");
        book({.note = "", .patient = id});
        EXPECT_TRUE(report(march()).at(1).startsWith("|Home Phone: (555) 000-1111")) << id;
    }
}

TEST_F(ScheduleOnPaper, ThreeHundredTwipsStandBetweenARowAndWhatStandsUnderIt) {
    book({});
    report(march());
    const auto& blocks = vp.Document().blocks;
    const auto row = std::ranges::find_if(blocks, [](const printing::Block& block) {
        const auto* table = std::get_if<printing::Table>(&block);
        return table != nullptr && table->rows.size() == 1;
    });
    ASSERT_NE(row, blocks.end());
    EXPECT_EQ(std::get<printing::Gap>(*(row + 1)).height, 300);
    EXPECT_EQ(std::get<printing::Table>(*row).widths, (std::vector{1500, 2500, 3000, 2000, 1700}));
    EXPECT_FALSE(std::get<printing::Table>(*row).grid);
}

TEST_F(ScheduleOnPaper, ATelephoneOfAnotherLengthStaysAsItIsWritten) {
    for (const char* phone : {"555-123-4567", "12345", "555 123 4567 x2"}) {
        run(db::Sql("Update patient_info Set telephone_h = '{}' Where id = '10017'", phone));
        run("Delete from appointments");
        book({});
        EXPECT_TRUE(report(march())[1].startsWith(QStringLiteral("|Home Phone: %1\n").arg(QLatin1String(phone))));
    }
}

TEST_F(ScheduleOnPaper, TheStatusDecidesWhatIsTold) {
    const struct {
        int code;
        const char* status;
        const char* details;
    } rows[] = {
        {ncolor::Pending, "", "Home Phone"},
        {ncolor::Tentative, "", "Home Phone"},
        {ncolor::Blank, "", "Home Phone"},
        {ncolor::Missed, "Missed", "Location"},
        {ncolor::PatientCancelled, "Patient Cancelled", "Location"},
        {ncolor::TherapistCancelled, "Therapist Cancelled", "Location"},
        {ncolor::Kept, "Kept", "Location"},
        {ncolor::CheckedIn, "Checked-In", "Location"},
        {ncolor::Unavailable, "", nullptr},
        {ncolor::Activity, "", "Location: Main Office"},
        {ncolor::LegendTentative, "", nullptr},
    };
    for (const auto& row : rows) {
        run("Delete from appointments");
        book({.code = row.code});
        const QStringList lines = report(march());
        ASSERT_EQ(lines.size(), row.details == nullptr ? 1 : 2) << row.code;
        EXPECT_TRUE(lines[0].endsWith(QStringLiteral("|Reed|") + QLatin1String(row.status))) << row.code;
        if (row.details != nullptr) {
            EXPECT_TRUE(lines[1].startsWith(u'|' + QLatin1String(row.details))) << row.code;
            EXPECT_EQ(lines[1].contains(QLatin1String("Note: ")), row.code != ncolor::Activity) << row.code;
        }
    }
}

TEST_F(ScheduleOnPaper, AnAppointmentWithoutAccountOrDetailsIsItsRowAlone) {
    bookBare("Walk-in", ncolor::Pending);
    EXPECT_EQ(report(march()), QStringList{"3/11/2026|9:00 AM - 9:50 AM|Walk-in|Reed|"});
}

TEST_F(ScheduleOnPaper, TimesFollowThePreferenceForTwentyFourHours) {
    bookBare("Noon", ncolor::Kept, "REED", 720);
    EXPECT_EQ(rows(march()), QStringList{"3/11/2026|12:00 Noon - 12:50 PM|Noon|Reed|Kept"});
    Session().MilitaryTime = true;
    EXPECT_EQ(rows(march()), QStringList{"3/11/2026|12:00 - 12:50|Noon|Reed|Kept"});
}

TEST_F(ScheduleOnPaper, ByAppointmentOnePatientsRowsStandTogether) {
    bookBare("Young", ncolor::Kept, "REED", 480);
    bookBare("Adams", ncolor::Kept, "LANE", 600);
    bookBare("Young", ncolor::Kept, "REED", 540);
    const auto names = [this](const ReportRequest& request) {
        QStringList cells;
        for (const QString& row : rows(request))
            cells << row.section(u'|', 2, 3);
        return cells;
    };
    EXPECT_EQ(names(march("", ReportSort::ByAppointment)), (QStringList{"Adams|Lane", "Young|Reed", "Young|Reed"}));
    EXPECT_EQ(names(march("", ReportSort::ByTime)), (QStringList{"Young|Reed", "Young|Reed", "Adams|Lane"}));
    EXPECT_EQ(names(march("", ReportSort::ByProvider)), (QStringList{"Adams|Lane", "Young|Reed", "Young|Reed"}));
    EXPECT_EQ(names(march("REED", ReportSort::ByProvider)), (QStringList{"Young|Reed", "Young|Reed"}));
    EXPECT_EQ(names(march("LANE", ReportSort::ByAppointment)), QStringList{"Adams|Lane"});
}

TEST_F(ScheduleOnPaper, BothDaysOfTheRangeBelongToIt) {
    for (const int day : {1, 31})
        book({.date = QDate(2026, 3, day)});
    book({.date = QDate(2026, 2, 28)});
    book({.date = QDate(2026, 4, 1)});
    EXPECT_EQ(rows(march()).size(), 2);
}

TEST_F(ScheduleOnPaper, WithPatientsOnlyEverythingElseIsLeftOut) {
    bookGroup();
    for (const int code : {ncolor::Unavailable, ncolor::Activity, ncolor::LegendTentative})
        bookBare("no patient", code);
    bookBare("Jones, Mary", ncolor::Kept);
    const qint64 slot = bookBare("a slot", ncolor::Blank);
    run(db::Sql("Update appointments Set appttype = 4 Where nkeyid = {}", slot));
    EXPECT_EQ(report(march()).size(), 8 + 1);
    EXPECT_EQ(report(patientsOnly()), QStringList{"3/11/2026|9:00 AM - 9:50 AM|Jones, Mary|Reed|Kept"})
        << "The group has gone with its members.";
}

TEST_F(ScheduleOnPaper, AGroupHasItsMembersUnderIt) {
    bookGroup();
    EXPECT_EQ(report(march()),
              (QStringList{"3/11/2026|2:00 PM - 2:50 PM|Grief group|Reed|", "[||Home Phone|Work Phone|]",
                           "|Jones, Mary|(555) 123-4567|555-0987|Kept", "|Smith, Bo|||"}));
    EXPECT_EQ(report(march(), DoSchedule2),
              (QStringList{"*Reed*", "3/11/2026|2:00 PM - 2:50 PM|Grief group|", "[|Home Phone|Work Phone|]",
                           "Jones, Mary|(555) 123-4567|555-0987|Kept", "Smith, Bo|||"}));
}

TEST_F(ScheduleOnPaper, AGroupWithoutMembersIsItsRowAlone) {
    bookBare("Empty", ncolor::Group);
    EXPECT_EQ(report(march()).size(), 1);
}

TEST_F(ScheduleOnPaper, AllProvidersStandOneAfterTheOtherUnderTheirNames) {
    bookBare("Reed's", ncolor::Kept);
    bookBare("Lane's", ncolor::Missed, "LANE");
    bookBare("Lane's too", ncolor::Kept, "lane", 600);
    EXPECT_EQ(report(march(), DoSchedule2), (QStringList{"*Lane*", "3/11/2026|9:00 AM - 9:50 AM|Lane's|Missed",
                                                         "3/11/2026|10:00 AM - 10:50 AM|Lane's too|Kept", "*Reed*",
                                                         "3/11/2026|9:00 AM - 9:50 AM|Reed's|Kept"}));
}

TEST_F(ScheduleOnPaper, AnActivityOfSeveralProvidersNamesThem) {
    const qint64 key = bookBare("Staff meeting", ncolor::Activity, EventClinicianId);
    share(key, "REED");
    share(key, "LANE");
    EXPECT_EQ(report(march()), QStringList{"3/11/2026|9:00 AM - 9:50 AM|Staff meeting|Lane, Reed|"});
    EXPECT_EQ(
        report(march(), DoSchedule2),
        (QStringList{"*Several Providers*", "3/11/2026|9:00 AM - 9:50 AM|Staff meeting|", "|Providers: Lane, Reed"}));
}

TEST_F(ScheduleOnPaper, TwoProvidersOfOneNameBothStandAtTheirActivity) {
    run("Insert Into provider_info (id, prov_lastname) Values ('LANE2', 'Lane')");
    const qint64 key = bookBare("Staff meeting", ncolor::Activity, EventClinicianId);
    share(key, "LANE2");
    share(key, "LANE");
    EXPECT_EQ(report(march()), QStringList{"3/11/2026|9:00 AM - 9:50 AM|Staff meeting|Lane, Lane|"});
}

TEST_F(ScheduleOnPaper, AProviderOrPatientRemovedSinceLeavesTheRowReadable) {
    book({.patient = "GONE"});
    run("Delete from provider_info Where id = 'REED'");
    EXPECT_EQ(report(march()), (QStringList{"3/11/2026|9:00 AM - 9:50 AM|Jones, Mary  [A-55]|REED|",
                                            "|Location: Main Office\nService: 90834\nNote: call first"}));
}

TEST_F(ScheduleOnPaper, TextsStandAsTheyAre) {
    const QString text = QString::fromUtf8("O'Brien|Lane; <b>Anna</b>\tאנה 😀");
    book({.text = text, .note = QStringLiteral("90834|") + QString(500, u'x'), .account = "A;5|5"});
    const QStringList lines = report(march());
    EXPECT_EQ(lines[0],
              QString::fromUtf8("3/11/2026|9:00 AM - 9:50 AM|O'Brien|Lane; <b>Anna</b> אנה 😀  [A;5|5]|Reed|"));
    EXPECT_TRUE(lines[1].endsWith(QString(500, u'x')));
    const printing::PageLayout laid(vp.Document());
    EXPECT_EQ(laid.pageCount(), 1);
}

TEST_F(ScheduleOnPaper, WhileNamesAreHiddenNobodyIsNamedOrReached) {
    book({});
    bookGroup();
    bookBare("Staff meeting", ncolor::Activity, "REED", 900);
    Session().HidePatientNames = true;
    for (auto* routine : {doschedule, DoSchedule2}) {
        const QString all = report(march(), routine).join(u'\n');
        for (const char* secret : {"Jones", "Smith", "A-55", "555", "example.org", "call first"})
            EXPECT_FALSE(all.contains(QLatin1String(secret))) << secret;
        for (const char* told : {"90834", "Main Office", "Grief group", "Staff meeting"})
            EXPECT_TRUE(all.contains(QLatin1String(told))) << told;
    }
}

TEST_F(ScheduleOnPaper, WithoutTheRightToAllProvidersItIsTheOwnSchedule) {
    bookBare("Reed's", ncolor::Kept);
    bookBare("Lane's", ncolor::Kept, "LANE");
    Session().AllProviders = false;
    for (const char* asked : {"", "LANE", "REED"})
        for (auto* routine : {doschedule, DoSchedule2})
            EXPECT_EQ(report(march(asked), routine), QStringList{"3/11/2026|9:00 AM - 9:50 AM|Reed's|Reed|Kept"});
}

TEST_F(ScheduleOnPaper, EachStepTellsHowFarItIsAndMayEndIt) {
    for (int row = 0; row < 5; ++row)
        bookBare("row", ncolor::Kept, "REED", 480 + row * 60);
    QStringList steps;
    EXPECT_FALSE(doschedule(march(), vp, [&steps](int row, int rows) {
        steps << QStringLiteral("%1/%2").arg(row).arg(rows);
        return row < 3;
    }));
    EXPECT_EQ(steps, (QStringList{"1/5", "2/5", "3/5"}));
    EXPECT_EQ(linesOf(vp).mid(4).size(), 3);
}

TEST_F(ScheduleOnPaper, AStatementThatFailsInTheMiddleIsToldAndTheDocumentEndsThere) {
    for (int row = 0; row < 300; ++row)
        bookBare("row", ncolor::Kept, "REED", 480 + row);
    book({.date = QDate(2026, 3, 12)});
    QString said;
    EXPECT_FALSE(doschedule(march(), vp, [&](int row, int) {
        if (row == 10) {
            said = DropTable(database.connection(), QStringLiteral("patient_info"));
            desk.expectBox(QStringLiteral("Error generating report. ") + said, QStringLiteral("Error"));
        }
        return true;
    }));
    EXPECT_EQ(linesOf(vp).mid(4).size(), 250);
}

TEST_F(ScheduleOnPaper, ALostDatabaseIsToldUnderTheHeading) {
    for (auto* routine : {doschedule, DoSchedule2}) {
        desk.expectBox(QStringLiteral("Error generating report. ") + loseDatabase(), QStringLiteral("Error"));
        EXPECT_FALSE(routine(march(), vp, everyStep));
        EXPECT_EQ(linesOf(vp).size(), 4);
        QCoreApplication::processEvents();
        Session().Connection.Open(database.connectionText());
    }
}

TEST_F(ScheduleOnPaper, AsksTheServerOnceForManyRows) {
    for (int row = 0; row < 40; ++row)
        book({.start = 480 + row, .patient = row % 2 == 0 ? "10017" : "10018"});
    for (int group = 0; group < 20; ++group)
        bookGroup();
    share(bookBare("Meeting", ncolor::Activity, EventClinicianId), "LANE");
    // The rows with the names, the members, the attendees, the patients.
    EXPECT_TRUE(TakesAtMost(4, [this] { report(march()); }));
    EXPECT_TRUE(TakesAtMost(4, [this] { report(march(), DoSchedule2); }));
}

TEST_F(ScheduleOnPaper, ARowStaysOnOnePageWithWhatStandsUnderIt) {
    for (int row = 0; row < 60; ++row)
        book({.start = 480 + row, .note = QStringLiteral("90834|") + QString("words ").repeated(row % 7 * 9)});
    report(march());
    const printing::PageLayout laid(vp.Document());
    EXPECT_GT(laid.pageCount(), 5);
    for (int page = 1; page < laid.pageCount(); ++page) {
        const auto& pieces = laid.pieces(page);
        EXPECT_EQ(pieces[0].row, -1) << "The titles stand on top.";
        const auto& first = std::get<printing::Table>(vp.Document().blocks[pieces[1].block]);
        EXPECT_EQ(first.widths.size(), 5U) << "A page begins with a row, not with its details.";
    }
}

TEST_F(ScheduleOnPaper, TheMemoryOfAReportIsFreeForTheNextOne) {
    for (int row = 0; row < 200; ++row)
        book({.start = 480 + row});
    const auto make = [this] {
        report(march());
        vp.StartDoc();
    };
    for (int round = 0; round < 3; ++round)
        make();
    const auto before = mallinfo2().uordblks;
    for (int round = 0; round < 20; ++round)
        make();
    EXPECT_LT(mallinfo2().uordblks, before + 100'000);
}
