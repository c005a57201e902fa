#include "platform/database/connectiontext.h"

#include <odbcinst.h>

#include <QDir>
#include <QFileInfo>

#include "platform/database/error.h"

namespace db {

namespace {

QString keyword(const QString& written) {
    static const QMap<QString, QString> synonyms{
        {QStringLiteral("server"), QStringLiteral("data source")},
        {QStringLiteral("address"), QStringLiteral("data source")},
        {QStringLiteral("network address"), QStringLiteral("data source")},
        {QStringLiteral("database"), QStringLiteral("initial catalog")},
        {QStringLiteral("uid"), QStringLiteral("user id")},
        {QStringLiteral("user"), QStringLiteral("user id")},
        {QStringLiteral("pwd"), QStringLiteral("password")},
    };
    const QString lower = written.simplified().toLower();
    return synonyms.value(lower, lower);
}

/// Reads the value that starts at `at` and moves `at` behind the semicolon that ends it.
QString takeValue(const QString& text, qsizetype& at) {
    while (at < text.size() && text[at].isSpace())
        ++at;
    QString value;
    const QChar quote = at < text.size() ? text[at] : QChar();
    if (quote == QLatin1Char('"') || quote == QLatin1Char('\'')) {
        for (++at; at < text.size(); ++at) {
            if (text[at] == quote && (at + 1 >= text.size() || text[at + 1] != quote))
                break;
            at += text[at] == quote ? 1 : 0;
            value += text[at];
        }
    }
    const qsizetype end = text.indexOf(QLatin1Char(';'), at);
    if (quote != QLatin1Char('"') && quote != QLatin1Char('\''))
        value = text.sliced(at, (end < 0 ? text.size() : end) - at).trimmed();
    at = end < 0 ? text.size() : end + 1;
    return value;
}

/// Returns database, user and password for an ODBC text. They stand in braces, so that they may hold the characters
/// that end a field. `closing` is how the driver reads a closing brace inside.
QString loginFields(const ConnectionFields& fields, const QString& closing) {
    const auto braced = [&](const char* field) {
        return QLatin1Char('{') + fields.value(QLatin1String(field)).replace(QLatin1Char('}'), closing) +
               QLatin1String("};");
    };
    return QLatin1String("DATABASE=") + braced("initial catalog") + QLatin1String("UID=") + braced("user id") +
           QLatin1String("PWD=") + braced("password");
}

QString microsoftDriver(const QStringList& drivers) {
    QString newest;
    for (const QString& driver : drivers) {
        if (driver.startsWith(QLatin1String("ODBC Driver ")) && driver.endsWith(QLatin1String(" for SQL Server")))
            newest = qMax(newest, driver);
    }
    return newest;
}

}  // namespace

ConnectionFields ParseConnectionText(const QString& connectionText) {
    ConnectionFields fields;
    qsizetype at = 0;
    while (at < connectionText.size()) {
        const qsizetype equals = connectionText.indexOf(QLatin1Char('='), at);
        if (equals < 0)
            break;
        QString name = connectionText.sliced(at, equals - at);
        // A piece without "=" before this field is passed over.
        name = name.sliced(name.lastIndexOf(QLatin1Char(';')) + 1);
        at = equals + 1;
        fields.insert(keyword(name), takeValue(connectionText, at));
    }
    return fields;
}

QString EmbeddedFile(const ConnectionFields& fields) {
    QString source = fields.value(QStringLiteral("data source"));
    if (source == QLatin1String(":memory:"))
        return source;
    if (source != QLatin1String(".") && !source.contains(QLatin1Char('/')))
        return {};
    QString name = fields.value(QStringLiteral("initial catalog"));
    if (name.isEmpty())
        throw DatabaseError(4060, QStringLiteral("The connection text names no database (Initial Catalog)."));
    if (QFileInfo(name).suffix().isEmpty())
        name += QLatin1String(".db");
    return QDir(source).filePath(name);
}

// The language of the session is fixed, because the server would misread 'yyyy/mm/dd' under a language that puts the
// day first.
QString SqlServerText(const ConnectionFields& fields, const QStringList& drivers) {
    const QString server = fields.value(QStringLiteral("data source"));
    const QString microsoft = microsoftDriver(drivers);
    if (!microsoft.isEmpty()) {
        // Every server can encrypt, because one without a certificate makes its own.
        return QStringLiteral(
                   "DRIVER={%1};SERVER=%2;Encrypt=yes;TrustServerCertificate=yes;APP=SVScheduler;LANGUAGE=us_english;")
                   .arg(microsoft, server) +
               loginFields(fields, QStringLiteral("}}"));
    }
    if (fields.value(QStringLiteral("password")).contains(QLatin1String("};")))
        throw DatabaseError(-2147467259, QStringLiteral("The FreeTDS driver cannot send this password."));
    const qsizetype comma = server.indexOf(QLatin1Char(','));
    const QString host = (comma < 0 ? server : server.first(comma)).trimmed();
    QString place = QStringLiteral("SERVER=") + host;
    if (comma >= 0)
        place += QStringLiteral(";PORT=") + server.sliced(comma + 1).trimmed();
    else if (!host.contains(QLatin1Char('\\')))
        place += QStringLiteral(";PORT=1433");
    return QStringLiteral("DRIVER={FreeTDS};") + place +
           QStringLiteral(
               ";TDS_Version=7.4;ClientCharset=UTF-8;Encryption=request;APP=SVScheduler;LANGUAGE=us_english;") +
           loginFields(fields, QStringLiteral("}"));
}

QStringList InstalledOdbcDrivers() {
    constexpr qsizetype room = 16'384;
    QByteArray names(room, '\0');
    WORD length = 0;
    if (!SQLGetInstalledDrivers(names.data(), static_cast<WORD>(names.size()), &length))
        return {};
    QStringList drivers;
    for (const QByteArray& name : names.first(length).split('\0')) {
        if (!name.isEmpty())
            drivers << QString::fromLocal8Bit(name);
    }
    return drivers;
}

}  // namespace db
