#include <QDateTime>
#include <QHash>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QSqlRecord>

#include "platform/database/datetext.h"
#include "platform/database/engine.h"
#include "platform/database/error.h"
#include "platform/database/statement.h"

namespace db {

namespace {

/// Seconds that a server may take to answer at the door.
constexpr int loginTimeoutSeconds = 5;
/// QODBC sends a longer text as the server's old "ntext", which compares with nothing.
constexpr qsizetype longestPlainText = 254;

// The numbers of ODBC for the column types that a QVariant does not tell.
constexpr int sqlBit = -7;

/// What the driver and the server said, without the chain of who passed it on.
QString sentence(const QSqlError& error) {
    static const QRegularExpression chain(
        QStringLiteral(R"((\[(unixODBC|Driver Manager|FreeTDS|Microsoft|SQL Server|SQLite|ODBC Driver [^\]]*)\])+)"));
    QStringList said = error.databaseText().split(chain, Qt::SkipEmptyParts);
    for (QString& each : said)
        each = each.trimmed();
    if (said.size() > 1)
        said.removeAll(QStringLiteral("Unable to connect to data source"));
    return said.isEmpty() ? error.driverText() : said.join(QLatin1Char(' '));
}

DatabaseError failure(const QSqlError& error, const QString& statement) {
    return {error.nativeErrorCode().toInt(), sentence(error), statement};
}

/// A login fails at the server, which gives the number and the sentence, or before it: then the cursor service's
/// sentence stands before the driver's.
DatabaseError loginFailure(const QSqlError& error) {
    constexpr int loginRefused = 18456;
    constexpr int noSuchDatabase = 4060;
    constexpr int firstOfDriver = 20000;  // FreeTDS counts its own failures from here.
    constexpr int unspecified = -2147467259;
    const int number = error.nativeErrorCode().toInt();
    const QString said = sentence(error);
    // The server tells both, the refusal last.
    if (number == loginRefused && said.contains(QLatin1String("Cannot open database")))
        return {noSuchDatabase, said};
    const QString raw = error.databaseText();
    if (raw.contains(QLatin1String("[SQL Server]")) && number > 0 && number < firstOfDriver)
        return {number, said};
    const int told = number == 0 ? unspecified : number;
    if (raw.contains(QLatin1String("[Driver Manager]")) || !raw.contains(QLatin1Char('[')))
        return {told, said};
    return {told, QStringLiteral("SQL Server does not exist or access denied. ") + said};
}

ColumnType typeOf(const QSqlField& field) {
    if (field.typeID() == sqlBit)
        return ColumnType::Boolean;
    switch (field.metaType().id()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Short:
            return ColumnType::Integer;
        case QMetaType::Double:
        case QMetaType::Float:
            return ColumnType::Real;
        case QMetaType::QDate:
        case QMetaType::QDateTime:
            return ColumnType::DateTime;
        default:
            return ColumnType::Text;
    }
}

/// The driver manager's names may come with NULs behind them.
QString nameOf(const QString& told) {
    return told.left(told.indexOf(QChar::Null));
}

QByteArray isoText(const QDateTime& moment) {
    if (const auto held = ToServerDateTime(moment))
        return IsoText(*held);
    return moment.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")).toLatin1();
}

void append(ResultTable& table, const QVariant& value) {
    if (value.isNull()) {
        table.appendNull();
        return;
    }
    switch (value.typeId()) {
        case QMetaType::Bool:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Short:
            table.appendInteger(value.toLongLong());
            break;
        case QMetaType::Double:
        case QMetaType::Float:
            table.appendReal(value.toDouble());
            break;
        case QMetaType::QDate:
        case QMetaType::QDateTime:
            table.appendText(isoText(value.toDateTime()));
            break;
        case QMetaType::QByteArray:
            table.appendText(value.toByteArray());
            break;
        default:
            table.appendText(value.toString().toUtf8());
    }
}

/// The statement with its long texts brought to a type that the server compares.
QString castLongTexts(const QString& statement, const std::vector<Value>& bound) {
    QString cast;
    const QChar* copied = statement.constData();
    std::size_t place = 0;
    for (const Token& token : Tokens(statement)) {
        if (!token.is(QLatin1String("?")))
            continue;
        const auto* text = place < bound.size() ? std::get_if<QString>(&bound[place].data()) : nullptr;
        ++place;
        if (!text || text->size() <= longestPlainText)
            continue;
        cast += QStringView(copied, token.text.data());
        cast += QLatin1String("Cast(? As nvarchar(max))");
        copied = token.text.data() + 1;
    }
    return cast.append(QStringView(copied, statement.constData() + statement.size()));
}

}  // namespace

class OdbcEngine final : public Engine {
  public:
    explicit OdbcEngine(const QString& odbcText);
    ~OdbcEngine() override;

    qint64 execute(const QString& statement, const std::vector<Value>& bound) override;
    ResultTable query(const QString& statement, const std::vector<Value>& bound) override;
    void begin() override { require(database_.transaction()); }
    void commit() override { require(database_.commit()); }
    void rollback() override { require(database_.rollback()); }
    const TableInfo& describe(const QString& table) override;
    qint64 lastIdentity() override;

  private:
    QSqlQuery run(const QString& statement, const std::vector<Value>& bound);
    qint64 insertOnServer(const QString& statement, const std::vector<Value>& bound);
    [[nodiscard]] QVariant toVariant(const Value& value) const;
    [[nodiscard]] TableInfo describeOnServer(const QString& table);
    [[nodiscard]] TableInfo describeByDriver(const QString& table) const;
    void require(bool done) const;

    QString name_;
    QSqlDatabase database_;
    bool sqlServer_ = false;
    qint64 identity_ = 0;
    QHash<QString, TableInfo> tables_;
};

OdbcEngine::OdbcEngine(const QString& odbcText) {
    static int opened = 0;
    name_ = QStringLiteral("odbc%1").arg(++opened);
    database_ = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), name_);
    database_.setDatabaseName(odbcText);
    database_.setConnectOptions(QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1").arg(loginTimeoutSeconds));
    database_.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    if (!database_.open()) {
        const DatabaseError error = loginFailure(database_.lastError());
        database_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(name_);
        throw error;
    }
    sqlServer_ = database_.driver()->dbmsType() == QSqlDriver::MSSqlServer;
}

OdbcEngine::~OdbcEngine() {
    database_.close();
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(name_);
}

qint64 OdbcEngine::execute(const QString& statement, const std::vector<Value>& bound) {
    if (sqlServer_ && statement.trimmed().startsWith(QLatin1String("Insert "), Qt::CaseInsensitive))
        return insertOnServer(statement, bound);
    return run(statement, bound).numRowsAffected();
}

/// The key that the server gave can be asked for in the statement's own batch alone.
qint64 OdbcEngine::insertOnServer(const QString& statement, const std::vector<Value>& bound) {
    QSqlQuery query =
        run(QStringLiteral("Set NoCount On %1 Select @@RowCount, Cast(Scope_Identity() As bigint) Set NoCount Off")
                .arg(statement),
            bound);
    while (!query.isSelect() && query.nextResult()) {
    }
    if (!query.next())
        throw failure(query.lastError(), statement);
    identity_ = query.value(1).toLongLong();
    return query.value(0).toLongLong();
}

ResultTable OdbcEngine::query(const QString& statement, const std::vector<Value>& bound) {
    QSqlQuery query = run(statement, bound);
    const QSqlRecord record = query.record();
    std::vector<Column> columns;
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        columns.push_back({nameOf(field.name()), nameOf(field.tableName()), typeOf(field)});
    }
    ResultTable table(std::move(columns));
    const int count = record.count();
    while (query.next()) {
        for (int i = 0; i < count; ++i)
            append(table, query.value(i));
    }
    if (query.lastError().isValid())
        throw failure(query.lastError(), statement);
    return table;
}

QSqlQuery OdbcEngine::run(const QString& statement, const std::vector<Value>& bound) {
    QSqlQuery query(database_);
    query.setForwardOnly(true);
    const QString sent = sqlServer_ ? MarkNationalText(castLongTexts(statement, bound)) : statement;
    bool done = false;
    if (bound.empty()) {
        done = query.exec(sent);
    } else {
        done = query.prepare(sent);
        for (const Value& value : bound)
            query.addBindValue(toVariant(value));
        done = done && query.exec();
    }
    if (!done)
        throw failure(query.lastError(), statement);
    return query;
}

QVariant OdbcEngine::toVariant(const Value& value) const {
    if (value.isNull())
        return QVariant(QMetaType(QMetaType::QString));
    if (const auto* text = std::get_if<QString>(&value.data()))
        return *text;
    if (const auto* number = std::get_if<double>(&value.data()))
        return *number;
    if (const auto* moment = std::get_if<QDateTime>(&value.data())) {
        // The server would take a bound time for one of its finer types, which equals none of the stored ones.
        return sqlServer_ ? QVariant(moment->toString(QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz"))) : QVariant(*moment);
    }
    const qint64 number = value.integer();
    return number == static_cast<int>(number) ? QVariant(static_cast<int>(number)) : QVariant(number);
}

const TableInfo& OdbcEngine::describe(const QString& table) {
    const QString key = table.toLower();
    if (!tables_.contains(key)) {
        TableInfo info = sqlServer_ ? describeOnServer(table) : describeByDriver(table);
        if (info.columns.empty())
            throw DatabaseError(208, QStringLiteral("Invalid object name '%1'.").arg(table), {},
                                QStringLiteral("42S02"));
        tables_.insert(key, std::move(info));
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
    const ResultTable rows = query(statement, {table});
    for (int row = 0; row < rows.rowCount(); ++row) {
        ColumnInfo column;
        column.name = rows.at(row, 0).text();
        const QString type = rows.at(row, 1).text();
        const auto bytes = static_cast<int>(rows.at(row, 2).integer());
        column.type = types.value(type, ColumnType::Text);
        if (texts.contains(type) && bytes > 0)
            column.maxLength = type.startsWith(QLatin1Char('n')) ? bytes / 2 : bytes;
        column.nullable = rows.at(row, 3).boolean();
        const bool fineTime = type == QLatin1String("datetime2") && rows.at(row, 5).integer() > 3;
        column.comparable = (types.contains(type) || texts.contains(type)) && !fineTime;
        if (rows.at(row, 4).boolean())
            info.identityColumn = column.name;
        if (rows.at(row, 6).boolean())
            info.keyColumns.push_back(column.name);
        info.columns.push_back(std::move(column));
    }
    return info;
}

/// What any driver tells. Where a table's key is one whole number, the database is taken to assign it.
TableInfo OdbcEngine::describeByDriver(const QString& table) const {
    TableInfo info;
    const QSqlRecord record = database_.record(table);
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        ColumnInfo column;
        column.name = field.name();
        column.type = typeOf(field);
        column.maxLength = column.type == ColumnType::Text ? qMax(0, field.length()) : 0;
        column.nullable = field.requiredStatus() != QSqlField::Required;
        info.columns.push_back(std::move(column));
    }
    const QSqlIndex key = database_.primaryIndex(table);
    for (int i = 0; i < key.count(); ++i)
        info.keyColumns.push_back(key.fieldName(i));
    if (key.count() == 1 && typeOf(record.field(key.fieldName(0))) == ColumnType::Integer)
        info.identityColumn = key.fieldName(0);
    return info;
}

qint64 OdbcEngine::lastIdentity() {
    return sqlServer_ ? identity_ : query(QStringLiteral("Select last_insert_rowid()"), {}).at(0, 0).integer();
}

void OdbcEngine::require(bool done) const {
    if (!done)
        throw failure(database_.lastError(), {});
}

std::unique_ptr<Engine> OpenOdbc(const QString& odbcText) {
    return std::make_unique<OdbcEngine>(odbcText);
}

}  // namespace db
