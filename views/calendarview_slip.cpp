#include "data/codes.h"
#include "output/appointmentslip.h"
#include "views/calendarview.h"

void CalendarView::bindSlip() {
    menus_.Bind(menu::mnuFPrintA, [this] { printSlip(); });
    connect(ctMDay1, &ctMDay::ItemSelected, this, &CalendarView::suitSlip);
    suitSlip(0);
}

bool CalendarView::givesSlip(int code, int apptType) const {
    return HasSlip(code, apptType) && code != ncolor::Tentative;
}

bool CalendarView::hasSlip(int index) const {
    if (index < 1)
        return false;
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    return givesSlip(item.ItemColor, facts_.value(item.ItemKey).apptType);
}

QString CalendarView::whyNoSlip() const {
    return givesSlip(ncolor::Tentative, 0)
               ? tr("Only a patient's appointment that is blank, pending or tentative has a slip.")
               : tr("Only a patient's appointment that is blank or pending has a slip.");
}

void CalendarView::suitSlip(int index) {
    menus_.Suit(menu::mnuFPrintA, hasSlip(index), index < 1 ? tr("Select an appointment first.") : whyNoSlip());
}

void CalendarView::printSlip() {
    ctMDay1->CommitEdit();
    const int index = ctMDay1->SelectedItem();
    if (!hasSlip(index))
        return;
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    OpenAppointmentSlip({.key = item.ItemKey.toInt(),
                         .date = item.ItemDay,
                         .start = item.ItemStart,
                         .has = [this](int code, int apptType) { return givesSlip(code, apptType); },
                         .whyNot = whyNoSlip()},
                        window(), [this] { Reload(); });
}
