#include <algorithm>
#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QSet>
#include <QShortcut>

#include "appointments/appointmentrows.h"
#include "appointments/commandrow.h"
#include "appointments/frmactsc.h"
#include "appointments/frmgrptx.h"
#include "appointments/frmnore.h"
#include "appointments/patientrows.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "views/calendarview.h"

namespace {

struct NewCommand {
    MenuName name;
    int kind;
};

constexpr NewCommand newCommands[] = {
    {menu::mnuANPat, apptkind::Patient},
    {menu::mnuANEvent, apptkind::Activity},
    {menu::mnuASType, apptkind::TypeSlot},
    {menu::mnuANAvail, apptkind::Unavailable},
};

// As the submenu mnuANew holds them.
constexpr MenuName popupCommands[] = {menu::mnuANPat, menu::mnuASGroup, menu::mnuANEvent, menu::mnuASType,
                                      menu::mnuANAvail};

int kindOf(const CalendarItem& item, int apptType) {
    if (apptType == ApptTypeSlot)
        return apptkind::TypeSlot;
    if (item.ItemColor == ncolor::Activity)
        return apptkind::Activity;
    return item.ItemColor == ncolor::Unavailable ? apptkind::Unavailable : apptkind::Patient;
}

}  // namespace

void CalendarView::bindEditing() {
    for (const NewCommand& command : newCommands)
        menus_.Bind(command.name, [this, kind = command.kind] { newappt(kind); });
    menus_.Bind(menu::mnuASGroup, [this] { newGroup(); });
    menus_.Bind(menu::mnuVActivity, [this] { newActivity(); });
    menus_.Bind(menu::mnuAEdit, [this] { editCommand(); });
    connect(ctMDay1, &ctMDay::ItemSelected, this, &CalendarView::suitEditing);
    connect(ctMDay1, &ctMDay::ItemActivated, this, &CalendarView::editCommand);
    connect(ctMDay1, &ctMDay::RangeActivated, this, &CalendarView::AddAppointment);
    connect(ctMDay1, &ctMDay::PopupRequested, this, &CalendarView::popupOnEmptyTime);
    auto* insert = new QShortcut(QKeySequence(Qt::Key_Insert), ctMDay1);
    insert->setContext(Qt::WidgetShortcut);
    connect(insert, &QShortcut::activated, this, &CalendarView::AddAppointment);
    newPopup_ = new QMenu(this);
    newPopup_->setObjectName(QStringLiteral("popupNew"));
    newPopup_->setToolTipsVisible(true);
    for (const MenuName name : popupCommands)
        newPopup_->addAction(&menus_.Command(name));
    suitEditing(0);
}

void CalendarView::suitEditing(int index) {
    const bool isRow = index > 0 && std::as_const(*ctMDay1).Item(index).ItemKey.toInt() > 0;
    menus_.Suit(menu::mnuAEdit, isRow,
                index < 1 ? tr("Select an appointment first.") : tr("A holiday is not an appointment."));
}

void CalendarView::popupOnEmptyTime(int index, const QPoint& place) {
    if (index < 1 && MayWrite())
        newPopup_->popup(place);
}

void CalendarView::AddAppointment() {
    newappt(apptkind::Patient);
}

bool CalendarView::CanAdd() const {
    return MayWrite();
}

void CalendarView::newappt(int kind) {
    addBy(&CalendarView::openEditor, kind);
}

void CalendarView::newGroup() {
    addBy(&CalendarView::editgroup, apptkind::Patient);
}

void CalendarView::addBy(void (CalendarView::*open)(const EditorRequest&), int kind) {
    if (!MayWrite())
        return;
    ctMDay1->CommitEdit();
    const std::optional<SelectedSlot> slot = SelectedTime();
    if (!slot) {
        MsgBox(QStringLiteral("No Appointment Time is Currently Selected"), ExclamationBox, QStringLiteral("Warning"));
        return;
    }
    EditorRequest request{kind, true, 0, Session().CurrentView, Provider(), slot};
    request.endIsOpen = ctMDay1->SelIsOneCell() && (kind == apptkind::Patient || kind == apptkind::TypeSlot);
    if (request.endIsOpen && kind == apptkind::Patient && Session().VisitLength > 0)
        request.slot->end = std::min(slot->start + Session().VisitLength, MinutesPerDay);
    openNew(open, request);
}

void CalendarView::openNew(void (CalendarView::*open)(const EditorRequest&), const EditorRequest& request) {
    const QSet<QString> before(facts_.keyBegin(), facts_.keyEnd());
    (this->*open)(request);
    selectAddedTo(before);
}

// A view of one provider gives up the time that was chosen with the entry.
void CalendarView::openEditor(const EditorRequest& request) {
    auto editor = std::make_unique<frmnore>(request, window());
    const frmnore& form = *editor;
    // The view may be gone when a form that was kept is closed again.
    const auto giveUpTime = [view = QPointer<CalendarView>(this), &form] {
        if (view != nullptr && form.GivenUp() && form.Request().CurrentView != View::AllProviders)
            view->DropSelection();
    };
    showEditor(std::move(editor), giveUpTime, giveUpTime);
}

void CalendarView::newActivity() {
    if (!MayWrite())
        return;
    ctMDay1->CommitEdit();
    const QSet<QString> before(facts_.keyBegin(), facts_.keyEnd());
    scheduleActivity(0, SelectedTime());
    selectAddedTo(before);
}

void CalendarView::scheduleActivity(int key, const std::optional<SelectedSlot>& slot) {
    showEditor(std::make_unique<frmactsc>(ActivityRequest{key, main_.Date(), slot}, window()));
}

// What was just booked stands selected, unless another desk has booked too and nobody can tell which is which.
void CalendarView::selectAddedTo(const QSet<QString>& before) {
    QStringList added;
    for (auto row = facts_.keyBegin(); row != facts_.keyEnd(); ++row)
        if (!before.contains(*row))
            added << *row;
    if (added.size() == 1)
        ctMDay1->setSelectedItem(ctMDay1->IndexOfKey(added.front()));
}

void CalendarView::editCommand() {
    ctMDay1->CommitEdit();
    if (MayWrite())
        editappt2(ctMDay1->SelectedItem());
}

void CalendarView::editappt2(int index) {
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const int key = item.ItemKey.toInt();
    if (key < 1)
        return;
    const db::ReadTogether together(Session().Connection,
                                    ShownPatientStatements(GetPipeField(item.ItemNote, 3), item.ItemDay)
                                        << AppointmentStatement(key));
    try {
        const std::optional<ShownAppointment> row = RowForCommand(key, painting());
        if (!row) {
            Reload();
            return;
        }
        const ShownAppointment before = facts_.value(QString::number(key));
        showRow(*row);
        // The editor shows neither the day nor the provider: where another desk has changed one of them, saving would
        // take it back unseen.
        if (!facts_[QString::number(key)].BelongsAs(before))
            throw db::RowChangedError();
        editappt(index);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment. "), error);
        if (error.number == db::RowChanged)
            Reload();
    }
}

void CalendarView::editappt(int index) {
    const CalendarItem item = std::as_const(*ctMDay1).Item(index);
    const int kind = kindOf(item, facts_.value(item.ItemKey).apptType);
    if (kind == apptkind::Activity && IsSharedActivity(item.ItemKey.toInt())) {
        scheduleActivity(item.ItemKey.toInt());
        return;
    }
    const EditorRequest request{kind, false, item.ItemKey.toInt(), Session().CurrentView, Provider(), std::nullopt};
    if (kind == apptkind::Patient && item.ItemColor == ncolor::Group)
        editgroup(request);
    else
        openEditor(request);
}

void CalendarView::editgroup(const EditorRequest& request) {
    showEditor(std::make_unique<frmgrptx>(request, window()));
}

void CalendarView::showEditor(std::unique_ptr<EditorDialog> editor, const std::function<void()>& closed,
                              const std::function<void()>& closedAgain) {
    RunEditor(
        std::move(editor),
        [this, &closed] {
            if (closed)
                closed();
            Reload();
        },
        [&main = main_, closedAgain] {
            if (closedAgain)
                closedAgain();
            main.cycledate(2);
        });
}
