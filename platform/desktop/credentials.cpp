#include "platform/desktop/credentials.h"

#include <QDir>
#include <QFileInfo>

#include "platform/desktop/inifile.h"

namespace {

constexpr QFileDevice::Permissions Others =
    QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ReadOther | QFileDevice::WriteOther;

QString passwordInFile(const QString& tag, const QString& file) {
    const QFileInfo info(file);
    if (!info.exists())
        return {};
    if (info.permissions() & Others) {
        qWarning("%s holds a password and may be read by others: it is not used. Run: chmod 600 %s",
                 qUtf8Printable(file), qUtf8Printable(file));
        return {};
    }
    return ReadIniValue(file, QStringLiteral("Password"), tag);
}

QString asConnectionValue(const QString& password) {
    const bool plain = !password.contains(u';') && !password.contains(u'"') && !password.contains(u'\'') &&
                       password.trimmed() == password;
    if (plain)
        return password;
    return u'"' + QString(password).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

}  // namespace

bool IsEmbeddedDataSource(const QString& dataSource) {
    return dataSource.contains(u'/') || dataSource == QStringLiteral(".") || dataSource == QStringLiteral(":memory:");
}

QString ResolvedDataSource(const QString& dataSource, const QString& iniPath) {
    if (!IsEmbeddedDataSource(dataSource) || dataSource == QStringLiteral(":memory:"))
        return dataSource;
    return QDir::cleanPath(QDir(iniPath).absoluteFilePath(dataSource));
}

QString BuildDbPassword(const QString& tag, const QString& dataSource, const QString& iniPath) {
    if (IsEmbeddedDataSource(dataSource))
        return {};
    const QByteArray variable = "SVSCHEDULER_PASSWORD_" + tag.toLatin1();
    const QString password = qEnvironmentVariableIsSet(variable.constData())
                                 ? qEnvironmentVariable(variable.constData())
                                 : passwordInFile(tag, iniPath + QStringLiteral("/credentials.ini"));
    return asConnectionValue(password);
}
