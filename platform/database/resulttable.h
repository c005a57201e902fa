#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <vector>

#include "platform/database/value.h"

namespace db {

enum class ColumnType { Integer, Real, Text, DateTime, Boolean };

struct Column {
    QString name;  ///< The name that the statement gives the column.
    /// The base table where the engine knows it, else empty. It tells apart the columns of a join with the same name.
    QString table;
    ColumnType type = ColumnType::Text;
};

class Field;

/// A result set that was read whole. Cells stay as the engine gave them (numbers, UTF-8) and are converted when they
/// are read, because most of the cost of a load is making texts that nobody looks at.
class ResultTable {
  public:
    explicit ResultTable(std::vector<Column> columns = {}) : columns_(std::move(columns)) {}

    // Cells are appended one by one, row after row, in column order.
    void appendNull();
    void appendInteger(qint64 value);
    void appendReal(double value);
    /// Appends text. Date-times are appended as ISO text (yyyy-MM-dd hh:mm:ss.zzz, without the time where it is
    /// midnight).
    void appendText(QByteArrayView utf8);

    [[nodiscard]] int rowCount() const;
    [[nodiscard]] int columnCount() const { return static_cast<int>(columns_.size()); }
    [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
    [[nodiscard]] Field at(int row, int column) const;
    /// Replaces a cell. Recordset::Update thus keeps its own copy of a row current.
    void set(int row, int column, const Value& value);
    void appendRow(const std::vector<Value>& row);
    void removeRow(int row);

  private:
    friend class Field;
    enum class Kind : unsigned char { Null, Integer, Real, Text };
    struct Cell {
        union {
            qint64 integer;
            double real;
            qint64 offset;  ///< The place in text_ at which the text begins.
        };
        int size;
        Kind kind;
    };
    [[nodiscard]] std::size_t cellIndex(int row, int column) const;
    static Cell nullCell();
    static Cell integerCell(qint64 value);
    static Cell realCell(double value);
    Cell textCell(QByteArrayView utf8);
    Cell cellOf(const Value& value);

    std::vector<Column> columns_;
    std::vector<Cell> cells_;
    QByteArray text_;
};

/// One cell of a ResultTable, read in place. It is valid while its table lives and does not change.
class Field {
  public:
    [[nodiscard]] bool isNull() const;
    [[nodiscard]] QString text() const;    ///< "" for null.
    [[nodiscard]] qint64 integer() const;  ///< 0 for null. A text is read as the number at its start.
    [[nodiscard]] double real() const;
    [[nodiscard]] bool boolean() const;
    [[nodiscard]] QDate date() const;  ///< Invalid for null and for a text that is no date.
    [[nodiscard]] QDateTime dateTime() const;
    [[nodiscard]] Value value() const;  ///< The value in the type of the column.

  private:
    friend class ResultTable;
    Field(const ResultTable& table, const ResultTable::Cell& cell, ColumnType type)
        : table_(&table), cell_(&cell), type_(type) {}
    [[nodiscard]] QByteArrayView utf8() const;
    [[nodiscard]] Value textValue() const;

    const ResultTable* table_;
    const ResultTable::Cell* cell_;
    ColumnType type_;
};

}  // namespace db
