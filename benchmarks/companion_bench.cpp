#include <algorithm>
#include <memory>
#include <QApplication>
#include <QFile>
#include <QPixmap>

#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "companion/frmfhappts.h"
#include "companion/recurringevent.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/shell/fakemainwindow.h"

using db::Raw;
using db::Sql;
using db::SqlDate;

namespace {

/// The companion's schedule as a user waits for it: from the call that reads it to the painted widget.
struct CompanionBench {
    const char* name;
    int providers;  ///< They share the appointments of the days walked.
    bool week = false;
};

constexpr int daysWalked = 60;
constexpr int daysOfWeek = 7;

QDate dayOf(int round) {
    QDate date = QDate::currentDate().addDays(-daysWalked / 2 + round % daysWalked);
    while (date.dayOfWeek() > 5)
        date = date.addDays(1);
    return date;
}

/// A practice's companion with a number of providers and as many transactions as the practice has appointments. It is
/// made once and stays beside the practice.
class BenchCompanion {
  public:
    BenchCompanion(const Practice& practice, int providers)
        : folder_(practice.folder), catalog_(QStringLiteral("companion-of-%1").arg(providers)) {
        if (QFile::exists(file()))
            return;
        const QString made = folder_ + QStringLiteral("/made.db");
        QFile::remove(made);
        QFile::copy(folder_ + QStringLiteral("/companion.db"), made);
        {
            BareDatabase bare(made.toStdString());
            addTransactions(bare, practice.size.endsWith(QLatin1Char('M')) ? 1'000'000 : 10'000);
            setProviders(bare, providers);
        }
        QFile::rename(made, file());
    }

    [[nodiscard]] QString file() const { return folder_ + QLatin1Char('/') + catalog_ + QStringLiteral(".db"); }
    [[nodiscard]] QString text() const {
        return QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=%2;User Id=FHMaster;")
            .arg(folder_, catalog_);
    }

  private:
    /// Repeats the rows of the practice in earlier years, weekday by weekday.
    static void addTransactions(BareDatabase& bare, int wanted) {
        const int first = bare.read("Select 1 from ClientTransactions");
        for (int there = first, copy = 1; there < wanted; there += first, ++copy) {
            const int count = std::min(first, wanted - there);
            bare.read(
                Sql("Insert Into ClientTransactions (ClntId, TranId, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus, CtrnNotes) Select ClntId, TranId, date(CtrnDate, '-{} days'), CtrnTime, CtrnDuration, CtrnStatus, CtrnNotes from ClientTransactions Where CtrnId <= {}",
                    copy * 364, count)
                    .toStdString());
        }
    }
    static void setProviders(BareDatabase& bare, int wanted) {
        const int there = bare.read("Select 1 from Providers");
        if (there > wanted)
            bare.read(Sql("Delete from Providers Where ProvId > {}", wanted).toStdString());
        for (int i = there + 1; i <= wanted; ++i)
            bare.read(
                Sql("Insert Into Providers (ProvId, ProvLastName, ProvFirstName) Values ({}, 'Provider {}', 'Pat')", i,
                    i)
                    .toStdString());
        bare.read(Sql("Update ClientTransactions Set ProvId = CtrnId % {} + 1", wanted).toStdString());
    }

    QString folder_;
    QString catalog_;
};

std::vector<int> providersOf(const BenchCompanion& companion) {
    db::Connection connection;
    connection.Open(companion.text());
    std::vector<int> providers;
    for (db::Recordset rows("Select * from providers Order by ProvLastName, ProvFirstName", connection); !rows.Eof();
         rows.MoveNext())
        providers.push_back(static_cast<int>(rows["ProvId"].integer()));
    return providers;
}

// As the bare engine understands it: it joins texts by ||.
QString appointmentsStatement(int provider, QDate first, QDate last) {
    return Sql(
        "SELECT ClntFirstName, ClntLastName, CtrnId, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus, TranName, ctrnNotes, recurTranID, CtrnCallStatus, SVSessionId FROM (ClientTransactions INNER JOIN TransactionCodes ON ClientTransactions.TranId = TransactionCodes.TranId)  INNER JOIN Clients On ClientTransactions.ClntId = Clients.ClntId  WHERE ( ClientTransactions.ProvId = {} OR ClientTransactions.ProvIdAdditional = {}) AND CtrnDate >= '{}' AND CtrnDate <= '{}' AND TranType || '' = 'C'  AND CtrnDuration > 0  AND CtrnTime > '12:00:00 AM'",
        provider, provider, SqlDate(first), SqlDate(last));
}

QString eventsStatement(int provider, QDate first, QDate last) {
    return Sql(
        "SELECT CalendarEvents.CEveId, CEveName, CEveDate, CEveEndDate, CEveTime, CEveAllDayInd, CEveDuration, RecrId, CEveReminderInd FROM CalendarEvents LEFT JOIN CalendarProviderEvents On CalendarEvents.CEveId = CalendarProviderEvents.CEveId WHERE (CEveAllProvidersInd = 1 OR (ProvId IS NULL OR ProvId= {}))   AND CEveDate <= '{}'  AND (( CEveEndDate IS NULL AND calendarevents.recrid > 0) OR (CEveEndDate IS NULL AND (calendarevents.recrid <> 0) AND CEveDate>= '{}') OR CEveEndDate>= '{}') order by cevetime desc",
        provider, SqlDate(last), SqlDate(first), SqlDate(first));
}

/// All statements that a load sends, each once.
QStringList statementsOf(db::Connection& connection, const std::vector<int>& providers, QDate first, QDate last) {
    QStringList statements;
    for (const int provider : providers) {
        statements << appointmentsStatement(provider, first, last) << eventsStatement(provider, first, last);
        for (db::Recordset event(statements.last(), connection); !event.Eof(); event.MoveNext()) {
            const int series = static_cast<int>(event["RecrId"].integer());
            RecurringEvent pattern;
            if (series <= 0 ||
                !pattern.DBGetInfo(connection, series, event["CEveDate"].text(), event["CEveEndDate"].text(), {}, 0, 0))
                continue;
            statements << RecurringEvent::PatternStatement(series);
            for (QDate day = first; day <= last; day = day.addDays(1))
                if (pattern.IsInPattern(day))
                    statements << pattern.ExceptionStatement(day, provider);
        }
    }
    statements.removeDuplicates();
    return statements;
}

void bareCompanion(benchmark::State& state, const Practice& practice, const CompanionBench& bench) {
    const BenchCompanion companion(practice, bench.providers);
    std::vector<int> providers = providersOf(companion);
    if (bench.week)
        providers.resize(1);
    db::Connection connection;
    connection.Open(companion.text());
    BareDatabase bare(companion.file().toStdString());
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QDate first = dayOf(round++);
        const QStringList statements =
            statementsOf(connection, providers, first, bench.week ? first.addDays(daysOfWeek) : first);
        state.ResumeTiming();
        for (const QString& statement : statements)
            bare.read(statement.toStdString());
    }
}

// On a window of the size a front desk uses.
void ourCompanion(benchmark::State& state, const Practice& practice, const CompanionBench& bench) {
    const BenchCompanion companion(practice, bench.providers);
    practice.openSession();
    Session().AllProviders = true;
    Session().CurrentView = View::Companion;
    Session().FHConnectionString = companion.text();
    FakeMainWindow main(QDate::currentDate());
    frmFHAppts view(main);
    view.resize(1040, 680);
    view.show();
    QApplication::processEvents();
    if (bench.week) {
        view.Grid().selectRange(1, 540, 600);
        view.ShowMode(frmFHAppts::Mode::Week);
    }
    QPixmap screen(view.size());
    int round = 0;
    for (auto _ : state) {
        main.SetDate(dayOf(round++));
        view.ShowDate(main.Date());
        view.render(&screen);
    }
}

}  // namespace

void RegisterCompanionBenches() {
    for (const CompanionBench& bench :
         {CompanionBench{"Companion day of 14", 14}, CompanionBench{"Companion day of 100", 100},
          CompanionBench{"Companion week", 14, true}}) {
        for (const Practice& practice : Practices()) {
            const std::string name = std::string(bench.name) + ", call to painted/" + practice.size.toStdString();
            benchmark::RegisterBenchmark((name + "/bare").c_str(), bareCompanion, practice, bench)
                ->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark((name + "/ours").c_str(), ourCompanion, practice, bench)
                ->Unit(benchmark::kMillisecond);
        }
    }
}
