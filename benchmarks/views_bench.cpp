#include <functional>
#include <memory>
#include <QApplication>
#include <QPixmap>

#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "data/recurrence.h"
#include "platform/database/sql.h"
#include "rooms/frmrooms.h"
#include "session/session.h"
#include "tests/shell/fakemainwindow.h"
#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

using db::Sql;
using db::SqlDate;

namespace {

/// A view as a user waits for it: from the call that reads it to the painted widget.
struct ViewBench {
    const char* name;
    std::function<std::unique_ptr<ViewWindow>(MainWindow&)> make;
    /// The statements of one load.
    std::function<QStringList(QDate)> statements;
    int moreProviders = 0;  ///< Besides those of the practice; they share the appointments of the days walked.
};

constexpr int daysWalked = 60;

// The days around today on which the practice works, so that each load finds other rows than the last.
QDate dayOf(int round) {
    QDate date = QDate::currentDate().addDays(-daysWalked / 2 + round % daysWalked);
    while (date.dayOfWeek() > 5)
        date = date.addDays(1);
    return date;
}

QString holiday(QDate date) {
    const QString day = SqlDate(date);
    return Sql(
        "Select * from Holidays where HolidayDate = '{}' or (HolidayRepeat = 1 and MONTH(HolidayDate) = MONTH('{}') and Day(HolidayDate) = Day('{}'))",
        day, day, day);
}

QStringList dayStatements(QDate date) {
    return {
        Sql("SELECT appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE dapptdate = '{}' and (appointments.clinicianid = 'REED' or appointmentsevents.clinicianid = 'REED') Order by NStartTime, appttype DESC",
            SqlDate(date)),
        holiday(date),
        Sql("Select * from ProvSched Where providerid = 'REED' and workdayvalue = {}", WeekdayNumber(date))};
}

QStringList weekStatements(QDate date) {
    const QDate first = date.addDays(1 - date.dayOfWeek());
    QStringList statements{Sql(
        "Select appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid where DApptDate >= '{}' AND DApptDate <= '{}' AND (appointments.ClinicianId = 'REED' or appointmentsevents.clinicianid = 'REED') Order by NStartTime, appttype DESC",
        SqlDate(first), SqlDate(first.addDays(7)))};
    for (int day = 0; day < 7; ++day)
        statements << holiday(first.addDays(day))
                   << Sql("Select * from ProvSched Where providerid = 'REED' and workdayvalue = '{}'",
                          WeekdayNumber(first.addDays(day)));
    return statements;
}

QStringList allStatements(QDate date) {
    return {
        Sql("Select appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid where DApptDate = '{}' Order by appttype DESC",
            SqlDate(date)),
        holiday(date), Sql("Select * from ProvSched Where workdayvalue = {}", WeekdayNumber(date))};
}

QStringList monthStatements(QDate date) {
    const QDate first(date.year(), date.month(), 1);
    return {Sql(
        "Select appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid where DApptDate >= '{}' AND DApptDate <= '{}' AND (appointments.ClinicianId = 'REED' or appointmentsevents.clinicianid = 'REED')",
        SqlDate(first), SqlDate(first.addDays(date.daysInMonth() - 1)))};
}

QStringList roomStatements(QDate date) {
    return {Sql("Select * from roomschedule where nApptDate = '{}' AND croomid = 1", SqlDate(date))};
}

template <class Form>
std::unique_ptr<ViewWindow> makeView(MainWindow& main) {
    return std::make_unique<Form>(main);
}

const std::vector<ViewBench>& views() {
    static const std::vector<ViewBench> all{
        {"LoadDayView", makeView<frmsched>, dayStatements}, {"Week", makeView<frmweekv>, weekStatements},
        {"All providers", makeView<frmall>, allStatements}, {"100 providers", makeView<frmall>, allStatements, 86},
        {"Month", makeView<frmmtv>, monthStatements},       {"Room", makeView<frmrooms>, roomStatements},
    };
    return all;
}

void bareView(benchmark::State& state, const Practice& practice, const ViewBench& view) {
    BareDatabase bare(practice.databaseFile().toStdString());
    int round = 0;
    for (auto _ : state)
        for (const QString& statement : view.statements(dayOf(round++)))
            bare.read(statement.toStdString());
}

void addProviders(int count) {
    db::Connection& connection = Session().Connection;
    for (int i = 0; i < count; ++i)
        connection.Execute(
            Sql("Insert Into provider_info (id, prov_lastname, archive) Values('B{}', 'Provider {}', 0)", i, i));
    const QDate today = QDate::currentDate();
    connection.Execute(Sql(
        "Update appointments Set clinicianid = 'B' + Convert(varchar(9), nkeyid % {}) Where dapptdate >= '{}' and dapptdate <= '{}'",
        count, SqlDate(today.addDays(-daysWalked)), SqlDate(today.addDays(daysWalked))));
}

// On a window of the size a front desk uses. The providers that were added are gone again at the end.
void ourView(benchmark::State& state, const Practice& practice, const ViewBench& bench) {
    practice.openSession();
    if (bench.moreProviders > 0) {
        Session().Connection.BeginTrans();
        addProviders(bench.moreProviders);
    }
    FakeMainWindow main(QDate::currentDate());
    const std::unique_ptr<ViewWindow> view = bench.make(main);
    view->resize(1040, 680);
    view->show();
    QApplication::processEvents();
    QPixmap screen(view->size());
    int round = 0;
    for (auto _ : state) {
        main.SetDate(dayOf(round++));
        view->ShowDate(main.Date());
        view->render(&screen);
    }
    if (bench.moreProviders > 0)
        Session().Connection.RollbackTrans();
}

}  // namespace

void RegisterViewBenches() {
    for (const ViewBench& view : views()) {
        for (const Practice& practice : Practices()) {
            const std::string name = std::string(view.name) + ", call to painted/" + practice.size.toStdString();
            benchmark::RegisterBenchmark((name + "/bare").c_str(), bareView, practice, view)
                ->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark((name + "/ours").c_str(), ourView, practice, view)
                ->Unit(benchmark::kMillisecond);
        }
    }
}
