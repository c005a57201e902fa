#include "platform/desktop/installation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "platform/desktop/inifile.h"

namespace {

QString pathOf(const QString& file, const char* section, const char* key, const QString& otherwise) {
    const QString path = ReadIniValue(file, QString::fromLatin1(section), QString::fromLatin1(key));
    if (path.isEmpty())
        return otherwise;
    return QDir::cleanPath(QFileInfo(file).absoluteDir().absoluteFilePath(path));
}

QString folderOf(const QString& file, const char* key, const QString& otherwise) {
    return pathOf(file, "Folders", key, otherwise);
}

}  // namespace

QString InstallationFile() {
    const QString named = qEnvironmentVariable("SVSCHEDULER_INSTALLATION");
    if (!named.isEmpty())
        return named;
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/installation.ini");
    const QString packaged = QStringLiteral("/etc/svscheduler/installation.ini");
    return !QFileInfo::exists(beside) && QFileInfo::exists(packaged) ? packaged : beside;
}

std::optional<InstallationFolders> CentralInstallation(const QString& installationFile) {
    const QString application = folderOf(installationFile, "AppPath", {});
    if (application.isEmpty())
        return std::nullopt;
    return InstallationFolders{application, folderOf(installationFile, "IniPath", application),
                               folderOf(installationFile, "DocPath", application),
                               folderOf(installationFile, "SharedPath2", application),
                               folderOf(installationFile, "SignaturePath", application)};
}

int InstallationScrambleKey(const QString& installationFile, int otherwise) {
    const int key = ReadIniValue(installationFile, QStringLiteral("Scramble"), QStringLiteral("Key")).toInt();
    return key >= 1 && key <= 9 ? key : otherwise;
}

QString NotesProgram(const QString& installationFile, const QString& appPath) {
    return pathOf(installationFile, "Programs", "Notes", appPath + QStringLiteral("/solvaned.exe"));
}
