#pragma once

#include <optional>
#include <QString>
#include <vector>

#include "platform/database/rowmerge.h"

namespace db {

/// What a write made of one row.
struct RowChange {
    RowState key;                    ///< The columns that tell the row from others, as they were before an Update.
    std::optional<RowState> before;  ///< All columns; none for a row that was added.
    std::optional<RowState> after;   ///< None for a row that was deleted.
};

/// A write that went through, as an observer of the connection sees it.
struct Write {
    QString statement;  ///< As sent, a Recordset's own with its places as ?.
    QString table;      ///< The table written to.
    qint64 rows = 0;
    /// Whether `changes` tells every row that was written to. It tells none of them otherwise.
    bool rowsAreTold = false;
    std::vector<RowChange> changes;  ///< In the order of the table's key.
};

}  // namespace db
