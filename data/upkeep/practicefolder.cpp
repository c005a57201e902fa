#include "data/upkeep/practicefolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

#include "platform/desktop/inifile.h"
#include "platform/files/privatefile.h"

namespace upkeep {

namespace {

constexpr char SchedulerIni[] =
    "[PrintLayout]\r\nTitleFont=Arial\r\nTitleFontSize=12\r\nTitleFontBold=True\r\nTitleFontItalic=False\r\n"
    "TimeFont=Arial\r\nTimeFontSize=8.25\r\nTimeFontBold=False\r\nTimeFontItalic=False\r\nTitleAlign=2\r\nTimeUnits=2\r\n"
    "PrintWeekends=0\r\nAllViewCols=5\r\nTaskbar=0\r\n\r\n[General]\r\nNotice=\r\n";

[[noreturn]] void fail(const QString& sentence) {
    throw std::runtime_error(sentence.toStdString());
}

bool hasPassword(const NewPracticeFolder& contents) {
    return !contents.mainPassword.isEmpty() || !contents.companionPassword.isEmpty();
}

/// The files in the order in which they are moved in. A folder with solvane.ini is a practice, so that is the last.
QStringList filesOf(const NewPracticeFolder& contents) {
    QStringList files = contents.databases;
    if (hasPassword(contents))
        files << QStringLiteral("credentials.ini");
    return files << QStringLiteral("svwsched.ini") << QStringLiteral("solvane.ini");
}

void writeFile(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (!files::MakePrivate(path) || !file.open(QIODevice::WriteOnly) || file.write(text) < 0 || !file.flush())
        fail(QStringLiteral("%1 cannot be written: %2.").arg(path, file.errorString()));
}

void writeValue(const QString& file, const char* section, const char* key, const QString& value) {
    if (!WriteIniValue(file, QString::fromLatin1(section), QString::fromLatin1(key), value))
        fail(QStringLiteral("%1 cannot be written.").arg(file));
}

void writeIniFiles(const QDir& folder, const NewPracticeFolder& contents) {
    writeFile(folder.filePath(QStringLiteral("svwsched.ini")), SchedulerIni);
    const QString solvane = folder.filePath(QStringLiteral("solvane.ini"));
    writeFile(solvane, {});
    writeValue(solvane, "SQLServer", "DataSource", contents.dataSource);
    writeValue(solvane, "SQLServer", "InitialCatalog", contents.catalog);
    if (!contents.lastUser.isEmpty())
        writeValue(solvane, "USER", "UID", contents.lastUser);
    if (!hasPassword(contents))
        return;
    const QString credentials = folder.filePath(QStringLiteral("credentials.ini"));
    writeFile(credentials, {});
    if (!contents.mainPassword.isEmpty())
        writeValue(credentials, "Password", "SVS", contents.mainPassword);
    if (!contents.companionPassword.isEmpty())
        writeValue(credentials, "Password", "FH", contents.companionPassword);
}

// After a failure, the files that were already moved are removed again.
void moveAllIn(const QDir& from, const QDir& to, const QStringList& names) {
    QStringList moved;
    for (const QString& name : names) {
        if (QFile::rename(from.filePath(name), to.filePath(name))) {
            moved.append(name);
            // Passwords stay their owner's in a shared folder too.
            if (name != QLatin1String("credentials.ini"))
                QFile::setPermissions(to.filePath(name), files::PermissionsIn(to.path()));
            continue;
        }
        for (const QString& back : moved)
            QFile::remove(to.filePath(back));
        fail(QStringLiteral("%1 cannot be moved to %2.").arg(name, to.path()));
    }
}

void refuseUsedFolder(const QDir& folder, const QStringList& names) {
    for (const QString& name : names) {
        const QString path = folder.filePath(name);
        if (QFile::exists(path))
            fail(QStringLiteral(
                     "%1 is there already. A new practice goes into a folder without one; nothing was changed.")
                     .arg(path));
    }
}

}  // namespace

void MakePracticeFolder(const QString& folder, const NewPracticeFolder& contents,
                        const std::function<void(const QString& aside)>& make) {
    const QDir target(folder);
    const QStringList names = filesOf(contents);
    refuseUsedFolder(target, names);
    const bool wasThere = target.exists();
    if (!files::MakePrivateFolder(folder))
        fail(QStringLiteral("The folder %1 cannot be made.").arg(folder));
    try {
        const QTemporaryDir aside(target.filePath(QStringLiteral(".making-XXXXXX")));
        if (!aside.isValid())
            fail(QStringLiteral("The folder %1 cannot be written: %2.").arg(folder, aside.errorString()));
        make(aside.path());
        writeIniFiles(QDir(aside.path()), contents);
        moveAllIn(QDir(aside.path()), target, names);
    } catch (...) {
        if (!wasThere)
            QDir().rmdir(folder);
        throw;
    }
}

}  // namespace upkeep
