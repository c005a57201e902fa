#include "rooms/frmroomview.h"

#include <algorithm>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/calendar/ctmday.h"
#include "platform/controls/formarea.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/theme/theme.h"
#include "rooms/roommeeting.h"
#include "rooms/slotnames.h"
#include "session/errorbox.h"
#include "session/session.h"
#include "shell/dayboard.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int WantedColor = 0xFF0000;  // blue
constexpr int BookedColor = 0xC0C000;
constexpr int MinutesAbove = 60;

QString roomsStatement() {
    return QStringLiteral("Select * from rooms Order by Room");
}

QString bookingsStatement(QDate date) {
    return Sql("Select * from roomschedule where nApptDate = '{}' Order by croomid", date);
}

}  // namespace

frmRoomView::frmRoomView(const SelectedSlot& wanted, const QString& dateText, QWidget* parent)
    : QDialog(parent), wanted_(wanted) {
    setObjectName(QStringLiteral("frmRoomView"));
    setWindowTitle(QStringLiteral("Room Schedule for ") + dateText);
    buildForm();
    board_->SetScale(Session().TimeUnit);
    const db::ReadTogether together(Session().Connection, {roomsStatement(), bookingsStatement(wanted_.date)});
    LoadRooms();
    resetcols();
    loadRoomView();
    const int first = ctMDay1->FirstTime();
    ctMDay1->setTopTime(wanted_.start - MinutesAbove >= first ? wanted_.start - MinutesAbove : first);
}

QSize frmRoomView::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 36};
}

void frmRoomView::buildForm() {
    board_ = new DayBoard(QStringLiteral("ctMDay1"),
                          {{},
                           [this](std::span<const CalendarItem> items) {
                               return SlotsOfPatients(items, [this](const QString& key) { return owners_.value(key); });
                           }},
                          this);
    ctMDay1 = &board_->Grid();
    ctMDay1->setAccessibleName(tr("Rooms"));
    ctMDay1->setReadOnly(true);
    auto* hint = new QLabel(
        tr("The wanted time is shaded. Double-click free time, or click a heading, to choose a room."), this);
    hint->setWordWrap(true);
    cmdselect = new QPushButton(tr("&Select Room"), this);
    cmdselect->setObjectName(QStringLiteral("cmdselect"));
    cmdselect->setDefault(true);
    cmdselect->setEnabled(false);
    cmdclose = new QPushButton(tr("&Close"), this);
    cmdclose->setObjectName(QStringLiteral("cmdclose"));
    cmdclose->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(hint, 1);
    buttons->addWidget(cmdselect);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(ctMDay1, 1);
    column->addLayout(buttons);
    FitToScreen(*this);

    const auto follow = [this] { cmdselect->setEnabled(selectedColumn() > 0); };
    connect(ctMDay1, &ctMDay::ItemSelected, this, follow);
    connect(ctMDay1, &ctMDay::RangeSelected, this, follow);
    connect(ctMDay1, &ctMDay::HeadingClicked, this, &frmRoomView::choose);
    connect(ctMDay1, &ctMDay::RangeActivated, this, [this] { choose(selectedColumn()); });
    connect(cmdselect, &QPushButton::clicked, this, [this] { choose(selectedColumn()); });
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmRoomView::LoadRooms() {
    rooms_.clear();
    try {
        for (Recordset rows(roomsStatement(), Session().Connection); !rows.Eof(); rows.MoveNext())
            rooms_.push_back({static_cast<int>(rows["RoomID"].integer()), rows["Room"].text()});
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading room list. "), error);
    }
}

void frmRoomView::resetcols() {
    ctMDay1->ClearColumns();
    ctMDay1->ClearTimeRanges();
    const bool shaded = wanted_.end > 0 && wanted_.start > 0 && wanted_.start < wanted_.end;
    for (const Room& room : rooms_) {
        const int column = ctMDay1->AddColumn(room.name);
        if (shaded)
            ctMDay1->AddTimeRange(wanted_.start, wanted_.end - 1, WantedColor, column);
    }
}

void frmRoomView::loadRoomView() {
    board_->BeginLoad(wanted_.date);
    owners_.clear();
    try {
        addBookings();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading room list. "), error);
    }
    board_->EndLoad();
}

void frmRoomView::addBookings() {
    for (Recordset rows(bookingsStatement(wanted_.date), Session().Connection); !rows.Eof(); rows.MoveNext()) {
        CalendarItem item;
        item.ItemKey = rows["nkeyid"].text();
        item.ItemText = rows["croomtext"].text();
        item.ItemStart = static_cast<int>(rows["nStartTime"].integer());
        item.ItemEnd = static_cast<int>(rows["nEndTime"].integer());
        item.ItemColor = BookedColor;
        if (const int place = GetRoomPos(static_cast<int>(rows["croomid"].integer())); place > -1)
            item.ItemColumn = place + 1;
        owners_[item.ItemKey] = rows["apptid"].integer();
        // A meeting before the first hour of the day also blocks the room, so it must be shown.
        board_->WidenTo(StartOf(rows));
        board_->AddRow(std::move(item));
    }
}

int frmRoomView::GetRoomPos(int roomId) const {
    const auto found =
        std::find_if(rooms_.begin(), rooms_.end(), [roomId](const Room& room) { return room.id == roomId; });
    return found == rooms_.end() ? -1 : static_cast<int>(found - rooms_.begin());
}

int frmRoomView::selectedColumn() const {
    if (ctMDay1->SelectedItem() > 0)
        return ctMDay1->ColumnOfItem(ctMDay1->SelectedItem());
    return ctMDay1->SelectedRange() < 0 ? 0 : ctMDay1->SelColumn();
}

void frmRoomView::choose(int column) {
    if (column < 1 || column > static_cast<int>(rooms_.size()))
        return;
    chosenRoom_ = rooms_[static_cast<std::size_t>(column - 1)].id;
    accept();
}
