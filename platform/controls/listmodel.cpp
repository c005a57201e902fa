#include "platform/controls/listmodel.h"

#include <QColor>

#include <algorithm>

#include "platform/text/plaintext.h"

namespace {

quint32 columnBit(int column) {
    return column < 1 || column > 32 ? 0U : 1U << static_cast<unsigned>(column - 1);
}

}  // namespace

void ListModel::setColumns(std::vector<ListColumn> columns) {
    beginResetModel();
    columns_ = std::move(columns);
    rows_.clear();
    endResetModel();
}

void ListModel::setHeader(int column, const QString& text) {
    if (column < 1 || column > columnCount())
        return;
    columns_[static_cast<std::size_t>(column - 1)].header = text;
    Q_EMIT headerDataChanged(Qt::Horizontal, column - 1, column - 1);
}

void ListModel::clear() {
    if (rows_.empty())
        return;
    beginResetModel();
    rows_.clear();
    endResetModel();
}

QString HiddenNameText() {
    return QStringLiteral("(hidden)");
}

int ListModel::addRow(const QStringList& cells) {
    const int position = rowCount();
    Row row{cells, {}, {}, 0, 0, false};
    for (int column = 1; column <= columnCount(); ++column)
        if (isCheckColumn(column) && cellView(row, column).toInt() != 0)
            row.checks |= columnBit(column);
    beginInsertRows({}, position, position);
    rows_.push_back(std::move(row));
    endInsertRows();
    return position;
}

void ListModel::removeRowAt(int row) {
    if (!has(row))
        return;
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
}

void ListModel::setCell(int row, int column, const QString& text) {
    if (!has(row) || column < 1 || column > columnCount())
        return;
    Row& target = rows_[static_cast<std::size_t>(row)];
    while (target.cells.size() < column)
        target.cells << QString();
    target.cells[column - 1] = text;
    changed(row);
}

void ListModel::setChecked(int row, int column, bool checked) {
    if (!has(row) || !isCheckColumn(column))
        return;
    Row& target = rows_[static_cast<std::size_t>(row)];
    target.checks = checked ? target.checks | columnBit(column) : target.checks & ~columnBit(column);
    changed(row);
}

void ListModel::setRowData(int row, const QVariant& data) {
    if (has(row))
        rows_[static_cast<std::size_t>(row)].itemData = data;
}

void ListModel::setItemText(int row, const QString& text) {
    if (has(row))
        rows_[static_cast<std::size_t>(row)].itemText = text;
}

void ListModel::setNoteMark(int row, bool marked) {
    if (!has(row))
        return;
    rows_[static_cast<std::size_t>(row)].noteMark = marked;
    changed(row);
}

void ListModel::setChecksEnabled(bool enabled) {
    checksEnabled_ = enabled;
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void ListModel::nameCell(int row, int column) {
    if (!has(row))
        return;
    rows_[static_cast<std::size_t>(row)].names |= columnBit(column);
    changed(row);
}

void ListModel::setNamesHidden(bool hidden) {
    if (hidden == namesHidden_)
        return;
    namesHidden_ = hidden;
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

bool ListModel::isCheckColumn(int column) const {
    return column >= 1 && column <= columnCount() &&
           columns_[static_cast<std::size_t>(column - 1)].kind == ListColumn::Kind::Check;
}

bool ListModel::isColorColumn(int column) const {
    return column >= 1 && column <= columnCount() &&
           columns_[static_cast<std::size_t>(column - 1)].kind == ListColumn::Kind::Color;
}

int ListModel::firstTextColumn() const {
    for (int column = 1; column <= columnCount(); ++column)
        if (!isCheckColumn(column) && !isColorColumn(column))
            return column;
    return 1;
}

QStringList ListModel::cells(int row) const {
    return has(row) ? rows_[static_cast<std::size_t>(row)].cells : QStringList();
}

QString ListModel::cell(int row, int column) const {
    return has(row) ? cellView(rows_[static_cast<std::size_t>(row)], column).toString() : QString();
}

// An empty cell has nothing to hide.
QString ListModel::shownCell(int row, int column) const {
    const QString text = cell(row, column);
    const bool hidden = namesHidden_ && has(row) && !text.isEmpty() &&
                        (rows_[static_cast<std::size_t>(row)].names & columnBit(column)) != 0;
    return hidden ? HiddenNameText() : OneLine(text);
}

bool ListModel::checked(int row, int column) const {
    return has(row) && (rows_[static_cast<std::size_t>(row)].checks & columnBit(column)) != 0;
}

QVariant ListModel::rowData(int row) const {
    return has(row) ? rows_[static_cast<std::size_t>(row)].itemData : QVariant();
}

QString ListModel::itemText(int row) const {
    return has(row) ? rows_[static_cast<std::size_t>(row)].itemText : QString();
}

bool ListModel::noteMark(int row) const {
    return has(row) && rows_[static_cast<std::size_t>(row)].noteMark;
}

int ListModel::findItemData(const QVariant& data) const {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&data](const Row& row) { return row.itemData == data; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int ListModel::findPrefix(const QString& prefix, int column, int after) const {
    const int count = rowCount();
    for (int step = 1; step <= count; ++step) {
        const int row = (std::max(after, -1) + step) % count;
        if (cellView(rows_[static_cast<std::size_t>(row)], column).startsWith(prefix, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !has(index.row()))
        return {};
    const int column = index.column() + 1;
    const bool check = isCheckColumn(column);
    switch (role) {
        case Qt::DisplayRole:
            return check || isColorColumn(column) ? QVariant() : shownCell(index.row(), column);
        case Qt::DecorationRole:
            return isColorColumn(column) ? QVariant(QColor(cell(index.row(), column))) : QVariant();
        case Qt::CheckStateRole:
            return check ? QVariant(checked(index.row(), column) ? Qt::Checked : Qt::Unchecked) : QVariant();
        case Qt::AccessibleTextRole:
            return check ? columns_[static_cast<std::size_t>(index.column())].header : shownCell(index.row(), column);
        case Qt::TextAlignmentRole:
            return QVariant(columns_[static_cast<std::size_t>(index.column())].alignment | Qt::AlignVCenter);
        case NoteMarkRole:
            return column == firstTextColumn() && noteMark(index.row());
        default:
            return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const ListColumn& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return column.header;
    if (role == Qt::TextAlignmentRole)
        return QVariant((column.kind == ListColumn::Kind::Check ? Qt::AlignHCenter : column.alignment) |
                        Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (checksEnabled_ && isCheckColumn(index.column() + 1))
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QStringView ListModel::cellView(const Row& row, int column) {
    return column >= 1 && column <= row.cells.size() ? QStringView(row.cells[column - 1]) : QStringView();
}

void ListModel::changed(int row) {
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}
