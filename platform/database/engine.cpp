#include "platform/database/engine.h"

#include "platform/database/error.h"

namespace db {

std::vector<ResultTable> Engine::queryTogether(const QStringList& statements) {
    std::vector<ResultTable> tables;
    Ignoring([&] {
        for (const QString& statement : statements)
            tables.push_back(query(statement));
    });
    return tables;
}

}  // namespace db
