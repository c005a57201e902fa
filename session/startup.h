#pragma once

#include <QDate>
#include <QString>

#include "session/view.h"

struct LastPlace;

/// The main window as start-up sees it. Start-up calls these routines in this order. The session values that a call
/// needs are set before it.
class StartUpWindow {
  public:
    virtual ~StartUpWindow() = default;

    /// Calls FormPosition with Get for the window.
    virtual void RestorePosition() = 0;
    virtual void SetHelpFile(const QString& path) = 0;
    /// Sets the order in which the date picker takes dates: 0 month first, 1 day first, 2 year first.
    virtual void SetDateOrder(int order) = 0;
    /// Writes the date panel.
    virtual void ShowDateText(const QString& text) = 0;
    /// Shows the window, still without a view, so that the dialogs of start-up open over it.
    virtual void ShowMainWindow() = 0;
    /// Shows the provider list (frmsltpv) modally. Its choice is in the session's ProviderId and ProviderName, which
    /// stay unchanged when the user cancels.
    virtual void ChooseProvider() = 0;
    /// Writes the access panel.
    virtual void setmenuaccess() = 0;
    /// Writes the panels " User: ..." and " Schedule for: ..." from the session values.
    virtual void WritePanels() = 0;
    /// Fills the task pane. The group of the companion is shown when the session's FHDatabaseId is not empty. Start-up
    /// has emptied FHDatabaseId for a user of only one schedule that has no pair in the companion.
    virtual void InitTaskPane() = 0;
    /// Lets the window react to its controls from now on, and sets the date picker to this date without loading
    /// anything.
    virtual void MarkReady(QDate today) = 0;
    /// Makes the schedule panel a link that shows the provider list.
    virtual void MakeScheduleLink() = 0;
    /// Tells the window, before its first view opens, what the user left last. The first view then gives way at once to
    /// this one: since nobody would see the first, only this one is loaded. A view that the user may not open any more
    /// is passed over. It is not called when the start was asked for a view or a date.
    virtual void ReturnTo(const LastPlace& place) = 0;
    /// Shows the day view. CurrentView is already View::Day.
    virtual void ShowDayView() = 0;
    /// Called instead of ShowDayView when the companion schedule opens first.
    virtual void changeview(View view) = 0;
};

struct StartUpOptions {
    /// The folder that is used for all five folders. It wins over a central installation. Empty for the central
    /// installation or, where there is none, for the user's data folder.
    QString dataFolder;
    /// The file that describes the central installation; empty for the usual place (InstallationFile).
    QString installationFile;
    /// Whether the start goes on to what the user left last, instead of what whoever started the program has asked for.
    bool returnsToLastPlace = true;
};

/// Brings the program from nothing to a visible calendar. It finds folders and ini files and opens the session's
/// Connection. It identifies the user by the command line "{type}|{user id}" or, where that is empty, by the logon. It
/// then loads preferences, rights and the companion link and opens the first view. From there it goes on to the view
/// and the provider that the user left last, in any copy of the program. A failing read leaves its value empty and
/// start-up goes on; after a failing connection it shows a message and goes on. Returns false when the program must
/// end, after the user has read the reason or has cancelled. The busy pointer is shown meanwhile.
bool StartUp(const QString& commandLine, const StartUpOptions& options, StartUpWindow& window);

/// Returns the value of "DataSource" in solvane.ini: the database server, or the folder of an embedded database.
[[nodiscard]] QString GetServerName();
