#include "tests/support/testdatabase.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <sqlite3.h>
#include <stdexcept>

#include "platform/database/connectiontext.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"

QString TestFolderTemplate() {
    const QString inMemory = QStringLiteral("/dev/shm");
    return (QFileInfo(inMemory).isWritable() ? inMemory : QDir::tempPath()) + QStringLiteral("/svs-test-XXXXXX");
}

namespace {

bool changesTables(const QString& statement) {
    static const QRegularExpression change(QStringLiteral("^(Create|Alter|Drop) (Table|Index|Trigger (?!refuse))"),
                                           QRegularExpression::CaseInsensitiveOption);
    return change.match(statement).hasMatch();
}

}  // namespace

QString FailureOf(db::Connection& connection, const QString& statement) {
    try {
        const db::Recordset rows(statement, connection);
    } catch (const db::DatabaseError& error) {
        return error.description;
    }
    ADD_FAILURE() << "This statement should have failed: " << statement.toStdString();
    return {};
}

QString DropTable(db::Connection& connection, const QString& table) {
    connection.Execute(db::Sql("Drop Table {}", db::Raw{table}));
    return FailureOf(connection, db::Sql("Select * from {}", db::Raw{table}));
}

TestDatabase::TestDatabase(SchemaScript script) : folder_(TestFolderTemplate()) {
    const QString serverText =
        qEnvironmentVariable(script == SchemaScript::Main ? "SVSCHEDULER_TEST_DATABASE" : "SVSCHEDULER_TEST_COMPANION");
    if (!serverText.isEmpty()) {
        server_.emplace(serverText, script, connection_);
        connectionText_ = server_->connectionText();
        connection_.Observe(
            [this](const db::Write& write) {
                if (changesTables(write.statement))
                    server_->setTablesChanged();
            },
            db::Told::Statements);
        return;
    }
    connectionText_ = QStringLiteral("Data Source=%1;Initial Catalog=test").arg(folder_.path());
    connection_.Create(connectionText_);
    ApplySchema(connection_, script);
}

TestDatabase::~TestDatabase() {
    const auto takeBack = [this] {
        for (const QString& trigger : std::as_const(triggers_))
            connection_.Execute(db::Sql("Drop Trigger {}", db::Raw{trigger}));
    };
    if (server_ && !db::Ignoring(takeBack))
        server_->setTablesChanged();
}

QString TestDatabase::source() const {
    return db::ParseConnectionText(connectionText_).value(QStringLiteral("data source"));
}

QString TestDatabase::catalog() const {
    return db::ParseConnectionText(connectionText_).value(QStringLiteral("initial catalog"));
}

QByteArray TestDatabase::iniSection() const {
    return QStringLiteral("[SQLServer]\nDataSource=%1\nInitialCatalog=%2\n").arg(source(), catalog()).toUtf8();
}

QString TestDatabase::file() const {
    return folder_.filePath(QStringLiteral("test.db"));
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
    const QString reason =
        QStringLiteral("The %1 statement conflicted with a CHECK constraint.").arg(operation.toUpper());
    if (!server_) {
        runInFile(QStringLiteral("Create Trigger refuse%1%2 Before %1 On %2 Begin Select Raise(Abort, 'Refused'); End")
                      .arg(operation, table));
        return reason;
    }
    connection_.Execute(
        db::Sql("Create Trigger refuse{}{} On {} After {} As Begin RaisError('{}', 16, 1) Rollback Transaction End",
                db::Raw{operation}, db::Raw{table}, db::Raw{table}, db::Raw{operation}, reason));
    triggers_.append(QLatin1String("refuse") + operation + table);
    return reason;
}

void TestDatabase::allow(const QString& operation, const QString& table) {
    const QString trigger = QLatin1String("refuse") + operation + table;
    const QString statement = db::Sql("Drop Trigger {}", db::Raw{trigger});
    if (!server_) {
        runInFile(statement);
        return;
    }
    connection_.Execute(statement);
    triggers_.removeOne(trigger);
}

// The embedded dialect has no triggers: one is put into the file as any SQLite tool would.
void TestDatabase::runInFile(const QString& statement) {
    sqlite3* opened = nullptr;
    sqlite3_open(file().toUtf8().constData(), &opened);
    const int code = sqlite3_exec(opened, statement.toUtf8().constData(), nullptr, nullptr, nullptr);
    const std::string message = sqlite3_errmsg(opened);
    sqlite3_close(opened);
    if (code != SQLITE_OK)
        throw std::runtime_error(message);
}
