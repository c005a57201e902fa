#pragma once

#include <QStringList>

#include "platform/database/connection.h"

/// The two databases that the system reads and writes. Each has a script of its own.
enum class SchemaScript { Main, Companion };

/// Returns the statements of a script's text, in which a line GO ends each, in order and without comments.
[[nodiscard]] QStringList StatementsOf(const QString& scriptText);

/// Returns the statements of a script in order, without its comments.
[[nodiscard]] QStringList SchemaStatements(SchemaScript script);

/// Returns the names of the tables that a script creates, in order.
[[nodiscard]] QStringList SchemaTables(SchemaScript script);

/// Returns the first table of a script that the open database already has, or an empty text for none.
[[nodiscard]] QString ExistingSchemaTable(db::Connection& connection, SchemaScript script);

/// Returns whether columns ("a, b" or "*") of a table can be read. Throws DatabaseError when the database cannot be
/// reached.
[[nodiscard]] bool CanRead(db::Connection& connection, const QString& table, const QString& columns);

/// Returns whether the open database has a table, so that a part of the program that needs it can be left out. Throws
/// DatabaseError when the database cannot be reached.
[[nodiscard]] bool HasTable(db::Connection& connection, const QString& table);

/// Creates all tables and indexes of a script in the open, empty database. Either all are created or none: the first
/// failing statement throws its DatabaseError and leaves nothing behind.
void ApplySchema(db::Connection& connection, SchemaScript script);

/// The version of the main database's schema that this program works with.
inline constexpr int CurrentSchema = 2;

/// Writes CurrentSchema into the row `SVSchedulerSchema` of `DefaultFieldValues` of a main database. Throws
/// DatabaseError.
void WriteSchemaVersion(db::Connection& main);

/// Mends a main database whose tables were made by an earlier version or another program. It makes the triggers of the
/// script anew and gives each appointment without an `appttype` the 0 of an ordinary one. The tables themselves stay as
/// they are. Returns the number of appointments that were changed. Either everything is done or nothing. Throws
/// DatabaseError.
qint64 MendAppointments(db::Connection& connection);
