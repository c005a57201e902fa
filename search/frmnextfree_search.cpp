#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "data/minutetime.h"
#include "platform/controls/ctlist.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "search/frmnextfree.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/session.h"

void frmnextfree::searchAgain() {
    goesOn_.stop();
    keepsRow_ = false;
    due_.start();
}

void frmnextfree::startSearch() {
    due_.stop();
    goesOn_.stop();
    kept_ = std::exchange(keepsRow_, false) ? selected() : std::nullopt;
    ctList1->Clear();
    cmdbook->setEnabled(false);
    pending_.clear();
    listed_.clear();
    mostRows_ = MostRows;
    QString missing;
    const OpeningWish wanted = wish(missing);
    searchedPatient_ = wanted.patientId;
    if (!missing.isEmpty())
        return stopSearch(missing);
    try {
        search_.emplace(wanted, Now(), Session().TimeUnit);
    } catch (const db::DatabaseError& error) {
        return tellFailure(error);
    }
    searchOn();
}

void frmnextfree::searchOn() {
    try {
        const std::vector<Opening> found = search_->Next();
        pending_.insert(pending_.end(), found.begin(), found.end());
    } catch (const db::DatabaseError& error) {
        return tellFailure(error);
    }
    addRows();
}

void frmnextfree::findFirst() {
    const BusyPointer busy;
    while (listed_.empty() && goesOn_.isActive()) {
        goesOn_.stop();
        searchOn();
    }
}

std::optional<Opening> frmnextfree::selected() const {
    const int row = ctList1->SelectedRow();
    return row < 0 ? std::nullopt : std::optional(listed_[static_cast<std::size_t>(row)]);
}

void frmnextfree::addRow(const Opening& opening) {
    const bool military = Session().MilitaryTime;
    QStringList notes;
    if (!opening.holiday.isEmpty())
        notes << opening.holiday;
    if (opening.overCancelled)
        notes << tr("a cancelled one is there");
    const int row = ctList1->AddRow({NamedDateText(opening.date), MinutesToTimeText(opening.start, military),
                                     MinutesToTimeText(opening.end, military), opening.provider.name,
                                     notes.join(QStringLiteral(", "))});
    listed_.push_back(opening);
    if (kept_ && kept_->BeginsAs(opening))
        ctList1->SelectRow(row);
}

void frmnextfree::addRows() {
    while (!pending_.empty() && static_cast<int>(listed_.size()) < mostRows_) {
        addRow(pending_.front());
        pending_.pop_front();
    }
    if (ctList1->SelectedRow() < 0 && !listed_.empty())
        ctList1->SelectRow(0);
    const bool goesOn =
        search_ && !search_->Ended() && pending_.empty() && static_cast<int>(listed_.size()) < mostRows_;
    cmdmore->setEnabled(search_ && !goesOn && !(search_->Ended() && pending_.empty()));
    if (goesOn)
        goesOn_.start();
    tellCount();
}

void frmnextfree::tellCount() {
    const QString count = QString::number(listed_.size());
    const QString last = NamedDateText(search_->Last());
    QString text;
    if (goesOn_.isActive())
        text = listed_.empty() ? tr("Searching...") : tr("%1 openings so far").arg(count);
    else if (listed_.empty())
        text = tr("Nothing is free from %1 to %2.").arg(NamedDateText(search_->First()), last);
    else if (cmdmore->isEnabled())
        text = tr("The first %1 openings.").arg(count);
    else
        text = listed_.size() == 1 ? tr("1 opening to %1.").arg(last) : tr("%1 openings to %2.").arg(count, last);
    if (const int leftOut = search_->HolidaysLeftOut(); leftOut > 0 && !goesOn_.isActive())
        text += leftOut == 1 ? tr(" 1 holiday is left out.") : tr(" %1 holidays are left out.").arg(leftOut);
    tell(text);
}

// Whoever listens to the list hears it there.
void frmnextfree::tell(const QString& text) {
    if (text == lblcount->text())
        return;
    lblcount->setText(text);
    ctList1->setAccessibleDescription(text);
    QAccessibleEvent told(ctList1, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}

void frmnextfree::stopSearch(const QString& why) {
    goesOn_.stop();
    search_.reset();
    pending_.clear();
    cmdmore->setEnabled(false);
    tell(why);
}

void frmnextfree::tellFailure(const db::DatabaseError& error) {
    stopSearch(tr("The search has stopped, because the database could not be read."));
    TellError(QStringLiteral("Error searching availability. "), error);
}
