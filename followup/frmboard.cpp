#include "followup/frmboard.h"

#include <algorithm>
#include <QAccessible>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QWindow>

#include "data/minutetime.h"
#include "followup/boardcards.h"
#include "followup/boardlist.h"
#include "platform/database/connection.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/text/plaintext.h"
#include "session/formposition.h"
#include "session/hiddennames.h"
#include "session/session.h"
#include "shell/mainwindow.h"

namespace {

/// How long after a write the board waits for the next one, in milliseconds.
constexpr int AfterWrite = 150;
constexpr int MinuteMilliseconds = 60000;

constexpr std::array allPlaces{BoardPlace::Due,           BoardPlace::Late,        BoardPlace::Waiting,
                               BoardPlace::InSession,     BoardPlace::Gone,        BoardPlace::NotComing,
                               BoardPlace::UnwrittenNote, BoardPlace::EndingSeries};

int minuteOfNow() {
    return Now().time().hour() * 60 + Now().time().minute();
}

QString timeText(const QTime& time) {
    return MinutesToTimeText(time.hour() * 60 + time.minute(), Session().MilitaryTime);
}

/// Whether the board shows something of this table.
bool isShown(const QString& table) {
    for (const char* shown : {"appointments", "sessions", "SessionSignatures", "provider_info"})
        if (table.compare(QLatin1String(shown), Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

frmboard* boardOf(const QWidget* parent) {
    return parent == nullptr ? nullptr : parent->findChild<frmboard*>(QString(), Qt::FindDirectChildrenOnly);
}

}  // namespace

frmboard::frmboard(MainWindow& main, QWidget* parent)
    : QWidget(parent, Qt::Window), main_(main), reader_(std::make_unique<db::BackgroundReader>()) {
    setObjectName(QStringLiteral("frmboard"));
    setWindowTitle(tr("Today's Board"));
    soon_.setSingleShot(true);
    soon_.setInterval(AfterWrite);
    connect(&soon_, &QTimer::timeout, this, &frmboard::Load);
    buildForm();
    FollowHiddenNames(this, [this](bool) { refresh(); });
    resize(frmboard::sizeHint().boundedTo(screen()->availableSize()));
    if (parent != nullptr)
        parent->installEventFilter(this);
}

frmboard::~frmboard() {
    if (isVisible())
        Session().Connection.OnWritten({});
}

void frmboard::Open(MainWindow& main, QWidget* parent) {
    frmboard* board = boardOf(parent);
    if (board == nullptr)
        board = new frmboard(main, parent);
    board->show();
    board->raise();
    board->activateWindow();
}

void frmboard::OpenAgain(const QWidget& parent) {
    frmboard* board = boardOf(&parent);
    if (board == nullptr)
        return;
    board->reader_ = std::make_unique<db::BackgroundReader>();
    board->contents_ = {};
    board->readAt_ = {};
    board->trouble_.clear();
    board->pnlproblem->hide();
    board->refresh();
    if (board->isVisible())
        board->Load();
}

QSize frmboard::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 170, fontMetrics().height() * 46};
}

// The window goes behind the main window where the user puts it there, which a dialog could not.
void frmboard::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        FormPosition(*this, FormMode::Get);
    if (windowHandle() != nullptr)
        windowHandle()->setTransientParent(nullptr);
    Session().Connection.OnWritten([this](const QString& table) {
        if (isShown(table))
            soon_.start();
    });
    refresh();
    Load();
    if (!ticking_)
        waitForMinute();
    QWidget::showEvent(event);
}

void frmboard::hideEvent(QHideEvent* event) {
    Session().Connection.OnWritten({});
    soon_.stop();
    if (!event->spontaneous())
        FormPosition(*this, FormMode::Set);
    QWidget::hideEvent(event);
}

void frmboard::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

// The board ends with the main window, and the search gives way to Escape and the arrows.
bool frmboard::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Hide && !event->spontaneous())
        close();
    if (watched != txtfind || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        txtfind->clear();
        leaveSearch();
        return true;
    }
    if (key != Qt::Key_Down && key != Qt::Key_Return && key != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    leaveSearch();
    return true;
}

// One of them waits at a time; it ends with the window's closing.
void frmboard::waitForMinute() {
    const QTime now = Now().time();
    ticking_ = true;
    After(MinuteMilliseconds - (now.second() * 1000 + now.msec()), this, [this] {
        ticking_ = false;
        if (isVisible())
            tick();
    });
}

void frmboard::tick() {
    refresh();
    Load();
    waitForMinute();
}

void frmboard::Load() {
    soon_.stop();
    if (reader_->IsReading())
        again_ = true;
    else
        begin();
}

bool frmboard::IsReading() const {
    return reader_->IsReading() || soon_.isActive();
}

void frmboard::begin() {
    again_ = false;
    const db::BackgroundReader::MakeEngine beside = Session().Connection.Beside();
    if (!beside) {
        tellProblem(Session().Connection.IsReplaced()
                        ? tr("Another database stands in the place of the one that was open.")
                        : tr("There is no connection to the database."));
        return;
    }
    const QDate date = Today();
    reader_->Read(beside, BoardStatements(date, Session().AllProviders ? QString() : Session().UID),
                  [this, date](db::BackgroundReader::Answer answer) { take(date, std::move(answer)); });
}

void frmboard::take(QDate date, db::BackgroundReader::Answer answer) {
    if (answer.failure) {
        tellProblem(answer.failure->description);
    } else {
        contents_ = ContentsOf(date, answer.tables);
        readAt_ = Now();
        pnlproblem->hide();
        fillProviders();
        refresh();
    }
    if (again_)
        begin();
}

void frmboard::tellProblem(const QString& why) {
    const QString now = timeText(Now().time());
    const QString what = readAt_.isValid() ? tr("The board could not be read at %1. It shows what was known at %2. %3")
                                                 .arg(now, timeText(readAt_.time()), why)
                                           : tr("The board could not be read at %1. %2").arg(now, why);
    lblproblem->setText(OneLine(what));
    if (!pnlproblem->isVisibleTo(this)) {
        pnlproblem->show();
        QAccessibleEvent alert(lblproblem, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
    refresh();
}

// Those who may be chosen now, and whoever stands on the board all the same. The choice stays.
void frmboard::fillProviders() {
    QStringList present;
    for (const auto* visits : {&contents_.today, &contents_.notes, &contents_.series})
        for (const BoardVisit& visit : *visits)
            if (!present.contains(visit.providerId, Qt::CaseInsensitive))
                present << visit.providerId;
    std::vector<BoardProvider> shown;
    for (const BoardProvider& provider : contents_.providers)
        if (present.removeIf([&](const QString& id) { return id.compare(provider.id, Qt::CaseInsensitive) == 0; }) >
                0 ||
            provider.isListed)
            shown.push_back(provider);
    for (const QString& id : std::as_const(present))
        shown.push_back({id, id.isEmpty() ? tr("(no provider)") : id, true});
    std::vector<std::pair<QString, QString>> items{{tr("All providers"), QString()}};
    for (const BoardProvider& provider : shown)
        if (!provider.id.isEmpty())
            items.emplace_back(contents_.ProviderName(provider.id), provider.id);
    const QString chosen = cboprovider->currentData().toString();
    const auto isChosen = [&chosen](const auto& item) { return item.second == chosen; };
    if (!chosen.isEmpty() && std::none_of(items.begin(), items.end(), isChosen))
        items.emplace_back(chosen, chosen);
    setProviders(items, chosen);
}

// An open list is left alone where nothing has changed.
void frmboard::setProviders(const std::vector<std::pair<QString, QString>>& items, const QString& chosen) {
    std::vector<std::pair<QString, QString>> before;
    before.reserve(static_cast<std::size_t>(cboprovider->count()));
    for (int row = 0; row < cboprovider->count(); ++row)
        before.emplace_back(cboprovider->itemText(row), cboprovider->itemData(row).toString());
    if (before == items)
        return;
    const QSignalBlocker quiet(cboprovider);
    cboprovider->clear();
    for (const auto& [name, id] : items)
        cboprovider->addItem(name, id);
    cboprovider->setCurrentIndex(chosen.isEmpty() ? 0 : cboprovider->findData(chosen));
}

void frmboard::refresh() {
    const QDate day = readAt_.isValid() && pnlproblem->isVisibleTo(this) ? contents_.date : Today();
    lblday->setText(LongDateText(day));
    lblclock->setText(timeText(Now().time()));
    for (const BoardPlace place : allPlaces)
        refreshPlace(place);
    lblstatus->setText(!trouble_.isEmpty() ? trouble_
                       : readAt_.isValid() ? tr("As of %1").arg(timeText(readAt_.time()))
                                           : tr("Reading ..."));
    suitCommands();
}

void frmboard::refreshPlace(BoardPlace place) {
    Place& shown = at(place);
    const QString provider = cboprovider->currentData().toString();
    const int minute = contents_.date.isValid() && contents_.date < Today() ? MinutesPerDay : minuteOfNow();
    shown.visits = contents_.Of(place, minute);
    if (!provider.isEmpty())
        std::erase_if(shown.visits, [&provider](const BoardVisit& visit) {
            return visit.providerId.compare(provider, Qt::CaseInsensitive) != 0;
        });
    std::vector<BoardCard> cards;
    for (const BoardVisit& visit : shown.visits) {
        BoardCard card = CardOf(visit, place, contents_.ProviderName(visit.providerId), minute);
        if (IsFound(card, txtfind->text()))
            cards.push_back(std::move(card));
    }
    const auto count = static_cast<int>(shown.visits.size());
    const auto found = static_cast<int>(cards.size());
    const QString number = found == count ? QString::number(count) : tr("%1 of %2").arg(found).arg(count);
    shown.number->setText(number);
    shown.list->setAccessibleName(TitleOf(place) + QStringLiteral(", ") + number);
    shown.list->SetEmptyText(!readAt_.isValid() ? QString()
                             : count > 0        ? tr("Nobody fits the search.")
                                                : EmptyTextOf(place));
    shown.list->SetStale(pnlproblem->isVisibleTo(this));
    shown.list->Show(cards);
}

int frmboard::Count(BoardPlace place) const {
    return static_cast<int>(at(place).visits.size());
}

BoardList& frmboard::List(BoardPlace place) const {
    return *at(place).list;
}

const BoardVisit* frmboard::visitOf(BoardPlace place, int key) const {
    for (const BoardVisit& visit : at(place).visits)
        if (visit.key == key)
            return &visit;
    return nullptr;
}

// An empty place is passed over, so that an arrow always leads to a card.
void frmboard::stepAside(BoardPlace from, int direction) {
    const int row = List(from).SelectedRow();
    for (int next = static_cast<int>(from) + direction; next >= 0 && next < BoardPlaces; next += direction) {
        BoardList& list = List(static_cast<BoardPlace>(next));
        if (list.CardCount() == 0)
            continue;
        list.SelectRow(row);
        list.setFocus(Qt::TabFocusReason);
        return;
    }
}

void frmboard::findTyped(const QString& letter) {
    txtfind->setFocus();
    txtfind->setText(letter);
}

// To the first place that has something; with nothing found the search keeps the focus.
void frmboard::leaveSearch() {
    for (const BoardPlace place : allPlaces) {
        if (List(place).CardCount() == 0)
            continue;
        List(place).SelectRow(0);
        List(place).setFocus(Qt::TabFocusReason);
        return;
    }
}
