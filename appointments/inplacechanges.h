#pragma once

#include "platform/calendar/item.h"
#include "platform/database/recordset.h"

/// How many characters `cappttext` takes from a calendar, and how many of them name an appointment in the audit log.
inline constexpr int LongestApptText = 100;

/// Sets in an appointment's row what the user changed on its item since the row was read. `before` is the item as it
/// was read, `item` is the item now, and `now` is the item that the row would make at present. Columns that the user
/// left alone keep their present values. The same change by both desks is no clash. Throws db::RowClash where both
/// changed a column differently; the caller must not update the row then.
///
/// The columns are nStartTime, nEndTime, dapptdate, cappttext (its first 100 characters), CLOCATION, BLOCATEICO,
/// BremindIco, BTentIco, ncolor, CapptNote (fields 1 and 2 of ItemNote), patientid and PatientAcct (fields 3 and 4).
/// clinicianid is not among them. A view shows a row under its own provider, who would stay the same, or an Activity
/// under each of its attendees, and writing one of these would hand the whole Activity to them.
void SetInPlaceChanges(db::Recordset& row, const CalendarItem& before, const CalendarItem& item,
                       const CalendarItem& now);
