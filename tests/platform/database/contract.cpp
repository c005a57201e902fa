#include "contract.h"

using db::Recordset;
using db::Sql;

namespace {

QStringList tables(EngineKind kind) {
    if (kind == EngineKind::OtherOdbc)
        return {
            "Create Table Visits (nkeyid integer Primary Key Autoincrement, dapptdate datetime, nStartTime integer, cappttext varchar(100), notes text, kept integer, fee double, clinicianid varchar(20) Not Null Default 'D1')",
            "Create Table VisitGuests (nkeyid integer Not Null, clinicianid varchar(20) Not Null, Primary Key (nkeyid, clinicianid))"};
    return {
        "Create Table Visits (nkeyid int Identity(1,1) Not Null Primary Key, dapptdate datetime Null, nStartTime smallint Null, cappttext nvarchar(100) Null, notes nvarchar(max) Null, kept bit Null, fee float Null, clinicianid nvarchar(20) Not Null Default 'D1')",
        "Create Table VisitGuests (nkeyid int Not Null, clinicianid nvarchar(20) Not Null, Primary Key (nkeyid, clinicianid))"};
}

}  // namespace

db::DatabaseError FailureOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const db::DatabaseError& error) {
        return error;
    }
    return {0, {}};
}

QString DatabaseContract::connectionText() const {
    switch (GetParam()) {
        case EngineKind::Memory:
            return "Data Source=:memory:";
        case EngineKind::File:
            return QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=contract;").arg(folder_.path());
        case EngineKind::OtherOdbc:
            return QStringLiteral("DRIVER=SQLite3;Timeout=5000;Database=%1").arg(folder_.filePath("odbc.db"));
        case EngineKind::Server:
            break;
    }
    return server_->connectionText();
}

bool DatabaseContract::hasServerNumbers() {
    if (GetParam() != EngineKind::Server)
        return GetParam() != EngineKind::OtherOdbc;
    const Recordset version("Select @@Version", connection_);
    return version[0].text().startsWith(QLatin1String("Microsoft SQL Server"));
}

void DatabaseContract::SetUp() {
    if (GetParam() == EngineKind::Server)
        server_.emplace();
    connection_.Create(connectionText());
    for (const char* table : {"Visits", "VisitGuests"})
        db::Ignoring([&] { connection_.Execute(QStringLiteral("Drop Table %1").arg(table)); });
    for (const QString& statement : tables(GetParam()))
        connection_.Execute(statement);
    connection_.Observe([this](const db::Write& write) { writes_.push_back(write); }, db::Told::Statements);
}

void DatabaseContract::TearDown() {
    if (!connection_.IsOpen())
        return;
    connection_.Observe({});
    db::Ignoring([&] { connection_.Execute("Drop Table Visits"); });
    db::Ignoring([&] { connection_.Execute("Drop Table VisitGuests"); });
}

int DatabaseContract::addVisit(const QString& text, int start) {
    connection_.Execute(Sql("Insert Into Visits (cappttext, nStartTime) Values ('{}', {})", text, start));
    const Recordset last("Select Max(nkeyid) As k from Visits", connection_);
    return static_cast<int>(last["k"].integer());
}

void DatabaseContract::observeRows() {
    writes_.clear();
    connection_.Observe([this](const db::Write& write) { writes_.push_back(write); });
}

QString DatabaseContract::textOf(int key) {
    const Recordset row(Sql("Select cappttext from Visits Where nkeyid = {}", key), connection_);
    return row.Eof() ? QStringLiteral("(gone)") : row[0].text();
}

int DatabaseContract::count(const char* condition) {
    const Recordset row(QStringLiteral("Select Count(*) As n from Visits Where %1").arg(condition), connection_);
    return static_cast<int>(row["n"].integer());
}
