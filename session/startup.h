#pragma once

#include <QDate>
#include <QString>

#include "session/view.h"

/// What start-up asks of the main window that it brings to life, in the order of the calls. The session values that a
/// call needs are set before it.
class StartUpWindow {
  public:
    virtual ~StartUpWindow() = default;

    /// FormPosition with GET on the window.
    virtual void RestorePosition() = 0;
    virtual void SetHelpFile(const QString& path) = 0;
    /// 0 month first, 1 day first, 2 year first: the order in which the date picker takes dates.
    virtual void SetDateOrder(int order) = 0;
    /// The date panel.
    virtual void ShowDateText(const QString& text) = 0;
    /// Shows the window, still without a view, so that the dialogs of start-up open over it.
    virtual void ShowMainWindow() = 0;
    /// Offers the provider list (frmsltpv) modally; it leaves its choice in the session's ProviderId and ProviderName,
    /// or leaves both alone when the user cancels.
    virtual void ChooseProvider() = 0;
    /// Writes the access panel.
    virtual void setmenuaccess() = 0;
    /// The panels " User: ..." and " Schedule for: ..." from the session values.
    virtual void WritePanels() = 0;
    /// Fills the task pane; the group of the companion is there when the session's FHDatabaseId is not empty. For
    /// a user of one schedule without a pair in the companion it has been emptied before.
    virtual void InitTaskPane() = 0;
    /// From now on the window obeys its controls: sets the date picker to this date without loading anything.
    virtual void MarkReady(QDate today) = 0;
    /// The schedule panel becomes a link that offers the provider list.
    virtual void MakeScheduleLink() = 0;
    /// Shows the day view; CurrentView is View::Day already.
    virtual void ShowDayView() = 0;
    /// Called when the companion schedule opens first.
    virtual void changeview(View view) = 0;
};

struct StartUpOptions {
    /// The folder that stands for all five where no central installation exists; empty for the user's data folder.
    QString dataFolder;
    /// Tells the central installation; empty for the usual place (InstallationFile). A data folder that was asked for
    /// wins over a central installation.
    QString installationFile;
};

/// Brings the program from nothing to a visible calendar: finds folders and ini files, opens the session's Connection,
/// identifies the user from the command line "{type}|{user id}" or, where that is empty, by the logon, loads
/// preferences, rights and the companion link, and opens the first view. Failing reads leave their value empty and
/// start-up goes on; so does a failing connection, after a message. False when the program must end, after the user has
/// read why or has cancelled. The busy pointer shows meanwhile.
bool StartUp(const QString& commandLine, const StartUpOptions& options, StartUpWindow& window);

/// The value of "DataSource" in solvane.ini: the database server, or the folder of an embedded database.
[[nodiscard]] QString GetServerName();
