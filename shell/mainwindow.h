#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <utility>

#include "session/savedviews.h"
#include "session/view.h"
#include "shell/foundappointment.h"

/// The subject of the notices about where a search has led (ShowNotice).
inline const QString FoundNotice = QStringLiteral("found");

/// The main window, as a calendar view and its menus see it.
class MainWindow {
  public:
    virtual ~MainWindow() = default;

    /// Returns the date that is chosen in the month calendar.
    [[nodiscard]] virtual QDate Date() const = 0;
    /// Chooses a date without reloading the view.
    virtual void SetDate(QDate date) = 0;
    /// Writes the date panel: "Wednesday, March 11, 2026", "Week of March 8, 2026", ...
    virtual void ShowDateText(const QString& text) = 0;
    /// Writes the title panel above the view: "March 11, 2026", "Room Scheduler", ...
    virtual void ShowTitle(const QString& text) = 0;

    /// Opens a view. It does nothing when that view is open already, and when the user may not open it or it does not
    /// exist; if no view is open yet, the day view is then opened instead. The companion's view is refused with a box
    /// when the provider has no counterpart there.
    virtual void changeview(View view) = 0;
    /// Goes one step of the open view back (0) or forward (1) and reloads it, or only reloads it (2).
    virtual void cycledate(int direction) = 0;
    virtual void GoToToday() = 0;
    virtual void ToggleTaskPane() = 0;
    [[nodiscard]] virtual bool TaskPaneShown() const = 0;
    virtual void ToggleHidePatientNames() = 0;
    /// Offers the provider list and shows the chosen provider's schedule.
    virtual void SelectProvider() = 0;
    /// Writes the panels, reloads the view and sounds the bell. It is called after the session got another provider.
    virtual void ProviderChosen() = 0;
    virtual void ShowPreferences() = 0;
    virtual void ShowHelp() = 0;
    /// Opens today's board, or brings it to the front.
    virtual void OpenBoard() = 0;
    /// Writes the panels " User: ..." and " Schedule for: ..." from the session's values.
    virtual void WritePanels() = 0;
    virtual void Leave() = 0;

    /// The saved views of the user, as they were read last.
    [[nodiscard]] virtual const std::vector<SavedView>& SavedViews() const = 0;
    /// Returns the reason why the practice has no saved views, or "" when it has them.
    [[nodiscard]] virtual QString WhyNoSavedViews() const = 0;
    /// Goes to what is saved under a function key by now. The date stays. When it is gone, or the user may not see it,
    /// the user is told.
    virtual void ShowSavedView(int slot) = 0;
    /// Opens the form that keeps what is on the screen under a function key.
    virtual void SaveThisView() = 0;

    /// Keeps an appointment that a search has found. The day view shows it when it next loads the appointment's date.
    void LeaveFound(const FoundAppointment& found) { found_ = found; }
    /// Returns the kept appointment if it is of this date, and forgets it in any case. So it is shown once at most.
    [[nodiscard]] std::optional<FoundAppointment> TakeFound(QDate date) {
        const std::optional<FoundAppointment> found = std::exchange(found_, std::nullopt);
        return found && found->date == date ? found : std::nullopt;
    }
    /// Opens the day of an appointment that was found, and shows it there.
    void OpenFound(const FoundAppointment& found) {
        LeaveFound(found);
        SetDate(found.date);
        changeview(View::Day);
        // The day may have been open.
        cycledate(2);
    }

    /// Keeps what the view that opens next is to show. A view with something of its own to show takes it once.
    void LeaveContents(std::optional<ViewContents> contents) { contents_ = std::move(contents); }
    [[nodiscard]] std::optional<ViewContents> TakeContents() { return std::exchange(contents_, std::nullopt); }

  private:
    std::optional<ViewContents> contents_;
    std::optional<FoundAppointment> found_;
};
