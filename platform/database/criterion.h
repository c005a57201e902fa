#pragma once

#include <QString>

#include "platform/database/resulttable.h"

namespace db {

/// A condition on one column, as Recordset::Find reads it: "column operator value".
class Criterion {
  public:
    /// Throws DatabaseError 3001 when the text cannot be read.
    explicit Criterion(const QString& text);

    [[nodiscard]] const QString& column() const { return column_; }
    /// Whether the field meets the condition. A null field meets only "= Null", and a field with a value meets "<>
    /// Null". A null field never meets "<>" with a value, and a
    /// field of a date-time column meets nothing with a value that is no date.
    [[nodiscard]] bool isMetBy(const Field& field, ColumnType type) const;

  private:
    enum class Operator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like };
    [[nodiscard]] bool holds(int order) const;

    QString column_;
    Operator operator_ = Operator::Equal;
    Value value_;
};

}  // namespace db
