#pragma once

#include <functional>
#include <QDateTime>
#include <QString>
#include <QStringList>

namespace upkeep {

/// The embedded databases of a practice and the ini files beside them.
struct PracticeFiles {
    QString main;       ///< The file of the main database; empty where it is on a server.
    QString companion;  ///< The file of the companion database; empty where there is none or it is on a server.
    QString iniPath;    ///< The folder of solvane.ini.
};

/// Returns the files of the practice whose main database this connection text opens. The companion is the one that the
/// practice's settings name. When the main database cannot be read, the companion is left out.
[[nodiscard]] PracticeFiles FilesOf(const QString& mainText, const QString& iniPath);

/// Is told what was done, and what could not be, one sentence each, as soon as it happens.
using Tell = std::function<void(const QString& sentence)>;

/// Makes a folder named like "svscheduler-20261122-133000" in `folder`, with a copy of each database and of the ini
/// files. Passwords (credentials.ini) are not copied. Desks may go on working. Returns the new folder's path. Either
/// all of it is there or nothing. Throws DatabaseError, and std::runtime_error with a sentence for the user.
QString BackUp(const PracticeFiles& practice, const QString& folder, const QDateTime& now, const Tell& tell);

/// Puts the copies of a folder that BackUp made in the place of the main database that the connection text opens and of
/// the companion that its settings name, and ini files where there are none. The databases that were there are kept
/// beside, named like "practice-before-20261122-133000.db". Throws as BackUp does; what was told before is done.
void Restore(const QString& backup, const QString& mainText, const QString& iniPath, const QDateTime& now,
             const Tell& tell);

}  // namespace upkeep
