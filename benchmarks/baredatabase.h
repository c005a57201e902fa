#pragma once

#include <string>

struct sqlite3;

/// The limit: the engine library with nothing around it but the collations that the file needs. Each statement is
/// prepared, stepped and every cell of every row read.
class BareDatabase {
  public:
    explicit BareDatabase(const std::string& file);
    ~BareDatabase();
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;

    /// Reads or writes, a write in a transaction of its own. Returns the number of rows; a statement that fails ends
    /// the program with its message.
    int read(const std::string& statement);

  private:
    sqlite3* handle_ = nullptr;
};
