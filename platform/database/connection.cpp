#include "platform/database/connection.h"

#include <algorithm>
#include <atomic>
#include <QLoggingCategory>
#include <utility>

#include "platform/database/connectiontext.h"
#include "platform/database/readtogether.h"
#include "platform/database/statement.h"

namespace db {

namespace {

Q_LOGGING_CATEGORY(tripLog, "svscheduler.trips", QtWarningMsg)

std::atomic<qint64> trips{0};

/// What is sent is told to whoever asked for it only, since it holds the names of patients; a line for each trip.
void countTrip(const QString& sent) {
    ++trips;
    qCDebug(tripLog).noquote() << QString(sent).replace(QLatin1Char('\n'), QLatin1Char(' '));
}

}  // namespace

qint64 Connection::Trips() {
    return trips;
}

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
    countTrip(QStringLiteral("(login)"));
    if (fields.contains(QStringLiteral("driver")))
        engine_ = OpenOdbc(connectionText);
    else if (const QString file = EmbeddedFile(fields); !file.isEmpty())
        engine_ = OpenEmbedded(file, create);
    else
        engine_ = OpenOdbc(SqlServerText(fields, InstalledOdbcDrivers()));
}

void Connection::Close() {
    if (transaction_ != Transaction::None)
        Ignoring([this] { RollbackTrans(); });
    forgetRead();
    described_.clear();
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

template <typename Step>
auto Connection::atEngine(const QString& sent, Step&& step) {
    requireWholeTransaction();
    countTrip(sent);
    try {
        return step(engine());
    } catch (const DatabaseError&) {
        noteEndedTransaction();
        throw;
    }
}

void Connection::requireWholeTransaction() const {
    if (transaction_ == Transaction::Ended)
        throw DatabaseError(
            3930,
            QStringLiteral(
                "The database has ended the transaction because of an error before. Nothing of the transaction is saved."));
}

void Connection::noteEndedTransaction() {
    if (transaction_ != Transaction::Open)
        return;
    bool open = false;
    countTrip(QStringLiteral("(transaction?)"));
    Ignoring([&] { open = engine_->inTransaction(); });
    if (!open)
        transaction_ = Transaction::Ended;
}

qint64 Connection::Execute(const QString& statement) {
    return Execute(statement, {});
}

qint64 Connection::Execute(const QString& statement, const std::vector<Value>& bound) {
    RequireOneStatement(statement);
    const qint64 rows = send(statement, bound);
    if (const auto table = WrittenTable(statement))
        written({statement, *table, rows});
    return rows;
}

qint64 Connection::LastIdentity() {
    return engine().lastIdentity();
}

void Connection::BeginTrans() {
    if (transaction_ != Transaction::None)
        throw DatabaseError(-2147168237, QStringLiteral("Cannot start more transactions on this session."));
    atEngine(QStringLiteral("(begin)"), [](Engine& engine) { engine.begin(); });
    transaction_ = Transaction::Open;
}

void Connection::CommitTrans() {
    if (transaction_ == Transaction::None)
        throw DatabaseError(-2147168242, QStringLiteral("No transaction is active."));
    atEngine(QStringLiteral("(commit)"), [](Engine& engine) { engine.commit(); });
    transaction_ = Transaction::None;
    for (Write& write : std::exchange(untold_, {}))
        written(std::move(write));
}

void Connection::RollbackTrans() {
    if (std::exchange(transaction_, Transaction::None) == Transaction::None)
        throw DatabaseError(-2147168242, QStringLiteral("No transaction is active."));
    untold_.clear();
    atEngine(QStringLiteral("(rollback)"), [](Engine& engine) { engine.rollback(); });
}

qint64 Connection::send(const QString& statement, const std::vector<Value>& bound) {
    for (ReadTogether* together : std::as_const(together_))
        together->forgetWhatNames(WrittenTable(statement));
    return atEngine(statement, [&](Engine& engine) { return engine.execute(statement, bound); });
}

ResultTable Connection::read(const QString& statement, int mostRows) {
    const ResultTable* known = mostRows == 0 ? readAlready(statement) : nullptr;
    return known ? *known : query(statement, {}, mostRows);
}

ResultTable Connection::query(const QString& statement, const std::vector<Value>& bound, int mostRows) {
    return atEngine(statement, [&](Engine& engine) { return engine.query(statement, bound, mostRows); });
}

std::vector<ResultTable> Connection::queryTogether(const QStringList& statements) {
    if (!engine_ || statements.isEmpty())
        return {};
    std::vector<ResultTable> tables = atEngine(statements.join(QStringLiteral("; ")),
                                               [&](Engine& engine) { return engine.queryTogether(statements); });
    if (tables.size() < static_cast<std::size_t>(statements.size()))
        noteEndedTransaction();
    return tables;
}

const TableInfo& Connection::describe(const QString& table) {
    if (const QString name = table.toLower(); !described_.contains(name)) {
        countTrip(QStringLiteral("(columns of %1)").arg(table));
        described_.insert(name);
    }
    return engine().describe(table);
}

const ResultTable* Connection::readAlready(const QString& statement) const {
    for (const ReadTogether* together : together_) {
        if (const auto found = together->read_.constFind(statement); found != together->read_.constEnd())
            return &*found;
    }
    return nullptr;
}

void Connection::forgetRead() {
    for (ReadTogether* together : std::as_const(together_))
        together->forgetWhatNames({});
}

void Connection::written(Write write) {
    if (!observer_)
        return;
    if (transaction_ != Transaction::None)
        untold_.push_back(std::move(write));
    else
        observer_(write);
}

}  // namespace db
