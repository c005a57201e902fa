#pragma once

#include <sqlite3.h>
#include <memory>
#include <string_view>

namespace db::embedded {

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Returns null when the text does not compile. The database then holds the error.
inline StatementHandle Prepare(sqlite3* database, std::string_view sql, unsigned flags = 0) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()), flags, &statement, nullptr);
    return StatementHandle(statement);
}

/// Returns the text of a column in the current row, "" for null.
inline std::string_view ColumnText(sqlite3_stmt* statement, int column) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    return bytes ? std::string_view(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)))
                 : std::string_view();
}

}  // namespace db::embedded
