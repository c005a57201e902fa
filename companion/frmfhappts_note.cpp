#include <QLabel>

#include "companion/companionitem.h"
#include "companion/companionnote.h"
#include "companion/companionrefusals.h"
#include "companion/frmfhappts.h"
#include "platform/calendar/ctmday.h"
#include "platform/desktop/desktop.h"

namespace {

constexpr int NotePicture = 1;

bool isOfPatient(const CalendarItem& item) {
    return IsCompanionAppointment(item) || item.ItemColor == companioncolor::PlainBlue;
}

}  // namespace

void frmFHAppts::openNote() {
    const std::optional<CalendarItem> item = SelectedItem();
    const std::optional<CompanionProvider> provider = SelectedProvider();
    if (!item || !provider) {
        MsgBox(QStringLiteral("No appointment selected. First select an appointment."), ExclamationBox,
               QStringLiteral("Warning"));
        return;
    }
    if (!isOfPatient(*item)) {
        TellRefusal(QStringLiteral("Select a patient appointment."));
        return;
    }
    OpenCompanionNote({.CtrnId = item->ItemKey.toInt(),
                       .ProvId = provider->provId,
                       .service = lblCPT->text(),
                       .isNoted = HasNoteIcon(*item),
                       .window = window(),
                       .showNote = [this, key = item->ItemKey] { showNote(key); },
                       .reload = [this] { Reload(); }});
}

// The week shows a new note in the place of the status picture until it is read anew.
void frmFHAppts::showNote(const QString& key) {
    ctMDay& grid = Grid();
    for (int index = 1; index <= grid.ItemCount(); ++index) {
        CalendarItem& item = grid.Item(index);
        if (item.ItemKey != key || !isOfPatient(item))
            continue;
        if (mode_ == Mode::Week)
            item.ItemStatusIcon = NotePicture;
        else
            SetNoteIcon(item);
    }
}
