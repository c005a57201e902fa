#include "platform/database/embedded/embeddedengine.h"

#include <algorithm>
#include <chrono>
#include <QFileInfo>
#include <thread>

#include "platform/database/embedded/faults.h"
#include "platform/database/embedded/functioncall.h"
#include "platform/database/embedded/names.h"
#include "platform/database/embedded/store.h"
#include "platform/database/embedded/textorder.h"
#include "platform/database/error.h"
#include "platform/files/privatefile.h"

namespace db::embedded {

namespace {

constexpr std::size_t keptStatements = 128;

DatabaseHandle openHandle(const QString& file, bool create, const QString& database) {
    const bool inMemory = file == QStringLiteral(":memory:");
    const QFileInfo info(file);
    if (!inMemory && !create && !info.exists())
        throw MissingDatabase(database);
    // SQLite takes an empty file for a new database. Without `create`, an empty file is left over from something that
    // failed.
    if (!inMemory && !create && info.isFile() && info.size() == 0)
        throw OpeningFault(SQLITE_NOTADB, database);
    // SQLite's own -wal and -shm files are made for the same users as the database file.
    if (create && !inMemory)
        files::MakePrivate(file);
    else if (!inMemory)
        for (const char* part : {"", "-wal", "-shm"})
            files::KeepPrivate(file + QLatin1String(part));
    sqlite3* handle = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create || inMemory ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(file.toUtf8().constData(), &handle, flags, nullptr);
    DatabaseHandle opened(handle);
    if (code != SQLITE_OK)
        throw OpeningFault(code, database);
    return opened;
}

void bindCell(sqlite3_stmt* statement, int place, const Cell& cell) {
    if (const auto* whole = std::get_if<qint64>(&cell))
        sqlite3_bind_int64(statement, place, *whole);
    else if (const auto* number = std::get_if<double>(&cell))
        sqlite3_bind_double(statement, place, *number);
    else if (const auto* text = std::get_if<std::string>(&cell))
        sqlite3_bind_text(statement, place, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    else
        sqlite3_bind_null(statement, place);
}

void appendCell(ResultTable& table, sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            table.appendNull();
            break;
        case SQLITE_INTEGER:
            table.appendInteger(sqlite3_column_int64(statement, column));
            break;
        case SQLITE_FLOAT:
            table.appendReal(sqlite3_column_double(statement, column));
            break;
        default: {
            const std::string_view text = ColumnText(statement, column);
            table.appendText(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
        }
    }
}

ColumnType typeOfValue(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            return ColumnType::Integer;
        case SQLITE_FLOAT:
            return ColumnType::Real;
        default:
            return ColumnType::Text;
    }
}

/// Makes a statement ready for its next use when it is destroyed, however this use ends.
class Running {
  public:
    explicit Running(sqlite3_stmt* statement) : statement_(statement) {}
    ~Running() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    sqlite3_stmt* statement_;
};

/// Runs a step and adds the statement to its failure.
template <typename Step>
auto naming(const QString& statement, Step&& step) {
    try {
        return step();
    } catch (DatabaseError& error) {
        error.statement = statement;
        throw;
    }
}

struct StoreState {
    FunctionState* state;
    Catalog* catalog;
};

/// svs_store(value, table, column) gives the value as the column keeps it.
void store(sqlite3_context* context, int count, sqlite3_value** arguments) {
    const auto* shared = static_cast<StoreState*>(sqlite3_user_data(context));
    const FunctionCall call(context, count, arguments);
    try {
        const auto table = shared->catalog->table(call.text(1));
        call.give(StoredCell(*table, *table->find(call.text(2)), call.cell(0)));
    } catch (const DatabaseError& error) {
        ReportFault(context, shared->state, error);
    }
}

}  // namespace

EmbeddedEngine::EmbeddedEngine(const QString& file, bool create, int openingTimeout)
    : database_(QFileInfo(file).completeBaseName()),
      handle_(openHandle(file, create, database_)),
      catalog_(handle_.get(), [this] { fail({}); }),
      file_(handle_.get(), file) {
    sqlite3_extended_result_codes(handle_.get(), 1);
    sqlite3_busy_handler(handle_.get(), &EmbeddedEngine::waitForLock, this);
    setLockTimeout(openingTimeout);
    RegisterDialect(handle_.get(), &state_);
    registerStore();
    try {
        configure();
    } catch (const DatabaseError&) {
        throw OpeningFault(sqlite3_extended_errcode(handle_.get()), database_);
    }
    requireWholeFile();  // The files beside the database exist by now.
    setLockTimeout(LockTimeoutMilliseconds);
}

/// The first read of the file happens here, so that a damaged file is found when it is opened.
void EmbeddedEngine::configure() {
    sqlite3_db_config(handle_.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle_.get(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(handle_.get(), SQLITE_LIMIT_ATTACHED, 0);
    runOwn("Select count(*) From sqlite_master");
    if (sqlite3_db_readonly(handle_.get(), "main") == 0) {
        runOwn("Pragma journal_mode = WAL");
        renewTextIndexes();
    }
    // A saved change is on the disk even when the power fails a moment later.
    runOwn("Pragma synchronous = FULL");
    runOwn("Pragma foreign_keys = ON");
    runOwn("Pragma cache_size = -20000");
    runOwn("Pragma temp_store = MEMORY");
}

/// An index in another order of texts would hide rows. The file's user_version tells the order of its indexes.
void EmbeddedEngine::renewTextIndexes() {
    const auto isOld = [this] {
        const auto version = Prepare(handle_.get(), "Pragma user_version");
        return sqlite3_step(version.get()) == SQLITE_ROW && sqlite3_column_int(version.get(), 0) < TextOrderVersion;
    };
    if (!isOld())
        return;
    runOwn("Begin Immediate");
    // Another desk may have done it in the meantime.
    if (isOld()) {
        runOwn("Reindex SVS_TEXT");
        runOwn(("Pragma user_version = " + std::to_string(TextOrderVersion)).c_str());
    }
    runOwn("Commit");
}

void EmbeddedEngine::registerStore() {
    auto* shared = new StoreState{&state_, &catalog_};
    sqlite3_create_function_v2(handle_.get(), "svs_store", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC, shared, store,
                               nullptr, nullptr, [](void* old) { delete static_cast<StoreState*>(old); });
}

void EmbeddedEngine::requireWholeFile() {
    // The caller may have ignored the first error.
    if (link_ == Link::Replaced)
        throw ReplacedDatabase(database_);
    const OpenFile::State state = file_.look();
    if (state == OpenFile::State::Whole)
        return;
    link_ = Link::Replaced;
    if (inTransaction())
        sqlite3_exec(handle_.get(), "Rollback", nullptr, nullptr, nullptr);
    // The removed log holds what the desks have saved. It is still open here, so its content is moved into the file.
    if (state == OpenFile::State::LogMissing)
        sqlite3_wal_checkpoint_v2(handle_.get(), nullptr, SQLITE_CHECKPOINT_FULL, nullptr, nullptr);
    // SQLite would delete the file of the log's name when it closes, and that may by now be another database's log.
    sqlite3_db_config(handle_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    throw ReplacedDatabase(database_);
}

int EmbeddedEngine::waitForLock(void* engine, int count) {
    return static_cast<EmbeddedEngine*>(engine)->waitsOn(count == 0) ? 1 : 0;
}

bool EmbeddedEngine::waitsOn(bool anew) {
    constexpr std::chrono::milliseconds pause(5);
    if (anew || !wait_) {
        sinceWait_.start();
        wait_.emplace();
    }
    const qint64 elapsed = sinceWait_.elapsed();
    if (elapsed >= lockTimeout_)
        return false;
    std::this_thread::sleep_for(pause);
    givenUp_ = !wait_->goesOn(elapsed);
    return !givenUp_;
}

int EmbeddedEngine::waited(int code) {
    constexpr int primary = 0xFF;
    wait_.reset();
    givenUp_ = givenUp_ && (code & primary) == SQLITE_BUSY;
    return code;
}

qint64 EmbeddedEngine::execute(const QString& statement, const std::vector<Value>& bound) {
    requireWholeFile();
    const auto ending = endingWaits();
    return naming(statement, [&] { return run(statement, bound); });
}

ResultTable EmbeddedEngine::query(const QString& statement, const std::vector<Value>& bound, int mostRows) {
    requireWholeFile();
    const auto ending = endingWaits();
    return naming(statement, [&] {
        if (prepare(statement).translation.kind != Translation::Kind::Rows) {
            run(statement, bound);
            return ResultTable();
        }
        if (auto table = readRows(statement, prepare(statement), bound, mostRows))
            return std::move(*table);
        forgetSchema();
        return readRows(statement, prepare(statement), bound, mostRows).value_or(ResultTable());
    });
}

qint64 EmbeddedEngine::run(const QString& text, const std::vector<Value>& bound) {
    Statement& prepared = prepare(text);
    const Translation::Kind kind = prepared.translation.kind;
    {
        const Running running(prepared.handle.get());
        bind(prepared, bound);
        while (step(text, prepared)) {
        }
    }
    if (kind == Translation::Kind::Definition)
        forgetSchema();
    return kind == Translation::Kind::Write ? sqlite3_changes64(handle_.get()) : 0;
}

std::optional<ResultTable> EmbeddedEngine::readRows(const QString& text, Statement& prepared,
                                                    const std::vector<Value>& bound, int mostRows) {
    sqlite3_stmt* handle = prepared.handle.get();
    const Running running(handle);
    bind(prepared, bound);
    bool row = step(text, prepared);
    std::vector<Column> columns = prepared.translation.columns;
    const auto count = static_cast<int>(columns.size());
    if (sqlite3_column_count(handle) != count)
        return {};
    for (int i = 0; row && i < count; ++i)
        if (prepared.translation.typesFromRows[static_cast<std::size_t>(i)])
            columns[static_cast<std::size_t>(i)].type = typeOfValue(handle, i);
    ResultTable table(std::move(columns));
    for (; row; row = step(text, prepared)) {
        for (int i = 0; i < count; ++i)
            appendCell(table, handle, i);
        if (table.rowCount() == mostRows)
            break;
    }
    return table;
}

void EmbeddedEngine::begin() {
    if (inTransaction())
        throw DatabaseError(-2147168237, QStringLiteral("Only one transaction can be active on this session."));
    requireWholeFile();
    runOwn("Begin Immediate");
}

void EmbeddedEngine::commit() {
    if (!inTransaction())
        throw DatabaseError(3902,
                            QStringLiteral("The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION."));
    requireWholeFile();
    runOwn("Commit");
}

void EmbeddedEngine::rollback() {
    // SQLite may have ended the transaction itself, for instance when the disk was full.
    if (inTransaction())
        runOwn("Rollback");
    // A table made within the transaction is gone with it.
    forgetSchema();
}

bool EmbeddedEngine::inTransaction() {
    return sqlite3_get_autocommit(handle_.get()) == 0;
}

const TableInfo& EmbeddedEngine::describe(const QString& table) {
    const std::string name = table.toStdString();
    if (const auto known = described_.find(LowerName(name)); known != described_.end())
        return known->second;
    const auto ending = endingWaits();
    TableInfo info;
    const auto found = catalog_.table(name);
    std::vector<const TableColumn*> keys;
    for (const TableColumn& column : found->columns) {
        info.columns.push_back(
            {ToQt(column.name), ToColumnType(column.type.kind), column.type.maxLength, column.nullable});
        if (column.identity)
            info.identityColumn = ToQt(column.name);
        if (column.keyPlace > 0)
            keys.push_back(&column);
    }
    std::sort(keys.begin(), keys.end(), [](const auto* a, const auto* b) { return a->keyPlace < b->keyPlace; });
    for (const TableColumn* key : keys)
        info.keyColumns.push_back(ToQt(key->name));
    return described_.emplace(LowerName(name), std::move(info)).first->second;
}

EngineFacts EmbeddedEngine::facts() {
    return {.engine = QStringLiteral("SQLite ") + QLatin1String(sqlite3_libversion())};
}

qint64 EmbeddedEngine::lastIdentity() {
    return sqlite3_last_insert_rowid(handle_.get());
}

QString EmbeddedEngine::explain(const QString& statement) {
    const Translation translation = translate(statement);
    const auto plan = Prepare(handle_.get(), "Explain Query Plan " + translation.sql);
    if (!plan)
        fail(statement);
    QStringList lines(ToQt(translation.sql));
    while (sqlite3_step(plan.get()) == SQLITE_ROW) {
        const std::string_view detail = ColumnText(plan.get(), 3);
        lines.append(ToQt(detail));
    }
    return lines.join(u'\n');
}

Translation EmbeddedEngine::translate(const QString& statement) {
    const QByteArray utf8 = statement.toUtf8();
    const std::string_view text(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    constexpr int unknownColumn = 207;
    try {
        return Translate(text, catalog_);
    } catch (const DatabaseError& error) {
        if (error.number != unknownColumn)
            throw;
    }
    // Another desk may have added the column since the table was read.
    forgetSchema();
    return Translate(text, catalog_);
}

EmbeddedEngine::Statement& EmbeddedEngine::prepare(const QString& statement) {
    if (const auto known = byText_.find(statement); known != byText_.end()) {
        statements_.splice(statements_.begin(), statements_, known.value());
        return statements_.front().second;
    }
    Statement made{.translation = translate(statement), .handle = {}};
    made.handle = Prepare(handle_.get(), made.translation.sql, SQLITE_PREPARE_PERSISTENT);
    if (!made.handle)
        fail(statement);
    statements_.emplace_front(statement, std::move(made));
    byText_.insert(statement, statements_.begin());
    if (statements_.size() > keptStatements) {
        byText_.remove(statements_.back().first);
        statements_.pop_back();
    }
    return statements_.front().second;
}

void EmbeddedEngine::bind(Statement& prepared, const std::vector<Value>& bound) {
    const std::vector<BoundPlace>& places = prepared.translation.parameters;
    if (bound.size() != places.size())
        throw DatabaseError(8178,
                            QStringLiteral("The parameterized query expects %1 parameters, of which %2 were supplied.")
                                .arg(places.size())
                                .arg(bound.size()));
    for (std::size_t i = 0; i < bound.size(); ++i) {
        Cell cell = ToCell(bound[i]);
        if (const auto& table = places[i].table)
            cell = StoredCell(*table, table->columns[places[i].column], std::move(cell));
        bindCell(prepared.handle.get(), static_cast<int>(i) + 1, cell);
    }
}

bool EmbeddedEngine::step(const QString& text, Statement& prepared) {
    const int code = waited(sqlite3_step(prepared.handle.get()));
    if (code == SQLITE_ROW)
        return true;
    // The next statement reads the clock anew.
    state_.now.clear();
    if (code != SQLITE_DONE)
        fail(text);
    return false;
}

void EmbeddedEngine::forgetSchema() {
    byText_.clear();
    statements_.clear();
    described_.clear();
    catalog_.forget();
}

void EmbeddedEngine::runOwn(const char* sql) {
    if (waited(sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr)) != SQLITE_OK)
        fail(QString::fromLatin1(sql));
}

void EmbeddedEngine::fail(const QString& statement) {
    if (std::exchange(givenUp_, false))
        throw GivenUpError(false);
    const int fault = std::exchange(state_.fault, 0);
    throw FaultOf(handle_.get(), fault, database_, statement);
}

}  // namespace db::embedded

namespace db {

std::unique_ptr<Engine> OpenEmbedded(const QString& file, bool create) {
    return std::make_unique<embedded::EmbeddedEngine>(file, create);
}

}  // namespace db
