#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace db {

/// The fields of a connection text by keyword. Keywords are in lower case, and synonyms are brought to one: "data
/// source", "initial catalog", "user id", "password". A value may stand in single or double quotes, doubled inside, so
/// that it can hold a semicolon.
using ConnectionFields = QMap<QString, QString>;
ConnectionFields ParseConnectionText(const QString& connectionText);

/// Returns the path of the embedded database's file, ":memory:" for a private database, or an empty text when the
/// fields name a server. Throws 4060 when a folder is given without the database's name.
QString EmbeddedFile(const ConnectionFields& fields);

/// Returns the ODBC connection text for a SQL Server. It names the newest of Microsoft's drivers among `drivers`, or
/// FreeTDS where there is none. Both encrypt where the server offers it. The server's certificate is not checked,
/// because the servers of a practice carry self-signed ones. Throws DatabaseError for a password that FreeTDS cannot
/// send.
QString SqlServerText(const ConnectionFields& fields, const QStringList& drivers);

/// Returns the names of the ODBC drivers installed on this computer.
QStringList InstalledOdbcDrivers();

}  // namespace db
