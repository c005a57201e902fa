#include <algorithm>
#include <cmath>
#include <QEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QScrollBar>

#include "platform/calendar/ctmday.h"
#include "platform/calendar/page.h"

void ctMDay::invalidate() {
    dirty_ = true;
    update();
}

void ctMDay::arrange() const {
    // The layout is made late on purpose, because thousands of items may be added before it is needed.
    if (dirty_)
        fitInto(size());
}

const CalendarGrid& ctMDay::grid() const {
    arrange();
    return grid_;
}

const CalendarLayout& ctMDay::layout() const {
    arrange();
    return layout_;
}

void ctMDay::fitInto(const QSize& size) const {
    dirty_ = false;
    style_ = ScreenStyle(palette(), font());
    GridWishes wishes;
    wishes.visibleColumns = visibleColumns_;
    wishes.zoom = zoom_;
    bool vertical = false;
    bool horizontal = false;
    const int thickness = vertical_->sizeHint().width();
    int minMinutes = 0;
    // A scroll bar takes room and may make the other one necessary. Three rounds are always enough.
    for (int round = 0; round < 3; ++round) {
        wishes.area =
            QRect(0, 0, size.width() - (vertical ? thickness : 0), size.height() - (horizontal ? thickness : 0));
        grid_ = FitGrid(content_, layout_, style_, wishes);
        if (const int least = MinMinutes(grid_.scale, style_); least != minMinutes) {
            layout_ = LayOut(content_, least);
            grid_ = FitGrid(content_, layout_, style_, wishes);
            minMinutes = least;
        }
        const bool needsVertical = grid_.contentHeight() > grid_.body().height();
        const bool needsHorizontal = grid_.contentWidth() > grid_.body().width() + 1;
        if (needsVertical == vertical && needsHorizontal == horizontal)
            break;
        vertical = vertical || needsVertical;
        horizontal = horizontal || needsHorizontal;
    }
    placeScrollBars(vertical, horizontal);
    placeEditor();
}

void ctMDay::placeScrollBars(bool vertical, bool horizontal) const {
    scrolling_ = true;
    const QRect body = grid_.body();
    const int thickness = vertical_->sizeHint().width();
    vertical_->setGeometry(width() - thickness, body.top(), thickness, body.height());
    horizontal_->setGeometry(body.left(), height() - thickness, body.width(), thickness);
    vertical_->setRange(0, std::max(grid_.contentHeight() - body.height(), 0));
    vertical_->setPageStep(std::max(body.height(), 1));
    vertical_->setSingleStep(std::max(static_cast<int>(content_.timeInterval * grid_.scale.pixelsPerMinute), 8));
    horizontal_->setRange(0, std::max(grid_.contentWidth() - body.width(), 0));
    horizontal_->setPageStep(std::max(body.width(), 1));
    horizontal_->setSingleStep(std::max(static_cast<int>(grid_.columnWidth), 8));
    vertical_->setVisible(vertical);
    horizontal_->setVisible(horizontal);
    vertical_->setValue(grid_.scale.y(topTime_));
    grid_.scrollX = horizontal_->value();
    grid_.scrollY = vertical_->value();
    scrolling_ = false;
}

void ctMDay::scrolled() {
    if (scrolling_ || dirty_)
        return;
    const int right = horizontal_->value() - grid_.scrollX;
    const int down = vertical_->value() - grid_.scrollY;
    grid_.scrollX = horizontal_->value();
    grid_.scrollY = vertical_->value();
    topTime_ = grid_.scale.minuteAt(grid_.scrollY);
    placeEditor();
    if (editor_ != nullptr || state_.ghost) {
        update();
        return;
    }
    // The visible part is shifted, and only the part that comes into sight is painted.
    scroll(-right, -down, grid_.body());
    if (down != 0)
        scroll(0, -down, grid_.gutter());
    if (right != 0)
        update(0, 0, width(), grid_.body().top());
    if (right != 0 && grid_.laterStrip)
        update(QRect(0, grid_.body().bottom() + 1, width(), grid_.stripHeight));
}

void ctMDay::scrollTo(int x, int y) {
    arrange();
    horizontal_->setValue(x);
    vertical_->setValue(y);
}

void ctMDay::zoomAt(int y, double factor) {
    const int minute = grid().minuteAt(y);
    const int above = grid().y(minute) - grid().body().top();
    zoom_ = std::clamp(zoom_ * factor, 0.4, 5.0);
    invalidate();
    scrollTo(grid().scrollX, grid().scale.y(minute) - above);
}

void ctMDay::tick() {
    state_.now = clock_();
    // The timer ends shortly after the full minute, so that one that fires a little early does not read the old minute
    // again.
    presentTimer_.start((60 - state_.now.time().second()) * 1000 - state_.now.time().msec() + 50);
    update();
}

void ctMDay::setClock(std::function<QDateTime()> clock) {
    clock_ = std::move(clock);
    if (isVisible())
        tick();
    else
        state_.now = clock_();
}

void ctMDay::setNow(const QDateTime& now) {
    setClock([now] { return now; });
}

void ctMDay::paintEvent(QPaintEvent* event) {
    arrange();
    QPainter painter(this);
    // The corner where both scroll bars meet shows no part of the calendar.
    painter.fillRect(event->rect(), style_.window);
    PaintCalendar({painter, content_, layout_, grid_, state_, style_}, event->rect() & grid_.area);
}

void ctMDay::paint(QPainter& painter, const QRectF& area, int firstColumn, int columnCount,
                   const CalendarStyle& style) const {
    PaintPage(painter, area, content_, firstColumn, columnCount, style);
}

QRect ctMDay::ItemRect(int index) const {
    if (const PlacedItem* placed = layout().find(index); placed != nullptr)
        return CardRect(index, grid(), layout(), style_, index == state_.selectedItem) & grid().body();
    const int column = ColumnOfItem(index);
    // Strips and banners are scrolled sideways with their columns.
    const QRect body = grid().body();
    return column == 0
               ? QRect()
               : stripOf(index, column) & QRect(body.left(), grid().area.top(), body.width(), grid().area.height());
}

QRect ctMDay::stripOf(int index, int column) const {
    const ColumnLayout& contents = layout().columns[static_cast<std::size_t>(column) - 1];
    const auto holds = [index](const std::vector<int>& items) {
        return std::find(items.begin(), items.end(), index) != items.end();
    };
    if (holds(contents.earlier))
        return grid().earlierRect(column);
    if (holds(contents.later))
        return grid().laterRect(column);
    for (int row = 0; row < grid().bannerRows; ++row) {
        if (BannerInRow(contents, row, state_.selectedItem) == index)
            return grid().bannerRect(column, row);
    }
    return grid().bannerRect(column, grid().bannerRows - 1);
}

QRect ctMDay::CellRect(int column, int minute) const {
    if (column < 1 || column > ColumnCount() || minute < grid().scale.first || minute >= grid().scale.last)
        return {};
    const SelectedTime row = rowAt(column, minute);
    return grid().timeRect(column, row.start, row.end) & grid().body();
}

QRect ctMDay::HeadingRect(int column) const {
    return column < 1 || column > ColumnCount() ? QRect() : grid().headingRect(column) & grid().headings();
}

std::vector<int> ctMDay::ItemsInReadingOrder() const {
    return layout().readingOrder();
}

QSize ctMDay::sizeHint() const {
    arrange();
    return {style_.gutterWidth + style_.minColumnWidth * 4, style_.textLine * 36};
}

QSize ctMDay::minimumSizeHint() const {
    arrange();
    return {style_.gutterWidth + style_.minColumnWidth, style_.headingHeight + style_.textLine * 8};
}

void ctMDay::resizeEvent(QResizeEvent*) {
    invalidate();
    arrange();
}

void ctMDay::showEvent(QShowEvent*) {
    tick();
}

void ctMDay::hideEvent(QHideEvent*) {
    presentTimer_.stop();
    cancelGesture();
    CommitEdit();
}

void ctMDay::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange || event->type() == QEvent::EnabledChange)
        invalidate();
    QWidget::changeEvent(event);
}

void ctMDay::focusInEvent(QFocusEvent*) {
    state_.focused = true;
    update();
    announceSelection();
}

void ctMDay::focusOutEvent(QFocusEvent*) {
    state_.focused = editor_ != nullptr;  // The editor is part of the calendar.
    editTimer_.stop();
    if (press_)  // The release will go to whatever has the focus now, perhaps a dialog.
        cancelGesture();
    update();
}
