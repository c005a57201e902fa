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

/// What an observer is told of each write.
enum class Told {
    Statements,  ///< The statement, its table and its number of rows.
    Rows         ///< In addition each row's key and its values before and after.
};

/// One connection to a database, opened by a connection text of the form "Provider=SQLOLEDB;Data Source=...;Initial
/// Catalog=...;User Id=...;Password=...;" (keywords in any case).
///
/// A Data Source that holds a "/" or is "." names a folder: the database is embedded, in the file named by Initial
/// Catalog (".db" is added when the name has no ending). Data Source ":memory:" is a private database that lives as
/// long as the connection. Anything else is a SQL Server host ("host", "host\instance", "host,port") reached through
/// ODBC. A text with "Driver=" goes to ODBC as it stands.
///
/// It stays open when its link to a server breaks off. Outside a transaction a read, or the begin of a transaction,
/// then makes the link anew without a word and goes on. A write that was under way fails, since nobody can tell whether
/// it was carried out: it is never sent again. A transaction that was under way is lost whole. What comes next makes
/// the link anew, or fails as Open would.
///
/// An embedded file that is no longer the one that was opened is another database: its rows may have the keys of those
/// that are still shown. Everything is then refused, with the same error, until OpenAgain.
///
/// All these errors are such that IsLinkFailure() knows. A Recordset stays usable.
///
/// While a statement waits, the user may be shown that (ShowWaiting); until it has ended every other call is refused
/// with 3711.
class Connection {
  public:
    Connection() = default;
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// A failure tells what the server said, never the text itself: it holds the password.
    void Open(const QString& connectionText);
    /// Makes the embedded file first when it is not there. Only for tools and tests: the program opens what exists.
    void Create(const QString& connectionText);
    /// A transaction that is open is rolled back.
    void Close();
    [[nodiscard]] bool IsOpen() const { return !text_.isEmpty(); }

    /// Opens what stands where the replaced file stood; nothing where none was replaced. Whoever shows or keeps rows of
    /// the old file has to read them anew. Where it cannot be opened, everything is refused with that reason from now
    /// on.
    void OpenAgain();
    /// Whether everything is refused until OpenAgain.
    [[nodiscard]] bool IsReplaced() const { return replaced_.has_value(); }
    /// Told the reason each time from which on everything is refused until OpenAgain: the error itself may be passed
    /// over. It must not use the connection.
    void OnReplaced(std::function<void(const QString& why)> tell) { tellReplaced_ = std::move(tell); }

    /// Sends one statement and returns the number of rows affected. A second one behind a semicolon is refused.
    qint64 Execute(const QString& statement);
    /// The same with values for the places marked ?, in order: for what writes many rows.
    qint64 Execute(const QString& statement, const std::vector<Value>& bound);
    /// Adds rows, each with a value for every column, by as few statements as the engine takes them in: for tools that
    /// write thousands. Each statement is a write of its own to the observer; what a failure leaves of the others only
    /// a transaction takes back. LastIdentity is then the key of the last row.
    void InsertRows(const QString& table, const QStringList& columns, const std::vector<std::vector<Value>>& rows);
    /// The key that the database gave to the row inserted last on this connection.
    [[nodiscard]] qint64 LastIdentity();
    /// One transaction at a time: a second BeginTrans is an error. A commit that fails leaves it to be rolled back.
    ///
    /// Some faults make the database itself end the transaction (a deadlock, a text that is no number, a full disk).
    /// Until RollbackTrans, every statement and the commit are then refused with 3930: they would be stored alone.
    void BeginTrans();
    void CommitTrans();
    /// The transaction is over afterwards, even where the database refuses.
    void RollbackTrans();

    /// Tells the observer every write by Execute, InsertRows or a Recordset after it succeeded, in the order in which
    /// the writes were sent. The writes of a transaction are told after its commit, one by one even where several
    /// changed the same row. A write that failed is not told, nor is a transaction that was rolled back or whose commit
    /// broke off unanswered. There is one observer at a time; an empty one ends the telling.
    ///
    /// The observer may read and write through the connection. Its own writes are not told, and LastIdentity stays the
    /// key of the write that it was told. An exception that it throws is logged and reaches nobody, since the write is
    /// stored already.
    ///
    /// With Told::Rows a write outside a transaction is sent within one of its own, and its rows are read before and
    /// after it. The condition of an Update or a Delete is therefore evaluated twice. To a server that is four trips
    /// more, or two within a transaction. When such a read breaks the link, ends the transaction or is given up by the
    /// user, the write fails with that error. No other desk can change the rows between the read and the write: the
    /// embedded engine lets nobody else write meanwhile, and a SQL Server locks the rows that are read.
    ///
    /// The rows of a write are not told (Write::rowsAreTold is false)
    /// - when the statement changes the schema, or the table has no key;
    /// - when ShapeOfWrite does not know the statement;
    /// - when it sets a column of the key to an expression (the Select of an Insert may give the key), or to a value
    /// that
    ///   the column stores in another form (a date written as a text, a text filled with blanks);
    /// - when the database wrote another number of rows than were found, as happens when a trigger takes part, or when
    ///   another desk brings a row of a server under the condition between the read and the write.
    ///
    /// A change of the rows of other tables, by a trigger or a cascade, is not told.
    void Observe(std::function<void(const Write&)> observer, Told told = Told::Rows);

    /// How often the connections of this program asked a server since it started: every login, every statement, every
    /// look into the catalogue, every begin and end of a transaction; statements that are read together count once. It
    /// is the number of a SQL Server, where each costs the way there and back; the embedded engine counts alike. The
    /// logging category "svscheduler.trips" tells each of them.
    [[nodiscard]] static qint64 Trips();

  private:
    friend class Recordset;
    friend class ReadTogether;
    friend class WrittenRows;
    enum class Transaction { None, Open, Ended };  ///< Ended by the database, and not yet rolled back here.
    /// What may be done with a step whose link was cut.
    enum class Cut {
        Repeat,     ///< It changes nothing: it may be sent on a new link.
        InTheDark,  ///< It may have been carried out, or not.
        NothingDone
    };

    Engine& engine();  ///< Throws 3709 "The connection cannot be used ..." when closed.
    void written(Write write);
    void tell(const Write& write);
    void open(const QString& connectionText, bool create);
    void openAnew();
    void refuseUntilOpened(const DatabaseError& error);
    void requireNotBusy() const;
    void requireUsable() const;
    void noteEndedTransaction();
    /// Every way to the server goes through here.
    template <typename Step>
    auto atEngine(const QString& sent, Cut cut, Step&& step);
    /// Lets go of a link that is not whole. True where the step may be sent again; the error then stays unsaid.
    bool letGoOf(Link link, Cut cut, const DatabaseError& error);
    /// Sends a write. The caller passes the result to `written` when its own work on the row is done.
    Write send(const QString& statement, const std::vector<Value>& bound, const QString& table);
    /// Sends a write within the open transaction and reads its rows before and after it.
    void sendObserved(Write& write, const std::vector<Value>& bound, const WriteShape& shape, const TableInfo& info);
    void forgetWhatChanges(const QString& statement);
    qint64 sendAlone(const QString& statement, const std::vector<Value>& bound);
    Numbered insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                            const std::vector<Value>& bound);
    /// From what was read together, where the statement stands there, and all rows are wanted.
    ResultTable read(const QString& statement, int mostRows);
    ResultTable query(const QString& statement, const std::vector<Value>& bound = {}, int mostRows = 0);
    /// The tables of the statements before the first that failed; none while the connection is closed.
    std::vector<ResultTable> queryTogether(const QStringList& statements);
    const TableInfo& describe(const QString& table);
    /// Nothing where the statement is none of those read together.
    [[nodiscard]] const ResultTable* readAlready(const QString& statement) const;
    void forgetRead();

    QString text_;                    ///< As it was opened.
    std::unique_ptr<Engine> engine_;  ///< Null while the link is broken.
    bool busy_ = false;               ///< A statement is under way.
    std::optional<DatabaseError> refusal_;
    QElapsedTimer sinceRefusal_;
    qint64 refusedFor_ = 0;  ///< Milliseconds from then on, in which it is not tried again.
    std::optional<DatabaseError> replaced_;
    std::function<void(const QString&)> tellReplaced_;
    std::function<void(const Write&)> observer_;
    Told told_ = Told::Rows;
    bool telling_ = false;            ///< The observer is at work.
    std::optional<qint64> identity_;  ///< The last key, kept when the observer may have inserted rows since.
    Transaction transaction_ = Transaction::None;
    std::vector<Write> untold_;  ///< Of the transaction that is open.
    QList<ReadTogether*> together_;
    QSet<QString> described_;  ///< The tables that the engine knows, in small letters.
};

}  // namespace db
