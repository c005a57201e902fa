#include "platform/database/recordset.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/database/criterion.h"
#include "platform/database/statement.h"

namespace db {

namespace {

bool isNamed(const Column& column, QAnyStringView name) {
    return column.name.size() == name.size() && QAnyStringView::compare(column.name, name, Qt::CaseInsensitive) == 0;
}

/// The same for the plain letters of a literal, without making anything.
bool isNamed(const Column& column, const char* name) {
    constexpr unsigned caseBit = 0x20;
    for (const QChar c : column.name) {
        const unsigned letter = c.unicode();
        const unsigned difference = letter ^ static_cast<unsigned char>(*name);
        const bool isLetter = (letter | caseBit) >= 'a' && (letter | caseBit) <= 'z';
        if (difference != 0 && (difference != caseBit || !isLetter))
            return false;
        ++name;
    }
    return *name == '\0';
}

using Source = SelectShape::Source;

bool isSame(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// The source that a name before a point means, by its other name or its own.
Source sourceNamed(const SelectShape& shape, const QString& name) {
    for (const Source& source : shape.sources) {
        if (isSame(source.alias, name) || (source.alias.isEmpty() && isSame(source.table, name)))
            return source;
    }
    return {};
}

/// The source of each column as the statement tells it; empty ones where the columns cannot be counted.
template <typename Describe>
std::vector<Source> sourcesOfColumns(const QString& statement, std::size_t columnCount, const Describe& describe) {
    const SelectShape shape = ShapeOfSelect(statement);
    std::vector<Source> told;
    const auto appendAll = [&](const Source& source) {
        if (!source.table.isEmpty())
            told.insert(told.end(), describe(source.table).columns.size(), source);
    };
    for (const SelectShape::Item& item : shape.items) {
        if (!item.all)
            told.push_back(item.table.isEmpty() ? Source() : sourceNamed(shape, item.table));
        else if (!item.table.isEmpty())
            appendAll(sourceNamed(shape, item.table));
        else
            std::for_each(shape.sources.begin(), shape.sources.end(), appendAll);
    }
    return told.size() == columnCount ? told : std::vector<Source>(columnCount);
}

/// The table that all rows of a Select are rows of; empty for a join, a grouping or an expression.
QString singleTable(const QString& statement) {
    const SelectShape shape = ShapeOfSelect(statement);
    return shape.sources.size() == 1 && !shape.grouped ? shape.sources.front().table : QString();
}

}  // namespace

void Recordset::Open(const QString& statement, Connection& connection, Lock lock, int maxRecords) {
    Close();
    table_ = connection.read(statement, maxRecords);
    connection_ = &connection;
    statement_ = statement;
    if (lock == Lock::Optimistic)
        baseTable_ = singleTable(statement);
}

void Recordset::Close() {
    connection_ = nullptr;
    statement_.clear();
    table_ = ResultTable();
    row_ = 0;
    deleted_ = false;
    baseTable_.clear();
    baseColumns_.clear();
    adding_ = false;
    changes_.clear();
    hits_ = {};
    origins_.clear();
}

void Recordset::MoveFirst() {
    dropChanges();
    deleted_ = false;
    row_ = 0;
}

void Recordset::MoveNext() {
    dropChanges();
    if (deleted_) {
        deleted_ = false;
        return;
    }
    requireRow();
    ++row_;
}

void Recordset::Find(const QString& criterion) {
    dropChanges();
    deleted_ = false;
    const Criterion condition(criterion);
    const int column = columnIndex(condition.column());
    if (column < 0)
        throw DatabaseError(
            3265,
            QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal."));
    const ColumnType type = table_.columns()[static_cast<std::size_t>(column)].type;
    while (!Eof() && !condition.isMetBy(table_.at(row_, column), type))
        ++row_;
}

Field Recordset::operator[](const QString& name) const {
    return (*this)[columnIndex(name)];
}

Field Recordset::operator[](const char* name) const {
    constexpr std::uint64_t spread = 0x9E37'79B9'7F4A'7C15;  // Literals lie close together.
    const std::uint64_t address = reinterpret_cast<std::uintptr_t>(name);
    Hit& hit = hits_[((address * spread) >> 32) % hits_.size()];
    // Another text may have come to stand at the address: the name is compared all the same.
    if (hit.name != name || !isNamed(table_.columns()[static_cast<std::size_t>(hit.column)], name)) {
        const int column = columnIndex(QLatin1String(name));
        if (column < 0 || std::strchr(name, '.'))
            return (*this)[column];
        hit = {name, column};
    }
    return (*this)[hit.column];
}

Field Recordset::operator[](int ordinal) const {
    if (!IsOpen())
        throw DatabaseError(3704, QStringLiteral("Operation is not allowed when the object is closed."));
    if (ordinal < 0 || ordinal >= table_.columnCount())
        throw DatabaseError(
            3265,
            QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal."));
    requireRow();
    return table_.at(row_, ordinal);
}

std::vector<std::vector<Value>> Recordset::GetRows() {
    dropChanges();
    deleted_ = false;
    std::vector<std::vector<Value>> rows;
    rows.reserve(static_cast<std::size_t>(qMax(0, table_.rowCount() - row_)));
    for (; !Eof(); ++row_) {
        std::vector<Value>& row = rows.emplace_back();
        row.reserve(table_.columns().size());
        for (int column = 0; column < table_.columnCount(); ++column)
            row.push_back(table_.at(row_, column).value());
    }
    return rows;
}

int Recordset::columnIndex(QAnyStringView name) const {
    const std::vector<Column>& columns = table_.columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (isNamed(columns[i], name))
            return static_cast<int>(i);
    }
    const QString whole = name.toString();
    const qsizetype point = whole.lastIndexOf(QLatin1Char('.'));
    return point < 0 ? -1 : columnOfTable(whole.first(point), whole.sliced(point + 1));
}

int Recordset::columnOfTable(const QString& table, const QString& name) const {
    const std::vector<Column>& columns = table_.columns();
    if (origins_.empty()) {
        const auto describe = [this](const QString& source) -> const TableInfo& {
            return connection_->describe(source);
        };
        for (const Source& source : sourcesOfColumns(statement_, columns.size(), describe))
            origins_.push_back({source.alias, source.table});
    }
    const auto find = [&](const auto& isOfTable) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (isNamed(columns[i], name) && isOfTable(i))
                return static_cast<int>(i);
        }
        return -1;
    };
    const int byOtherName = find([&](std::size_t i) { return isSame(origins_[i].alias, table); });
    if (byOtherName >= 0)
        return byOtherName;
    return find([&](std::size_t i) { return isSame(columns[i].table, table) || isSame(origins_[i].table, table); });
}

void Recordset::requireRow() const {
    if (!IsOpen())
        throw DatabaseError(3704, QStringLiteral("Operation is not allowed when the object is closed."));
    if (deleted_ || row_ >= table_.rowCount())
        throw DatabaseError(
            3021,
            QStringLiteral(
                "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record."));
}

}  // namespace db
