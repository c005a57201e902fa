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
#include "platform/database/transaction.h"
#include "platform/files/privatefile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

namespace demo {

namespace {

constexpr const char* Files[]{"practice.db", "companion.db", "svwsched.ini", "solvane.ini"};

// The folder is named by a dot, so that it can be moved as a whole.
constexpr char SolvaneIni[] = "[SQLServer]\r\nDataSource=.\r\nInitialCatalog=practice\r\n\r\n[USER]\r\nUID=REED\r\n";
constexpr char SchedulerIni[] =
    "[PrintLayout]\r\nTitleFont=Arial\r\nTitleFontSize=12\r\nTitleFontBold=True\r\nTitleFontItalic=False\r\n"
    "TimeFont=Arial\r\nTimeFontSize=8.25\r\nTimeFontBold=False\r\nTimeFontItalic=False\r\nTitleAlign=2\r\nTimeUnits=2\r\n"
    "PrintWeekends=0\r\nAllViewCols=5\r\nTaskbar=0\r\n\r\n[General]\r\nNotice=\r\n";

void openNew(db::Connection& connection, const QString& folder, const char* catalog, SchemaScript script) {
    connection.Create(QStringLiteral("Data Source=\"%1\";Initial Catalog=%2;").arg(folder, QLatin1String(catalog)));
    ApplySchema(connection, script);
}

void writeFile(const QString& path, const char* text) {
    QFile file(path);
    if (!files::MakePrivate(path) || !file.open(QIODevice::WriteOnly) || file.write(text) < 0 || !file.flush())
        throw std::runtime_error(
            QStringLiteral("%1 cannot be written: %2.").arg(path, file.errorString()).toStdString());
}

// Moves the files in, solvane.ini last. After a failure, the files that were already moved are removed again.
void moveAllIn(const QDir& from, const QDir& to) {
    QStringList moved;
    for (const char* name : Files) {
        const QString file = QLatin1String(name);
        if (QFile::rename(from.filePath(file), to.filePath(file))) {
            moved.append(file);
            QFile::setPermissions(to.filePath(file), files::PermissionsIn(to.path()));
            continue;
        }
        for (const QString& back : moved)
            QFile::remove(to.filePath(back));
        throw std::runtime_error(QStringLiteral("%1 cannot be moved to %2.").arg(file, to.path()).toStdString());
    }
}

void refuseUsedFolder(const QDir& folder) {
    for (const char* name : Files) {
        const QString path = folder.filePath(QLatin1String(name));
        if (QFile::exists(path))
            throw std::runtime_error(
                QStringLiteral(
                    "%1 is there already. The demo practice goes into a folder without one; nothing was changed.")
                    .arg(path)
                    .toStdString());
    }
}

Summary makeIn(const Options& options, const QDir& target) {
    const QTemporaryDir aside(target.filePath(QStringLiteral(".making-XXXXXX")));
    if (!aside.isValid())
        throw std::runtime_error(QStringLiteral("The folder %1 cannot be written: %2.")
                                     .arg(target.path(), aside.errorString())
                                     .toStdString());
    Summary summary;
    {
        db::Connection main, companion;
        openNew(main, aside.path(), "practice", SchemaScript::Main);
        WriteSchemaVersion(main);
        openNew(companion, aside.path(), "companion", SchemaScript::Companion);
        summary = MakePractice(options, main, companion, {QStringLiteral("."), QStringLiteral("companion")});
    }
    writeFile(aside.filePath(QStringLiteral("svwsched.ini")), SchedulerIni);
    writeFile(aside.filePath(QStringLiteral("solvane.ini")), SolvaneIni);
    moveAllIn(QDir(aside.path()), target);
    // The practice is whole without it.
    if (!options.notesProgram.isEmpty())
        QFile::link(options.notesProgram, target.filePath(QStringLiteral("solvaned.exe")));
    return summary;
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
    const QDir target(folder);
    refuseUsedFolder(target);
    const bool wasThere = target.exists();
    if (!files::MakePrivateFolder(folder))
        throw std::runtime_error(QStringLiteral("The folder %1 cannot be made.").arg(folder).toStdString());
    try {
        return makeIn(options, target);
    } catch (...) {
        if (!wasThere)
            QDir().rmdir(folder);
        throw;
    }
}

}  // namespace demo
