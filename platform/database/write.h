#pragma once

#include <optional>
#include <QString>
#include <vector>

#include "platform/database/rowmerge.h"

namespace db {

/// What a write changed in one row.
struct RowChange {
    RowState key;  ///< The columns of the key. An Update that sets them tells them as they were before.
    std::optional<RowState> before;  ///< All columns before the write. An inserted row has none.
    std::optional<RowState> after;   ///< All columns after the write. A deleted row has none.
};

/// A write that succeeded, as Connection::Observe tells it.
struct Write {
    QString statement;  ///< The statement as it was sent. A Recordset's own has its places as ?.
    QString table;      ///< The table written to.
    qint64 rows = 0;
    /// True when `changes` holds every row that was written to. Otherwise it holds none.
    bool rowsAreTold = false;
    std::vector<RowChange>
        changes;  ///< The rows in the order of the table's key; keys that an Insert gave itself, by hundreds.
};

}  // namespace db
