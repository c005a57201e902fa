#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"
#include "views/calendarview.h"
#include "views/inplacechanges.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

QString timeText(qint64 minutes) {
    return MinutesToTimeText(static_cast<int>(minutes), Session().MilitaryTime);
}

QString rowStatement(int key) {
    return Sql("Select * from appointments Where nKeyId = {}", key);
}

Recordset rowOf(int key) {
    return {rowStatement(key), Session().Connection, Lock::Optimistic};
}

QString attendeesStatement(int key) {
    return Sql("Select * from AppointmentsEvents Where nkeyid = {}", key);
}

void stamp(Recordset& row) {
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

bool isTimeOfDay(int start, int end) {
    return 0 <= start && start < end && end <= MinutesPerDay;
}

}  // namespace

void CalendarView::bindInPlaceWork() {
    connect(ctMDay1, &ctMDay::BeforeItemWork, this, &CalendarView::lockItem);
    connect(ctMDay1, &ctMDay::ItemChanged, this, &CalendarView::moveappt);
    connect(ctMDay1, &ctMDay::TextEdited, this, [this](int index) {
        saveappt(index);
        displayapptinfo(ctMDay1->SelectedItem());
    });
}

void CalendarView::lockItem(int index) {
    CalendarItem& item = ctMDay1->Item(index);
    const bool whole = Session().ScreenAccess < 2 || facts_.value(item.ItemKey).apptType == ApptTypeSlot ||
                       item.ItemColor == ncolor::Holiday;
    item.ItemTextLocked = whole || IsPatientRow(item.ItemColor) || item.ItemColor == ncolor::Group;
    item.ItemMoveLocked = whole;
}

QStringList CalendarView::savingStatements(const CalendarItem& item) const {
    const int key = item.ItemKey.toInt();
    return detailStatements(item) << rowStatement(key) << RoomSlotStatement(key);
}

bool CalendarView::saveappt(int index) {
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const int key = item.ItemKey.toInt();
    if (key < 1)
        return false;
    const RowFacts before = facts_.value(item.ItemKey);
    // A row may have no text; only one that the user took away comes back.
    if (item.ItemText.trimmed().isEmpty() && item.ItemText != before.stored.ItemText) {
        ctMDay1->Item(index).ItemText = before.stored.ItemText;
        return false;
    }
    const db::ReadTogether together(Session().Connection, savingStatements(item));
    try {
        Recordset row = rowOf(key);
        if (row.Eof()) {
            MsgBox(QStringLiteral("Unable to save. Appointment not found. It may have been deleted by another user."),
                   ExclamationBox, QStringLiteral("Appointment not found"));
            removeItemsOf(key);
            return false;
        }
        SetInPlaceChanges(row, before.stored, item, ItemFromAppointment(row, painting()));
        stamp(row);
        row.Update();
        showRow(row);
    } catch (const db::DatabaseError& error) {
        tellUnsaved(item.ItemKey, error);
        return false;
    }
    const RowFacts& after = facts_[item.ItemKey];
    UpdateRoomTime(key, after.stored.ItemStart, after.stored.ItemEnd, after.stored.ItemDay, after.stored.ItemText);
    if (!before.StandsAs(after))
        Reload();
    return true;
}

void CalendarView::moveappt(int index) {
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const int key = item.ItemKey.toInt();
    if (!isTimeOfDay(item.ItemStart, item.ItemEnd)) {
        putBack(item.ItemKey);
        MsgBox(tr("An appointment must end after it starts, on the same day. Open it to change its times."),
               ExclamationBox, tr("Move Appointment"));
        return;
    }
    const db::ReadTogether together(Session().Connection, savingStatements(item)
                                                              << attendeesStatement(key) << ApptRoomStatement(key));
    try {
        if (isSharedActivity(key)) {
            scheduleActivity(key, SelectedSlot{item.ItemDay, item.ItemStart, item.ItemEnd});
            return;
        }
        const int room = ApptRoomId(key);
        if (room < 0)
            putBack(item.ItemKey);
        else if (room > 0 && CheckRoomConflicts(key, item.ItemDay, item.ItemStart, item.ItemEnd, room, key))
            Reload();
        else
            storeMove(item, room);
    } catch (const db::DatabaseError& error) {
        tellUnsaved(item.ItemKey, error);
    }
}

void CalendarView::storeMove(const CalendarItem& item, int room) {
    const int key = item.ItemKey.toInt();
    Recordset row = rowOf(key);
    if (row.Eof()) {
        MsgBox(QStringLiteral("Error saving appointment. Another user may have deleted this appointment. "), ErrorBox,
               QStringLiteral("Error"));
        removeItemsOf(key);
        return;
    }
    if (!facts_.value(item.ItemKey).StandsAs(factsOf(row, ItemFromAppointment(row, painting()))))
        throw db::RowChangedError();
    QString old =
        QStringLiteral("%1 at %2").arg(ShortDateText(row["dapptdate"].date()), timeText(row["nStartTime"].integer()));
    QString what = FirstCharacters(item.ItemText);
    stamp(row);
    row.Set("nStartTime", item.ItemStart);
    row.Set("nEndTime", item.ItemEnd);
    row.Set("dapptdate", item.ItemDay);
    if (const std::optional<BookedProvider> provider = providerOfColumn(item.ItemColumn)) {
        if (const QString before = row["clinicianid"].text(); before != provider->id) {
            old += QStringLiteral(" with ") + nameOfProvider(before);
            row.Set("clinicianid", provider->id);
        }
        what += QStringLiteral(" with ") + provider->name;
    }
    row.Update();
    AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Modify Appointment"), {},
             QStringLiteral("Modified Appointment (%1) to %2 at %3 for %4")
                 .arg(old, item.ItemDay.toString(QStringLiteral("MM/dd/yy")), timeText(item.ItemStart), what));
    if (room > 0)
        UpdateRoomTime(key, item.ItemStart, item.ItemEnd, item.ItemDay, QString());
    showRow(row);
    displayapptinfo(ctMDay1->SelectedItem());
}

bool CalendarView::isSharedActivity(int key) {
    return !Recordset(attendeesStatement(key), Session().Connection).Eof();
}

void CalendarView::showRow(const Recordset& row) {
    CalendarItem shown = ItemFromAppointment(row, painting());
    const int index = ctMDay1->IndexOfKey(shown.ItemKey);
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const RowFacts before = facts_.value(shown.ItemKey);
    shown.ItemColumn = item.ItemColumn;
    facts_[shown.ItemKey] = factsOf(row, shown);
    // The picture that a status command chose stays until the view reads anew.
    if (item.ItemStatusIcon != before.stored.ItemStatusIcon)
        shown.ItemStatusIcon = item.ItemStatusIcon;
    ctMDay1->Item(index) = shown;
    lockItem(index);
}

void CalendarView::putBack(const QString& key) {
    const int index = ctMDay1->IndexOfKey(key);
    if (index < 1 || !facts_.contains(key))
        return;
    ctMDay1->Item(index) = facts_[key].stored;
    HideName(ctMDay1->Item(index), Session().HidePatientNames);
    lockItem(index);
}

void CalendarView::tellUnsaved(const QString& key, const db::DatabaseError& error) {
    putBack(key);
    TellError(QStringLiteral("Error saving appointment. "), error);
    if (error.number == db::RowChanged)
        Reload();
}
