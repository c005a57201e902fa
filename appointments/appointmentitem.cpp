#include "appointments/appointmentitem.h"

#include <QStringList>

#include "data/codes.h"
#include "data/namedpatients.h"
#include "data/pipefields.h"
#include "data/statuses.h"
#include "platform/text/plaintext.h"

namespace {

int intOf(const db::Recordset& row, const char* column) {
    return static_cast<int>(row[column].integer());
}

/// Before midnight, as a row without a start is before the day.
constexpr int NoStart = -1;

bool isAwaited(int code) {
    return code == ncolor::Blank || code == ncolor::Pending || code == ncolor::Tentative;
}

}  // namespace

void PaintByCode(CalendarItem& item, int code, int apptType) {
    if (IsPatientRow(code)) {
        item.ItemColor = code;
        if (code == ncolor::CheckedIn)
            item.ItemStatusIcon = 3;
        return;
    }
    item.ItemColor = code;
    if (code == ncolor::Activity || code == ncolor::Unavailable || code == ncolor::Group)
        return;
    item.ItemBackColor = code;
    if (apptType == ApptTypeSlot)
        item.ItemColor = ncolor::AppointmentType;
}

bool NamesPatient(const CalendarItem& item) {
    return NamesPatient(item.ItemColor, !GetPipeField(item.ItemNote, 3).isEmpty());
}

void HideName(CalendarItem& item, bool hidden) {
    item.ItemTextColor = hidden && NamesPatient(item) ? TextColor::SameAsBackground : TextColor::Normal;
}

ItemPainting UnpaintedItems() {
    return {false, [](const QString&) { return -1; }, false};
}

CalendarItem ItemFromAppointment(const db::Recordset& row, const ItemPainting& painting) {
    const int code = intOf(row, "ncolor");
    const int apptType = intOf(row, "appttype");
    CalendarItem item;
    item.ItemKey = row["nkeyid"].text();
    item.ItemText = OneLine(row["cappttext"].text());
    item.ItemStart = row["nStartTime"].value().isNull() ? NoStart : intOf(row, "nStartTime");
    item.ItemEnd = intOf(row, "nEndTime");
    item.ItemDay = row["dapptdate"].date();
    item.ItemTentativeIcon = row["BTentIco"].boolean();
    PaintByCode(item, code, apptType);
    MarkStatus(item, code, apptType);

    const QString callStatus = row["CourtesyCallStatus"].text();
    if (!callStatus.isEmpty() && (!painting.callsOfAwaitedOnly || isAwaited(code)))
        item.ItemStatusIcon = painting.callStatusIcon(callStatus);
    if (const int typeColor = intOf(row, "appointment_type"); typeColor > 0)
        item.ItemBackColor = typeColor;

    // Four fields always, also where the row's note has no pipe: what follows it keeps its place.
    const QString note = row["CapptNote"].text();
    item.ItemTip = GetPipeField(note, 2);
    item.ItemNote =
        QStringList{GetPipeField(note, 1), item.ItemTip, row["patientid"].text(), row["PatientAcct"].text()}.join(
            QLatin1Char('|'));
    HideName(item, painting.hidePatientNames);
    item.ItemNoteIcon = !item.ItemTip.isEmpty();
    item.ItemLocationIcon = row["BLOCATEICO"].boolean();
    item.ItemLocation = row["CLOCATION"].text();
    item.ItemReminderIcon = row["BremindIco"].boolean();
    item.ItemSessionIcon = row["NoteID"].integer() > 0 ? 1 : 0;
    item.ItemSeriesIcon = row["repeating"].integer() == 1 && row["repeating_ref"].integer() > 0 ? 1 : 0;
    return item;
}

ShownAppointment RowOf(const db::Recordset& row, CalendarItem item) {
    return {std::move(item), intOf(row, "appttype"), row["CourtesyCallStatus"].text(), row["clinicianid"].text()};
}

bool ShownAppointment::BelongsAs(const ShownAppointment& other) const {
    return stored.ItemDay == other.stored.ItemDay && clinicianId == other.clinicianId;
}

bool ShownAppointment::StandsAs(const ShownAppointment& other) const {
    return BelongsAs(other) && stored.ItemStart == other.stored.ItemStart && stored.ItemEnd == other.stored.ItemEnd;
}

CalendarItem HolidayBanner(const QString& holiday, QDate day) {
    CalendarItem banner;
    banner.ItemKey = QStringLiteral("0");
    banner.ItemText = holiday;
    banner.ItemStart = 0;
    banner.ItemEnd = 1439;
    banner.ItemDay = day;
    banner.ItemColor = ncolor::Holiday;
    banner.ItemBanner = true;
    banner.ItemTextLocked = true;
    banner.ItemMoveLocked = true;
    banner.ItemStatusText = QStringLiteral("Holiday");
    return banner;
}

void MarkStatus(CalendarItem& item, int code, int apptType) {
    const Status& status = StatusOf(code);
    if (status.mark != StatusMark::None) {
        item.ItemStatusMark = status.mark;
        item.ItemStatusText = QString::fromLatin1(status.word);
    } else if (apptType == ApptTypeSlot) {
        item.ItemStatusMark = StatusMark::TypeSlot;
        item.ItemStatusText = QStringLiteral("Appointment Type");
    }
}
