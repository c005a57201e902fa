#include "platform/controls/noticebar.h"

#include <algorithm>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "platform/controls/noticerow.h"
#include "platform/theme/theme.h"

namespace {

constexpr int MouseLookMilliseconds = 30;

NoticeBar*& current() {
    static NoticeBar* bar = nullptr;
    return bar;
}

}  // namespace

bool ShowNotice(Notice notice) {
    if (current() == nullptr)
        return false;
    current()->Show(std::move(notice));
    return true;
}

void DropNotice(const QString& subject) {
    if (current() != nullptr)
        current()->Drop(subject);
}

bool NoticeStands(const QString& subject) {
    return current() != nullptr && current()->Stands(subject);
}

NoticeBar::NoticeBar(QWidget* parent)
    : QWidget(parent), rows_(new QVBoxLayout(this)), more_(new QLabel(this)), waiting_(new QTimer(this)) {
    current() = this;
    setObjectName(QStringLiteral("noticebar"));
    setAccessibleName(tr("Notices"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    more_->setObjectName(QStringLiteral("moreNotices"));
    more_->setContentsMargins(Space(12), 0, Space(12), Space(4));
    more_->hide();
    rows_->addWidget(more_);
    waiting_->setSingleShot(true);
    connect(waiting_, &QTimer::timeout, this, &NoticeBar::settle);
    hide();
}

NoticeBar::~NoticeBar() {
    if (current() == this)
        current() = nullptr;
}

void NoticeBar::Show(Notice notice) {
    Drop(notice.subject);
    entries_.insert(entries_.begin(), {++lastNumber_, std::move(notice)});
    dropOverflow();
    settle();
}

void NoticeBar::dropOverflow() {
    if (entries_.size() <= Kept)
        return;
    const auto oldest = std::find_if(entries_.rbegin(), entries_.rend(),
                                     [](const Entry& entry) { return entry.notice.actions.empty(); });
    if (oldest != entries_.rend())
        remove(std::next(oldest).base());
}

NoticeBar::Place NoticeBar::find(int number) {
    return std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.number == number; });
}

NoticeBar::Place NoticeBar::find(const QString& subject) {
    return std::find_if(entries_.begin(), entries_.end(),
                        [&](const Entry& entry) { return !subject.isEmpty() && entry.notice.subject == subject; });
}

void NoticeBar::Drop(const QString& subject) {
    if (const Place found = find(subject); found != entries_.end())
        remove(found);
}

void NoticeBar::Clear() {
    while (!entries_.empty())
        remove(entries_.begin());
}

QStringList NoticeBar::Texts() const {
    QStringList texts;
    for (const Entry& entry : entries_)
        texts << entry.notice.text.simplified();
    return texts;
}

bool NoticeBar::Stands(const QString& subject) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [&](const Entry& entry) { return entry.notice.subject == subject; });
}

bool NoticeBar::MayLeave() const {
    const std::vector<Entry> entries =
        entries_;  // Copied, because a question shows a window, and a notice may be added meanwhile.
    return std::all_of(entries.begin(), entries.end(),
                       [](const Entry& entry) { return !entry.notice.mayClose || entry.notice.mayClose(); });
}

QWidget* NoticeBar::FocusTarget() const {
    return entries_.empty() || entries_.front().row == nullptr ? nullptr : entries_.front().row->FirstButton();
}

void NoticeBar::settle() {
    if (QApplication::mouseButtons() != Qt::NoButton) {
        waiting_->start(MouseLookMilliseconds);
        return;
    }
    showRows();
    tellAssistants();
}

// A row that stays keeps its widget, so that a key meant for one of its buttons still reaches it.
void NoticeBar::showRows() {
    const QWidget* focus = QApplication::focusWidget();
    const bool hadFocus = focus != nullptr && isAncestorOf(focus);
    for (NoticeRow* row : leaving_)
        freeRow(row);
    leaving_.clear();
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        Entry& entry = entries_[at];
        if (at >= Seen && entry.row != nullptr)
            freeRow(std::exchange(entry.row, nullptr));
        if (at >= Seen || entry.row != nullptr)
            continue;
        makeRow(entry);
        rows_->insertWidget(static_cast<int>(at), entry.row);
        entry.row->show();
    }
    const std::size_t waiting = entries_.size() - std::min(entries_.size(), Seen);
    more_->setText(tr("%1 more").arg(waiting));
    more_->setVisible(waiting > 0);
    setVisible(!entries_.empty());
    focus = QApplication::focusWidget();
    if (hadFocus && (focus == nullptr || !isAncestorOf(focus)))
        giveFocusOn();
}

void NoticeBar::makeRow(Entry& entry) {
    entry.row = new NoticeRow(entry.notice, this);
    const int number = entry.number;
    connect(entry.row, &NoticeRow::Taken, this, [this, number](std::size_t action) { take(number, action); });
    connect(entry.row, &NoticeRow::Closed, this, [this, number] { close(number); });
}

// The row is deleted later, because the click may come from one of its buttons.
void NoticeBar::freeRow(NoticeRow* row) {
    rows_->removeWidget(row);
    row->hide();
    row->setParent(nullptr);
    row->deleteLater();
}

void NoticeBar::giveFocusOn() {
    if (QWidget* next = FocusTarget())
        next->setFocus(Qt::OtherFocusReason);
    else
        Q_EMIT FocusGivenBack();
}

void NoticeBar::tellAssistants() {
    if (entries_.empty() || entries_.front().number <= told_)
        return;
    told_ = entries_.front().number;
    QAccessibleEvent event(entries_.front().row, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void NoticeBar::take(int number, std::size_t action) {
    const Place found = find(number);
    if (found == entries_.end())
        return;
    const std::function<void()> run = found->notice.actions.at(action).run;
    remove(found);
    QTimer::singleShot(0, this, run);
}

void NoticeBar::close(int number) {
    const Place found = find(number);
    if (found == entries_.end())
        return;
    const Notice notice = found->notice;
    if (notice.mayClose && !notice.mayClose())
        return;
    if (const Place still = find(number); still != entries_.end())
        remove(still);
    if (notice.dismissed)
        notice.dismissed();
}

void NoticeBar::remove(Place entry) {
    if (entry->row != nullptr)
        leaving_.push_back(entry->row);
    entries_.erase(entry);
    settle();
}
