#pragma once

#include <QString>

/// Returns the connection text of a practice's main database, as solvane.ini in `iniPath` names it (section SQLServer,
/// keys DataSource and InitialCatalog), with the login SVMaster and its password (BuildDbPassword).
[[nodiscard]] QString PracticeConnectionText(const QString& iniPath);
