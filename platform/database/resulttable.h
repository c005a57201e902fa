#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <vector>

#include "platform/database/value.h"

namespace db {

enum class ColumnType { Integer, Real, Text, DateTime, Boolean };

struct Column {
    QString name;   ///< As the statement names it.
    QString table;  ///< The base table where the engine knows it, else empty; tells same-named columns of a join apart.
    ColumnType type = ColumnType::Text;
};

class Field;

/// A result set read whole. Cells stay as the engine gave them (numbers, UTF-8) and are converted when read, since most
/// of the cost of a load is making texts that nobody looks at.
class ResultTable {
  public:
    explicit ResultTable(std::vector<Column> columns = {}) : columns_(std::move(columns)) {}

    // Filled cell by cell, row after row, in column order.
    void appendNull();
    void appendInteger(qint64 value);
    void appendReal(double value);
    /// Text, and date-times as ISO text (yyyy-MM-dd hh:mm:ss.zzz, the time left out where it is midnight).
    void appendText(QByteArrayView utf8);

    [[nodiscard]] int rowCount() const;
    [[nodiscard]] int columnCount() const { return static_cast<int>(columns_.size()); }
    [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
    [[nodiscard]] Field at(int row, int column) const;
    /// Replaces a cell: what Recordset::Update leaves behind in its own copy.
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
            qint64 offset;  ///< Into text_.
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

/// One cell, looked at in place. Valid while its table lives and does not change.
class Field {
  public:
    [[nodiscard]] bool isNull() const;
    [[nodiscard]] QString text() const;    ///< "" for null.
    [[nodiscard]] qint64 integer() const;  ///< 0 for null; text is read as the number at its start.
    [[nodiscard]] double real() const;
    [[nodiscard]] bool boolean() const;
    [[nodiscard]] QDate date() const;  ///< Invalid for null and for what is no date.
    [[nodiscard]] QDateTime dateTime() const;
    [[nodiscard]] Value value() const;  ///< Typed by the column.

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
