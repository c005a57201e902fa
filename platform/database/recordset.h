#pragma once

#include <array>
#include <QAnyStringView>
#include <QString>
#include <vector>

#include "platform/database/connection.h"
#include "platform/database/resulttable.h"

namespace db {

enum class Lock { ReadOnly = 1, Optimistic = 3 };

/// A client-side static cursor over the result of one statement. Open reads the whole result.
///
/// With Lock::Optimistic the rows of a statement over one table can be changed, added and deleted. Set collects a
/// change, which can be read at once; Update sends it. A change that was not sent is dropped when the cursor moves or
/// closes. When somebody else changed or removed the row since it was read, Update and Delete throw the cursor
/// service's error -2147217864 "Row cannot be located for updating. Some values may have been changed since it was last
/// read." and write nothing. A failed Update keeps its changes, so that the caller can mend them by Set or give them up
/// by CancelUpdate. After the Update of a new row, its key and the values that the database filled in can be read.
///
/// The cursor itself throws these errors: 3001 when a criterion cannot be read, 3021 when there is no current record,
/// 3251 when the rows cannot be written to, 3265 when there is no such column, 3704 when the cursor is closed.
class Recordset {
  public:
    Recordset() = default;
    Recordset(const QString& statement, Connection& connection, Lock lock = Lock::ReadOnly) {
        Open(statement, connection, lock);
    }

    /// Reads the result of the statement. A cursor that was open before is closed first. The connection must outlive
    /// the cursor's writes, and its look-ups by "table.column". A `maxRecords` above 0 limits the number of rows that
    /// are read; 0 reads all.
    void Open(const QString& statement, Connection& connection, Lock lock = Lock::ReadOnly, int maxRecords = 0);
    void Close();
    [[nodiscard]] bool IsOpen() const { return connection_ != nullptr; }

    /// Whether the cursor stands past the last row, as it does at once in an empty result. (The name EOF is a macro of
    /// the C library.)
    [[nodiscard]] bool Eof() const { return !deleted_ && row_ >= table_.rowCount(); }
    [[nodiscard]] int RecordCount() const { return table_.rowCount(); }
    void MoveFirst();
    void MoveNext();
    /// Moves to the first row that meets the criterion, beginning with the current row. The cursor stands at the end
    /// when no row meets it. A criterion is "column operator value". The operator is = <> < <= > >= or Like (with % and
    /// _). The value is a number, a text in single quotes (quotes in it are doubled), a date in # signs, or Null. Text
    /// is compared without regard to case.
    void Find(const QString& criterion);

    /// Returns a field of the current row, by name in any case or by ordinal from 0. "table.column" tells the columns
    /// of a join apart that have the same name; the bare name means the first of them. The field refers to the row, so
    /// its value must be taken before the cursor writes. An unknown name throws 3265 "Item cannot be found ...".
    [[nodiscard]] Field operator[](const QString& name) const;
    /// The same for a literal, whose column is remembered: after the first row it is as quick as an ordinal.
    [[nodiscard]] Field operator[](const char* name) const;
    [[nodiscard]] Field operator[](int ordinal) const;
    [[nodiscard]] bool HasColumn(const QString& name) const { return columnIndex(name) >= 0; }
    [[nodiscard]] const std::vector<Column>& Columns() const { return table_.columns(); }

    void AddNew();
    void Set(const QString& name, const Value& value) { setAt(writableColumn(name), value); }
    void Set(const char* name, const Value& value) { setAt(writableColumn(name), value); }
    /// Sends the columns whose value has changed. When none has, it sends nothing.
    void Update();
    void CancelUpdate();
    /// Deletes the current row at once. The cursor then stands between two rows until it moves.
    void Delete();

    /// Returns the rows from the current one to the last, each with its values in the order of the columns. The cursor
    /// stands at the end afterwards.
    [[nodiscard]] std::vector<std::vector<Value>> GetRows();

  private:
    /// A statement that the cursor made, with the values for its ? in order.
    struct Bound {
        QString statement;
        std::vector<Value> values;
    };
    struct Change {
        int column;
        Value before;
        Value after;  ///< The value as Set got it. The row cannot hold a date that is out of range.
    };
    /// The table that a column comes from, as the statement names it.
    struct Origin {
        QString alias;
        QString table;
    };
    struct Hit {
        const char* name = nullptr;
        int column = -1;
    };

    [[nodiscard]] int columnIndex(QAnyStringView name) const;
    [[nodiscard]] int columnOfTable(const QString& table, const QString& name) const;
    void requireRow() const;

    // Writing.
    enum class Compare { Key, AllValues };
    [[nodiscard]] int writableColumn(QAnyStringView name) const;
    void setAt(int column, const Value& value);
    void requireWritable() const;
    void dropChanges();
    [[nodiscard]] const TableInfo& base() const;
    [[nodiscard]] const ColumnInfo* baseColumn(int column) const;
    [[nodiscard]] Value before(int column) const;
    [[nodiscard]] bool isChanged(const Change& change) const;
    void insertRow();
    void updateRow(const std::vector<Change>& changed);
    Write send(const Bound& bound);
    void rereadRow();
    /// Adds the condition that finds the current row by its key, and with Compare::AllValues also by the values that
    /// were read.
    void locate(Bound& bound, Compare compare) const;

    Connection* connection_ = nullptr;
    QString statement_;
    ResultTable table_;
    int row_ = 0;
    bool deleted_ = false;  ///< The current row was deleted, and row_ is the row that followed it.

    QString baseTable_;                                ///< Empty when the rows cannot be written to.
    mutable std::vector<std::ptrdiff_t> baseColumns_;  ///< The column of the base table for each column of the result.
    bool adding_ = false;
    int rowBeforeAdding_ = 0;
    std::vector<Change> changes_;

    mutable std::array<Hit, 128> hits_{};
    mutable std::vector<Origin> origins_;  ///< The origin of each column, found when a name first asks for a table.
};

}  // namespace db
