#include "data/upkeep/schemaversion.h"

#include <QRegularExpression>
#include <stdexcept>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"

namespace upkeep {

namespace {

/// A table of the script: its statement, and the lines that define its columns.
struct ScriptTable {
    QString name;
    QString create;
    QStringList columns;  ///< "dapptdate datetime null"
};

std::vector<ScriptTable> tablesOf(SchemaScript script) {
    static const QRegularExpression head(QStringLiteral("^Create Table (\\w+) \\("));
    std::vector<ScriptTable> tables;
    const QStringList statements = SchemaStatements(script);
    for (const QString& statement : statements) {
        const QRegularExpressionMatch match = head.match(statement);
        if (!match.hasMatch())
            continue;
        ScriptTable table{match.captured(1), statement, {}};
        const QStringList lines = statement.split(QLatin1Char('\n'));
        for (const QString& line : lines.mid(1))
            if (line.startsWith(QLatin1String("    ")) && !line.startsWith(QLatin1String("    primary key")))
                table.columns << QString(line.trimmed()).remove(QRegularExpression(QStringLiteral(",$")));
        tables.push_back(table);
    }
    return tables;
}

QString nameOf(const QString& column) {
    return column.section(QLatin1Char(' '), 0, 0);
}

/// The default of a column, "" for none. A server gives it to later rows only.
QString defaultOf(const QString& column) {
    return column.section(QStringLiteral(" default "), 1, 1);
}

QStringList missingColumns(db::Connection& connection, const ScriptTable& table) {
    QStringList missing;
    for (const QString& column : table.columns)
        if (!CanRead(connection, table.name, nameOf(column)))
            missing << column;
    return missing;
}

/// The statements that make what is missing. A column that other programs' rows have no value for may be null.
QStringList additions(db::Connection& main, QStringList& done) {
    QStringList statements;
    for (const ScriptTable& table : tablesOf(SchemaScript::Main)) {
        if (!HasTable(main, table.name)) {
            statements << table.create;
            done << QStringLiteral("The table %1 was made.").arg(table.name);
            continue;
        }
        for (const QString& column : missingColumns(main, table)) {
            statements << db::Sql("Alter Table {} Add {}", db::Raw{table.name}, db::Raw{column});
            if (const QString usual = defaultOf(column); !usual.isEmpty())
                statements << db::Sql("Update {} Set {} = {} Where {} Is Null", db::Raw{table.name},
                                      db::Raw{nameOf(column)}, db::Raw{usual}, db::Raw{nameOf(column)});
            done << QStringLiteral("The column %1.%2 was added.").arg(table.name, nameOf(column));
        }
    }
    return statements;
}

void makeIndexes(db::Connection& main) {
    static const QRegularExpression index(QStringLiteral("^Create Index "));
    const QStringList statements = SchemaStatements(SchemaScript::Main).filter(index);
    for (const QString& statement : statements)
        db::Ignoring([&] { main.Execute(statement); });
}

/// Adds what the script has and the database lacks. That is the whole step from version 1, which lacks tables only.
QStringList addWhatIsMissing(db::Connection& main) {
    QStringList done;
    const QStringList statements = additions(main, done);
    db::InTransaction(main, [&] {
        for (const QString& statement : statements)
            main.Execute(statement);
    });
    makeIndexes(main);
    return done;
}

/// The triggers, and appointments without a type, of tables without a number.
QStringList mendUnnumbered(db::Connection& main) {
    const qint64 mended = MendAppointments(main);
    if (mended == 0)
        return {};
    return {QStringLiteral("%1 appointments without a type are ordinary ones now.").arg(mended)};
}

}  // namespace

int SchemaVersion(db::Connection& main) {
    if (!CanRead(main, QStringLiteral("DefaultFieldValues"), QStringLiteral("DfltValue")))
        return 0;
    const db::Recordset version("Select DfltValue from DefaultFieldValues Where dfltfieldname = 'SVSchedulerSchema'",
                                main);
    return version.Eof() ? 0 : version[0].text().toInt();
}

QStringList MissingParts(db::Connection& connection, SchemaScript script) {
    QStringList missing;
    for (const ScriptTable& table : tablesOf(script)) {
        if (!HasTable(connection, table.name)) {
            missing << table.name;
            continue;
        }
        for (const QString& column : missingColumns(connection, table))
            missing << table.name + QLatin1Char('.') + nameOf(column);
    }
    return missing;
}

QStringList Upgrade(db::Connection& main) {
    const int version = SchemaVersion(main);
    if (version > CurrentSchema)
        throw std::runtime_error(
            QStringLiteral(
                "The database has version %1 of its schema, and this program knows up to %2. Install the newer program.")
                .arg(version)
                .arg(CurrentSchema)
                .toStdString());
    QStringList done;
    if (version < CurrentSchema)
        done = addWhatIsMissing(main);
    if (version == 0)
        done << mendUnnumbered(main);
    if (version < CurrentSchema)
        WriteSchemaVersion(main);
    return done;
}

}  // namespace upkeep
