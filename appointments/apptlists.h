#pragma once

#include <functional>
#include <QString>

#include "platform/database/recordset.h"

class CompletingCombo;

// The lists that the editors of appointments share. Each list is read once, when its form opens. On a failure the user
// is told the list's own text with the reason, and the form goes on with the rows that were read.

// The statements of the lists, for a form that reads them together.
inline constexpr char EventsStatement[] = "Select * from events Order by event";
inline constexpr char LocationsStatement[] = "Select * from locations Order by Location";
inline constexpr char RoomsStatement[] = "Select * from rooms order by room";

/// Reads a list and calls `addRow` for each row. `failure` is the text that the user is told before the reason when the
/// list cannot be read.
void LoadList(const char* statement, const QString& failure, const std::function<void(const db::Recordset&)>& addRow);
void LoadEvents(CompletingCombo& box);
void LoadLocations(CompletingCombo& box);
/// Fills the box with the rooms; the item data is the RoomID. A room without a name is left out, because an emptied box
/// must not stand for it.
void LoadRooms(CompletingCombo& box);
/// Selects the room that is booked for an appointment. A room that is no longer on the list is added to the box, so
/// that a save keeps it. Returns false when the booking could not be read, which the user has been told; a save must
/// then leave the booking alone.
bool ShowBookedRoom(CompletingCombo& box, int apptKey);

/// The lists to which a text that is typed in their combo can be added.
enum class GrowingList { Availability, Events, Locations };

/// Adds a typed text that is not on the list to the combo, and asks whether to keep it on the practice's list too.
/// Letter case makes no difference between texts. If the user answers No, or if the list cannot be written, which the
/// user is told, the text stays on the combo only until the form closes.
void OfferUnknownItem(CompletingCombo& box, GrowingList list);
/// Whether a field that was left for this reason must not ask a question yet. A press of the mouse on a button leaves
/// the field, and a question would swallow that press. The question then waits until the next field is left, or OK at
/// the latest.
[[nodiscard]] bool PressesButton(Qt::FocusReason reason);
