#include "output/calendarfile.h"

#include <QFileInfo>
#include <QSaveFile>

#include "platform/files/privatefile.h"
#include "platform/files/writeall.h"

namespace {

// To append, the file would be told to go to its end, of which a device complains in the log.
void append(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    const bool isDevice = QFileInfo::exists(path) && !QFileInfo(path).isFile();
    if (!file.open(isDevice ? QIODevice::WriteOnly : QIODevice::Append) || !files::WriteAll(file, bytes))
        throw FileError(file.errorString());
}

}  // namespace

void WriteAnew(const QString& path, const QByteArray& bytes) {
    if (QFileInfo(path).isFile()) {
        QFile before(path);
        if (!before.remove())
            throw FileError(before.errorString());
    }
    const files::OwnerOnly made;
    if (!QFileInfo::exists(path))
        files::MakePrivate(path);
    append(path, bytes);
}

void WriteWhole(const QString& path, const QByteArray& bytes) {
    // A file that is written beside would take the place of a device.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) {
        append(path, bytes);
        return;
    }
    const files::OwnerOnly made;
    const bool isNew = !QFileInfo::exists(path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw FileError(file.errorString());
    if (isNew)
        file.setPermissions(files::PermissionsIn(QFileInfo(path).absolutePath()));
    if (!files::WriteAll(file, bytes) || !file.commit())
        throw FileError(file.errorString());
}
