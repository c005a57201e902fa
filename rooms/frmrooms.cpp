#include "rooms/frmrooms.h"

#include <algorithm>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "platform/calendar/ctmday.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/desktop/userstore.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "rooms/slotnames.h"
#include "session/rights.h"
#include "session/session.h"
#include "shell/dayboard.h"
#include "shell/menutables.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int MeetingColor = 0xC0C000;
constexpr int BoundColor = 255;  // red
constexpr int DefaultInterval = 30;
constexpr int HintCharacters = 20;  ///< The least number of characters in a line of the hint.
const QString LastRoom = QStringLiteral("frmrooms.room");

/// Tells the user what can be done here. The label always has room for its longest text. If it grew while the user
/// double-clicks, the grid would move and the second click would hit another time.
class Hint : public QLabel {
  public:
    Hint(QStringList texts, QWidget* parent) : QLabel(parent), texts_(std::move(texts)) {
        setWordWrap(true);
        setTextFormat(Qt::PlainText);
    }
    [[nodiscard]] int heightForWidth(int width) const override {
        int height = 0;
        for (const QString& text : texts_)
            height = std::max(height, fontMetrics().boundingRect(0, 0, width, 0, Qt::TextWordWrap, text).height());
        return height;
    }
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * HintCharacters, fontMetrics().height()};
    }

  private:
    QStringList texts_;
};

QString roomsStatement() {
    return QStringLiteral("Select * from Rooms");
}

QString bookingsStatement(QDate date, int room) {
    return Sql("Select * from roomschedule where nApptDate = '{}' AND croomid = {}", date, room);
}

}  // namespace

frmrooms::frmrooms(MainWindow& main, QWidget* parent) : MenuView(main, RoomMenus(), parent), date_(main.Date()) {
    setObjectName(QStringLiteral("frmrooms"));
    setWindowTitle(QStringLiteral("Select Time and Type Meeting or Activity"));
    layOut();
    bindRoomCommands();
    bindGrid();
    setmenuaccess();
    setGrid();
    txtdate->setDate(date_);
    if (const std::optional<ViewContents> saved = this->main().TakeContents())
        chooseRoom(*saved);
    loadroomslist();
    connect(cborooms, &QComboBox::currentIndexChanged, this, &frmrooms::followRoom);
    connect(txtdate, &ctDEdit::Change, this, [this] {
        // While a date is being typed, its first letters are not taken for a date.
        if (txtdate->Text() == DateFieldText(txtdate->Date(), static_cast<DateOrder>(Session().DateOrder)))
            setDate(txtdate->Date());
    });
    connect(txtdate, &ctDEdit::editingFinished, this, [this] { setDate(txtdate->Date()); });
}

// A field with the focus is left while the view is destroyed, so the view is hidden while it is still whole.
frmrooms::~frmrooms() {
    hide();
}

QPushButton* frmrooms::stepButton(const char* name, const QString& tip, const char* icon, int step) {
    auto* button = new QPushButton(Icon(icon), QString(), this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, step] { cycledate(step); });
    return button;
}

void frmrooms::layOut() {
    cborooms = new QComboBox(this);
    cborooms->setObjectName(QStringLiteral("cborooms"));
    cborooms->setMinimumContentsLength(6);
    cborooms->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cborooms->setMaxVisibleItems(20);
    txtdate = new ctDEdit(ctDEdit::Kind::Date, this);
    txtdate->setObjectName(QStringLiteral("txtdate"));
    txtdate->setDateOrder(Session().DateOrder);
    board_ =
        new DayBoard(QStringLiteral("ctDays1"),
                     {[](CalendarItem& item) { item.ItemTextLocked = item.ItemMoveLocked = item.ItemBound; },
                      [this](std::span<const CalendarItem> items) {
                          return SlotsOfPatients(items, [this](const QString& key) { return rows_.value(key).owner; });
                      }},
                     this);
    ctDays1 = &board_->Grid();
    ctDays1->setAccessibleName(tr("Room"));
    lblhint_ = new Hint({windowTitle(), noRoomHint(), unreadHint(), boundHint(), bookedElsewhereHint(date_)}, this);
    lblhint_->setObjectName(QStringLiteral("lblhint"));
    const auto labelled = [this](const QString& text, QWidget* field) {
        auto* label = new QLabel(text, this);
        label->setBuddy(field);
        return label;
    };
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(Space(8), Space(4), Space(8), Space(4));
    bar->setSpacing(Space(8));
    bar->addWidget(labelled(tr("Roo&m:"), cborooms));
    bar->addWidget(cborooms, 1);
    bar->addWidget(labelled(tr("Da&te:"), txtdate));
    bar->addWidget(txtdate);
    bar->addWidget(stepButton("cmdprevious", tr("Previous Day"), "previous", 0));
    bar->addWidget(stepButton("cmdnext", tr("Next Day"), "next", 1));
    // The hint stands below the bar, because a small screen has no room for it there.
    auto* below = new QHBoxLayout;
    below->setContentsMargins(Space(8), 0, Space(8), Space(4));
    below->addWidget(lblhint_);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addLayout(bar);
    whole->addLayout(below);
    whole->addWidget(ctDays1, 1);
    setFocusProxy(ctDays1);
}

void frmrooms::setGrid() {
    const int unit = Session().TimeUnit;
    board_->SetScale(unit == 15 || unit == 60 ? unit : DefaultInterval);
    ctDays1->setReadOnly(!MayWrite());
}

void frmrooms::ApplyPreferences() {
    setGrid();
    Reload();
}

void frmrooms::AddContents(ViewContents& contents) const {
    if (cborooms->currentIndex() >= 0)
        contents.Set(savedname::Room, roomId());
}

void frmrooms::chooseRoom(const ViewContents& contents) {
    if (!contents.Value(savedname::Room).isEmpty())
        savedRoom_ = contents.Number(savedname::Room, 0);
}

void frmrooms::ShowContents(const ViewContents& contents) {
    setGrid();
    chooseRoom(contents);
    loadroomslist();
}

int frmrooms::roomId() const {
    return cborooms->currentData().toInt();
}

void frmrooms::loadroomslist() {
    const QSignalBlocker quiet(cborooms);
    const std::optional<int> saved = std::exchange(savedRoom_, std::nullopt);
    const int before = cborooms->count() > 0 ? roomId() : ReadUserSetting(LastRoom).toInt();
    const int chosen = saved.value_or(before);
    cborooms->clear();
    // The chosen room is most likely still on the list, so its bookings are read in the same trip.
    const db::ReadTogether together(Session().Connection, {roomsStatement(), bookingsStatement(date_, chosen)});
    const auto addRooms = [this] {
        for (Recordset rows(roomsStatement(), Session().Connection); !rows.Eof(); rows.MoveNext())
            cborooms->addItem(rows["Room"].text(), static_cast<int>(rows["RoomID"].integer()));
    };
    roomsRead_ = readInto(*ctDays1, QStringLiteral("Error loading room list. "), addRooms);
    const bool isGone = roomsRead_ && saved && cborooms->findData(chosen) < 0;
    if (const int index = cborooms->findData(isGone ? before : chosen); index >= 0)
        cborooms->setCurrentIndex(index);
    if (isGone)
        ShowNotice({tr("The room of the saved view is not on the list of rooms any more.")});
    LoadRooms();
}

void frmrooms::Reload() {
    if (roomsRead_)
        LoadRooms();
    else
        loadroomslist();
}

void frmrooms::listsChanged() {
    loadroomslist();
}

void frmrooms::followRoom() {
    WriteUserSetting(LastRoom, QString::number(roomId()));
    LoadRooms();
}

void frmrooms::LoadRooms() {
    const bool hasRoom = cborooms->currentIndex() >= 0;
    board_->BeginLoad(date_, QString::number(roomId()));
    rows_.clear();
    ctDays1->setEnabled(hasRoom);
    if (hasRoom)
        bookingsRead_ = readInto(*ctDays1, QStringLiteral("Error reading room schedule. "), [this] { addMeetings(); });
    board_->EndLoad();
    followSelection();
    main().ShowDateText(LongDateText(date_));
}

void frmrooms::addMeetings() {
    for (Recordset rows(bookingsStatement(date_, roomId()), Session().Connection); !rows.Eof(); rows.MoveNext()) {
        const RoomMeeting meeting = MeetingOf(rows);
        // A meeting before the first hour of the day also blocks the room, so it must be shown.
        board_->WidenTo(StartOf(rows));
        addMeeting(meeting);
    }
}

int frmrooms::addMeeting(const RoomMeeting& meeting) {
    rows_[QString::number(meeting.key)] = meeting;
    return board_->AddRow(itemOf(meeting));
}

void frmrooms::showMeeting(int index, const RoomMeeting& meeting) {
    rows_[QString::number(meeting.key)] = meeting;
    board_->Show(index, itemOf(meeting));
}

CalendarItem frmrooms::itemOf(const RoomMeeting& meeting) {
    CalendarItem item;
    item.ItemKey = QString::number(meeting.key);
    item.ItemStart = meeting.start;
    item.ItemEnd = meeting.end;
    item.ItemDay = meeting.date;
    item.ItemText = OneLine(meeting.text);
    item.ItemNote = meeting.note;
    item.ItemTip = meeting.note;
    item.ItemNoteIcon = !meeting.note.isEmpty();
    item.ItemColor = meeting.bound ? BoundColor : MeetingColor;
    item.ItemBound = meeting.bound;
    if (meeting.bound)
        item.ItemStatusText = tr("Belongs to an appointment or activity");
    return item;
}

const RoomMeeting* frmrooms::meetingAt(int item) const {
    const auto found = rows_.constFind(std::as_const(*ctDays1).Item(item).ItemKey);
    return item < 1 || found == rows_.constEnd() ? nullptr : &*found;
}

void frmrooms::setDate(QDate date) {
    if (!date.isValid() || date == date_)
        return;
    date_ = date;
    LoadRooms();
}

void frmrooms::ShowDate(QDate date) {
    if (date == date_)
        LoadRooms();
    txtdate->setDate(date);
    setDate(date);
}

void frmrooms::cycledate(int step) {
    ShowDate(step == 2 ? Today() : date_.addDays(step == 0 ? -1 : 1));
}

bool frmrooms::StepOwnDate(int direction) {
    cycledate(direction < 0 ? 0 : 1);
    return true;
}

QDate frmrooms::Stepped(QDate from, int /*direction*/) const {
    return from;
}
