#pragma once

#include <QString>

#include "platform/calendar/item.h"
#include "platform/database/recordset.h"

/// The colours of the companion's items (0xBBGGRR). They are the only sign of what an item is.
namespace companioncolor {

inline constexpr int Scheduled = 0xFF0001;  ///< An appointment that is not charged yet. Its key is the CtrnId.
inline constexpr int PlainBlue = 0xFF0000;  ///< Is taken for Scheduled by a drag in the week and by session notes.
inline constexpr int Charged = 49152;       ///< A charged appointment, which is read-only. Its key is the CtrnId.
inline constexpr int Event = 0xFFFF80;      ///< An event of the companion's calendar. Its key is the CEveId.

}  // namespace companioncolor

/// The ItemSeriesIcon of every item of a series, of appointments and of events.
inline constexpr int CompanionSeriesIcon = 3;
/// The ItemStart of a row without a time. It stands before the day, as every row without a start does.
inline constexpr int NoCompanionTime = -1;

/// Whether the item is an appointment, charged or not.
[[nodiscard]] bool IsCompanionAppointment(const CalendarItem& item);

/// Whether the item has the note icon: a linked session note, which has a picture of its own, or in a companion that
/// cannot link notes a note text.
[[nodiscard]] bool HasNoteIcon(const CalendarItem& item);
/// Gives the item the note icon of a linked session note.
void SetNoteIcon(CalendarItem& item);

/// Returns the item of a row of LoadCalendar's first statement, without its day and column. Its status picture is the
/// one of a charged row; the picture of a courtesy call is set by whoever looks the code up. `hasSessionColumn` tells
/// what the note icon means: a linked session note, or, in an older companion, a note text.
[[nodiscard]] CalendarItem AppointmentItem(const db::Recordset& row, bool hasSessionColumn);

/// Returns the item of a row of LoadCalendar's second statement, without its day and column. An all-day event has no
/// times yet.
[[nodiscard]] CalendarItem EventItem(const db::Recordset& row);

/// Sets what tells the kind of an item without its colour: the picture of a charged row, and the mark of an event.
void MarkCompanionKind(CalendarItem& item);

/// Sets the two locks by the kind of item and by the user's rights. Texts are never edited in place. Only an
/// appointment that is not charged and belongs to no series can be moved.
void LockCompanionItem(CalendarItem& item);
