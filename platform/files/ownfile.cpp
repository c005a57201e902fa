#include "platform/files/ownfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace files {

QString OwnFile(const QString& beside, const QString& installed) {
    const QDir home(QCoreApplication::applicationDirPath());
    const QString own = home.filePath(beside);
    const QString packaged = QDir::cleanPath(home.filePath(installed));
    return !QFileInfo::exists(own) && QFileInfo::exists(packaged) ? packaged : own;
}

}  // namespace files
