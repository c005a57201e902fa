#include "companion/companiontime.h"

#include <gtest/gtest.h>

#include "data/minutetime.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

using db::Sql;

namespace {

const QDate Day{2026, 3, 11};

std::optional<int> read(TestDatabase& database, const char* statement) {
    const db::Recordset row(QString::fromUtf8(statement), database.connection());
    return CompanionMinutes(row[0]);
}

TEST(CompanionTime, EveryMinuteOfTheDayIsReadBackAsItWasWritten) {
    TestDatabase companion(SchemaScript::Companion);
    db::InTransaction(companion.connection(), [&] {
        for (int minute = 0; minute < MinutesPerDay; ++minute)
            companion.connection().Execute(
                Sql("Insert Into ClientTransactions (CtrnTime, CtrnDuration) Values ('{}', {})",
                    CompanionTimeText(Day, minute), minute));
    });
    db::Recordset rows("Select CtrnTime, CtrnDuration From ClientTransactions", companion.connection());
    ASSERT_EQ(rows.RecordCount(), MinutesPerDay);
    for (; !rows.Eof(); rows.MoveNext()) {
        EXPECT_EQ(CompanionMinutes(rows[0]), rows[1].integer());
        EXPECT_EQ(rows[0].date(), Day);
    }
}

TEST(CompanionTime, NoonMidnightAndTheMinuteBeforeOneAreWrittenAsAServerTakesThem) {
    EXPECT_EQ(CompanionTimeText(Day, 0), "03/11/2026 12:00 AM");
    EXPECT_EQ(CompanionTimeText(Day, 545), "03/11/2026 9:05 AM");
    EXPECT_EQ(CompanionTimeText(Day, 720), "03/11/2026 12:00 PM");
    EXPECT_EQ(CompanionTimeText(Day, 779), "03/11/2026 12:59 PM");
    EXPECT_EQ(CompanionTimeText(Day, 1439), "03/11/2026 11:59 PM");
    EXPECT_EQ(CompanionTimeText(Day, MinutesPerDay), "03/11/2026 12:00 AM");
}

TEST(CompanionTime, ATimeIsReadWhateverDayStandsBesideIt) {
    TestDatabase companion(SchemaScript::Companion);
    companion.connection().Execute("Insert Into ClientTransactions (CtrnTime) Values ('2026-03-11 14:30')");
    EXPECT_EQ(read(companion, "Select CtrnTime From ClientTransactions"), 870);
    companion.connection().Execute("Update ClientTransactions Set CtrnTime = '1899-12-30 14:30'");
    EXPECT_EQ(read(companion, "Select CtrnTime From ClientTransactions"), 870);
    companion.connection().Execute("Update ClientTransactions Set CtrnTime = '2:30 PM'");
    EXPECT_EQ(read(companion, "Select CtrnTime From ClientTransactions"), 870);
    companion.connection().Execute("Update ClientTransactions Set CtrnTime = '2026-03-11 23:59:59.997'");
    EXPECT_EQ(read(companion, "Select CtrnTime From ClientTransactions"), 1439);
}

TEST(CompanionTime, ATimeInAColumnOfTextsIsReadAlike) {
    TestDatabase companion(SchemaScript::Companion);
    EXPECT_EQ(read(companion, "Select '03/11/2026 2:30 PM'"), 870);
    EXPECT_EQ(read(companion, "Select '2:30 PM'"), 870);
    EXPECT_EQ(read(companion, "Select '14:30:00.0000000'"), 870);
    EXPECT_EQ(read(companion, "Select '2026-03-11 14:30:00.0000000'"), 870);
}

TEST(CompanionTime, NullAndATextThatIsNoTimeAreNoTime) {
    TestDatabase companion(SchemaScript::Companion);
    companion.connection().Execute("Insert Into ClientTransactions (CtrnTime) Values (Null)");
    EXPECT_EQ(read(companion, "Select CtrnTime From ClientTransactions"), std::nullopt);
    EXPECT_EQ(read(companion, "Select 'soon'"), std::nullopt);
    EXPECT_EQ(read(companion, "Select ''"), std::nullopt);
}

TEST(CompanionTime, NowIsWrittenAsBothEnginesReadIt) {
    ScriptedDesk desk;
    desk.setNow(QDateTime({2026, 3, 11}, {14, 7, 9}, Qt::UTC));
    EXPECT_EQ(CompanionNowText(), "03/11/2026 2:07:09 PM");
    TestDatabase companion(SchemaScript::Companion);
    companion.connection().Execute(
        Sql("Insert Into ClientTransactions (DateCreated) Values ('{}')", CompanionNowText()));
    const db::Recordset row("Select DateCreated From ClientTransactions", companion.connection());
    EXPECT_EQ(row[0].dateTime(), Now());
}

}  // namespace
