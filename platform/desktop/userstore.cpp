#include "platform/desktop/userstore.h"

#include <QFileInfo>
#include <QStandardPaths>

#include "platform/desktop/inifile.h"
#include "platform/files/privatefile.h"

namespace {

const QString Section = QStringLiteral("svwschd");

QString& chosenFile() {
    static QString file;
    return file;
}

}  // namespace

QString ReadUserSetting(const QString& key) {
    return ReadIniValue(UserStoreFile(), Section, key);
}

void WriteUserSetting(const QString& key, const QString& value) {
    files::MakePrivateFolder(QFileInfo(UserStoreFile()).absolutePath());
    WriteIniValue(UserStoreFile(), Section, key, value);
}

QString UserStoreFile() {
    if (!chosenFile().isEmpty())
        return chosenFile();
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Solvane/svwschd.ini");
}

QString UserDataFolder() {
    const QString folder = QFileInfo(UserStoreFile()).absolutePath();
    files::MakePrivateFolder(folder);
    return folder;
}

void SetUserStoreFile(const QString& file) {
    chosenFile() = file;
}
