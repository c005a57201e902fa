#include <memory>

#include "appointments/appointmentrows.h"
#include "appointments/appointmentwrites.h"
#include "appointments/commandrow.h"
#include "appointments/movement.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "views/calendarview.h"
#include "views/movednotice.h"

using db::Recordset;

namespace {

/// A text that was typed in place and could not be saved.
struct UnsavedText {
    CalendarItem read;
    QString text;
    ItemPainting painted = UnpaintedItems();

    /// Whether nothing is left to be saved. What another desk has written in the meantime is told once, and written
    /// over by the try after that.
    bool Store() {
        CalendarItem wanted = read;
        wanted.ItemText = text;
        const RowOutcome outcome = SaveInPlace(read, wanted, painted);
        if (outcome.end == WriteOutcome::End::Gone)
            TellSavedRowIsGone();
        if (!outcome.failure)
            return true;
        TellError(WriteTrouble(outcome.step), *outcome.failure);
        if (outcome.failure->number == db::RowChanged)
            db::Ignoring([this] {
                const Recordset row(AppointmentStatement(read.ItemKey.toInt()), Session().Connection);
                if (!row.Eof())
                    read = ItemFromAppointment(row, painted);
            });
        return false;
    }
};

}  // namespace

void CalendarView::bindInPlaceWork() {
    connect(ctMDay1, &ctMDay::ItemChanged, this, &CalendarView::moveappt);
    connect(ctMDay1, &ctMDay::TextEdited, this, [this](int index) {
        saveappt(index);
        displayapptinfo(ctMDay1->SelectedItem());
    });
}

QStringList CalendarView::savingStatements(const CalendarItem& item) const {
    return detailStatements(item) << InPlaceStatements(item.ItemKey.toInt());
}

bool CalendarView::saveappt(int index, const QString& subject) {
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const int key = item.ItemKey.toInt();
    if (key < 1)
        return false;
    const ShownAppointment before = facts_.value(item.ItemKey);
    // A row may have no text; only one that the user took away comes back.
    if (item.ItemText.trimmed().isEmpty() && item.ItemText != before.stored.ItemText) {
        ctMDay1->Item(index).ItemText = before.stored.ItemText;
        return false;
    }
    const db::ReadTogether together(Session().Connection, savingStatements(item));
    const RowOutcome outcome = SaveInPlace(before.stored, item, painting());
    if (outcome.failure) {
        tellUnsaved(item.ItemKey, outcome, subject);
        keepText(before.stored, item.ItemText);
        return false;
    }
    if (outcome.end == WriteOutcome::End::Gone) {
        TellSavedRowIsGone();
        removeItemsOf(key);
        return false;
    }
    showRow(outcome.row);
    if (!subject.isEmpty())
        DropNotice(subject);
    if (!before.StandsAs(facts_[item.ItemKey]))
        Reload();
    return true;
}

void CalendarView::moveappt(int index) {
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const int key = item.ItemKey.toInt();
    if (!IsTimeOfDay(item.ItemStart, item.ItemEnd)) {
        putBack(item.ItemKey);
        tellNoTimeOfDay();
        return;
    }
    const db::ReadTogether together(Session().Connection, savingStatements(item) << MoveStatements(key));
    try {
        if (IsSharedActivity(key)) {
            scheduleActivity(key, SelectedSlot{item.ItemDay, item.ItemStart, item.ItemEnd});
            return;
        }
        storeMove(item);
    } catch (const db::DatabaseError& error) {
        tellUnsaved(item.ItemKey, {WriteOutcome::End::Failed, WriteStep::Appointment, error});
    }
}

void CalendarView::tellNoTimeOfDay() {
    MsgBox(tr("An appointment must end after it starts, on the same day. Open it to change its times."), ExclamationBox,
           tr("Move Appointment"));
}

void CalendarView::storeMove(const CalendarItem& item) {
    const ShownAppointment before = facts_.value(item.ItemKey);
    AppointmentMove move{before, item.ItemDay, item.ItemStart, item.ItemEnd, item.ItemText, false, {}, {}};
    if ((move.provider = providerOfColumn(item.ItemColumn)))
        move.providerBefore = nameOfProvider(before.clinicianId);
    const MoveOutcome outcome = MoveWithRoom(move, RoomQuestion::Ask, painting());
    if (outcome.stop == MoveOutcome::Stop::RoomUnread)
        return putBack(item.ItemKey);
    if (outcome.stop == MoveOutcome::Stop::RoomRefused)
        return Reload();
    if (outcome.failure)
        return tellUnsaved(item.ItemKey, outcome);
    if (outcome.end == WriteOutcome::End::Gone) {
        TellMovedRowGone();
        removeItemsOf(item.ItemKey.toInt());
        return;
    }
    showRow(outcome.row);
    displayapptinfo(ctMDay1->SelectedItem());
    leaveShelf(item.ItemKey.toInt());
    // A row that went to another day or provider is easily missed; one that moved within its column is seen.
    if (!outcome.row.BelongsAs(before))
        TellMoved(main_, {move, outcome.row});
}

void CalendarView::showRow(ShownAppointment row) {
    CalendarItem& shown = row.stored;
    const int index = ctMDay1->IndexOfKey(shown.ItemKey);
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const ShownAppointment before = facts_.value(shown.ItemKey);
    shown.ItemColumn = item.ItemColumn;
    facts_[shown.ItemKey] = row;
    seriesTips_.clear();
    // The picture that a status command chose stays until the view reads anew.
    if (item.ItemStatusIcon != before.stored.ItemStatusIcon)
        shown.ItemStatusIcon = item.ItemStatusIcon;
    board_->Show(index, shown);
    suitSlip(ctMDay1->SelectedItem());
}

void CalendarView::putBack(const QString& key) {
    if (facts_.contains(key))
        board_->Show(ctMDay1->IndexOfKey(key), facts_[key].stored);
}

void CalendarView::tellUnsaved(const QString& key, const WriteOutcome& outcome, const QString& subject) {
    putBack(key);
    TellUnsaved(outcome, subject);
    if (outcome.failure->number == db::RowChanged)
        Reload();
}

// The view may be another one when the user tries again.
void CalendarView::keepText(const CalendarItem& read, const QString& text) const {
    if (text == read.ItemText)
        return;
    const auto unsaved = std::make_shared<UnsavedText>(UnsavedText{read, text});
    const QDate date = read.ItemDay.isValid() ? read.ItemDay : main_.Date();
    KeepTyped(tr("the text of the appointment on %1 at %2")
                  .arg(ShortDateText(date), MinutesToTimeText(read.ItemStart, Session().MilitaryTime)),
              [&main = main_, unsaved] {
                  const bool settled = unsaved->Store();
                  main.cycledate(2);
                  return settled;
              });
}
