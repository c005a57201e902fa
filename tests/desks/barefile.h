#pragma once

#include <gtest/gtest.h>

#include <QString>

#include <sqlite3.h>

/// The practice's file through the bare engine, past the program's own client.
class BareFile {
  public:
    explicit BareFile(const QString& file) {
        EXPECT_EQ(sqlite3_open(file.toUtf8().constData(), &database_), SQLITE_OK);
    }
    ~BareFile() { sqlite3_close(database_); }
    BareFile(const BareFile&) = delete;
    BareFile& operator=(const BareFile&) = delete;

    void run(const QString& statement) {
        sqlite3_busy_timeout(database_, 20000);
        EXPECT_EQ(sqlite3_exec(database_, statement.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database_);
    }
    /// From now on whoever makes this change stops in the middle of it for good, where `when`, an SQL condition, holds
    /// after it.
    void stopAt(const QString& operation, const QString& table, const QString& when = QStringLiteral("1 = 1")) {
        run(QStringLiteral(
                "CREATE TRIGGER heldup AFTER %1 ON %2 WHEN %3 BEGIN SELECT Count(*) FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n LIMIT 100000000000); END")
                .arg(operation, table, when));
    }
    void goOn() { run(QStringLiteral("DROP TRIGGER heldup")); }
    /// Returns as soon as somebody else is within a transaction that writes.
    void awaitAnothersWrite() {
        sqlite3_busy_timeout(database_, 0);
        while (sqlite3_exec(database_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK)
            sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
    }

  private:
    sqlite3* database_ = nullptr;
};
