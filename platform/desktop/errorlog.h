#pragma once

#include <QString>

/// Returns the folder of the user's state (XDG_STATE_HOME, else ~/.local/state), "svscheduler" in it. The folder may
/// not exist yet.
[[nodiscard]] QString StateFolder();

/// The log in the state folder. It holds the faults of the database and the warnings of the program and of Qt, a line
/// each with the moment, the kind and the text. Whatever stands in quotes in a statement or in the words of a database
/// is left out, so that no patient and no secret is named.
[[nodiscard]] QString ErrorLogFile();

/// Writes warnings and errors into ErrorLogFile from now on, besides wherever they went before. A line that repeats the
/// one before is not written. A file of more than a megabyte becomes errors.log.1, and that one errors.log.2. Where the
/// log cannot be written, the program goes on without it.
void KeepErrorLog();

/// From now on a crash leaves a note in the state folder, with the signal and the routines that were at work, before
/// the program ends as it would have ended without this.
void KeepCrashNotes();

/// Returns the note of the latest crash that was not returned before, with its moment in the first line, or "".
[[nodiscard]] QString TakeCrashNote();
