#pragma once

#include <optional>
#include <QString>

/// The five folders of an installation, without a slash at the end.
struct InstallationFolders {
    QString AppPath, IniPath, DocPath, SharedPath2, SignaturePath;
    friend bool operator==(const InstallationFolders&, const InstallationFolders&) = default;
};

/// Returns the path of installation.ini, the file that describes what a practice installs once for all its desks. It is
/// next to the program, in /etc/svscheduler where a package installed the program, or where the environment variable
/// SVSCHEDULER_INSTALLATION says:
///
///     [Folders]
///     AppPath=/opt/solvane            sounds, help
///     IniPath=/srv/solvane/ini        solvane.ini, svwsched.ini, credentials.ini
///     DocPath=/srv/solvane/documents
///     SharedPath2=/srv/solvane/shared
///     SignaturePath=/srv/solvane/signatures
///     [Scramble]
///     Key=3                           1 to 9, the key of the notes product's passwords
///     [Programs]
///     Notes=/opt/solvane/bin/solvaned the program that session notes are written in
///
/// A missing folder is AppPath. A relative folder or program is taken from the folder of installation.ini.
[[nodiscard]] QString InstallationFile();

/// Returns the folders of the central installation. Returns nothing when the file is missing or names no AppPath, which
/// means that there is no central installation.
[[nodiscard]] std::optional<InstallationFolders> CentralInstallation(const QString& installationFile);

/// Returns the scramble key of the installation, or `otherwise` where the file sets none from 1 to 9.
[[nodiscard]] int InstallationScrambleKey(const QString& installationFile, int otherwise);

/// Returns the path of the notes program: the file's key Notes or, where there is none, solvaned.exe in `appPath`.
[[nodiscard]] QString NotesProgram(const QString& installationFile, const QString& appPath);
