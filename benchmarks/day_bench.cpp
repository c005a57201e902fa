#include <memory>
#include <QApplication>
#include <QPixmap>

#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/views/fakemainwindow.h"
#include "views/frmsched.h"

namespace {

constexpr int daysWalked = 60;

// The days around today on which the practice works, so that each load finds other rows than the last.
QDate dayOf(int round) {
    QDate date = QDate::currentDate().addDays(-daysWalked / 2 + round % daysWalked);
    while (date.dayOfWeek() > 5)
        date = date.addDays(1);
    return date;
}

// The three statements of one load.
void readBare(BareDatabase& bare, QDate date) {
    const QString day = db::SqlDate(date);
    bare.read(
        db::Sql(
            "SELECT appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE dapptdate = '{}' and (appointments.clinicianid = 'REED' or appointmentsevents.clinicianid = 'REED') Order by NStartTime, appttype DESC",
            day)
            .toStdString());
    bare.read(
        db::Sql(
            "Select * from Holidays where HolidayDate = '{}' or (HolidayRepeat = 1 and MONTH(HolidayDate) = MONTH('{}') and Day(HolidayDate) = Day('{}'))",
            day, day, day)
            .toStdString());
    bare.read(
        db::Sql("Select * from ProvSched Where providerid = 'REED' and workdayvalue = {}", date.dayOfWeek() % 7 + 1)
            .toStdString());
}

void bareDay(benchmark::State& state, const Practice& practice) {
    BareDatabase bare(practice.databaseFile().toStdString());
    int round = 0;
    for (auto _ : state)
        readBare(bare, dayOf(round++));
}

// From the call to the painted widget, on a window of the size a front desk uses.
void ourDay(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    FakeMainWindow main(QDate::currentDate());
    frmsched view(main);
    view.resize(1040, 680);
    view.show();
    QApplication::processEvents();
    QPixmap screen(view.size());
    int round = 0;
    for (auto _ : state) {
        main.SetDate(dayOf(round++));
        view.Reload();
        view.render(&screen);
    }
}

}  // namespace

void RegisterDayBenches() {
    for (const Practice& practice : Practices()) {
        const std::string name = "LoadDayView, call to painted/" + practice.size.toStdString();
        benchmark::RegisterBenchmark((name + "/bare").c_str(), bareDay, practice)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), ourDay, practice)->Unit(benchmark::kMillisecond);
    }
}
