#pragma once

#include <QString>

#include "platform/calendar/item.h"

namespace db {
class Recordset;
}

/// Why a kind of item may not be worked on.
struct CompanionRefusals {
    const char* ofSeries;
    const char* charged;
    const char* eventOfSeries;
};

inline constexpr CompanionRefusals NotModified{
    "You cannot modify a recurring appointment in Solvane. Use Fernhall to modify this appointment.",
    "This appointment has been charged. You cannot modify an appointment once it has been charged.",
    "You cannot modify a recurring event in Solvane. Use Fernhall to modify this event."};

inline constexpr CompanionRefusals NotDeleted{
    "Unable to delete a recurring appointment in Solvane. Use Fernhall to delete this appointment.",
    "This appointment has been charged. You cannot delete an appointment once it has been charged.",
    "Unable to delete a recurring event in Solvane. Use Fernhall to delete this event."};

/// Returns the reason why the item is refused, or "" when it may be worked on.
[[nodiscard]] QString RefusalOf(const CalendarItem& item, const CompanionRefusals& refusals);

/// The same for the row of an appointment, whether it was charged or joined a series since it was shown.
[[nodiscard]] QString RefusalOf(const db::Recordset& row, const CompanionRefusals& refusals);

/// Tells the user in a box why something was not done.
void TellRefusal(const QString& text);
