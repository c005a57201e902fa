#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Where the settings row of the main database finds the companion.
struct CompanionPlace {
    QString server;   ///< FHServer: a host, or the folder of an embedded database.
    QString catalog;  ///< FHDatabaseName
};

/// What was made.
struct Summary {
    int providers = 0;
    int patients = 0;
    int appointments = 0;
    QDate firstDay, lastDay;
};

/// Fills two open databases, which have their tables and no rows, with a practice: the same rows for the same options,
/// on either engine. Each database is filled whole or not at all. A failing write throws its DatabaseError.
Summary MakePractice(const Options& options, db::Connection& main, db::Connection& companion,
                     const CompanionPlace& place);

/// Makes a data folder: practice.db and companion.db with a practice, svwsched.ini and solvane.ini. The files are made
/// aside and moved in when all is done, solvane.ini last, so that whoever finds solvane.ini finds all of them. Throws
/// std::runtime_error, with a sentence for the user, for a folder that already holds one of the four or that cannot be
/// written, and DatabaseError.
Summary MakeDemoFolder(const Options& options, const QString& folder);

}  // namespace demo
