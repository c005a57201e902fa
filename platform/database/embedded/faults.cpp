#include "platform/database/embedded/faults.h"

#include <sqlite3.h>
#include <QRegularExpression>

namespace db::embedded {

namespace {

struct Fault {
    int number;
    QString description;
};

/// The table and the columns in "... failed: table.column, table.column".
struct FailedColumns {
    QString table;
    QString columns;
};

FailedColumns failedColumns(const QString& message) {
    FailedColumns failed;
    const QString names = message.mid(message.indexOf(QStringLiteral(": ")) + 2);
    for (const QString& name : names.split(QStringLiteral(", "))) {
        failed.table = name.section(u'.', 0, 0);
        failed.columns += (failed.columns.isEmpty() ? QString() : QStringLiteral(", ")) + name.section(u'.', 1);
    }
    return failed;
}

Fault constraintFault(int code, const QString& message, const QString& statement) {
    const FailedColumns failed = failedColumns(message);
    const QString verb = statement.trimmed().section(QRegularExpression(QStringLiteral("\\s")), 0, 0).toUpper();
    switch (code) {
        case SQLITE_CONSTRAINT_NOTNULL:
            return {
                515,
                QStringLiteral(
                    "Cannot insert the value NULL into column '%1', table '%2'; column does not allow nulls. %3 fails.")
                    .arg(failed.columns, failed.table, verb)};
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return {2627,
                    QStringLiteral(
                        "Violation of PRIMARY KEY constraint on '%1'. Cannot insert duplicate key in object '%2'.")
                        .arg(failed.columns, failed.table)};
        case SQLITE_CONSTRAINT_UNIQUE:
            return {2627, QStringLiteral(
                              "Violation of UNIQUE KEY constraint on '%1'. Cannot insert duplicate key in object '%2'.")
                              .arg(failed.columns, failed.table)};
        case SQLITE_CONSTRAINT_FOREIGNKEY:
            return {
                547,
                QStringLiteral("The %1 statement conflicted with a FOREIGN KEY or REFERENCE constraint.").arg(verb)};
        default:
            return {547, QStringLiteral("The %1 statement conflicted with a CHECK constraint.").arg(verb)};
    }
}

/// Returns the fault that the translation could not see, because another desk changed the tables meanwhile.
Fault statementFault(const QString& message) {
    const QString name = message.mid(message.indexOf(QStringLiteral(": ")) + 2);
    if (message.startsWith(QStringLiteral("no such table")))
        return {208, QStringLiteral("Invalid object name '%1'.").arg(name)};
    if (message.startsWith(QStringLiteral("no such column")))
        return {207, QStringLiteral("Invalid column name '%1'.").arg(name)};
    if (message.startsWith(QStringLiteral("trigger ")) && message.endsWith(QStringLiteral(" already exists")))
        return {
            2714,
            QStringLiteral("There is already an object named '%1' in the database.").arg(message.section(u'"', 1, 1))};
    if (message.contains(QStringLiteral("integer overflow")))
        return {8115, QStringLiteral("Arithmetic overflow error converting expression to data type bigint.")};
    if (message.startsWith(QStringLiteral("misuse of aggregate")))
        return {
            147,
            QStringLiteral(
                "An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a HAVING clause or a select list, and the column being aggregated is an outer reference.")};
    return {102, QStringLiteral("Incorrect syntax: %1.").arg(message)};
}

Fault fileFault(int code, const QString& database) {
    switch (code) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {1222, QStringLiteral(
                              "Lock request time out period exceeded. Another desk is writing to the database \"%1\".")
                              .arg(database)};
        case SQLITE_READONLY:
            return {
                3906,
                QStringLiteral("Failed to update database \"%1\" because the database is read-only.").arg(database)};
        case SQLITE_FULL:
            return {
                1105,
                QStringLiteral("Could not allocate space in database \"%1\" because the disk is full.").arg(database)};
        case SQLITE_NOTADB:
            return {code, QStringLiteral("The file of the database \"%1\" is not a database. (SQLite error %2)")
                              .arg(database)
                              .arg(code)};
        case SQLITE_CORRUPT:
            return {
                code,
                QStringLiteral(
                    "The file of the database \"%1\" is damaged or cut short. Restore it from a backup. (SQLite error %2)")
                    .arg(database)
                    .arg(code)};
        case SQLITE_CANTOPEN:
        case SQLITE_IOERR:
            return {code, QStringLiteral("Reading or writing the database \"%1\" failed. (SQLite error %2)")
                              .arg(database)
                              .arg(code)};
        default:
            return {0, {}};
    }
}

}  // namespace

DatabaseError FaultOf(sqlite3* handle, int fault, const QString& database, const QString& statement) {
    const int code = sqlite3_extended_errcode(handle);
    const int primary = code & 0xFF;
    const QString message = QString::fromUtf8(sqlite3_errmsg(handle));
    if (fault != 0)
        return {fault, message, statement};
    Fault found =
        primary == SQLITE_CONSTRAINT ? constraintFault(code, message, statement) : fileFault(primary, database);
    if (found.number == 0)
        found = primary == SQLITE_ERROR ? statementFault(message) : Fault{primary, message};
    return {found.number, found.description, statement};
}

DatabaseError OpeningFault(int code, const QString& database) {
    const int primary = code & 0xFF;
    if (primary == SQLITE_READONLY || primary == SQLITE_CANTOPEN || primary == SQLITE_PERM || primary == SQLITE_AUTH)
        return {
            primary,
            QStringLiteral(
                "The database \"%1\" cannot be opened. Its file and folder must be readable and writable for you. (SQLite error %2)")
                .arg(database)
                .arg(primary)};
    const Fault fault = fileFault(primary, database);
    if (fault.number != 0)
        return {fault.number, fault.description};
    return {code, QStringLiteral("The database \"%1\" cannot be opened. (SQLite error %2)").arg(database).arg(code)};
}

DatabaseError MissingDatabase(const QString& database) {
    return {4060,
            QStringLiteral("Cannot open database \"%1\" requested by the login. The login failed.").arg(database)};
}

DatabaseError ReplacedDatabase(const QString& database) {
    return {
        LinkFailure,
        QStringLiteral(
            "The file of the database \"%1\" was moved, deleted or replaced while it was open. Nothing is saved until it is opened again.")
            .arg(database),
        {},
        QString::fromLatin1(LinkFailureState)};
}

}  // namespace db::embedded
