// How a database of an older version is brought up to this one.

#include <gtest/gtest.h>

#include <QFile>
#include <stdexcept>

#include "data/upkeep/schemaversion.h"
#include "tests/support/testdatabase.h"

using upkeep::MissingParts;
using upkeep::SchemaVersion;
using upkeep::Upgrade;

namespace {

class OlderDatabase : public testing::Test {
  protected:
    void run(const char* statement) { database.connection().Execute(QString::fromLatin1(statement)); }
    [[nodiscard]] QStringList missing() { return MissingParts(database.connection(), SchemaScript::Main); }

    /// Makes the tables as a released version made them, with its number.
    void makeTablesOf(int version) {
        for (const QString& table : SchemaTables(SchemaScript::Main))
            DropTable(database.connection(), table);
        QFile file(QStringLiteral(SVS_RELEASED_SCHEMAS "/schema%1.sql").arg(version));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QString& statement : StatementsOf(QString::fromUtf8(file.readAll())))
            database.connection().Execute(statement);
        database.connection().Execute(
            QStringLiteral(
                "Insert Into DefaultFieldValues (dfltfieldname, DfltValue) Values ('SVSchedulerSchema', '%1')")
                .arg(version));
    }

    TestDatabase database;
};

}  // namespace

TEST_F(OlderDatabase, OfThisVersionLacksNothing) {
    EXPECT_EQ(missing(), QStringList());
    TestDatabase companion(SchemaScript::Companion);
    EXPECT_EQ(MissingParts(companion.connection(), SchemaScript::Companion), QStringList());
    WriteSchemaVersion(database.connection());
    EXPECT_EQ(SchemaVersion(database.connection()), CurrentSchema);
    EXPECT_EQ(Upgrade(database.connection()), QStringList());
}

TEST_F(OlderDatabase, WithoutANumberGetsTablesAndColumnsThatItLacksAndKeepsItsRows) {
    DropTable(database.connection(), QStringLiteral("appointments"));
    DropTable(database.connection(), QStringLiteral("ToDo"));
    database.connection().Execute(SchemaStatements(SchemaScript::Main)
                                      .first()
                                      .remove(QStringLiteral("    CheckInTime nvarchar(40) null,\n"))
                                      .remove(QStringLiteral("    allday bit null default 0,\n")));
    run("Insert Into appointments (cappttext, nStartTime, appttype) Values ('O''Brien', 540, 0)");
    EXPECT_EQ(SchemaVersion(database.connection()), 0);
    EXPECT_EQ(missing(), (QStringList{QStringLiteral("appointments.allday"), QStringLiteral("appointments.CheckInTime"),
                                      QStringLiteral("ToDo")}));
    EXPECT_EQ(Upgrade(database.connection()),
              (QStringList{QStringLiteral("The column appointments.allday was added."),
                           QStringLiteral("The column appointments.CheckInTime was added."),
                           QStringLiteral("The table ToDo was made.")}));
    EXPECT_EQ(missing(), QStringList());
    EXPECT_EQ(SchemaVersion(database.connection()), CurrentSchema);
    EXPECT_EQ(database.text("Select cappttext from appointments Where allday = 0"), "O'Brien")
        << "A default fills the rows that were there.";
    EXPECT_EQ(Upgrade(database.connection()), QStringList()) << "The second time there is nothing to do.";
}

TEST_F(OlderDatabase, OfVersionOneGetsTheTablesOfTheDeskAndKeepsItsRows) {
    makeTablesOf(1);
    run("Insert Into appointments (cappttext, nStartTime) Values ('O''Brien', 540)");
    EXPECT_FALSE(HasTable(database.connection(), QStringLiteral("WaitList")));
    EXPECT_EQ(Upgrade(database.connection()), (QStringList{QStringLiteral("The table WaitList was made."),
                                                           QStringLiteral("The table HoldingShelf was made."),
                                                           QStringLiteral("The table SavedViews was made.")}));
    EXPECT_TRUE(HasTable(database.connection(), QStringLiteral("WaitList")));
    EXPECT_EQ(missing(), QStringList());
    EXPECT_EQ(SchemaVersion(database.connection()), CurrentSchema);
    EXPECT_EQ(database.text("Select cappttext from appointments"), "O'Brien");
    EXPECT_EQ(Upgrade(database.connection()), QStringList());
}

TEST_F(OlderDatabase, MendsAppointmentsWithoutAType) {
    run("Drop Trigger appointments_added");
    run("Insert Into appointments (cappttext, appttype) Values ('Jones', Null)");
    EXPECT_EQ(Upgrade(database.connection()),
              QStringList{QStringLiteral("1 appointments without a type are ordinary ones now.")});
    EXPECT_EQ(database.number("Select appttype from appointments"), 0);
}

TEST_F(OlderDatabase, OfALaterVersionIsLeftAlone) {
    run("Insert Into DefaultFieldValues (dfltfieldname, DfltValue) Values ('SVSchedulerSchema', '99')");
    EXPECT_THROW(Upgrade(database.connection()), std::runtime_error);
    EXPECT_EQ(SchemaVersion(database.connection()), 99);
}
