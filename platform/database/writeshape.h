#pragma once

#include <optional>
#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

#include "platform/database/value.h"

namespace db {

/// What an Insert, an Update or a Delete writes to, as the statement tells it.
struct WriteShape {
    enum class Verb { Insert, Update, Delete };
    /// A value as it stands in a statement: none for an expression, the number of its place, counted from 0, for a ?.
    using Written = std::variant<std::monostate, std::size_t, Value>;
    struct Assignment {
        QString column;
        Written value;
    };

    Verb verb = Verb::Insert;
    QString table;  ///< As it stands there, with its owner and its brackets.

    // Of an Update and a Delete.
    QString condition;             ///< What stands behind Where; empty where every row is meant.
    std::size_t placesBefore = 0;  ///< How many ? stand before the condition.
    std::vector<Assignment> assignments;

    // Of an Insert.
    QStringList columns;                     ///< Empty where the statement names none.
    std::vector<std::vector<Written>> rows;  ///< Of Values; none where a Select gives them.
    qsizetype valuesAt = 0;                  ///< Where Values or the Select begins.
};

/// The shape of a write to one table whose rows can be read by it: nothing for any other statement, nor for one with
/// Top, From besides the table's own, Output, Option, a hint, another name of the table, Default Values or Exec. What
/// is no statement at all may have a shape, too: it is for one that the database takes.
[[nodiscard]] std::optional<WriteShape> ShapeOfWrite(const QString& statement);

}  // namespace db
