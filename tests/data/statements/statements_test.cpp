// Every statement that the system sends, with its places filled in, runs on the tables of the schema scripts. main.txt
// and companion.txt hold one statement a line; a line with # names what follows.

#include <gtest/gtest.h>

#include <QFile>

#include "data/demo/demo.h"
#include "platform/database/recordset.h"
#include "tests/support/testdatabase.h"

namespace {

QStringList statementsOf(const char* list) {
    QFile file(QStringLiteral(STATEMENTS "/%1").arg(QLatin1String(list)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList statements;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#')))
            statements.append(line);
    }
    return statements;
}

void send(const QString& statement, db::Connection& connection) {
    if (statement.trimmed().startsWith(QLatin1String("Select"), Qt::CaseInsensitive))
        static_cast<void>(db::Recordset(statement, connection).GetRows());
    else
        connection.Execute(statement);
}

/// Sends each statement to tables with rows, so that comparisons and conversions happen, and takes back what it wrote.
void expectAllRun(const char* list, db::Connection& connection) {
    const QStringList statements = statementsOf(list);
    EXPECT_GT(statements.size(), 40);
    for (const QString& statement : statements) {
        connection.BeginTrans();
        try {
            send(statement, connection);
        } catch (const db::DatabaseError& error) {
            ADD_FAILURE() << statement.toStdString() << "\n  " << error.number << ", " << error.what();
        }
        connection.RollbackTrans();
    }
}

class Statements : public testing::Test {
  protected:
    void SetUp() override {
        demo::MakePractice({1, 1000, QDate(2026, 11, 20)}, main_.connection(), companion_.connection(),
                           {QStringLiteral("."), QStringLiteral("companion")});
    }

    TestDatabase main_{SchemaScript::Main};
    TestDatabase companion_{SchemaScript::Companion};
};

TEST_F(Statements, AllOfTheMainDatabaseRun) {
    expectAllRun("main.txt", main_.connection());
}

TEST_F(Statements, AllOfTheCompanionDatabaseRun) {
    expectAllRun("companion.txt", companion_.connection());
}

}  // namespace
