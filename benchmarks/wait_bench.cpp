#include "appointments/waitoffers.h"
#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "data/schema.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Sql;
using db::SqlDate;

namespace {

constexpr int Entries = 1000;

/// Puts a thousand patients on the wait list of the practice, each for another provider, length and weekday.
void fillList() {
    db::Connection& connection = Session().Connection;
    if (!HasTable(connection, QStringLiteral("WaitList")))
        for (const QString& statement : SchemaStatements(SchemaScript::Main))
            if (statement.contains(QLatin1String("WaitList")))
                connection.Execute(statement);
    if (db::Recordset(QStringLiteral("Select WaitId From WaitList"), connection).RecordCount() >= Entries)
        return;
    const db::Recordset providers(QStringLiteral("Select id From provider_info Where archive = 0 Order by id"),
                                  connection);
    db::Recordset patient(QStringLiteral("Select id From patient_info Where archive = 0 Order by id"), connection);
    std::vector<std::vector<db::Value>> rows;
    for (int entry = 0; entry < Entries; ++entry) {
        rows.push_back({patient["id"].text(), QStringLiteral("Waiting"), 15 + 15 * (entry % 5),
                        entry % 3 == 0 ? providers["id"].text() : QString(), entry % 2 == 0 ? EveryDay : entry % 128, 0,
                        1440, 0, Now()});
        patient.MoveNext();
        if (patient.Eof())
            patient.MoveFirst();
    }
    connection.InsertRows(QStringLiteral("WaitList"),
                          {QStringLiteral("PatientId"), QStringLiteral("PatientName"), QStringLiteral("Minutes"),
                           QStringLiteral("Providers"), QStringLiteral("Days"), QStringLiteral("FromTime"),
                           QStringLiteral("ToTime"), QStringLiteral("Closed"), QStringLiteral("createddate")},
                          rows);
}

QDate tomorrow() {
    return Today().addDays(1);
}

void bareWait(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    fillList();
    BareDatabase bare(practice.databaseFile().toStdString());
    const std::string date = SqlDate(tomorrow()).toStdString();
    for (auto _ : state) {
        bare.read(
            "Select WaitList.*, id, last_name, first_name, middle_init, archive From WaitList Left Join patient_info On WaitList.PatientId = patient_info.id Where Closed = 0 Order by WaitList.createddate, WaitId");
        bare.read("Select id, prov_lastname, archive From provider_info");
        bare.read("Select providerid, workdayvalue, starttime, endtime From ProvSched");
        bare.read(
            "Select dapptdate, nStartTime, nEndTime, ncolor, appttype, clinicianid, patientid From appointments Where dapptdate In ('" +
            date + "')");
    }
}

void ourWait(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    fillList();
    Session().AllProviders = true;
    Session().ScreenAccess = 3;
    const FreedTime freed{QStringLiteral("REED"), tomorrow(), {600, 660}, {}};
    for (auto _ : state)
        benchmark::DoNotOptimize(OffersFor({freed}));
}

}  // namespace

void RegisterWaitBenches() {
    for (const Practice& practice : Practices()) {
        const std::string name = "Who waits, of 1,000/" + practice.size.toStdString();
        benchmark::RegisterBenchmark((name + "/bare").c_str(), bareWait, practice)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), ourWait, practice)->Unit(benchmark::kMillisecond);
    }
}
