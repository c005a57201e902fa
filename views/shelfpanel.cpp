#include "views/shelfpanel.h"

#include <algorithm>
#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/schema.h"
#include "platform/controls/formparts.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/userstore.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/session.h"
#include "views/movednotice.h"

namespace {

constexpr int PanelCharacters = 28;
// The values of the setting; without one the shelf is shown while something is on it.
constexpr char Shown[] = "1";
constexpr char Hidden[] = "0";
const QString ShelfUnsaved = QStringLiteral("The holding shelf could not be changed. ");
const QString ShelfNews = QStringLiteral("shelf news");

// The store is one user's of the computer, at which several users of the practice may log on.
QString shownSetting() {
    return QStringLiteral("HoldingShelf.%1").arg(Session().UID);
}

/// The row's lines: who, when, and for how long with whom.
QStringList linesOf(const ShelvedAppointment& shelved) {
    const CalendarItem& item = shelved.row.stored;
    const QString who = NamesPatient(item) ? ShownName(item.ItemText) : item.ItemText;
    return {who.simplified(), shelved.When(), QStringLiteral("%1 · %2").arg(shelved.Length(), shelved.provider)};
}

}  // namespace

ShelfPanel::ShelfPanel(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("pnlshelf"));
    setAccessibleName(tr("Holding Shelf"));
    build();
    FollowHiddenNames(this, [this](bool) { fill(); });
    connect(list_, &ShelfList::ShowRequested, this, &ShelfPanel::showRow);
    connect(list_, &ShelfList::RemoveRequested, this, &ShelfPanel::removeRow);
    connect(list_, &QListWidget::currentRowChanged, this, &ShelfPanel::followSelection);
    connect(cmdshow, &QPushButton::clicked, this, [this] { showRow(list_->currentRow()); });
    connect(cmdremove, &QPushButton::clicked, this, [this] { removeRow(list_->currentRow()); });
    hide();
}

// The list may still report while it goes.
ShelfPanel::~ShelfPanel() {
    list_->SetTarget({});
    list_->disconnect(this);
}

void ShelfPanel::build() {
    auto* heading = Named(new QLabel(tr("Holding Shelf"), this), "lblshelf");
    heading->setFont(HeadingFont());
    list_ = Named(new ShelfList(this), "lstshelf");
    list_->setAccessibleName(tr("Holding Shelf"));
    list_->setAccessibleDescription(
        tr("Enter goes to where the appointment is booked, Delete takes it off the shelf."));
    lblempty = Named(
        new QLabel(
            tr("Drag an appointment here, or select it and press Ctrl+X. Then drag it onto the calendar, or select a time there and press Ctrl+V."),
            this),
        "lblempty");
    lblempty->setWordWrap(true);
    cmdshow = FormButton(tr("Show"), "cmdshow", this);
    cmdshow->setToolTip(tr("Go to where the appointment is booked (Enter)"));
    cmdremove = FormButton(tr("Take Off"), "cmdremove", this);
    cmdremove->setToolTip(tr("Take the appointment off the shelf; it stays where it is booked (Delete)"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Space(8), 0, Space(8), Space(8));
    rows->setSpacing(Space(8));
    rows->addWidget(heading);
    rows->addWidget(lblempty);
    rows->addWidget(list_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(cmdshow, 1);
    buttons->addWidget(cmdremove, 1);
    rows->addLayout(buttons);
    setFixedWidth(std::max(fontMetrics().averageCharWidth() * PanelCharacters, minimumSizeHint().width()));
    setFocusProxy(list_);
}

QStringList ShelfPanel::Statements() const {
    return exists_ ? QStringList{HoldingShelfStatement()} : QStringList();
}

void ShelfPanel::Read() {
    if (!exists_)
        return;
    try {
        shelf_ = ReadHoldingShelf();
    } catch (const db::DatabaseError&) {
        // A database that does not answer may still have a shelf.
        db::Ignoring([this] { exists_ = HasTable(Session().Connection, QStringLiteral("HoldingShelf")); });
        if (exists_)
            return;
        shelf_ = {};
    }
    if (!shelf_.news.isEmpty()) {
        Notice notice{shelf_.news.join(QLatin1Char(' ')), Notice::Kind::Caution};
        notice.subject = ShelfNews;
        ShowNotice(std::move(notice));
    }
    const QString kept = ReadUserSetting(shownSetting());
    shown_ = exists_ && (kept.isEmpty() ? !IsEmpty() : kept == QLatin1String(Shown));
    fill();
    applyShown();
}

void ShelfPanel::fill() {
    const std::optional<ShelvedAppointment> selected = Selected();
    const QSignalBlocker quiet(list_);
    list_->clear();
    int wanted = static_cast<int>(shelf_.appointments.size()) - 1;
    for (std::size_t at = 0; at < shelf_.appointments.size(); ++at) {
        const ShelvedAppointment& shelved = shelf_.appointments[at];
        const QStringList lines = linesOf(shelved);
        auto* entry = new QListWidgetItem(lines.join(QLatin1Char('\n')), list_);
        entry->setData(Qt::UserRole, shelved.key);
        entry->setData(Qt::AccessibleTextRole, lines.join(QStringLiteral(", ")));
        entry->setToolTip(
            lines.join(QLatin1Char('\n')).toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")));
        if (selected && selected->key == shelved.key)
            wanted = static_cast<int>(at);
    }
    list_->setCurrentRow(wanted);
    lblempty->setVisible(IsEmpty());
    list_->setVisible(!IsEmpty());
    followSelection();
}

void ShelfPanel::followSelection() {
    const bool any = list_->currentRow() >= 0;
    cmdshow->setEnabled(any);
    cmdremove->setEnabled(any);
}

bool ShelfPanel::Holds(const QString& key) const {
    const int wanted = key.toInt();
    return std::any_of(shelf_.appointments.begin(), shelf_.appointments.end(),
                       [wanted](const ShelvedAppointment& shelved) { return shelved.key == wanted; });
}

std::optional<ShelvedAppointment> ShelfPanel::At(int row) const {
    const QListWidgetItem* entry = list_->item(row);
    return entry == nullptr ? std::nullopt : Find(entry->data(Qt::UserRole).toInt());
}

std::optional<ShelvedAppointment> ShelfPanel::Find(int key) const {
    const auto found = std::find_if(shelf_.appointments.begin(), shelf_.appointments.end(),
                                    [key](const ShelvedAppointment& shelved) { return shelved.key == key; });
    return found == shelf_.appointments.end() ? std::nullopt : std::optional(*found);
}

std::optional<ShelvedAppointment> ShelfPanel::Selected() const {
    return At(list_->currentRow());
}

void ShelfPanel::Put(const ShownAppointment& row) {
    const WriteOutcome outcome = PutOnShelf(row);
    if (outcome.failure)
        return TellInBar(ShelfUnsaved, *outcome.failure);
    DropNotice(ShelfUnsaved);
    if (ReadUserSetting(shownSetting()) == QLatin1String(Hidden))
        WriteUserSetting(shownSetting(), QString());
    Read();
    for (int at = 0; at < list_->count(); ++at)
        if (list_->item(at)->data(Qt::UserRole).toInt() == row.stored.ItemKey.toInt())
            list_->setCurrentRow(at);
}

void ShelfPanel::TakeOff(int key) {
    const WriteOutcome outcome = TakeOffShelf(key);
    if (outcome.failure)
        return TellInBar(ShelfUnsaved, *outcome.failure);
    DropNotice(ShelfUnsaved);
    const bool hadFocus = list_->hasFocus();
    Read();
    if (hadFocus && IsEmpty())
        Q_EMIT list_->LeaveRequested();
}

void ShelfPanel::SetShown(bool shown) {
    // An empty shelf that is hidden comes back by itself.
    WriteUserSetting(shownSetting(), QLatin1String(shown ? Shown : IsEmpty() ? "" : Hidden));
    shown_ = shown && exists_;
    applyShown();
}

void ShelfPanel::applyShown() {
    setVisible(shown_);
    Q_EMIT Changed();
}

void ShelfPanel::showRow(int row) {
    if (const std::optional<ShelvedAppointment> shelved = At(row))
        Q_EMIT ShowRequested(*shelved);
}

void ShelfPanel::removeRow(int row) {
    if (const std::optional<ShelvedAppointment> shelved = At(row))
        TakeOff(shelved->key);
}

QWidget* BesideShelf(QWidget* calendar, ShelfPanel* shelf) {
    auto* place = new QWidget;
    place->setObjectName(QStringLiteral("calendarplace"));
    auto* row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(calendar, 1);
    row->addWidget(shelf);
    return place;
}

void BindShelfCommand(ViewMenus& menus, ShelfPanel& shelf) {
    QAction& command = menus.Command(menu::mnuVShelf);
    command.setCheckable(true);
    menus.Bind(menu::mnuVShelf, [&shelf] {
        shelf.SetShown(!shelf.IsShown());
        if (shelf.IsShown() && !shelf.IsEmpty())
            shelf.List().setFocus();
    });
    const auto follow = [&menus, &command, &shelf] {
        command.setChecked(shelf.IsShown());
        menus.Suit(menu::mnuVShelf, shelf.Exists(), WhyNoShelf());
    };
    QObject::connect(&shelf, &ShelfPanel::Changed, &menus, follow);
    follow();
}

void GoToShelved(MainWindow& main, const ShelvedAppointment& shelved) {
    const ShownAppointment& row = shelved.row;
    GoToAppointment(main, {row.stored.ItemKey, row.stored.ItemDay, row.stored.ItemStart, false, {}},
                    {row.clinicianId, shelved.provider});
}

QString WhyNoShelf() {
    return QStringLiteral(
        "The practice's database has no holding shelf yet. The administrator adds it with \"svscheduler-admin upgrade\".");
}
