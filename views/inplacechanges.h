#pragma once

#include "platform/calendar/item.h"
#include "platform/database/recordset.h"

/// The first 100 characters of a text, which is what `cappttext` takes from a calendar and what the audit log names an
/// appointment by. A character of two units is not cut in half.
[[nodiscard]] QString FirstCharacters(const QString& text);

/// Sets in an appointment's row what the user changed on its item since the row was read: `before` is the item as it
/// was read, `now` as the row reads at present. What the user left alone keeps what the row holds, and where both made
/// the same change all is well. Throws db::RowClash where both changed the same thing differently; the row is not to
/// be updated then.
///
/// The columns are nStartTime, nEndTime, dapptdate, cappttext (its first 100 characters), CLOCATION, BLOCATEICO,
/// BremindIco, BTentIco, ncolor, CapptNote (fields 1 and 2 of ItemNote), patientid and PatientAcct (fields 3 and 4).
/// clinicianid is not among them: a view shows a row under its own provider, whom writing it would leave as it is, or
/// an Activity under each of its attendees, to one of whom writing it would hand the whole Activity.
void SetInPlaceChanges(db::Recordset& row, const CalendarItem& before, const CalendarItem& item,
                       const CalendarItem& now);
