#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/calendar/ctmday.h"

namespace {

Drag::Kind KindOf(Zone zone) {
    switch (zone) {
        case Zone::TopEdge:
            return Drag::Kind::ResizeTop;
        case Zone::BottomEdge:
            return Drag::Kind::ResizeBottom;
        case Zone::Body:
            break;
    }
    return Drag::Kind::Move;
}

}  // namespace

Hit ctMDay::hitAt(QPoint pos) const {
    return HitTest(pos, grid(), layout(), style_, state_.selectedItem);
}

void ctMDay::mousePressEvent(QMouseEvent* event) {
    editTimer_.stop();
    if (drag_) {  // Another button during a drag cancels it.
        cancelGesture();
        return;
    }
    closeEditor(true);
    const Hit hit = hitAt(event->pos());
    if (event->button() == Qt::LeftButton)
        pressLeft(event, hit);
}

void ctMDay::pressLeft(QMouseEvent* event, const Hit& hit) {
    rangeBeforePress_ = state_.range;
    press_ = Press{event->pos(), hit};
    if (const auto* item = std::get_if<ItemHit>(&hit)) {
        press_->wasSelected = item->index == state_.selectedItem;
        setSelectedItem(item->index);
    } else if (const auto* cell = std::get_if<CellHit>(&hit)) {
        pressCell(*cell, event->modifiers().testFlag(Qt::ShiftModifier));
    } else if (const auto* marker = std::get_if<MarkerHit>(&hit)) {
        selectMarked(*marker);
    }
}

void ctMDay::pressCell(const CellHit& cell, bool extend) {
    const SelectedTime row = rowAt(cell.column, cell.minute);
    press_->anchorStart = row.start;
    press_->anchorEnd = row.end;
    if (extend && state_.range && state_.range->column == cell.column) {
        const SelectedTime anchor = rowAt(cell.column, rangeAnchor_);
        press_->anchorStart = anchor.start;
        press_->anchorEnd = anchor.end;
        selectTime({cell.column, std::min(anchor.start, row.start), std::max(anchor.end, row.end)});
        return;
    }
    rangeAnchor_ = row.start;
    selectTime(row);
}

void ctMDay::mouseMoveEvent(QMouseEvent* event) {
    if (!press_ || !event->buttons().testFlag(Qt::LeftButton)) {
        showHover(hitAt(event->pos()));
        return;
    }
    if (std::holds_alternative<CellHit>(press_->hit)) {
        extendRangeTo(event->pos());
        return;
    }
    const bool far = (event->pos() - press_->pos).manhattanLength() >= QApplication::startDragDistance();
    if (!drag_ && !press_->refused && far && std::holds_alternative<ItemHit>(press_->hit) && !beginDrag()) {
        // The view may have removed the item, and the press with it, in answer to the signal.
        if (press_)
            press_->refused = true;
        setCursor(Qt::ForbiddenCursor);
    }
    if (drag_)
        dragTo(event->pos());
}

bool ctMDay::mayMove(int index) {
    const int generation = generation_;
    Q_EMIT BeforeItemWork(index);
    return generation == generation_ && hasItem(index) && !readOnly_ &&
           !std::as_const(*this).Item(index).ItemMoveLocked;
}

bool ctMDay::beginDrag() {
    const ItemHit hit = std::get<ItemHit>(press_->hit);
    const QPoint from = press_->pos;
    if (!hasItem(hit.index) || !mayMove(hit.index) || std::as_const(*this).Item(hit.index).ItemBanner)
        return false;
    drag_.emplace(KindOf(hit.zone), hit.index, PlaceOf(std::as_const(*this).Item(hit.index), content_),
                  grid().minuteAt(from.y()));
    state_.draggedItem = hit.index;
    QToolTip::hideText();
    return true;
}

void ctMDay::dragTo(QPoint pos) {
    lastDragPos_ = pos;
    const QRect body = grid().body();
    const int minute = grid().minuteAt(std::clamp(pos.y(), body.top(), body.bottom()));
    drag_->move(grid().columnAt(std::clamp(pos.x(), body.left(), body.right())), minute, content_);
    state_.ghost = drag_->place();
    const bool moves = drag_->kind() == Drag::Kind::Move;
    const bool leaves = moves && isOverTarget(mapToGlobal(pos));
    if (leaves)
        state_.ghost.reset();
    setCursor(!leaves && !isUnder(mapToGlobal(pos)) ? Qt::ForbiddenCursor
              : moves                               ? Qt::ClosedHandCursor
                                                    : Qt::SizeVerCursor);
    update();
    const bool outside = !leaves && !body.contains(pos);
    if (outside && !scrollTimer_.isActive())
        scrollTimer_.start();
    else if (!outside)
        scrollTimer_.stop();
}

// An item can only be dropped on the calendar itself, not on another part of the window or on another window over it.
bool ctMDay::isUnder(QPoint globalPos) const {
    if (!rect().contains(mapFromGlobal(globalPos)))
        return false;
    // Wayland does not tell a window where others are.
    const bool knowsPlaces = !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    return !knowsPlaces || QApplication::topLevelAt(globalPos) == window() ||
           QGuiApplication::screenAt(globalPos) == nullptr;
}

void ctMDay::extendRangeTo(QPoint pos) {
    lastDragPos_ = pos;
    const QRect body = grid().body();
    const int column = std::get<CellHit>(press_->hit).column;
    const SelectedTime row = rowAt(column, grid().minuteAt(std::clamp(pos.y(), body.top(), body.bottom())));
    selectTime({column, std::min(press_->anchorStart, row.start), std::max(press_->anchorEnd, row.end)});
    if (!body.contains(pos) && !scrollTimer_.isActive())
        scrollTimer_.start();
}

void ctMDay::autoScroll() {
    const QRect body = grid().body();
    const auto beyond = [](int value, int low, int high) {
        return value < low ? value - low : value > high ? value - high : 0;
    };
    const int down = std::clamp(beyond(lastDragPos_.y(), body.top(), body.bottom()), -40, 40);
    const int right = std::clamp(beyond(lastDragPos_.x(), body.left(), body.right()), -40, 40);
    if (!press_ || (down == 0 && right == 0)) {
        scrollTimer_.stop();
        return;
    }
    scrollTo(grid().scrollX + (drag_ ? right : 0), grid().scrollY + down);
    if (drag_)
        dragTo(lastDragPos_);
    else if (std::holds_alternative<CellHit>(press_->hit))
        extendRangeTo(lastDragPos_);
}

void ctMDay::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !press_)
        return;
    const Press press = *press_;
    press_.reset();
    scrollTimer_.stop();
    if (drag_) {
        const Drag drag = *drag_;
        drag_.reset();
        const QPoint at = event->globalPosition().toPoint();
        if (drag.kind() == Drag::Kind::Move && isOverTarget(at)) {
            cancelGesture();
            report(Report::Kind::DropOutside, drag.index());
        } else if (drag.changes() && isUnder(at)) {
            reportDrop(drag.index(), drag.place());  // The ghost stays until the view has answered.
        } else {
            cancelGesture();
        }
    } else if (const auto* item = std::get_if<ItemHit>(&press.hit)) {
        if (press.refused)
            report(Report::Kind::Refused, item->index);
        else if (press.wasSelected && item->index == state_.selectedItem)
            editTimer_.start(QApplication::doubleClickInterval());
    } else if (const auto* heading = std::get_if<HeadingHit>(&press.hit)) {
        if (hitAt(event->pos()) == press.hit)
            Q_EMIT HeadingClicked(heading->column);
    } else if (std::holds_alternative<CellHit>(press.hit)) {
        Q_EMIT RangeSelected();
    }
    showHover(hitAt(event->pos()));
    deliverReports();
}

void ctMDay::mouseDoubleClickEvent(QMouseEvent* event) {
    editTimer_.stop();
    if (event->button() != Qt::LeftButton)
        return;
    const Hit hit = hitAt(event->pos());
    if (const auto* item = std::get_if<ItemHit>(&hit)) {
        setSelectedItem(item->index);
        report(Report::Kind::Activated, item->index);
    } else if (const auto* cell = std::get_if<CellHit>(&hit)) {
        // The first click reduced a drawn range to one row. The double click means the whole range.
        const auto& before = rangeBeforePress_;
        const bool inside =
            before && before->column == cell->column && before->start <= cell->minute && cell->minute < before->end;
        selectTime(inside ? *before : rowAt(cell->column, cell->minute));
        report(Report::Kind::RangeActivated, 0);
    } else if (std::holds_alternative<MarkerHit>(hit) && state_.selectedItem > 0) {
        report(Report::Kind::Activated, state_.selectedItem);
    }
    deliverReports();
}

void ctMDay::cancelGesture() {
    const bool wasShown = state_.draggedItem != 0;
    drag_.reset();
    press_.reset();
    scrollTimer_.stop();
    editTimer_.stop();
    state_.draggedItem = 0;
    state_.ghost.reset();
    if (wasShown) {
        unsetCursor();
        update();
    }
}

void ctMDay::showHover(const Hit& hit) {
    const auto* item = std::get_if<ItemHit>(&hit);
    const auto* heading = std::get_if<HeadingHit>(&hit);
    const int hovered = item != nullptr ? item->index : 0;
    const int over = heading != nullptr ? heading->column : 0;
    if (hovered != state_.hoveredItem) {
        update(ItemRect(state_.hoveredItem));
        update(ItemRect(hovered));
        state_.hoveredItem = hovered;
    }
    if (over != state_.hoveredHeading) {
        update(HeadingRect(state_.hoveredHeading));
        update(HeadingRect(over));
        state_.hoveredHeading = over;
    }
    if (item == nullptr) {
        setCursor(std::holds_alternative<MarkerHit>(hit) ? Qt::PointingHandCursor : Qt::ArrowCursor);
        return;
    }
    const CalendarItem& under = std::as_const(*this).Item(item->index);
    const bool sizes = item->zone != Zone::Body && !under.ItemMoveLocked && !under.ItemBanner && !readOnly_;
    setCursor(sizes ? Qt::SizeVerCursor : Qt::ArrowCursor);
}

void ctMDay::leaveEvent(QEvent*) {
    showHover(NothingHit{});
}

void ctMDay::wheelEvent(QWheelEvent* event) {
    editTimer_.stop();
    const int turn = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        // A touchpad sends many small turns, and at the end of a gesture one of nothing.
        zoomAt(event->position().toPoint().y(), std::pow(1.15, turn / 120.0));
    } else {
        const bool across = event->modifiers().testFlag(Qt::ShiftModifier) || event->angleDelta().y() == 0;
        arrange();
        QScrollBar* bar = across ? horizontal_ : vertical_;
        const QPoint pixels = event->pixelDelta();
        const int by = pixels.isNull() ? turn * bar->singleStep() * QApplication::wheelScrollLines() / 120
                                       : (across && pixels.x() != 0 ? pixels.x() : pixels.y());
        bar->setValue(bar->value() - by);
    }
    event->accept();
}

void ctMDay::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        report(Report::Kind::Popup, state_.selectedItem, {}, popupPlace());
    else
        rightClick(event->pos(), event->globalPos());
    deliverReports();
}

void ctMDay::rightClick(QPoint pos, QPoint globalPos) {
    cancelGesture();
    const Hit hit = hitAt(pos);
    int index = 0;
    if (const auto* item = std::get_if<ItemHit>(&hit)) {
        index = item->index;
        setSelectedItem(index);
    } else if (const auto* cell = std::get_if<CellHit>(&hit)) {
        const auto& range = state_.range;
        const bool inside =
            range && range->column == cell->column && range->start <= cell->minute && cell->minute < range->end;
        if (!inside) {
            selectTime(rowAt(cell->column, cell->minute));
            Q_EMIT RangeSelected();
        }
    } else if (const auto* marker = std::get_if<MarkerHit>(&hit)) {
        selectMarked(*marker);
        index = state_.selectedItem;
    } else {
        return;
    }
    report(Report::Kind::Popup, index, {}, globalPos);
}
