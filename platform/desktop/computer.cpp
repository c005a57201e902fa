#include "platform/desktop/computer.h"

#include <pwd.h>
#include <unistd.h>
#include <QSysInfo>

namespace {

QString orUnknown(const QString& name) {
    return name.isEmpty() ? QStringLiteral("UNKNOWN") : name;
}

}  // namespace

QString OsUserName() {
    const passwd* account = getpwuid(geteuid());
    return orUnknown(account ? QString::fromLocal8Bit(account->pw_name) : QString());
}

QString ComputerName() {
    return orUnknown(QSysInfo::machineHostName());
}
