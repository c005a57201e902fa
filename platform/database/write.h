#pragma once

#include <optional>
#include <QString>
#include <vector>

#include "platform/database/rowmerge.h"

namespace db {

/// What a write changed in one row.
struct RowChange {
    RowState key;                    ///< The key before the write. For an inserted row, the key it got.
    std::optional<RowState> before;  ///< All columns before the write. An inserted row has none.
    /// All columns after the write. A deleted row has none, nor has any row with Told::RowsBefore.
    std::optional<RowState> after;
};

/// A write that succeeded, as Connection::Observe tells it.
struct Write {
    QString statement;  ///< The statement as it was sent. One that a Recordset made has ? for its values.
    QString table;      ///< The table written to.
    qint64 rows = 0;
    /// True when `changes` holds every row that was written to. Otherwise `changes` is empty, or with Told::RowsBefore
    /// holds the rows that were to be written to.
    bool rowsAreTold = false;
    /// The rows in the order of the table's key. The rows of an Insert that gives the keys itself are read a hundred at
    /// a time, and only each hundred is in this order.
    std::vector<RowChange> changes;
};

}  // namespace db
