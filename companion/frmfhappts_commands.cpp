#include <memory>
#include <QAction>
#include <QMenu>
#include <QShortcut>

#include "companion/companionitem.h"
#include "companion/companionrefusals.h"
#include "companion/companionwrites.h"
#include "companion/frmfhappt.h"
#include "companion/frmfhappts.h"
#include "companion/frmfhclients.h"
#include "companion/frmfhevents.h"
#include "platform/calendar/ctmday.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"

namespace {

/// Notes access from which a user may write notes.
constexpr int WritesNotes = 2;

const QString ScheduleNotice = QStringLiteral("companion schedule");

/// Returns the item when it may be worked on. If not, or when nothing is selected, the user is told so.
std::optional<CalendarItem> itemToWorkOn(std::optional<CalendarItem> selected, const CompanionRefusals& refusals) {
    const QString why = selected ? RefusalOf(*selected, refusals) : QStringLiteral("No appointment selected.");
    if (why.isEmpty())
        return selected;
    TellRefusal(why);
    return std::nullopt;
}

bool saysYes(const QString& question) {
    return MsgBox(question, YesNoWarningBox, QStringLiteral("Delete Appointment")) == Answer::Yes;
}

QString words(const char* text) {
    return frmFHAppts::tr(text);
}

/// What the user should know of a deletion that did not fail, or "".
QString wordsOf(const CompanionOutcome& outcome) {
    switch (outcome.hitch) {
        case CompanionHitch::Charged:
            return words("The appointment was not deleted, because it has been charged meanwhile.");
        case CompanionHitch::NoAttendees:
            return words("The event was not deleted, because nobody attends it. Only Fernhall can delete it.");
        case CompanionHitch::NotAttending:
            return outcome.allProviders
                       ? words("The event is for all providers. To delete it for everybody, open it.")
                       : words("The event was not deleted, because the provider does not attend it any more.");
        default:
            return outcome.allProviders && outcome.IsDone()
                       ? words(
                             "The provider does not attend the event any more. It stays here because it is for all providers.")
                       : QString();
    }
}

}  // namespace

void frmFHAppts::tellInBar(const QString& text) {
    ShowNotice({.text = text, .kind = Notice::Kind::Caution, .subject = ScheduleNotice});
}

void frmFHAppts::dropNotice() {
    DropNotice(ScheduleNotice);
}

void frmFHAppts::bindCommands() {
    menus().Bind(menu::mnuAddAppt, [this] { AddAppointment(); });
    menus().Bind(menu::mnuAddEvent, [this] { addEvent(); });
    menus().Bind(menu::mnuModify, [this] { modify(); });
    menus().Bind(menu::mnuDelete, [this] { deleteSelected(); });
    menus().Bind(menu::mnuSessionNote, [this] { openNote(); });
    // A key that is held down must not start the notes program again and again.
    menus().Command(menu::mnuSessionNote).setAutoRepeat(false);
    makePopups();
    for (const DayBoard* board : {day_, week_}) {
        bindCommandsOf(board->Grid());
        bindMoves(board->Grid());
    }
}

// The keys and the mouse reach the routines past the menus, so that a user without the right is told so.
void frmFHAppts::bindCommandsOf(ctMDay& grid) {
    connect(&grid, &ctMDay::ItemActivated, this, &frmFHAppts::modify);
    connect(&grid, &ctMDay::RangeActivated, this, &frmFHAppts::AddAppointment);
    connect(&grid, &ctMDay::DeleteRequested, this, &frmFHAppts::deleteSelected);
    connect(&grid, &ctMDay::PopupRequested, this,
            [this](int index, const QPoint& place) { (index > 0 ? itemPopup_ : timePopup_)->popup(place); });
    auto* insert = new QShortcut(QKeySequence(Qt::Key_Insert), &grid);
    insert->setContext(Qt::WidgetShortcut);
    connect(insert, &QShortcut::activated, this, &frmFHAppts::AddAppointment);
}

void frmFHAppts::makePopups() {
    itemPopup_ = new QMenu(this);
    itemPopup_->setObjectName(QStringLiteral("popup"));
    timePopup_ = new QMenu(this);
    timePopup_->setObjectName(QStringLiteral("popupNew"));
    for (QMenu* popup : {itemPopup_, timePopup_})
        popup->setToolTipsVisible(true);
    for (const MenuName name : {menu::mnuModify, menu::mnuDelete, menu::mnuSessionNote})
        itemPopup_->addAction(&menus().Command(name));
    itemPopup_->insertSeparator(&menus().Command(menu::mnuSessionNote));
    for (const MenuName name : {menu::mnuAddAppt, menu::mnuAddEvent})
        timePopup_->addAction(&menus().Command(name));
}

void frmFHAppts::setmenuaccess() {
    for (const MenuName name : {menu::mnuAddAppt, menu::mnuAddEvent, menu::mnuModify})
        menus().Allow(name, MayWrite(), tr("You may only read the schedules."));
    menus().Allow(menu::mnuDelete, MayDelete(), tr("You may not delete."));
    menus().Allow(menu::mnuSessionNote, Session().NotesAccess >= WritesNotes && HasSVSessionCol_,
                  HasSVSessionCol_ ? tr("You may not write notes.")
                                   : tr("This version of Fernhall has no place for session notes."));
}

bool frmFHAppts::CanAdd() const {
    return MayWrite();
}

std::optional<SelectedSlot> frmFHAppts::timeToAdd(const QString& noTime) const {
    if (!MayWrite()) {
        MsgBox(QStringLiteral("You do not have rights to add appointments or events."), ExclamationBox,
               QStringLiteral("Solvane"));
        return std::nullopt;
    }
    std::optional<SelectedSlot> slot = SelectedTime();
    if (!slot)
        TellRefusal(noTime);
    return slot;
}

void frmFHAppts::AddAppointment() {
    const std::optional<SelectedSlot> slot =
        timeToAdd(QStringLiteral("No appointment time selected. Select an appointment time and try again."));
    const std::optional<CompanionProvider> provider = SelectedProvider();
    if (!slot || !provider)
        return;
    frmFHClients clients(provider->provId, provider->name, window());
    ShowModal(clients);
    if (clients.ClientId() == 0)
        return;
    auto editor = std::make_unique<frmFHAppt>(CompanionAppointmentRequest{.ClientId = clients.ClientId(),
                                                                          .ClientName = clients.ClientName(),
                                                                          .date = slot->date,
                                                                          .start = slot->start,
                                                                          .duration = slot->end - slot->start,
                                                                          .ProvId = provider->provId,
                                                                          .HasSVSessionCol = HasSVSessionCol_},
                                              window());
    const frmFHAppt& form = *editor;
    showEditor(std::move(editor), companioncolor::Scheduled, [&form] { return form.CtrnKey(); });
}

void frmFHAppts::addEvent() {
    const std::optional<SelectedSlot> slot =
        timeToAdd(QStringLiteral("No event time selected. Select an event time and try again."));
    const std::optional<CompanionProvider> provider = SelectedProvider();
    if (slot && provider)
        openEvent({.date = slot->date,
                   .start = slot->start,
                   .duration = slot->end - slot->start,
                   .provId = provider->provId});
}

void frmFHAppts::openEvent(const CompanionEventRequest& request) {
    auto editor = std::make_unique<frmFHEvents>(request, window());
    const frmFHEvents& form = *editor;
    showEditor(std::move(editor), companioncolor::Event, [&form] { return form.SavedKey(); });
}

// What was added or changed stands selected, in the column that the user worked in where it has an item there.
void frmFHAppts::showEditor(std::unique_ptr<EditorDialog> editor, int color, const std::function<int()>& savedKey) {
    const ctMDay& grid = Grid();
    const int column = grid.SelectedItem() > 0 ? grid.ColumnOfItem(grid.SelectedItem()) : grid.SelColumn();
    RunEditor(
        std::move(editor),
        [this, color, column, &savedKey] {
            const int key = savedKey();
            Reload();
            if (key > 0)
                SelectRow(QString::number(key), color, column);
        },
        [&main = main_] { main.cycledate(2); });
}

void frmFHAppts::modify() {
    if (!MayWrite())
        return TellRefusal(QStringLiteral("You do not have rights to modify appointments or events."));
    const std::optional<CalendarItem> item = itemToWorkOn(SelectedItem(), NotModified);
    if (!item)
        return;
    if (item->ItemColor == companioncolor::Event)
        return openEvent({.ceveid = item->ItemKey.toInt(), .date = {}});
    auto editor = std::make_unique<frmFHAppt>(
        CompanionAppointmentRequest{
            .CtrnKey = item->ItemKey.toInt(), .ClientName = {}, .date = {}, .HasSVSessionCol = HasSVSessionCol_},
        window());
    const frmFHAppt& form = *editor;
    showEditor(std::move(editor), companioncolor::Scheduled, [&form] { return form.CtrnKey(); });
}

void frmFHAppts::deleteSelected() {
    dropNotice();
    if (!MayDelete())
        return TellRefusal(QStringLiteral("You do not have rights to delete appointments or events."));
    const std::optional<CalendarItem> item = itemToWorkOn(SelectedItem(), NotDeleted);
    const std::optional<CompanionProvider> provider = SelectedProvider();
    if (!item || !provider)
        return;
    const int key = item->ItemKey.toInt();
    if (item->ItemColor == companioncolor::Event)
        deleteEvent(key, provider->provId);
    else
        deleteAppointment(key);
}

void frmFHAppts::deleteAppointment(int CtrnId) {
    if (saysYes(QStringLiteral("Are you sure you want to delete this appointment?")))
        showDeletion(DeleteFHAppointment(CtrnId), QStringLiteral("Error deleting appointment. "));
}

void frmFHAppts::deleteEvent(int CEveId, int ProvId) {
    if (saysYes(QStringLiteral("Are you sure you want to delete this event?")))
        showDeletion(DeleteFHEvent(CEveId, ProvId), QStringLiteral("Error deleting event. "));
}

void frmFHAppts::showDeletion(const CompanionOutcome& outcome, const QString& trouble) {
    if (outcome.failure)
        return TellError(trouble, *outcome.failure);
    Reload();
    if (outcome.hitch == CompanionHitch::Recurring)
        TellRefusal(QString::fromLatin1(NotDeleted.eventOfSeries));
    else if (const QString text = wordsOf(outcome); !text.isEmpty())
        tellInBar(text);
}
