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
    /// A value read from it equals itself when it is sent back: no reals, money, unlimited text, times that are finer
    /// than a three hundredth of a second.
    bool comparable = true;
};

/// What Recordset must know of a base table to write to it.
struct TableInfo {
    std::vector<ColumnInfo> columns;
    std::vector<QString> keyColumns;
    QString identityColumn;  ///< Assigned by the database; empty where there is none.

    /// The columns that tell one row from another; none where nothing does.
    [[nodiscard]] std::vector<QString> RowKey() const;
};

/// What one Insert added to a table whose key the database assigns.
struct Numbered {
    qint64 rows = 0;
    std::vector<qint64> keys;  ///< Of the rows, in ascending order; none where nobody can tell them.
};

/// How an engine's way to its database is.
enum class Link {
    Whole,
    Cut,      ///< The connection broke off. It can be made anew without a word where nothing was under way.
    Replaced  ///< The database is no longer the one that was opened. The user has to know.
};

/// One open database session. Every failure is a DatabaseError with the server's number for the fault.
class Engine {
  public:
    virtual ~Engine() = default;
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Runs one statement; the places marked ? take `bound` in order. Returns the number of rows affected.
    virtual qint64 execute(const QString& statement, const std::vector<Value>& bound = {}) = 0;
    /// Rows of so many columns that one Insert with bound values best takes: 1 where there is nothing to gain.
    [[nodiscard]] virtual int mostRowsOfInsert(int /*columns*/) const { return 1; }
    /// Runs one Insert of any number of rows into a table with an identity column. From `valuesAt` on the statement
    /// holds Values or a Select.
    virtual Numbered insertNumbered(const QString& statement, qsizetype valuesAt, const QString& identityColumn,
                                    const std::vector<Value>& bound);
    /// What stands behind a table in a Select so that no other desk changes the rows read until the transaction ends;
    /// empty where nobody else writes during a transaction anyway.
    [[nodiscard]] virtual QString lockingHint() const { return {}; }
    /// Runs one statement that gives rows and reads them whole, or no more than the first `mostRows` where that is
    /// above 0: the statement then stops there.
    virtual ResultTable query(const QString& statement, const std::vector<Value>& bound = {}, int mostRows = 0) = 0;
    /// Runs several Selects, in one trip where the engine has trips, and gives the rows of those before the first that
    /// fails. No failure of its own.
    virtual std::vector<ResultTable> queryTogether(const QStringList& statements);
    virtual void begin() = 0;
    /// Fails where a fault has ended the transaction already.
    virtual void commit() = 0;
    /// No failure where a fault has ended the transaction already.
    virtual void rollback() = 0;
    /// Whether the transaction is still open: a fault may have ended it. Asks the database.
    [[nodiscard]] virtual bool inTransaction() = 0;
    /// As it is known after a failure; asks nobody. A session whose link is not whole is of no more use.
    [[nodiscard]] virtual Link link() = 0;
    /// From the schema, kept for the session. An unknown table is error 208.
    virtual const TableInfo& describe(const QString& table) = 0;
    /// The key that the last insert of this session was given.
    virtual qint64 lastIdentity() = 0;
};

/// SQLite behind the system's T-SQL. `file` must exist unless `create` is set; ":memory:" is a private database.
std::unique_ptr<Engine> OpenEmbedded(const QString& file, bool create = false);
/// Any ODBC driver, by its own connection text ("DRIVER={FreeTDS};SERVER=...").
std::unique_ptr<Engine> OpenOdbc(const QString& odbcText);

}  // namespace db
