#include "tests/platform/database/embedded/dialect.h"

#include "platform/database/recordset.h"

namespace {

QStringList linesOf(const char* statements) {
    QStringList lines;
    for (const QString& line : QString::fromUtf8(statements).split(u'\n', Qt::SkipEmptyParts))
        if (!line.trimmed().isEmpty())
            lines.append(line);
    return lines;
}

QString answerOf(db::Connection& connection, const QString& statement) {
    QStringList rows;
    for (db::Recordset read(statement, connection); !read.Eof(); read.MoveNext()) {
        QStringList fields;
        for (int i = 0; i < static_cast<int>(read.Columns().size()); ++i)
            fields.append(read[i].isNull() ? QStringLiteral("null") : read[i].text());
        rows.append(fields.join(u'|'));
    }
    return rows.join(u'/');
}

}  // namespace

Dialect::Dialect(const char* tables) {
    const QStringList statements = linesOf(tables);
    for (const QString& statement : statements) {
        practice.engine.execute(statement, {});
        if (statement.startsWith(QLatin1String("Create Table "), Qt::CaseInsensitive))
            tables_.prepend(statement.section(u' ', 2, 2));
    }
    if (qEnvironmentVariableIsEmpty("SVSCHEDULER_TEST_DATABASE"))
        return;
    server_ = std::make_unique<Server>();
    server_->connection.Open(server_->database.connectionText());
    const db::Recordset version("Select @@Version", server_->connection);
    server_->isSqlServer = version[0].text().startsWith(QLatin1String("Microsoft SQL Server"));
    dropTables();
    for (const QString& statement : statements)
        server_->connection.Execute(statement);
}

Dialect::~Dialect() {
    if (server_)
        dropTables();
}

void Dialect::dropTables() {
    for (const QString& table : std::as_const(tables_))
        db::Ignoring([&] { server_->connection.Execute(QStringLiteral("Drop Table %1").arg(table)); });
}

bool Dialect::isAsked(Asked asked) const {
    return server_ && (asked == Asked::EveryServer || server_->isSqlServer);
}

void Dialect::ask(const QString& statement, const QString& answer, Asked asked) {
    try {
        EXPECT_EQ(practice.one(statement), answer) << statement.toStdString();
        if (isAsked(asked)) {
            EXPECT_EQ(answerOf(server_->connection, statement), answer) << "The server: " << statement.toStdString();
        }
    } catch (const db::DatabaseError& error) {
        ADD_FAILURE() << statement.toStdString() << "\n" << error.number << " " << error.what();
    }
}

void Dialect::gives(const QString& statement, const QString& answer) {
    ask(statement, answer, Asked::EveryServer);
}

void Dialect::givesOnSqlServer(const QString& statement, const QString& answer) {
    ask(statement, answer, Asked::SqlServerAlone);
}

void Dialect::writes(const QString& statement, qint64 rows) {
    try {
        EXPECT_EQ(practice.engine.execute(statement, {}), rows) << statement.toStdString();
        if (server_) {
            EXPECT_EQ(server_->connection.Execute(statement), rows) << "The server: " << statement.toStdString();
        }
    } catch (const db::DatabaseError& error) {
        ADD_FAILURE() << statement.toStdString() << "\n" << error.number << " " << error.what();
    }
}

void Dialect::expectFailure(const QString& statement, int number, const QString& sentence, Asked asked) {
    const QString failure = practice.failure(statement);
    EXPECT_EQ(failure.section(u' ', 0, 0).toInt(), number) << statement.toStdString() << "\n" << failure.toStdString();
    if (!sentence.isEmpty()) {
        EXPECT_EQ(failure.section(u' ', 1), sentence) << statement.toStdString();
    }
    if (!isAsked(asked))
        return;
    try {
        answerOf(server_->connection, statement);
        ADD_FAILURE() << "The server lets it pass: " << statement.toStdString();
    } catch (const db::DatabaseError& error) {
        if (server_->isSqlServer) {
            EXPECT_EQ(error.number, number) << "The server: " << statement.toStdString();
        }
    }
}

void Dialect::fails(const QString& statement, int number, const QString& sentence) {
    expectFailure(statement, number, sentence, Asked::EveryServer);
}

void Dialect::failsOnSqlServer(const QString& statement, int number, const QString& sentence) {
    expectFailure(statement, number, sentence, Asked::SqlServerAlone);
}
