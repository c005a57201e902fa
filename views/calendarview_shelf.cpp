#include <QAction>

#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "appointments/frmmove.h"
#include "appointments/movement.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/database/readtogether.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/providernames.h"
#include "session/rights.h"
#include "session/session.h"
#include "views/calendarview.h"
#include "views/movednotice.h"
#include "views/shelfpanel.h"

void CalendarView::bindShelf() {
    menus_.Bind(menu::mnuAMove, [this] { moveCommand(); });
    menus_.Bind(menu::mnuAShelve, [this] {
        ctMDay1->CommitEdit();  // It may remove the item.
        shelve(ctMDay1->SelectedItem());
    });
    menus_.Bind(menu::mnuALand, [this] { landAtSelection(); });
    BindShelfCommand(menus_, *shelf_);
    ctMDay1->addDropTarget(shelf_);
    connect(ctMDay1, &ctMDay::DroppedOutside, this, &CalendarView::shelve);
    connect(ctMDay1, &ctMDay::ItemSelected, this, &CalendarView::suitMoves);
    connect(shelf_, &ShelfPanel::Changed, this, &CalendarView::followShelf);
    connect(shelf_, &ShelfPanel::ShowRequested, this,
            [&main = main_](const ShelvedAppointment& shelved) { GoToShelved(main, shelved); });
    connect(&shelf_->List(), &ShelfList::LeaveRequested, ctMDay1, [this] { ctMDay1->setFocus(); });
    shelf_->List().SetTarget({[this](int key, QPoint at) { return placeIncoming(key, at).has_value(); },
                              [this](int key, QPoint at) { dropIncoming(key, at); },
                              [this] { ctMDay1->endIncoming(); }});
    followShelf();
}

// A drag from the shelf that is still under way has nothing to land on any more.
CalendarView::~CalendarView() {
    shelf_->List().SetTarget({});
}

QWidget* CalendarView::calendarWithShelf() {
    return BesideShelf(ctMDay1, shelf_);
}

QList<QWidget*> CalendarView::SidePanes() const {
    return {&shelf_->List()};
}

// What is on the shelf is marked where it is booked.
void CalendarView::followShelf() {
    for (int index = 1; index <= ctMDay1->ItemCount(); ++index)
        board_->Lock(index);
    suitMoves(ctMDay1->SelectedItem());
}

QString CalendarView::whyNoMove(int index) const {
    if (index < 1)
        return tr("Select an appointment first.");
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    if (item.ItemKey.toInt() < 1)
        return tr("A holiday is not an appointment.");
    if (facts_.value(item.ItemKey).apptType == ApptTypeSlot)
        return tr("The slot of an appointment type stays where it is.");
    return {};
}

void CalendarView::suitMoves(int index) {
    const QString why = whyNoMove(index);
    menus_.Suit(menu::mnuAMove, why.isEmpty(), why);
    menus_.Suit(menu::mnuAShelve, shelf_->Exists() && why.isEmpty(), shelf_->Exists() ? why : WhyNoShelf());
    menus_.Suit(menu::mnuALand, shelf_->Exists() && !shelf_->IsEmpty(),
                shelf_->Exists() ? tr("The holding shelf is empty.") : WhyNoShelf());
}

BookedProvider CalendarView::providerNamed(const QString& id) const {
    if (id.compare(Session().ProviderId, Qt::CaseInsensitive) == 0)
        return {id, Session().ProviderName};
    QString name = nameOfProvider(id);
    if (name == id)
        db::Ignoring([&] { name = ProviderNames().Of(id); });
    return {id, name};
}

void CalendarView::moveCommand() {
    ctMDay1->CommitEdit();
    const int index = ctMDay1->SelectedItem();
    if (!MayWrite() || !whyNoMove(index).isEmpty())
        return;
    const ShownAppointment row = facts_.value(std::as_const(*ctMDay1).Item(index).ItemKey);
    const int key = row.stored.ItemKey.toInt();
    bool shared = false;
    try {
        shared = IsSharedActivity(key);
    } catch (const db::DatabaseError& error) {
        return TellError(QStringLiteral("Error loading appointment. "), error);
    }
    const BookedProvider provider = shared ? Provider() : providerNamed(row.clinicianId);
    frmmove form({row, provider, shared}, window());
    ShowModal(form);
    const std::optional<MoveTarget> target = form.Target();
    if (!target)
        return;
    if (shared)
        scheduleActivity(key, target->slot);
    else
        move(row, *target, provider.name, RoomQuestion::Answered);
}

void CalendarView::move(const ShownAppointment& row, const MoveTarget& target, const QString& providerBefore,
                        RoomQuestion question) {
    const SelectedSlot& slot = target.slot;
    AppointmentMove wanted{row, slot.date, slot.start, slot.end, row.stored.ItemText, false, {}, {}};
    // As a drag does it: the audit log names the providers where they are columns, and where the provider changes.
    const bool same = target.provider.id.compare(row.clinicianId, Qt::CaseInsensitive) == 0;
    if (!same || providerOfColumn(1)) {
        wanted.provider = target.provider;
        wanted.providerBefore = providerBefore;
    }
    const int key = row.stored.ItemKey.toInt();
    const MoveOutcome outcome = MoveWithRoom(wanted, question, painting());
    if (outcome.failure) {
        TellError(WriteTrouble(outcome.step), *outcome.failure);
        if (outcome.failure->number == db::RowChanged)
            Reload();
    } else if (outcome.end == WriteOutcome::End::Gone) {
        TellMovedRowGone();
        removeItemsOf(key);
    }
    if (!outcome.IsMoved())
        return;
    leaveShelf(key);
    Reload();
    if (const int index = ctMDay1->IndexOfKey(row.stored.ItemKey); ctMDay1->ColumnOfItem(index) > 0) {
        ctMDay1->setSelectedItem(index);
        ctMDay1->ScrollToItem(index);
    }
    TellMoved(main_, {wanted, outcome.row});
}

void CalendarView::shelve(int index) {
    if (MayWrite() && shelf_->Exists() && whyNoMove(index).isEmpty())
        shelf_->Put(facts_.value(std::as_const(*ctMDay1).Item(index).ItemKey));
}

void CalendarView::leaveShelf(int key) {
    if (shelf_->Holds(QString::number(key)))
        shelf_->TakeOff(key);
}

std::optional<ItemPlace> CalendarView::placeIncoming(int key, QPoint at) {
    const std::optional<ShelvedAppointment> shelved = shelf_->Find(key);
    if (!shelved || !MayWrite())
        return std::nullopt;
    CalendarItem item = shelved->row.stored;
    HideName(item, Session().HidePatientNames);
    return ctMDay1->showIncoming(at, item);
}

void CalendarView::dropIncoming(int key, QPoint at) {
    const std::optional<ShelvedAppointment> shelved = shelf_->Find(key);
    const std::optional<ItemPlace> place = placeIncoming(key, at);
    ctMDay1->endIncoming();
    if (shelved && place)
        land(*shelved, *place);
}

void CalendarView::landAtSelection() {
    ctMDay1->CommitEdit();
    const std::optional<ShelvedAppointment> shelved = shelf_->Selected();
    if (!MayWrite() || !shelved)
        return;
    const std::optional<SelectedSlot> slot = SelectedTime();
    if (!slot) {
        MsgBox(QStringLiteral("No Appointment Time is Currently Selected"), ExclamationBox, QStringLiteral("Warning"));
        return;
    }
    const CalendarItem& item = shelved->row.stored;
    land(*shelved, {ctMDay1->SelColumn(), slot->date, slot->start, slot->start + item.ItemEnd - item.ItemStart});
}

// A drag's rules, questions and write, for an appointment that comes from the shelf.
void CalendarView::land(const ShelvedAppointment& shelved, const ItemPlace& place) {
    if (!IsTimeOfDay(place.start, place.end))
        return tellNoTimeOfDay();
    if (!MayWorkOn({shelved.row.clinicianId, shelved.provider}))
        return;
    const MoveTarget target{{dateOfColumn(place.column), place.start, place.end},
                            providerOfColumn(place.column).value_or(Provider())};
    const CalendarItem& item = shelved.row.stored;
    if (target.slot == SelectedSlot{item.ItemDay, item.ItemStart, item.ItemEnd} &&
        target.provider.id.compare(shelved.row.clinicianId, Qt::CaseInsensitive) == 0)
        return leaveShelf(shelved.key);  // It stands there already.
    const db::ReadTogether together(Session().Connection, MoveStatements(shelved.key));
    try {
        if (IsSharedActivity(shelved.key)) {
            landActivity(shelved, target.slot);
            return;
        }
    } catch (const db::DatabaseError& error) {
        return TellError(WriteTrouble(WriteStep::Appointment), error);
    }
    if (!mayDrop(shelved.row.stored, place))
        return;
    move(shelved.row, target, shelved.provider, RoomQuestion::Ask);
}

// The user does not see the schedules of all who attend, and is asked about them first. The Activity Scheduler then
// saves or is given up; only what it has moved leaves the shelf.
void CalendarView::landActivity(const ShelvedAppointment& shelved, const SelectedSlot& slot) {
    if (CheckAttendeeConflicts(shelved.key, slot.date, slot.start, slot.end))
        return;
    scheduleActivity(shelved.key, slot);
    if (const std::optional<ShelvedAppointment> now = shelf_->Find(shelved.key); now && !now->row.StandsAs(shelved.row))
        shelf_->TakeOff(shelved.key);
}
