#include "data/schema.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"

#include <QFile>
#include <QRegularExpression>

// The scripts are in a static library, whose resources are dropped unless they are asked for. The macro must be used
// outside of a namespace.
static void LoadScripts() {
    Q_INIT_RESOURCE(schema);
}

namespace {

QString ScriptText(SchemaScript script) {
    LoadScripts();
    QFile file(script == SchemaScript::Main ? QStringLiteral(":/svscheduler/schema/main.sql")
                                            : QStringLiteral(":/svscheduler/schema/companion.sql"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The schema script %s is not compiled in.", qPrintable(file.fileName()));
    return QString::fromUtf8(file.readAll());
}

}  // namespace

QStringList StatementsOf(const QString& scriptText) {
    QStringList statements;
    QString statement;
    const QStringList lines = scriptText.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line == QLatin1String("GO")) {
            statements.append(statement.trimmed());
            statement.clear();
        } else if (!line.startsWith(QLatin1String("--"))) {
            statement += line + QLatin1Char('\n');
        }
    }
    return statements;
}

QStringList SchemaStatements(SchemaScript script) {
    return StatementsOf(ScriptText(script));
}

QStringList SchemaTables(SchemaScript script) {
    static const QRegularExpression createTable(QStringLiteral("^Create Table (\\w+) "));
    QStringList tables;
    const QStringList statements = SchemaStatements(script);
    for (const QString& statement : statements) {
        const QRegularExpressionMatch match = createTable.match(statement);
        if (match.hasMatch())
            tables.append(match.captured(1));
    }
    return tables;
}

bool CanRead(db::Connection& connection, const QString& table, const QString& columns) {
    try {
        const db::Recordset rows(db::Sql("Select {} from {} Where 0=1", db::Raw{columns}, db::Raw{table}), connection);
        return true;
    } catch (const db::DatabaseError& error) {
        if (db::IsLinkFailure(error))
            throw;
        return false;
    }
}

bool HasTable(db::Connection& connection, const QString& table) {
    return CanRead(connection, table, QStringLiteral("*"));
}

QString ExistingSchemaTable(db::Connection& connection, SchemaScript script) {
    const QStringList tables = SchemaTables(script);
    for (const QString& table : tables) {
        const auto read = [&] {
            db::Recordset rows(db::Sql("Select * from {} Where 0=1", db::Raw{table}), connection);
        };
        if (db::Ignoring(read))
            return table;
    }
    return {};
}

void ApplySchema(db::Connection& connection, SchemaScript script) {
    const QStringList statements = SchemaStatements(script);
    db::InTransaction(connection, [&] {
        for (const QString& statement : statements)
            connection.Execute(statement);
    });
}

void WriteSchemaVersion(db::Connection& main) {
    db::InTransaction(main, [&] {
        main.Execute("Delete from DefaultFieldValues Where dfltfieldname = 'SVSchedulerSchema'");
        main.Execute(
            db::Sql("Insert Into DefaultFieldValues (dfltfieldname, DfltValue) Values ('SVSchedulerSchema', '{}')",
                    CurrentSchema));
    });
}

qint64 MendAppointments(db::Connection& connection) {
    static const QRegularExpression createTrigger(QStringLiteral("^Create Trigger (\\w+) "));
    const QStringList triggers = SchemaStatements(SchemaScript::Main).filter(createTrigger);
    // Which triggers exist is tried beforehand, because on some servers a failure within the transaction would end it.
    QStringList drops;
    for (const QString& trigger : triggers) {
        const QString drop = db::Sql("Drop Trigger {}", db::Raw{createTrigger.match(trigger).captured(1)});
        connection.BeginTrans();
        if (db::Ignoring([&] { connection.Execute(drop); }))
            drops << drop;
        connection.RollbackTrans();
    }
    qint64 mended = 0;
    db::InTransaction(connection, [&] {
        for (const QString& drop : drops)
            connection.Execute(drop);
        for (const QString& trigger : triggers)
            connection.Execute(trigger);
        mended = connection.Execute("Update appointments Set appttype = 0 Where appttype Is Null");
    });
    return mended;
}
