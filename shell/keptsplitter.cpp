#include "shell/keptsplitter.h"

#include <QSplitter>

#include "platform/desktop/userstore.h"

bool KeepSplitter(QSplitter& splitter, const char* key) {
    const QString setting = QString::fromLatin1(key);
    QObject::connect(&splitter, &QSplitter::splitterMoved, &splitter, [&splitter, setting] {
        WriteUserSetting(setting, QString::fromLatin1(splitter.saveState().toBase64()));
    });
    const QString stored = ReadUserSetting(setting);
    return !stored.isEmpty() && splitter.restoreState(QByteArray::fromBase64(stored.toLatin1()));
}
