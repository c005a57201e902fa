#include "appointments/waitbar.h"

#include <algorithm>
#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QSet>
#include <QToolButton>
#include <QVBoxLayout>

#include "appointments/frmnore.h"
#include "data/minutetime.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/desktop/opendialog.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "shell/mainwindow.h"

namespace {

constexpr int PatientColumn = 3;
constexpr int NoteColumn = 6;
constexpr int MostLines = 4;
constexpr int BetweenLooks = 50;  // Milliseconds between two looks while a dialog is open or a mouse button is down.

// Before the reason, and the notice's subject.
const QString Unread = QStringLiteral("The wait list could not be read. ");
const QString WaitNotice = QStringLiteral("wait list");

WaitBar*& current() {
    static WaitBar* bar = nullptr;
    return bar;
}

/// Lets a screen reader announce the bar when it appears.
class BarAccess : public QAccessibleWidget {
  public:
    explicit BarAccess(QWidget& bar) : QAccessibleWidget(&bar, QAccessible::AlertMessage) {}
};

QAccessibleInterface* makeBarAccess(const QString& className, QObject* object) {
    auto* bar = className == QLatin1String("WaitBar") ? qobject_cast<WaitBar*>(object) : nullptr;
    return bar == nullptr ? nullptr : new BarAccess(*bar);
}

void installBarAccess() {
    static const bool installed = [] {
        QAccessible::installFactory(makeBarAccess);
        return true;
    }();
    static_cast<void>(installed);
}

QString dateText(QDate date) {
    return QLocale::c().toString(date, QStringLiteral("ddd, MMM d"));
}

QString rangeText(int start, int end) {
    const bool military = Session().MilitaryTime;
    return QStringLiteral("%1 - %2").arg(MinutesToTimeText(start, military), MinutesToTimeText(end, military));
}

QString wantsText(const WaitEntry& entry) {
    QStringList wants{WaitLengthText(entry.minutes)};
    if (entry.days != EveryDay)
        wants << WaitDaysText(entry.days);
    if (entry.times != MinuteRange{0, MinutesPerDay})
        wants << WaitTimesText(entry.times);
    if (entry.until.isValid())
        wants << QStringLiteral("until %1").arg(ShortDateText(entry.until));
    return wants.join(QStringLiteral("; "));
}

void tellInNotice(const QString& text) {
    ShowNotice({.text = text, .subject = WaitNotice});
}

}  // namespace

WaitBar::WaitBar(MainWindow& main, QWidget* parent)
    : QFrame(parent), main_(main), freed_(Session().Connection, [this] { due_.start(0); }) {
    current() = this;
    installBarAccess();
    setObjectName(QStringLiteral("waitbar"));
    buildBar();
    due_.setSingleShot(true);
    connect(&due_, &QTimer::timeout, this, &WaitBar::look);
    connect(lstoffers, &ctList::RowActivated, this, &WaitBar::take);
    connect(lstoffers, &QTreeView::clicked, this, &WaitBar::take);
    connect(cmdbook, &QPushButton::clicked, this, &WaitBar::take);
    connect(cmdcloseoffers, &QToolButton::clicked, this, &WaitBar::Clear);
    hide();
}

WaitBar::~WaitBar() {
    if (current() == this)
        current() = nullptr;
}

void WaitBar::buildBar() {
    lbloffers = Named(new QLabel(this), "lbloffers");
    lbloffers->setTextFormat(Qt::PlainText);
    lbloffers->setWordWrap(true);
    cmdbook = FormButton(tr("Book"), "cmdbook", this);
    cmdbook->setToolTip(tr("Book the selected patient for this hour (Enter)"));
    cmdcloseoffers = Named(new QToolButton(this), "cmdcloseoffers");
    cmdcloseoffers->setIcon(Icon("close"));
    cmdcloseoffers->setIconSize({Space(12), Space(12)});
    cmdcloseoffers->setAutoRaise(true);
    cmdcloseoffers->setFocusPolicy(Qt::TabFocus);
    cmdcloseoffers->setToolTip(tr("Close these offers (Esc)"));
    cmdcloseoffers->setAccessibleName(tr("Close these offers"));
    lstoffers = Named(new ctList(this), "lstoffers");
    lstoffers->setAccessibleName(tr("Who fits"));
    lstoffers->SetColumns(
        {{tr("Time"), ListColumn::Kind::Text, 35},
         {tr("Provider"), ListColumn::Kind::Text, 13},
         {Session().WordUsage.isEmpty() ? tr("Patient") : Session().WordUsage, ListColumn::Kind::Text, 22},
         {tr("Waits for"), ListColumn::Kind::Text, 28},
         {tr("Since"), ListColumn::Kind::Text, 13},
         {tr("Note")}});
    FollowHiddenNames(lstoffers);
    setFocusProxy(lstoffers);
    auto* line = new QHBoxLayout;
    line->setSpacing(Space(8));
    line->addWidget(lbloffers, 1);
    line->addWidget(cmdbook);
    line->addWidget(cmdcloseoffers);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(12) + Space(24), Space(4), Space(8), Space(8));
    column->setSpacing(Space(4));
    column->addLayout(line);
    column->addWidget(lstoffers);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

// Neither under a dialog, whose routine may still be writing, nor under a mouse button, which the bar would move away
// from.
void WaitBar::look() {
    if (booking_ || OpenDialog::Any() || QApplication::mouseButtons() != Qt::NoButton) {
        due_.start(BetweenLooks);
        return;
    }
    std::vector<FreedTime> fallen;
    try {
        fallen = OfferableTimes(freed_.Take());
        if (fallen.empty() && times_.empty())
            return;
        times_.insert(times_.end(), fallen.begin(), fallen.end());
        readOffers();
        DropNotice(Unread);
    } catch (const db::DatabaseError& error) {
        TellInBar(Unread, error);
        return hideOffers();
    }
    const bool appears = isHidden();
    showOffers();
    if ((appears || !fallen.empty()) && isVisible())
        announce();
}

void WaitBar::readOffers() {
    offers_.clear();
    if (!times_.empty() && HasWaitList())
        offers_ = OffersFor(times_);
}

void WaitBar::Ask(const FreedTime& time) {
    const QString asked = dateText(time.date) + QStringLiteral(", ") + rangeText(time.time.start, time.time.end);
    if (EarliestMinute(time.date, Now()) >= time.time.end)
        return tellInNotice(tr("%1 is past.").arg(asked));
    const std::vector<FreedTime> before = times_;
    if (std::find(times_.begin(), times_.end(), time) == times_.end())
        times_.push_back(time);
    try {
        readOffers();
        DropNotice(Unread);
    } catch (const db::DatabaseError& error) {
        times_ = before;
        TellInBar(Unread, error);
        return hideOffers();
    }
    const int line = lineOf(time);
    if (line < 0)
        times_ = before;
    showOffers();
    if (line < 0)
        return tellInNotice(tr("Nobody on the wait list fits %1.").arg(asked));
    lstoffers->SelectRow(line);
    lstoffers->setFocus(Qt::OtherFocusReason);
}

// Whoever fits another time from the same minute is offered that one alone (OffersFor), and fits where at least half of
// the visit lies in the time that is asked about.
int WaitBar::lineOf(const FreedTime& time) const {
    const auto fits = [&time](const WaitOffer& offer) {
        const int common = std::min(offer.End(), time.time.end) - std::max(offer.start, time.time.start);
        return offer.freed.date == time.date && offer.freed.provider.compare(time.provider, Qt::CaseInsensitive) == 0 &&
               2 * common >= offer.row.entry.minutes;
    };
    auto found =
        std::find_if(offers_.begin(), offers_.end(), [&time](const WaitOffer& offer) { return offer.freed == time; });
    if (found == offers_.end())
        found = std::find_if(offers_.begin(), offers_.end(), fits);
    return found == offers_.end() ? -1 : static_cast<int>(found - offers_.begin());
}

void WaitBar::Clear() {
    times_.clear();
    hideOffers();
}

void WaitBar::Forget() {
    freed_.Forget();
    ForgetWaitList();
    Clear();
}

// The times may be kept, for the next look.
void WaitBar::hideOffers() {
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    offers_.clear();
    lstoffers->Clear();
    hide();
    if (hadFocus)
        Q_EMIT FocusGivenBack();
}

void WaitBar::showOffers() {
    const QVariant selected = lstoffers->ItemData(lstoffers->SelectedRow());
    if (offers_.empty())
        return Clear();
    lstoffers->Clear();
    for (const WaitOffer& offer : offers_)
        addOffer(offer);
    DropNotice(WaitNotice);
    lstoffers->SelectRow(std::max(lstoffers->FindItemData(selected), 0));
    lbloffers->setText(heading());
    setAccessibleName(heading());
    cmdbook->setAccessibleDescription(heading());
    fitList();
    show();
}

void WaitBar::addOffer(const WaitOffer& offer) {
    const WaitRow& row = offer.row;
    const int added = lstoffers->AddRow(
        {QStringLiteral("%1, %2").arg(dateText(offer.freed.date), rangeText(offer.start, offer.End())),
         offer.providerName, row.patientName, wantsText(row.entry),
         row.since.isValid() ? ShortDateText(row.since.date()) : QString(), row.note},
        QStringLiteral("%1 %2 %3 %4")
            .arg(row.id)
            .arg(offer.freed.date.toJulianDay())
            .arg(offer.start)
            .arg(offer.freed.provider));
    lstoffers->NameCell(added, PatientColumn);
    if (!row.note.isEmpty())
        lstoffers->NameCell(added, NoteColumn);
}

// It names nobody, because it stays on the screen while names may be hidden.
QString WaitBar::heading() const {
    QSet<int> patients;
    std::vector<FreedTime> times;
    for (const WaitOffer& offer : offers_) {
        patients.insert(offer.row.id);
        if (std::find(times.begin(), times.end(), offer.freed) == times.end())
            times.push_back(offer.freed);
    }
    const QString who = patients.size() == 1 ? tr("1 patient on the wait list fits.")
                                             : tr("%1 patients on the wait list fit.").arg(patients.size());
    if (times.size() > 1)
        return tr("%1 times are free. %2").arg(times.size()).arg(who);
    const FreedTime& time = times.front();
    return tr("%1, %2 with %3 is free. %4")
        .arg(dateText(time.date), rangeText(time.time.start, time.time.end), offers_.front().providerName, who);
}

void WaitBar::announce() {
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void WaitBar::fitList() {
    const int lines = std::min(lstoffers->RowCount(), MostLines);
    lstoffers->setFixedHeight(lstoffers->header()->sizeHint().height() + lines * lstoffers->sizeHintForRow(0) +
                              2 * lstoffers->frameWidth() + Space(4));
}

void WaitBar::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && cmdbook->hasFocus())
        take();
    else if (event->key() == Qt::Key_Escape || (isEnter && cmdcloseoffers->hasFocus()))
        Clear();
    else
        QFrame::keyPressEvent(event);
}

void WaitBar::paintEvent(QPaintEvent* /*event*/) {
    const ThemeColours& colours = Theme::Instance().colours();
    QPainter painter(this);
    painter.fillRect(rect(), colours.base);
    painter.fillRect(QRect(0, 0, Space(4), height()), colours.accent);
    painter.fillRect(QRect(0, height() - 1, width(), 1), colours.border);
    const int size = Space(16);
    painter.drawPixmap(Space(12), lbloffers->geometry().center().y() - size / 2,
                       IconPixmap(QStringLiteral("clock"), colours.accent, size, devicePixelRatioF()));
}

// Not within the click, which still belongs to the list.
void WaitBar::take() {
    const int row = lstoffers->SelectedRow();
    if (row < 0 || booking_ || OpenDialog::Any())
        return;
    booking_ = true;
    QTimer::singleShot(0, this, [this, offer = offers_[static_cast<std::size_t>(row)]] {
        book(offer);
        booking_ = false;
        due_.start(0);
    });
}

// What the bar shows may be old by now.
void WaitBar::book(const WaitOffer& offer) {
    std::vector<WaitOffer> now;
    try {
        now = OffersFor(times_);
    } catch (const db::DatabaseError& error) {
        return TellInBar(Unread, error);
    }
    const auto still = std::find_if(now.begin(), now.end(), [&](const WaitOffer& other) {
        return other.row.id == offer.row.id && other.freed == offer.freed;
    });
    if (still == now.end())
        return tellGone();
    goTo(*still);
    EditorRequest request{apptkind::Patient,
                          true,
                          0,
                          Session().CurrentView,
                          {still->freed.provider, still->providerName},
                          SelectedSlot{still->freed.date, still->start, still->End()}};
    request.patientId = still->row.entry.patientId;
    request.waitId = still->row.id;
    const auto reload = [&main = main_] { main.cycledate(2); };
    RunEditor(std::make_unique<frmnore>(request, window()), reload, reload);
}

// A view of one provider shows the one who has the hour.
void WaitBar::goTo(const WaitOffer& offer) {
    SessionValues& session = Session();
    main_.SetDate(offer.freed.date);
    if (!ViewHasEditor(session.CurrentView))
        main_.changeview(View::Day);
    const bool shown = session.CurrentView == View::AllProviders ||
                       session.ProviderId.compare(offer.freed.provider, Qt::CaseInsensitive) == 0;
    if (shown) {
        main_.cycledate(2);
        return;
    }
    session.ProviderId = offer.freed.provider;
    session.ProviderName = offer.providerName;
    main_.ProviderChosen();
}

void WaitBar::tellGone() {
    ShowNotice({.text = tr("This time or this entry of the wait list is not free any more. Another user may have been "
                           "quicker."),
                .kind = Notice::Kind::Caution,
                .subject = WaitNotice});
}

void TellFreedTime(const FreedTime& freed) {
    if (current() != nullptr)
        current()->freed_.Note(freed);
}

void RecheckOffers() {
    if (current() != nullptr)
        current()->due_.start(0);
}

void AskWhoWaits(const FreedTime& time) {
    if (current() != nullptr)
        current()->Ask(time);
}
