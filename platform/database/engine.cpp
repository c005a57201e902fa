#include "platform/database/engine.h"

#include "platform/database/error.h"

namespace db {

std::vector<QString> TableInfo::RowKey() const {
    if (keyColumns.empty() && !identityColumn.isEmpty())
        return {identityColumn};
    return keyColumns;
}

// Nobody else can insert meanwhile, so the keys follow one another.
Numbered Engine::insertNumbered(const QString& statement, qsizetype /*valuesAt*/, const QString& /*identityColumn*/,
                                const std::vector<Value>& bound) {
    Numbered inserted;
    inserted.rows = execute(statement, bound);
    const qint64 last = inserted.rows > 0 ? lastIdentity() : 0;
    for (qint64 key = last - inserted.rows + 1; key <= last && inserted.rows > 0; ++key)
        inserted.keys.push_back(key);
    return inserted;
}

std::vector<ResultTable> Engine::queryTogether(const QStringList& statements) {
    std::vector<ResultTable> tables;
    Ignoring([&] {
        for (const QString& statement : statements)
            tables.push_back(query(statement));
    });
    return tables;
}

}  // namespace db
