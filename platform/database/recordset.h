#pragma once

#include <array>
#include <QAnyStringView>
#include <QString>
#include <vector>

#include "platform/database/connection.h"
#include "platform/database/resulttable.h"

namespace db {

enum class Lock { ReadOnly = 1, Optimistic = 3 };

/// A client-side static cursor over one statement, read whole when it is opened.
///
/// With Lock::Optimistic the rows of a one-table statement can be changed, added and deleted. A change is collected by
/// Set, can be read at once, and is sent by Update; a change that was not sent is dropped when the cursor moves or
/// closes. An Update or Delete whose row was changed or removed by somebody else since it was read throws the cursor
/// service's error -2147217864 "Row cannot be located for updating. Some values may have been changed since it was last
/// read." and writes nothing. A failed Update leaves its changes to be mended by Set or given up by CancelUpdate. After
/// the Update of a new row its key and what the database filled in are readable.
///
/// Errors of its own: 3021 no current record, 3251 the rows cannot be written to, 3265 no such column, 3704 closed,
/// 3001 a criterion that cannot be read.
class Recordset {
  public:
    Recordset() = default;
    Recordset(const QString& statement, Connection& connection, Lock lock = Lock::ReadOnly) {
        Open(statement, connection, lock);
    }

    /// Reads anew when it was open before. The connection must outlive the cursor's writes. `maxRecords` above 0 reads
    /// no more than so many rows, for who wants the first of thousands.
    void Open(const QString& statement, Connection& connection, Lock lock = Lock::ReadOnly, int maxRecords = 0);
    void Close();
    [[nodiscard]] bool IsOpen() const { return connection_ != nullptr; }

    /// Past the last row; true at once for an empty result. (EOF itself is a macro of the C library.)
    [[nodiscard]] bool Eof() const { return !deleted_ && row_ >= table_.rowCount(); }
    [[nodiscard]] int RecordCount() const { return table_.rowCount(); }
    void MoveFirst();
    void MoveNext();
    /// Moves from the current row (itself included) to the next that meets "column operator value", with = <> < <= > >=
    /// or Like (% and _), text in single quotes (or #, for dates) with quotes doubled, or Null. Text compares without
    /// regard to case. No hit leaves the cursor at the end.
    void Find(const QString& criterion);

    /// A field of the current row, by name in any case or by ordinal from 0. "table.column" tells same-named columns of
    /// a join apart; a bare name that stands twice is the first. It is a look at the row: take its value before the
    /// cursor writes. An unknown name throws 3265 "Item cannot be found ...".
    [[nodiscard]] Field operator[](const QString& name) const;
    /// As quick as an ordinal after the first row: made for literals.
    [[nodiscard]] Field operator[](const char* name) const;
    [[nodiscard]] Field operator[](int ordinal) const;
    [[nodiscard]] bool HasColumn(const QString& name) const { return columnIndex(name) >= 0; }
    [[nodiscard]] const std::vector<Column>& Columns() const { return table_.columns(); }

    void AddNew();
    void Set(const QString& name, const Value& value) { setAt(writableColumn(name), value); }
    void Set(const char* name, const Value& value) { setAt(writableColumn(name), value); }
    /// Sends the columns whose value is another than before; with none it sends nothing.
    void Update();
    void CancelUpdate();
    /// The row is gone at once; the cursor stands between the rows until it moves.
    void Delete();

    /// All rows from the current one, each a vector of values in column order; the cursor stands at the end afterwards.
    [[nodiscard]] std::vector<std::vector<Value>> GetRows();

  private:
    /// A statement of the cursor's own with what its places take.
    struct Bound {
        QString statement;
        std::vector<Value> values;
    };
    struct Change {
        int column;
        Value before;
        Value after;  ///< As given: the row's own copy may not hold a date that is out of range.
    };
    /// Where a column comes from, as the statement tells it.
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
    /// Adds the condition that finds the current row by its key, and as it was read.
    void locate(Bound& bound, Compare compare) const;

    Connection* connection_ = nullptr;
    QString statement_;
    ResultTable table_;
    int row_ = 0;
    bool deleted_ = false;  ///< The current row was deleted; row_ is the one that followed it.

    QString baseTable_;                                ///< Empty where the rows cannot be written to.
    mutable std::vector<std::ptrdiff_t> baseColumns_;  ///< The base table's column for each of the result's.
    bool adding_ = false;
    int rowBeforeAdding_ = 0;
    std::vector<Change> changes_;

    mutable std::array<Hit, 128> hits_{};
    mutable std::vector<Origin> origins_;  ///< Of each column; looked for once a name asks for a table.
};

}  // namespace db
