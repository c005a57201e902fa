#include "platform/database/embedded/catalog.h"

#include <algorithm>

#include "platform/database/embedded/names.h"
#include "platform/database/embedded/sqlitehandle.h"
#include "platform/database/error.h"

namespace db::embedded {

const TableColumn* Table::find(std::string_view column) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [column](const TableColumn& each) { return SameName(each.name, column); });
    return found == columns.end() ? nullptr : &*found;
}

std::shared_ptr<const Table> Catalog::table(std::string_view name) {
    const std::string key = LowerName(name);
    if (const auto known = tables_.find(key); known != tables_.end())
        return known->second;
    auto found = read(name);
    if (!found)
        throw DatabaseError(208, QStringLiteral("Invalid object name '%1'.").arg(ToQt(name)));
    tables_.emplace(key, found);
    return found;
}

std::shared_ptr<const Table> Catalog::read(std::string_view name) {
    const auto statement = Prepare(
        database_,
        "Select m.name, c.name, c.type, c.\"notnull\", c.pk From sqlite_master m, pragma_table_info(m.name) c Where m.type In ('table', 'view') And m.name = ? Collate nocase And m.name Not Like 'sqlite_%'");
    if (!statement)
        fail_();
    sqlite3_bind_text(statement.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    auto table = std::make_shared<Table>();
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
        table->name = ColumnText(statement.get(), 0);
        TableColumn column;
        column.name = ColumnText(statement.get(), 1);
        const std::string_view declared = ColumnText(statement.get(), 2);
        column.type = ReadDeclaredType(declared);
        column.keyPlace = sqlite3_column_int(statement.get(), 4);
        // Only a column that is SQLite's row id is declared INTEGER. SQLite assigns its values.
        column.identity = column.keyPlace > 0 && declared == "INTEGER";
        column.nullable = sqlite3_column_int(statement.get(), 3) == 0 && column.keyPlace == 0;
        table->columns.push_back(std::move(column));
    }
    if (code != SQLITE_DONE)
        fail_();
    return table->columns.empty() ? nullptr : table;
}

}  // namespace db::embedded
