#pragma once

#include <initializer_list>
#include <QString>
#include <QStringList>
#include <span>
#include <vector>

#include "platform/database/error.h"
#include "platform/database/value.h"

namespace db {

class Recordset;
class ResultTable;

/// The values of a row in the columns that are compared. They are read from the row, or made from the fields of a form
/// that shows it. Two states are equal when they have the same columns with the same values, in any order. The names of
/// columns are compared without regard to case.
///
/// A state without columns stands for a row that was never read. It differs from the state of every row.
class RowState {
  public:
    struct ColumnValue {
        QString column;
        Value value;
    };

    RowState() = default;
    RowState(std::initializer_list<ColumnValue> values);
    /// Takes the values of the cursor's current row, including changes that were not sent yet. Throws 3265 for an
    /// unknown column, 3021 without a current row and 3704 when the cursor is closed.
    RowState(const Recordset& row, std::span<const char* const> columns);
    /// Takes all columns of a row.
    RowState(const ResultTable& table, int row);

    /// Adds a column, or replaces the value of one that is there.
    void Set(const QString& column, const Value& value);
    /// Returns the columns in the order in which they were added.
    [[nodiscard]] const std::vector<ColumnValue>& Values() const { return values_; }
    /// Returns the value of a column, or null when the state does not have it. It is valid until the next Set.
    [[nodiscard]] const Value* Find(const QString& column) const;

    friend bool operator==(const RowState& left, const RowState& right);

  private:
    std::vector<ColumnValue> values_;
};

/// The error RowChangedError, with the columns that another desk changed.
class RowClash : public DatabaseError {
  public:
    explicit RowClash(QStringList changedColumns);

    QStringList columns;
};

/// The changes that a user made to a row, compared with the changes that another desk made meanwhile.
struct RowMerge {
    std::vector<RowState::ColumnValue> changes;  ///< The user's values, in the order of the user's state.
    QStringList clashes;                         ///< The columns that both changed to different values.
};

/// Compares three states of a row. `before` is the row as the user read it, `wanted` is the row as the user leaves it,
/// and `now` is the row as it is stored. A column that the user left alone is no change, whatever the row holds there
/// now. The same change at both desks is no clash. Throws std::logic_error when the three states do not have the same
/// columns.
[[nodiscard]] RowMerge Merge(const RowState& before, const RowState& wanted, const RowState& now);

/// Sets the user's changes in a row whose state is `now`; the other columns keep what the row holds. The caller calls
/// Update. Throws RowClash, and sets nothing, when both changed a column to different values. A change that another
/// desk makes after `now` was read is found by the cursor's Update.
void SetChanges(Recordset& row, const RowState& before, const RowState& wanted, const RowState& now);

/// Throws RowClash, with the columns whose values differ, when the two states are not equal. When the row was never
/// read, those are all columns. It is for a form that writes the whole row and not only its changes.
void RequireUnchanged(const RowState& before, const RowState& now);

}  // namespace db
