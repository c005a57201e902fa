#include "data/upkeep/practicefiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <stdexcept>

#include "data/settings.h"
#include "platform/database/connectiontext.h"
#include "platform/database/embedded/copyfile.h"
#include "platform/database/recordset.h"
#include "platform/desktop/credentials.h"
#include "platform/files/privatefile.h"

namespace upkeep {

namespace {

constexpr const char* IniFiles[] = {"solvane.ini", "svwsched.ini"};
const QString MainCopy = QStringLiteral("main.db");
const QString CompanionCopy = QStringLiteral("companion.db");

[[noreturn]] void fail(const QString& why) {
    throw std::runtime_error(why.toStdString());
}

QString stamp(const QDateTime& now) {
    return now.toString(QStringLiteral("yyyyMMdd-HHmmss"));
}

QString companionFile(const QString& mainText, const QString& iniPath) {
    QString file;
    db::Ignoring([&] {
        db::Connection main;
        main.Open(mainText);
        const db::Recordset settings(SettingsStatement(), main);
        if (settings.Eof() || settings["FHServer"].text().isEmpty() || settings["FHDatabaseName"].text().isEmpty())
            return;
        file =
            db::EmbeddedFile({{QStringLiteral("data source"), ResolvedDataSource(settings["FHServer"].text(), iniPath)},
                              {QStringLiteral("initial catalog"), settings["FHDatabaseName"].text()}});
    });
    return file;
}

/// Removes the folder with what is in it when it is destroyed, unless it was kept.
class NewFolder {
  public:
    explicit NewFolder(const QString& path) : folder_(path) {
        if (folder_.exists() || !files::MakePrivateFolder(path))
            fail(QStringLiteral("The folder %1 cannot be made.").arg(path));
    }
    ~NewFolder() {
        if (!kept_)
            folder_.removeRecursively();
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;
    [[nodiscard]] QString File(const QString& name) const { return folder_.filePath(name); }
    void Keep() { kept_ = true; }

  private:
    QDir folder_;
    bool kept_ = false;
};

void copyIni(const QString& from, const QString& to) {
    if (!QFileInfo::exists(from) || QFileInfo::exists(to))
        return;
    if (!QFile::copy(from, to))
        fail(QStringLiteral("The file %1 cannot be written.").arg(to));
    files::KeepPrivate(to);
}

QString beforeName(const QString& file, const QDateTime& now) {
    const QFileInfo info(file);
    return info.dir().filePath(
        QStringLiteral("%1-before-%2.%3").arg(info.completeBaseName(), stamp(now), info.suffix()));
}

void restoreOne(const QString& copy, const QString& to, const QDateTime& now, const Tell& tell) {
    const bool wasThere = QFileInfo::exists(to);
    const QString before = beforeName(to, now);
    db::RestoreDatabaseFile(copy, to, before);
    tell(QStringLiteral("%1 is as it was in the backup.").arg(to));
    if (wasThere)
        tell(QStringLiteral("What was there before is kept in %1.").arg(before));
}

}  // namespace

PracticeFiles FilesOf(const QString& mainText, const QString& iniPath) {
    PracticeFiles practice;
    practice.iniPath = iniPath;
    practice.main = db::EmbeddedFile(db::ParseConnectionText(mainText));
    if (!practice.main.isEmpty())
        practice.companion = companionFile(mainText, iniPath);
    return practice;
}

QString BackUp(const PracticeFiles& practice, const QString& folder, const QDateTime& now, const Tell& tell) {
    const QString path = QDir(folder).filePath(QStringLiteral("svscheduler-") + stamp(now));
    NewFolder backup(path);
    db::CopyDatabaseFile(practice.main, backup.File(MainCopy));
    if (QFileInfo::exists(practice.companion))
        db::CopyDatabaseFile(practice.companion, backup.File(CompanionCopy));
    else if (!practice.companion.isEmpty())
        tell(QStringLiteral("The companion database %1 is not there, so it is not in the backup.")
                 .arg(practice.companion));
    for (const char* name : IniFiles)
        copyIni(QDir(practice.iniPath).filePath(QLatin1String(name)), backup.File(QLatin1String(name)));
    backup.Keep();
    return path;
}

void Restore(const QString& backup, const QString& mainText, const QString& iniPath, const QDateTime& now,
             const Tell& tell) {
    const QDir copies(backup);
    if (!copies.exists(MainCopy))
        fail(QStringLiteral("%1 is no backup: there is no %2 in it.").arg(backup, MainCopy));
    restoreOne(copies.filePath(MainCopy), db::EmbeddedFile(db::ParseConnectionText(mainText)), now, tell);
    // Only the settings that are back tell where the companion belongs.
    const QString companion = companionFile(mainText, iniPath);
    if (copies.exists(CompanionCopy) && !companion.isEmpty())
        restoreOne(copies.filePath(CompanionCopy), companion, now, tell);
    else if (copies.exists(CompanionCopy))
        tell(
            QStringLiteral("The companion database of the backup was not put back: the settings name no file for it."));
    for (const char* name : IniFiles)
        copyIni(copies.filePath(QLatin1String(name)), QDir(iniPath).filePath(QLatin1String(name)));
}

}  // namespace upkeep
