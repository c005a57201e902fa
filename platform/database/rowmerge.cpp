#include "platform/database/rowmerge.h"

#include <algorithm>
#include <stdexcept>

#include "platform/database/recordset.h"

namespace db {

namespace {

bool isSame(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

const Value& valueIn(const RowState& state, const QString& column) {
    const Value* value = state.Find(column);
    if (!value)
        throw std::logic_error("One of the states that are merged lacks the column " + column.toStdString());
    return *value;
}

}  // namespace

RowState::RowState(std::initializer_list<ColumnValue> values) {
    for (const ColumnValue& each : values)
        Set(each.column, each.value);
}

RowState::RowState(const Recordset& row, std::span<const char* const> columns) {
    for (const char* column : columns)
        Set(QString::fromUtf8(column), row[column].value());
}

RowState::RowState(const ResultTable& table, int row) {
    values_.reserve(table.columns().size());
    for (int column = 0; column < table.columnCount(); ++column)
        values_.push_back({table.columns()[static_cast<std::size_t>(column)].name, table.at(row, column).value()});
}

void RowState::Set(const QString& column, const Value& value) {
    const auto known = std::find_if(values_.begin(), values_.end(),
                                    [&](const ColumnValue& each) { return isSame(each.column, column); });
    if (known == values_.end())
        values_.push_back({column, value});
    else
        known->value = value;
}

const Value* RowState::Find(const QString& column) const {
    const auto found = std::find_if(values_.begin(), values_.end(),
                                    [&](const ColumnValue& each) { return isSame(each.column, column); });
    return found == values_.end() ? nullptr : &found->value;
}

bool operator==(const RowState& left, const RowState& right) {
    return left.values_.size() == right.values_.size() &&
           std::all_of(left.values_.begin(), left.values_.end(), [&](const RowState::ColumnValue& each) {
               const Value* other = right.Find(each.column);
               return other && *other == each.value;
           });
}

RowClash::RowClash(QStringList changedColumns) : DatabaseError(RowChangedError()), columns(std::move(changedColumns)) {}

RowMerge Merge(const RowState& before, const RowState& wanted, const RowState& now) {
    if (before.Values().size() != wanted.Values().size() || now.Values().size() != wanted.Values().size())
        throw std::logic_error("The states that are merged have other columns");
    RowMerge merge;
    for (const RowState::ColumnValue& each : wanted.Values()) {
        const Value& read = valueIn(before, each.column);
        const Value& present = valueIn(now, each.column);
        if (each.value == read)
            continue;
        merge.changes.push_back(each);
        if (present != read && present != each.value)
            merge.clashes << each.column;
    }
    return merge;
}

void SetChanges(Recordset& row, const RowState& before, const RowState& wanted, const RowState& now) {
    const RowMerge merge = Merge(before, wanted, now);
    if (!merge.clashes.isEmpty())
        throw RowClash(merge.clashes);
    for (const RowState::ColumnValue& change : merge.changes)
        row.Set(change.column, change.value);
}

void RequireUnchanged(const RowState& before, const RowState& now) {
    if (before == now)
        return;
    QStringList changed;
    for (const RowState::ColumnValue& each : now.Values()) {
        const Value* read = before.Find(each.column);
        if (!read || *read != each.value)
            changed << each.column;
    }
    throw RowClash(changed);
}

}  // namespace db
