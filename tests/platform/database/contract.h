#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <QTemporaryDir>

#include "platform/database/connection.h"
#include "platform/database/error.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/support/testdatabase.h"

/// An engine that the contract holds for.
enum class EngineKind { Memory, File, OtherOdbc, Server };

/// The error of a step; number 0 where it went well.
db::DatabaseError FailureOf(const std::function<void()>& step);

/// What every engine must do alike. Each test has an open connection with two tables: Visits, with a column of every
/// kind and a key that the database gives, and VisitGuests. Server stands for the one that SVSCHEDULER_TEST_DATABASE
/// names; OtherOdbc for any ODBC driver, which knows none of the server's error numbers.
class DatabaseContract : public testing::TestWithParam<EngineKind> {
  protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] QString connectionText() const;
    /// A server of another make that speaks the language numbers its faults in its own way.
    [[nodiscard]] bool hasServerNumbers();
    /// A second desk can open the same database.
    [[nodiscard]] bool isShared() const { return GetParam() != EngineKind::Memory; }
    /// Adds a visit by a plain statement and answers its key.
    int addVisit(const QString& text, int start = 600);
    [[nodiscard]] QString textOf(int key);
    /// From now on writes_ gets the rows of each write, too, and nothing of what was before.
    void observeRows();
    [[nodiscard]] int count(const char* condition = "1 = 1");

    QTemporaryDir folder_{TestFolderTemplate()};
    std::optional<TestDatabase> server_;
    db::Connection connection_;
    std::vector<db::Write> writes_;
};
