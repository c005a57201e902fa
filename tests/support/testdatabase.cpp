#include "tests/support/testdatabase.h"

#include <QDir>
#include <QFileInfo>

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
