#include "session/openview.h"

#include "platform/desktop/desktop.h"
#include "session/session.h"

namespace {

OpenView*& registered() {
    static OpenView* view = nullptr;
    return view;
}

BookedProvider sessionProvider() {
    return {Session().ProviderId, Session().ProviderName};
}

}  // namespace

OpenView::~OpenView() {
    if (registered() == this)
        registered() = nullptr;
}

QDate OpenView::ShownDate() const {
    const std::optional<SelectedSlot> time = SelectedTime();
    return time ? time->date : Today();
}

BookedProvider OpenView::Provider() const {
    return sessionProvider();
}

void OpenView::registerOpenView() {
    registered() = this;
}

OpenView* TheOpenView() {
    return registered();
}

bool ViewHasEditor(View view) {
    return view == View::Day || view == View::Week || view == View::AllProviders;
}

int SelectedItemKey(View view) {
    const OpenView* open = TheOpenView();
    if (open == nullptr || !ViewHasEditor(view))
        return 0;
    const std::optional<CalendarItem> item = open->SelectedItem();
    return item ? item->ItemKey.toInt() : 0;
}

int EditedApptKey() {
    if (Session().IsNewAppt)
        return 0;
    const int selected = SelectedItemKey(Session().CurrentView);
    return selected > 0 ? selected : Session().CurrentApptKey;
}

BookedProvider ProviderOfView() {
    const OpenView* open = TheOpenView();
    return open != nullptr ? open->Provider() : sessionProvider();
}
