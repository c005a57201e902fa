#include <algorithm>
#include <QAction>
#include <QMenu>
#include <utility>

#include "appointments/frmwait.h"
#include "appointments/waitbar.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"
#include "views/calendarview.h"

namespace {

constexpr int HourMinutes = 60;

bool isCancelled(const CalendarItem& item) {
    return item.ItemColor == ncolor::PatientCancelled || item.ItemColor == ncolor::TherapistCancelled;
}

// A cancelled appointment and a slot that waits for a patient hold no time.
bool holdsTime(const ShownAppointment& row) {
    return !isCancelled(row.stored) && row.apptType != ApptTypeSlot && row.stored.ItemStart < row.stored.ItemEnd;
}

}  // namespace

void CalendarView::bindWaitList() {
    menus_.Bind(menu::mnuAWait, [this] { openWaitList(); });
    waitForHour_ = new QAction(tr("Who Waits for This &Hour?"), this);
    waitForHour_->setObjectName(QStringLiteral("mnuAWaitHour"));
    connect(waitForHour_, &QAction::triggered, this, &CalendarView::askWhoWaits);
    newPopup_->addAction(waitForHour_);
    connect(newPopup_, &QMenu::aboutToShow, this, &CalendarView::suitWaitList);
    connect(itemPopup_, &QMenu::aboutToShow, this, [this] {
        suitWaitList();
        if (selectedKey() < 1)
            menus_.Suit(menu::mnuAWait, false, tr("A holiday is not an appointment."));
    });
    connect(itemPopup_, &QMenu::aboutToHide, this, &CalendarView::suitWaitList);
}

void CalendarView::FillMenus(QMenuBar& bar) {
    MenuView::FillMenus(bar);
    connect(menus_.Command(menu::mnuAppointments).menu(), &QMenu::aboutToShow, this, &CalendarView::suitWaitList);
}

// A practice whose tables are older has no wait list. It is looked up when somebody looks at the command, so that
// loading a view waits for nothing.
void CalendarView::suitWaitList() {
    bool there = true;
    db::Ignoring([&] { there = HasWaitList(); });
    menus_.Suit(menu::mnuAWait, there, NoWaitListText());
    waitForHour_->setEnabled(there && SelectedTime());
    waitForHour_->setToolTip(there ? QString() : NoWaitListText());
}

void CalendarView::openWaitList() {
    ctMDay1->CommitEdit();
    try {
        if (!HasWaitList()) {
            MsgBox(NoWaitListText(), InformationBox, QStringLiteral("Wait List"));
            return;
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading wait list. "), error);
        return;
    }
    WaitOpening opening;
    if (const std::optional<CalendarItem> item = SelectedItem(); item && NamesPatient(*item)) {
        opening = {GetPipeField(item->ItemNote, 3), item->ItemEnd - item->ItemStart,
                   facts_.value(item->ItemKey).clinicianId};
    }
    frmwait list(opening, window());
    ShowModal(list);
    RecheckOffers();
}

// Whoever points at one cell means the hour that begins there.
void CalendarView::askWhoWaits() {
    const std::optional<SelectedSlot> slot = SelectedTime();
    if (!slot)
        return;
    const bool oneCell = slot->end - slot->start <= Session().TimeUnit;
    const int end = oneCell ? std::min(std::max(slot->end, slot->start + HourMinutes), MinutesPerDay) : slot->end;
    AskWhoWaits({Provider().id, slot->date, {slot->start, end}, {}});
}

void CalendarView::keepHeldTimes() {
    heldBefore_.clear();
    for (auto row = facts_.cbegin(); row != facts_.cend(); ++row)
        if (holdsTime(*row) && ctMDay1->IndexOfKey(row.key()) > 0)
            heldBefore_.push_back(*row);
}

// What another desk has cancelled, moved or deleted is seen when the same days are read again. An activity of several
// stood in this schedule because its provider attends; who else did, is not known any more.
void CalendarView::tellFreedTimes() {
    for (const ShownAppointment& before : std::exchange(heldBefore_, {})) {
        if (hasUnread())
            break;
        const auto now = facts_.constFind(before.stored.ItemKey);
        if (now != facts_.cend() && holdsTime(*now) && now->StandsAs(before))
            continue;
        const bool shared = before.clinicianId == QLatin1String(EventClinicianId);
        TellFreedTime({shared ? Provider().id : before.clinicianId,
                       dateOf(before.stored),
                       {before.stored.ItemStart, before.stored.ItemEnd},
                       GetPipeField(before.stored.ItemNote, 3)});
    }
    RecheckOffers();
}
