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
    bool repeat, edit, slip, note;
    const char* tick;
};

// A Tentative row offers no repeating, while a Pending one does; only Pending and blank rows have a slip to print.
constexpr PopupOffer offers[] = {
    {ncolor::Missed, true, true, false, true, "mnuAMissed"},
    {ncolor::PatientCancelled, true, true, false, true, "mnuAPCancel"},
    {ncolor::TherapistCancelled, true, true, false, true, "mnuATCancel"},
    {ncolor::Kept, true, true, false, true, "mnuAKept"},
    {ncolor::Holiday, false, false, false, false, nullptr},
    {ncolor::Blank, true, true, true, false, nullptr},
    {ncolor::Pending, true, true, true, false, nullptr},
    {ncolor::Group, false, true, false, false, nullptr},
    {ncolor::CheckedIn, true, true, false, false, "mnuCheckediN"},
    {ncolor::Tentative, false, true, false, false, nullptr},
};
constexpr PopupOffer typeSlotOrOther{0, true, true, false, false, nullptr};

const PopupOffer& offerFor(int code, int apptType) {
    const auto* found = std::find_if(std::begin(offers), std::end(offers),
                                     [code](const PopupOffer& offer) { return offer.code == code; });
    return apptType == ApptTypeSlot || found == std::end(offers) ? typeSlotOrOther : *found;
}

// Commands for empty time, which an item's popup holds but does not offer.
constexpr const char* notForItems[] = {"mnuANew", "mnuAsep1", "mnuAFind", "mnuASearchA"};

}  // namespace

// The popup is the Appointments menu with the slip of the File menu. What it changes of the commands holds while it is
// open; the menu bar has them back before the chosen one runs.
void CalendarView::popupOnItem(int index, const QPoint& place) {
    if (index < 1 || !MayWrite())
        return;
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    const PopupOffer& offer = offerFor(item.ItemColor, facts_.value(item.ItemKey).apptType);
    for (const char* name : notForItems)
        menus_.Suit(QLatin1String(name), false);
    menus_.Show(QStringLiteral("mnuARepeat"), offer.repeat);
    menus_.Show(QStringLiteral("mnuAEdit"), offer.edit);
    menus_.Show(QStringLiteral("mnuFPrintA"), offer.slip);
    menus_.Show(QStringLiteral("mnuANote"), offer.note);
    menus_.Show(QStringLiteral("mnuADelete"), item.ItemKey.toInt() > 0);
    tickStatus(QLatin1String(offer.tick));

    itemPopup_->popup(place);
}

// One for all items: the menu that a command was chosen from is still at work while the command's dialog is open.
void CalendarView::makeItemPopup() {
    itemPopup_ = new QMenu(this);
    itemPopup_->setObjectName(QStringLiteral("popup"));
    itemPopup_->setToolTipsVisible(true);
    itemPopup_->addActions(menus_.Entries(QStringLiteral("mnuAppointments")));
    itemPopup_->insertAction(&menus_.Command(QStringLiteral("mnuANote")),
                             &menus_.Command(QStringLiteral("mnuFPrintA")));
    connect(itemPopup_, &QMenu::aboutToHide, this, &CalendarView::endPopup);
    connect(ctMDay1, &ctMDay::PopupRequested, this, &CalendarView::popupOnItem);
}

void CalendarView::endPopup() {
    for (const char* name : notForItems)
        menus_.Suit(QLatin1String(name), true);
    for (const char* name : {"mnuARepeat", "mnuAEdit", "mnuFPrintA", "mnuANote", "mnuADelete"})
        menus_.Show(QLatin1String(name), true);
    tickStatus({});
}
