#include "data/demo/demo.h"

#include "data/demo/appointments.h"
#include "data/demo/companion.h"
#include "data/demo/groups.h"
#include "data/demo/lists.h"
#include "data/demo/patients.h"
#include "data/demo/people.h"
#include "data/demo/schedule.h"
#include "data/demo/tasks.h"
#include "data/schema.h"
#include "data/upkeep/practicefolder.h"
#include "platform/database/transaction.h"

#include <QDir>
#include <QFile>

namespace demo {

namespace {

void openNew(db::Connection& connection, const QString& folder, const char* catalog, SchemaScript script) {
    connection.Create(QStringLiteral("Data Source=\"%1\";Initial Catalog=%2;").arg(folder, QLatin1String(catalog)));
    ApplySchema(connection, script);
}

}  // namespace

Summary MakePractice(const Options& options, db::Connection& main, db::Connection& companion,
                     const CompanionPlace& place) {
    Practice practice;
    practice.options = options;
    MakeSpan(practice);
    MakeLists(practice);
    MakeProviders(practice);
    MakePatients(practice);
    MakeGroups(practice);
    std::vector<Booking> bookings = MakeSchedule(practice);
    const std::vector<Booking> showDay = MakeShowDay(practice);
    bookings.insert(bookings.end(), showDay.begin(), showDay.end());
    FillDetails(practice, bookings);

    Companion keys;
    db::InTransaction(companion, [&] { keys = WriteCompanion(practice, companion); });
    db::InTransaction(main, [&] {
        WriteLists(practice, main);
        WriteSettings(practice, main, place.server, place.catalog);
        WriteProviders(practice, main);
        WritePatients(practice, main);
        WriteGroups(practice, main);
        WriteTasks(practice, main);
        WritePairs(practice, keys, main);
        WriteAppointments(practice, bookings, main);
    });
    db::InTransaction(companion, [&] {
        WriteCompanionSchedule(practice, keys, bookings, companion);
        WriteCompanionEvents(practice, keys, companion);
    });
    return {static_cast<int>(practice.providers.size()), static_cast<int>(practice.patients.size()),
            static_cast<int>(bookings.size()), practice.firstDay, practice.lastDay};
}

Summary MakeDemoFolder(const Options& options, const QString& folder) {
    Summary summary;
    upkeep::MakePracticeFolder(
        folder,
        {.lastUser = QStringLiteral("REED"),
         .databases = {QStringLiteral("practice.db"), QStringLiteral("companion.db")}},
        [&](const QString& aside) {
            db::Connection main, companion;
            openNew(main, aside, "practice", SchemaScript::Main);
            WriteSchemaVersion(main);
            openNew(companion, aside, "companion", SchemaScript::Companion);
            // The folder is named by a dot, so that it can be moved as a whole.
            summary = MakePractice(options, main, companion, {QStringLiteral("."), QStringLiteral("companion")});
        });
    // The practice is whole without it.
    if (!options.notesProgram.isEmpty())
        QFile::link(options.notesProgram, QDir(folder).filePath(QStringLiteral("solvaned.exe")));
    return summary;
}

}  // namespace demo
