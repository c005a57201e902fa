// What a cursor sends: the rows that it adds, changes and deletes.

#include <algorithm>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"

namespace db {

namespace {

bool isSame(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

bool isComparable(const ColumnInfo& column) {
    const bool unlimitedText = column.type == ColumnType::Text && column.maxLength == 0;
    return column.comparable && column.type != ColumnType::Real && !unlimitedText;
}

}  // namespace

void Recordset::AddNew() {
    dropChanges();
    requireWritable();
    rowBeforeAdding_ = row_;
    table_.appendRow(std::vector<Value>(table_.columns().size()));
    row_ = table_.rowCount() - 1;
    deleted_ = false;
    adding_ = true;
}

void Recordset::setAt(int column, const Value& value) {
    const auto known =
        std::find_if(changes_.begin(), changes_.end(), [&](const Change& change) { return change.column == column; });
    if (known == changes_.end())
        changes_.push_back({column, table_.at(row_, column).value(), value});
    else
        known->after = value;
    table_.set(row_, column, value);
}

void Recordset::Update() {
    requireWritable();
    requireRow();
    if (adding_) {
        insertRow();
        return;
    }
    std::vector<Change> changed;
    std::copy_if(changes_.begin(), changes_.end(), std::back_inserter(changed),
                 [this](const Change& change) { return isChanged(change); });
    if (!changed.empty())
        updateRow(changed);
    changes_.clear();
}

void Recordset::CancelUpdate() {
    requireWritable();
    dropChanges();
}

void Recordset::Delete() {
    requireWritable();
    dropChanges();
    requireRow();
    Bound bound{QStringLiteral("Delete From %1").arg(Bracketed(baseTable_)), {}};
    locate(bound, Compare::AllValues);
    Write write = send(bound);
    table_.removeRow(row_);
    deleted_ = true;
    connection_->written(std::move(write));
}

int Recordset::writableColumn(QAnyStringView name) const {
    requireWritable();
    requireRow();
    const int column = columnIndex(name);
    if (column < 0)
        throw DatabaseError(
            3265,
            QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal."));
    const ColumnInfo* info = baseColumn(column);
    if (!info)
        throw DatabaseError(-2147217887,
                            QStringLiteral("Multiple-step operation generated errors. Check each status value."));
    if (isSame(info->name, base().identityColumn))
        throw DatabaseError(8102, QStringLiteral("Cannot update identity column '%1'.").arg(info->name));
    return column;
}

void Recordset::requireWritable() const {
    if (!IsOpen())
        throw DatabaseError(3704, QStringLiteral("Operation is not allowed when the object is closed."));
    if (baseTable_.isEmpty())
        throw DatabaseError(
            3251,
            QStringLiteral(
                "Current Recordset does not support updating. This may be a limitation of the provider, or of the selected locktype."));
}

void Recordset::dropChanges() {
    if (adding_) {
        table_.removeRow(row_);
        row_ = rowBeforeAdding_;
        adding_ = false;
    } else {
        for (const Change& change : changes_)
            table_.set(row_, change.column, change.before);
    }
    changes_.clear();
}

const TableInfo& Recordset::base() const {
    return connection_->describe(baseTable_);
}

const ColumnInfo* Recordset::baseColumn(int column) const {
    const std::vector<ColumnInfo>& infos = base().columns;
    if (baseColumns_.empty()) {
        for (const Column& read : table_.columns()) {
            const auto found = std::find_if(infos.begin(), infos.end(),
                                            [&](const ColumnInfo& info) { return isSame(info.name, read.name); });
            baseColumns_.push_back(found - infos.begin());
        }
    }
    const auto index = static_cast<std::size_t>(baseColumns_[static_cast<std::size_t>(column)]);
    return index < infos.size() ? &infos[index] : nullptr;
}

Value Recordset::before(int column) const {
    for (const Change& change : changes_) {
        if (change.column == column && !adding_)
            return change.before;
    }
    return table_.at(row_, column).value();
}

bool Recordset::isChanged(const Change& change) const {
    const Value now = table_.at(row_, change.column).value();
    return now != change.before || now.isNull() != change.after.isNull();
}

void Recordset::insertRow() {
    if (changes_.empty())
        throw DatabaseError(
            -2147467259, QStringLiteral("Empty row cannot be inserted. Row must have at least one column value set."));
    QStringList names;
    Bound bound;
    for (const Change& change : changes_) {
        names << Bracketed(table_.columns()[static_cast<std::size_t>(change.column)].name);
        bound.values.push_back(change.after);
    }
    bound.statement = QStringLiteral("Insert Into %1 (%2) Values (%3)")
                          .arg(Bracketed(baseTable_), names.join(QLatin1String(", ")),
                               QStringList(names.size(), QStringLiteral("?")).join(QLatin1String(", ")));
    Write write = connection_->send(bound.statement, bound.values, baseTable_);
    const QString& identity = base().identityColumn;
    if (const int column = identity.isEmpty() ? -1 : columnIndex(identity); column >= 0)
        table_.set(row_, column, connection_->LastIdentity());
    adding_ = false;
    changes_.clear();
    // The row is written: what cannot be read back of it is no failure of the write.
    Ignoring([this] { rereadRow(); });
    connection_->written(std::move(write));
}

void Recordset::updateRow(const std::vector<Change>& changed) {
    QStringList places;
    Bound bound;
    for (const Change& change : changed) {
        places << Bracketed(table_.columns()[static_cast<std::size_t>(change.column)].name) + QLatin1String(" = ?");
        bound.values.push_back(change.after);
    }
    bound.statement = QStringLiteral("Update %1 Set %2").arg(Bracketed(baseTable_), places.join(QLatin1String(", ")));
    locate(bound, Compare::AllValues);
    Write write = send(bound);
    changes_.clear();
    connection_->written(std::move(write));
}

Write Recordset::send(const Bound& bound) {
    Write write = connection_->send(bound.statement, bound.values, baseTable_);
    if (write.rows == 0)
        throw RowChangedError(bound.statement);
    return write;
}

void Recordset::rereadRow() {
    std::vector<int> columns;
    QStringList names;
    for (int column = 0; column < table_.columnCount(); ++column) {
        if (const ColumnInfo* info = baseColumn(column)) {
            columns.push_back(column);
            names << Bracketed(info->name);
        }
    }
    Bound bound{QStringLiteral("Select %1 From %2").arg(names.join(QLatin1String(", ")), Bracketed(baseTable_)), {}};
    locate(bound, Compare::Key);
    const ResultTable read = connection_->query(bound.statement, bound.values);
    if (read.rowCount() != 1)
        return;
    for (std::size_t i = 0; i < columns.size(); ++i)
        table_.set(row_, columns[i], read.at(0, static_cast<int>(i)).value());
}

void Recordset::locate(Bound& bound, Compare compare) const {
    const std::vector<QString> key = base().RowKey();
    QStringList conditions;
    for (int column = 0; column < table_.columnCount(); ++column) {
        const ColumnInfo* info = baseColumn(column);
        if (!info)
            continue;
        const bool inKey =
            std::any_of(key.begin(), key.end(), [&](const QString& name) { return isSame(name, info->name); });
        if (!inKey && (compare == Compare::Key || !isComparable(*info)))
            continue;
        const Value value = before(column);
        conditions << Bracketed(info->name) + (value.isNull() ? QLatin1String(" Is Null") : QLatin1String(" = ?"));
        if (!value.isNull())
            bound.values.push_back(value);
    }
    if (key.empty() || !std::all_of(key.begin(), key.end(), [this](const QString& name) { return HasColumn(name); }))
        throw DatabaseError(-2147467259,
                            QStringLiteral("Insufficient key column information for updating or refreshing."));
    bound.statement += QLatin1String(" Where ") + conditions.join(QLatin1String(" And "));
}

}  // namespace db
