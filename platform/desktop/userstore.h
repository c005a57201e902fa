#pragma once

#include <QString>

/// What the program remembers for one user of one computer (window places), under application "Solvane", section
/// "svwschd". Here it is an ini file in the user's configuration folder.
[[nodiscard]] QString ReadUserSetting(const QString& key);
void WriteUserSetting(const QString& key, const QString& value);

[[nodiscard]] QString UserStoreFile();
/// Keeps the store in another file; tests begin with it.
void SetUserStoreFile(const QString& file);
