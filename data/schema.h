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
