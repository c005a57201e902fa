#include "session/startup.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "bridge/link.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "data/settings.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/computer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/inifile.h"
#include "platform/desktop/installation.h"
#include "platform/desktop/localefacts.h"
#include "platform/desktop/practicedatabase.h"
#include "platform/files/privatefile.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/frmsvspl.h"
#include "session/lastplace.h"
#include "session/preferences.h"
#include "session/rights.h"
#include "session/savedviews.h"
#include "session/session.h"

namespace {

const QString ErrorTitle = QStringLiteral("Error");

void findFolders(const StartUpOptions& options) {
    SessionValues& session = Session();
    const QString file = options.installationFile.isEmpty() ? InstallationFile() : options.installationFile;
    session.ScrambleKey = InstallationScrambleKey(file, DefaultScrambleKey);
    const auto central = options.dataFolder.isEmpty() ? CentralInstallation(file) : std::nullopt;
    if (central) {
        session.AppPath = central->AppPath;
        session.IniPath = central->IniPath;
        session.DocPath = central->DocPath;
        session.SharedPath2 = central->SharedPath2;
        session.SignaturePath = central->SignaturePath;
        for (const QString& folder :
             {session.AppPath, session.IniPath, session.DocPath, session.SharedPath2, session.SignaturePath})
            files::Share(folder);
        return;
    }
    const QString own = options.dataFolder.isEmpty()
                            ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                            : QDir::cleanPath(QDir::current().absoluteFilePath(options.dataFolder));
    session.AppPath = session.IniPath = session.DocPath = session.SharedPath2 = session.SignaturePath = own;
}

bool fileIsThere(const QString& path, const QString& message) {
    if (QFileInfo::exists(path))
        return true;
    MsgBox(message, ErrorBox, QStringLiteral("File Not Found"));
    return false;
}

void AddNewIniEntries() {
    const std::pair<const char*, const char*> entries[] = {{"TitleFontBold", "False"}, {"TitleFontItalic", "False"},
                                                           {"TimeFontBold", "False"},  {"TimeFontItalic", "False"},
                                                           {"TitleFontSize", "8.25"},  {"TimeFontSize", "8.25"}};
    for (const auto& [key, value] : entries)
        WriteIniValue(Session().SchedulerIni, QStringLiteral("PrintLayout"), QString::fromLatin1(key),
                      QString::fromLatin1(value));
}

bool findFiles() {
    SessionValues& session = Session();
    if (!fileIsThere(session.SolvaneIni,
                     QStringLiteral("Unable to find configuration file solvane.ini. Program will terminate.")) ||
        !fileIsThere(session.SchedulerIni,
                     QStringLiteral("Unable to find configuration file svwsched.ini. Program will terminate.")))
        return false;
    for (const QString& file : {session.SolvaneIni, session.SchedulerIni})
        files::KeepPrivate(file);
    files::KeepPrivateFolder(session.IniPath);
    if (ReadIniValue(session.SchedulerIni, QStringLiteral("PrintLayout"), QStringLiteral("TitleFontBold")).isEmpty())
        AddNewIniEntries();
    return true;
}

void connect() {
    Session().ConnectionString = PracticeConnectionText(Session().IniPath);
    try {
        Session().Connection.Open(Session().ConnectionString);
    } catch (const db::DatabaseError& error) {
        MsgBox(QStringLiteral("Error connecting to database! %1, %2").arg(error.number).arg(error.description),
               ErrorBox, ErrorTitle);
        Session().Connection.Close();
    }
}

QString phoneMaskStatement() {
    return QStringLiteral("Select * from facesheet Where FacesheetId = 3");
}

void readPhoneMask() {
    db::Ignoring([] {
        const db::Recordset mask(phoneMaskStatement(), Session().Connection);
        if (!mask.Eof())
            Session().PhoneMask = mask["facesheetmask"].text();
    });
}

QString notesAccessStatement() {
    return db::Sql("Select pswd_screen_access from passwords where pswd_user_id = '{}'", Session().UID);
}

void readNotesAccess() {
    db::Ignoring([] {
        const db::Recordset user(notesAccessStatement(), Session().Connection);
        if (!user.Eof())
            Session().NotesAccess = AccessDigit(user[0].text(), 6);
    });
}

void showOwnSchedule() {
    Session().ProviderId = Session().UID;
    Session().ProviderName = Session().UserName;
}

bool chooseSchedule(StartUpWindow& window) {
    window.ChooseProvider();
    return !Session().ProviderId.isEmpty();
}

bool takeProviderFromCommandLine() {
    getprovname();
    if (Session().UserName.isEmpty()) {
        MsgBox(QStringLiteral("No Provider name associated with this UID. See your System Administrator."), ErrorBox,
               ErrorTitle);
        return false;
    }
    if (Session().ScreenAccess == 0) {
        MsgBox(
            QStringLiteral(
                "The User associated with this logon does not have access to the Scheduler. Please see your system administrator."),
            ErrorBox, ErrorTitle);
        return false;
    }
    showOwnSchedule();
    readNotesAccess();
    return true;
}

void readCommandLine(const QString& commandLine) {
    Session().UID = GetPipeField(commandLine, 2);
    Session().UserType = static_cast<int>(db::Value(GetPipeField(commandLine, 1)).integer());
}

bool takeAdministrator(StartUpWindow& window) {
    SessionValues& session = Session();
    session.UserName = QStringLiteral("System Administrator");
    session.ScreenAccess = 3;
    session.AllProviders = true;
    session.NotesAccess = 3;
    return chooseSchedule(window);
}

bool askForUser(StartUpWindow& window) {
    frmsvspl logon;
    ShowModal(logon);
    if (Session().UID.isEmpty())
        return false;
    if (Session().UserType == SystemAdministrator)
        return chooseSchedule(window);
    showOwnSchedule();
    return true;
}

QString wordUsageStatement() {
    return QStringLiteral("Select wordusage from settings");
}

void readWordUsage() {
    try {
        const db::Recordset settings(wordUsageStatement(), Session().Connection);
        if (!settings.Eof())
            Session().WordUsage = settings[0].text();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading setings from database. "), error);
    }
}

void openCompanionLink() {
    SessionValues& session = Session();
    session.FHConnectionString = GetFHConnectionString(session.Connection, session.IniPath);
    if (session.FHConnectionString.isEmpty())
        return;
    const FHLinkSettings link = GetFHLinkSettings(session.Connection);
    session.FHAutoExport = link.FHAutoExport;
    session.UseFHSchedView = link.UseFHSchedView;
    session.FHDatabaseId = GetFHDBId(session.FHConnectionString);
    if (session.FHDatabaseId.isEmpty())
        return;
    std::optional<db::DatabaseError> failure;
    session.FHProviderId = GetFHProviderId(session.Connection, session.FHDatabaseId, session.ProviderId, &failure);
    if (failure)
        TellError(QStringLiteral("Error reading the provider's pair with Fernhall. "), *failure);
    session.FHLedgerHidden = GetUserFHLedger(session.UID);
    // A user who may see only their own schedule, and has none in the companion, works without the link.
    if (!session.AllProviders && session.FHProviderId < 1)
        session.FHDatabaseId.clear();
}

QString interfaceStatement(const char* detail) {
    return PreferenceStatement(QString::fromLatin1(detail), QStringLiteral("Interface"), {},
                               QString::fromLatin1(AllUsers));
}

QString interfacePreference(const char* detail) {
    return GetPreference(Session().SchedulerIni, QString::fromLatin1(detail), QStringLiteral("Interface"), {},
                         QString::fromLatin1(AllUsers));
}

void readInterfacePreferences() {
    SessionValues& session = Session();
    session.InterfaceSizing = interfacePreference("Sizing").toDouble() == 1;
    const double size = interfacePreference("FontSize").toDouble();
    session.InterfaceFontSize = size < 8 || size >= 13 ? 8 : static_cast<int>(size);
    const QString name = interfacePreference("FontName");
    session.InterfaceFontName = name.isEmpty() ? QStringLiteral("Arial") : name;
}

QString firstViewStatement() {
    return QStringLiteral("Select UseFHSchedView from Settings");
}

bool companionOpensFirst() {
    bool wanted = false;
    db::Ignoring([&] {
        const db::Recordset settings(firstViewStatement(), Session().Connection);
        wanted = !settings.Eof() && settings[0].text().trimmed().toDouble() == 1;
    });
    return wanted && Session().FHProviderId >= 1;
}

void openFirstView(StartUpWindow& window) {
    if (companionOpensFirst()) {
        window.changeview(View::Companion);
        return;
    }
    Session().CurrentView = View::Day;
    window.ShowDayView();
}

// Whoever is offered to nobody has no schedule of their own to begin with.
View viewAfterStart(const LastPlace& place) {
    const bool wholePractice = place.view == View::None && place.offeredToNobody && Session().AllProviders;
    return wholePractice ? View::AllProviders : place.view;
}

// The administrator has just chosen a schedule; for a user of one schedule there is no other.
void returnToLastPlace(StartUpWindow& window) {
    LastPlace place = ReadLastPlace();
    SessionValues& session = Session();
    const bool choosesAtStart = session.UserType == SystemAdministrator;
    if (!choosesAtStart)
        place.view = viewAfterStart(place);
    if (session.AllProviders && !choosesAtStart && !place.providerId.isEmpty() &&
        place.providerId.compare(session.ProviderId, Qt::CaseInsensitive) != 0) {
        session.ProviderId = place.providerId;
        session.ProviderName = place.providerName;
        window.WritePanels();
    }
    window.ReturnTo(place);
}

bool prepare(const StartUpOptions& options, StartUpWindow& window) {
    SessionValues& session = Session();
    window.RestorePosition();
    findFolders(options);
    window.SetHelpFile(session.AppPath + QStringLiteral("/Solvane.chm"));
    session.SolvaneIni = session.IniPath + QStringLiteral("/solvane.ini");
    session.OsUserName = OsUserName();
    session.ComputerName = ComputerName();
    session.DateOrder = DateOrderOf(QLocale());
    window.SetDateOrder(session.DateOrder);
    session.SchedulerIni = session.IniPath + QStringLiteral("/svwsched.ini");
    if (!findFiles())
        return false;
    window.ShowDateText(LongDateText(Today()));
    connect();
    return true;
}

QStringList settingsStatements() {
    return {SettingsStatement(), phoneMaskStatement()};
}

void readSettings(StartUpWindow& window) {
    const db::ReadTogether together(Session().Connection, settingsStatements());
    GetALSettings();
    Session().SoundEffects = false;
    readPhoneMask();
    window.ShowMainWindow();
}

// The saved views stand last: in a practice that has no table for them, what follows would be read by itself.
QStringList finishStatements() {
    return IniSettingsStatements() << wordUsageStatement() << SettingsStatement() << firstViewStatement()
                                   << interfaceStatement("Sizing") << interfaceStatement("FontSize")
                                   << interfaceStatement("FontName") << LastPlaceStatements() << SavedViewsStatement();
}

void finish(const StartUpOptions& options, StartUpWindow& window) {
    const db::ReadTogether together(Session().Connection, finishStatements());
    getiniSettings();
    window.setmenuaccess();
    readWordUsage();
    window.WritePanels();
    openCompanionLink();
    window.InitTaskPane();
    window.MarkReady(Today());
    if (Session().AllProviders)
        window.MakeScheduleLink();
    readInterfacePreferences();
    if (options.returnsToLastPlace)
        returnToLastPlace(window);
    openFirstView(window);
}

// For a user from the command line no question is asked, so everything can be read in one trip beforehand.
bool startForProvider(const StartUpOptions& options, StartUpWindow& window) {
    const db::ReadTogether together(Session().Connection, settingsStatements()
                                                              << ProviderNameStatement(Session().UID)
                                                              << notesAccessStatement() << finishStatements());
    readSettings(window);
    if (!takeProviderFromCommandLine())
        return false;
    finish(options, window);
    return true;
}

}  // namespace

bool StartUp(const QString& commandLine, const StartUpOptions& options, StartUpWindow& window) {
    const BusyPointer busy;
    if (!prepare(options, window))
        return false;
    if (!commandLine.isEmpty())
        readCommandLine(commandLine);
    if (!commandLine.isEmpty() && Session().UserType != SystemAdministrator)
        return startForProvider(options, window);
    readSettings(window);
    if (!(commandLine.isEmpty() ? askForUser(window) : takeAdministrator(window)))
        return false;
    finish(options, window);
    return true;
}

QString GetServerName() {
    return ReadIniValue(Session().SolvaneIni, QStringLiteral("SQLServer"), QStringLiteral("DataSource"));
}
