#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "platform/database/odbchandle.h"
#include "platform/database/resulttable.h"

namespace db {

/// Returns the column type for a type number of the ODBC interface.
ColumnType OdbcColumnType(SQLSMALLINT type);

/// The statement that a connection is running, so that another thread can cancel it.
class RunningStatement {
  public:
    void cancel();

  private:
    friend class OdbcStatement;
    std::mutex mutex_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// One run of one statement on an ODBC connection. Failures throw DatabaseError.
class OdbcStatement {
  public:
    OdbcStatement(SQLHANDLE connection, RunningStatement& running);
    ~OdbcStatement();
    OdbcStatement(const OdbcStatement&) = delete;
    OdbcStatement& operator=(const OdbcStatement&) = delete;

    [[nodiscard]] SQLHANDLE handle() const { return handle_.get(); }

    /// Binds values to the places marked ?. `dateTimesAsText` is for a SQL Server: it would take a bound date-time for
    /// a finer type, which equals none of the stored values.
    void bind(const std::vector<Value>& values, bool dateTimesAsText);
    void run(const QString& statement);
    [[nodiscard]] qint64 rowCount() const;
    /// Returns the rows of the first result that has columns. It reads all of them, or at most `most` where that is
    /// above 0.
    ResultTable rows(int most = 0);
    /// Appends the rows of every result that has columns. When a failure is thrown, the results before it have been
    /// appended.
    void appendAllRows(std::vector<ResultTable>& tables);
    /// Reads past the results that are left, because a failure may still stand among them.
    void finish();

  private:
    struct Bound {
        QString text;
        qint64 integer = 0;
        double real = 0;
        SQL_TIMESTAMP_STRUCT moment{};
        SQLLEN indicator = 0;
    };
    void bindOne(SQLUSMALLINT place, Bound& bound, const Value& value, bool dateTimesAsText);
    void bindText(SQLUSMALLINT place, Bound& bound);
    void check(SQLRETURN result) const;
    [[nodiscard]] SQLSMALLINT columnCount() const;
    [[nodiscard]] std::vector<Column> columns(std::vector<SQLSMALLINT>& types) const;
    void readCell(ResultTable& table, SQLUSMALLINT column, SQLSMALLINT type) const;
    void readBytes(ResultTable& table, SQLUSMALLINT column, SQLSMALLINT cType) const;

    OdbcHandle<SQL_HANDLE_STMT> handle_;
    RunningStatement& running_;
    QString statement_;
    std::vector<Bound> bound_;
};

}  // namespace db
