// What the demo practice promises of its companion: every kind of row that the companion schedule shows.

#include <gtest/gtest.h>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/data/demo/practicefixture.h"

namespace {

/// All tests of a run read one practice; the server of a test run holds one database.
DemoPractice& practice() {
    static DemoPractice made(QDate(2026, 11, 18));
    return made;
}

qint64 countOf(const char* table, const QString& condition) {
    return practice().companion.number(
        db::Sql("Select Count(*) from {} Where {}", db::Raw{QString::fromLatin1(table)}, db::Raw{condition}));
}

qint64 transactions(const char* condition) {
    return countOf("ClientTransactions", QString::fromLatin1(condition));
}

qint64 events(const char* condition) {
    return countOf("CalendarEvents", QString::fromLatin1(condition));
}

TEST(DemoCompanion, TheScheduleHasOpenChargedAndLinkedAppointments) {
    TestDatabase& companion = practice().companion;
    EXPECT_GT(companion.number("Select Count(*) from ClientTransactions Where CtrnStatus = 'S' And CtrnDuration > 0"),
              20);
    EXPECT_GT(companion.number("Select Count(*) from ClientTransactions Where CtrnStatus <> 'S' And CtrnDuration > 0"),
              20);
    EXPECT_EQ(
        companion.number("Select Count(*) from ClientTransactions Where CtrnStatus <> 'S' And CtrnDate > '2026/11/18'"),
        0);
    const qint64 session = companion.number("Select Max(SVSessionID) from ClientTransactions");
    EXPECT_EQ(practice().main.number(db::Sql("Select Count(*) from sessions Where id = {}", session)), 1);
}

TEST(DemoCompanion, ThereIsASeriesOfEachPattern) {
    TestDatabase& companion = practice().companion;
    for (int pattern = 0; pattern <= 3; ++pattern) {
        EXPECT_GE(
            companion.number(db::Sql(
                "Select Count(*) from CalendarEvents Inner Join RecurringEvents On RecurringEvents.RecrId = CalendarEvents.RecrId Where RecrPattern = {}",
                pattern)),
            2)
            << pattern;
    }
    EXPECT_EQ(
        companion.number(
            "Select Count(*) from RecurringEventExceptions Where RecrId not in (Select RecrId from CalendarEvents)"),
        0);
    EXPECT_EQ(companion.number("Select Count(*) from RecurringEventExceptions Where ProvId is null"), 1);
}

TEST(DemoCompanion, EveryStatusAndEveryCallIsThere) {
    for (const int status : {0, 1, 2, 3, 4, 5, 6})
        EXPECT_GT(countOf("ClientTransactions", db::Sql("appt_status = {}", status)), 0) << status;
    db::Recordset codes("Select CallCode from CourtesyCallCodes Where CallService = 'CP'",
                        practice().main.connection());
    EXPECT_GT(codes.RecordCount(), 5);
    for (; !codes.Eof(); codes.MoveNext())
        EXPECT_GT(countOf("ClientTransactions",
                          db::Sql("CtrnCallStatus = '{}' And CtrnDate = '2026/11/18'", codes[0].text())),
                  0)
            << codes[0].text().toStdString();
    EXPECT_GT(transactions("CtrnCallStatus = 'ZZ'"), 0) << "a code that is on no list";
}

TEST(DemoCompanion, NotesSeriesAndSecondProvidersAreThere) {
    for (const char* status : {"CtrnStatus = 'S'", "CtrnStatus <> 'S'"}) {
        EXPECT_GT(transactions(qPrintable(QLatin1String(status) + QLatin1String(" And CtrnNotes <> ''"))), 0) << status;
        EXPECT_GT(transactions(qPrintable(QLatin1String(status) + QLatin1String(" And RecurTranId > 0"))), 0) << status;
    }
    EXPECT_GT(transactions("ProvIdAdditional > 0"), 0);
    EXPECT_EQ(transactions("ProvIdAdditional = ProvId"), 0);
    EXPECT_GT(transactions("SVSessionID > 0 And CtrnStatus <> 'S'"), 0);
}

TEST(DemoCompanion, RowsThatAreNoAppointmentsAreThere) {
    EXPECT_GT(transactions("CtrnDuration > 0 And CtrnTime = CtrnDate"), 0) << "at midnight";
    EXPECT_GT(transactions("CtrnStatus = 'S' And CtrnDuration = 0"), 0);
    EXPECT_GT(practice().companion.number(
                  "Select Count(*) from ClientTransactions Inner Join TransactionCodes On TransactionCodes.TranId = "
                  "ClientTransactions.TranId Where TranType <> 'C'"),
              0);
}

TEST(DemoCompanion, ProvidersAndClientsWithoutAPairHaveAppointments) {
    TestDatabase& companion = practice().companion;
    const qint64 quintana = companion.number("Select ProvId from Providers Where ProvLastName = 'Quintana'");
    EXPECT_EQ(practice().main.number(
                  db::Sql("Select Count(*) from FHDataPairs Where FHDataList = 1 And FHDataValue = {}", quintana)),
              0);
    EXPECT_GT(countOf("ClientTransactions", db::Sql("ProvId = {} And CtrnDate = '2026/11/18'", quintana)), 3);
    EXPECT_GT(countOf("ClientTransactions", db::Sql("ProvId = {} And ProvIdAdditional > 0", quintana)), 0);
    const qint64 reed =
        practice().main.number("Select FHDataValue from FHDataPairs Where FHDataList = 1 And SVDataValue = 'REED'");
    int unpaired = 0;
    for (db::Recordset clients(db::Sql("Select ClntId from ClientTransactions Where ProvId = {}", reed),
                               companion.connection());
         !clients.Eof(); clients.MoveNext())
        unpaired +=
            practice().main.number(db::Sql("Select Count(*) from FHDataPairs Where FHDataList = 4 And FHDataValue = {}",
                                           clients[0].integer())) == 0
                ? 1
                : 0;
    EXPECT_EQ(unpaired, 2);
}

TEST(DemoCompanion, MoneyIsKnownInEveryWay) {
    const auto shares = [](const char* condition) {
        return countOf("ClientChargeDistributions", QString::fromLatin1(condition));
    };
    EXPECT_GT(shares("CDisType = 0 And CDisPercentDue > 0"), 0);
    EXPECT_GT(shares("CDisType = 0 And CDisPercentDue is null And CDisFixedAmount > 0"), 0);
    EXPECT_GT(shares("PartId > 0 And CDisPercentDue > 0"), 0);
    EXPECT_GT(shares("PartId > 0 And CDisFixedAmount > 0"), 0);
    EXPECT_EQ(shares("PartId > 0 And PartId not in (Select PartId from ClientParties)"), 0);
    for (const char* column : {"ClntUsualFee", "ClntCurrentBalance", "LookIdNUMBOne", "TranIDQuickCharge"}) {
        EXPECT_GT(countOf("Clients", db::Sql("{} is null", db::Raw{QString::fromLatin1(column)})), 0) << column;
        EXPECT_GT(countOf("Clients", db::Sql("{} > 0", db::Raw{QString::fromLatin1(column)})), 0) << column;
    }
    EXPECT_GT(countOf("Clients", QStringLiteral("ClntFeeAdjustment > 0")), 0);
}

TEST(DemoCompanion, InsuranceIsPrimarySecondaryAndInactive) {
    EXPECT_GT(
        practice().companion.number(
            "Select Count(*) from clientInsurancePolicies a Inner Join clientInsurancePolicies b On a.ClntId = "
            "b.ClntId Where a.CPolType = 'P' And b.CPolType = 'S' And a.CPolActiveInd = 1 And b.CPolActiveInd = 1"),
        0);
    EXPECT_GT(countOf("clientInsurancePolicies", QStringLiteral("CPolActiveInd = 0")), 0);
}

TEST(DemoCompanion, EveryKindOfEventIsThere) {
    EXPECT_GT(events("CEveAllDayInd = 1 And CEveEndDate > CEveDate And RecrId = 0"), 0) << "all day, several days";
    EXPECT_GT(events("CEveAllDayInd = 0 And CEveEndDate > CEveDate And RecrId = 0"), 0) << "several days at an hour";
    EXPECT_GT(events("CEveEndDate < CEveDate"), 0) << "moved beyond its last day";
    for (const char* kind : {"RecrId = 0", "RecrId > 0"})
        for (const char* mark : {"CEveReminderInd = 1", "CEveAllProvidersInd = 1", "CEveAllDayInd = 1"})
            EXPECT_GT(countOf("CalendarEvents", db::Sql("{} And {}", db::Raw{QString::fromLatin1(kind)},
                                                        db::Raw{QString::fromLatin1(mark)})),
                      0)
                << kind << mark;
    EXPECT_GT(events("CEveId in (Select CEveId from CalendarProviderEvents Group by CEveId Having Count(*) > 1)"), 1);
    for (const int all : {0, 1})
        EXPECT_GT(
            countOf(
                "CalendarEvents",
                db::Sql("CEveAllProvidersInd = {} And CEveId not in (Select CEveId from CalendarProviderEvents)", all)),
            0)
            << "without attendees";
    EXPECT_GT(events("RecrId > 0 And CEveEndDate is null"), 2) << "without an end";
    EXPECT_GT(events("RecrId > 0 And CEveEndDate is not null"), 1);
}

TEST(DemoCompanion, NoEventOpensTheNightOfTheSchedule) {
    // These events widen the hours that the schedule shows: single ones that remind nobody, and series that remind.
    for (db::Recordset rows(
             "Select CEveName, CEveTime from CalendarEvents Where (RecrId = 0 And CEveReminderInd <> 1) Or "
             "(RecrId > 0 And CEveReminderInd = 1)",
             practice().companion.connection());
         !rows.Eof(); rows.MoveNext())
        EXPECT_GE(rows["CEveTime"].dateTime().time().hour(), 6) << rows["CEveName"].text().toStdString();
}

TEST(DemoCompanion, APatternThatIsUnknownAndACountAreThere) {
    EXPECT_EQ(countOf("RecurringEvents", QStringLiteral("RecrPattern > 3")), 1);
    EXPECT_GT(countOf("RecurringEvents", QStringLiteral("RecrMaxEvents > 0")), 0);
    EXPECT_EQ(
        countOf("RecurringEvents", QStringLiteral("RecrDailyDays = 0 Or RecrWeeklyWeeks = 0 Or RecrMonthlyMonths = 0")),
        0)
        << "an interval that no schedule can be loaded with";
}

TEST(DemoCompanion, EveryExceptionRemovesADayOfItsSeries) {
    const char* const indicators[] = {"RecrWeeklyMonInd", "RecrWeeklyTueInd", "RecrWeeklyWedInd", "RecrWeeklyThuInd",
                                      "RecrWeeklyFriInd"};
    int all = 0, nobody = 0, one = 0;
    for (db::Recordset rows(
             "Select * from RecurringEventExceptions Inner Join RecurringEvents On RecurringEvents.RecrId = "
             "RecurringEventExceptions.RecrId",
             practice().companion.connection());
         !rows.Eof(); rows.MoveNext()) {
        const int weekday = rows["RExcDate"].date().dayOfWeek();
        ASSERT_LE(weekday, Qt::Friday);
        if (rows["RecrDailyWeekdayInd"].integer() == 0) {
            EXPECT_EQ(rows[QString::fromLatin1(indicators[weekday - 1])].integer(), 1);
        }
        ++(rows["ProvId"].isNull() ? nobody : rows["ProvId"].integer() == 0 ? all : one);
    }
    EXPECT_EQ(nobody, 1);
    EXPECT_EQ(all, 1);
    EXPECT_EQ(one, 2);
}

}  // namespace
