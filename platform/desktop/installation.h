#pragma once

#include <optional>
#include <QString>

/// The five folders of an installation, without a slash at the end.
struct InstallationFolders {
    QString AppPath, IniPath, DocPath, SharedPath2, SignaturePath;
    friend bool operator==(const InstallationFolders&, const InstallationFolders&) = default;
};

/// What a practice installs once for all its desks is told by one file, installation.ini, next to the program or where
/// the environment variable SVSCHEDULER_INSTALLATION says:
///
///     [Folders]
///     AppPath=/opt/solvane            sounds, help
///     IniPath=/srv/solvane/ini        solvane.ini, svwsched.ini, credentials.ini
///     DocPath=/srv/solvane/documents
///     SharedPath2=/srv/solvane/shared
///     SignaturePath=/srv/solvane/signatures
///     [Scramble]
///     Key=3                           1 to 9, the key of the notes product's passwords
///
/// A folder that is left out is AppPath; one that is not absolute is taken from the place of installation.ini.
[[nodiscard]] QString InstallationFile();

/// The folders of the central installation; nothing when the file is missing or names no AppPath, which means that
/// there is no central installation.
[[nodiscard]] std::optional<InstallationFolders> CentralInstallation(const QString& installationFile);

/// The scramble key of the installation; `otherwise` where the file sets none from 1 to 9.
[[nodiscard]] int InstallationScrambleKey(const QString& installationFile, int otherwise);
