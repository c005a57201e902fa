#include <memory>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QShortcut>

#include "data/minutetime.h"
#include "platform/calendar/ctmday.h"
#include "platform/controls/ctdedit.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "rooms/frmfroom.h"
#include "rooms/frmroomappt.h"
#include "rooms/frmrooms.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"

namespace {

const QString NewMeetingText = QStringLiteral("New mtg.");

void tellUnsaved(const db::DatabaseError& error) {
    TellError(QStringLiteral("Error saving room schedule. "), error);
}

void tellGone() {
    MsgBox(QStringLiteral("Error saving. Another user may have deleted this assignment."), ErrorBox,
           QStringLiteral("Error"));
}

/// A meeting that was typed in place and could not be saved. A new one has no key.
struct UnsavedMeeting {
    RoomMeeting read;
    RoomMeeting wanted;

    /// Stores the meeting and returns whether nothing is left to be saved. When another desk has changed the row, the
    /// user is told once, and the next try overwrites that change.
    bool Store() {
        try {
            if (read.key == 0)
                AddMeeting(wanted);
            else if (!SaveMeeting(read, wanted))
                tellGone();
            return true;
        } catch (const db::DatabaseError& error) {
            tellUnsaved(error);
            if (error.number == db::RowChanged)
                db::Ignoring([this] { readAgain(); });
            return false;
        }
    }

  private:
    void readAgain() {
        if (const std::optional<RoomMeeting> stored = StoredMeeting(read.key)) {
            const QString text = wanted.text;
            read = wanted = *stored;
            wanted.text = text;
        }
    }
};

}  // namespace

void frmrooms::bindRoomCommands() {
    showOpenView(menu::mnuVRoom, View::Rooms);
    menus().Command(menu::mnuVPrevious).setText(tr("&Previous Day"));
    menus().Command(menu::mnuVNext).setText(tr("&Next Day"));
    menus().Show(menu::mnuVFH, !Session().FHDatabaseId.isEmpty());
    menus().Bind(menu::mnuNew, [this] { AddAppointment(); });
    menus().Bind(menu::mnuEdit, [this] {
        if (ctDays1->SelectedItem() < 1)
            MsgBox(QStringLiteral("No appoinyment time is currently selected."), ExclamationBox,
                   QStringLiteral("Warning"));
        else
            editappt(ctDays1->SelectedItem());
    });
    menus().Bind(menu::mnuDelete, [this] { deleteappt(); });
    menus().Bind(menu::mnuFind, [this] { FindAppointment(); });
    menus().Bind(menu::mnuPrint, [this] { printS(); });
    menus().Bind(menu::mnuFPrintA, [this] { printSlip(); });
}

void frmrooms::bindGrid() {
    popup_ = new QMenu(this);
    popup_->setObjectName(QStringLiteral("popup"));
    popup_->setToolTipsVisible(true);
    connect(ctDays1, &ctMDay::ItemSelected, this, &frmrooms::followSelection);
    connect(ctDays1, &ctMDay::RangeSelected, this, &frmrooms::followSelection);
    connect(ctDays1, &ctMDay::RangeActivated, this, &frmrooms::AddAppointment);
    connect(ctDays1, &ctMDay::ItemActivated, this, &frmrooms::editappt);
    connect(ctDays1, &ctMDay::RangeTyped, this, &frmrooms::typeMeeting);
    connect(ctDays1, &ctMDay::ItemChanged, this, &frmrooms::moveMeeting);
    connect(ctDays1, &ctMDay::TextEdited, this, &frmrooms::saveappt);
    connect(ctDays1, &ctMDay::DeleteRequested, this, &frmrooms::deleteappt);
    connect(ctDays1, &ctMDay::PopupRequested, this, &frmrooms::popup);
    connect(ctDays1, &ctMDay::DayStepRequested, this, &frmrooms::StepOwnDate);
    connect(ctDays1, &ctMDay::MoveRefused, this, [this](int item) {
        if (const RoomMeeting* meeting = meetingAt(item); meeting == nullptr || !meeting->bound)
            return;
        MsgBox(
            QStringLiteral(
                "Unable to edit times or duration in Room Scheduler. This room slot is associated with a scheduled event or appointment."),
            InformationBox, QStringLiteral("Room Scheduler"));
    });
    auto* insert = new QShortcut(QKeySequence(Qt::Key_Insert), ctDays1);
    insert->setContext(Qt::WidgetShortcut);
    connect(insert, &QShortcut::activated, this, &frmrooms::AddAppointment);
}

void frmrooms::setmenuaccess() {
    menus().Allow(menu::mnuNew, MayWrite(), tr("You may only read the schedules."));
    menus().Allow(menu::mnuEdit, MayWrite(), tr("You may only read the schedules."));
    menus().Allow(menu::mnuDelete, MayDeleteMeetings(), tr("You may not delete."));
    menus().Show(menu::mnuFRoomList, MayWrite());
    menus().Show(menu::mnuVAll, Session().AllProviders);
}

void frmrooms::followSelection() {
    const RoomMeeting* selected = meetingAt(ctDays1->SelectedItem());
    const bool hasRoom = cborooms->currentIndex() >= 0;
    const bool isRead = roomsRead_ && (!hasRoom || bookingsRead_);
    const QString why = isRead ? tr("Choose a room first.") : unreadHint();
    menus().Suit(menu::mnuNew, hasRoom && isRead, why);
    menus().Suit(menu::mnuPrint, hasRoom && isRead, why);
    menus().Suit(menu::mnuEdit, selected == nullptr || !selected->bound,
                 tr("This slot belongs to an appointment or activity. Change it there."));
    menus().Suit(menu::mnuDelete, selected != nullptr, tr("Select a meeting first."));
    suitSlip();
    if (!isRead)
        lblhint_->setText(unreadHint());
    else if (!hasRoom)
        lblhint_->setText(noRoomHint());
    else if (selected != nullptr && selected->bound)
        lblhint_->setText(boundHint());
    else
        lblhint_->setText(MayWrite() ? windowTitle() : QString());
}

QString frmrooms::noRoomHint() {
    return tr("There are no rooms yet. Add them by File, Rooms.");
}

QString frmrooms::unreadHint() {
    return tr("This could not be read. Reload to try again.");
}

QString frmrooms::boundHint() {
    return tr("This slot belongs to an appointment or activity and moves with it.");
}

QString frmrooms::bookedElsewhereHint(QDate day) {
    return tr("The meeting was booked on %1, which is not the day shown here.").arg(ShortDateText(day));
}

bool frmrooms::CanAdd() const {
    return MayWrite();
}

void frmrooms::AddAppointment() {
    if (!MayWrite() || !ctDays1->isEnabled())
        return;
    ctDays1->CommitEdit();
    if (ctDays1->SelectedRange() < 0) {
        MsgBox(QStringLiteral("No Appointment Time is Currently Selected"), ExclamationBox, QStringLiteral("Warning"));
        return;
    }
    showDialog({0, ctDays1->SelStart(), ctDays1->SelEnd(), date_, {}, {}, roomId(), false});
}

// The slot of an appointment can only be changed with its appointment.
void frmrooms::editappt(int item) {
    ctDays1->CommitEdit();
    const RoomMeeting* meeting = meetingAt(item);
    if (meeting != nullptr && !meeting->bound && MayWrite())
        showDialog(*meeting);
}

void frmrooms::showDialog(const RoomMeeting& meeting) {
    auto dialog = std::make_unique<frmRoomAppt>(meeting, main().Date(), cborooms->currentText(), window());
    const frmRoomAppt& shown = *dialog;
    RunEditor(
        std::move(dialog),
        [this, &shown] {
            LoadRooms();
            if (shown.SavedKey() > 0 && shown.SavedDate() == date_)
                ctDays1->setSelectedItem(ctDays1->IndexOfKey(QString::number(shown.SavedKey())));
            else if (shown.SavedKey() > 0)
                lblhint_->setText(bookedElsewhereHint(shown.SavedDate()));
            ctDays1->setFocus();
        },
        [&main = main()] { main.cycledate(2); });
}

void frmrooms::typeMeeting(const QString& text) {
    if (!MayWrite())
        return;
    RoomMeeting meeting{0, ctDays1->SelStart(), ctDays1->SelEnd(), date_, NewMeetingText, {}, roomId(), false};
    try {
        meeting.key = AddMeeting(meeting);
    } catch (const db::DatabaseError& error) {
        tellUnsaved(error);
        RoomMeeting wanted = meeting;
        wanted.text = text;
        keepMeeting(meeting, wanted);
        return;
    }
    ctDays1->EditItem(addMeeting(meeting), text);
}

void frmrooms::moveMeeting(int index) {
    const RoomMeeting* before = meetingAt(index);
    if (before == nullptr)
        return;
    RoomMeeting wanted = *before;
    const CalendarItem item = std::as_const(*ctDays1).Item(index);
    wanted.start = item.ItemStart;
    wanted.end = item.ItemEnd;
    if (wanted.start < 0 || wanted.end > MinutesPerDay || wanted.start >= wanted.end) {
        showMeeting(index, *before);
        return;
    }
    save(index, wanted);
}

void frmrooms::saveappt(int index, const QString& textBefore) {
    const RoomMeeting* before = meetingAt(index);
    if (before == nullptr)
        return;
    RoomMeeting wanted = *before;
    wanted.text = std::as_const(*ctDays1).Item(index).ItemText;
    if (wanted.text.trimmed().isEmpty())
        ctDays1->Item(index).ItemText = textBefore;
    else
        save(index, wanted);
}

void frmrooms::save(int index, const RoomMeeting& wanted) {
    const RoomMeeting before = *meetingAt(index);
    try {
        if (SaveMeeting(before, wanted)) {
            showMeeting(index, wanted);
            return;
        }
        tellGone();
        ctDays1->RemoveItem(index);
        rows_.remove(QString::number(before.key));
    } catch (const db::DatabaseError& error) {
        showMeeting(index, before);
        tellUnsaved(error);
        if (wanted.text != before.text)
            keepMeeting(before, wanted);
        if (error.number == db::RowChanged)
            LoadRooms();
    }
}

// Another view may be open when the user tries again.
void frmrooms::keepMeeting(const RoomMeeting& read, const RoomMeeting& wanted) const {
    const auto unsaved = std::make_shared<UnsavedMeeting>(UnsavedMeeting{read, wanted});
    KeepTyped(tr("the meeting on %1 at %2")
                  .arg(ShortDateText(wanted.date), MinutesToTimeText(wanted.start, Session().MilitaryTime)),
              [&main = main(), unsaved] {
                  const bool settled = unsaved->Store();
                  main.cycledate(2);
                  return settled;
              });
}

void frmrooms::popup(int item, const QPoint& place) {
    if (!MayWrite())
        return;
    popup_->clear();
    for (const MenuName name : {menu::mnuEdit, menu::mnuDelete, menu::mnuFPrintA, menu::mnuNew})
        if ((item > 0) != (name == menu::mnuNew))
            popup_->addAction(&menus().Command(name));
    popup_->popup(place);
}

void frmrooms::FindAppointment() {
    frmfroom dialog([this](const FoundBooking& booking) { return goTo(booking); }, window());
    ShowModal(dialog);
}

QString frmrooms::goTo(const FoundBooking& booking) {
    if (cborooms->findData(booking.room) < 0)
        loadroomslist();
    const int place = cborooms->findData(booking.room);
    if (place < 0)
        return tr("This booking's room is not in the list of rooms.");
    cborooms->setCurrentIndex(place);
    ShowDate(booking.date);
    const int index = ctDays1->IndexOfKey(QString::number(booking.key));
    ctDays1->setTopTime(booking.start);
    ctDays1->clearSelection();
    ctDays1->setSelectedItem(index);
    ctDays1->ScrollToItem(index);
    followSelection();
    ctDays1->setFocus();
    return index > 0 ? QString() : tr("This booking is not there any more. Another user may have deleted it.");
}
