#include "people/mailtarget.h"

#include <QUrl>

#include "platform/text/plaintext.h"

QString MailTarget(const QString& address) {
    QStringList escaped;
    for (const QString& one : OneLine(address).split(QLatin1Char(','), Qt::SkipEmptyParts))
        if (!one.trimmed().isEmpty())
            escaped << QString::fromLatin1(QUrl::toPercentEncoding(one.trimmed(), "@"));
    return QStringLiteral("mailto:") + escaped.join(QLatin1Char(','));
}
