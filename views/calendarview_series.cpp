#include "appointments/frmrecurappt.h"
#include "appointments/frmrest.h"
#include "data/codes.h"
#include "followup/frmcheckedin.h"
#include "platform/desktop/desktop.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "views/calendarview.h"

void CalendarView::bindSeries() {
    menus_.Bind(menu::mnuARepeat, [this] {
        const std::optional<CalendarItem> item = SelectedItem();
        if (!item || item->ItemKey.toInt() < 1) {
            MsgBox(
                QStringLiteral(
                    "No appointment selected. First add or select an appointment and then perform Repeating function."),
                ExclamationBox, QStringLiteral("Warning"));
            return;
        }
        showEditor(std::make_unique<frmRecurAppt>(
            *item, Provider(), [&main = main_] { main.cycledate(2); }, window()));
    });
    menus_.Bind(menu::mnuARest, [this] { changeRest(); });
    connect(ctMDay1, &ctMDay::ItemSelected, this, &CalendarView::suitRest);
    suitRest(0);
}

void CalendarView::suitRest(int index) {
    menus_.Suit(menu::mnuARest, index > 0 && std::as_const(*ctMDay1).Item(index).ItemSeriesIcon > 0,
                index < 1 ? tr("Select an appointment first.") : tr("This appointment does not belong to a series."));
}

void CalendarView::changeRest() {
    ctMDay1->CommitEdit();
    const std::optional<RestSeries> series = OpenSeries(selectedKey());
    if (series) {
        frmrest rest(
            *series, [&main = main_] { main.cycledate(2); }, window());
        ShowModal(rest);
    }
    Reload();
    frmCheckedIn::ReloadIfOpen();
}
