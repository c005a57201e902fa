#include "people/mailtarget.h"

#include <QRegularExpression>
#include <QUrl>

#include "platform/text/plaintext.h"

QString MailTarget(const QString& address) {
    QStringList escaped;
    static const QRegularExpression separator(QStringLiteral("[,;]"));
    for (const QString& one : OneLine(address).split(separator, Qt::SkipEmptyParts))
        if (!one.trimmed().isEmpty())
            escaped << QString::fromLatin1(QUrl::toPercentEncoding(one.trimmed(), "@"));
    return QStringLiteral("mailto:") + escaped.join(QLatin1Char(','));
}
