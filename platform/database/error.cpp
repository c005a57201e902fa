#include "platform/database/error.h"

#include <utility>

namespace db {

DatabaseError::DatabaseError(int errorNumber, QString errorDescription, QString failedStatement, QString state)
    : number(errorNumber),
      description(std::move(errorDescription)),
      statement(std::move(failedStatement)),
      sqlState(std::move(state)),
      utf8_(description.toUtf8()) {}

bool IsLinkFailure(const DatabaseError& error) {
    return error.sqlState.startsWith(QLatin1String("08"));
}

DatabaseError RowChangedError(QString failedStatement) {
    return {
        RowChanged,
        QStringLiteral("Row cannot be located for updating. Some values may have been changed since it was last read."),
        std::move(failedStatement)};
}

}  // namespace db
