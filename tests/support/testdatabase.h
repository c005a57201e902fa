#pragma once

#include <QTemporaryDir>

#include "data/schema.h"
#include "platform/database/connection.h"

/// Where a test may make a temporary folder: in memory where there is such a place, since a test needs no disk.
QString TestFolderTemplate();

/// A database for one test, with the empty tables of a script: an embedded file that goes with the object. Where
/// SVSCHEDULER_TEST_DATABASE (SVSCHEDULER_TEST_COMPANION for the companion) holds a connection text, it is the database
/// on that server instead, emptied; such a suite runs one test at a time.
class TestDatabase {
  public:
    explicit TestDatabase(SchemaScript script = SchemaScript::Main);

    /// Open for the test to fill and to read back; a form opens its own by connectionText().
    [[nodiscard]] db::Connection& connection() { return connection_; }
    [[nodiscard]] const QString& connectionText() const { return connectionText_; }

    /// The first field of the first row, as text; "(none)" where there is no row.
    [[nodiscard]] QString text(const QString& statement);
    /// The first field of the first row, as a number; -1 where there is no row.
    [[nodiscard]] qint64 number(const QString& statement);
    /// From now on the embedded database refuses every "Insert", "Update" or "Delete" on a table, a cursor's too; gives
    /// the reason that it will say. A server is left as it is, which throws std::logic_error.
    QString refuse(const QString& operation, const QString& table);
    /// Takes that back.
    void allow(const QString& operation, const QString& table);

  private:
    void runInFile(const QString& statement);

    QTemporaryDir folder_;
    QString connectionText_;
    db::Connection connection_;
};
