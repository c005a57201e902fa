#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "contract.h"
#include "platform/database/connectiontext.h"
#include "serverdouble.h"

namespace {

const QString passwordOfTests = QStringLiteral("pa;ss}w'o\"rd{1");

/// The text of a connection to a server at this computer; FreeTDS is what every test machine has.
QString textFor(const QString& host, const QString& password = passwordOfTests) {
    const QString text =
        QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=Solvane;User Id=SVMaster;Password=\"%2\";")
            .arg(host, QString(password).replace('"', "\"\""));
    return db::SqlServerText(db::ParseConnectionText(text), {QStringLiteral("FreeTDS")});
}

db::DatabaseError failureAt(const QString& host, const QString& password = passwordOfTests) {
    db::Connection connection;
    auto error = FailureOf([&] { connection.Open(textFor(host, password)); });
    EXPECT_FALSE(connection.IsOpen());
    return error;
}

QString hostOf(const ServerDouble& server) {
    return QStringLiteral("127.0.0.1,%1").arg(server.port());
}

}  // namespace

TEST(Server, ARefusedLoginTellsTheServersNumberAndSentence) {
    const auto server = ServerDouble::refusing({{18456, "Login failed for user 'SVMaster'."}});
    const auto error = failureAt(hostOf(server));
    EXPECT_EQ(error.number, 18456);
    EXPECT_EQ(error.description, "Login failed for user 'SVMaster'.");
}

TEST(Server, AMissingDatabaseIsToldApartFromARefusedLogin) {
    const auto server =
        ServerDouble::refusing({{4060, "Cannot open database \"Solvane\" requested by the login. The login failed."},
                                {18456, "Login failed for user 'SVMaster'."}});
    const auto error = failureAt(hostOf(server));
    EXPECT_EQ(error.number, 4060);
    EXPECT_TRUE(error.description.startsWith("Cannot open database \"Solvane\" requested by the login."))
        << error.description.toStdString();
}

TEST(Server, UserPasswordAndDatabaseReachTheServerAsTheyStand) {
    for (const char* password : {"plain", "a;UID=sa;PWD=x", "br{ace}s}", "}", "quo'te\"s", "with blank ", "Zoë%1"}) {
        const auto server = ServerDouble::refusing({{18456, "Login failed."}});
        static_cast<void>(failureAt(hostOf(server), QString::fromUtf8(password)));
        EXPECT_EQ(server.user(), "SVMaster");
        EXPECT_EQ(server.database(), "Solvane");
        EXPECT_EQ(server.password().toStdString(), password);
    }
}

TEST(Server, ThePasswordIsInNoErrorText) {
    const auto server = ServerDouble::refusing({{18456, "Login failed for user 'SVMaster'."}});
    for (const QString& host :
         {hostOf(server), QStringLiteral("127.0.0.1,1"), QStringLiteral("no.such.host.invalid")}) {
        const auto error = failureAt(host);
        EXPECT_NE(error.number, 0);
        EXPECT_FALSE(error.description.contains("pa;ss") || error.statement.contains("pa;ss"))
            << error.description.toStdString();
    }
}

TEST(Server, AServerThatIsAwayIsReportedAtOnce) {
    QElapsedTimer timer;
    timer.start();
    const auto error = failureAt("127.0.0.1,1");
    EXPECT_NE(error.number, 0);
    EXPECT_TRUE(error.description.startsWith("SQL Server does not exist or access denied."))
        << error.description.toStdString();
    EXPECT_LT(timer.elapsed(), 3'000);
}

TEST(Server, AServerThatNeverAnswersIsGivenUpInAFewSeconds) {
    const auto server = ServerDouble::silent();
    QElapsedTimer timer;
    timer.start();
    const auto error = failureAt(hostOf(server));
    EXPECT_NE(error.number, 0);
    EXPECT_TRUE(error.description.startsWith("SQL Server does not exist or access denied."))
        << error.description.toStdString();
    EXPECT_LT(timer.elapsed(), 12'000);
}

TEST(Server, ADriverThatIsNotInstalledIsReported) {
    db::Connection connection;
    const auto error = FailureOf([&] { connection.Open("Driver={No Such Driver};Server=x;UID=u;PWD=secret"); });
    EXPECT_FALSE(error.description.isEmpty());
    EXPECT_FALSE(error.description.contains("secret"));
    EXPECT_FALSE(connection.IsOpen());
}

TEST(Server, TheDriversOfThisMachineAreFound) {
    EXPECT_TRUE(db::InstalledOdbcDrivers().contains("SQLite3"));
}

TEST(Server, LettersOfEveryScriptComeFromTheServer) {
    // Longer than what the driver hands over at once, and with pairs that a cut could part.
    const QString text = "a" + QString::fromUtf8("é🙂東").repeated(900);
    const auto server = ServerDouble::answering(text);
    db::Connection connection;
    connection.Open(textFor(hostOf(server)));
    const db::Recordset rows("Select cell from t", connection);
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_TRUE(rows["cell"].text() == text);
}

TEST(Server, LettersOfEveryScriptGoToTheServer) {
    const auto server = ServerDouble::answering("");
    db::Connection connection;
    connection.Open(textFor(hostOf(server)));
    EXPECT_EQ(connection.Execute(db::Sql("Update t Set a = '{}'", "Łukasz O'東")), 1);
    EXPECT_TRUE(server.received(QString::fromUtf8("a = N'Łukasz O''東'")));
    EXPECT_EQ(connection.Execute("Update t Set a = ?", {QString::fromUtf8("Ωμέγα 🙂")}), 1);
    EXPECT_TRUE(server.received(QString::fromUtf8("Ωμέγα 🙂")));
}
