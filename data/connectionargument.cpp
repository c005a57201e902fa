#include "data/connectionargument.h"

#include "platform/database/connectiontext.h"

QString WithPassword(const QString& connectionText, const char* variable) {
    const QString password = qEnvironmentVariable(variable);
    if (password.isEmpty() || db::ParseConnectionText(connectionText).contains(QStringLiteral("password")))
        return connectionText;
    QString quoted = password;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    const QString separator = connectionText.trimmed().endsWith(QLatin1Char(';')) ? QString() : QStringLiteral(";");
    return QStringLiteral("%1%2Password=\"%3\";").arg(connectionText, separator, quoted);
}
