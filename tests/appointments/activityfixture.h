#pragma once

#include <memory>

#include "appointments/frmactsc.h"
#include "tests/appointments/editorfixture.h"

/// A practice of four providers, Lane, O'Brien, Reed and Stone, whose activities are scheduled over Dr. Reed's day.
class ActivityFixture : public EditorFixture {
  protected:
    ActivityFixture();

    /// Opens the Activity Scheduler on a new activity; the view shows March 11, 2026, with no time selected.
    frmactsc& openNewActivity();
    frmactsc& openActivity(int key, const std::optional<SelectedSlot>& draggedTo = std::nullopt);
    /// The staff meeting from nine to ten in the Annex, of March 11, 2026, attended by these.
    int activity(const QStringList& attendees);
    /// A new activity that lacks nothing: the staff meeting, nine to ten, attended by Reed and O'Brien.
    frmactsc& openFilledActivity();

    /// Clicks on the provider's row of the list.
    void clickProvider(const char* name);
    void clickButton(QPushButton* button);
    [[nodiscard]] int rowOf(const char* name);
    /// Whom the database holds as attendees, "LANE REED".
    [[nodiscard]] QString attendees(int key);

    std::unique_ptr<frmactsc> scheduler;

  private:
    frmactsc& open(const ActivityRequest& request);
};
