#pragma once

#include <QString>

/// The one row of the practice's settings, which several routines read; the same statement each time, so that those of
/// one load can be read together.
inline QString SettingsStatement() {
    return QStringLiteral("Select * from settings");
}
