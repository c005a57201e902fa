#pragma once

#include <vector>

#include "platform/database/engine.h"
#include "platform/database/write.h"
#include "platform/database/writeshape.h"

namespace db {

class Connection;

/// Reads the rows of one write before and after it, within the transaction that is open.
class WrittenRows {
  public:
    /// The statement, its values, its shape and its table. All four must outlive the WrittenRows.
    struct Sent {
        const QString& statement;
        const std::vector<Value>& bound;
        const WriteShape& shape;
        const TableInfo& table;
    };

    WrittenRows(Connection& connection, const Sent& sent);

    // These three are called in this order.
    void readBefore();
    /// Sends the statement and returns how many rows it wrote.
    qint64 send();
    void readAfter();
    /// Returns the change of every row that was found. Returns nothing when one of them was not found after the write.
    [[nodiscard]] std::vector<RowChange> changes() const;
    /// Returns the rows that readBefore found, as they were then.
    [[nodiscard]] std::vector<RowChange> changesBefore() const;

  private:
    using Key = std::vector<Value>;

    [[nodiscard]] bool isInsert() const { return sent_.shape.verb == WriteShape::Verb::Insert; }
    [[nodiscard]] bool isNumbered() const;
    [[nodiscard]] std::optional<Value> plainValue(const WriteShape::Written& written, const QString& column) const;
    [[nodiscard]] Value typed(const Value& value, const QString& column) const;
    [[nodiscard]] QString order() const;
    void readByCondition();
    void takeInsertedKeys();
    [[nodiscard]] std::vector<Key> keysOfSelect(const std::vector<qsizetype>& places);
    [[nodiscard]] std::vector<Key> keysOfValues(const std::vector<qsizetype>& places) const;
    void takeUpdatedKeys();
    [[nodiscard]] std::vector<RowState> rowsOf(const std::vector<Key>& keys);
    [[nodiscard]] Key keyOf(const RowState& row) const;
    [[nodiscard]] RowState keyStateOf(const RowState& row) const;

    Connection& connection_;
    Sent sent_;
    std::vector<QString> key_;  ///< The names of the columns of the table's key.
    std::vector<RowState> before_;
    std::vector<Key> keysAfter_;  ///< The keys by which the rows are read after the write.
    std::vector<RowState> after_;
};

}  // namespace db
