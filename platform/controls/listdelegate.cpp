#include "platform/controls/listdelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "platform/controls/listmodel.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"

namespace {

QStyle& styleOf(const QStyleOptionViewItem& option) {
    return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

void paintCheck(QPainter& painter, const QStyleOptionViewItem& option, bool enabled) {
    QStyle& style = styleOf(option);
    QStyleOptionViewItem box = option;
    box.features |= QStyleOptionViewItem::HasCheckIndicator;
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &box, box.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &box, box.widget));
    box.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, option.rect);
    box.state.setFlag(option.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
    box.state.setFlag(QStyle::State_Enabled, enabled);
    box.state.setFlag(QStyle::State_HasFocus, false);
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
}

}  // namespace

void ListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(ListModel::NoteMarkRole).toBool()) {
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = Icon("note");
    }
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (!index.data(Qt::CheckStateRole).isValid()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    styleOf(cell).drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
    paintCheck(*painter, cell, cell.state.testFlag(QStyle::State_Enabled) && index.flags() & Qt::ItemIsUserCheckable);
}

QSize ListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), option.fontMetrics.height() * 3 / 2));
    return size;
}

bool ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data(Qt::DisplayRole).toString();
    const bool fits = sizeHint(option, index).width() <= view->visualRect(index).width();
    QToolTip::showText(event->globalPos(), fits ? QString() : TipText(text), view);
    return true;
}
