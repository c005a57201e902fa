#include "appointments/seriesdates.h"

#include <algorithm>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "appointments/seriestexts.h"
#include "platform/controls/formparts.h"
#include "platform/database/error.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/hiddennames.h"

namespace {

constexpr int PauseMilliseconds = 150;
constexpr int DaysAhead = 366;  // Read in one go, so that a longer series seldom asks again.
constexpr int DateCharacters = 27;
constexpr int PlanCharacters = 15;
constexpr int Lines = 7;

}  // namespace

SeriesDates::SeriesDates(QWidget* parent) : QWidget(parent) {
    buildControls();
    due_.setSingleShot(true);
    due_.setInterval(PauseMilliseconds);
    next_.setSingleShot(true);
    for (const QTimer* timer : {&due_, &next_})
        connect(timer, &QTimer::timeout, this, &SeriesDates::readPiece);
    connect(lstdates, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* row) { decide(*row); });
    connect(lstdates, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* row) {
        lblway->setText(row != nullptr ? row->text(InTheWayColumn) : QString());
    });
    connect(cmdskip, &QPushButton::clicked, this, &SeriesDates::cmdskip_Click);
    FollowHiddenNames(this, [this](bool) {
        if (!dates_.empty())
            showRows();
    });
}

void SeriesDates::buildControls() {
    lstdates = Named(new QTreeWidget(this), "lstdates");
    lstdates->setAccessibleName(tr("Dates of the series"));
    lstdates->setRootIsDecorated(false);
    lstdates->setUniformRowHeights(true);
    lstdates->setAllColumnsShowFocus(true);
    lstdates->setTabKeyNavigation(false);
    lstdates->setHeaderLabels({tr("Date"), tr("In the way"), tr("Then")});
    const int character = fontMetrics().averageCharWidth();
    lstdates->header()->setStretchLastSection(false);
    lstdates->header()->setSectionResizeMode(InTheWayColumn, QHeaderView::Stretch);
    lstdates->header()->resizeSection(DateColumn, DateCharacters * character);
    lstdates->header()->resizeSection(PlanColumn, PlanCharacters * character);
    lstdates->setMinimumHeight(fontMetrics().height() * 3 / 2 * (Lines + 1));
    lblway = Named(new QLabel(this), "lblway");
    lblcount = Named(new QLabel(this), "lblcount");
    for (QLabel* label : {lblway, lblcount}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    cmdskip = FormButton(tr("Leave O&ut What Is Taken"), "cmdskip", this);
    auto* below = new QHBoxLayout;
    below->setSpacing(Space(8));
    below->addWidget(lblcount, 1);
    below->addWidget(cmdskip);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(4));
    column->addWidget(lstdates, 1);
    column->addWidget(lblway);
    column->addLayout(below);
}

void SeriesDates::SetSource(const SeriesSource& source, QDate own) {
    obstacles_ = SeriesObstacles(source);
    own_ = own;
}

void SeriesDates::ShowDates(const std::vector<QDate>& dates) {
    if (dates == dates_)
        return;
    dates_ = dates;
    next_.stop();
    fillRows();
    readIfNeeded();
}

void SeriesDates::readIfNeeded() {
    if (!dates_.empty() && !obstacles_.Knows(dates_.front(), dates_.back()))
        due_.start();
}

// A year at a time; the first holds most series whole.
void SeriesDates::readPiece() {
    if (dates_.empty())
        return;
    try {
        if (obstacles_.Knows(dates_.front(), dates_.front()))
            obstacles_.ReadOn(DaysAhead);
        else
            obstacles_.Read(dates_.front(), dates_.front().addDays(DaysAhead));
    } catch (const db::DatabaseError& error) {
        return tellUnread(error);
    }
    if (!obstacles_.Knows(dates_.front(), dates_.back()))
        next_.start(0);
    showRows();
}

std::optional<db::DatabaseError> SeriesDates::Read() {
    due_.stop();
    next_.stop();
    if (dates_.empty())
        return std::nullopt;
    try {
        obstacles_.Read(dates_.front(), std::max(dates_.back(), dates_.front().addDays(DaysAhead)));
        showRows();
        return std::nullopt;
    } catch (const db::DatabaseError& error) {
        tellUnread(error);
        return error;
    }
}

void SeriesDates::tellUnread(const db::DatabaseError& error) {
    lblcount->setText(tr("What stands in the way cannot be read now. %1").arg(error.description));
}

void SeriesDates::fillRows() {
    const QScopedValueRollback filling(filling_, true);
    const int place = lstdates->indexOfTopLevelItem(lstdates->currentItem());
    const int lineHeight = fontMetrics().height() * 3 / 2;
    QList<QTreeWidgetItem*> rows;
    for (const QDate date : dates_) {
        auto* row = new QTreeWidgetItem;
        row->setText(DateColumn, WeekdayAndDate(date));
        row->setData(DateColumn, Qt::UserRole, date);
        row->setSizeHint(DateColumn, QSize(0, lineHeight));
        showRow(*row, date);
        rows << row;
    }
    lstdates->clear();
    lstdates->addTopLevelItems(rows);
    if (!rows.isEmpty())
        lstdates->setCurrentItem(rows[std::clamp<qsizetype>(place, 0, rows.size() - 1)]);
    showCount();
}

void SeriesDates::showRows() {
    const QScopedValueRollback filling(filling_, true);
    for (std::size_t place = 0; place < dates_.size(); ++place)
        showRow(*lstdates->topLevelItem(static_cast<int>(place)), dates_[place]);
    if (const QTreeWidgetItem* current = lstdates->currentItem())
        lblway->setText(current->text(InTheWayColumn));
    showCount();
}

void SeriesDates::showRow(QTreeWidgetItem& row, QDate date) {
    const Obstacles obstacles = InTheWay(date);
    const Plan plan = PlanFor(date);
    row.setText(InTheWayColumn, plan == Plan::Own ? tr("this appointment itself") : obstacles.Text());
    row.setToolTip(InTheWayColumn, TipText(obstacles.Text()));
    row.setIcon(InTheWayColumn, obstacles.Any() && plan != Plan::Own ? Icon("warning") : QIcon());
    if (plan == Plan::Own) {
        row.setFlags(row.flags() & ~Qt::ItemIsUserCheckable);
        return;
    }
    const bool asks = plan == Plan::Ask && obstacles.Taken();
    row.setCheckState(DateColumn, plan == Plan::LeaveOut ? Qt::Unchecked : asks ? Qt::PartiallyChecked : Qt::Checked);
    row.setText(PlanColumn, plan == Plan::LeaveOut ? tr("left out") : asks ? tr("asked first") : tr("booked"));
}

void SeriesDates::showCount() {
    int left = 0;
    int asked = 0;
    for (const QDate date : dates_) {
        left += PlanFor(date) == Plan::LeaveOut ? 1 : 0;
        asked += PlanFor(date) == Plan::Ask && InTheWay(date).Taken() ? 1 : 0;
    }
    const int all = NewDates();
    QString text = tr("%1 of %2 new appointments").arg(all - left).arg(all);
    if (asked > 0)
        text += tr(", %1 asked first").arg(asked);
    if (next_.isActive())
        text += tr(". Looking up what is in the way...");
    lblcount->setText(text);
    cmdskip->setEnabled(std::any_of(dates_.begin(), dates_.end(), [this](QDate date) {
        const Plan plan = PlanFor(date);
        return plan != Plan::Own && plan != Plan::LeaveOut && InTheWay(date).Any();
    }));
}

SeriesDates::Plan SeriesDates::PlanFor(QDate date) const {
    if (date == own_)
        return Plan::Own;
    const auto decided = decided_.find(date);
    if (decided == decided_.end())
        return Plan::Ask;
    if (!decided->second.book)
        return Plan::LeaveOut;
    return decided->second.seen == InTheWay(date).Text() ? Plan::Book : Plan::Ask;
}

Obstacles SeriesDates::InTheWay(QDate date) const {
    return obstacles_.On(date);
}

int SeriesDates::NewDates() const {
    return static_cast<int>(dates_.size() - std::count(dates_.begin(), dates_.end(), own_));
}

// Ticking a free date again is no decision: it is asked for if somebody takes it in the meantime.
void SeriesDates::decide(QTreeWidgetItem& row) {
    if (filling_)
        return;
    const QScopedValueRollback filling(filling_, true);
    const QDate date = row.data(DateColumn, Qt::UserRole).toDate();
    const bool booked = row.checkState(DateColumn) == Qt::Checked;
    if (booked && !InTheWay(date).Taken())
        decided_.erase(date);
    else
        decided_[date] = {booked, InTheWay(date).Text()};
    showRow(row, date);
    showCount();
}

void SeriesDates::cmdskip_Click() {
    for (const QDate date : dates_)
        if (date != own_ && InTheWay(date).Any())
            decided_[date] = {};
    showRows();
    lstdates->setFocus();
}
