// The telling of writes to the observer of a connection.

#include <optional>
#include <QLoggingCategory>
#include <QScopedValueRollback>
#include <utility>

#include "platform/database/connection.h"
#include "platform/database/transaction.h"
#include "platform/database/waiting.h"
#include "platform/database/writeshape.h"
#include "platform/database/writtenrows.h"

namespace db {

namespace {

Q_LOGGING_CATEGORY(writeLog, "svscheduler.writes", QtWarningMsg)

}  // namespace

void Connection::Observe(std::function<void(const Write&)> observer, Told told, TellsRowsOf tellsRows) {
    observer_ = std::move(observer);
    told_ = told;
    tellsRows_ = std::move(tellsRows);
}

Write Connection::send(const QString& statement, const std::vector<Value>& bound, const QString& table) {
    Write write{statement, table, 0, false, {}};
    const bool tellsRows = observer_ && told_ != Told::Statements && !telling_;
    std::optional<WriteShape> shape = tellsRows ? ShapeOfWrite(statement) : std::nullopt;
    if (shape && tellsRows_ && !tellsRows_(*shape, bound))
        shape.reset();
    std::optional<TableInfo> info;
    if (shape)
        Ignoring([&] { info = describe(table); });
    if (!info || info->RowKey().empty())
        write.rows = sendAlone(statement, bound);
    else if (told_ == Told::RowsBefore)
        sendAfterReading(write, bound, *shape, *info);
    else if (transaction_ == Transaction::None)
        InTransaction(*this, [&] { sendObserved(write, bound, *shape, *info); });
    else
        sendObserved(write, bound, *shape, *info);
    return write;
}

template <typename Step>
bool Connection::readsFor(const Write& write, Step&& step) {
    const Transaction before = transaction_;
    try {
        step();
        return true;
    } catch (const DatabaseError& error) {
        if (IsUnanswered(error) || transaction_ != before)
            throw DatabaseError(error.number, error.description, write.statement, error.sqlState);
        return false;
    }
}

void Connection::sendAfterReading(Write& write, const std::vector<Value>& bound, const WriteShape& shape,
                                  const TableInfo& info) {
    WrittenRows rows(*this, {write.statement, bound, shape, info});
    const bool isRead = shape.verb != WriteShape::Verb::Insert && readsFor(write, [&] { rows.readBefore(); });
    write.rows = sendAlone(write.statement, bound);
    if (!isRead)
        return;
    write.changes = rows.changesBefore();
    write.rowsAreTold = static_cast<qint64>(write.changes.size()) == write.rows;
}

void Connection::sendObserved(Write& write, const std::vector<Value>& bound, const WriteShape& shape,
                              const TableInfo& info) {
    WrittenRows rows(*this, {write.statement, bound, shape, info});
    const bool isRead = readsFor(write, [&] { rows.readBefore(); });
    write.rows = rows.send();
    if (isRead && readsFor(write, [&] { rows.readAfter(); }))
        write.changes = rows.changes();
    write.rowsAreTold = static_cast<qint64>(write.changes.size()) == write.rows;
    if (!write.rowsAreTold)
        write.changes.clear();
}

void Connection::tellTables(const QStringList& tables) {
    const auto tell = tellWritten_;  // The routine may call OnWritten.
    for (const QString& table : tables)
        if (tell)
            tell(table);
}

void Connection::written(Write write) {
    if (transaction_ != Transaction::None)
        untoldTables_ << write.table;
    else
        tellTables({write.table});
    if (!observer_ || telling_)
        return;
    if (transaction_ != Transaction::None)
        untold_.push_back(std::move(write));
    else
        tell(write);
}

void Connection::tell(const Write& write) {
    std::optional<qint64> identity = identity_;
    if (!identity && engine_)
        Ignoring([&] { identity = LastIdentity(); });
    const auto observer = observer_;  // The observer may call Observe.
    const QScopedValueRollback<bool> telling(telling_, true);
    try {
        observer(write);
    } catch (...) {
        // The caller would take the exception for a failure of the write.
        qCWarning(writeLog) << "An observer of the writes failed.";
    }
    identity_ = identity;
}

}  // namespace db
