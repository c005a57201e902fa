#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/support/fulldisk.h"

TEST(FullDiskTest, ATransactionThatCannotBeStoredLeavesTheConnectionUsable) {
    const QTemporaryDir folder;
    db::Connection connection;
    connection.Create(QStringLiteral("Data Source=%1;Initial Catalog=practice;").arg(folder.path()));
    connection.Execute("Create Table notes (id int identity(1,1) primary key, note ntext)");
    connection.Execute("Insert Into notes (note) Values ('before')");
    const QString large = QStringLiteral("x").repeated(4'000'000);

    {
        const FullDisk disk(1'000'000);
        connection.BeginTrans();
        connection.Execute(db::Sql("Insert Into notes (note) Values ('{}')", large));
        EXPECT_THROW(connection.CommitTrans(), db::DatabaseError);
        EXPECT_NO_THROW(connection.RollbackTrans());
    }
    connection.BeginTrans();
    connection.Execute("Insert Into notes (note) Values ('after')");
    connection.CommitTrans();

    const db::Recordset notes("Select * from notes Order by id", connection);
    ASSERT_EQ(notes.RecordCount(), 2);
    EXPECT_EQ(notes["note"].text(), QStringLiteral("before"));
}
