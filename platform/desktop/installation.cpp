#include "platform/desktop/installation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "platform/desktop/inifile.h"

namespace {

QString folderOf(const QString& file, const char* key, const QString& otherwise) {
    const QString folder = ReadIniValue(file, QStringLiteral("Folders"), QString::fromLatin1(key));
    if (folder.isEmpty())
        return otherwise;
    return QDir::cleanPath(QFileInfo(file).absoluteDir().absoluteFilePath(folder));
}

}  // namespace

QString InstallationFile() {
    const QString named = qEnvironmentVariable("SVSCHEDULER_INSTALLATION");
    return named.isEmpty() ? QCoreApplication::applicationDirPath() + QStringLiteral("/installation.ini") : named;
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
