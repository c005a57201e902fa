#pragma once

#include <QString>

/// Whether a Data Source names a folder (or memory), and so an embedded database, which has no password.
[[nodiscard]] bool IsEmbeddedDataSource(const QString& dataSource);

/// Returns the Data Source for a connection text. A relative folder ("." or "./data") is taken from `iniPath`, so that
/// a data folder can be moved as a whole. A server's name stays as it is.
[[nodiscard]] QString ResolvedDataSource(const QString& dataSource, const QString& iniPath);

/// Returns the password of a connection, for the tag "SVS" (main database) or "FH" (companion database). It is read
/// from the environment variable SVSCHEDULER_PASSWORD_SVS or SVSCHEDULER_PASSWORD_FH, or else from the key SVS or FH in
/// the section [Password] of credentials.ini in `iniPath`. That file must be readable by its owner alone: a file that
/// others may read is refused with a message on the program's log. The password is empty for an embedded database and
/// where none is set. A password with ";" or a quote in it is returned in quotes, as connection texts need it.
[[nodiscard]] QString BuildDbPassword(const QString& tag, const QString& dataSource, const QString& iniPath);
