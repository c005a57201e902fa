#pragma once

#include <functional>
#include <QString>

#include "platform/calendar/item.h"
#include "platform/database/recordset.h"
#include "session/hiddennames.h"

/// The settings of a view that apply to all its items.
struct ItemPainting {
    bool hidePatientNames = false;
    /// Returns the picture of a courtesy-call code (GetCallStatusIcon), or -1 for none.
    std::function<int(const QString& code)> callStatusIcon;
    /// Whether the picture of the call stands only on appointments that are still awaited: blank, pending and tentative
    /// ones.
    bool callsOfAwaitedOnly = false;
};

/// Returns the painting of rows that are only told of, in a list or a sentence: no names are hidden, and no code of a
/// courtesy call is looked up.
[[nodiscard]] ItemPainting UnpaintedItems();

/// Returns the calendar item of the current row of "Select appointments.* ...". The row's status, kind and colour are
/// all stored in `ncolor`. Null columns are allowed and leave the item plain.
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

/// Returns the current row together with its item.
[[nodiscard]] ShownAppointment RowOf(const db::Recordset& row, CalendarItem item);

/// Sets the colours of an item by its `ncolor` and `appttype`.
void PaintByCode(CalendarItem& item, int code, int apptType);

/// Whether the item's text is a patient's name, by its ItemColor and ItemNote.
[[nodiscard]] bool NamesPatient(const CalendarItem& item);
/// Hides or shows the item's text if it is a patient's name.
void HideName(CalendarItem& item, bool hidden);

/// Returns the banner of a holiday: an item with the key "0", from midnight to 11:59 PM, in the holiday colour.
CalendarItem HolidayBanner(const QString& holiday, QDate day);

/// Sets the mark and the word for a row's status or kind, so that nobody needs the colour to recognise it.
void MarkStatus(CalendarItem& item, int code, int apptType);
