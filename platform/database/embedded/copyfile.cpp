#include "platform/database/embedded/copyfile.h"

#include <unistd.h>

#include <cstdio>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "platform/database/embedded/faults.h"
#include "platform/database/embedded/functions.h"
#include "platform/database/embedded/sqlitehandle.h"
#include "platform/files/privatefile.h"

namespace db {

using embedded::DatabaseHandle;

namespace {

constexpr int BusyMilliseconds = 10'000;
constexpr int RefusedFile = SQLITE_CANTOPEN;

QString nameOf(const QString& file) {
    return QFileInfo(file).completeBaseName();
}

DatabaseHandle opened(const QString& file) {
    if (!QFileInfo::exists(file))
        throw embedded::MissingDatabase(nameOf(file));
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    DatabaseHandle database(handle);
    if (code != SQLITE_OK)
        throw embedded::OpeningFault(code, nameOf(file));
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, BusyMilliseconds);
    embedded::RegisterDialect(handle, nullptr);  // Reading through an index needs the order in which it was made.
    return database;
}

void run(sqlite3* handle, const char* statement, const QString& file) {
    if (sqlite3_exec(handle, statement, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw embedded::FaultOf(handle, 0, nameOf(file), QString::fromLatin1(statement));
}

/// Removes the file when it is destroyed, unless it was kept.
class NewFile {
  public:
    explicit NewFile(QString path) : path_(std::move(path)) {}
    ~NewFile() {
        if (kept_)
            return;
        for (const char* part : {"", "-wal", "-shm", "-journal"})
            QFile::remove(path_ + QLatin1String(part));
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    void Keep() { kept_ = true; }

  private:
    QString path_;
    bool kept_ = false;
};

void copyPages(sqlite3* from, sqlite3* to, const QString& source, const QString& target) {
    sqlite3_backup* backup = sqlite3_backup_init(to, "main", from, "main");
    if (backup == nullptr)
        throw embedded::FaultOf(to, 0, nameOf(target), {});
    // All pages in one step are read as one moment's state, whatever other desks write meanwhile.
    const int code = sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    if (code != SQLITE_DONE)
        throw sqlite3_errcode(to) == SQLITE_OK ? embedded::FaultOf(from, 0, nameOf(source), {})
                                               : embedded::FaultOf(to, 0, nameOf(target), {});
}

void requireSound(const QString& file) {
    const QStringList damages = DamagesOf(file);
    if (!damages.isEmpty())
        throw DatabaseError(SQLITE_CORRUPT,
                            QStringLiteral("The file \"%1\" is damaged: %2").arg(file, damages.first()));
}

/// Gives the file a second name, or where the disk knows none, another name. The file is not read, because closing it
/// would give up this program's locks on it.
bool keepAs(const QString& file, const QString& name) {
    const QByteArray from = QFile::encodeName(file);
    const QByteArray to = QFile::encodeName(name);
    return !QFileInfo::exists(name) &&
           (::link(from.constData(), to.constData()) == 0 || std::rename(from.constData(), to.constData()) == 0);
}

/// Keeps all desks out until the handle is closed. A file that is no sound database has no desk to keep out.
void takeAlone(sqlite3* handle, const QString& file) {
    try {
        // Leaving the log needs the database for this handle alone: where a desk has it open, this fails.
        run(handle, "Pragma journal_mode = DELETE", file);
        run(handle, "Begin Exclusive", file);
    } catch (const DatabaseError&) {
        const int code = sqlite3_errcode(handle) & 0xFF;
        if (code != SQLITE_NOTADB && code != SQLITE_CORRUPT)
            throw;
    }
}

}  // namespace

QStringList DamagesOf(const QString& file) {
    const DatabaseHandle database = opened(file);
    const auto check = embedded::Prepare(database.get(), "Pragma quick_check(20)");
    QStringList damages;
    int code = SQLITE_ERROR;
    while (check && (code = sqlite3_step(check.get())) == SQLITE_ROW) {
        const std::string_view text = embedded::ColumnText(check.get(), 0);
        damages << QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
    // A file can be too much damaged to be read through.
    const bool isDamaged = (code & 0xFF) == SQLITE_CORRUPT;
    if (code != SQLITE_DONE && !isDamaged)
        throw embedded::FaultOf(database.get(), 0, nameOf(file), {});
    if (isDamaged)
        damages << embedded::FaultOf(database.get(), 0, nameOf(file), {}).description;
    return damages == QStringList{QStringLiteral("ok")} ? QStringList() : damages;
}

void CopyDatabaseFile(const QString& from, const QString& to) {
    const DatabaseHandle source = opened(from);
    if (QFileInfo::exists(to))
        throw DatabaseError(RefusedFile, QStringLiteral("There is a file \"%1\" already.").arg(to));
    if (!files::MakePrivate(to))
        throw DatabaseError(RefusedFile, QStringLiteral("The file \"%1\" cannot be made.").arg(to));
    NewFile made(to);
    {
        const DatabaseHandle target = opened(to);
        copyPages(source.get(), target.get(), from, to);
        // A copy is one file, without a log beside it. The program turns the log on again when it opens the file.
        run(target.get(), "Pragma journal_mode = DELETE", to);
    }
    requireSound(to);
    made.Keep();
}

void RestoreDatabaseFile(const QString& copy, const QString& to, const QString& before) {
    const QString beside = to + QStringLiteral(".restored");
    QFile::remove(beside);
    CopyDatabaseFile(copy, beside);
    NewFile made(beside);
    DatabaseHandle old;
    if (QFileInfo::exists(to)) {
        old = opened(to);
        takeAlone(old.get(), to);
        if (!keepAs(to, before))
            throw DatabaseError(RefusedFile, QStringLiteral("The file \"%1\" cannot be made.").arg(before));
    }
    // A log that was left beside a damaged file would be taken for a part of the restored one.
    for (const char* part : {"-wal", "-shm"})
        QFile::remove(to + QLatin1String(part));
    if (std::rename(QFile::encodeName(beside).constData(), QFile::encodeName(to).constData()) != 0)
        throw DatabaseError(RefusedFile, QStringLiteral("The file \"%1\" cannot be written.").arg(to));
    made.Keep();
}

}  // namespace db
