#pragma once

#include <gtest/gtest.h>

#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// A practice whose lists a user with every right keeps.
class ListFixture : public testing::Test {
  protected:
    ListFixture() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Session().ScreenAccess = 3;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(9, 0)));
    }
    ~ListFixture() override { ResetSession(); }

    void run(const QString& statement) { database.connection().Execute(statement); }
    /// Every write on the table fails from now on; returns what the database says then.
    QString refuseWrites(const char* table) {
        database.connection().Execute(db::Sql("Drop Table {}", db::Raw{QString::fromLatin1(table)}));
        try {
            Session().Connection.Execute(db::Sql("Delete from {}", db::Raw{QString::fromLatin1(table)}));
        } catch (const db::DatabaseError& error) {
            return error.description;
        }
        ADD_FAILURE() << "The table is still there.";
        return {};
    }

    TestDatabase database;
    ScriptedDesk desk;
};
