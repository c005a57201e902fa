#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/database/embedded/sqltype.h"

struct sqlite3;

namespace db::embedded {

struct TableColumn {
    std::string name = {};
    SqlType type = {};
    bool nullable = true;
    bool identity = false;
    int keyPlace = 0;  ///< From 1 within the primary key; 0 outside.
};

struct Table {
    std::string name;  ///< As created.
    std::vector<TableColumn> columns;

    /// Null for none of that name.
    [[nodiscard]] const TableColumn* find(std::string_view column) const;
};

/// The tables of one open file, each read when it is first asked for.
class Catalog {
  public:
    /// `fail` is called where the file cannot be read, and throws what its database says of that.
    Catalog(sqlite3* database, std::function<void()> fail) : database_(database), fail_(std::move(fail)) {}

    /// Throws DatabaseError 208 "Invalid object name ..." for an unknown table.
    std::shared_ptr<const Table> table(std::string_view name);
    /// After a statement that changes the schema.
    void forget() { tables_.clear(); }

  private:
    std::shared_ptr<const Table> read(std::string_view name);

    sqlite3* database_;
    std::function<void()> fail_;
    std::unordered_map<std::string, std::shared_ptr<const Table>> tables_;
};

}  // namespace db::embedded
