#pragma once

#include <functional>
#include <QString>

#include "platform/calendar/item.h"
#include "platform/database/recordset.h"
#include "session/hiddennames.h"

/// What a view decides about all its items.
struct ItemPainting {
    bool hidePatientNames = false;
    /// The picture of a courtesy-call code (GetCallStatusIcon); -1 for none.
    std::function<int(const QString& code)> callStatusIcon;
    /// The picture of the call stands only on appointments that are still awaited: blank, pending and tentative ones.
    bool callsOfAwaitedOnly = false;
};

/// The calendar item of the current row of "Select appointments.* ...". The row's status, kind and colour all lie in
/// `ncolor`; nulls anywhere give a plain item.
CalendarItem ItemFromAppointment(const db::Recordset& row, const ItemPainting& painting);

/// A row of `appointments` as a view keeps it: its item and the other columns that the commands need.
struct ShownAppointment {
    CalendarItem stored;  ///< The item as the row was last read or written.
    int apptType = 0;
    QString callStatus;
    QString clinicianId;

    /// Whether both rows have the same provider and day.
    [[nodiscard]] bool BelongsAs(const ShownAppointment& other) const;
    /// Whether both rows have the same provider, day and times.
    [[nodiscard]] bool StandsAs(const ShownAppointment& other) const;
};

/// The current row together with its item.
[[nodiscard]] ShownAppointment RowOf(const db::Recordset& row, CalendarItem item);

/// The colours of an item by its `ncolor` and `appttype`.
void PaintByCode(CalendarItem& item, int code, int apptType);

/// Whether the item's text is a patient's name, by its ItemColor and ItemNote.
[[nodiscard]] bool NamesPatient(const CalendarItem& item);
/// Hides or shows the text where it is a patient's name.
void HideName(CalendarItem& item, bool hidden);

/// The banner of a holiday: key "0", from midnight to 11:59 PM, in the holiday colour.
CalendarItem HolidayBanner(const QString& holiday, QDate day);

/// The mark and the word for a row's status or kind, by which nobody needs the colour to tell it.
void MarkStatus(CalendarItem& item, int code, int apptType);
