// svscheduler-schema and svscheduler-demo as they are called from a command line.

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "data/connectionargument.h"
#include "platform/database/recordset.h"

namespace {

struct Outcome {
    int code = -1;
    QString out;
    QString err;
};

Outcome call(const char* tool, const QStringList& arguments) {
    QProcess process;
    process.start(QString::fromUtf8(tool), arguments);
    process.waitForFinished(60000);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QString text(const QTemporaryDir& folder, const char* catalog) {
    return QStringLiteral("Data Source=%1;Initial Catalog=%2;").arg(folder.path(), QLatin1String(catalog));
}

TEST(SchemaTool, CreatesBothDatabasesAndRefusesToDoItTwice) {
    const QTemporaryDir folder;
    const QStringList both{"--main", text(folder, "practice"), "--companion", text(folder, "companion")};
    EXPECT_EQ(call(SCHEMA_TOOL, both).code, 0);
    EXPECT_TRUE(QFile::exists(folder.filePath("practice.db")));
    EXPECT_TRUE(QFile::exists(folder.filePath("companion.db")));
    const Outcome again = call(SCHEMA_TOOL, both);
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.err.contains("already has the table ClientTransactions; nothing was changed"));
}

TEST(SchemaTool, MendsTheAppointmentsOfAPracticeThatWorksAlreadyAndTellsHowMany) {
    const QTemporaryDir folder;
    const QStringList main{"--main", text(folder, "practice")};
    ASSERT_EQ(call(SCHEMA_TOOL, main).code, 0);
    db::Connection practice;
    practice.Open(text(folder, "practice"));
    practice.Execute("Drop Trigger appointments_added");
    practice.Execute("Insert Into appointments (cappttext, appttype) Values ('old', Null), ('older', Null)");
    const Outcome outcome = call(SCHEMA_TOOL, main);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.contains("without a type (appttype null): 2.")) << outcome.out.toStdString();
    practice.Execute("Insert Into appointments (cappttext, appttype) Values ('new', Null)");
    const db::Recordset rows("Select * from appointments Where appttype = 0", practice);
    EXPECT_EQ(rows.RecordCount(), 3);
    EXPECT_TRUE(call(SCHEMA_TOOL, main).out.contains("(appttype null): 0."));
}

TEST(SchemaTool, TellsWhatItWantsAndWhatItCannotOpen) {
    EXPECT_EQ(call(SCHEMA_TOOL, {}).code, 2);
    EXPECT_TRUE(call(SCHEMA_TOOL, {"--help"}).out.contains("SVSCHEDULER_PASSWORD_SVS"));
    const Outcome outcome = call(SCHEMA_TOOL, {"--main", "Data Source=/nowhere/at/all;Initial Catalog=practice;"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains("cannot be opened")) << outcome.err.toStdString();
}

TEST(DemoTool, FillsDatabasesThatHaveTheirTablesAndOnlyOnce) {
    const QTemporaryDir folder;
    const QStringList both{"--main", text(folder, "practice"), "--companion", text(folder, "companion")};
    QStringList fill = both;
    fill << "--appointments"
         << "500"
         << "--date"
         << "2026-11-18"
         << "--seed"
         << "3";
    EXPECT_EQ(call(DEMO_TOOL, fill).code, 1);
    EXPECT_FALSE(QFile::exists(folder.filePath("practice.db")));
    ASSERT_EQ(call(SCHEMA_TOOL, both).code, 0);
    EXPECT_EQ(call(DEMO_TOOL, fill).code, 0);
    const Outcome again = call(DEMO_TOOL, fill);
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.err.contains("already holds rows; nothing was changed"));

    db::Connection main;
    main.Open(text(folder, "practice"));
    const db::Recordset settings("Select FHServer, FHDatabaseName from settings", main);
    EXPECT_EQ(settings["FHServer"].text(), folder.path());
    EXPECT_EQ(settings["FHDatabaseName"].text(), "companion");
}

TEST(DemoTool, MakesAPracticeThatNobodyElseCanRead) {
    const QTemporaryDir folder;
    const QString data = folder.filePath("data");
    ASSERT_EQ(call(DEMO_TOOL, {"--data", data, "--appointments", "200"}).code, 0);
    constexpr QFile::Permissions Others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(data) & Others);
    for (const char* file : {"practice.db", "companion.db", "solvane.ini", "svwsched.ini"}) {
        ASSERT_TRUE(QFile::exists(data + '/' + file)) << file;
        EXPECT_FALSE(QFile::permissions(data + '/' + file) & Others) << file;
    }
    EXPECT_TRUE(QFileInfo(data + "/solvaned.exe").isExecutable()) << "It has a notes program to try.";
}

TEST(DemoTool, SaysWhichArgumentItCannotRead) {
    const QTemporaryDir folder;
    const QString data = folder.filePath("data");
    EXPECT_EQ(call(DEMO_TOOL, {}).code, 2);
    EXPECT_EQ(call(DEMO_TOOL, {"--main", "Data Source=:memory:"}).code, 2);
    EXPECT_TRUE(call(DEMO_TOOL, {"--data", data, "--seed", "x"}).err.contains("--seed"));
    EXPECT_TRUE(call(DEMO_TOOL, {"--data", data, "--appointments", "0"}).err.contains("--appointments"));
    EXPECT_TRUE(call(DEMO_TOOL, {"--data", data, "--date", "18.11.2026"}).err.contains("--date"));
    EXPECT_FALSE(QFile::exists(data));
}

TEST(ConnectionArgument, TheEnvironmentsPasswordStandsInForAMissingOne) {
    qputenv("SVS_TEST_PASSWORD", "a;b\"c");
    EXPECT_EQ(WithPassword("Data Source=host", "SVS_TEST_PASSWORD"), "Data Source=host;Password=\"a;b\"\"c\";");
    EXPECT_EQ(WithPassword("Data Source=host;Password=x;", "SVS_TEST_PASSWORD"), "Data Source=host;Password=x;");
    qunsetenv("SVS_TEST_PASSWORD");
    EXPECT_EQ(WithPassword("Data Source=host", "SVS_TEST_PASSWORD"), "Data Source=host");
}

}  // namespace
