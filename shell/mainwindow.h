#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <utility>

#include "session/view.h"
#include "shell/foundappointment.h"

/// The subject of the notices about where a search has led (ShowNotice).
inline const QString FoundNotice = QStringLiteral("found");

/// What a calendar view and its menus ask of the main window that holds them.
class MainWindow {
  public:
    virtual ~MainWindow() = default;

    /// The date chosen in the month calendar, which every view shows.
    [[nodiscard]] virtual QDate Date() const = 0;
    /// Chooses a date without reloading the view.
    virtual void SetDate(QDate date) = 0;
    /// The date panel: "Wednesday, March 11, 2026", "Week of March 8, 2026", ...
    virtual void ShowDateText(const QString& text) = 0;
    /// The title panel above the view: "March 11, 2026", "Room Scheduler", ...
    virtual void ShowTitle(const QString& text) = 0;

    /// Nothing where that view is open already, or is not open to the user.
    virtual void changeview(View view) = 0;
    /// 0 back, 1 forward, 2 only reloads.
    virtual void cycledate(int direction) = 0;
    virtual void GoToToday() = 0;
    virtual void ToggleTaskPane() = 0;
    [[nodiscard]] virtual bool TaskPaneShown() const = 0;
    virtual void ToggleHidePatientNames() = 0;
    /// Offers the provider list and shows the chosen provider's schedule.
    virtual void SelectProvider() = 0;
    /// The session has another provider now: writes the panels, reloads the view and sounds the bell.
    virtual void ProviderChosen() = 0;
    virtual void ShowPreferences() = 0;
    virtual void ShowHelp() = 0;
    /// The panels " User: ..." and " Schedule for: ..." from the session values.
    virtual void WritePanels() = 0;
    virtual void Leave() = 0;

    /// Find went to this appointment; the day view shows it when it comes to its date.
    void LeaveFound(const FoundAppointment& found) { found_ = found; }
    /// What was left, if it is of this date; it is shown once, and any other date forgets it.
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

  private:
    std::optional<FoundAppointment> found_;
};
