#pragma once

#include <optional>
#include <QTemporaryDir>

#include "data/schema.h"
#include "platform/database/connection.h"
#include "tests/support/serverdatabase.h"

/// Where a test may make a temporary folder: in memory where there is such a place, since a test needs no disk.
QString TestFolderTemplate();

/// What the database says to a statement that fails; a statement that does not fail fails the test.
QString FailureOf(db::Connection& connection, const QString& statement);
/// Drops a table; gives what the database says from then on of the table's name, written like this.
QString DropTable(db::Connection& connection, const QString& table);

/// A database for one test, with the empty tables of a script: an embedded file that goes with the object. Where
/// SVSCHEDULER_TEST_DATABASE (SVSCHEDULER_TEST_COMPANION for the companion) holds a connection text, it is one on that
/// server instead, which no other test has at the same time. A test may drop and change tables: the next one has them
/// as the script makes them.
class TestDatabase {
  public:
    explicit TestDatabase(SchemaScript script = SchemaScript::Main);
    ~TestDatabase();

    /// Open for the test to fill and to read back; a form opens its own by connectionText().
    [[nodiscard]] db::Connection& connection() { return connection_; }
    [[nodiscard]] const QString& connectionText() const { return connectionText_; }
    /// The server, or the folder of the embedded file, and the name, as an ini file or the settings tell them. The
    /// program finds the password of its login in the environment.
    [[nodiscard]] QString source() const;
    [[nodiscard]] QString catalog() const;
    /// The section of `solvane.ini` by which the program opens it.
    [[nodiscard]] QByteArray iniSection() const;
    /// The embedded file.
    [[nodiscard]] QString file() const;
    [[nodiscard]] bool isOnServer() const { return server_.has_value(); }

    /// The first field of the first row, as text; "(none)" where there is no row.
    [[nodiscard]] QString text(const QString& statement);
    /// The first field of the first row, as a number; -1 where there is no row.
    [[nodiscard]] qint64 number(const QString& statement);
    /// From now on the database refuses every "Insert", "Update" or "Delete" on a table, a cursor's too; gives the
    /// reason that it will say. On a server a refusal ends the transaction that is open, as a deadlock does.
    QString refuse(const QString& operation, const QString& table);
    /// Takes that back.
    void allow(const QString& operation, const QString& table);

  private:
    void runInFile(const QString& statement);

    QTemporaryDir folder_;
    std::optional<ServerDatabase> server_;
    QString connectionText_;
    QStringList triggers_;  ///< That refuse something on the server.
    db::Connection connection_;
};
