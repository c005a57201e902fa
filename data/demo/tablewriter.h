#pragma once

#include <initializer_list>

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

}  // namespace demo
