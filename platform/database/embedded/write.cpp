#include "platform/database/embedded/write.h"

#include <algorithm>
#include <charconv>

#include "platform/database/embedded/names.h"
#include "platform/database/embedded/select.h"
#include "platform/database/embedded/store.h"
#include "platform/database/error.h"

namespace db::embedded {

namespace {

using Form = Expression::Form;
using TableHandle = std::shared_ptr<const Table>;

const TableColumn& requireColumn(const Table& table, const std::string& name) {
    const TableColumn* column = table.find(name);
    if (!column)
        throw DatabaseError(207, QStringLiteral("Invalid column name '%1'.").arg(ToQt(name)));
    return *column;
}

/// Whether the value has the column's own type, so that it needs no conversion when the statement runs.
bool fitsAsItStands(const TableColumn& column, const Expression& value) {
    switch (column.type.kind) {
        case Kind::Text:
            return value.kind == Kind::Text && column.type.maxLength == 0;
        case Kind::DateTime:
            return value.kind == Kind::DateTime && column.type.name != "date" && value.form != Form::Column;
        case Kind::Bit:
            return value.kind == Kind::Bit;
        case Kind::Unknown:
        case Kind::Null:
        case Kind::Integer:
        case Kind::Real:
            break;
    }
    return false;
}

std::string stored(const Table& table, const TableColumn& column, const std::string& sql) {
    return "svs_store(" + sql + ", " + QuotedText(table.name) + ", " + QuotedText(column.name) + ")";
}

std::string storedValue(Context& context, const TableHandle& table, const TableColumn& column,
                        const Expression& value) {
    if (value.form == Form::Parameter) {
        context.parameters[value.place - 1] = {table, static_cast<std::size_t>(&column - table->columns.data())};
        return value.sql;
    }
    if (value.form == Form::Text || value.form == Form::Number)
        return StoredLiteral(*table, column, value);
    if (value.form == Form::Null || fitsAsItStands(column, value))
        return value.sql;
    return stored(*table, column, value.sql);
}

void refuseSecond(const std::vector<const TableColumn*>& columns, const TableColumn& column) {
    if (std::find(columns.begin(), columns.end(), &column) != columns.end())
        throw DatabaseError(
            264,
            QStringLiteral(
                "The column name '%1' is specified more than once in the SET clause or column list of an INSERT. A column cannot be assigned more than one value in the same clause.")
                .arg(ToQt(column.name)));
}

std::vector<const TableColumn*> allButIdentity(const Table& table) {
    std::vector<const TableColumn*> columns;
    for (const TableColumn& column : table.columns)
        if (!column.identity)
            columns.push_back(&column);
    return columns;
}

std::vector<const TableColumn*> readTargets(Context& context, const Table& table) {
    TokenReader& in = context.in;
    if (!in.atOperator("(") || in.atWord("select", 1))
        return allButIdentity(table);
    in.next();
    std::vector<const TableColumn*> columns;
    do {
        const TableColumn& column = requireColumn(table, ReadTableName(in));
        if (column.identity)
            throw DatabaseError(
                544,
                QStringLiteral(
                    "Cannot insert explicit value for identity column in table '%1' when IDENTITY_INSERT is set to OFF.")
                    .arg(ToQt(table.name)));
        refuseSecond(columns, column);
        columns.push_back(&column);
    } while (in.acceptOperator(","));
    in.expectOperator(")");
    return columns;
}

/// The error of an Insert that gives another number of values than there are columns.
struct CountFault {
    int number;
    const char* sentence;
};

void checkCount(std::size_t columns, std::size_t values, bool listed, const CountFault& fewer, const CountFault& more) {
    if (values == columns)
        return;
    const CountFault unlisted{213, "Column name or number of supplied values does not match table definition."};
    const CountFault& fault = !listed ? unlisted : values < columns ? fewer : more;
    throw DatabaseError(fault.number, QString::fromLatin1(fault.sentence));
}

void checkValues(std::size_t columns, std::size_t values, bool listed) {
    checkCount(
        columns, values, listed,
        {109,
         "There are more columns in the INSERT statement than values specified in the VALUES clause. The number of values in the VALUES clause must match the number of columns specified in the INSERT statement."},
        {110,
         "There are fewer columns in the INSERT statement than values specified in the VALUES clause. The number of values in the VALUES clause must match the number of columns specified in the INSERT statement."});
}

void checkSelected(std::size_t columns, std::size_t values, bool listed) {
    checkCount(
        columns, values, listed,
        {120,
         "The select list for the INSERT statement contains fewer items than the insert list. The number of SELECT values must match the number of INSERT columns."},
        {121,
         "The select list for the INSERT statement contains more items than the insert list. The number of SELECT values must match the number of INSERT columns."});
}

/// The table and columns that an Insert writes to.
struct Target {
    TableHandle table;
    std::vector<const TableColumn*> columns;
    bool listed;  ///< By the statement.
};

std::string readRow(Context& context, const Target& target) {
    context.in.expectOperator("(");
    std::vector<Expression> values;
    do
        values.push_back(ReadExpression(context));
    while (context.in.acceptOperator(","));
    context.in.expectOperator(")");
    checkValues(target.columns.size(), values.size(), target.listed);
    std::string list;
    for (std::size_t i = 0; i < values.size(); ++i)
        AppendToList(list, storedValue(context, target.table, *target.columns[i], values[i]));
    return "(" + list + ")";
}

std::string nameList(const std::vector<const TableColumn*>& columns) {
    std::string list;
    for (const TableColumn* column : columns)
        AppendToList(list, QuotedName(column->name));
    return " (" + list + ")";
}

/// Insert ... Select gives the rows names of their own, so that each value can be converted for its column.
std::string insertedRows(Context& context, const Target& target) {
    const Table& table = *target.table;
    const std::vector<const TableColumn*>& columns = target.columns;
    const SelectText select = ReadSelect(context);
    checkSelected(columns.size(), select.columns.size(), target.listed);
    std::string names;
    std::string values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string name = QuotedName(std::string("value").append(std::to_string(i + 1)));
        AppendToList(names, name);
        AppendToList(values, stored(table, *columns[i], name));
    }
    return "WITH \"svs_rows\" (" + names + ") AS (" + select.sql + ") INSERT INTO " + QuotedName(table.name) +
           nameList(columns) + " SELECT " + values + " FROM \"svs_rows\"";
}

std::string readWhere(Context& context) {
    return context.in.acceptWord("where") ? " WHERE " + ReadCondition(context).sql : std::string();
}

}  // namespace

std::string StoredLiteral(const Table& table, const TableColumn& column, const Expression& literal) {
    Cell cell = literal.name;
    if (literal.form == Form::Number) {
        qint64 whole = 0;
        const char* end = literal.name.data() + literal.name.size();
        const auto read = std::from_chars(literal.name.data(), end, whole);
        if (read.ec == std::errc() && read.ptr == end)
            cell = whole;
        else
            cell = std::strtod(literal.name.c_str(), nullptr);
    }
    // A number that is stored in a text keeps its digits.
    if (literal.form == Form::Number && column.type.kind == Kind::Text)
        cell = literal.name;
    cell = StoredCell(table, column, std::move(cell));
    if (const auto* whole = std::get_if<qint64>(&cell))
        return std::to_string(*whole);
    if (const auto* number = std::get_if<double>(&cell))
        return QByteArray::number(*number, 'g', 17).toStdString();
    return QuotedText(std::get<std::string>(cell));
}

std::string ReadInsert(Context& context) {
    TokenReader& in = context.in;
    in.acceptWord("into");
    const TableHandle table = context.catalog.table(ReadTableName(in));
    const bool listed = in.atOperator("(") && !in.atWord("select", 1);
    const Target target{table, readTargets(context, *table), listed};
    if (in.atWord("select"))
        return insertedRows(context, target);
    if (!listed && in.acceptWord("default")) {
        in.expectWord("values");
        return "INSERT INTO " + QuotedName(table->name) + " DEFAULT VALUES";
    }
    in.expectWord("values");
    std::string sql = "INSERT INTO " + QuotedName(table->name) + nameList(target.columns) + " VALUES ";
    sql += readRow(context, target);
    while (in.acceptOperator(","))
        sql.append(", ").append(readRow(context, target));
    return sql;
}

std::string ReadUpdate(Context& context) {
    TokenReader& in = context.in;
    const TableHandle table = context.catalog.table(ReadTableName(in));
    const Scope scope{.sources = {{table->name, table}}};
    context.scope = &scope;
    in.expectWord("set");
    std::string changes;
    std::vector<const TableColumn*> changed;
    do {
        const TableColumn& column = requireColumn(*table, ReadTableName(in));
        refuseSecond(changed, column);
        changed.push_back(&column);
        if (column.identity)
            throw DatabaseError(8102, QStringLiteral("Cannot update identity column '%1'.").arg(ToQt(column.name)));
        in.expectOperator("=");
        const Expression value = ReadExpression(context);
        AppendToList(changes, QuotedName(column.name) + " = " + storedValue(context, table, column, value));
    } while (in.acceptOperator(","));
    std::string sql = "UPDATE " + QuotedName(table->name) + " SET " + changes + readWhere(context);
    context.scope = nullptr;
    return sql;
}

std::string ReadDelete(Context& context) {
    TokenReader& in = context.in;
    in.acceptWord("from");
    const TableHandle table = context.catalog.table(ReadTableName(in));
    const Scope scope{.sources = {{table->name, table}}};
    context.scope = &scope;
    std::string sql = "DELETE FROM " + QuotedName(table->name) + readWhere(context);
    context.scope = nullptr;
    return sql;
}

}  // namespace db::embedded
