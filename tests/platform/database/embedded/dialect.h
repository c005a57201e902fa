#pragma once

#include <memory>

#include "platform/database/connection.h"
#include "tests/platform/database/embedded/practice.h"
#include "tests/support/testdatabase.h"

/// Questions about the language, each with the answer that SQL Server documents. They are asked of the embedded engine
/// and, where SVSCHEDULER_TEST_DATABASE names a server, of that one too: both must give the same.
///
/// An answer is the rows joined by "/", their fields by "|", null as "null".
class Dialect : public testing::Test {
  protected:
    /// Statements that make and fill the tables of the test, one a line. No table of the program may have their names.
    explicit Dialect(const char* tables = "");
    ~Dialect() override;

    void gives(const QString& statement, const QString& answer);
    /// The same for what a server of another make is known to answer in its own way.
    void givesOnSqlServer(const QString& statement, const QString& answer);
    /// The statement is carried out and writes so many rows.
    void writes(const QString& statement, qint64 rows);
    /// The statement fails with that number, and with the sentence where one is told. Sentences are compared on the
    /// embedded engine alone: the server puts its own names into some.
    void fails(const QString& statement, int number, const QString& sentence = {});
    /// The same for what a server of another make lets pass.
    void failsOnSqlServer(const QString& statement, int number, const QString& sentence = {});

    Practice practice;  ///< The embedded engine.

  private:
    struct Server {
        TestDatabase database;
        db::Connection connection;
        bool isSqlServer = false;
    };
    enum class Asked { EveryServer, SqlServerAlone };
    void ask(const QString& statement, const QString& answer, Asked asked);
    void expectFailure(const QString& statement, int number, const QString& sentence, Asked asked);
    [[nodiscard]] bool isAsked(Asked asked) const;
    void dropTables();

    QStringList tables_;
    std::unique_ptr<Server> server_;
};
