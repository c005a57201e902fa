#include "appointments/apptlists.h"
#include "appointments/frmnore.h"
#include "platform/controls/completingcombo.h"

void frmnore::leaveList(Qt::FocusReason reason) {
    if (!PressesButton(reason))
        offerUnknownItems();
}

void frmnore::offerUnknownItems() {
    if (availOrEventTyped_) {
        availOrEventTyped_ = false;
        OfferUnknownItem(*cboavail, GrowingList::Availability);
        OfferUnknownItem(*cboevents, GrowingList::Events);
    }
    if (locationTyped_) {
        locationTyped_ = false;
        OfferUnknownItem(*cbolocation, GrowingList::Locations);
    }
}
