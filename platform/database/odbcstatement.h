#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "platform/database/odbchandle.h"
#include "platform/database/resulttable.h"

namespace db {

/// By the type's number in the ODBC interface.
ColumnType OdbcColumnType(SQLSMALLINT type);

/// The statement that a connection is at work on, for a thread that wants it cancelled.
class RunningStatement {
  public:
    void cancel();

  private:
    friend class OdbcStatement;
    std::mutex mutex_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// One run of one statement on an ODBC connection.
class OdbcStatement {
  public:
    OdbcStatement(SQLHANDLE connection, RunningStatement& running);
    ~OdbcStatement();
    OdbcStatement(const OdbcStatement&) = delete;
    OdbcStatement& operator=(const OdbcStatement&) = delete;

    [[nodiscard]] SQLHANDLE handle() const { return handle_.get(); }

    /// Date-times go to a SQL Server as text: it would take a bound one for a finer type, which equals none of the
    /// stored ones.
    void bind(const std::vector<Value>& values, bool dateTimesAsText);
    void run(const QString& statement);
    [[nodiscard]] qint64 rowCount() const;
    /// The rows of the first result that has columns, read whole or, where `most` is above 0, no more than so many.
    ResultTable rows(int most = 0);
    /// Of every result that has columns; those before a failure have been appended when it is thrown.
    void appendAllRows(std::vector<ResultTable>& tables);
    /// Takes what is left of the results, where a failure may still hide.
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
