#include <QPointer>

#include "platform/calendar/ctmday.h"

void ctMDay::report(Report::Kind kind, int index, const QString& text, QPoint pos) {
    reports_.push_back({kind, index, generation_, {}, text, pos});
}

void ctMDay::reportText(int index, const QString& oldText) {
    report(Report::Kind::Text, index, oldText);
    // An edit may end because the focus changes, and no box may open at that moment, not even when a routine runs the
    // event loop. Unlike a posted call, a timer can be held back.
    textTimer_.start(0);
}

void ctMDay::reportDrop(int index, const ItemPlace& place) {
    state_.ghost = place;
    update();
    reports_.push_back({Report::Kind::Drop, index, generation_, place, {}, {}});
}

void ctMDay::deliverReports() {
    // The slot may run a dialog's event loop or close the calendar.
    const QPointer<ctMDay> alive(this);
    while (alive && !reports_.empty()) {
        const Report next = reports_.front();
        reports_.pop_front();
        deliver(next);
    }
}

void ctMDay::deliverTexts() {
    // The text must reach the view before items are removed.
    const QPointer<ctMDay> alive(this);
    for (std::size_t i = 0; alive && i < reports_.size();) {
        if (reports_[i].kind != Report::Kind::Text) {
            ++i;
            continue;
        }
        const Report text = reports_[i];
        reports_.erase(reports_.begin() + static_cast<std::ptrdiff_t>(i));
        deliver(text);
        i = 0;
    }
}

void ctMDay::deliver(const Report& report) {
    if (report.kind == Report::Kind::Drop) {
        deliverDrop(report);
        return;
    }
    if (report.generation != generation_ && report.index > 0)
        return;
    switch (report.kind) {
        case Report::Kind::DropOutside:
            Q_EMIT DroppedOutside(report.index);
            break;
        case Report::Kind::Refused:
            Q_EMIT MoveRefused(report.index);
            break;
        case Report::Kind::Text:
            Q_EMIT TextEdited(report.index, report.text);
            break;
        case Report::Kind::Activated:
            Q_EMIT ItemActivated(report.index);
            break;
        case Report::Kind::RangeActivated:
            Q_EMIT RangeActivated();
            break;
        case Report::Kind::Popup:
            Q_EMIT PopupRequested(report.index, report.pos);
            break;
        case Report::Kind::Delete:
            Q_EMIT DeleteRequested(report.index);
            break;
        case Report::Kind::Drop:
            break;
    }
}

void ctMDay::deliverDrop(const Report& report) {
    const QPointer<ctMDay> alive(this);
    bool cancel = report.generation != generation_;
    if (!cancel)
        Q_EMIT BeforeDrop(report.index, report.place, &cancel);
    if (!alive)
        return;
    cancelGesture();
    if (cancel || report.generation != generation_)
        return;
    CalendarItem& item = Item(report.index);
    const ItemPlace old = PlaceOf(item, content_);
    PutAt(item, report.place, content_);
    if (report.index == state_.selectedItem)
        ScrollToItem(report.index);
    announceSelection();
    Q_EMIT ItemChanged(report.index, old);
}
