#pragma once

#include <functional>
#include <QString>

#include "platform/database/recordset.h"

class CompletingCombo;

// The lists that the editors of appointments share. Each is read once, as its form opens; a failure shows the list's
// own text with the reason, and the form goes on with what it has.

// The statements of the lists, for a form that reads them together.
inline constexpr char EventsStatement[] = "Select * from events Order by event";
inline constexpr char LocationsStatement[] = "Select * from locations Order by Location";
inline constexpr char RoomsStatement[] = "Select * from rooms order by room";

/// Reads a list row by row.
void LoadList(const char* statement, const QString& failure, const std::function<void(const db::Recordset&)>& addRow);
void LoadEvents(CompletingCombo& box);
void LoadLocations(CompletingCombo& box);
/// With RoomID as item data. A room without a name is left out: an emptied box must not stand for it.
void LoadRooms(CompletingCombo& box);
/// Selects the room that is booked for an appointment; one that is on no list any more is put on it, so that a save
/// keeps it. False where the booking could not be read, which the user has been told: a save must then leave it alone.
bool ShowBookedRoom(CompletingCombo& box, int apptKey);

/// The lists that grow by what is typed in their combos.
enum class GrowingList { Availability, Events, Locations };

/// Puts a typed text that is on the list in no case onto the combo, and asks whether to keep it on the practice's list
/// too. Answered No, or where the list cannot be written, which is told, it is on the combo for this opening only.
void OfferUnknownItem(CompletingCombo& box, GrowingList list);
/// Whether a field that was left for this reason must not ask yet: a press of the mouse on a button leaves the field,
/// and a question would swallow that press. The question then waits for the next field, at the latest for OK.
[[nodiscard]] bool PressesButton(Qt::FocusReason reason);
