#pragma once

#include <QString>

/// Settings that the program keeps for one user of one computer (window places), under application "Solvane", section
/// "svwschd". They are in an ini file in the user's configuration folder.
[[nodiscard]] QString ReadUserSetting(const QString& key);
void WriteUserSetting(const QString& key, const QString& value);

[[nodiscard]] QString UserStoreFile();
/// Returns the folder in which the program keeps files for this user of this computer alone. It is the folder of
/// UserStoreFile, and it is made where it is missing.
[[nodiscard]] QString UserDataFolder();
/// Keeps the settings in another file. Tests begin with it.
void SetUserStoreFile(const QString& file);
