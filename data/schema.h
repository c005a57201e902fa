#pragma once

#include <QStringList>

#include "platform/database/connection.h"

/// The two databases that the system reads and writes, each with a script of its own.
enum class SchemaScript { Main, Companion };

/// The statements of a script in their order, without its comments.
[[nodiscard]] QStringList SchemaStatements(SchemaScript script);

/// The names of the tables that a script creates, in its order.
[[nodiscard]] QStringList SchemaTables(SchemaScript script);

/// The first table of a script that the open database already holds; empty where it holds none.
[[nodiscard]] QString ExistingSchemaTable(db::Connection& connection, SchemaScript script);

/// Creates all tables and indexes of a script in the open, empty database. It is done whole or not at all: the first
/// failing statement throws its DatabaseError and leaves nothing behind.
void ApplySchema(db::Connection& connection, SchemaScript script);

/// For a main database that has its tables, since an earlier version or another program made them: makes the triggers
/// of the script anew and gives each appointment without `appttype` the 0 of an ordinary one. Returns how many those
/// were. It is done whole or not at all, and leaves the tables themselves alone.
qint64 MendAppointments(db::Connection& connection);
