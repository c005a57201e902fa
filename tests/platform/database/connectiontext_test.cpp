#include "platform/database/connectiontext.h"

#include <gtest/gtest.h>

#include "platform/database/error.h"

using db::EmbeddedFile;
using db::ParseConnectionText;
using db::SqlServerText;

namespace {

const QString sample = QStringLiteral(
    "Provider=SQLOLEDB;Data Source=desk\\SQLEXPRESS;Initial Catalog=Solvane;User Id=SVMaster;Password=p4;");

QString serverText(const QString& connectionText, const QStringList& drivers = {QStringLiteral("FreeTDS")}) {
    return SqlServerText(ParseConnectionText(connectionText), drivers);
}

}  // namespace

TEST(ConnectionText, KeywordsAreReadInAnyCaseAndWithTheirOtherNames) {
    const auto fields = ParseConnectionText("DATA source = host ;DATABASE=d;UID=u;pwd=p");
    EXPECT_EQ(fields["data source"], "host");
    EXPECT_EQ(fields["initial catalog"], "d");
    EXPECT_EQ(fields["user id"], "u");
    EXPECT_EQ(fields["password"], "p");
}

TEST(ConnectionText, AQuotedValueMayHoldSemicolonsEqualSignsAndQuotes) {
    const auto fields = ParseConnectionText(R"(Password="a;b=c""d'e" ; User Id='it''s';Data Source=h)");
    EXPECT_EQ(fields["password"], "a;b=c\"d'e");
    EXPECT_EQ(fields["user id"], "it's");
    EXPECT_EQ(fields["data source"], "h");
}

TEST(ConnectionText, EmptyAndBrokenPiecesAreSkipped) {
    const auto fields = ParseConnectionText(";;nonsense;Data Source=h;Password=");
    EXPECT_EQ(fields["data source"], "h");
    EXPECT_EQ(fields["password"], "");
    EXPECT_TRUE(ParseConnectionText("").isEmpty());
}

TEST(ConnectionText, AFolderNamesAnEmbeddedDatabase) {
    EXPECT_EQ(EmbeddedFile(ParseConnectionText("Data Source=/srv/data;Initial Catalog=Solvane")),
              "/srv/data/Solvane.db");
    EXPECT_EQ(EmbeddedFile(ParseConnectionText("Data Source=.;Initial Catalog=Solvane.sqlite")), "./Solvane.sqlite");
    EXPECT_EQ(EmbeddedFile(ParseConnectionText("Data Source=:memory:")), ":memory:");
}

TEST(ConnectionText, AHostNamesAServer) {
    EXPECT_EQ(EmbeddedFile(ParseConnectionText(sample)), "");
    EXPECT_EQ(EmbeddedFile(ParseConnectionText("Data Source=10.0.0.4,1444;Initial Catalog=x")), "");
}

TEST(ConnectionText, AFolderWithoutADatabaseNameIsAnError) {
    EXPECT_THROW(static_cast<void>(EmbeddedFile(ParseConnectionText("Data Source=/srv/data;"))), db::DatabaseError);
}

TEST(ConnectionText, FreeTdsIsTakenWhereMicrosoftsDriverIsNotInstalled) {
    EXPECT_EQ(
        serverText("Data Source=host;Initial Catalog=d;User Id=u;Password=p"),
        "DRIVER={FreeTDS};SERVER=host;PORT=1433;TDS_Version=7.4;ClientCharset=UTF-8;Encryption=request;APP=SVScheduler;LANGUAGE=us_english;DATABASE={d};UID={u};PWD={p};");
}

TEST(ConnectionText, TheNewestOfMicrosoftsDriversIsTaken) {
    const QString text = serverText("Data Source=host,1444;Initial Catalog=d;User Id=u;Password=p",
                                    {"FreeTDS", "ODBC Driver 17 for SQL Server", "ODBC Driver 18 for SQL Server"});
    EXPECT_EQ(
        text,
        "DRIVER={ODBC Driver 18 for SQL Server};SERVER=host,1444;Encrypt=yes;TrustServerCertificate=yes;APP=SVScheduler;LANGUAGE=us_english;DATABASE={d};UID={u};PWD={p};");
}

TEST(ConnectionText, PortsAndInstancesAreToldInTheDriversOwnWay) {
    EXPECT_TRUE(serverText("Data Source=host,1444").contains("SERVER=host;PORT=1444;"));
    EXPECT_TRUE(serverText("Data Source=host\\office").contains("SERVER=host\\office;TDS_Version"));
}

TEST(ConnectionText, APasswordMayHoldWhatEndsAField) {
    EXPECT_TRUE(serverText(R"(Data Source=h;Password="a;UID=sa;{x")").endsWith("PWD={a;UID=sa;{x};"));
    EXPECT_TRUE(serverText("Data Source=h;Password=%1%2").endsWith("PWD={%1%2};"));
}

TEST(ConnectionText, ABraceInAPasswordIsWrittenAsTheDriverReadsIt) {
    const QString text = QStringLiteral("Data Source=h;Password=a}b");
    EXPECT_TRUE(serverText(text).endsWith("PWD={a}b};"));
    EXPECT_TRUE(serverText(text, {"ODBC Driver 18 for SQL Server"}).endsWith("PWD={a}}b};"));
    EXPECT_THROW(static_cast<void>(serverText("Data Source=h;Password=\"a};SERVER=b\"")), db::DatabaseError);
}

TEST(ConnectionText, EverySynonymMeansItsKeyword) {
    for (const char* name : {"Data Source", "Server", "ADDRESS", "network  address"})
        EXPECT_EQ(ParseConnectionText(QString::fromUtf8(name) + "=h")["data source"], "h") << name;
    for (const char* name : {"User Id", "User", "uid"})
        EXPECT_EQ(ParseConnectionText(QString::fromUtf8(name) + "=u")["user id"], "u") << name;
    EXPECT_EQ(ParseConnectionText("Driver=x")["driver"], "x");
}

TEST(ConnectionText, TheLastOfSeveralValuesOfAKeywordIsTaken) {
    EXPECT_EQ(ParseConnectionText("Server=a;Data Source=b")["data source"], "b");
}

TEST(ConnectionText, AValueEndsWithTheTextWhereNothingClosesIt) {
    EXPECT_EQ(ParseConnectionText("Password='a;b")["password"], "a;b");
    EXPECT_EQ(ParseConnectionText("Password=  a b  ")["password"], "a b");
    EXPECT_EQ(ParseConnectionText("Password=")["password"], "");
    EXPECT_EQ(ParseConnectionText("Password=a=b;User=u")["password"], "a=b");
    EXPECT_EQ(ParseConnectionText("Password=it's;User=u")["password"], "it's");
}

TEST(ConnectionText, TheFolderOfTheProgramIsAPoint) {
    EXPECT_EQ(EmbeddedFile(ParseConnectionText("Data Source=.;Initial Catalog=Solvane")), "./Solvane.db");
    EXPECT_EQ(EmbeddedFile(ParseConnectionText("Data Source=data/;Initial Catalog=v1.2")), "data/v1.2");
    try {
        static_cast<void>(EmbeddedFile(ParseConnectionText("Data Source=.")));
        FAIL();
    } catch (const db::DatabaseError& error) {
        EXPECT_EQ(error.number, 4060);
    }
}

TEST(ConnectionText, TheDriversThatTheTestsUseAreInstalled) {
    EXPECT_TRUE(db::InstalledOdbcDrivers().contains("SQLite3"));
    EXPECT_TRUE(db::InstalledOdbcDrivers().contains("FreeTDS"));
}

TEST(ConnectionText, AnotherDriverForTheServerIsNotMicrosofts) {
    EXPECT_TRUE(serverText("Data Source=h", {"SQL Server", "ODBC Driver 18 for DB2"}).startsWith("DRIVER={FreeTDS}"));
}
