#include <algorithm>
#include <QApplication>

#include "platform/calendar/ctmday.h"

namespace {

// Near an edge of the columns an item from outside scrolls them, as far as a row at a time.
constexpr int ScrollMargin = 24;
constexpr int ScrollStep = 16;

int stepNear(int value, int low, int high) {
    return value < low + ScrollMargin ? -ScrollStep : value > high - ScrollMargin ? ScrollStep : 0;
}

}  // namespace

void ctMDay::addDropTarget(QWidget* target) {
    dropTargets_.emplace_back(target);
}

bool ctMDay::isOverTarget(QPoint globalPos) const {
    return std::any_of(dropTargets_.begin(), dropTargets_.end(), [&](const QPointer<QWidget>& target) {
        return target && target->isVisible() && target->rect().contains(target->mapFromGlobal(globalPos));
    });
}

std::optional<ItemPlace> ctMDay::showIncoming(QPoint globalPos, const CalendarItem& item) {
    const QPoint pos = mapFromGlobal(globalPos);
    if (ColumnCount() == 0 || !isVisible() || !grid().body().contains(pos)) {
        endIncoming();
        return std::nullopt;
    }
    const QRect body = grid().body();
    scrollTo(grid().scrollX + stepNear(pos.x(), body.left(), body.right()),
             grid().scrollY + stepNear(pos.y(), body.top(), body.bottom()));
    // The item is held at its start, whatever its own time is.
    const int minute = grid().minuteAt(pos.y()) / content_.timeInterval * content_.timeInterval;
    const int length = std::max(item.ItemEnd - item.ItemStart, 0);
    Drag drag(Drag::Kind::Move, 0, {1, {}, 0, length}, 0);
    drag.move(grid().columnAt(pos.x()), minute, content_);
    const ItemPlace place = drag.place();
    state_.incoming = item;
    state_.ghost = place;
    update();
    return place;
}

void ctMDay::endIncoming() {
    if (!state_.incoming)
        return;
    state_.incoming.reset();
    state_.ghost.reset();
    update();
}
