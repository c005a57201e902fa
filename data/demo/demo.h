#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// The place of the companion, as the settings row of the main database names it.
struct CompanionPlace {
    QString server;   ///< FHServer: a host, or the folder of an embedded database.
    QString catalog;  ///< FHDatabaseName
};

/// The size and the span of the practice that was made.
struct Summary {
    int providers = 0;
    int patients = 0;
    int appointments = 0;
    QDate firstDay, lastDay;
};

/// Fills two open databases, which have their tables and no rows, with a practice. The rows are the same for the same
/// options on either engine. Each database is filled completely or not at all. A failing write throws its
/// DatabaseError.
Summary MakePractice(const Options& options, db::Connection& main, db::Connection& companion,
                     const CompanionPlace& place);

/// Makes a data folder: practice.db and companion.db with a practice, svwsched.ini and solvane.ini. The files are made
/// elsewhere and moved in at the end, solvane.ini last, so that a folder with solvane.ini has all of them. Throws
/// std::runtime_error, with a sentence for the user, for a folder that already has one of the four files or that cannot
/// be written. Throws DatabaseError when a database fails.
///
/// The folder also gets solvaned.exe, a link to the notes program of the options, where these name one.
Summary MakeDemoFolder(const Options& options, const QString& folder);

}  // namespace demo
