#pragma once

#include <optional>
#include <QString>
#include <QStringList>

#include "data/upkeep/users.h"

namespace upkeep {

/// Writes the rows that the program looks up in every practice: the kinds of numbers of a face sheet with their masks,
/// and the answers to courtesy calls. Throws DatabaseError.
void WriteCodes(db::Connection& main);

/// Makes the data folder of a practice of one desk, with an embedded database and the first user. Either all of it is
/// there or nothing. Throws std::runtime_error with a sentence for the user, and DatabaseError. `key` is the scramble
/// key of the practice's passwords (data/scramble.h).
void MakeOneDeskPractice(const QString& folder, const NewUser& first, int key);

/// A practice's database on a server.
struct ServerPlace {
    QString server;
    QString database;
    QString password;           ///< Of the login SVMaster.
    QString companionPassword;  ///< Of the login FHMaster; empty where there is no companion database.
};

/// What answers at a place.
struct ServerAnswer {
    enum class State {
        Silent,   ///< Nobody, or the login or the database is refused.
        Empty,    ///< A database without tables, in which a practice can begin.
        Foreign,  ///< A database with some of the tables, which lacks those that make a practice.
        Ready     ///< A practice. One of an older version may lack some parts.
    };
    State state = State::Silent;
    QString engine = {};       ///< Who answers, with the version.
    QString why = {};          ///< The server's own words where it is silent.
    QStringList missing = {};  ///< What the practice lacks, as "table" or "table.column".
    bool hasUsers = false;     ///< Whether somebody may log on already.
};

/// Asks the database of a place who it is. It may take as long as a server that does not answer takes. It may be called
/// on any thread.
[[nodiscard]] ServerAnswer AskServer(const ServerPlace& place);

/// Makes the data folder of a desk of a practice on a server. Where the database is empty, its tables are made first,
/// and where nobody may log on yet, the first user. Throws as MakeOneDeskPractice does; tables that were made before a
/// later step failed stay, and the next call goes on with them: where nobody may log on and there are no settings, it
/// writes each first list whose table is empty.
void MakeServerDesk(const QString& folder, const ServerPlace& place, const std::optional<NewUser>& first, int key);

}  // namespace upkeep
