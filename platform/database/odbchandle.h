#pragma once

#include <sql.h>
#include <sqlext.h>

#include <QString>
#include <utility>

#include "platform/database/error.h"

namespace db {

/// One handle of the ODBC interface: an environment, a connection or a statement.
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

/// What the last call on a handle that failed was told: the first record with a number of its own, since the records
/// behind it only add that the statement was ended.
DatabaseError OdbcFailure(SQLSMALLINT type, SQLHANDLE handle, const QString& statement = {});
/// The same for a login. It fails at the server, which gives the number and the sentence, or before it: then the cursor
/// service's sentence stands before the driver's.
DatabaseError OdbcLoginFailure(SQLHANDLE connection);

/// Texts go through the interface in UTF-16, whose letters have the size of a QChar.
static_assert(sizeof(SQLWCHAR) == sizeof(QChar));
inline SQLWCHAR* WideText(const QString& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<QChar*>(text.constData()));
}

}  // namespace db
