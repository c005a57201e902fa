#include "platform/printing/pageview.h"

#include <algorithm>
#include <cmath>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "platform/printing/pagelayout.h"
#include "platform/theme/theme.h"

namespace {

constexpr double SmallestZoom = 0.1;
constexpr double LargestZoom = 8;
constexpr int LineStep = 48;  // Pixels of a step of the scroll bar or the wheel.

int gap() {
    return Space(12);
}

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setCursor(Qt::OpenHandCursor);
    horizontalScrollBar()->setSingleStep(LineStep);
    verticalScrollBar()->setSingleStep(LineStep);
}

int PageView::pageCount() const {
    return pages_ == nullptr ? 0 : pages_->pageCount();
}

QSizeF PageView::paperSize() const {
    const QSizeF twips = pages_ == nullptr ? printing::PageSetup().sizeTwips() : pages_->setup().sizeTwips();
    return twips * logicalDpiY() / printing::TwipsPerInch;
}

double PageView::step() const {
    return pageSize().height() + gap();
}

void PageView::ShowPages(const printing::PageLayout* pages) {
    pages_ = pages;
    current_ = std::clamp(current_, 0, std::max(pageCount() - 1, 0));
    fit();
    GoTo(current_);
    viewport()->update();
}

void PageView::PagesAdded() {
    setBars();
}

void PageView::FitWidth() {
    fit_ = Fit::Width;
    fit();
}

void PageView::FitPage() {
    fit_ = Fit::Page;
    fit();
}

void PageView::SetZoom(double zoom) {
    fit_ = Fit::None;
    zoomTo(zoom);
}

// The scroll bar takes its width away only where the pages need it at that width, and so never comes and goes in turn.
void PageView::fit() {
    const QSize room = maximumViewportSize();
    const QSizeF paper = paperSize();
    const int bar = verticalScrollBar()->sizeHint().width();
    double zoom = zoom_;
    if (fit_ == Fit::Width) {
        zoom = (room.width() - 2 * gap()) / paper.width();
        if (pageCount() * (paper.height() * zoom + gap()) + gap() > room.height())
            zoom = (room.width() - bar - 2 * gap()) / paper.width();
    } else if (fit_ == Fit::Page) {
        const int taken = pageCount() > 1 ? bar : 0;
        zoom =
            std::min((room.height() - 2 * gap()) / paper.height(), (room.width() - taken - 2 * gap()) / paper.width());
    }
    zoomTo(zoom);
}

void PageView::zoomTo(double zoom) {
    const double place = (verticalScrollBar()->value() - gap()) / step();
    zoom_ = std::clamp(zoom, SmallestZoom, LargestZoom);
    setBars();
    const QScopedValueRollback going(going_, true);
    verticalScrollBar()->setValue(static_cast<int>(std::lround(place * step() + gap())));
    viewport()->update();
}

void PageView::setBars() {
    const QSize room = viewport()->size();
    const int width = static_cast<int>(std::ceil(pageSize().width())) + 2 * gap();
    const int height = static_cast<int>(std::ceil(pageCount() * step())) + gap();
    horizontalScrollBar()->setRange(0, std::max(width - room.width(), 0));
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setRange(0, std::max(height - room.height(), 0));
    verticalScrollBar()->setPageStep(room.height());
}

QRectF PageView::sheet(int page) const {
    const QSizeF size = pageSize();
    const double left = std::max((viewport()->width() - size.width()) / 2, static_cast<double>(gap()));
    return {QPointF(std::floor(left) - horizontalScrollBar()->value(),
                    std::floor(gap() + page * step()) - verticalScrollBar()->value()),
            size};
}

void PageView::GoTo(int page) {
    if (pageCount() == 0)
        return;
    const QScopedValueRollback going(going_, true);
    current_ = std::clamp(page, 0, pageCount() - 1);
    verticalScrollBar()->setValue(static_cast<int>(std::floor(current_ * step())));
    Q_EMIT CurrentPageChanged();
}

// The page in view is the one of which most is to be seen.
void PageView::followScrolling() {
    if (going_ || pageCount() == 0)
        return;
    const double top = verticalScrollBar()->value();
    const double bottom = top + viewport()->height();
    const int first = std::clamp(static_cast<int>((top - gap()) / step()), 0, pageCount() - 1);
    int best = first;
    double most = 0;
    for (int page = first; page < pageCount() && gap() + page * step() < bottom; ++page) {
        const double begin = gap() + page * step();
        const double seen = std::min(bottom, begin + pageSize().height()) - std::max(top, begin);
        if (seen > most) {
            most = seen;
            best = page;
        }
    }
    if (best == current_)
        return;
    current_ = best;
    Q_EMIT CurrentPageChanged();
}

void PageView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const QRect dirty = event->rect();
    const double above = verticalScrollBar()->value() + dirty.top() - gap();
    for (int page = std::max(static_cast<int>(above / step()), 0); page < pageCount(); ++page) {
        const QRectF paper = sheet(page);
        if (paper.top() > dirty.bottom())
            break;
        painter.fillRect(paper, Qt::white);
        painter.save();
        painter.setClipRect(paper & QRectF(dirty));
        pages_->paintPage(painter, page, paper);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    if (fit_ == Fit::None)
        setBars();
    else
        fit();
}

void PageView::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(dx, dy);
    followScrolling();
}

void PageView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Home && event->modifiers() == Qt::NoModifier)
        verticalScrollBar()->setValue(0);
    else if (event->key() == Qt::Key_End && event->modifiers() == Qt::NoModifier)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void PageView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    grabbed_ = event->position().toPoint();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    const QPoint moved = event->position().toPoint() - grabbed_;
    grabbed_ += moved;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void PageView::mouseReleaseEvent(QMouseEvent* /*event*/) {
    viewport()->setCursor(Qt::OpenHandCursor);
}

// The distances between the pages follow the font.
void PageView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fit();
}
