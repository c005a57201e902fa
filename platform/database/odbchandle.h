#pragma once

#include <sql.h>
#include <sqlext.h>

#include <QString>
#include <utility>

#include "platform/database/error.h"

namespace db {

/// Owns one handle of the ODBC interface: an environment, a connection or a statement.
template <SQLSMALLINT Type>
class OdbcHandle {
  public:
    explicit OdbcHandle(SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(Type, parent, &handle_)))
            throw DatabaseError(-2147467259, QStringLiteral("The ODBC driver manager has no handle left."));
    }
    ~OdbcHandle() { SQLFreeHandle(Type, handle_); }
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;

    [[nodiscard]] SQLHANDLE get() const { return handle_; }

  private:
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// Returns the error that the driver reports for the last call on a handle, which failed. It is made from the first
/// diagnostic record with an error number, because the records after it only add that the statement was ended.
DatabaseError OdbcFailure(SQLSMALLINT type, SQLHANDLE handle, const QString& statement = {});
/// Returns the error for a login that failed. Where the server refused the login, its number and sentence are used.
/// Where the login did not reach the server, the cursor service's sentence stands before the driver's.
DatabaseError OdbcLoginFailure(SQLHANDLE connection);

/// Texts go through the interface in UTF-16, so its characters must have the size of a QChar.
static_assert(sizeof(SQLWCHAR) == sizeof(QChar));
inline SQLWCHAR* WideText(const QString& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<QChar*>(text.constData()));
}

}  // namespace db
