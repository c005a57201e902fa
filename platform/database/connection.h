#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QElapsedTimer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

#include "platform/database/engine.h"
#include "platform/database/error.h"
#include "platform/database/write.h"

namespace db {

class ReadTogether;
struct WriteShape;

/// How much an observer is told about each write.
enum class Told {
    Statements,  ///< The statement, its table and its number of rows.
    RowsBefore,  ///< In addition the key of each row of an Update or a Delete, and its values before the write.
    Rows         ///< In addition the key of each row, and its values before and after the write.
};

/// Whether the rows of a write are to be told, by its shape and the values for its ?. The others are told as with
/// Told::Statements, and cost no trip.
using TellsRowsOf = std::function<bool(const WriteShape& shape, const std::vector<Value>& bound)>;

/// One connection to a database, opened by a connection text of the form "Provider=SQLOLEDB;Data Source=...;Initial
/// Catalog=...;User Id=...;Password=...;" (keywords in any case).
///
/// A Data Source that holds a "/" or is "." names a folder: the database is embedded, in the file named by Initial
/// Catalog (".db" is added when the name has no ending). Data Source ":memory:" is a private database that lives as
/// long as the connection. Anything else is a SQL Server host ("host", "host\instance", "host,port") reached through
/// ODBC. A text with "Driver=" goes to ODBC as it stands.
///
/// The connection stays open when its link to a server breaks off. Outside a transaction, a read or the begin of a
/// transaction then makes the link anew and goes on, and the caller notices nothing. A write that was under way fails
/// and is never sent again, since nobody can tell whether it was carried out. A transaction that was under way is lost
/// as a whole. The next call makes the link anew, or fails as Open would.
///
/// When the embedded file was replaced by another one, it is another database: its rows may have the same keys as rows
/// that are still shown. Every call is then refused with the same error until OpenAgain.
///
/// IsLinkFailure() is true for all these errors. A Recordset stays usable.
///
/// While a statement waits, the user may be told so (ShowWaiting). Until the statement has ended, every other call is
/// refused with 3711.
class Connection {
  public:
    Connection() = default;
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Opens the connection. The error of a failure holds what the server said. It never holds the connection text,
    /// which contains the password.
    void Open(const QString& connectionText);
    /// Opens the connection, and makes the embedded file first when it does not exist. It is for tools and tests only:
    /// the program opens existing files.
    void Create(const QString& connectionText);
    /// Closes the connection. An open transaction is rolled back.
    void Close();
    [[nodiscard]] bool IsOpen() const { return !text_.isEmpty(); }

    /// Opens the file that has replaced the embedded file. It does nothing when no file was replaced. Whoever shows or
    /// keeps rows of the old file has to read them anew. When the new file cannot be opened, no error is thrown: every
    /// call is refused with that reason until the next OpenAgain.
    void OpenAgain();
    /// Whether every call is refused until OpenAgain.
    [[nodiscard]] bool IsReplaced() const { return replaced_.has_value(); }
    /// Sets the routine that is told the reason whenever the connection begins to refuse every call, since a caller may
    /// pass over the error itself. The routine must not use the connection.
    void OnReplaced(std::function<void(const QString& why)> tell) { tellReplaced_ = std::move(tell); }
    /// Sets the routine that is told the table of each write by this connection, after the write succeeded; within a
    /// transaction, after its commit. It costs no trip and goes beside an observer. An empty routine ends the telling.
    /// The routine must not use the connection.
    void OnWritten(std::function<void(const QString& table)> tell) { tellWritten_ = std::move(tell); }
    /// Returns the routine that opens a session of its own with the same database, for a reader on another thread
    /// (BackgroundReader). It is empty while this connection is closed or refuses every call, and for a private
    /// database.
    [[nodiscard]] std::function<std::unique_ptr<Engine>()> Beside() const;

    /// Sends one statement and returns the number of rows affected. A second statement behind a semicolon is refused.
    qint64 Execute(const QString& statement);
    /// Sends one statement with values for its ? in order. It is for statements that write many rows.
    qint64 Execute(const QString& statement, const std::vector<Value>& bound);
    /// Adds rows, each with a value for every column, by as few statements as the engine allows. It is for tools that
    /// write thousands of rows. The observer is told each statement as a write of its own. When a statement fails, the
    /// rows of those before it stay, unless a transaction is rolled back. LastIdentity is then the key of the last row.
    void InsertRows(const QString& table, const QStringList& columns, const std::vector<std::vector<Value>>& rows);
    /// Returns the key that the database gave to the row inserted last on this connection.
    [[nodiscard]] qint64 LastIdentity();
    /// Begins a transaction. There is one at a time: a second BeginTrans is an error. A transaction whose commit fails
    /// has to be rolled back.
    ///
    /// Some faults make the database itself end the transaction (a deadlock, a text that is no number, a full disk).
    /// Every statement and the commit are then refused with 3930 until RollbackTrans, because later statements would
    /// be stored without the earlier ones.
    void BeginTrans();
    void CommitTrans();
    /// Rolls the transaction back. The transaction is over afterwards, even when the database refuses the rollback.
    void RollbackTrans();

    /// Tells the observer every write by Execute, InsertRows or a Recordset after it succeeded, in the order in which
    /// the writes were sent. The writes of a transaction are told after its commit, one by one, even when several of
    /// them changed the same row. A write that failed is not told. Nor are the writes of a transaction that was rolled
    /// back, or whose commit was not answered because the link broke off. There is one observer at a time. An empty
    /// observer ends the telling.
    ///
    /// The observer may read and write through the connection. It is not told its own writes, and LastIdentity stays
    /// the key of the write that it was told. An exception that it throws is logged and reaches no caller, since the
    /// write is stored already.
    ///
    /// With Told::Rows a write outside a transaction is sent within one of its own, and its rows are read before and
    /// after it. The condition of an Update or a Delete is therefore evaluated twice. A write to a server then takes
    /// four more trips, or two more within a transaction. When such a read breaks the link, ends the transaction or is
    /// given up by the user, the write fails with that error. No other desk can change the rows between the read and
    /// the write: the embedded engine lets nobody else write meanwhile, and a SQL Server locks the rows that are read.
    ///
    /// The rows of a write are not told (Write::rowsAreTold is false)
    /// - when the statement changes the schema, or the table has no key;
    /// - when ShapeOfWrite does not know the statement;
    /// - when it sets a column of the key to an expression (the Select of an Insert may give the key), or to a value
    ///   that the column stores in another form (a date written as a text, a text filled with blanks);
    /// - when the database wrote another number of rows than were found, as happens when a trigger takes part, or when
    ///   another desk brings a row of a server under the condition between the read and the write.
    ///
    /// A change of the rows of other tables, by a trigger or a cascade, is not told.
    ///
    /// With Told::RowsBefore the rows are read by one trip before the write and the write is sent as it is without an
    /// observer, so that another desk may write in between: `changes` are the rows that the condition found, and
    /// Write::rowsAreTold says whether their number is that of the written rows. `tellsRows` leaves out the rows of
    /// writes that the observer does not need; without it all are told.
    void Observe(std::function<void(const Write&)> observer, Told told = Told::Rows, TellsRowsOf tellsRows = {});

    /// Returns the names and versions of the engine and its driver; nothing while there is no connection. It is asked
    /// of the link that stands, and makes none anew.
    [[nodiscard]] EngineFacts Facts();

    /// Returns the number of trips that the connections of this program made to their databases since it started. A
    /// login, a statement, a look into the catalogue, and the begin and the end of a transaction are one trip each.
    /// Statements that are read together are one trip. On a SQL Server each trip costs the way there and back; with the
    /// embedded engine the same trips are counted. The logging category "svscheduler.trips" logs each of them.
    [[nodiscard]] static qint64 Trips();

  private:
    friend class Recordset;
    friend class ReadTogether;
    friend class WrittenRows;
    enum class Transaction { None, Open, Ended };  ///< Ended: by the database, and not yet rolled back.
    /// What is known of a step whose link was cut.
    enum class Cut {
        Repeat,      ///< The step changes nothing, so it may be sent again on a new link.
        InTheDark,   ///< Nobody can tell whether the step was carried out.
        NothingDone  ///< Nothing of the step is saved, since its transaction is lost.
    };

    Engine& engine();  ///< Throws 3709 "The connection cannot be used ..." when it is closed.
    void written(Write write);
    void tellTables(const QStringList& tables);
    void tell(const Write& write);
    void open(const QString& connectionText, bool create);
    void openAnew();
    void refuseUntilOpened(const DatabaseError& error);
    void requireNotBusy() const;
    void requireUsable() const;
    void noteEndedTransaction();
    /// Carries out a step at the engine. Every statement, begin and commit goes through this routine.
    template <typename Step>
    auto atEngine(const QString& sent, Cut cut, Step&& step);
    /// Lets go of a link that is not whole. Returns true when the step may be sent again; the error is then not thrown.
    /// Returns false when the file was replaced, and throws otherwise.
    bool letGoOf(Link link, Cut cut, const DatabaseError& error);
    /// Sends a write. The caller passes the result to `written` when its own work on the row is done.
    Write send(const QString& statement, const std::vector<Value>& bound, const QString& table);
    /// Sends a write within the open transaction and reads its rows before and after it.
    void sendObserved(Write& write, const std::vector<Value>& bound, const WriteShape& shape, const TableInfo& info);
    /// Reads the rows of a write, and sends it.
    void sendAfterReading(Write& write, const std::vector<Value>& bound, const WriteShape& shape,
                          const TableInfo& info);
    /// Runs a read for the observer. A failure does not fail the write, unless it could not be carried out any more.
    template <typename Step>
    bool readsFor(const Write& write, Step&& step);
    void forgetWhatChanges(const QString& statement);
    qint64 sendAlone(const QString& statement, const std::vector<Value>& bound);
    Numbered insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                            const std::vector<Value>& bound);
    /// Returns the rows of a statement. They come from the tables read together when the statement is one of those and
    /// all its rows are wanted; otherwise the statement is sent.
    ResultTable read(const QString& statement, int mostRows);
    ResultTable query(const QString& statement, const std::vector<Value>& bound = {}, int mostRows = 0);
    /// Returns the tables of the statements before the first that failed. Returns none while the connection is closed,
    /// its link is broken, a statement is under way, or the database has ended the transaction.
    std::vector<ResultTable> queryTogether(const QStringList& statements);
    const TableInfo& describe(const QString& table);
    /// Returns null when the statement is none of those read together.
    [[nodiscard]] const ResultTable* readAlready(const QString& statement) const;
    void forgetRead();

    QString text_;                          ///< The connection text. Empty while closed.
    std::unique_ptr<Engine> engine_;        ///< Null while the link is broken.
    bool busy_ = false;                     ///< A statement is under way.
    std::optional<DatabaseError> refusal_;  ///< The error of calls while a login waits, and after it failed.
    QElapsedTimer sinceRefusal_;
    qint64 refusedFor_ = 0;                  ///< Milliseconds since sinceRefusal_ in which no new login is tried.
    std::optional<DatabaseError> replaced_;  ///< The error of every call until OpenAgain.
    std::function<void(const QString&)> tellReplaced_;
    std::function<void(const QString&)> tellWritten_;
    std::function<void(const Write&)> observer_;
    Told told_ = Told::Rows;
    TellsRowsOf tellsRows_;
    bool telling_ = false;            ///< The observer is at work.
    std::optional<qint64> identity_;  ///< LastIdentity, kept when the observer may have inserted rows since.
    Transaction transaction_ = Transaction::None;
    std::vector<Write> untold_;  ///< The writes of the open transaction.
    QStringList untoldTables_;   ///< Their tables, for OnWritten.
    QList<ReadTogether*> together_;
    QSet<QString> described_;  ///< The tables that the engine knows, in small letters.
};

}  // namespace db
