#include <QApplication>

#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "followup/frmmsdapt.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Sql;

namespace {

/// A note of REED about a missed appointment.
MissedNoteRequest writtenNote() {
    const db::Recordset row(
        QStringLiteral(
            "Select nkeyid, dapptdate, ncolor, NoteID from appointments Where clinicianid = 'REED' and ncolor = 192 and NoteID > 0 Order by dapptdate DESC"),
        Session().Connection);
    return {static_cast<int>(row["NoteID"].integer()), static_cast<int>(row["nkeyid"].integer()),
            static_cast<int>(row["ncolor"].integer()), row["dapptdate"].date()};
}

void bareNote(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const MissedNoteRequest note = writtenNote();
    BareDatabase bare(practice.databaseFile().toStdString());
    for (auto _ : state) {
        bare.read(Sql("Select * from appointments Where nKeyId = {}", note.ItemKey).toStdString());
        bare.read("Select * from provider_info Where archive = 0 Order by prov_lastname");
        bare.read(
            Sql("Select * from sessions inner join missedappt on sessions.id = missedappt.id Left join SessionSignatures on sessions.id = SessionSignatures.session_id where sessions.id = {}",
                note.NoteId)
                .toStdString());
    }
}

void ourNote(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const MissedNoteRequest note = writtenNote();
    for (auto _ : state) {
        frmmsdApt form(note);
        form.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(form.grab());
    }
}

}  // namespace

void RegisterNoteBenches() {
    for (const Practice& practice : Practices()) {
        const std::string name = "Missed-appointment note, opened and painted/" + practice.size.toStdString();
        benchmark::RegisterBenchmark((name + "/bare").c_str(), bareNote, practice)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), ourNote, practice)->Unit(benchmark::kMillisecond);
    }
}
