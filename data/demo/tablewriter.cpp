#include "data/demo/tablewriter.h"

namespace demo {

TableWriter::TableWriter(db::Connection& connection, const char* table, std::initializer_list<const char*> columns)
    : connection_(connection) {
    QStringList names;
    for (const char* column : columns)
        names << QStringLiteral("[%1]").arg(QLatin1String(column));
    const QStringList places(names.size(), QStringLiteral("?"));
    statement_ = QStringLiteral("Insert Into [%1] (%2) Values (%3)")
                     .arg(QLatin1String(table), names.join(QStringLiteral(", ")), places.join(QStringLiteral(", ")));
}

void TableWriter::add(std::initializer_list<db::Value> values) {
    connection_.Execute(statement_, values);
}

int TableWriter::key() const {
    return static_cast<int>(connection_.LastIdentity());
}

}  // namespace demo
