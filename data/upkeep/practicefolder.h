#pragma once

#include <functional>
#include <QString>
#include <QStringList>

namespace upkeep {

/// What a new practice's data folder holds.
struct NewPracticeFolder {
    QString dataSource = QStringLiteral(".");  ///< The server, or "." for databases in the folder itself.
    QString catalog = QStringLiteral("practice");
    QString lastUser = {};           ///< Whom the logon offers first.
    QStringList databases = {};      ///< The files that `make` makes, such as "practice.db".
    QString mainPassword = {};       ///< The password of the login SVMaster on a server.
    QString companionPassword = {};  ///< The password of the login FHMaster on a server.
};

/// Makes a practice's data folder: solvane.ini, svwsched.ini, the databases and, where there is a password,
/// credentials.ini, which its owner alone can read. `make` makes the databases in a folder aside, from which everything
/// is moved in, so that either all of it is there or nothing. The folder itself is made when it is missing. Throws
/// std::runtime_error, with a sentence for the user, also where the folder has one of the files already, and what
/// `make` throws.
void MakePracticeFolder(const QString& folder, const NewPracticeFolder& contents,
                        const std::function<void(const QString& aside)>& make);

}  // namespace upkeep
