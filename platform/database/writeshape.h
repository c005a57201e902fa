#pragma once

#include <optional>
#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

#include "platform/database/value.h"

namespace db {

/// The parts of an Insert, an Update or a Delete that tell which rows it writes to.
struct WriteShape {
    enum class Verb { Insert, Update, Delete };
    /// A value of the statement. It is empty for an expression. For a ? it is the number of that ?, counted from 0.
    using Written = std::variant<std::monostate, std::size_t, Value>;
    struct Assignment {
        QString column;
        Written value;
    };

    Verb verb = Verb::Insert;
    QString table;  ///< The table as it is written in the statement, with owner and brackets.

    // Of an Update and a Delete.
    QString condition;             ///< The text behind Where. It is empty when the statement has no Where.
    std::size_t placesBefore = 0;  ///< The number of ? before the condition.
    std::vector<Assignment> assignments;

    // Of an Insert.
    QStringList columns;                     ///< The columns of the Insert. It is empty when the statement names none.
    std::vector<std::vector<Written>> rows;  ///< The rows of Values. It is empty when the rows come from a Select.
    qsizetype valuesAt = 0;                  ///< The position at which Values or the Select begins.
};

/// Returns the shape of a write to one table. Returns nothing for any other statement, and for a write with Top, with a
/// second From, Output, Option, a hint, an alias of the table, Default Values or Exec. The statement is not checked: a
/// shape may also be returned for one that the database will refuse.
[[nodiscard]] std::optional<WriteShape> ShapeOfWrite(const QString& statement);

}  // namespace db
