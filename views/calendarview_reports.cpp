#include "output/frmschrpt.h"
#include "platform/desktop/desktop.h"
#include "views/calendarview.h"

void CalendarView::bindReports() {
    menus_.Bind(menu::mnuFRSched, [this] { openReport(ReportMode::Schedule); });
    menus_.Bind(menu::mnuFRCancel, [this] { openReport(ReportMode::Cancellation); });
    menus_.Bind(menu::mnuFRCalls, [this] { openReport(ReportMode::CourtesyCalls); });
    allowReports(false);
}

void CalendarView::allowReports(bool allowed) {
    for (const MenuName name : {menu::mnuFReport, menu::mnuFRSched, menu::mnuFRCancel, menu::mnuFRCalls})
        menus_.Allow(name, allowed, tr("The schedule could not be read."));
}

ReportOpening CalendarView::reportOpening() const {
    return {.from = ctMDay1->Date(), .to = ctMDay1->Date(), .provider = Provider().id};
}

void CalendarView::openReport(ReportMode mode) {
    ctMDay1->CommitEdit();
    ReportOpening opening = reportOpening();
    opening.mode = mode;
    frmschrpt form(opening, window());
    ShowModal(form);
}
