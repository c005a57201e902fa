#include <QAction>
#include <QMenu>
#include <QSet>
#include <QShortcut>

#include "appointments/frmactsc.h"
#include "appointments/frmgrptx.h"
#include "appointments/frmnore.h"
#include "appointments/patientrows.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "views/calendarview.h"

using db::Recordset;
using db::Sql;

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
    addBy<frmnore>(kind);
}

void CalendarView::newGroup() {
    addBy<frmgrptx>(apptkind::Patient);
}

template <class Editor>
void CalendarView::addBy(int kind) {
    if (!MayWrite())
        return;
    ctMDay1->CommitEdit();
    Session().ApptKind = kind;
    Session().IsNewAppt = true;
    const std::optional<SelectedSlot> slot = SelectedTime();
    if (!slot) {
        MsgBox(QStringLiteral("No Appointment Time is Currently Selected"), ExclamationBox, QStringLiteral("Warning"));
        Session().IsNewAppt = false;
        return;
    }
    const QSet<QString> before(facts_.keyBegin(), facts_.keyEnd());
    auto editor = std::make_unique<Editor>(window());
    editor->SetSlot(*slot);
    showEditor(std::move(editor));
    selectAddedTo(before);
}

void CalendarView::newActivity() {
    if (!MayWrite())
        return;
    ctMDay1->CommitEdit();
    const QSet<QString> before(facts_.keyBegin(), facts_.keyEnd());
    scheduleActivity(0);
    selectAddedTo(before);
}

void CalendarView::scheduleActivity(int key, const std::optional<SelectedSlot>& draggedTo) {
    Session().ActivityKey = key;
    auto scheduler = std::make_unique<frmactsc>(window());
    if (draggedTo)
        scheduler->SetSlot(*draggedTo);
    showEditor(std::move(scheduler));
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
    const QString statement = Sql("Select * from appointments Where nKeyid = {}", key);
    const db::ReadTogether together(Session().Connection,
                                    ShownPatientStatements(GetPipeField(item.ItemNote, 3), item.ItemDay) << statement);
    try {
        const Recordset row(statement, Session().Connection);
        if (row.Eof()) {
            MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   ExclamationBox, QStringLiteral("Appointment not found"));
            Reload();
            return;
        }
        const RowFacts before = facts_.value(QString::number(key));
        showRow(row);
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
    if (kind == apptkind::Activity && isSharedActivity(item.ItemKey.toInt())) {
        scheduleActivity(item.ItemKey.toInt());
        return;
    }
    Session().ApptKind = kind;
    Session().IsNewAppt = false;
    Session().CurrentApptKey = item.ItemKey.toInt();
    if (kind == apptkind::Patient && item.ItemColor == ncolor::Group)
        return editgroup();
    showEditor(std::make_unique<frmnore>(window()));
}

void CalendarView::editgroup() {
    showEditor(std::make_unique<frmgrptx>(window()));
}

void CalendarView::showEditor(std::unique_ptr<EditorDialog> editor) {
    RunEditor(
        std::move(editor), [this] { Reload(); }, [&main = main_] { main.cycledate(2); });
}
