#include "tests/support/serverdatabase.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <QCryptographicHash>
#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <stdexcept>

#include "platform/database/connectiontext.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"

namespace {

constexpr int MostDatabases = 200;
/// Names the server whose sessions `.ci/warm` keeps warm, where the tests run under it.
constexpr char WarmServer[] = "SVSCHEDULER_TEST_WARM";

/// Of everybody on this machine, since the databases of one server are.
QString lockFolder() {
    const QString path = QDir::tempPath() + QStringLiteral("/svscheduler-tests");
    constexpr mode_t everybody = 0777;
    if (::mkdir(QFile::encodeName(path).constData(), everybody) == 0)
        ::chmod(QFile::encodeName(path).constData(), everybody);
    return path;
}

const char* passwordVariable(SchemaScript script) {
    return script == SchemaScript::Main ? "SVSCHEDULER_PASSWORD_SVS" : "SVSCHEDULER_PASSWORD_FH";
}

QByteArray fingerprint(const QString& text) {
    return QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha1).toHex();
}

/// "appointments", "nkeyid" for each table of the script whose keys the database counts.
QHash<QString, QString> identities(SchemaScript script) {
    static const QRegularExpression create(QStringLiteral("^Create Table (\\w+) \\(\\s*(\\w+) int identity"));
    QHash<QString, QString> columns;
    const QStringList statements = SchemaStatements(script);
    for (const QString& statement : statements)
        if (const QRegularExpressionMatch match = create.match(statement); match.hasMatch())
            columns[match.captured(1)] = match.captured(2);
    return columns;
}

/// The tables that have rows, or had some: there the next key would not be 1. Only the open server tells of a key that
/// was given and is gone, by the sequence that it counts with. Elsewhere this throws DatabaseError.
QStringList usedTables(db::Connection& connection, SchemaScript script) {
    const QHash<QString, QString> keys = identities(script);
    QStringList questions;
    const QStringList tables = SchemaTables(script);
    for (const QString& table : tables) {
        questions << db::Sql("Select '{}' Where Exists (Select * from {})", table, db::Raw{table});
        if (keys.contains(table))
            questions << db::Sql("Select '{}' from {} Where Cast(is_called As int) = 1", table,
                                 db::Raw{table + QLatin1Char('_') + keys[table] + QLatin1String("_seq")});
    }
    QStringList used;
    for (db::Recordset rows(questions.join(QLatin1String(" Union ")), connection); !rows.Eof(); rows.MoveNext())
        used << rows[0].text();
    return used;
}

// Most tests write into few of the tables, and emptying one takes the server as long as twenty questions. A session
// that was not kept warm (.ci/warm) learns its grammar from the long question first, which takes longer than emptying
// them all.
void emptyTables(db::Connection& connection, SchemaScript script) {
    QStringList tables;
    const bool isWarm = qEnvironmentVariableIsSet(WarmServer);
    if (!isWarm || !db::Ignoring([&] { tables = usedTables(connection, script); }))
        tables = SchemaTables(script);
    db::InTransaction(connection, [&] {
        for (const QString& table : std::as_const(tables))
            connection.Execute(db::Sql("Truncate Table {}", db::Raw{table}));
    });
}

/// The program may read and write rows. Where logins cannot be made, the tests of the program itself fail to log on.
void letProgramIn(db::Connection& connection, SchemaScript script) {
    const ProgramLogin login = ProgramLoginFor(script);
    const db::Raw name{login.name};
    db::Ignoring([&] { connection.Execute(db::Sql("Create Login {} With Password = '{}'", name, login.password)); });
    db::Ignoring([&] { connection.Execute(db::Sql("Create User {} For Login {}", name, name)); });
    const QStringList tables = SchemaTables(script);
    db::Ignoring([&] {
        for (const QString& table : tables)
            connection.Execute(db::Sql("Grant Select, Insert, Update, Delete On {} To {}", db::Raw{table}, name));
    });
}

void makeTables(db::Connection& connection, SchemaScript script) {
    db::Recordset found("Select name from sys.tables", connection);
    const auto rows = found.GetRows();
    for (const auto& row : rows)
        connection.Execute(db::Sql("Drop Table [{}]", db::Raw{row.front().text()}));
    ApplySchema(connection, script);
    letProgramIn(connection, script);
}

}  // namespace

ProgramLogin ProgramLoginFor(SchemaScript script) {
    const QString password = qEnvironmentVariable(passwordVariable(script));
    return {script == SchemaScript::Main ? QStringLiteral("SVMaster") : QStringLiteral("FHMaster"),
            password.isEmpty() ? QStringLiteral("Tests-only-1") : password};
}

ServerDatabase::ServerDatabase(const QString& serverText, SchemaScript script, db::Connection& connection)
    : schema_(fingerprint(SchemaStatements(script).join(QLatin1Char('\n')))) {
    const db::ConnectionFields fields = db::ParseConnectionText(serverText);
    const QString server = fields.value(QStringLiteral("data source"));
    const QString realServer = qEnvironmentVariable(WarmServer, server);
    const QString base = fields.value(QStringLiteral("initial catalog"));
    int number = 1;
    while (
        !hold(QString::fromLatin1(fingerprint(realServer).first(12)) + QStringLiteral("-%1_%2").arg(base).arg(number)))
        if (++number > MostDatabases)
            throw std::runtime_error("All databases for tests are taken.");
    const QString name = QStringLiteral("%1_%2").arg(base).arg(number);
    connectionText_ = serverText + QStringLiteral(";Initial Catalog=%1;").arg(name);
    open(serverText, name, connection);
    const bool inOrder = lock_.readAll() == schema_ && db::Ignoring([&] { emptyTables(connection, script); });
    // Until the test has ended in order.
    lock_.resize(0);
    if (!inOrder)
        makeTables(connection, script);
    qputenv(passwordVariable(script), ProgramLoginFor(script).password.toUtf8());
}

ServerDatabase::~ServerDatabase() {
    if (tablesChanged_)
        return;
    lock_.seek(0);
    lock_.write(schema_);
}

bool ServerDatabase::hold(const QString& name) {
    lock_.setFileName(lockFolder() + QLatin1Char('/') + name);
    if (!lock_.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        throw std::runtime_error("This file cannot be written: " + lock_.fileName().toStdString());
    if (::flock(lock_.handle(), LOCK_EX | LOCK_NB) == 0)
        return true;
    lock_.close();
    return false;
}

void ServerDatabase::open(const QString& serverText, const QString& name, db::Connection& connection) const {
    if (db::Ignoring([&] { connection.Open(connectionText_); }))
        return;
    db::Connection server;
    server.Open(serverText + QStringLiteral(";Initial Catalog=master;"));
    server.Execute(db::Sql("Create Database [{}]", db::Raw{name}));
    connection.Open(connectionText_);
}
