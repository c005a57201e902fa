#pragma once

#include <QString>

/// Returns the statement that reads the one row of the practice's settings. Several routines use the same statement, so
/// that the reads of one load can be sent together.
inline QString SettingsStatement() {
    return QStringLiteral("Select * from settings");
}
