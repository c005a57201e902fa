#pragma once

#include <initializer_list>
#include <optional>
#include <QStringList>
#include <vector>

#include "platform/database/connection.h"

namespace demo {

/// Adds rows to one table of an open connection, by bound values. The columns are named once, and the values follow in
/// their order.
class TableWriter {
  public:
    TableWriter(db::Connection& connection, const char* table, std::initializer_list<const char*> columns);

    void add(std::initializer_list<db::Value> values);
    /// Returns the key that the database assigned to the row added last, on any table of the connection.
    [[nodiscard]] int key() const;

  private:
    db::Connection& connection_;
    QString statement_;
};

/// Adds many rows to a table. The rows wait until enough can be sent together; finish() sends the rest.
class BatchWriter {
  public:
    BatchWriter(db::Connection& connection, const char* table, std::initializer_list<const char*> columns);

    void add(std::initializer_list<db::Value> values);
    /// Returns the key that the row added last has or will have when it is sent. Rows are numbered in their order.
    [[nodiscard]] int key();
    /// Sends the rows that wait. Throws std::runtime_error when a row was given another key than key() announced.
    void finish();

  private:
    db::Connection& connection_;
    QString table_;
    QStringList columns_;
    std::vector<std::vector<db::Value>> waiting_;
    int added_ = 0;
    std::optional<int> keyBefore_;  ///< The key before the first row's, once a key was asked for.
};

}  // namespace demo
