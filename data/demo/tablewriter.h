#pragma once

#include <initializer_list>
#include <optional>
#include <QStringList>
#include <vector>

#include "platform/database/connection.h"

namespace demo {

/// Adds rows to one table of an open connection, by bound values. The columns are named once; values follow in their
/// order.
class TableWriter {
  public:
    TableWriter(db::Connection& connection, const char* table, std::initializer_list<const char*> columns);

    void add(std::initializer_list<db::Value> values);
    /// The key that the database gave to the row added last, on any table of the connection.
    [[nodiscard]] int key() const;

  private:
    db::Connection& connection_;
    QString statement_;
};

/// The same for many rows, which wait until there are as many as go together well; finish() sends the rest.
class BatchWriter {
  public:
    BatchWriter(db::Connection& connection, const char* table, std::initializer_list<const char*> columns);

    void add(std::initializer_list<db::Value> values);
    /// The key that the row added last has, or will have once it is sent: rows are numbered in their order.
    [[nodiscard]] int key();
    /// Sends what waits. Throws std::runtime_error where a row was given another key than told.
    void finish();

  private:
    db::Connection& connection_;
    QString table_;
    QStringList columns_;
    std::vector<std::vector<db::Value>> waiting_;
    int added_ = 0;
    std::optional<int> keyBefore_;  ///< The first row's less one, once a key was asked for.
};

}  // namespace demo
