#pragma once

#include <memory>
#include <QStringList>
#include <vector>

#include "platform/database/resulttable.h"

namespace db {

struct ColumnInfo {
    QString name;
    ColumnType type = ColumnType::Text;
    int maxLength = 0;  ///< Characters of a text column; 0 for no limit.
    bool nullable = true;
    /// Whether a value read from this column equals itself when it is sent back in a condition. That is false for
    /// reals, money, text without a limit and times finer than a three hundredth of a second.
    bool comparable = true;
};

/// What Recordset must know of a base table to write to it.
struct TableInfo {
    std::vector<ColumnInfo> columns;
    std::vector<QString> keyColumns;
    QString identityColumn;  ///< The column whose value the database assigns; empty where there is none.

    /// Returns the columns by which one row is told from another: the primary key, else the identity column, else none.
    [[nodiscard]] std::vector<QString> RowKey() const;
};

/// What one Insert added to a table with an identity column.
struct Numbered {
    qint64 rows = 0;
    std::vector<qint64> keys;  ///< The keys of the rows in ascending order. It is empty where they cannot be known.
};

/// What an engine tells of itself.
struct EngineFacts {
    QString engine = {};  ///< "SQLite 3.40.1", "Microsoft SQL Server 16.00.4165"
    QString driver = {};  ///< "libtdsodbc.so 1.3.17"; empty for the embedded engine.
};

/// The state of an engine's link to its database.
enum class Link {
    Whole,
    Cut,      ///< The connection broke off. It may be made anew without telling the user when no work was under way.
    Replaced  ///< The database is no longer the one that was opened. The user has to be told.
};

/// One open database session. Every failure is a DatabaseError with the server's number for the fault.
class Engine {
  public:
    virtual ~Engine() = default;
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Runs one statement. The values of `bound` fill the places marked ? in order. Returns the number of rows
    /// affected.
    virtual qint64 execute(const QString& statement, const std::vector<Value>& bound = {}) = 0;
    /// Returns how many rows one Insert with bound values should hold, for rows of `columns` columns. 1 means that
    /// nothing is gained by more.
    [[nodiscard]] virtual int mostRowsOfInsert(int /*columns*/) const { return 1; }
    /// Runs one Insert of any number of rows into a table with an identity column, and returns the keys that the
    /// database assigned. From `valuesAt` on the statement holds Values or a Select.
    virtual Numbered insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                                    const std::vector<Value>& bound);
    /// Returns the hint that stands behind a table in a Select so that no other desk can change the rows that were read
    /// until the transaction ends. It is empty where nobody else can write during a transaction.
    [[nodiscard]] virtual QString lockingHint() const { return {}; }
    /// Runs one statement that returns rows and reads all of them. Where `mostRows` is above 0, it reads at most that
    /// many and the statement stops there.
    virtual ResultTable query(const QString& statement, const std::vector<Value>& bound = {}, int mostRows = 0) = 0;
    /// Runs several Selects, in one trip where the engine sits behind a network. Returns the rows of the statements
    /// before the first that fails, and never throws DatabaseError itself.
    virtual std::vector<ResultTable> queryTogether(const QStringList& statements);
    virtual void begin() = 0;
    /// Commits the transaction. Throws when a fault has already ended it.
    virtual void commit() = 0;
    /// Rolls the transaction back. It does not fail when a fault has already ended the transaction.
    virtual void rollback() = 0;
    /// Asks the database whether the transaction is still open. A fault may have ended it.
    [[nodiscard]] virtual bool inTransaction() = 0;
    /// Returns the state of the link as it is known after a failure, without asking the database. A session whose link
    /// is not whole is of no more use.
    [[nodiscard]] virtual Link link() = 0;
    /// Returns the description of a table from the schema. It is kept for the session. Throws 208 for an unknown table.
    virtual const TableInfo& describe(const QString& table) = 0;
    /// Returns the key that the database assigned to the row of this session's last Insert.
    virtual qint64 lastIdentity() = 0;
    /// Returns the names and versions of the engine and its driver.
    [[nodiscard]] virtual EngineFacts facts() { return {}; }
};

/// Opens an SQLite file behind the system's T-SQL. `file` must exist unless `create` is set. ":memory:" is a private
/// database.
std::unique_ptr<Engine> OpenEmbedded(const QString& file, bool create = false);
/// Opens a database through any ODBC driver, by the driver's own connection text ("DRIVER={FreeTDS};SERVER=...").
std::unique_ptr<Engine> OpenOdbc(const QString& odbcText);

}  // namespace db
