#pragma once

#include <QString>

/// True for a Data Source that names a folder (or memory) and so an embedded database, which has no password.
[[nodiscard]] bool IsEmbeddedDataSource(const QString& dataSource);

/// The Data Source as a connection text takes it: a folder that is not absolute ("." or "./data") is taken from
/// IniPath, so that a data folder can be moved as a whole. A server's name stays as it is.
[[nodiscard]] QString ResolvedDataSource(const QString& dataSource, const QString& iniPath);

/// The password of the connection, for the tag "SVS" (main database) or "FH" (companion database): the environment
/// variable SVSCHEDULER_PASSWORD_SVS or SVSCHEDULER_PASSWORD_FH, else the key SVS or FH of section [Password] in
/// credentials.ini in `iniPath`. That file must be readable by its owner alone: one that others may read is refused
/// with a message on the program's log. Empty for an embedded database and where nothing is set. A password that holds
/// ";" or a quote comes quoted as connection texts want it.
[[nodiscard]] QString BuildDbPassword(const QString& tag, const QString& dataSource, const QString& iniPath);
