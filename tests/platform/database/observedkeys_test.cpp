// How the rows that a write adds or gives another key are found again for its observer.

#include "contract.h"
#include "observed.h"

using db::Lock;
using db::Recordset;
using db::Value;
using db::Write;

TEST_P(DatabaseContract, MoreRowsThanOneReadTakesAreAllTold) {
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= 230; ++i)
        rows.push_back({QStringLiteral("Visit %1").arg(i), i});
    observeRows();
    connection_.InsertRows("Visits", {"cappttext", "nStartTime"}, rows);
    EXPECT_EQ(connection_.LastIdentity(), 230);
    const QStringList added = told(writes_);
    ASSERT_EQ(added.size(), 230);
    for (int i = 1; i <= 230; ++i)
        EXPECT_EQ(added[i - 1], QStringLiteral("%1: (none) -> Visit %1 %1").arg(i));
    observeRows();
    connection_.Execute("Update Visits Set nStartTime = 0");
    const QStringList changed = told(writes_);
    ASSERT_EQ(changed.size(), 230);
    EXPECT_EQ(changed[150], "151: Visit 151 151 -> Visit 151 0");
}

TEST_P(DatabaseContract, ManyRowsWithAKeyOfSeveralColumnsAreAllTold) {
    std::vector<std::vector<Value>> visits;
    for (int i = 1; i <= 230; ++i)
        visits.push_back({QStringLiteral("D%1").arg(i)});
    connection_.InsertRows("Visits", {"cappttext"}, visits);
    observeRows();
    EXPECT_EQ(connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Select nkeyid, cappttext from Visits"),
              230);
    const QStringList lines = told(writes_);
    ASSERT_EQ(lines.size(), 230);
    EXPECT_TRUE(lines.contains("7 D7: (none) -> 7 D7"));
    EXPECT_TRUE(lines.contains("230 D230: (none) -> 230 D230"));
}

TEST_P(DatabaseContract, SeveralRowsOfOneInsertAreToldWithTheKeysThatEachWasGiven) {
    addVisit("Ann", 1);
    addVisit("Bob", 2);
    observeRows();
    EXPECT_EQ(connection_.Execute("Insert Into Visits (cappttext, nStartTime) Values ('Cara', 3), ('Dan', 4)"), 2);
    EXPECT_EQ(connection_.LastIdentity(), 4);
    EXPECT_EQ(connection_.Execute(
                  "Insert Into Visits (cappttext, nStartTime) Select cappttext, 9 from Visits Where nStartTime < 3"),
              2);
    EXPECT_EQ(connection_.LastIdentity(), 6);
    EXPECT_EQ(writes_.size(), 2U);
    QStringList lines = told(writes_);
    EXPECT_EQ(lines.first(2), (QStringList{"3: (none) -> Cara 3", "4: (none) -> Dan 4"}));
    EXPECT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines.contains("5: (none) -> Ann 9") || lines.contains("6: (none) -> Ann 9"));
}

TEST_P(DatabaseContract, RowsAreToldByAKeyThatTheStatementGivesThem) {
    observeRows();
    connection_.Execute("Insert Into VisitGuests (clinicianid, nkeyid) Values ('O''Brien', 7)");
    connection_.Execute("Insert Into VisitGuests Values (?, ?), (7, '22')", {7, "D1"});
    connection_.Execute(
        "Insert Into VisitGuests (nkeyid, clinicianid) Select 8, clinicianid from VisitGuests Where clinicianid < 'M'");
    EXPECT_EQ(told(writes_), (QStringList{"7 O'Brien: (none) -> 7 O'Brien", "7 22: (none) -> 7 22",
                                          "7 D1: (none) -> 7 D1", "8 22: (none) -> 8 22", "8 D1: (none) -> 8 D1"}));
    for (const Write& write : writes_)
        EXPECT_TRUE(write.rowsAreTold);
}

TEST_P(DatabaseContract, ANumberThatIsStoredAsATextIsFoundAsATextAgain) {
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')");
    observeRows();
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values ('8', 22)");
    EXPECT_EQ(told(writes_), QStringList{"8 22: (none) -> 8 22"});
}

TEST_P(DatabaseContract, AKeyThatAnUpdateChangesIsToldAsItWas) {
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')");
    observeRows();
    connection_.Execute("Update VisitGuests Set clinicianid = 'D2' Where nkeyid = 7");
    Recordset row("Select * from VisitGuests", connection_, Lock::Optimistic);
    row.Set("nkeyid", 8);
    row.Update();
    EXPECT_EQ(told(writes_), (QStringList{"7 D1: 7 D1 -> 7 D2", "7 D2: 7 D2 -> 8 D2"}));
}

TEST_P(DatabaseContract, RowsThatAreGivenAnotherKeyAreFollowedEach) {
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D2')");
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (8, 'D1')");
    observeRows();
    connection_.Execute("Update VisitGuests Set nkeyid = ? Where nkeyid > ?", {9, 1});
    EXPECT_EQ(told(writes_), (QStringList{"7 D2: 7 D2 -> 9 D2", "8 D1: 8 D1 -> 9 D1"}));
}

TEST_P(DatabaseContract, RowsWhoseNewKeyIsNotPlainAreNotTold) {
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (7, 'D1')");
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (8, 'D1')");
    observeRows();
    EXPECT_EQ(connection_.Execute("Update VisitGuests Set nkeyid = nkeyid + 10 Where nkeyid = 8"), 1);
    EXPECT_EQ(connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (9, Upper('d3'))"), 1);
    ASSERT_EQ(writes_.size(), 2U);
    for (const Write& write : writes_) {
        EXPECT_FALSE(write.rowsAreTold) << write.statement.toStdString();
        EXPECT_EQ(write.changes.size(), 0U) << write.statement.toStdString();
        EXPECT_GT(write.rows, 0) << write.statement.toStdString();
    }
}

TEST_P(DatabaseContract, AnInsertWithoutColumnsLeavesOutTheOneThatTheDatabaseFills) {
    if (GetParam() != EngineKind::Server)
        GTEST_SKIP() << "Here the column that the database fills is the key.";
    connection_.Execute("Create Table VisitMarks (markid int Identity(1,1), mark nvarchar(20) Not Null Primary Key)");
    observeRows();
    connection_.Execute("Insert Into VisitMarks Values ('red')");
    ASSERT_EQ(writes_.size(), 1U);
    ASSERT_EQ(writes_.front().changes.size(), 1U);
    EXPECT_EQ(valuesOf(writes_.front().changes.front().after, {"markid", "mark"}), "1 red");
    connection_.Execute("Drop Table VisitMarks");
}

TEST_P(DatabaseContract, OfATableWithoutAKeyAndOfTheSchemaTheStatementIsToldAlone) {
    observeRows();
    connection_.Execute("Create Table VisitNotes (note varchar(20))");
    connection_.Execute("Insert Into VisitNotes (note) Values ('one')");
    connection_.Execute("Update VisitNotes Set note = 'two'");
    connection_.Execute("Delete From VisitNotes");
    connection_.Execute("Drop Table VisitNotes");
    ASSERT_EQ(writes_.size(), 5U);
    for (const Write& write : writes_) {
        EXPECT_EQ(write.table, "VisitNotes");
        EXPECT_FALSE(write.rowsAreTold) << write.statement.toStdString();
    }
    EXPECT_EQ(writes_[2].rows, 1);
}
