#pragma once

#include <QString>

/// Settings that the program keeps for one user of one computer (window places), under application "Solvane", section
/// "svwschd". They are in an ini file in the user's configuration folder.
[[nodiscard]] QString ReadUserSetting(const QString& key);
void WriteUserSetting(const QString& key, const QString& value);

[[nodiscard]] QString UserStoreFile();
/// Keeps the settings in another file. Tests begin with it.
void SetUserStoreFile(const QString& file);
