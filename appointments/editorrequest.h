#pragma once

#include <optional>

#include "data/codes.h"
#include "session/slot.h"
#include "session/view.h"

/// What an editor of an entry works on, as the view that opens it knows it at that moment. The editor keeps to it
/// whatever becomes of the view: one that reloads, selects another row or is left can never make it save another entry.
struct EditorRequest {
    int ApptKind = apptkind::Patient;
    bool IsNewAppt = false;
    int CurrentApptKey = 0;  ///< The `nkeyid` of the entry that is edited; of none for a new one.
    View CurrentView = View::None;
    BookedProvider provider;           ///< In whose schedule it is booked.
    std::optional<SelectedSlot> slot;  ///< The time that was chosen for a new entry.

    /// The `nkeyid` of the row that is edited, 0 for a new one.
    [[nodiscard]] int Key() const { return IsNewAppt ? 0 : CurrentApptKey; }
};

/// What the Activity Scheduler works on.
struct ActivityRequest {
    int ActivityKey = 0;               ///< The `nkeyid` of the Activity, 0 for a new one.
    QDate date;                        ///< For which a new one is made.
    std::optional<SelectedSlot> slot;  ///< The time chosen for a new one; where one that exists was dragged to.
};
