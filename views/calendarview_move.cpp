#include <memory>

#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "views/calendarview.h"
#include "views/inplacechanges.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

const QString AppointmentTrouble = QStringLiteral("Error saving appointment. ");
const QString RoomTrouble = QStringLiteral("Error saving room schedule. ");

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

// A row that stands alone needs no transaction, and none of its trips to the server.
template <typename Step>
void atOnce(bool withRoom, Step&& step) {
    if (withRoom)
        db::InTransaction(Session().Connection, step);
    else
        step();
}

void stamp(Recordset& row) {
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

// Writes what was changed of an item, and the time of its room, both or neither. At the end of its rows where the
// appointment is gone. Throws db::DatabaseError; `trouble` then says of what.
Recordset storeInPlace(const CalendarItem& read, const CalendarItem& wanted, const ItemPainting& painted,
                       QString& trouble) {
    const int key = wanted.ItemKey.toInt();
    trouble = AppointmentTrouble;
    Recordset row = rowOf(key);
    if (row.Eof())
        return row;
    const bool hasRoom = !Recordset(RoomSlotStatement(key), Session().Connection).Eof();
    atOnce(hasRoom, [&] {
        SetInPlaceChanges(row, read, wanted, ItemFromAppointment(row, painted));
        stamp(row);
        row.Update();
        if (!hasRoom)
            return;
        trouble = RoomTrouble;
        const CalendarItem saved = ItemFromAppointment(row, painted);
        UpdateRoomTime(key, saved.ItemStart, saved.ItemEnd, saved.ItemDay, saved.ItemText);
    });
    return row;
}

void tellGone() {
    MsgBox(QStringLiteral("Unable to save. Appointment not found. It may have been deleted by another user."),
           ExclamationBox, QStringLiteral("Appointment not found"));
}

/// A text that was typed in place and could not be saved.
struct UnsavedText {
    CalendarItem read;
    QString text;
    ItemPainting painted = {false, [](const QString&) { return -1; }, false};  // Nothing is shown of it.

    /// Whether nothing is left to be saved. What another desk has written in the meantime is told once, and written
    /// over by the try after that.
    bool Store() {
        CalendarItem wanted = read;
        wanted.ItemText = text;
        QString trouble;
        try {
            if (storeInPlace(read, wanted, painted, trouble).Eof())
                tellGone();
            return true;
        } catch (const db::DatabaseError& error) {
            TellError(trouble, error);
            if (error.number == db::RowChanged)
                db::Ignoring([this] {
                    if (const Recordset row = rowOf(read.ItemKey.toInt()); !row.Eof())
                        read = ItemFromAppointment(row, painted);
                });
            return false;
        }
    }
};

bool isTimeOfDay(int start, int end) {
    return 0 <= start && start < end && end <= MinutesPerDay;
}

}  // namespace

void CalendarView::bindInPlaceWork() {
    connect(ctMDay1, &ctMDay::ItemChanged, this, &CalendarView::moveappt);
    connect(ctMDay1, &ctMDay::TextEdited, this, [this](int index) {
        saveappt(index);
        displayapptinfo(ctMDay1->SelectedItem());
    });
}

QStringList CalendarView::savingStatements(const CalendarItem& item) const {
    const int key = item.ItemKey.toInt();
    return detailStatements(item) << rowStatement(key) << RoomSlotStatement(key);
}

bool CalendarView::saveappt(int index, const QString& subject) {
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
    QString trouble;
    try {
        const Recordset row = storeInPlace(before.stored, item, painting(), trouble);
        if (row.Eof()) {
            tellGone();
            removeItemsOf(key);
            return false;
        }
        showRow(row);
    } catch (const db::DatabaseError& error) {
        tellUnsaved(item.ItemKey, trouble, error, subject);
        keepText(before.stored, item.ItemText);
        return false;
    }
    if (!subject.isEmpty())
        DropNotice(subject);
    if (!before.StandsAs(facts_[item.ItemKey]))
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
        tellUnsaved(item.ItemKey, AppointmentTrouble, error);
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
        QStringLiteral("%1 at %2").arg(AuditDate(row["dapptdate"].date()), timeText(row["nStartTime"].integer()));
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
    QString trouble = AppointmentTrouble;
    try {
        atOnce(room > 0, [&] {
            row.Update();
            if (room < 1)
                return;
            trouble = RoomTrouble;
            UpdateRoomTime(key, item.ItemStart, item.ItemEnd, item.ItemDay, QString());
        });
    } catch (const db::DatabaseError& error) {
        return tellUnsaved(item.ItemKey, trouble, error);
    }
    AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Modify Appointment"), {},
             QStringLiteral("Modified Appointment (%1) to %2 at %3 for %4")
                 .arg(old, item.ItemDay.toString(QStringLiteral("MM/dd/yy")), timeText(item.ItemStart), what));
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
    board_->Show(index, shown);
}

void CalendarView::putBack(const QString& key) {
    if (facts_.contains(key))
        board_->Show(ctMDay1->IndexOfKey(key), facts_[key].stored);
}

void CalendarView::tellUnsaved(const QString& key, const QString& trouble, const db::DatabaseError& error,
                               const QString& subject) {
    putBack(key);
    const bool changedElsewhere = error.number == db::RowChanged;
    if (subject.isEmpty() || changedElsewhere)
        TellError(trouble, error);
    else
        TellInBar(subject, error);
    if (changedElsewhere)
        Reload();
}

// The view may be another one when the user tries again.
void CalendarView::keepText(const CalendarItem& read, const QString& text) const {
    if (text == read.ItemText)
        return;
    const auto unsaved = std::make_shared<UnsavedText>(UnsavedText{read, text});
    const QDate date = read.ItemDay.isValid() ? read.ItemDay : main_.Date();
    KeepTyped(tr("the text of the appointment on %1 at %2").arg(ShortDateText(date), timeText(read.ItemStart)),
              [&main = main_, unsaved] {
                  const bool settled = unsaved->Store();
                  main.cycledate(2);
                  return settled;
              });
}
