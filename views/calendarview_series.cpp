#include "appointments/frmrecurappt.h"
#include "appointments/frmrest.h"
#include "appointments/seriesnumber.h"
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
    ctMDay1->setSeriesText([this](int index) { return seriesTip(index); });
    suitRest(0);
}

// What cannot be read is not asked for again at each movement of the pointer.
QString CalendarView::seriesTip(int index) const {
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    const auto known = seriesTips_.constFind(item.ItemKey);
    if (known != seriesTips_.cend())
        return *known;
    QString number;
    db::Ignoring([&] { number = SeriesNumberText(item.ItemKey.toInt(), dateOf(item), item.ItemStart); });
    const QString tip = number.isEmpty() ? QString() : tr("Series: %1").arg(number);
    seriesTips_.insert(item.ItemKey, tip);
    return tip;
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
