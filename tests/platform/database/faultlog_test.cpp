// What the log is told of a statement that fails.

#include <gtest/gtest.h>

#include <QLoggingCategory>

#include "contract.h"

namespace {

QStringList& told() {
    static QStringList lines;
    return lines;
}

void keep(QtMsgType, const QMessageLogContext& context, const QString& message) {
    if (QString::fromLatin1(context.category) == QLatin1String("svscheduler.faults"))
        told() << message;
}

class FaultLog : public testing::Test {
  protected:
    FaultLog() {
        told().clear();
        QLoggingCategory::setFilterRules(QStringLiteral("svscheduler.faults.info=true"));
        before = qInstallMessageHandler(keep);
    }
    ~FaultLog() override {
        qInstallMessageHandler(before);
        QLoggingCategory::setFilterRules({});
    }

    QtMessageHandler before = nullptr;
};

}  // namespace

TEST_F(FaultLog, HoldsTheNumberAndTheStatementWithoutNamesAndSecrets) {
    TestDatabase database;
    static_cast<void>(
        FailureOf(database.connection(),
                  QStringLiteral("Update appointments Set dapptdate = 'O''Brien, Anna' Where nosuch = 'x'")));
    ASSERT_EQ(told().size(), 1);
    EXPECT_TRUE(told()[0].contains(QStringLiteral("Update appointments Set dapptdate = '...' Where nosuch = '...'")))
        << told()[0].toStdString();
    EXPECT_FALSE(told()[0].contains(QStringLiteral("Brien")));
    EXPECT_GT(told()[0].section(QLatin1Char(' '), 0, 0).toInt(), 0);
}

TEST_F(FaultLog, HoldsNothingOfAValueThatTheDatabaseRefused) {
    TestDatabase database;
    const QString name = QStringLiteral("O'Brien, Mary ").repeated(40);
    static_cast<void>(FailureOf(database.connection(), db::Sql("Update rooms Set Room = '{}'", name)));
    static_cast<void>(FailureOf(database.connection(), db::Sql("Insert Into rooms (Room) Values ('{}')", name)));
    static_cast<void>(
        FailureOf(database.connection(), QStringLiteral("Insert Into rooms (Room) Values ('O'Brien, Mary')")));
    ASSERT_GE(told().size(), 2);
    for (const QString& line : std::as_const(told())) {
        EXPECT_FALSE(line.contains(QStringLiteral("Brien"))) << line.toStdString();
        EXPECT_FALSE(line.contains(QStringLiteral("Mary"))) << line.toStdString();
    }
}

TEST_F(FaultLog, HoldsALoginThatFailedWithoutItsPassword) {
    db::Connection connection;
    EXPECT_THROW(
        connection.Open(QStringLiteral("Data Source=/nowhere/at/all;Initial Catalog=practice;Password=secret;")),
        db::DatabaseError);
    ASSERT_EQ(told().size(), 1);
    EXPECT_TRUE(told()[0].startsWith(QStringLiteral("4060"))) << told()[0].toStdString();
    EXPECT_FALSE(told()[0].contains(QStringLiteral("secret")));
}
