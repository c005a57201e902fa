#include "tests/support/testdatabase.h"

#include <QDir>
#include <QFileInfo>

#include <sqlite3.h>
#include <stdexcept>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"

namespace {

void emptyServer(db::Connection& connection, SchemaScript script) {
    if (ExistingSchemaTable(connection, script).isEmpty()) {
        ApplySchema(connection, script);
        return;
    }
    const QStringList tables = SchemaTables(script);
    for (const QString& table : tables)
        connection.Execute(db::Sql("Truncate Table {}", db::Raw{table}));
}

}  // namespace

QString TestFolderTemplate() {
    const QString inMemory = QStringLiteral("/dev/shm");
    return (QFileInfo(inMemory).isWritable() ? inMemory : QDir::tempPath()) + QStringLiteral("/svs-test-XXXXXX");
}

TestDatabase::TestDatabase(SchemaScript script)
    : folder_(TestFolderTemplate()),
      connectionText_(qEnvironmentVariable(script == SchemaScript::Main ? "SVSCHEDULER_TEST_DATABASE"
                                                                        : "SVSCHEDULER_TEST_COMPANION")) {
    if (!connectionText_.isEmpty()) {
        connection_.Open(connectionText_);
        emptyServer(connection_, script);
        return;
    }
    connectionText_ = QStringLiteral("Data Source=%1;Initial Catalog=test").arg(folder_.path());
    connection_.Create(connectionText_);
    ApplySchema(connection_, script);
}

QString TestDatabase::text(const QString& statement) {
    const db::Recordset rows(statement, connection_);
    return rows.Eof() ? QStringLiteral("(none)") : rows[0].text();
}

qint64 TestDatabase::number(const QString& statement) {
    const db::Recordset rows(statement, connection_);
    return rows.Eof() ? -1 : rows[0].integer();
}

QString TestDatabase::refuse(const QString& operation, const QString& table) {
    runInFile(QStringLiteral("Create Trigger refuse%1%2 Before %1 On %2 Begin Select Raise(Abort, 'Refused'); End")
                  .arg(operation, table));
    return QStringLiteral("The %1 statement conflicted with a CHECK constraint.").arg(operation.toUpper());
}

void TestDatabase::allow(const QString& operation, const QString& table) {
    runInFile(QStringLiteral("Drop Trigger refuse%1%2").arg(operation, table));
}

// The system's dialect has no triggers: one is put into the file as any SQLite tool would.
void TestDatabase::runInFile(const QString& statement) {
    if (!connectionText_.contains(folder_.path()))
        throw std::logic_error("This test needs the embedded database.");
    sqlite3* file = nullptr;
    sqlite3_open(folder_.filePath(QStringLiteral("test.db")).toUtf8().constData(), &file);
    const int code = sqlite3_exec(file, statement.toUtf8().constData(), nullptr, nullptr, nullptr);
    const std::string message = sqlite3_errmsg(file);
    sqlite3_close(file);
    if (code != SQLITE_OK)
        throw std::runtime_error(message);
}
