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

/// What a row holds in the columns that count, as typed values: read from the row, or made of what stands for it on a
/// form. Two states are equal where they have the same columns with the same values, in any order. Columns are named in
/// any case.
///
/// A state without columns is that of a row that nobody has read: it is no row's own.
class RowState {
  public:
    struct ColumnValue {
        QString column;
        Value value;
    };

    RowState() = default;
    RowState(std::initializer_list<ColumnValue> values);
    /// Of the cursor's current row, with its changes that were not sent yet. Throws what reading a field throws.
    RowState(const Recordset& row, std::span<const char* const> columns);

    /// Adds a column, or gives it another value.
    void Set(const QString& column, const Value& value);
    /// The part of it in these columns; one that it does not have is left out.
    [[nodiscard]] RowState In(std::initializer_list<const char*> columns) const;
    /// In the order in which they came.
    [[nodiscard]] const std::vector<ColumnValue>& Values() const { return values_; }
    /// Null where it has no such column.
    [[nodiscard]] const Value* Find(const QString& column) const;

    friend bool operator==(const RowState& left, const RowState& right);

  private:
    std::vector<ColumnValue> values_;
};

/// The cursor service's error of a row that another desk changed, in its own words, with the columns that both changed.
class RowClash : public DatabaseError {
  public:
    explicit RowClash(QStringList changedByBoth);

    QStringList columns;
};

/// What a user made of a row, against what another desk may have made of it meanwhile.
struct RowMerge {
    std::vector<RowState::ColumnValue> changes;  ///< What the user changed, in the order of the user's state.
    QStringList clashes;                         ///< The columns of it that the row now holds with a third value.
};

/// `before` is the row as the user had read it, `wanted` as the user leaves it, `now` as it stands. What the user left
/// alone is no change, whatever the row holds of it now; the same change at both desks is no clash. The three have the
/// same columns, else std::logic_error.
[[nodiscard]] RowMerge Merge(const RowState& before, const RowState& wanted, const RowState& now);

/// Sets in a row, whose state is `now`, what the user changed, and leaves the rest as the row holds it. Nothing is set
/// where there is a clash: throws RowClash. Sending it is up to the caller: what another desk does between the read of
/// the row and its Update is the cursor's to find out.
void SetChanges(Recordset& row, const RowState& before, const RowState& wanted, const RowState& now);

/// For who writes whole what was read, and not changes of it. Throws RowClash with the columns that are another than
/// they were read, all of them where nothing was read.
void RequireUnchanged(const RowState& before, const RowState& now);

}  // namespace db
