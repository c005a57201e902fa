#include "platform/database/error.h"

#include <utility>

namespace db {

DatabaseError::DatabaseError(int errorNumber, QString errorDescription, QString failedStatement, QString state)
    : number(errorNumber),
      description(std::move(errorDescription)),
      statement(std::move(failedStatement)),
      sqlState(std::move(state)),
      utf8_(description.toUtf8()) {}

}  // namespace db
