#include "platform/mail/smtplog.h"

#include <QFile>
#include <QFileInfo>

#include "platform/files/privatefile.h"

namespace mail {

namespace {

constexpr qint64 LargestLog = 1'048'576;

void putAsideWhenLarge(const QString& file) {
    if (QFileInfo(file).size() <= LargestLog)
        return;
    const QString old = file + QStringLiteral(".old");
    QFile::remove(old);
    QFile::rename(file, old);
}

}  // namespace

void AddToLog(const QString& file, const QByteArray& text) {
    if (file.isEmpty())
        return;
    putAsideWhenLarge(file);
    if (!files::MakePrivate(file))
        return;
    QFile log(file);
    if (log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        log.write(text);
}

}  // namespace mail
