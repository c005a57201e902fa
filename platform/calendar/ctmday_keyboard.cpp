#include <algorithm>
#include <QKeyEvent>

#include "platform/calendar/ctmday.h"

namespace {

constexpr int FineMinutes = 5;

}  // namespace

SelectedTime ctMDay::rowAt(int column, int minute) const {
    const TimeScale& scale = grid().scale;
    return {column, scale.rowStart(minute), scale.rowEnd(minute)};
}

SelectedTime ctMDay::fineRowAt(int column, int minute) const {
    TimeScale fine = grid().scale;
    fine.interval = std::min(fine.interval, FineMinutes);
    return {column, fine.rowStart(minute), fine.rowEnd(minute)};
}

/// Returns the row where the keyboard begins: at the selected item, or else at the prime hours of the first column.
SelectedTime ctMDay::startCell() const {
    if (const PlacedItem* placed = layout().find(state_.selectedItem); placed != nullptr)
        return rowAt(placed->column, placed->start);
    return rowAt(std::max(ColumnOfItem(state_.selectedItem), 1), content_.primeStart);
}

QPoint ctMDay::popupPlace() const {
    QRect place;
    if (state_.selectedItem > 0)
        place = ItemRect(state_.selectedItem);
    else if (state_.range)
        place = CellRect(state_.range->column, state_.range->start);
    // Where nothing is selected, and where that is scrolled away, the middle of the calendar is in sight.
    return mapToGlobal(place.isEmpty() ? grid().body().center() : place.center());
}

void ctMDay::keyPressEvent(QKeyEvent* event) {
    if (editor_ != nullptr)  // A key that the line edit does not use is not for the calendar either.
        return;
    editTimer_.stop();
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    if (drag_ || state_.draggedItem != 0) {
        if (event->key() == Qt::Key_Escape)
            cancelGesture();
        return;
    }
    if (control && (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown)) {
        Q_EMIT DayStepRequested(event->key() == Qt::Key_PageUp ? -1 : 1);
    } else if (control && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) {
        zoomAt(grid().body().center().y(), 1.15);
    } else if (control && event->key() == Qt::Key_Minus) {
        zoomAt(grid().body().center().y(), 1 / 1.15);
    } else if (control && event->key() == Qt::Key_0) {
        zoomAt(grid().body().center().y(), 1 / zoom_);
    } else if (!keyOnSelection(event) && !keyMovesItem(event) && !keySizesRange(event) && !keyMovesCell(event)) {
        const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
        if (plain && state_.range && !readOnly_ && !event->text().isEmpty() && event->text().front().isPrint())
            Q_EMIT RangeTyped(event->text());
        else
            QWidget::keyPressEvent(event);
    }
    deliverReports();
}

bool ctMDay::keyOnSelection(QKeyEvent* event) {
    const int item = state_.selectedItem;
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (item == 0 && !state_.range)
                return false;
            report(item > 0 ? Report::Kind::Activated : Report::Kind::RangeActivated, item);
            return true;
        case Qt::Key_F2:
            EditItem(item);
            return true;
        case Qt::Key_Delete:
            if (item > 0)
                report(Report::Kind::Delete, item);
            return item > 0;
        case Qt::Key_Menu:
            report(Report::Kind::Popup, item, {}, popupPlace());
            return true;
        case Qt::Key_F10:
            if (shift)
                report(Report::Kind::Popup, item, {}, popupPlace());
            return shift;
        case Qt::Key_Escape:
            if (item == 0 || ColumnOfItem(item) == 0)
                return false;
            rangeIsSized_ = false;
            selectTime(startCell());
            Q_EMIT RangeSelected();
            return true;
        default:
            return false;
    }
}

/// Moves the item by a row or a column with Ctrl and an arrow. With Shift it moves the item's end.
bool ctMDay::keyMovesItem(QKeyEvent* event) {
    const int item = state_.selectedItem;
    if (item == 0 || !event->modifiers().testFlag(Qt::ControlModifier))
        return false;
    int rows = 0;
    int columns = 0;
    switch (event->key()) {
        case Qt::Key_Up:
            rows = -1;
            break;
        case Qt::Key_Down:
            rows = 1;
            break;
        case Qt::Key_Left:
            columns = -1;
            break;
        case Qt::Key_Right:
            columns = 1;
            break;
        default:
            return false;
    }
    if (std::as_const(*this).Item(item).ItemBanner || !mayMove(item)) {
        report(Report::Kind::Refused, item);
        return true;
    }
    const ItemPlace from = PlaceOf(std::as_const(*this).Item(item), content_);
    const bool sizes = event->modifiers().testFlag(Qt::ShiftModifier) && columns == 0;
    const int edge = std::clamp(sizes ? from.end : from.start, 0, 1440);
    Drag drag(sizes ? Drag::Kind::ResizeBottom : Drag::Kind::Move, item, from, edge);
    drag.move(from.column + columns, edge + rows * content_.timeInterval, content_);
    if (drag.changes()) {
        state_.draggedItem = item;
        reportDrop(item, drag.place());
    }
    return true;
}

/// Moves the end of the range to the next line of the grid with Ctrl and an arrow. One row is left at least, or what
/// was drawn shorter.
bool ctMDay::keySizesRange(QKeyEvent* event) {
    const bool down = event->key() == Qt::Key_Down;
    if (!state_.range || (!down && event->key() != Qt::Key_Up) ||
        (event->modifiers() & ~Qt::KeypadModifier) != Qt::ControlModifier)
        return false;
    SelectedTime sized = *state_.range;
    const TimeScale& scale = grid().scale;
    sized.end = down ? std::max(sized.end, scale.rowEnd(sized.end)) : scale.rowStart(sized.end - 1);
    if (!down && sized.end - sized.start < scale.interval)
        sized.end = std::min(state_.range->end, sized.start + scale.interval);
    rangeIsSized_ = true;
    selectTime(sized);
    showTime(rowAt(sized.column, sized.end - 1));
    Q_EMIT RangeSelected();
    return true;
}

bool ctMDay::keyMovesCell(QKeyEvent* event) {
    if (ColumnCount() == 0)
        return false;
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool onItem = state_.selectedItem > 0;
    const bool begins = !state_.range;
    const SelectedTime cell = state_.range ? *state_.range : startCell();
    // The end that moves is the one opposite to where the selection began.
    const int active = extend && !begins && cell.start < rangeAnchor_ ? cell.start : extend ? cell.end - 1 : cell.start;
    const int shown = grid().scale.minuteAt(grid().body().height()) - grid().scale.first;
    const int page = std::max(shown / content_.timeInterval - 1, 1) * content_.timeInterval;
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down: {
            const bool down = event->key() == Qt::Key_Down;
            if (onItem && !extend)
                stepInColumn(down ? 1 : -1);
            else if (begins && !extend)
                goToRow(cell.column, cell.start, false);
            else
                goToRow(cell.column,
                        down ? rowAt(cell.column, extend ? active : cell.end - 1).end
                             : rowAt(cell.column, active).start - 1,
                        extend);
            return true;
        }
        case Qt::Key_Left:
        case Qt::Key_Right:
            goToRow(std::clamp(cell.column + (event->key() == Qt::Key_Left ? -1 : 1), 1, ColumnCount()), cell.start,
                    false);
            return true;
        case Qt::Key_Home:
            goToRow(cell.column, grid().scale.first, extend);
            return true;
        case Qt::Key_End:
            goToRow(cell.column, grid().scale.last - 1, extend);
            return true;
        case Qt::Key_PageUp:
            goToRow(cell.column, active - page, extend);
            return true;
        case Qt::Key_PageDown:
            goToRow(cell.column, active + page, extend);
            return true;
        default:
            return false;
    }
}

void ctMDay::goToRow(int column, int minute, bool extend) {
    const SelectedTime row = rowAt(column, minute);
    if (extend) {
        if (!state_.range)
            rangeAnchor_ = startCell().start;
        const SelectedTime anchor = rowAt(column, rangeAnchor_);
        selectTime({column, std::min(anchor.start, row.start), std::max(anchor.end, row.end)});
    } else {
        rangeAnchor_ = row.start;
        selectTime(row);
    }
    rangeIsSized_ = false;
    showTime(row);
    Q_EMIT RangeSelected();
}

void ctMDay::showTime(const SelectedTime& time) {
    const QRect body = grid().body();
    const QRect cell = grid().timeRect(time.column, time.start, time.end);
    const auto outside = [](int low, int high, int from, int to) {
        return low < from ? low - from : high > to ? high - to : 0;
    };
    scrollTo(grid().scrollX + outside(cell.left(), cell.right(), body.left(), body.right()),
             grid().scrollY + outside(cell.top(), cell.bottom(), body.top(), body.bottom()));
}

void ctMDay::stepInColumn(int direction) {
    const std::vector<int> order = layout().readingOrder();
    const auto here = std::find(order.begin(), order.end(), state_.selectedItem);
    if (here == order.end())
        return;
    const std::ptrdiff_t next = here - order.begin() + direction;
    if (next < 0 || next >= static_cast<std::ptrdiff_t>(order.size()))
        return;
    const int index = order[static_cast<std::size_t>(next)];
    if (ColumnOfItem(index) == ColumnOfItem(state_.selectedItem)) {
        setSelectedItem(index);
        ScrollToItem(state_.selectedItem);
    }
}

bool ctMDay::stepItem(int direction) {
    const std::vector<int> order = layout().readingOrder();
    const auto here = std::find(order.begin(), order.end(), state_.selectedItem);
    std::ptrdiff_t next = direction > 0 ? 0 : static_cast<std::ptrdiff_t>(order.size()) - 1;
    if (here != order.end())
        next = here - order.begin() + direction;
    if (next < 0 || next >= static_cast<std::ptrdiff_t>(order.size()))
        return false;
    setSelectedItem(order[static_cast<std::size_t>(next)]);
    ScrollToItem(state_.selectedItem);
    return true;
}
