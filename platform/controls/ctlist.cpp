#include "platform/controls/ctlist.h"

#include <algorithm>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDateTime>
#include <QKeyEvent>

#include "platform/controls/listdelegate.h"

ctList::ctList(QWidget* parent) : QTreeView(parent) {
    setModel(&model_);
    setItemDelegate(new ListDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);
    header()->setSectionsClickable(false);
}

void ctList::SetColumns(std::vector<ListColumn> columns) {
    model_.setColumns(std::move(columns));
    hiddenRows_ = 0;
    layOutColumns();
}

void ctList::SetMultiSelect(bool multiSelect) {
    setSelectionMode(multiSelect ? ExtendedSelection : SingleSelection);
}

void ctList::Clear() {
    const bool hadSelection = SelectedRow() >= 0;
    model_.clear();
    hiddenRows_ = 0;
    if (hadSelection)
        Q_EMIT SelectionChanged();
}

int ctList::AddRow(const QStringList& cells, const QVariant& itemData) {
    const int row = model_.addRow(cells);
    SetItemData(row, itemData);
    if (!filter_.isEmpty())
        hideRow(row, !passesFilter(row));
    return row;
}

void ctList::RemoveRow(int row) {
    const bool wasSelected = selectionModel()->isRowSelected(row);
    hideRow(row, false);
    model_.removeRowAt(row);
    if (wasSelected)
        SelectRow(-1);
}

void ctList::SetFilter(const QString& text, int filterColumn) {
    if (text == filter_ && filterColumn == filterColumn_)
        return;
    filter_ = text;
    filterColumn_ = filterColumn;
    for (int row = 0; row < RowCount(); ++row)
        hideRow(row, !filter_.isEmpty() && !passesFilter(row));
    if (const int selected = SelectedRow(); selected >= 0 && !IsRowShown(selected))
        SelectRow(-1);
    else if (selected >= 0)
        scrollTo(currentIndex());
}

bool ctList::passesFilter(int row) const {
    for (int column = 1; column <= ColumnCount(); ++column)
        if ((filterColumn_ == 0 || column == filterColumn_) && !model_.isCheckColumn(column) &&
            !model_.isColorColumn(column) && model_.shownCell(row, column).contains(filter_, Qt::CaseInsensitive))
            return true;
    return false;
}

void ctList::hideRow(int row, bool hidden) {
    if (!model_.has(row) || isRowHidden(row, {}) == hidden)
        return;
    setRowHidden(row, {}, hidden);
    hiddenRows_ += hidden ? 1 : -1;
}

void ctList::SelectRow(int row) {
    if (!model_.has(row)) {
        selectionModel()->clear();
        return;
    }
    const QModelIndex index = model_.index(row, model_.firstTextColumn() - 1);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void ctList::StartAtRow(int row) {
    SelectRow(row);
    if (model_.has(row))
        scrollTo(model_.index(row, 0), PositionAtTop);
}

QString ctList::Header(int column) const {
    return model_.headerData(column - 1, Qt::Horizontal, Qt::DisplayRole).toString();
}

QStringList ctList::ShownCells(int row) const {
    QStringList cells;
    for (int column = 1; column <= ColumnCount() && model_.has(row); ++column)
        cells << ShownCell(row, column);
    return cells;
}

int ctList::SelectedRow() const {
    const QModelIndex current = currentIndex();
    if (current.isValid() && selectionModel()->isRowSelected(current.row()))
        return current.row();
    const std::vector<int> rows = SelectedRows();
    return rows.empty() ? -1 : rows.front();
}

std::vector<int> ctList::SelectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ctList::keyboardSearch(const QString& typed) {
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const bool goesOn = now - typedAt_ < QApplication::keyboardInputInterval() && !typed_.isEmpty();
    typedAt_ = now;
    // The same letter again steps through the rows that start with it.
    const bool stepsOn = !goesOn || typed_ == typed;
    typed_ = stepsOn ? typed : typed_ + typed;
    const int current = SelectedRow();
    int found = model_.findPrefix(typed_, model_.firstTextColumn(), stepsOn ? current : current - 1);
    for (int tries = 0; found >= 0 && !IsRowShown(found) && tries < RowCount(); ++tries)
        found = model_.findPrefix(typed_, model_.firstTextColumn(), found);
    if (IsRowShown(found))
        SelectRow(found);
}

QSize ctList::sizeHint() const {
    const int character = fontMetrics().averageCharWidth();
    int width = 2 * frameWidth();
    for (const ListColumn& column : model_.columns())
        width += (column.widthCharacters > 0 ? column.widthCharacters : 20) * character;
    return {std::clamp(width, 20 * character, 110 * character), fontMetrics().height() * 15};
}

void ctList::keyPressEvent(QKeyEvent* event) {
    // In a list that was only just entered, the first row has the focus but is not selected yet.
    const bool worksOnRow = event->key() == Qt::Key_Space || event->key() == Qt::Key_Home;
    if (worksOnRow && SelectedRow() < 0 && currentIndex().isValid())
        SelectRow(currentIndex().row());
    const int row = SelectedRow();
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else if (row >= 0 && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        Q_EMIT RowActivated(row);
    } else if (const bool second = event->modifiers().testFlag(Qt::ShiftModifier);
               row >= 0 && event->key() == Qt::Key_Space && checkColumnForKey(second) > 0) {
        flipCheck(row, checkColumnForKey(second));
    } else {
        QTreeView::keyPressEvent(event);
        return;
    }
    event->accept();
}

void ctList::mousePressEvent(QMouseEvent* event) {
    pressedCell_ = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    QTreeView::mousePressEvent(event);
}

void ctList::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    const QModelIndex released = indexAt(event->pos());
    if (event->button() == Qt::LeftButton && released.isValid() && pressedCell_ == released &&
        model_.isCheckColumn(released.column() + 1))
        flipCheck(released.row(), released.column() + 1);
}

void ctList::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || !index.isValid() || model_.isCheckColumn(index.column() + 1)) {
        QTreeView::mouseDoubleClickEvent(event);
        return;
    }
    SelectRow(index.row());
    Q_EMIT RowActivated(index.row());
}

void ctList::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect place = visualRect(currentIndex());
        Q_EMIT PopupRequested(SelectedRow(), viewport()->mapToGlobal(place.center()));
        return;
    }
    const QModelIndex index = indexAt(viewport()->mapFromGlobal(event->globalPos()));
    if (index.isValid() && !selectionModel()->isRowSelected(index.row()))
        SelectRow(index.row());
    Q_EMIT PopupRequested(index.isValid() ? index.row() : -1, event->globalPos());
}

void ctList::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        layOutColumns();
}

// Without headings the user cannot change the widths, so they follow the list's size.
void ctList::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    if (isHeaderHidden())
        layOutColumns();
}

void ctList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    Q_EMIT SelectionChanged();
}

void ctList::layOutColumns() {
    const int character = fontMetrics().averageCharWidth();
    const int most = isHeaderHidden() ? viewport()->width() / 2 : QWIDGETSIZE_MAX;
    bool shares = false;
    for (int section = 0; section < model_.columnCount(); ++section) {
        const ListColumn& column = model_.columns()[static_cast<std::size_t>(section)];
        const bool fixed = column.widthCharacters > 0 || column.kind != ListColumn::Kind::Text;
        header()->setSectionResizeMode(section, fixed ? QHeaderView::Interactive : QHeaderView::Stretch);
        const int least = header()->sectionSizeHint(section);
        if (fixed)
            header()->resizeSection(section, std::max(least, std::min(column.widthCharacters * character, most)));
        shares = shares || !fixed;
    }
    header()->setStretchLastSection(!shares);
}

void ctList::flipCheck(int row, int column) {
    if (!model_.checksEnabled())
        return;
    const bool checked = !Checked(row, column);
    SetChecked(row, column, checked);
    Q_EMIT CheckChanged(row, column, checked);
}

void ctList::copySelection() const {
    QStringList lines;
    for (const int row : SelectedRows()) {
        QStringList cells;
        for (int column = 1; column <= ColumnCount(); ++column)
            if (!model_.isCheckColumn(column))
                cells << ShownCell(row, column);
        lines << cells.join(QLatin1Char('\t'));
    }
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

int ctList::checkColumnForKey(bool second) const {
    if (!second && model_.isCheckColumn(currentIndex().column() + 1))
        return currentIndex().column() + 1;
    bool found = !second;
    for (int column = 1; column <= ColumnCount(); ++column) {
        if (model_.isCheckColumn(column) && found)
            return column;
        found = found || model_.isCheckColumn(column);
    }
    return 0;
}
