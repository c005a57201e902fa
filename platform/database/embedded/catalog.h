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
    int keyPlace = 0;  ///< The place within the primary key, from 1; 0 outside it.
};

struct Table {
    std::string name;  ///< The name in the letters of Create Table.
    std::vector<TableColumn> columns;

    /// Returns the column of that name in any case, or null.
    [[nodiscard]] const TableColumn* find(std::string_view column) const;
};

/// The tables of one open file. Each is read when it is first asked for.
class Catalog {
  public:
    /// `fail` is called when the file cannot be read. It throws the error that the database reports.
    Catalog(sqlite3* database, std::function<void()> fail) : database_(database), fail_(std::move(fail)) {}

    /// Returns a table by its name. Throws DatabaseError 208 "Invalid object name ..." for an unknown table.
    std::shared_ptr<const Table> table(std::string_view name);
    /// Forgets all tables. It is called after a statement that changes the schema.
    void forget() { tables_.clear(); }

  private:
    std::shared_ptr<const Table> read(std::string_view name);

    sqlite3* database_;
    std::function<void()> fail_;
    std::unordered_map<std::string, std::shared_ptr<const Table>> tables_;
};

}  // namespace db::embedded
