#pragma once

#include <memory>
#include <QString>
#include <vector>

#include "platform/database/connection.h"
#include "platform/database/resulttable.h"

namespace db {

enum class Lock { ReadOnly = 1, Optimistic = 3 };

/// A client-side static cursor over one statement, read whole when it is opened.
///
/// With Lock::Optimistic the rows of a one-table statement can be changed, added and deleted. A change is collected by
/// Set and sent by Update. An Update or Delete whose row was changed or removed by somebody else since it was read
/// throws the cursor service's error -2147217864 "Row cannot be located for updating. Some values may have been changed
/// since it was last read." and writes nothing. After the Update of a new row its key is readable.
class Recordset {
  public:
    Recordset() = default;
    Recordset(const QString& statement, Connection& connection, Lock lock = Lock::ReadOnly) {
        Open(statement, connection, lock);
    }

    void Open(const QString& statement, Connection& connection, Lock lock = Lock::ReadOnly);
    void Close();

    /// Past the last row; true at once for an empty result. (EOF itself is a macro of the C library.)
    [[nodiscard]] bool Eof() const { return row_ >= table_.rowCount(); }
    [[nodiscard]] int RecordCount() const { return table_.rowCount(); }
    void MoveFirst() { row_ = 0; }
    void MoveNext() { ++row_; }
    /// Moves from the current row (itself included) to the next that meets "column operator value", with = <> < <= > >=
    /// or Like, text in single quotes (or #, for dates) with quotes doubled. No hit leaves the cursor at the end.
    void Find(const QString& criterion);

    /// A field of the current row, by name in any case or by ordinal from 0. "table.column" tells same-named columns of
    /// a join apart; a bare name that stands twice is the first. An unknown name throws 3265 "Item cannot be found
    /// ...".
    [[nodiscard]] Field operator[](const QString& name) const;
    [[nodiscard]] Field operator[](const char* name) const { return (*this)[QString::fromLatin1(name)]; }
    [[nodiscard]] Field operator[](int ordinal) const;
    [[nodiscard]] bool HasColumn(const QString& name) const;
    [[nodiscard]] const std::vector<Column>& Columns() const { return table_.columns(); }

    void AddNew();
    void Set(const QString& name, const Value& value);
    void Set(const char* name, const Value& value) { Set(QString::fromLatin1(name), value); }
    void Update();
    void CancelUpdate();
    void Delete();

    /// All rows from the current one, each a vector of values in column order; the cursor stands at the end afterwards.
    [[nodiscard]] std::vector<std::vector<Value>> GetRows();

  private:
    struct Change {
        int column;
        Value value;
    };
    [[nodiscard]] int columnIndex(const QString& name) const;

    Connection* connection_ = nullptr;
    Lock lock_ = Lock::ReadOnly;
    QString baseTable_;
    ResultTable table_;
    int row_ = 0;
    bool adding_ = false;
    std::vector<Change> changes_;
};

}  // namespace db
