#include <algorithm>
#include <iterator>
#include <QAction>
#include <QMenu>

#include "data/codes.h"
#include "session/rights.h"
#include "session/session.h"
#include "views/calendarview.h"

namespace {

/// What the popup offers for a kind of row besides what it always holds.
struct PopupOffer {
    int code;
    bool repeat, edit, note;
    MenuName tick;
};

// A Tentative row offers no repeating, while a Pending one does.
constexpr PopupOffer offers[] = {
    {ncolor::Missed, true, true, true, menu::mnuAMissed},
    {ncolor::PatientCancelled, true, true, true, menu::mnuAPCancel},
    {ncolor::TherapistCancelled, true, true, true, menu::mnuATCancel},
    {ncolor::Kept, true, true, true, menu::mnuAKept},
    {ncolor::Holiday, false, false, false, {}},
    {ncolor::Blank, true, true, false, {}},
    {ncolor::Pending, true, true, false, menu::mnuAPending},
    {ncolor::Group, false, true, false, {}},
    {ncolor::CheckedIn, true, true, false, menu::mnuCheckediN},
    {ncolor::Tentative, false, true, false, {}},
};
constexpr PopupOffer typeSlotOrOther{0, true, true, false, {}};

const PopupOffer& offerFor(int code, int apptType) {
    const auto* found = std::find_if(std::begin(offers), std::end(offers),
                                     [code](const PopupOffer& offer) { return offer.code == code; });
    return apptType == ApptTypeSlot || found == std::end(offers) ? typeSlotOrOther : *found;
}

// Commands for empty time, which an item's popup holds but does not offer.
constexpr MenuName notForItems[] = {menu::mnuANew, menu::mnuANext, menu::mnuAsep1, menu::mnuAFind, menu::mnuASearchA};

}  // namespace

// The popup is the Appointments menu with the slip of the File menu. What it changes of the commands holds while it is
// open; the menu bar has them back before the chosen one runs.
void CalendarView::popupOnItem(int index, const QPoint& place) {
    if (index < 1 || !MayWrite())
        return;
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    const PopupOffer& offer = offerFor(item.ItemColor, facts_.value(item.ItemKey).apptType);
    for (const MenuName name : notForItems)
        menus_.Suit(name, false, tr("Select a free time instead."));
    menus_.Show(menu::mnuARepeat, offer.repeat);
    menus_.Show(menu::mnuAEdit, offer.edit);
    menus_.Show(menu::mnuFPrintA, hasSlip(index));
    menus_.Show(menu::mnuANote, offer.note);
    menus_.Show(menu::mnuALand, false);  // It is for empty time.
    menus_.Show(menu::mnuADelete, item.ItemKey.toInt() > 0);
    tickStatus(offer.tick);

    itemPopup_->popup(place);
}

// One for all items: the menu that a command was chosen from is still at work while the command's dialog is open.
void CalendarView::makeItemPopup() {
    itemPopup_ = new QMenu(this);
    itemPopup_->setObjectName(QStringLiteral("popup"));
    itemPopup_->setToolTipsVisible(true);
    itemPopup_->addActions(menus_.Entries(menu::mnuAppointments));
    itemPopup_->insertAction(&menus_.Command(menu::mnuANote), &menus_.Command(menu::mnuFPrintA));
    connect(itemPopup_, &QMenu::aboutToHide, this, &CalendarView::endPopup);
    connect(ctMDay1, &ctMDay::PopupRequested, this, &CalendarView::popupOnItem);
}

void CalendarView::endPopup() {
    for (const MenuName name : notForItems)
        menus_.Suit(name, true);
    for (const MenuName name :
         {menu::mnuARepeat, menu::mnuAEdit, menu::mnuFPrintA, menu::mnuANote, menu::mnuADelete, menu::mnuALand})
        menus_.Show(name, true);
    tickStatus({});
}
