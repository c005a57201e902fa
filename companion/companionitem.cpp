#include "companion/companionitem.h"

#include "companion/companionappointment.h"
#include "companion/companiontime.h"
#include "platform/text/plaintext.h"
#include "session/rights.h"

namespace {

constexpr int ChargedPicture = 2;

int intOf(const db::Recordset& row, const char* column) {
    return static_cast<int>(row[column].integer());
}

void setTimes(CalendarItem& item, const db::Field& time, const db::Field& duration) {
    item.ItemStart = CompanionMinutes(time).value_or(NoCompanionTime);
    item.ItemEnd = item.ItemStart + static_cast<int>(duration.integer());
}

}  // namespace

bool IsCompanionAppointment(const CalendarItem& item) {
    return item.ItemColor == companioncolor::Scheduled || item.ItemColor == companioncolor::Charged;
}

bool HasNoteIcon(const CalendarItem& item) {
    return item.ItemSessionIcon > 0 || item.ItemNoteIcon;
}

void SetNoteIcon(CalendarItem& item) {
    item.ItemSessionIcon = 1;
}

CalendarItem AppointmentItem(const db::Recordset& row, bool hasSessionColumn) {
    CalendarItem item;
    item.ItemKey = row["CtrnId"].text();
    item.ItemText = OneLine(row["ClntLastName"].text() + QStringLiteral(", ") + row["ClntFirstName"].text());
    setTimes(item, row["CtrnTime"], row["CtrnDuration"]);
    item.ItemTip = row["ctrnNotes"].text();
    if (!hasSessionColumn)
        item.ItemNoteIcon = !item.ItemTip.isEmpty();
    else if (row["SVSessionId"].integer() > 0)
        SetNoteIcon(item);
    if (row["recurTranID"].integer() > 0)
        item.ItemSeriesIcon = CompanionSeriesIcon;
    item.ItemColor = IsScheduled(row) ? companioncolor::Scheduled : companioncolor::Charged;
    MarkCompanionKind(item);
    return item;
}

CalendarItem EventItem(const db::Recordset& row) {
    CalendarItem item;
    item.ItemKey = row["CEveId"].text();
    item.ItemText = OneLine(row["CEveName"].text());
    setTimes(item, row["CEveTime"], row["CEveDuration"]);
    item.ItemColor = companioncolor::Event;
    MarkCompanionKind(item);
    if (intOf(row, "RecrId") > 0)
        item.ItemSeriesIcon = CompanionSeriesIcon;
    return item;
}

void MarkCompanionKind(CalendarItem& item) {
    if (item.ItemColor == companioncolor::Charged) {
        item.ItemStatusIcon = ChargedPicture;
        item.ItemStatusText = QStringLiteral("Charged");
    } else if (item.ItemColor == companioncolor::Event) {
        item.ItemStatusMark = StatusMark::Activity;
        item.ItemStatusText = QStringLiteral("Event");
    }
}

void LockCompanionItem(CalendarItem& item) {
    item.ItemTextLocked = true;
    item.ItemMoveLocked = !MayWrite() || item.ItemColor != companioncolor::Scheduled || item.ItemSeriesIcon > 0;
}
