#include "platform/database/readtogether.h"

#include "contract.h"

using db::ReadTogether;
using db::Recordset;

namespace {

const QString early = "Select cappttext from Visits Where nStartTime < 600";
const QString late = "Select nkeyid, cappttext from Visits Where nStartTime >= 600";
const QString refused = "Select Nothing_Of_The_Kind from Visits";

/// The ways to the server that a step takes.
template <typename Step>
qint64 tripsOf(const Step& step) {
    const qint64 before = db::Connection::Trips();
    step();
    return db::Connection::Trips() - before;
}

}  // namespace

TEST_P(DatabaseContract, StatementsReadTogetherGiveEachItsOwnRowsInOneTrip) {
    addVisit("Anna", 540);
    addVisit("Bert", 600);
    addVisit("Cora", 660);
    const qint64 trips = tripsOf([&] {
        const ReadTogether together(connection_, {early, late, "Select * from VisitGuests"});
        Recordset rows(late, connection_);
        EXPECT_EQ(rows.RecordCount(), 2);
        EXPECT_EQ(rows["cappttext"].text(), "Bert");
        EXPECT_EQ(Recordset(early, connection_)[0].text(), "Anna");
        EXPECT_TRUE(Recordset("Select * from VisitGuests", connection_).Eof());
        EXPECT_EQ(Recordset(late, connection_).RecordCount(), 2) << "as often as it is opened";
    });
    EXPECT_EQ(trips, 1);
    EXPECT_EQ(tripsOf([&] { Recordset(early, connection_); }), 1) << "nothing is kept behind it";
}

TEST_P(DatabaseContract, OfStatementsReadTogetherOneThatFailsTellsItsOwnErrorAndKeepsNoneFromBeingRead) {
    addVisit("Anna", 540);
    addVisit("Bert", 600);
    const ReadTogether together(connection_, {early, refused, late});
    EXPECT_EQ(Recordset(early, connection_)[0].text(), "Anna");
    EXPECT_EQ(Recordset(late, connection_)[1].text(), "Bert");
    const db::DatabaseError failed = FailureOf([&] { Recordset(refused, connection_); });
    const db::DatabaseError alone = FailureOf([&] { Recordset(refused + " ", connection_); });
    EXPECT_NE(failed.number, 0);
    EXPECT_EQ(failed.number, alone.number);
    EXPECT_EQ(failed.statement, refused);
}

TEST_P(DatabaseContract, AQuoteLeftOpenInOneOfTheStatementsReadTogetherTakesNoOtherIn) {
    addVisit("Anna", 540);
    const QString open = "Select * from Visits Where cappttext = 'x";
    const ReadTogether together(connection_, {open, "Select * from Visits /* ", early});
    EXPECT_EQ(FailureOf([&] { Recordset(open, connection_); }).number, 105);
    EXPECT_EQ(Recordset(early, connection_)[0].text(), "Anna");
}

TEST_P(DatabaseContract, AWriteIsSeenByWhateverWasReadTogetherBeforeIt) {
    const int key = addVisit("Anna", 540);
    const ReadTogether together(connection_, {early, late});
    connection_.Execute("Update Visits Set cappttext = 'Berta' Where nStartTime = 540");
    EXPECT_EQ(Recordset(early, connection_)[0].text(), "Berta");
    const ReadTogether again(connection_, {early, late});
    Recordset row(db::Sql("Select * from Visits Where nkeyid = {}", key), connection_, db::Lock::Optimistic);
    row.Set("cappttext", "Cora");
    row.Update();
    EXPECT_EQ(Recordset(early, connection_)[0].text(), "Cora");
}

TEST_P(DatabaseContract, ARowThatWasReadTogetherWithOthersIsWrittenLikeAnyOther) {
    const int key = addVisit("Anna", 540);
    const QString statement = db::Sql("Select * from Visits Where nkeyid = {}", key);
    const ReadTogether together(connection_, {late, statement});
    Recordset row(statement, connection_, db::Lock::Optimistic);
    row.Set("cappttext", "Berta");
    row.Update();
    EXPECT_EQ(textOf(key), "Berta");
}

TEST_P(DatabaseContract, WhatAnOuterLoadHasReadIsNotReadAgain) {
    addVisit("Anna", 540);
    const ReadTogether outer(connection_, {early, late});
    EXPECT_EQ(tripsOf([&] { const ReadTogether inner(connection_, {late, early}); }), 0);
    EXPECT_EQ(tripsOf([&] { const ReadTogether inner(connection_, {late, "Select * from VisitGuests"}); }), 1);
}

TEST_P(DatabaseContract, OnlyStatementsThatReadAreReadTogether) {
    addVisit("Anna", 540);
    EXPECT_THROW(ReadTogether(connection_, {early, "Delete From Visits"}), std::logic_error);
    EXPECT_EQ(count(), 1);
}

TEST_P(DatabaseContract, EveryWayToTheServerCounts) {
    EXPECT_EQ(tripsOf([&] { connection_.Execute("Delete From Visits"); }), 1);
    EXPECT_EQ(tripsOf([&] {
                  connection_.BeginTrans();
                  connection_.RollbackTrans();
              }),
              2);
    addVisit("Anna");
    const auto edit = [&](const char* text) {
        Recordset row("Select * from Visits", connection_, db::Lock::Optimistic);
        row.Set("cappttext", text);
        row.Update();
    };
    EXPECT_EQ(tripsOf([&] { edit("Berta"); }), 3) << "the row, the columns of its table, the change";
    EXPECT_EQ(tripsOf([&] { edit("Cora"); }), 2) << "the columns are known";
}

TEST(ReadTogether, AClosedConnectionReadsNothing) {
    db::Connection closed;
    EXPECT_EQ(tripsOf([&] { const ReadTogether together(closed, {early, late}); }), 0);
    EXPECT_EQ(FailureOf([&] { Recordset(early, closed); }).number, 3709);
}

TEST_P(DatabaseContract, BeforeAQuestionToTheUserEverythingThatWasReadTogetherIsForgotten) {
    addVisit("Anna", 540);
    const ReadTogether together(connection_, {early, late});
    const ReadTogether inner(connection_, {"Select * from VisitGuests"});
    EXPECT_EQ(tripsOf([&] { Recordset(early, connection_); }), 0);
    ReadTogether::ForgetAll();
    EXPECT_EQ(tripsOf([&] { Recordset(early, connection_); }), 1);
    EXPECT_EQ(tripsOf([&] { Recordset("Select * from VisitGuests", connection_); }), 1);
}

TEST_P(DatabaseContract, AWriteForgetsWhatNamesItsTableAndNothingElse) {
    addVisit("Anna", 540);
    const ReadTogether together(connection_, {early, "Select * from VisitGuests"});
    connection_.Execute("Insert Into VisitGuests (nkeyid, clinicianid) Values (1, 'D1')");
    EXPECT_EQ(tripsOf([&] { EXPECT_EQ(Recordset(early, connection_).RecordCount(), 1); }), 0);
    EXPECT_EQ(Recordset("Select * from VisitGuests", connection_).RecordCount(), 1);
}

TEST_P(DatabaseContract, AnObservedWriteIsSeenByWhateverWasReadTogetherBeforeIt) {
    addVisit("Anna", 540);
    observeRows();
    const ReadTogether together(connection_, {early, late});
    connection_.Execute("Insert Into Visits (cappttext, nStartTime) Values ('Bert', 600), ('Cora', 660)");
    EXPECT_EQ(Recordset(late, connection_).RecordCount(), 2);
    connection_.Execute("Update Visits Set nStartTime = 700 Where nStartTime = 540");
    EXPECT_TRUE(Recordset(early, connection_).Eof());
}

TEST_P(DatabaseContract, TheFirstRowsAloneAreReadAnew) {
    addVisit("Anna", 540);
    addVisit("Bert", 545);
    const ReadTogether together(connection_, {early});
    Recordset rows;
    EXPECT_EQ(tripsOf([&] { rows.Open(early, connection_, db::Lock::ReadOnly, 1); }), 1);
    EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_P(DatabaseContract, AConnectionThatIsClosedForgetsWhatWasReadTogether) {
    addVisit("Anna", 540);
    const ReadTogether together(connection_, {early});
    connection_.Close();
    EXPECT_EQ(FailureOf([&] { Recordset(early, connection_); }).number, 3709);
}
