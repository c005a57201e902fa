#include <algorithm>
#include <array>
#include <QHash>

#include "platform/database/backgroundengine.h"
#include "platform/database/error.h"
#include "platform/database/odbcstatement.h"
#include "platform/database/sql.h"
#include "platform/database/statement.h"

namespace db {

namespace {

/// How many seconds a server may take to answer the login.
constexpr SQLULEN loginTimeoutSeconds = 5;

/// A wait for a lock is cut into pieces of this length. After each piece it is certain that the statement was not
/// carried out.
constexpr int lockPieceMilliseconds = 2'000;

SQLPOINTER asPointer(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(number);
}

/// Returns the environment, of which a program needs one. It is never freed, because a thread that waits for a server
/// in vain may still use it at the program's very end.
SQLHANDLE environment() {
    static const auto* handle = new OdbcHandle<SQL_HANDLE_ENV>(SQL_NULL_HANDLE);
    static const SQLRETURN version =
        SQLSetEnvAttr(handle->get(), SQL_ATTR_ODBC_VERSION, asPointer(SQL_OV_ODBC3), SQL_IS_UINTEGER);
    Q_UNUSED(version);
    return handle->get();
}

bool isInsert(const QString& statement) {
    return statement.trimmed().startsWith(QLatin1String("Insert "), Qt::CaseInsensitive);
}

}  // namespace

/// A database behind an ODBC driver: a SQL Server, or one that takes the same statements.
class OdbcEngine final : public CancellableEngine {
  public:
    explicit OdbcEngine(const QString& odbcText);
    ~OdbcEngine() override;

    qint64 execute(const QString& statement, const std::vector<Value>& bound) override;
    [[nodiscard]] int mostRowsOfInsert(int columns) const override;
    Numbered insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                            const std::vector<Value>& bound) override;
    [[nodiscard]] QString lockingHint() const override;
    ResultTable query(const QString& statement, const std::vector<Value>& bound, int mostRows) override;
    std::vector<ResultTable> queryTogether(const QStringList& statements) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    [[nodiscard]] bool inTransaction() override;
    [[nodiscard]] Link link() override;
    void cancel() override { running_.cancel(); }
    const TableInfo& describe(const QString& table) override;
    qint64 lastIdentity() override;
    [[nodiscard]] EngineFacts facts() override;

  private:
    void run(OdbcStatement& run, const QString& statement, const std::vector<Value>& bound);
    void setUp();
    qint64 insertOnServer(const QString& statement, const std::vector<Value>& bound);
    void endByDriver(SQLSMALLINT how);
    void setAutocommit(SQLULEN on);
    [[nodiscard]] TableInfo describeOnServer(const QString& table);
    [[nodiscard]] TableInfo describeByDriver(const QString& table) const;
    void check(SQLRETURN result) const;

    OdbcHandle<SQL_HANDLE_DBC> connection_;
    mutable RunningStatement running_;
    bool sqlServer_ = false;
    QString setUp_;  ///< Sent with the first statement that reads, so that it costs no trip of its own.
    qint64 identity_ = 0;
    QHash<QString, TableInfo> tables_;
};

OdbcEngine::OdbcEngine(const QString& odbcText) : connection_(environment()) {
    SQLSetConnectAttrW(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT, asPointer(loginTimeoutSeconds), SQL_IS_UINTEGER);
    if (!SQL_SUCCEEDED(SQLDriverConnectW(connection_.get(), nullptr, WideText(odbcText),
                                         static_cast<SQLSMALLINT>(odbcText.size()), nullptr, 0, nullptr,
                                         SQL_DRIVER_NOPROMPT)))
        throw OdbcLoginFailure(connection_.get());
    std::array<SQLWCHAR, 128> name{};
    SQLGetInfoW(connection_.get(), SQL_DBMS_NAME, name.data(), sizeof(name), nullptr);
    sqlServer_ = QString::fromUtf16(reinterpret_cast<const char16_t*>(name.data()))
                     .contains(QLatin1String("Microsoft SQL Server"));
    // A server may be set to report no counts, but the counts show when somebody else changed a row.
    if (sqlServer_)
        setUp_ = QStringLiteral("Set NoCount Off Set Lock_Timeout %1\n").arg(lockPieceMilliseconds);
}

OdbcEngine::~OdbcEngine() {
    // The driver refuses to disconnect while a transaction is open.
    SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
    SQLDisconnect(connection_.get());
}

qint64 OdbcEngine::execute(const QString& statement, const std::vector<Value>& bound) {
    setUp();
    if (sqlServer_ && isInsert(statement))
        return insertOnServer(statement, bound);
    OdbcStatement sent(connection_.get(), running_);
    run(sent, statement, bound);
    const qint64 rows = sent.rowCount();
    sent.finish();
    return rows;
}

/// The key that the server assigned can only be read in the statement's own batch.
qint64 OdbcEngine::insertOnServer(const QString& statement, const std::vector<Value>& bound) {
    OdbcStatement sent(connection_.get(), running_);
    // The driver reports no count where values are bound.
    run(sent, statement + QStringLiteral("\nSelect Cast(Scope_Identity() As bigint), @@RowCount"), bound);
    const ResultTable told = sent.rows();
    sent.finish();
    identity_ = told.rowCount() == 0 ? 0 : told.at(0, 0).integer();
    return told.rowCount() == 0 ? 0 : told.at(0, 1).integer();
}

/// A server takes a thousand rows and 2,100 values in one statement. Beyond some hundred rows nothing is gained.
int OdbcEngine::mostRowsOfInsert(int columns) const {
    constexpr int mostValues = 2000;
    constexpr int mostRows = 100;
    return sqlServer_ ? std::clamp(mostValues / std::max(columns, 1), 1, mostRows) : 1;
}

// Other desks insert at the same time, so only the server knows which keys it assigned to these rows.
Numbered OdbcEngine::insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                                    const std::vector<Value>& bound) {
    if (!sqlServer_)
        return Engine::insertNumbered(statement, valuesAt, identityColumn, bound);
    const QString output = QStringLiteral("Output Inserted.%1 ").arg(Bracketed(identityColumn));
    ResultTable told;
    try {
        setUp();
        OdbcStatement sent(connection_.get(), running_);
        run(sent, statement.first(valuesAt) + output + statement.sliced(valuesAt), bound);
        told = sent.rows();
        sent.finish();
    } catch (const DatabaseError& error) {
        constexpr int tableHasTriggers = 334;
        if (error.number != tableHasTriggers)
            throw;
        return {execute(statement, bound), {}};
    }
    Numbered inserted{told.rowCount(), {}};
    for (int row = 0; row < told.rowCount(); ++row)
        inserted.keys.push_back(told.at(row, 0).integer());
    std::sort(inserted.keys.begin(), inserted.keys.end());
    if (!inserted.keys.empty())
        identity_ = inserted.keys.back();
    return inserted;
}

QString OdbcEngine::lockingHint() const {
    return sqlServer_ ? QStringLiteral(" With (UpdLock)") : QString();
}

ResultTable OdbcEngine::query(const QString& statement, const std::vector<Value>& bound, int mostRows) {
    // The server runs a statement with bound values as a procedure and undoes settings at the procedure's end.
    if (!bound.empty())
        setUp();
    OdbcStatement sent(connection_.get(), running_);
    run(sent, statement, bound);
    ResultTable rows = sent.rows(mostRows);
    // The rows after the wanted ones need not be read.
    if (mostRows == 0)
        sent.finish();
    return rows;
}

std::vector<ResultTable> OdbcEngine::queryTogether(const QStringList& statements) {
    // Other drivers take only one statement in a call.
    if (!sqlServer_)
        return Engine::queryTogether(statements);
    std::vector<ResultTable> tables;
    const bool wentWell = Ignoring([&] {
        OdbcStatement sent(connection_.get(), running_);
        run(sent, statements.join(QLatin1Char('\n')), {});
        sent.appendAllRows(tables);
    });
    // With a result too many or too few, it is unknown which rows belong to which statement.
    if (wentWell && tables.size() != static_cast<std::size_t>(statements.size()))
        tables.clear();
    return tables;
}

void OdbcEngine::run(OdbcStatement& sent, const QString& statement, const std::vector<Value>& bound) {
    sent.bind(bound, sqlServer_);
    sent.run(sqlServer_ ? setUp_ + WithServerTexts(statement) : statement);
    setUp_.clear();
}

/// Sends the settings on their own, before a statement that cannot carry them.
void OdbcEngine::setUp() {
    if (!setUp_.isEmpty())
        query(QString(), {}, 0);
}

// A SQL Server ends a transaction by itself after some faults. The driver would not notice: it would go on without
// autocommit, and everything written later would be lost. Plain statements leave the state of the transaction to the
// server.
void OdbcEngine::begin() {
    if (sqlServer_)
        query(QStringLiteral("Begin Transaction"), {}, 0);
    else
        setAutocommit(SQL_AUTOCOMMIT_OFF);
}

void OdbcEngine::commit() {
    if (sqlServer_)
        execute(QStringLiteral("Commit Transaction"), {});
    else
        endByDriver(SQL_COMMIT);
}

void OdbcEngine::rollback() {
    if (sqlServer_)
        execute(QStringLiteral("If @@TranCount > 0 Rollback Transaction"), {});
    else
        endByDriver(SQL_ROLLBACK);
}

/// Another database cannot be asked; it is taken to have kept the transaction.
bool OdbcEngine::inTransaction() {
    return !sqlServer_ || query(QStringLiteral("Select @@TranCount"), {}, 0).at(0, 0).integer() > 0;
}

Link OdbcEngine::link() {
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(connection_.get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return dead == SQL_CD_TRUE ? Link::Cut : Link::Whole;
}

void OdbcEngine::endByDriver(SQLSMALLINT how) {
    check(SQLEndTran(SQL_HANDLE_DBC, connection_.get(), how));
    setAutocommit(SQL_AUTOCOMMIT_ON);
}

void OdbcEngine::setAutocommit(SQLULEN on) {
    check(SQLSetConnectAttrW(connection_.get(), SQL_ATTR_AUTOCOMMIT, asPointer(on), SQL_IS_UINTEGER));
}

const TableInfo& OdbcEngine::describe(const QString& table) {
    const QString key = table.toLower();
    if (!tables_.contains(key)) {
        const TableInfo info = sqlServer_ ? describeOnServer(table) : describeByDriver(table);
        if (info.columns.empty())
            throw DatabaseError(208, QStringLiteral("Invalid object name '%1'.").arg(table), {},
                                QStringLiteral("42S02"));
        tables_.insert(key, info);
    }
    return *tables_.constFind(key);
}

TableInfo OdbcEngine::describeOnServer(const QString& table) {
    static const QString statement = QStringLiteral(
        "Select c.name, t.name As typename, c.max_length, c.is_nullable, c.is_identity, c.scale, Case When k.column_id Is Null Then 0 Else 1 End As iskey From sys.columns c Inner Join sys.types t On t.user_type_id = c.system_type_id Left Join sys.indexes i On i.object_id = c.object_id And i.is_primary_key = 1 Left Join sys.index_columns k On k.object_id = i.object_id And k.index_id = i.index_id And k.column_id = c.column_id Where c.object_id = Object_Id(?) Order By c.column_id");
    static const QHash<QString, ColumnType> types{
        {QStringLiteral("bigint"), ColumnType::Integer},
        {QStringLiteral("int"), ColumnType::Integer},
        {QStringLiteral("smallint"), ColumnType::Integer},
        {QStringLiteral("tinyint"), ColumnType::Integer},
        {QStringLiteral("bit"), ColumnType::Boolean},
        {QStringLiteral("date"), ColumnType::DateTime},
        {QStringLiteral("datetime"), ColumnType::DateTime},
        {QStringLiteral("datetime2"), ColumnType::DateTime},
        {QStringLiteral("smalldatetime"), ColumnType::DateTime},
        {QStringLiteral("float"), ColumnType::Real},
        {QStringLiteral("real"), ColumnType::Real},
        {QStringLiteral("money"), ColumnType::Real},
        {QStringLiteral("smallmoney"), ColumnType::Real},
        {QStringLiteral("decimal"), ColumnType::Real},
        {QStringLiteral("numeric"), ColumnType::Real},
    };
    static const QStringList texts{QStringLiteral("char"), QStringLiteral("varchar"), QStringLiteral("nchar"),
                                   QStringLiteral("nvarchar")};
    TableInfo info;
    const ResultTable rows = query(statement, {table}, 0);
    for (int row = 0; row < rows.rowCount(); ++row) {
        ColumnInfo column;
        column.name = rows.at(row, 0).text();
        const QString type = rows.at(row, 1).text();
        const auto bytes = static_cast<int>(rows.at(row, 2).integer());
        column.type = types.value(type, ColumnType::Text);
        if (texts.contains(type) && bytes > 0)
            column.maxLength = type.startsWith(QLatin1Char('n')) ? bytes / 2 : bytes;
        column.nullable = rows.at(row, 3).boolean();
        const bool fineTime = type == QLatin1String("datetime2") && rows.at(row, 5).integer() > 0;
        column.comparable = (types.contains(type) || texts.contains(type)) && !fineTime;
        if (rows.at(row, 4).boolean())
            info.identityColumn = column.name;
        if (rows.at(row, 6).boolean())
            info.keyColumns.push_back(column.name);
        info.columns.push_back(std::move(column));
    }
    return info;
}

/// Describes a table by what any driver reports. Where a table's key is one whole number, the database is taken to
/// assign it.
TableInfo OdbcEngine::describeByDriver(const QString& table) const {
    TableInfo info;
    OdbcStatement columns(connection_.get(), running_);
    const auto length = static_cast<SQLSMALLINT>(table.size());
    check(SQLColumnsW(columns.handle(), nullptr, 0, nullptr, 0, WideText(table), length, nullptr, 0));
    const ResultTable told = columns.rows();
    for (int row = 0; row < told.rowCount(); ++row) {
        ColumnInfo column;
        column.name = told.at(row, 3).text();
        column.type = OdbcColumnType(static_cast<SQLSMALLINT>(told.at(row, 4).integer()));
        column.maxLength = column.type == ColumnType::Text ? static_cast<int>(told.at(row, 6).integer()) : 0;
        column.nullable = told.at(row, 10).integer() != SQL_NO_NULLS;
        info.columns.push_back(std::move(column));
    }
    OdbcStatement keys(connection_.get(), running_);
    check(SQLPrimaryKeysW(keys.handle(), nullptr, 0, nullptr, 0, WideText(table), length));
    const ResultTable key = keys.rows();
    for (int row = 0; row < key.rowCount(); ++row)
        info.keyColumns.push_back(key.at(row, 3).text());
    for (const ColumnInfo& column : info.columns) {
        const bool isWhole = column.type == ColumnType::Integer;
        if (isWhole && info.keyColumns.size() == 1 && info.keyColumns.front() == column.name)
            info.identityColumn = column.name;
    }
    return info;
}

qint64 OdbcEngine::lastIdentity() {
    return sqlServer_ ? identity_ : query(QStringLiteral("Select last_insert_rowid()"), {}, 0).at(0, 0).integer();
}

EngineFacts OdbcEngine::facts() {
    const auto told = [this](SQLUSMALLINT what) {
        constexpr SQLSMALLINT most = 256;
        std::array<SQLWCHAR, most> text{};
        SQLSMALLINT bytes = 0;
        check(SQLGetInfoW(connection_.get(), what, text.data(), most * sizeof(SQLWCHAR), &bytes));
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()));
    };
    return {.engine = told(SQL_DBMS_NAME) + QLatin1Char(' ') + told(SQL_DBMS_VER),
            .driver = told(SQL_DRIVER_NAME) + QLatin1Char(' ') + told(SQL_DRIVER_VER)};
}

void OdbcEngine::check(SQLRETURN result) const {
    if (!SQL_SUCCEEDED(result))
        throw OdbcFailure(SQL_HANDLE_DBC, connection_.get());
}

std::unique_ptr<Engine> OpenOdbc(const QString& odbcText) {
    return InBackground([odbcText] { return std::make_unique<OdbcEngine>(odbcText); });
}

}  // namespace db
