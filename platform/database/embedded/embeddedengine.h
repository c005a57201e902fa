#pragma once

#include <list>
#include <optional>
#include <QElapsedTimer>
#include <QHash>
#include <QScopeGuard>
#include <unordered_map>

#include "platform/database/embedded/catalog.h"
#include "platform/database/embedded/functions.h"
#include "platform/database/embedded/openfile.h"
#include "platform/database/embedded/sqlitehandle.h"
#include "platform/database/embedded/translate.h"
#include "platform/database/engine.h"
#include "platform/database/waiting.h"

namespace db::embedded {

/// One session on an SQLite file that takes the system's T-SQL.
///
/// A reader never waits. A writer waits for another desk's write up to the lock timeout and then fails with 1222. A
/// wait that has become long is shown by ShowWaiting() and ends when the user gives up. A transaction that is open when
/// the session ends is rolled back.
///
/// The file is looked at before each statement. Once it is no longer the file that was opened, nothing is read or
/// written any more.
class EmbeddedEngine final : public Engine {
  public:
    /// Opens the file. A file that another program locks is waited for up to `openingTimeout` milliseconds, so that
    /// whoever starts the program soon reads the reason. Later statements wait longer.
    EmbeddedEngine(const QString& file, bool create, int openingTimeout = 5'000);

    qint64 execute(const QString& statement, const std::vector<Value>& bound) override;
    ResultTable query(const QString& statement, const std::vector<Value>& bound, int mostRows = 0) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    [[nodiscard]] bool inTransaction() override;
    [[nodiscard]] Link link() override { return link_; }
    const TableInfo& describe(const QString& table) override;
    qint64 lastIdentity() override;
    [[nodiscard]] EngineFacts facts() override;

    void setLockTimeout(int milliseconds) { lockTimeout_ = milliseconds; }
    /// Returns the translated statement and SQLite's query plan, for tests of the translation and of the use of
    /// indexes.
    [[nodiscard]] QString explain(const QString& statement);

  private:
    struct Statement {
        Translation translation;
        StatementHandle handle;
    };
    using CachedStatement = std::pair<QString, Statement>;

    void configure();
    Translation translate(const QString& statement);
    Statement& prepare(const QString& statement);
    static void bind(Statement& prepared, const std::vector<Value>& bound);
    /// Runs the statement up to its next row or to its end. Returns true for a row.
    bool step(const QString& text, Statement& prepared);
    qint64 run(const QString& text, const std::vector<Value>& bound);
    /// Returns nothing when another desk has changed the columns of a table since they were looked up.
    std::optional<ResultTable> readRows(const QString& text, Statement& prepared, const std::vector<Value>& bound,
                                        int mostRows);
    void forgetSchema();
    void requireWholeFile();
    static int waitForLock(void* engine, int count);
    bool waitsOn(bool anew);
    /// Ends any wait and returns `code`, the result code of SQLite.
    int waited(int code);
    /// Returns a guard that ends any wait when it is destroyed, however the statement ended.
    [[nodiscard]] auto endingWaits() {
        return qScopeGuard([this] { waited(SQLITE_OK); });
    }
    void runOwn(const char* sql);
    [[noreturn]] void fail(const QString& statement);
    void registerStore();
    void renewTextIndexes();

    QString database_;
    FunctionState state_;
    DatabaseHandle handle_;
    Catalog catalog_;
    OpenFile file_;
    Link link_ = Link::Whole;
    int lockTimeout_ = 0;  ///< Milliseconds.
    QElapsedTimer sinceWait_;
    std::optional<ShownWait> wait_;  ///< Present while a statement waits for a lock.
    bool givenUp_ = false;
    std::list<CachedStatement> statements_;  ///< The one used last stands first.
    QHash<QString, std::list<CachedStatement>::iterator> byText_;
    std::unordered_map<std::string, TableInfo> described_;
};

}  // namespace db::embedded
