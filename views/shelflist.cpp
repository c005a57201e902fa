#include "views/shelflist.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <utility>

#include "platform/theme/theme.h"

namespace {

constexpr int RestMilliseconds = 60;

/// Paints the lines of a row one below the other, the first as a heading, with a line under the row.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const QStringList lines = index.data().toString().split(QLatin1Char('\n'));
        row.text.clear();
        row.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
        const ThemeColours& colours = Theme::Instance().colours();
        const bool selected = row.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->fillRect(row.rect.left(), row.rect.bottom(), row.rect.width(), 1, colours.border);
        QRect line = row.rect.adjusted(Space(8), Space(4), -Space(8), 0);
        line.setHeight(row.fontMetrics.height());
        QFont font = row.font;
        font.setWeight(QFont::DemiBold);
        painter->setPen(selected ? colours.selectedText : colours.text);
        for (const QString& text : lines) {
            painter->setFont(font);
            const QString shown = painter->fontMetrics().elidedText(text, Qt::ElideRight, line.width());
            painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
            line.translate(0, line.height());
            font = row.font;
        }
        painter->restore();
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const auto lines = index.data().toString().count(QLatin1Char('\n')) + 1;
        return {0, option.fontMetrics.height() * static_cast<int>(lines) + 2 * Space(4)};
    }
};

}  // namespace

ShelfList::ShelfList(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setItemDelegate(new RowDelegate(this));
    rest_.setInterval(RestMilliseconds);
    connect(&rest_, &QTimer::timeout, this, &ShelfList::hover);
}

void ShelfList::keyPressEvent(QKeyEvent* event) {
    if (dragging_) {
        if (event->key() == Qt::Key_Escape)
            endDrag();
        return;
    }
    const int row = currentRow();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && row >= 0)
        Q_EMIT ShowRequested(row);
    else if (event->key() == Qt::Key_Delete && row >= 0)
        Q_EMIT RemoveRequested(row);
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT LeaveRequested();
    else
        QListWidget::keyPressEvent(event);
}

void ShelfList::mousePressEvent(QMouseEvent* event) {
    if (dragging_) {  // Another button during a drag cancels it.
        endDrag();
        return;
    }
    QListWidget::mousePressEvent(event);
    pressedAt_ = event->pos();
    const QListWidgetItem* pressed = event->button() == Qt::LeftButton ? itemAt(event->pos()) : nullptr;
    pressedKey_ = pressed == nullptr ? 0 : pressed->data(Qt::UserRole).toInt();
}

void ShelfList::mouseMoveEvent(QMouseEvent* event) {
    if (pressedKey_ == 0 || !event->buttons().testFlag(Qt::LeftButton) || !target_.over)
        return;
    const bool far = (event->pos() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (!dragging_ && far) {
        dragging_ = true;
        rest_.start();
    }
    draggedTo_ = event->globalPosition().toPoint();
    if (dragging_)
        hover();
}

bool ShelfList::holdsPressed() const {
    for (int at = 0; at < count(); ++at)
        if (item(at)->data(Qt::UserRole).toInt() == pressedKey_)
            return true;
    return false;
}

void ShelfList::hover() {
    if (!holdsPressed())
        return endDrag();
    viewport()->setCursor(target_.over(pressedKey_, draggedTo_) ? Qt::ClosedHandCursor : Qt::ForbiddenCursor);
}

void ShelfList::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !dragging_) {
        QListWidget::mouseReleaseEvent(event);
        pressedKey_ = 0;
        return;
    }
    const int dropped = holdsPressed() ? pressedKey_ : 0;
    const QPoint at = event->globalPosition().toPoint();
    endDrag();
    // The drop may open a dialog and change the rows, so nothing follows it.
    if (dropped != 0)
        target_.drop(dropped, at);
}

void ShelfList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (const int clicked = row(itemAt(event->pos())); clicked >= 0 && event->button() == Qt::LeftButton)
        Q_EMIT ShowRequested(clicked);
}

void ShelfList::endDrag() {
    pressedKey_ = 0;
    rest_.stop();
    viewport()->unsetCursor();
    if (std::exchange(dragging_, false))
        target_.leave();
}

void ShelfList::focusOutEvent(QFocusEvent* event) {
    endDrag();
    QListWidget::focusOutEvent(event);
}

void ShelfList::hideEvent(QHideEvent* event) {
    endDrag();
    QListWidget::hideEvent(event);
}
