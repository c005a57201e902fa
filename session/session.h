#pragma once

#include <QString>

#include "data/scramble.h"
#include "platform/database/connection.h"
#include "session/view.h"

/// The values that start-up sets and that every form reads and writes. They live for the run.
struct SessionValues {
    // Folders and files.
    QString AppPath, IniPath, DocPath, SharedPath2, SignaturePath;
    QString SolvaneIni;    ///< Full path of solvane.ini.
    QString SchedulerIni;  ///< Full path of svwsched.ini.

    // Who is logged on.
    QString UID;                ///< Empty means nobody.
    QString UserName;           ///< prov_lastname of the user, or "System Administrator".
    int UserType = 0;           ///< pswd_type_of_access; 2 is the System Administrator.
    int ScreenAccess = 0;       ///< 0 none, 1 read only, 2 write, 3 write and delete.
    bool AllProviders = false;  ///< May work on every provider's schedule.
    int NotesAccess = 0;        ///< Digit 6 of pswd_screen_access.
    QString OsUserName, ComputerName;
    int ScrambleKey = DefaultScrambleKey;  ///< By which the notes product stores passwords.

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
    int TimeUnit = 15;  ///< Minutes of a calendar row: 5, 10, 15, 30 or 60.
    int DayStartHour = 8, DayEndHour = 18;
    bool ShowNonPrime = false;
    bool TaskRollOver = false;  ///< Hide completed tasks.
    QString EmailReminderText;
    bool ALEnabled = false;  ///< The audit log is on.
    QString PhoneMask;
    QString WordUsage;  ///< The practice's word for a patient.
    bool InterfaceSizing = false;
    int InterfaceFontSize = 8;
    QString InterfaceFontName;

    // The companion link.
    QString FHConnectionString;  ///< Empty: no link.
    bool FHAutoExport = false, UseFHSchedView = false;
    QString FHDatabaseId;  ///< Empty: the link is off.
    int FHProviderId = 0;  ///< 0: no pair.
    bool FHLedgerHidden = false;

    // What commands and dialogs leave for each other.
    int ApptKind = 0;  ///< 1 patient appointment, 2 Activity/Event, 3 Unavailable Time, 4 appointment type.
    bool IsNewAppt = false;
    int CurrentApptKey = 0;
    int ActivityKey = 0;  ///< The Activity that the Activity Scheduler edits; 0 for a new one.
    int CheckInKey = 0;   ///< The appointment being checked in; 0 after the user gave it up.
    int CurrentTaskId = 0;
    QString NewPatientId;  ///< The patient that frmnewpat saved; cleared by who opens it.
};

SessionValues& Session();
/// Closes the connection and puts every value back to its start; tests begin with it.
void ResetSession();
