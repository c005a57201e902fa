#pragma once

#include <optional>

#include "data/codes.h"
#include "session/slot.h"
#include "session/view.h"

/// What an editor of an entry works on, as the view knows it when it opens the editor. The editor keeps this value. A
/// view that reloads, selects another row or closes can therefore never make the editor save another entry.
struct EditorRequest {
    int ApptKind = apptkind::Patient;
    bool IsNewAppt = false;
    int CurrentApptKey = 0;  ///< The `nkeyid` of the entry to edit; unused for a new one.
    View CurrentView = View::None;
    BookedProvider provider;           ///< The provider in whose schedule the entry is booked.
    std::optional<SelectedSlot> slot;  ///< The time that was chosen in the view for a new entry.
    /// Whether the end of `slot` is only proposed: it follows the length of the service or the appointment type until
    /// the user enters an end.
    bool endIsOpen = false;
    QString patientId = {};            ///< The patient whom the editor of a new entry begins with; empty for none.
    QString patientName = {};          ///< The name that was typed for a patient who is not known yet.
    std::optional<int> category = {};  ///< The colour of the type of a new patient appointment, where one was chosen.
    /// The entry of the wait list that a new appointment is booked for, and that its save closes; 0 for none. A
    /// cancelled appointment is then no conflict, because it is what the patient has waited for.
    int waitId = 0;

    /// The `nkeyid` of the row to edit; 0 for a new one.
    [[nodiscard]] int Key() const { return IsNewAppt ? 0 : CurrentApptKey; }
};

/// What the Activity Scheduler works on.
struct ActivityRequest {
    int ActivityKey = 0;               ///< The `nkeyid` of the Activity; 0 for a new one.
    QDate date;                        ///< The date of a new Activity.
    std::optional<SelectedSlot> slot;  ///< The time chosen for a new Activity, or to which an old one was dragged.
};
