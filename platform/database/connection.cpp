#include "platform/database/connection.h"

#include <utility>

#include "platform/database/connectiontext.h"
#include "platform/database/statement.h"

namespace db {

Connection::~Connection() {
    Close();
}

void Connection::Open(const QString& connectionText) {
    openEngine(connectionText, false);
}

void Connection::Create(const QString& connectionText) {
    openEngine(connectionText, true);
}

void Connection::openEngine(const QString& connectionText, bool create) {
    if (engine_)
        throw DatabaseError(3705, QStringLiteral("Operation is not allowed when the object is open."));
    const ConnectionFields fields = ParseConnectionText(connectionText);
    if (fields.contains(QStringLiteral("driver")))
        engine_ = OpenOdbc(connectionText);
    else if (const QString file = EmbeddedFile(fields); !file.isEmpty())
        engine_ = OpenEmbedded(file, create);
    else
        engine_ = OpenOdbc(SqlServerText(fields, InstalledOdbcDrivers()));
}

void Connection::Close() {
    if (inTransaction_)
        Ignoring([this] { RollbackTrans(); });
    inTransaction_ = false;
    untold_.clear();
    engine_.reset();
}

Engine& Connection::engine() {
    if (!engine_)
        throw DatabaseError(
            3709,
            QStringLiteral(
                "The connection cannot be used to perform this operation. It is either closed or invalid in this context."));
    return *engine_;
}

qint64 Connection::Execute(const QString& statement) {
    return Execute(statement, {});
}

qint64 Connection::Execute(const QString& statement, const std::vector<Value>& bound) {
    RequireOneStatement(statement);
    const qint64 rows = engine().execute(statement, bound);
    if (const auto table = WrittenTable(statement))
        written({statement, *table, rows});
    return rows;
}

qint64 Connection::LastIdentity() {
    return engine().lastIdentity();
}

void Connection::BeginTrans() {
    if (inTransaction_)
        throw DatabaseError(-2147168237, QStringLiteral("Cannot start more transactions on this session."));
    engine().begin();
    inTransaction_ = true;
}

void Connection::CommitTrans() {
    if (!inTransaction_)
        throw DatabaseError(-2147168242, QStringLiteral("No transaction is active."));
    engine().commit();
    inTransaction_ = false;
    for (Write& write : std::exchange(untold_, {}))
        written(std::move(write));
}

void Connection::RollbackTrans() {
    if (!inTransaction_)
        throw DatabaseError(-2147168242, QStringLiteral("No transaction is active."));
    engine().rollback();
    inTransaction_ = false;
    untold_.clear();
}

void Connection::written(Write write) {
    if (!observer_)
        return;
    if (inTransaction_)
        untold_.push_back(std::move(write));
    else
        observer_(write);
}

}  // namespace db
