#include "data/demo/tablewriter.h"

#include <stdexcept>

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

BatchWriter::BatchWriter(db::Connection& connection, const char* table, std::initializer_list<const char*> columns)
    : connection_(connection), table_(QLatin1String(table)) {
    for (const char* column : columns)
        columns_ << QLatin1String(column);
}

void BatchWriter::add(std::initializer_list<db::Value> values) {
    constexpr std::size_t together = 500;
    waiting_.emplace_back(values);
    ++added_;
    if (waiting_.size() == together)
        finish();
}

int BatchWriter::key() {
    if (!keyBefore_) {
        finish();
        keyBefore_ = static_cast<int>(connection_.LastIdentity()) - added_;
    }
    return *keyBefore_ + added_;
}

void BatchWriter::finish() {
    if (waiting_.empty())
        return;
    connection_.InsertRows(table_, columns_, waiting_);
    waiting_.clear();
    if (keyBefore_ && connection_.LastIdentity() != *keyBefore_ + added_)
        throw std::runtime_error("Rows of " + table_.toStdString() + " were given other keys than in their order.");
}

}  // namespace demo
