#pragma once

#include <optional>
#include <QString>

#include "data/scramble.h"
#include "platform/database/connection.h"
#include "session/view.h"

/// The first hour of a grid and the one that ends it, 0 to 24.
struct ShownHours {
    int first = 0, last = 0;
    friend bool operator==(const ShownHours&, const ShownHours&) = default;
};

/// The values that start-up sets and that every form may read and change. They last until the program ends.
struct SessionValues {
    // Folders and files.
    QString AppPath, IniPath, DocPath, SharedPath2, SignaturePath;
    QString SolvaneIni;    ///< Full path of solvane.ini.
    QString SchedulerIni;  ///< Full path of svwsched.ini.

    // Who is logged on.
    QString UID;                ///< The user's id. It is empty when nobody is logged on.
    QString UserName;           ///< The user's prov_lastname, or "System Administrator".
    int UserType = 0;           ///< pswd_type_of_access; 2 is the System Administrator.
    int ScreenAccess = 0;       ///< 0 none, 1 read only, 2 write, 3 write and delete.
    bool AllProviders = false;  ///< Whether the user may work on every provider's schedule.
    int NotesAccess = 0;        ///< Digit 6 of pswd_screen_access.
    QString OsUserName, ComputerName;
    int ScrambleKey = DefaultScrambleKey;  ///< The key by which the notes product scrambles passwords.

    // Whose schedule is shown, and how.
    QString ProviderId, ProviderName;
    View CurrentView = View::None;
    bool HidePatientNames = false;
    bool SoundEffects = false;

    // The main database.
    QString ConnectionString;
    db::Connection Connection;

    // Preferences and settings.
    int DateOrder = 0;  ///< The system's short-date order: 0 month first, 1 day first, 2 year first.
    bool MilitaryTime = false;
    int TimeUnit = 15;  ///< The minutes of a calendar row: 5, 10, 15, 30 or 60.
    int DayStartHour = 8, DayEndHour = 18;
    /// The hours of the saved view that is shown, for its grid alone: whatever else asks for hours takes the preferred.
    std::optional<ShownHours> SavedHours;
    int VisitLength = 0;  ///< The minutes of a new visit whose end nobody chose; 0 takes a calendar row.
    bool ShowNonPrime = false;
    bool TaskRollOver = false;  ///< Whether completed tasks are hidden.
    QString EmailReminderText;
    bool ALEnabled = false;  ///< Whether the audit log is on.
    QString PhoneMask;
    QString WordUsage;  ///< The practice's word for a patient.
    bool InterfaceSizing = false;
    int InterfaceFontSize = 8;
    QString InterfaceFontName;

    // The companion link.
    QString FHConnectionString;  ///< It is empty when there is no link.
    bool FHAutoExport = false, UseFHSchedView = false;
    QString FHDatabaseId;  ///< It is empty when the link is off.
    int FHProviderId = 0;  ///< 0 when the provider has no counterpart in the companion.
    bool FHLedgerHidden = false;
};

/// Returns the one set of values of the running program.
SessionValues& Session();
/// Closes the connection and sets every value back to its initial one. Tests begin with it.
void ResetSession();
