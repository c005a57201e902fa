#include "appointments/editorrequest.h"
#include "data/codes.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "search/frmnextfree.h"
#include "session/rights.h"
#include "session/session.h"
#include "views/calendarview.h"

void CalendarView::bindNextFree() {
    menus_.Bind(menu::mnuANext, [this] { findNextFree(); });
}

NextFreeRequest CalendarView::nextFreeRequest() const {
    return {Provider(), {}, false};
}

int CalendarView::columnFor(QDate /*date*/, const QString& /*provider*/) const {
    return 1;
}

void CalendarView::findNextFree() {
    if (!MayWrite())
        return;
    ctMDay1->CommitEdit();
    frmnextfree dialog(nextFreeRequest(), window());
    ShowModal(dialog);
    if (dialog.Found())
        bookOpening(*dialog.Found());
}

// The view goes there first, so that the time is seen among what else is booked, and stays there.
void CalendarView::bookOpening(const NextFree& found) {
    const Opening& opening = found.opening;
    const bool isOther = Session().ProviderId.compare(opening.provider.id, Qt::CaseInsensitive) != 0;
    main_.SetDate(opening.date);
    if (isOther) {
        Session().ProviderId = opening.provider.id;
        Session().ProviderName = opening.provider.name;
        main_.ProviderChosen();
    } else {
        Reload();
    }
    DropNotice(FoundNotice);
    followProvider();
    if (const int column = columnFor(opening.date, opening.provider.id); column > 0) {
        ctMDay1->selectRange(column, opening.start, opening.end);
    } else {
        ctMDay1->clearSelection();
        tellUnseenOpening(opening.date);
    }
    ctMDay1->setTopTime(opening.start);
    EditorRequest request{apptkind::Patient, true, 0, Session().CurrentView, opening.provider, opening.Slot()};
    request.patientId = found.patientId;
    request.patientName = found.patientName;
    request.category = found.category;
    openNew(&CalendarView::openEditor, request);
}
