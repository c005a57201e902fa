#pragma once

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/shell/practicefixture.h"

/// Reed, who is the companion's provider 1, and the schedule of Wednesday, March 11, 2026. Lane is provider 2; provider
/// 3 is paired with nobody. The test itself is the second writer.
class WritesFixture : public PracticeFixture {
  protected:
    WritesFixture() {
        SessionValues& session = Session();
        session.FHConnectionString = companion.connectionText();
        session.FHDatabaseId = QStringLiteral("FH-1");
        session.FHProviderId = 1;
        session.NotesAccess = 3;
        session.AllProviders = true;
        session.CurrentView = View::Companion;
        session.AppPath = QStringLiteral("/opt/solvane");
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(14, 7, 9), Qt::UTC));
        for (const char* provider : {"'Reed', 'Ada'", "'Lane', 'Ben'", "'Moss', 'Eve'"})
            there(db::Sql("Insert Into Providers (ProvLastName, ProvFirstName) Values({})",
                          db::Raw{QString::fromUtf8(provider)}));
        there("Insert Into Clients (ClntLastName, ClntFirstName) Values('O''Brien', 'Anna')");
        there("Insert Into Clients (ClntLastName, ClntFirstName) Values('Stray', 'Sam')");
        there(
            "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values('90834-X', 'Psychotherapy', 'C')");
        pair(1, 1, "REED");
        pair(1, 2, "LANE");
        pair(4, 1, "P1");
    }

    /// There is none, unless a test opens one.
    [[nodiscard]] QWidget& openView() override { return noView_; }

    struct Row {
        int client = 1;
        int provider = 1;
        int second = 0;
        const char* day = "2026/03/11";
        const char* time = "2026/03/11 9:00 AM";
        int duration = 50;
        const char* status = "S";
        int series = 0;
        int session = 0;
        const char* notes = "";
    };
    /// A row of ClientTransactions, and its key.
    int add(const Row& row) {
        const auto orNull = [](int value) {
            return db::Raw{value > 0 ? QString::number(value) : QStringLiteral("Null")};
        };
        there(db::Sql(
            "Insert Into ClientTransactions (ClntId, TranId, ProvId, ProvIdAdditional, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus, RecurTranId, SVSessionID, CtrnNotes) Values ({}, 1, {}, {}, '{}', '{}', {}, '{}', {}, {}, '{}')",
            row.client, row.provider, orNull(row.second), row.day, row.time, row.duration, row.status, row.series,
            orNull(row.session), row.notes));
        return static_cast<int>(companion.connection().LastIdentity());
    }
    /// The companion is an older one, which cannot link notes. Its appointments are gone.
    void dropSessionColumn() {
        there("Drop Table ClientTransactions");
        for (QString statement : SchemaStatements(SchemaScript::Companion))
            if (statement.startsWith(QLatin1String("Create Table ClientTransactions")))
                there(statement.remove(QStringLiteral("SVSessionID int null,")));
    }
    /// An appointment of the older companion, and its key.
    int addPlain() {
        there(
            "Insert Into ClientTransactions (ClntId, TranId, ProvId, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus) Values (1, 1, 1, '2026/03/11', '2026/03/11 9:00 AM', 50, 'S')");
        return static_cast<int>(companion.connection().LastIdentity());
    }
    struct Event {
        std::vector<int> attendees = {1};
        bool allProviders = false;
        int series = 0;
        const char* name = "Staff meeting";
        const char* time = "2026/03/11 1:00 PM";
    };
    /// A row of CalendarEvents with its attendees, and its key.
    int addEvent(const Event& event) {
        there(db::Sql(
            "Insert Into CalendarEvents (CEveName, CEveDate, CEveEndDate, CEveTime, CEveDuration, CEveAllProvidersInd, RecrId) Values ('{}', '2026/03/11', '2026/03/11', '{}', 60, {}, {})",
            event.name, event.time, event.allProviders ? 1 : 0, event.series));
        const int key = static_cast<int>(companion.connection().LastIdentity());
        for (const int provider : event.attendees)
            attend(key, provider);
        return key;
    }
    void attend(int event, int provider) {
        there(db::Sql("Insert Into CalendarProviderEvents (CEveId, ProvId) Values({}, {})", event, provider));
    }
    void there(const QString& statement) { companion.connection().Execute(statement); }
    void there(const char* statement) { there(QString::fromUtf8(statement)); }
    void here(const QString& statement) { database_.connection().Execute(statement); }
    void here(const char* statement) { here(QString::fromUtf8(statement)); }
    void pair(int list, int value, const char* ours) {
        here(db::Sql(
            "Insert into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values ({}, 'FH-1', {}, '{}')",
            list, value, ours));
    }

    /// A column of a row of ClientTransactions, as text.
    [[nodiscard]] QString stored(int key, const char* column) {
        return companion.text(
            db::Sql("Select {} from ClientTransactions Where CtrnId = {}", db::Raw{QString::fromLatin1(column)}, key));
    }
    [[nodiscard]] QDateTime storedTime(int key, const char* column) {
        return db::Recordset(db::Sql("Select {} from ClientTransactions Where CtrnId = {}",
                                     db::Raw{QString::fromLatin1(column)}, key),
                             companion.connection())[0]
            .dateTime();
    }
    [[nodiscard]] qint64 countThere(const char* table) {
        return companion.number(QStringLiteral("Select Count(*) from ") + QLatin1String(table));
    }
    [[nodiscard]] qint64 countHere(const char* table) {
        return database_.number(QStringLiteral("Select Count(*) from ") + QLatin1String(table));
    }
    /// Whether nothing is left under way in the main database; a transaction in the companion ends with its connection.
    static void expectNoTransactionIsOpen() {
        Session().Connection.BeginTrans();
        Session().Connection.RollbackTrans();
    }

    TestDatabase companion{SchemaScript::Companion};
    NoticeBar bar;

  private:
    QWidget noView_;
};
