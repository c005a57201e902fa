#include "data/schema.h"

#include <gtest/gtest.h>

#include <QSet>

#include "platform/database/recordset.h"
#include "tests/support/testdatabase.h"

namespace {

/// What another program may do to appointments, row by row: leave the type out, say null, take it away.
void writeWithoutType(db::Connection& program) {
    program.Execute("Insert Into appointments (cappttext) Values ('left out')");
    program.Execute("Insert Into appointments (cappttext, appttype) Values ('null', Null), ('too', Null)");
    program.Execute("Insert Into appointments (cappttext, appttype) Values ('slot', 4)");
    EXPECT_EQ(program.LastIdentity(), 4);
    program.Execute("Insert Into appointments (cappttext, appttype) Values ('taken away', 4)");
    EXPECT_EQ(program.Execute("Update appointments Set appttype = Null Where cappttext = 'taken away'"), 1);
}

db::Connection& create(db::Connection& connection) {
    connection.Create(QStringLiteral("Data Source=:memory:;"));
    return connection;
}

int placeOf(const char* column, const db::Recordset& rows) {
    for (std::size_t i = 0; i < rows.Columns().size(); ++i) {
        if (rows.Columns()[i].name == QLatin1String(column))
            return static_cast<int>(i);
    }
    return -1;
}

TEST(Schema, TheColumnsOfAppointmentsThatAreReadByPlaceKeepIt) {
    db::Connection connection;
    ApplySchema(create(connection), SchemaScript::Main);
    const db::Recordset rows("Select * from appointments Where 0=1", connection);
    const char* const first[]{"nkeyid", "dapptdate", "nStartTime", "nEndTime", "cappttext", "CapptNote"};
    for (int place = 0; place < 6; ++place)
        EXPECT_EQ(placeOf(first[place], rows), place) << first[place];
    EXPECT_EQ(placeOf("CLOCATION", rows), 15);
}

TEST(Schema, EveryTableCanBeReadOnceItsScriptHasRun) {
    for (const SchemaScript script : {SchemaScript::Main, SchemaScript::Companion}) {
        db::Connection connection;
        ApplySchema(create(connection), script);
        const QStringList tables = SchemaTables(script);
        EXPECT_GT(tables.size(), 10);
        for (const QString& table : tables)
            EXPECT_NO_THROW(db::Recordset(QStringLiteral("Select * from ") + table, connection)) << table.toStdString();
    }
}

TEST(Schema, ATableAlreadyThereIsFound) {
    db::Connection connection;
    create(connection);
    EXPECT_EQ(ExistingSchemaTable(connection, SchemaScript::Companion), QString());
    connection.Execute("Create Table Providers (ProvId int not null primary key)");
    EXPECT_EQ(ExistingSchemaTable(connection, SchemaScript::Companion), "Providers");
}

TEST(Schema, AScriptThatFailsLeavesNothingBehind) {
    db::Connection connection;
    create(connection);
    connection.Execute("Create Table Providers (ProvId int not null primary key)");
    EXPECT_THROW(ApplySchema(connection, SchemaScript::Companion), db::DatabaseError);
    connection.Execute("Drop Table Providers");
    EXPECT_EQ(ExistingSchemaTable(connection, SchemaScript::Companion), QString());
    EXPECT_NO_THROW(ApplySchema(connection, SchemaScript::Companion));
}

TEST(Schema, ARowThatNamesOnlyItsTimesIsFoundByTestsThatANullWouldFail) {
    db::Connection connection;
    ApplySchema(create(connection), SchemaScript::Main);
    connection.Execute("Insert Into appointments (dapptdate, nStartTime, nEndTime) Values('2026/11/20', 540, 590)");
    connection.Execute(
        "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomid) Values(540, 590, '2026/11/20', 1)");
    connection.Execute("Insert Into ToDo (ToDo) Values('Call back')");
    connection.Execute("Insert Into provider_info (id) Values('REED')");
    connection.Execute("Insert Into patient_info (id) Values('10001')");
    const char* const finds[]{"Select * from appointments Where appttype <> 4 And repeating = 0",
                              "Select * from roomschedule Where apptid <> 7", "Select * from ToDo Where Completed = 0",
                              "Select * from provider_info Where archive = 0 And ExcludeFromScheduler = 0",
                              "Select * from patient_info Where Archive = 0"};
    for (const char* find : finds)
        EXPECT_EQ(db::Recordset(find, connection).RecordCount(), 1) << find;
}

TEST(Schema, AnAppointmentThatAnotherProgramWritesWithoutATypeIsAnOrdinaryOne) {
    TestDatabase practice;
    writeWithoutType(practice.connection());
    EXPECT_EQ(practice.number("Select Count(*) from appointments Where appttype = 0"), 4);
    EXPECT_EQ(practice.text("Select cappttext from appointments Where appttype = 4"), "slot");
}

TEST(Schema, APracticeThatIsMendedHasNoAppointmentsWithoutATypeAnyMore) {
    TestDatabase practice;
    db::Connection& connection = practice.connection();
    connection.Execute("Drop Trigger appointments_added");
    connection.Execute("Drop Trigger appointments_changed");
    writeWithoutType(connection);
    EXPECT_EQ(practice.number("Select Count(*) from appointments Where appttype Is Null"), 3);
    EXPECT_EQ(MendAppointments(connection), 3);
    EXPECT_EQ(practice.number("Select Count(*) from appointments Where appttype = 0"), 4);
    EXPECT_EQ(MendAppointments(connection), 0);
    connection.Execute("Insert Into appointments (cappttext, appttype) Values ('later', Null)");
    EXPECT_EQ(practice.number("Select appttype from appointments Where cappttext = 'later'"), 0);
}

TEST(Schema, AMendThatFailsLeavesThePracticeAsItWas) {
    TestDatabase practice;
    db::Connection& connection = practice.connection();
    connection.Execute("Drop Trigger appointments_added");
    connection.Execute("Drop Trigger appointments_changed");
    writeWithoutType(connection);
    for (const QString& added : SchemaStatements(SchemaScript::Main).filter("Create Trigger appointments_added"))
        connection.Execute(added);
    practice.refuse("Update", "appointments");
    try {
        MendAppointments(connection);
        ADD_FAILURE() << "Nothing was refused.";
    } catch (const db::DatabaseError& error) {
        EXPECT_TRUE(error.statement.startsWith("Update appointments")) << error.what();
    }
    practice.allow("Update", "appointments");
    connection.Execute("Insert Into appointments (cappttext, appttype) Values ('later', Null)");
    EXPECT_EQ(practice.number("Select Count(*) from appointments Where appttype Is Null"), 3);
}

TEST(Schema, NoTwoTablesOrIndexesOfAScriptShareAName) {
    for (const SchemaScript script : {SchemaScript::Main, SchemaScript::Companion}) {
        QSet<QString> names;
        const QStringList statements = SchemaStatements(script);
        for (const QString& statement : statements) {
            const QString name = statement.section(QLatin1Char(' '), 2, 2).toLower();
            EXPECT_FALSE(names.contains(name)) << name.toStdString();
            names.insert(name);
        }
    }
}

}  // namespace
