#include "platform/database/writtenrows.h"

#include <algorithm>
#include <QHash>

#include "platform/database/connection.h"
#include "platform/database/sql.h"

namespace db {

namespace {

/// A server takes some two thousand values in one statement, and the embedded engine limits how deep a condition nests.
constexpr std::size_t mostKeysOfRead = 100;

bool isSame(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// Returns a text that is the same for equal keys only.
QString textOf(const std::vector<Value>& key) {
    QStringList texts;
    for (const Value& value : key)
        texts << value.text();
    return texts.join(QChar::Null);
}

}  // namespace

WrittenRows::WrittenRows(Connection& connection, const Sent& sent)
    : connection_(connection), sent_(sent), key_(sent.table.RowKey()) {}

void WrittenRows::readBefore() {
    if (isInsert())
        takeInsertedKeys();
    else
        readByCondition();
    if (sent_.shape.verb == WriteShape::Verb::Update)
        takeUpdatedKeys();
}

qint64 WrittenRows::send() {
    if (!isInsert() || !isNumbered())
        return connection_.sendAlone(sent_.statement, sent_.bound);
    // The key of a single row is the last key, which costs no trip.
    Numbered inserted;
    if (sent_.shape.rows.size() == 1) {
        inserted.rows = connection_.sendAlone(sent_.statement, sent_.bound);
        inserted.keys.push_back(connection_.LastIdentity());
    } else {
        inserted =
            connection_.insertNumbered(sent_.statement, sent_.shape.valuesAt, sent_.table.identityColumn, sent_.bound);
    }
    for (const qint64 key : inserted.keys)
        keysAfter_.push_back({key});
    return inserted.rows;
}

void WrittenRows::readAfter() {
    after_ = rowsOf(keysAfter_);
}

std::vector<RowChange> WrittenRows::changes() const {
    std::vector<RowChange> changes;
    if (isInsert()) {
        for (const RowState& row : after_)
            changes.push_back({keyStateOf(row), {}, row});
        return changes;
    }
    const bool isUpdate = sent_.shape.verb == WriteShape::Verb::Update;
    QHash<QString, const RowState*> byKey;
    for (const RowState& row : after_)
        byKey.insert(textOf(keyOf(row)), &row);
    for (std::size_t i = 0; i < before_.size(); ++i) {
        const RowState* after = isUpdate && i < keysAfter_.size() ? byKey.value(textOf(keysAfter_[i])) : nullptr;
        if (isUpdate && !after)
            return {};
        changes.push_back({keyStateOf(before_[i]), before_[i], after ? std::optional(*after) : std::nullopt});
    }
    return changes;
}

std::vector<RowChange> WrittenRows::changesBefore() const {
    std::vector<RowChange> changes;
    changes.reserve(before_.size());
    for (const RowState& row : before_)
        changes.push_back({keyStateOf(row), row, {}});
    return changes;
}

/// Returns true when the database assigns the whole key of inserted rows.
bool WrittenRows::isNumbered() const {
    return key_.size() == 1 && isSame(key_.front(), sent_.table.identityColumn);
}

QString WrittenRows::order() const {
    QStringList columns;
    for (const QString& column : key_)
        columns << Bracketed(column);
    return QStringLiteral(" Order By ") + columns.join(QLatin1String(", "));
}

void WrittenRows::readByCondition() {
    const WriteShape& shape = sent_.shape;
    QString statement = QStringLiteral("Select * From ") + shape.table + connection_.engine().lockingHint();
    if (!shape.condition.isEmpty())
        statement += QStringLiteral(" Where ") + shape.condition;
    const auto first = sent_.bound.begin() + static_cast<std::ptrdiff_t>(shape.placesBefore);
    const ResultTable rows = connection_.query(statement + order(), {first, sent_.bound.end()});
    for (int row = 0; row < rows.rowCount(); ++row)
        before_.emplace_back(rows, row);
}

/// An Update leaves the key as it was, or sets a column of it to a plain value.
void WrittenRows::takeUpdatedKeys() {
    for (const RowState& row : before_)
        keysAfter_.push_back(keyOf(row));
    for (const WriteShape::Assignment& assignment : sent_.shape.assignments) {
        const auto changed =
            std::find_if(key_.begin(), key_.end(), [&](const QString& key) { return isSame(key, assignment.column); });
        if (changed == key_.end())
            continue;
        const std::optional<Value> value = plainValue(assignment.value, *changed);
        if (!value)
            return keysAfter_.clear();
        for (Key& key : keysAfter_)
            key[static_cast<std::size_t>(changed - key_.begin())] = *value;
    }
}

void WrittenRows::takeInsertedKeys() {
    if (isNumbered())
        return;
    QStringList columns = sent_.shape.columns;
    for (const ColumnInfo& column : sent_.table.columns)
        if (sent_.shape.columns.isEmpty() && !isSame(column.name, sent_.table.identityColumn))
            columns << column.name;
    std::vector<qsizetype> places;
    for (const QString& key : key_)
        places.push_back(
            std::find_if(columns.begin(), columns.end(), [&](const QString& column) { return isSame(column, key); }) -
            columns.begin());
    if (std::find(places.begin(), places.end(), columns.size()) != places.end())
        return;
    keysAfter_ = sent_.shape.rows.empty() ? keysOfSelect(places) : keysOfValues(places);
}

std::vector<WrittenRows::Key> WrittenRows::keysOfSelect(const std::vector<qsizetype>& places) {
    std::vector<Key> keys;
    const ResultTable rows = connection_.query(sent_.statement.sliced(sent_.shape.valuesAt), sent_.bound);
    for (int row = 0; row < rows.rowCount(); ++row) {
        Key& key = keys.emplace_back();
        for (std::size_t i = 0; i < key_.size() && places[i] < rows.columnCount(); ++i)
            key.push_back(typed(rows.at(row, static_cast<int>(places[i])).value(), key_[i]));
    }
    return keys;
}

std::vector<WrittenRows::Key> WrittenRows::keysOfValues(const std::vector<qsizetype>& places) const {
    std::vector<Key> keys;
    for (const std::vector<WriteShape::Written>& row : sent_.shape.rows) {
        Key& key = keys.emplace_back();
        for (std::size_t i = 0; i < key_.size(); ++i) {
            const auto place = static_cast<std::size_t>(places[i]);
            const std::optional<Value> value = place < row.size() ? plainValue(row[place], key_[i]) : std::nullopt;
            if (!value)
                return {};
            key.push_back(*value);
        }
    }
    return keys;
}

std::optional<Value> WrittenRows::plainValue(const WriteShape::Written& written, const QString& column) const {
    if (const auto* value = std::get_if<Value>(&written))
        return typed(*value, column);
    const auto* place = std::get_if<std::size_t>(&written);
    return place && *place < sent_.bound.size() ? std::optional(typed(sent_.bound[*place], column)) : std::nullopt;
}

/// Returns the value in the type of the column. A condition that compares a text column with a number would convert
/// the column, and fail at the first text that is no number.
Value WrittenRows::typed(const Value& value, const QString& column) const {
    const auto info = std::find_if(sent_.table.columns.begin(), sent_.table.columns.end(),
                                   [&](const ColumnInfo& each) { return isSame(each.name, column); });
    if (value.isNull() || info == sent_.table.columns.end())
        return value;
    switch (info->type) {
        case ColumnType::Integer:
            return value.integer();
        case ColumnType::Text:
            return value.text();
        case ColumnType::DateTime:
        case ColumnType::Real:
        case ColumnType::Boolean:
            break;
    }
    return value;
}

std::vector<RowState> WrittenRows::rowsOf(const std::vector<Key>& keys) {
    std::vector<RowState> found;
    QStringList columns;
    for (const QString& column : key_)
        columns << Bracketed(column) + QLatin1String(" = ?");
    const QString condition = QLatin1Char('(') + columns.join(QLatin1String(" And ")) + QLatin1Char(')');
    for (std::size_t first = 0; first < keys.size(); first += mostKeysOfRead) {
        const std::size_t end = std::min(keys.size(), first + mostKeysOfRead);
        std::vector<Value> bound;
        for (std::size_t i = first; i < end; ++i)
            bound.insert(bound.end(), keys[i].begin(), keys[i].end());
        const QStringList conditions(static_cast<qsizetype>(end - first), condition);
        const ResultTable rows =
            connection_.query(QStringLiteral("Select * From %1 Where %2%3")
                                  .arg(sent_.shape.table, conditions.join(QLatin1String(" Or ")), order()),
                              bound);
        for (int row = 0; row < rows.rowCount(); ++row)
            found.emplace_back(rows, row);
    }
    return found;
}

WrittenRows::Key WrittenRows::keyOf(const RowState& row) const {
    Key key;
    for (const QString& column : key_) {
        const Value* value = row.Find(column);
        key.push_back(value ? *value : Value());
    }
    return key;
}

RowState WrittenRows::keyStateOf(const RowState& row) const {
    RowState state;
    const Key key = keyOf(row);
    for (std::size_t i = 0; i < key_.size(); ++i)
        state.Set(key_[i], key[i]);
    return state;
}

}  // namespace db
