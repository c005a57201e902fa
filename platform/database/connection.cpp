#include "platform/database/connection.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <utility>

#include "platform/database/connectiontext.h"
#include "platform/database/readtogether.h"
#include "platform/database/statement.h"
#include "platform/database/waiting.h"

namespace db {

namespace {

Q_LOGGING_CATEGORY(tripLog, "svscheduler.trips", QtWarningMsg)
Q_LOGGING_CATEGORY(faultLog, "svscheduler.faults", QtWarningMsg)

std::atomic<qint64> trips{0};

/// What is sent is told to whoever asked for it only, since it holds the names of patients; a line for each trip.
void countTrip(const QString& sent) {
    ++trips;
    qCDebug(tripLog).noquote() << QString(sent).replace(QLatin1Char('\n'), QLatin1Char(' '));
}

/// A statement without what stands in quotes, which may be the name of a patient or a secret. Behind a quote that is
/// never closed, nothing is told.
QString withoutValues(const QString& statement) {
    static const QRegularExpression quoted(QStringLiteral("'(?:[^']|'')*'|\"[^\"]*\""));
    static const QRegularExpression unclosed(QStringLiteral("(?<!\\.)'(?!\\.).*$"));
    return statement.simplified().replace(quoted, QStringLiteral("'...'")).remove(unclosed);
}

/// The words of a database up to the first value. They do not double the quotes of a value, so that its end cannot be
/// told.
QString uptoFirstValue(const QString& description) {
    static const QRegularExpression value(QStringLiteral("['\"(]"));
    return description.simplified().section(value, 0, 0);
}

void logFault(const DatabaseError& error) {
    qCInfo(faultLog).noquote() << error.number << error.sqlState << uptoFirstValue(error.description) << '|'
                               << withoutValues(error.statement);
}

std::unique_ptr<Engine> openedEngine(const QString& connectionText, bool create) {
    const ConnectionFields fields = ParseConnectionText(connectionText);
    if (fields.contains(QStringLiteral("driver")))
        return OpenOdbc(connectionText);
    if (const QString file = EmbeddedFile(fields); !file.isEmpty())
        return OpenEmbedded(file, create);
    return OpenOdbc(SqlServerText(fields, InstalledOdbcDrivers()));
}

std::unique_ptr<Engine> engineFor(const QString& connectionText, bool create) {
    countTrip(QStringLiteral("(login)"));
    try {
        return openedEngine(connectionText, create);
    } catch (const DatabaseError& error) {
        logFault(error);
        throw;
    }
}

/// Whether it only asks, so that it may be sent twice.
bool isQuestion(const QString& statement) {
    return statement.trimmed().startsWith(QLatin1String("Select "), Qt::CaseInsensitive);
}

}  // namespace

qint64 Connection::Trips() {
    return trips;
}

Connection::~Connection() {
    Close();
}

void Connection::Open(const QString& connectionText) {
    open(connectionText, false);
}

void Connection::Create(const QString& connectionText) {
    open(connectionText, true);
}

void Connection::open(const QString& connectionText, bool create) {
    if (IsOpen())
        throw DatabaseError(3705, QStringLiteral("Operation is not allowed when the object is open."));
    engine_ = engineFor(connectionText, create);
    text_ = connectionText;
}

void Connection::Close() {
    if (transaction_ != Transaction::None)
        Ignoring([this] { RollbackTrans(); });
    forgetRead();
    described_.clear();
    engine_.reset();
    text_.clear();
    refusal_.reset();
    replaced_.reset();
    identity_.reset();
}

void Connection::OpenAgain() {
    requireNotBusy();
    if (!replaced_)
        return;
    try {
        engine_ = engineFor(text_, false);
        replaced_.reset();
    } catch (const DatabaseError& error) {
        refuseUntilOpened(error);
    }
}

std::function<std::unique_ptr<Engine>()> Connection::Beside() const {
    const ConnectionFields fields = ParseConnectionText(text_);
    const bool isPrivate =
        !fields.contains(QStringLiteral("driver")) && IsOpen() && EmbeddedFile(fields) == QStringLiteral(":memory:");
    if (!IsOpen() || replaced_ || isPrivate)
        return {};
    return [text = text_] { return engineFor(text, false); };
}

void Connection::refuseUntilOpened(const DatabaseError& error) {
    replaced_.emplace(error.number, error.description, QString(), QString::fromLatin1(LinkFailureState));
    if (tellReplaced_)
        tellReplaced_(error.description);
}

Engine& Connection::engine() {
    if (!IsOpen())
        throw DatabaseError(
            3709,
            QStringLiteral(
                "The connection cannot be used to perform this operation. It is either closed or invalid in this context."));
    if (replaced_)
        throw DatabaseError(*replaced_);
    if (!engine_)
        openAnew();
    return *engine_;
}

// A host that is away may take seconds to be found so. What a routine does next is refused at once for as long again.
void Connection::openAnew() {
    constexpr qint64 noticeable = 500;
    if (refusal_ && sinceRefusal_.elapsed() < refusedFor_)
        throw DatabaseError(*refusal_);
    // While the login waits, whatever else happens in the program must not begin another one.
    refusal_ = DatabaseError(3711, QStringLiteral("Operation cannot be performed while connecting asynchronously."));
    refusedFor_ = std::numeric_limits<qint64>::max();
    sinceRefusal_.start();
    QElapsedTimer took;
    took.start();
    try {
        engine_ = engineFor(text_, false);
        refusal_.reset();
    } catch (const DatabaseError& error) {
        refusal_ = DatabaseError(error.number, error.description, {}, QString::fromLatin1(LinkFailureState));
        refusedFor_ = took.elapsed() < noticeable ? 0 : took.elapsed();
        sinceRefusal_.start();
        throw DatabaseError(*refusal_);
    }
}

template <typename Step>
auto Connection::atEngine(const QString& sent, Cut cut, Step&& step) {
    requireUsable();
    Engine& used = engine();
    const QScopedValueRollback<bool> underWay(busy_, true);
    countTrip(sent);
    try {
        return step(used);
    } catch (const DatabaseError& error) {
        logFault(error);
        noteEndedTransaction();
        if (const Link link = engine_->link(); link == Link::Whole || !letGoOf(link, cut, error))
            throw;
    }
    countTrip(sent);
    return step(engine());
}

void Connection::requireNotBusy() const {
    if (busy_)
        throw DatabaseError(3711, QStringLiteral("Operation cannot be performed while executing asynchronously."));
}

void Connection::requireUsable() const {
    requireNotBusy();
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
    if (engine_->link() == Link::Whole) {
        countTrip(QStringLiteral("(transaction?)"));
        Ignoring([&] { open = engine_->inTransaction(); });
    }
    if (!open)
        transaction_ = Transaction::Ended;
}

bool Connection::letGoOf(Link link, Cut cut, const DatabaseError& error) {
    const bool inTransaction = transaction_ != Transaction::None;
    described_.clear();
    engine_.reset();
    if (link == Link::Replaced) {
        refuseUntilOpened(error);
        return false;
    }
    const bool inTheDark = cut == Cut::InTheDark;
    if (error.number == GivenUp)
        throw GivenUpError(inTheDark);
    if (cut == Cut::Repeat && !inTransaction)
        return true;
    const QString lost =
        inTheDark
            ? QStringLiteral(
                  "The connection to the database broke off. Look whether the change is there before you make it again.")
            : QStringLiteral("The connection to the database broke off. Nothing of it is saved.");
    throw DatabaseError(LinkFailure, lost, error.statement, QString::fromLatin1(LinkFailureState));
}

EngineFacts Connection::Facts() {
    EngineFacts facts;
    if (engine_ && !busy_ && !replaced_)
        Ignoring([&] { facts = engine_->facts(); });
    return facts;
}

qint64 Connection::Execute(const QString& statement) {
    return Execute(statement, {});
}

qint64 Connection::Execute(const QString& statement, const std::vector<Value>& bound) {
    RequireOneStatement(statement);
    const auto table = WrittenTable(statement);
    if (!table)
        return sendAlone(statement, bound);
    Write write = send(statement, bound, *table);
    const qint64 rows = write.rows;
    written(std::move(write));
    return rows;
}

void Connection::InsertRows(const QString& table, const QStringList& columns,
                            const std::vector<std::vector<Value>>& rows) {
    const QString places = QLatin1Char('(') +
                           QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", ")) +
                           QLatin1Char(')');
    const QString head =
        QStringLiteral("Insert Into [%1] ([%2]) Values ").arg(table, columns.join(QStringLiteral("], [")));
    const auto most = static_cast<std::size_t>(engine().mostRowsOfInsert(static_cast<int>(columns.size())));
    for (std::size_t first = 0; first < rows.size(); first += most) {
        const std::size_t end = std::min(rows.size(), first + most);
        std::vector<Value> bound;
        for (std::size_t row = first; row < end; ++row)
            bound.insert(bound.end(), rows[row].begin(), rows[row].end());
        const QStringList together(static_cast<qsizetype>(end - first), places);
        Execute(head + together.join(QStringLiteral(", ")), bound);
    }
}

qint64 Connection::LastIdentity() {
    requireNotBusy();
    if (identity_)
        return *identity_;
    Engine& used = engine();
    const QScopedValueRollback<bool> underWay(busy_, true);
    return used.lastIdentity();
}

void Connection::BeginTrans() {
    if (transaction_ != Transaction::None)
        throw DatabaseError(-2147168237, QStringLiteral("Cannot start more transactions on this session."));
    atEngine(QStringLiteral("(begin)"), Cut::Repeat, [](Engine& engine) { engine.begin(); });
    transaction_ = Transaction::Open;
}

void Connection::CommitTrans() {
    if (transaction_ == Transaction::None)
        throw DatabaseError(-2147168242, QStringLiteral("No transaction is active."));
    atEngine(QStringLiteral("(commit)"), Cut::InTheDark, [](Engine& engine) { engine.commit(); });
    transaction_ = Transaction::None;
    for (const Write& write : std::exchange(untold_, {}))
        if (observer_ && !telling_)
            tell(write);
    tellTables(std::exchange(untoldTables_, {}));
}

void Connection::RollbackTrans() {
    requireNotBusy();
    if (std::exchange(transaction_, Transaction::None) == Transaction::None)
        throw DatabaseError(-2147168242, QStringLiteral("No transaction is active."));
    untold_.clear();
    untoldTables_.clear();
    // A link that broke off has taken the transaction with it.
    if (!engine_)
        return;
    const QScopedValueRollback<bool> underWay(busy_, true);
    try {
        countTrip(QStringLiteral("(rollback)"));
        engine_->rollback();
    } catch (const DatabaseError& error) {
        // What nobody can roll back goes with its link.
        const Link link = engine_->link();
        described_.clear();
        engine_.reset();
        if (link == Link::Replaced)
            refuseUntilOpened(error);
        if (link == Link::Whole)
            throw;
    }
}

void Connection::forgetWhatChanges(const QString& statement) {
    identity_.reset();
    for (ReadTogether* together : std::as_const(together_))
        together->forgetWhatNames(WrittenTable(statement));
}

qint64 Connection::sendAlone(const QString& statement, const std::vector<Value>& bound) {
    forgetWhatChanges(statement);
    const Cut cut = transaction_ == Transaction::None ? Cut::InTheDark : Cut::NothingDone;
    return atEngine(statement, cut, [&](Engine& engine) { return engine.execute(statement, bound); });
}

Numbered Connection::insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                                    const std::vector<Value>& bound) {
    forgetWhatChanges(statement);
    return atEngine(statement, Cut::NothingDone,
                    [&](Engine& engine) { return engine.insertNumbered(statement, valuesAt, identityColumn, bound); });
}

ResultTable Connection::read(const QString& statement, int mostRows) {
    if (const ResultTable* known = mostRows == 0 ? readAlready(statement) : nullptr)
        return *known;
    RequireOneStatement(statement);
    return query(statement, {}, mostRows);
}

ResultTable Connection::query(const QString& statement, const std::vector<Value>& bound, int mostRows) {
    const Cut cut = isQuestion(statement)               ? Cut::Repeat
                    : transaction_ == Transaction::None ? Cut::InTheDark
                                                        : Cut::NothingDone;
    return atEngine(statement, cut, [&](Engine& engine) { return engine.query(statement, bound, mostRows); });
}

std::vector<ResultTable> Connection::queryTogether(const QStringList& statements) {
    if (!engine_ || busy_ || transaction_ == Transaction::Ended || statements.isEmpty())
        return {};
    std::vector<ResultTable> tables = atEngine(statements.join(QStringLiteral("; ")), Cut::Repeat,
                                               [&](Engine& engine) { return engine.queryTogether(statements); });
    if (tables.size() < static_cast<std::size_t>(statements.size()))
        noteEndedTransaction();
    return tables;
}

const TableInfo& Connection::describe(const QString& table) {
    const QString name = table.toLower();
    if (described_.contains(name))
        return engine().describe(table);
    const TableInfo* info = atEngine(QStringLiteral("(columns of %1)").arg(table), Cut::Repeat,
                                     [&](Engine& engine) { return &engine.describe(table); });
    described_.insert(name);
    return *info;
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

}  // namespace db
