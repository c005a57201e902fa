#include "observed.h"

using db::RowState;
using db::Value;
using db::Write;

QString valuesOf(const std::optional<RowState>& row, std::initializer_list<const char*> columns) {
    if (!row)
        return QStringLiteral("(none)");
    QStringList values;
    for (const char* column : columns) {
        const Value* value = row->Find(QString::fromUtf8(column));
        values << (value ? value->isNull() ? QStringLiteral("Null") : value->text() : QStringLiteral("(no column)"));
    }
    return values.join(QLatin1Char(' '));
}

namespace {

/// A write as "key: before -> after" for each row, in the columns that the tests write to.
QStringList rowsOf(const Write& write) {
    QStringList lines;
    for (const db::RowChange& change : write.changes) {
        QStringList key;
        for (const RowState::ColumnValue& each : change.key.Values())
            key << each.value.text();
        const auto state = [&](const std::optional<RowState>& row) {
            return write.table.compare(QLatin1String("Visits"), Qt::CaseInsensitive) == 0
                       ? valuesOf(row, {"cappttext", "nStartTime"})
                       : valuesOf(row, {"nkeyid", "clinicianid"});
        };
        lines << QStringLiteral("%1: %2 -> %3")
                     .arg(key.join(QLatin1Char(' ')), state(change.before), state(change.after));
    }
    return lines;
}

}  // namespace

QStringList told(const std::vector<Write>& writes) {
    QStringList lines;
    for (const Write& write : writes)
        lines << rowsOf(write);
    return lines;
}
