#include "platform/database/odbcstatement.h"

#include <array>
#include <limits>

#include "platform/database/datetext.h"

namespace db {

namespace {

/// The longest text that a SQL Server takes as plain text. A longer one is sent in the type without a limit.
constexpr qsizetype longestPlainText = 4000;

QByteArray isoText(const SQL_TIMESTAMP_STRUCT& read) {
    constexpr unsigned nanosecondsOfOne = 1'000'000;
    const QDateTime moment(
        QDate(read.year, read.month, read.day),
        QTime(read.hour, read.minute, read.second, static_cast<int>(read.fraction / nanosecondsOfOne)), Qt::UTC);
    if (const auto kept = ToServerDateTime(moment))
        return IsoText(*kept);
    return moment.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")).toLatin1();
}

SQL_TIMESTAMP_STRUCT timestamp(const QDateTime& moment) {
    constexpr unsigned nanosecondsOfOne = 1'000'000;
    SQL_TIMESTAMP_STRUCT bound{};
    bound.year = static_cast<SQLSMALLINT>(moment.date().year());
    bound.month = static_cast<SQLUSMALLINT>(moment.date().month());
    bound.day = static_cast<SQLUSMALLINT>(moment.date().day());
    bound.hour = static_cast<SQLUSMALLINT>(moment.time().hour());
    bound.minute = static_cast<SQLUSMALLINT>(moment.time().minute());
    bound.second = static_cast<SQLUSMALLINT>(moment.time().second());
    bound.fraction = static_cast<SQLUINTEGER>(moment.time().msec()) * nanosecondsOfOne;
    return bound;
}

/// Returns the moment as the server will keep it, so that the value sent equals the value read back. A moment that no
/// server can keep is returned unchanged.
QDateTime held(const QDateTime& moment) {
    const auto kept = ToServerDateTime(moment);
    return kept ? ToDateTime(*kept) : moment;
}

QString attribute(SQLHANDLE handle, SQLUSMALLINT column, SQLUSMALLINT field) {
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(
            SQLColAttributeW(handle, column, field, text.data(), sizeof(text) - sizeof(SQLWCHAR), &length, nullptr)))
        return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()));
}

}  // namespace

ColumnType OdbcColumnType(SQLSMALLINT type) {
    switch (type) {
        case SQL_BIT:
            return ColumnType::Boolean;
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return ColumnType::Integer;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return ColumnType::Real;
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
            return ColumnType::DateTime;
        default:
            return ColumnType::Text;
    }
}

void RunningStatement::cancel() {
    const std::lock_guard lock(mutex_);
    if (handle_ != SQL_NULL_HANDLE)
        SQLCancel(handle_);
}

OdbcStatement::OdbcStatement(SQLHANDLE connection, RunningStatement& running) : handle_(connection), running_(running) {
    const std::lock_guard lock(running_.mutex_);
    running_.handle_ = handle();
}

OdbcStatement::~OdbcStatement() {
    const std::lock_guard lock(running_.mutex_);
    running_.handle_ = SQL_NULL_HANDLE;
}

void OdbcStatement::bind(const std::vector<Value>& values, bool dateTimesAsText) {
    bound_.resize(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        bindOne(static_cast<SQLUSMALLINT>(i + 1), bound_[i], values[i], dateTimesAsText);
}

void OdbcStatement::bindOne(SQLUSMALLINT place, Bound& bound, const Value& value, bool dateTimesAsText) {
    const auto bindAs = [&](SQLSMALLINT cType, SQLSMALLINT type, SQLULEN size, SQLSMALLINT digits, SQLPOINTER data) {
        check(SQLBindParameter(handle(), place, SQL_PARAM_INPUT, cType, type, size, digits, data, 0, &bound.indicator));
    };
    if (value.isNull()) {
        bound.indicator = SQL_NULL_DATA;
        bindAs(SQL_C_WCHAR, SQL_WVARCHAR, 1, 0, nullptr);
    } else if (const auto* text = std::get_if<QString>(&value.data())) {
        bound.text = *text;
        bindText(place, bound);
    } else if (const auto* number = std::get_if<double>(&value.data())) {
        bound.real = *number;
        bindAs(SQL_C_DOUBLE, SQL_DOUBLE, 15, 0, &bound.real);
    } else if (const auto* moment = std::get_if<QDateTime>(&value.data()); moment && dateTimesAsText) {
        bound.text = held(*moment).toString(QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz"));
        bindText(place, bound);
    } else if (moment) {
        bound.moment = timestamp(held(*moment));
        bindAs(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 23, 3, &bound.moment);
    } else {
        bound.integer = value.integer();
        const bool small = bound.integer == static_cast<SQLINTEGER>(bound.integer);
        bindAs(SQL_C_SBIGINT, small ? SQL_INTEGER : SQL_BIGINT, 0, 0, &bound.integer);
    }
}

void OdbcStatement::bindText(SQLUSMALLINT place, Bound& bound) {
    const qsizetype length = bound.text.size();
    bound.indicator = length * static_cast<qsizetype>(sizeof(SQLWCHAR));
    check(SQLBindParameter(
        handle(), place, SQL_PARAM_INPUT, SQL_C_WCHAR, length > longestPlainText ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
        static_cast<SQLULEN>(qMax<qsizetype>(1, length)), 0, WideText(bound.text), bound.indicator, &bound.indicator));
}

void OdbcStatement::run(const QString& statement) {
    statement_ = statement;
    check(SQLExecDirectW(handle(), WideText(statement), static_cast<SQLINTEGER>(statement.size())));
}

qint64 OdbcStatement::rowCount() const {
    SQLLEN count = -1;
    return SQL_SUCCEEDED(SQLRowCount(handle(), &count)) ? count : -1;
}

ResultTable OdbcStatement::rows(int most) {
    while (columnCount() == 0) {
        const SQLRETURN more = SQLMoreResults(handle());
        check(more);
        if (more == SQL_NO_DATA)
            return ResultTable();
    }
    std::vector<SQLSMALLINT> types;
    ResultTable table(columns(types));
    for (;;) {
        const SQLRETURN fetched = SQLFetch(handle());
        check(fetched);
        if (fetched == SQL_NO_DATA)
            return table;
        for (std::size_t i = 0; i < types.size(); ++i)
            readCell(table, static_cast<SQLUSMALLINT>(i + 1), types[i]);
        if (table.rowCount() == most)
            return table;
    }
}

void OdbcStatement::appendAllRows(std::vector<ResultTable>& tables) {
    for (SQLRETURN more = SQL_SUCCESS; more != SQL_NO_DATA; check(more)) {
        if (columnCount() > 0)
            tables.push_back(rows());
        more = SQLMoreResults(handle());
    }
}

void OdbcStatement::finish() {
    for (SQLRETURN more = SQL_SUCCESS; more != SQL_NO_DATA;) {
        more = SQLMoreResults(handle());
        check(more);
    }
}

void OdbcStatement::check(SQLRETURN result) const {
    // An Update that meets no row succeeds with SQL_NO_DATA.
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA)
        throw OdbcFailure(SQL_HANDLE_STMT, handle(), statement_);
}

SQLSMALLINT OdbcStatement::columnCount() const {
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(handle(), &count));
    return count;
}

std::vector<Column> OdbcStatement::columns(std::vector<SQLSMALLINT>& types) const {
    const SQLSMALLINT count = columnCount();
    std::vector<Column> columns;
    for (SQLUSMALLINT i = 1; i <= count; ++i) {
        SQLLEN type = 0;
        check(SQLColAttributeW(handle(), i, SQL_DESC_CONCISE_TYPE, nullptr, 0, nullptr, &type));
        types.push_back(static_cast<SQLSMALLINT>(type));
        columns.push_back({attribute(handle(), i, SQL_DESC_NAME), attribute(handle(), i, SQL_DESC_BASE_TABLE_NAME),
                           OdbcColumnType(types.back())});
    }
    return columns;
}

void OdbcStatement::readCell(ResultTable& table, SQLUSMALLINT column, SQLSMALLINT type) const {
    qint64 integer = 0;
    double real = 0;
    SQL_TIMESTAMP_STRUCT moment{};
    SQLLEN indicator = 0;
    const auto isRead = [&](SQLSMALLINT cType, SQLPOINTER into, SQLLEN size) {
        check(SQLGetData(handle(), column, cType, into, size, &indicator));
        if (indicator == SQL_NULL_DATA)
            table.appendNull();
        return indicator != SQL_NULL_DATA;
    };
    switch (OdbcColumnType(type)) {
        case ColumnType::Boolean:
        case ColumnType::Integer:
            if (isRead(SQL_C_SBIGINT, &integer, sizeof(integer)))
                table.appendInteger(integer);
            return;
        case ColumnType::Real:
            if (isRead(SQL_C_DOUBLE, &real, sizeof(real)))
                table.appendReal(real);
            return;
        case ColumnType::DateTime:
            if (isRead(SQL_C_TYPE_TIMESTAMP, &moment, sizeof(moment)))
                table.appendText(isoText(moment));
            return;
        case ColumnType::Text:
            break;
    }
    const bool binary = type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY;
    readBytes(table, column, binary ? SQL_C_BINARY : SQL_C_WCHAR);
}

/// Reads the cell in pieces until the driver has no more.
void OdbcStatement::readBytes(ResultTable& table, SQLUSMALLINT column, SQLSMALLINT cType) const {
    std::array<char16_t, 4096> piece{};
    const SQLLEN closing = cType == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 0;
    constexpr SQLLEN size = sizeof(piece);
    QByteArray bytes;
    for (;;) {
        SQLLEN left = 0;
        const SQLRETURN read = SQLGetData(handle(), column, cType, piece.data(), size, &left);
        check(read);
        if (left == SQL_NULL_DATA) {
            table.appendNull();
            return;
        }
        const bool more = left == SQL_NO_TOTAL || left > size - closing;
        if (read != SQL_NO_DATA)
            bytes.append(reinterpret_cast<const char*>(piece.data()), more ? size - closing : left);
        if (read == SQL_NO_DATA || !more)
            break;
    }
    if (cType == SQL_C_BINARY)
        table.appendText(bytes);
    else
        table.appendText(QStringView(reinterpret_cast<const char16_t*>(bytes.constData()),
                                     bytes.size() / static_cast<qsizetype>(sizeof(char16_t)))
                             .toUtf8());
}

}  // namespace db
