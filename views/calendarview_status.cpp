#include <QAction>
#include <QActionGroup>

#include "appointments/appointmentwrites.h"
#include "appointments/patientalerts.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "followup/frmarrivaltime.h"
#include "followup/frmcheckedin.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"
#include "views/calendarview.h"

namespace {

// Before the reason, and the notice's subject.
const QString StatusUnsaved = QStringLiteral("The status was not saved. ");

constexpr MenuName statusCommands[] = {menu::mnuAPending, menu::mnuCheckediN, menu::mnuAKept,
                                       menu::mnuAMissed,  menu::mnuAPCancel,  menu::mnuATCancel};

// Colours that are a kind: a status over one of them would make another thing of the row.
bool isKind(int code) {
    return code == ncolor::Activity || code == ncolor::Unavailable || code == ncolor::Group || code == ncolor::Holiday;
}

}  // namespace

void CalendarView::bindStatusCommands() {
    // A row has one status or none: the menus show a radio of them.
    auto* radio = new QActionGroup(this);
    radio->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const MenuName name : statusCommands) {
        QAction& command = menus_.Command(name);
        command.setCheckable(true);
        radio->addAction(&command);
        command.setIconVisibleInMenu(false);  // Its place is the tick's; the picture of Kept would pass for one.
    }
    menus_.Bind(menu::mnuVCheckedin, [this] { frmCheckedIn::Open(window()); });
    menus_.Bind(menu::mnuCheckediN, [this] { checkIn(); });
    menus_.Bind(menu::mnuAKept, [this] { keepAppointment(); });
    // The way back from a status that was chosen by mistake.
    menus_.Bind(menu::mnuAPending, [this] { changeStatus(menu::mnuAPending, ncolor::Pending); });
    menus_.Bind(menu::mnuAMissed, [this] { changeStatus(menu::mnuAMissed, ncolor::Missed); });
    menus_.Bind(menu::mnuAPCancel, [this] { changeStatus(menu::mnuAPCancel, ncolor::PatientCancelled); });
    menus_.Bind(menu::mnuATCancel, [this] { changeStatus(menu::mnuATCancel, ncolor::TherapistCancelled); });
    connect(ctMDay1, &ctMDay::ItemSelected, this, &CalendarView::suitCommands);
    suitCommands(0);
}

// A status belongs to a patient's appointment. A row in a colour that means nothing here is one when it names a
// patient; an activity, unavailable time, a group, a type slot and a holiday have none, and would turn into a patient's
// row without a patient.
bool CalendarView::hasStatus(int index) const {
    if (index < 1)
        return false;
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    if (item.ItemKey.toInt() < 1 || facts_.value(item.ItemKey).apptType == ApptTypeSlot)
        return false;
    return IsPatientRow(item.ItemColor) || (!isKind(item.ItemColor) && !GetPipeField(item.ItemNote, 3).isEmpty());
}

void CalendarView::suitCommands(int index) {
    tickStatus({});
    const QString nothing = tr("Select an appointment first.");
    for (const MenuName name : statusCommands)
        menus_.Suit(name, hasStatus(index),
                    index < 1 ? nothing : tr("Only the appointment of a patient has a status."));
    const bool isRow = index > 0 && std::as_const(*ctMDay1).Item(index).ItemKey.toInt() > 0;
    menus_.Suit(menu::mnuADelete, isRow, index < 1 ? nothing : tr("A holiday is not an appointment."));
}

void CalendarView::tickStatus(MenuName command) {
    for (const MenuName name : statusCommands)
        menus_.Command(name).setChecked(command == name);
}

// The selected item, when it has a status. What is being typed into it is saved first, which may end with no item.
int CalendarView::itemForStatus() {
    tickStatus({});  // The command itself has turned its tick over.
    ctMDay1->CommitEdit();
    const int index = ctMDay1->SelectedItem();
    return hasStatus(index) ? index : 0;
}

void CalendarView::changeStatus(MenuName command, int code) {
    const int index = itemForStatus();
    if (index < 1)
        return;
    const WriteOutcome outcome = SetApptStatus(std::as_const(*ctMDay1).Item(index).ItemKey.toInt(), code);
    if (outcome.failure)
        TellInBar(StatusUnsaved, *outcome.failure);
    else
        DropNotice(StatusUnsaved);
    // What was not stored is not shown.
    if (!outcome.IsDone())
        return;
    showStatus(index, code);
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    facts_[item.ItemKey].stored = item;
    tickStatus(command);
    frmCheckedIn::ReloadIfOpen();
}

// The form writes the arrival; the rest is for who confirmed it.
void CalendarView::checkIn() {
    const int index = itemForStatus();
    if (index < 1)
        return;
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    frmarrivalTime arrival(item.ItemKey.toInt(), window());
    if (ShowModal(arrival) != QDialog::Accepted)
        return;
    if (const int shown = ctMDay1->IndexOfKey(item.ItemKey); shown > 0)
        saveStatus(shown, menu::mnuCheckediN, ncolor::CheckedIn);
    frmCheckedIn::ReloadIfOpen();
    ShowPatientAlerts(GetPipeField(item.ItemNote, 3), QLatin1String(CheckInAlert));
}

void CalendarView::keepAppointment() {
    if (const int index = itemForStatus(); index > 0)
        saveStatus(index, menu::mnuAKept, ncolor::Kept);
}

// The whole row is saved, so a row that is gone or that another desk has settled is told of. The save may have read the
// view anew.
void CalendarView::saveStatus(int index, MenuName command, int code) {
    const QString key = std::as_const(*ctMDay1).Item(index).ItemKey;
    const db::ReadTogether together(Session().Connection, savingStatements(std::as_const(*ctMDay1).Item(index)));
    showStatus(index, code);
    ctMDay1->Item(index).ItemTentativeIcon = false;
    const bool saved = saveappt(index, StatusUnsaved);
    const int selected = ctMDay1->SelectedItem();
    displayapptinfo(selected);
    if (saved && selected > 0 && selected == ctMDay1->IndexOfKey(key))
        tickStatus(command);
}

// As the next reload will show it, but for the picture of a courtesy call, which gives way to the status until then.
void CalendarView::showStatus(int index, int code) {
    CalendarItem& item = ctMDay1->Item(index);
    if (!IsPatientRow(item.ItemColor) && item.ItemBackColor == item.ItemColor)
        item.ItemBackColor.reset();
    PaintByCode(item, code, 0);
    HideName(item, Session().HidePatientNames);
    MarkStatus(item, code, 0);
    item.ItemStatusIcon = code == ncolor::CheckedIn ? 3 : 0;
    board_->Lock(index);
    suitSlip(ctMDay1->SelectedItem());
    displayapptinfo(index);
}
