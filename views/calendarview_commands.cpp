#include "appointments/frmrecurappt.h"
#include "people/frmapttypes.h"
#include "people/frmholidays.h"
#include "platform/desktop/desktop.h"
#include "search/frmfinda.h"
#include "search/frmfirstatype.h"
#include "search/frmsavail.h"
#include "session/session.h"
#include "views/calendarview.h"

void CalendarView::bindLists() {
    menus_.Bind(QStringLiteral("mnuFAtypes"), [this] {
        frmapttypes dialog(window());
        ShowModal(dialog);
        // A type's colour may have changed in all its appointments.
        Reload();
    });
    menus_.Bind(QStringLiteral("mnuFHolidays"), [this] {
        frmholidays dialog(window());
        ShowModal(dialog);
        Reload();
    });
}

void CalendarView::bindSearches() {
    menus_.Bind(QStringLiteral("mnuAFind"), [this] { FindAppointment(); });
    menus_.Bind(QStringLiteral("mnuASearchO"), [this] { searchOpening(); });
    menus_.Bind(QStringLiteral("mnuASearchT"), [this] { searchType(); });
}

void CalendarView::bindSeries() {
    menus_.Bind(QStringLiteral("mnuARepeat"), [this] {
        Session().IsNewAppt = false;
        const std::optional<CalendarItem> item = SelectedItem();
        if (!item || item->ItemKey.toInt() < 1) {
            MsgBox(
                QStringLiteral(
                    "No appointment selected. First add or select an appointment and then perform Repeating function."),
                ExclamationBox, QStringLiteral("Warning"));
            return;
        }
        frmRecurAppt dialog(window());
        ShowModal(dialog);
        Reload();
    });
}

void CalendarView::FindAppointment() {
    frmfinda dialog(window());
    ShowModal(dialog);
    if (!dialog.Found())
        return;
    const FoundAppointment found = *dialog.Found();
    main_.SetDate(found.date);
    Reload();
    ctMDay1->setTopTime(found.start);
    ctMDay1->setSelectedItem(ctMDay1->IndexOfKey(found.key));
    ctMDay1->setFocus();
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
}
