#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace db {

/// The fields of a connection text by their keywords in lower case, synonyms brought to one: "data source", "initial
/// catalog", "user id", "password". A value may stand in single or double quotes, doubled inside, to hold a semicolon.
using ConnectionFields = QMap<QString, QString>;
ConnectionFields ParseConnectionText(const QString& connectionText);

/// The file of an embedded database, ":memory:" for a private one; empty when the text names a server.
QString EmbeddedFile(const ConnectionFields& fields);

/// The ODBC connection text for a SQL Server: by the newest of Microsoft's drivers among `drivers`, else by FreeTDS.
/// Both encrypt where the server offers it. The server's certificate is not checked, since the servers of a practice
/// carry self-signed ones.
QString SqlServerText(const ConnectionFields& fields, const QStringList& drivers);

/// The ODBC drivers installed here.
QStringList InstalledOdbcDrivers();

}  // namespace db
