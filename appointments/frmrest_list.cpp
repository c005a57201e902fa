#include <algorithm>
#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTreeWidget>

#include "appointments/frmrest.h"
#include "appointments/seriestexts.h"
#include "data/statuses.h"
#include "platform/controls/completingcombo.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"

namespace {

MinuteSpan timeOf(const SeriesPlace& place) {
    return {static_cast<double>(place.start), static_cast<double>(place.end)};
}

}  // namespace

void frmrest::fillRows() {
    {
        const QScopedValueRollback filling(filling_, true);
        QList<QTreeWidgetItem*> rows;
        for (const RestPlan& plan : plans_) {
            auto* row = new QTreeWidgetItem;
            row->setText(DateColumn, WeekdayAndDate(plan.row.place.date));
            row->setText(TimeColumn, TimesText(timeOf(plan.row.place)));
            row->setSizeHint(DateColumn, QSize(0, fontMetrics().height() * 3 / 2));
            rows << row;
        }
        lstrows->clear();
        lstrows->addTopLevelItems(rows);
        const auto chosen = std::ranges::find(series_.rows, series_.chosen, &RestRow::key);
        const auto place = chosen == series_.rows.end() ? 0 : chosen - series_.rows.begin();
        lstrows->setCurrentItem(lstrows->topLevelItem(static_cast<int>(place)));
        lstrows->scrollToItem(lstrows->currentItem(), QAbstractItemView::PositionAtTop);
    }
    showRows();
}

void frmrest::showRows() {
    if (lstrows->topLevelItemCount() != static_cast<int>(plans_.size()))
        return;
    const QScopedValueRollback filling(filling_, true);
    for (std::size_t place = 0; place < plans_.size(); ++place)
        showRow(*lstrows->topLevelItem(static_cast<int>(place)), place);
    if (const QTreeWidgetItem* current = lstrows->currentItem())
        lblway->setText(current->text(InTheWayColumn));
    showCount();
}

void frmrest::showRow(QTreeWidgetItem& row, std::size_t place) {
    const bool changes = plans_[place].Changes();
    const bool ticked = isTicked(place);
    row.setData(DateColumn, Qt::CheckStateRole, changes ? QVariant(ticked ? Qt::Checked : Qt::Unchecked) : QVariant());
    row.setFlags(changes ? row.flags() | Qt::ItemIsUserCheckable : row.flags() & ~Qt::ItemIsUserCheckable);
    row.setText(ThenColumn, thenText(place));
    const QString way = wayText(place);
    row.setText(InTheWayColumn, way);
    row.setToolTip(InTheWayColumn, TipText(way));
    row.setIcon(InTheWayColumn, way.isEmpty() ? QIcon() : Icon("warning"));
    const QPalette::ColorRole role = changes && ticked ? QPalette::Text : QPalette::PlaceholderText;
    for (const int column : {DateColumn, TimeColumn, ThenColumn})
        row.setForeground(column, palette().brush(role));
}

bool frmrest::isTicked(std::size_t place) const {
    return plans_[place].Changes() && !leftOut_.contains(plans_[place].row.key);
}

QStringList frmrest::inTheWay(std::size_t place) const {
    return obstacles_.InTheWay(place, [this](std::size_t other) { return isTicked(other); });
}

QString frmrest::wayText(std::size_t place) const {
    QStringList lines = inTheWay(place);
    if (const QString holiday = obstacles_.Holiday(place); !holiday.isEmpty())
        lines << tr("Holiday: %1").arg(holiday);
    return lines.join(QStringLiteral("; "));
}

QString frmrest::thenText(std::size_t place) const {
    using Kind = RestChange::Kind;
    const RestPlan& plan = plans_[place];
    if (!plan.Changes())
        return StayText(plan.stay);
    if (!isTicked(place))
        return tr("left out");
    switch (change_.kind) {
        case Kind::Delete:
            return tr("deleted");
        case Kind::Shift:
        case Kind::MoveTo:
            return plan.after->date == plan.row.place.date
                       ? tr("moves to %1").arg(TimesText(timeOf(*plan.after)))
                       : tr("moves to %1, %2").arg(WeekdayAndDate(plan.after->date), TimesText(timeOf(*plan.after)));
        case Kind::Room:
            return plan.after->room > 0 ? tr("gets %1").arg(cborooms->Text())
                                        : tr("gives up %1").arg(plan.row.roomName);
        case Kind::Provider: {
            const auto provider = std::ranges::find_if(providers_, [&](const BookedProvider& offered) {
                return offered.id.compare(plan.after->provider, Qt::CaseInsensitive) == 0;
            });
            return tr("goes to %1").arg(provider == providers_.end() ? plan.after->provider : provider->name);
        }
        case Kind::PatientCancel:
        case Kind::TherapistCancel:
            return QString::fromLatin1(StatusOf(plan.after->code).word);
    }
    return {};
}

void frmrest::showCount() {
    int changed = 0;
    int stay = 0;
    int taken = 0;
    bool skips = false;
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        const bool ticked = isTicked(place);
        changed += ticked ? 1 : 0;
        stay += !ticked && plans_[place].stay != Stay::NotChosen ? 1 : 0;
        taken += ticked && !inTheWay(place).isEmpty() ? 1 : 0;
        skips = skips || (ticked && !wayText(place).isEmpty());
    }
    QString text = change_.kind == RestChange::Kind::Delete ? tr("%1 will be deleted").arg(changed)
                                                            : tr("%1 will be changed").arg(changed);
    if (stay > 0)
        text += tr(", %1 stay").arg(stay);
    if (taken > 0)
        text += tr(", %1 with something in the way").arg(taken);
    lblcount->setText(text);
    cmdskip->setEnabled(skips);
    cmdskip->setToolTip(skips ? QString() : tr("Nothing is in the way."));
    cmdOk->setEnabled(changed > 0);
    cmdOk->setToolTip(changed > 0 ? QString() : tr("Nothing would be changed yet. Choose what and for which."));
}

void frmrest::tick(QTreeWidgetItem& row) {
    if (filling_)
        return;
    const int key = plans_[static_cast<std::size_t>(lstrows->indexOfTopLevelItem(&row))].row.key;
    if (row.checkState(DateColumn) == Qt::Checked)
        leftOut_.remove(key);
    else
        leftOut_.insert(key);
    showRows();
}

void frmrest::cmdskip_Click() {
    QSet<int> taken;
    for (std::size_t place = 0; place < plans_.size(); ++place)
        if (isTicked(place) && !wayText(place).isEmpty())
            taken.insert(plans_[place].row.key);
    leftOut_ |= taken;
    showRows();
    lstrows->setFocus();
}
