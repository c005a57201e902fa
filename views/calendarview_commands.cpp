#include "output/frmexportopts.h"
#include "people/frmapttypes.h"
#include "people/frmholidays.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "search/frmfinda.h"
#include "search/frmfirstatype.h"
#include "search/frmsavail.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "views/calendarview.h"

void CalendarView::bindLists() {
    menus_.Bind(menu::mnuFAtypes, [this] {
        frmapttypes dialog(window());
        ShowModal(dialog);
        // A type's colour may have changed in all its appointments.
        Reload();
    });
    menus_.Bind(menu::mnuFHolidays, [this] {
        frmholidays dialog(window());
        ShowModal(dialog);
        Reload();
    });
}

void CalendarView::bindSearches() {
    menus_.Bind(menu::mnuAFind, [this] { FindAppointment(); });
    menus_.Bind(menu::mnuASearchO, [this] { searchOpening(); });
    menus_.Bind(menu::mnuASearchT, [this] { searchType(); });
}

void CalendarView::ShowNow() {
    constexpr int LeadMinutes = 60;
    const QTime now = Now().time();
    const int minute = now.hour() * 60 + now.minute();
    ctMDay1->setTopTime(minute - minute % ctMDay1->TimeInterval() - LeadMinutes);
    ctMDay1->setFocus();
}

int CalendarView::selectedKey() const {
    const std::optional<CalendarItem> item = SelectedItem();
    return item ? item->ItemKey.toInt() : 0;
}

void CalendarView::bindExports(const std::function<ExportRequest()>& request, const std::function<void()>& html) {
    exports_ = true;
    menus_.Bind(menu::mnuFExportiCal, [this, request] {
        ctMDay1->CommitEdit();
        RunEditor(std::make_unique<frmExportOpts>(request(), window()), {}, {});
    });
    menus_.Bind(menu::mnuFExportHTML, [this, html] {
        ctMDay1->CommitEdit();
        html();
    });
}

void CalendarView::FindAppointment() {
    frmfinda dialog(window());
    ShowModal(dialog);
    if (!dialog.Found())
        return;
    main_.SetDate(dialog.Found()->date);
    if (dialog.ProviderChanged())
        main_.ProviderChosen();
    else
        Reload();
    followProvider();
    showFound(*dialog.Found());
}

// What is not seen is not selected either, nor is what was selected before: the next command would work on it unseen.
void CalendarView::showFound(const FoundAppointment& found) {
    const int index = ctMDay1->IndexOfKey(found.key);
    ctMDay1->setTopTime(found.start);
    DropNotice(FoundNotice);
    if (ctMDay1->ColumnOfItem(index) > 0) {
        ctMDay1->setSelectedItem(index);
        ctMDay1->ScrollToItem(index);
    } else {
        ctMDay1->clearSelection();
        tellUnseen(found);
    }
    ctMDay1->setFocus();
}

QString CalendarView::whyUnseen(const FoundAppointment& /*found*/) const {
    return {};
}

void CalendarView::tellUnseen(const FoundAppointment& found) {
    Notice notice{whyUnseen(found), Notice::Kind::Caution, {}, FoundNotice};
    if (notice.text.isEmpty())
        notice.text = tr("The appointment that was found is not there any more. Another user may have deleted it.");
    else
        notice.actions = {{tr("Open Day"), [&main = main_, found] { main.OpenFound(found); }}};
    ShowNotice(std::move(notice));
}

// Whoever closes the search without a choice is brought to today: the search is about what is still to come.
void CalendarView::searchOpening() {
    const QString before = Session().ProviderId;
    frmsavail dialog(window());
    ShowModal(dialog);
    main_.SetDate(dialog.JumpDate().isValid() ? dialog.JumpDate() : Today());
    if (Session().ProviderId != before)
        main_.ProviderChosen();
    else
        Reload();
    if (dialog.JumpDate().isValid())
        followProvider();
}

void CalendarView::searchType() {
    frmfirstatype dialog(window());
    ShowModal(dialog);
    if (!dialog.JumpDate().isValid())
        return;
    main_.SetDate(dialog.JumpDate());
    if (dialog.ProviderChanged())
        main_.ProviderChosen();
    else
        Reload();
    followProvider();
}
