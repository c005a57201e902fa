#pragma once

#include <optional>
#include <QString>

struct AppOptions;

/// Whether the program starts where there is no practice yet: nothing names one on the command line, no installation is
/// described, and the user's data folder is missing or empty.
[[nodiscard]] bool IsFirstStart(const AppOptions& options, const QString& installationFile);

/// Lets the user begin a practice (frmfirststart). Returns the data folder to open, "" for the user's own, or nothing
/// when the user gave up.
[[nodiscard]] std::optional<QString> BeginPractice(const QString& installationFile);
