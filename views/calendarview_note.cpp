#include <QAction>

#include "followup/sessionnote.h"
#include "views/calendarview.h"

void CalendarView::bindNotes() {
    menus_.Bind(menu::mnuANote, [this] { openNote(); });
    // A key that is held down must not start the notes program again and again.
    menus_.Command(menu::mnuANote).setAutoRepeat(false);
}

void CalendarView::openNote() {
    ctMDay1->CommitEdit();
    std::optional<ShownAppointment> selected;
    if (const std::optional<CalendarItem> item = SelectedItem()) {
        selected = facts_.value(item->ItemKey);
        selected->stored = *item;
    }
    OpenSessionNote(selected,
                    {window(), [this](bool shown) { menus_.Show(menu::mnuANote, shown); },
                     [this, &selected](int icon) { showNote(selected->stored.ItemKey, icon); }, [this] { Reload(); }});
}

void CalendarView::showNote(const QString& key, int icon) {
    const int index = ctMDay1->IndexOfKey(key);
    if (index < 1)
        return;
    ctMDay1->Item(index).ItemSessionIcon = icon;
    facts_[key].stored.ItemSessionIcon = icon;
}
