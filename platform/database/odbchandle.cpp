#include "platform/database/odbchandle.h"

#include <array>
#include <QRegularExpression>

namespace db {

namespace {

constexpr int unspecified = -2147467259;
constexpr int firstOfFreeTds = 20000;  // FreeTDS numbers its own failures from here.

struct Record {
    int number = 0;
    QString text;
    QString state;
};

/// Returns the first record with an error number, or the very first record where none has one.
Record tellingRecord(SQLSMALLINT type, SQLHANDLE handle) {
    Record first;
    for (SQLSMALLINT i = 1;; ++i) {
        std::array<SQLWCHAR, 6> state{};
        std::array<SQLWCHAR, SQL_MAX_MESSAGE_LENGTH * 4> text{};
        SQLINTEGER number = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, i, state.data(), &number, text.data(),
                                          static_cast<SQLSMALLINT>(text.size()), &length)))
            return first;
        Record record{number, QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data())),
                      QString::fromUtf16(reinterpret_cast<const char16_t*>(state.data()))};
        if (record.number != 0)
            return record;
        if (first.text.isEmpty())
            first = record;
    }
}

/// Returns the text without the bracketed names of the components that passed it on.
QString sentence(const QString& text) {
    static const QRegularExpression chain(QStringLiteral(R"(^(\[[^\]]*\]\s*)+)"));
    return QString(text).remove(chain).trimmed();
}

}  // namespace

DatabaseError OdbcFailure(SQLSMALLINT type, SQLHANDLE handle, const QString& statement) {
    const Record record = tellingRecord(type, handle);
    return {record.number == 0 ? unspecified : record.number, sentence(record.text), statement, record.state};
}

DatabaseError OdbcLoginFailure(SQLHANDLE connection) {
    const Record record = tellingRecord(SQL_HANDLE_DBC, connection);
    const bool fromServer =
        record.number > 0 && record.number < firstOfFreeTds && record.text.contains(QLatin1String("[SQL Server]"));
    const bool fromManager = record.text.contains(QLatin1String("[Driver Manager]"));
    const QString said = sentence(record.text);
    return {record.number == 0 ? unspecified : record.number,
            fromServer || fromManager ? said : QStringLiteral("SQL Server does not exist or access denied. ") + said,
            {},
            record.state};
}

}  // namespace db
