#include <memory>
#include <QApplication>
#include <QPixmap>

#include "appointments/conflicts.h"
#include "appointments/frmnore.h"
#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/shell/fakemainwindow.h"
#include "views/frmsched.h"

using db::Sql;
using db::SqlDate;

namespace {

/// A patient appointment of REED today or later that each round edits.
struct Edited {
    int key = 0;
    QDate date;
    QString patient;
};

Edited editedRow() {
    const db::Recordset row(
        Sql("Select nkeyid, dapptdate, patientid from appointments Where clinicianid = 'REED' and ncolor = 16711681 and dapptdate >= '{}' Order by dapptdate",
            QDate::currentDate()),
        Session().Connection);
    return {static_cast<int>(row[0].integer()), row[1].date(), row[2].text()};
}

constexpr char conflictStatement[] =
    "Select dapptdate, nstarttime, nendtime, cappttext, clinicianid from appointments Where nKeyid <> {} AND appttype <> 4  And Clinicianid = 'REED' AND DApptDate = '{}'  And ((600 Between nstarttime and (nendtime - .1))  OR (660 Between (nstarttime + .1) and nendtime)  OR ((nstarttime + .1) Between 600 And 660)) UNION Select dapptdate, nstarttime, nendtime, cappttext, clinicianid from appointments Where nKeyid <> {} AND appttype <> 4  And PatientId = '{}' AND DApptDate = '{}'  And ((600 Between nstarttime and (nendtime - .1))  OR (660 Between (nstarttime + .1) and nendtime)  OR ((nstarttime + .1) Between 600 And 660));";

void bareConflicts(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const Edited row = editedRow();
    BareDatabase bare(practice.databaseFile().toStdString());
    const std::string statement =
        Sql(conflictStatement, row.key, row.date, row.key, row.patient, row.date).toStdString();
    for (auto _ : state)
        bare.read(statement);
}

void ourConflicts(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const Edited row = editedRow();
    for (auto _ : state)
        benchmark::DoNotOptimize(FindApptConflicts(row.key, row.date, 600, 660, row.patient, QStringLiteral("REED")));
}

void readLists(BareDatabase& bare, int key) {
    for (const char* list :
         {"Select * from session_types Order by sess_cpt_code", "Select * from locations Order by Location",
          "Select * from rooms order by room", "Select * from AptCategories Order by AptCategory"})
        bare.read(list);
    bare.read(Sql("Select * from appointments Where nKeyId = {}", key).toStdString());
}

void bareOpening(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const Edited row = editedRow();
    BareDatabase bare(practice.databaseFile().toStdString());
    for (auto _ : state)
        readLists(bare, row.key);
}

void openEditorOn(const Edited& row) {
    Session().ApptKind = 1;
    Session().IsNewAppt = false;
    Session().CurrentApptKey = row.key;
}

void ourOpening(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const Edited row = editedRow();
    openEditorOn(row);
    for (auto _ : state) {
        frmnore editor;
        editor.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(editor.grab());
    }
}

// The writes of one save, each durable by itself as the editor's are, and the reads of the day that follows.
void bareSave(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const Edited row = editedRow();
    BareDatabase bare(practice.databaseFile().toStdString());
    int round = 0;
    for (auto _ : state) {
        bare.read(Sql("Select * from appointments Where nKeyId = {}", row.key).toStdString());
        bare.read(Sql("Delete  from roomschedule Where apptid = {}", row.key).toStdString());
        bare.read(
            Sql("Update appointments Set CapptNote = '|note {}' Where nkeyid = {}", ++round, row.key).toStdString());
        bare.read(
            Sql("SELECT appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE dapptdate = '{}' and (appointments.clinicianid = 'REED' or appointmentsevents.clinicianid = 'REED') Order by NStartTime, appttype DESC",
                SqlDate(row.date))
                .toStdString());
    }
}

void ourSave(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const Edited row = editedRow();
    FakeMainWindow main(row.date);
    frmsched view(main);
    view.resize(1040, 680);
    view.show();
    QApplication::processEvents();
    QPixmap screen(view.size());
    openEditorOn(row);
    for (auto _ : state) {
        state.PauseTiming();
        auto editor = std::make_unique<frmnore>();
        state.ResumeTiming();
        if (!editor->saveappt(row.key, QStringLiteral("REED")))
            state.SkipWithError("the save failed");
        view.Reload();
        view.render(&screen);
        state.PauseTiming();
        editor.reset();
        state.ResumeTiming();
    }
}

}  // namespace

void RegisterBookingBenches() {
    struct Row {
        const char* name;
        void (*bare)(benchmark::State&, const Practice&);
        void (*ours)(benchmark::State&, const Practice&);
    };
    const Row rows[] = {
        {"Conflict check, provider and patient", bareConflicts, ourConflicts},
        {"Editor on an appointment, opened and painted", bareOpening, ourOpening},
        {"Save of an edit, and the day painted anew", bareSave, ourSave},
    };
    for (const Practice& practice : Practices()) {
        for (const Row& row : rows) {
            const std::string name = std::string(row.name) + '/' + practice.size.toStdString();
            benchmark::RegisterBenchmark((name + "/bare").c_str(), row.bare, practice)->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark((name + "/ours").c_str(), row.ours, practice)->Unit(benchmark::kMillisecond);
        }
    }
}
