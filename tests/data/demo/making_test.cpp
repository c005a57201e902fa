// How a practice is made: the same for the same seed, as large as asked for, whole or not at all.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <stdexcept>

#include "data/demo/random.h"
#include "data/demo/schedule.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/data/demo/practicefixture.h"

namespace {

const QDate Wednesday(2026, 11, 18);

/// All rows of all tables, as one text.
QString contents(TestDatabase& database, SchemaScript script) {
    QStringList lines;
    const QStringList tables = SchemaTables(script);
    for (const QString& table : tables) {
        db::Recordset rows(db::Sql("Select * from {}", db::Raw{table}), database.connection());
        for (const auto& row : rows.GetRows()) {
            QString line = table;
            for (const db::Value& value : row)
                line += QLatin1Char('|') + value.text();
            lines.append(line);
        }
    }
    return lines.join(QLatin1Char('\n'));
}

demo::Practice spanOf(int appointments) {
    demo::Practice practice;
    practice.options = {1, appointments, Wednesday};
    demo::MakeSpan(practice);
    return practice;
}

TEST(MakingAPractice, TheSameSeedMakesTheSameRows) {
    QString main, companion;
    {
        DemoPractice first(Wednesday);
        main = contents(first.main, SchemaScript::Main);
        companion = contents(first.companion, SchemaScript::Companion);
    }
    DemoPractice second(Wednesday);
    EXPECT_GT(main.size(), 100000);
    EXPECT_TRUE(main == contents(second.main, SchemaScript::Main));
    EXPECT_TRUE(companion == contents(second.companion, SchemaScript::Companion));
}

TEST(MakingAPractice, AnotherSeedMakesOtherPatients) {
    QString names;
    const QString all =
        QStringLiteral("Select last_name from patient_info Where id = '10001' Or id = '10002' Or id = '10003'");
    const auto namesOf = [&](DemoPractice& practice) {
        QString text;
        db::Recordset rows(all, practice.main.connection());
        for (; !rows.Eof(); rows.MoveNext())
            text += rows[0].text() + QLatin1Char('|');
        return text;
    };
    {
        DemoPractice first(Wednesday, 1);
        names = namesOf(first);
    }
    DemoPractice second(Wednesday, 2);
    EXPECT_NE(names, namesOf(second));
}

TEST(MakingAPractice, RandomChoicesAreTheSameOnEveryMachine) {
    demo::Random random(1, "example");
    EXPECT_EQ(random.between(1, 1000000), 743915);
    EXPECT_EQ(random.between(1, 1000000), 190317);
    demo::Random again(1, "example");
    demo::Random other(1, "another subject");
    EXPECT_NE(again.between(1, 1000000), other.between(1, 1000000));
}

TEST(MakingAPractice, AChoiceOfNoWeightIsNeverMade) {
    demo::Random random(7, "weights");
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(random.weighted({0, 3, 0}), 1U);
}

TEST(MakingAPractice, TheUsualOneGoesAYearBackAndHalfAYearAhead) {
    const demo::Practice practice = spanOf(demo::UsualAppointments);
    EXPECT_EQ(practice.size, 1);
    EXPECT_NEAR(static_cast<double>(practice.firstDay.daysTo(Wednesday)), 365, 21);
    EXPECT_NEAR(static_cast<double>(Wednesday.daysTo(practice.lastDay)), 182, 14);
}

TEST(MakingAPractice, AMillionAppointmentsTakeTenYearsAndMoreProviders) {
    const demo::Practice practice = spanOf(1000000);
    EXPECT_GT(practice.size, 1);
    EXPECT_LE(practice.firstDay.daysTo(Wednesday), 3653);
    EXPECT_LE(Wednesday.daysTo(practice.lastDay), 183);
}

TEST(MakingAPractice, TheSmallestStillReachesFromBeforeTodayPastIt) {
    const demo::Practice practice = spanOf(1);
    EXPECT_LT(practice.firstDay, Wednesday);
    EXPECT_GT(practice.lastDay, Wednesday);
}

TEST(MakingAPractice, AHolidayThatFallsOnTodayIsLeftOut) {
    DemoPractice practice(QDate(2026, 12, 25));
    EXPECT_EQ(practice.main.number("Select Count(*) from Holidays Where Holiday = 'Christmas Day'"), 0);
    EXPECT_EQ(practice.main.number("Select Count(*) from Holidays Where Holiday = 'Christmas Eve'"), 1);
}

TEST(MakingAPractice, AnyDayWillDo) {
    for (const QDate today : {QDate(2028, 2, 29), QDate(2027, 1, 1), QDate(2026, 11, 22)}) {
        DemoPractice practice(today);
        EXPECT_GT(practice.summary.appointments, 500) << today.toString(Qt::ISODate).toStdString();
    }
}

TEST(MakingAFolder, HoldsTwoDatabasesAndTwoIniFilesAndNothingElse) {
    const QTemporaryDir folder;
    const QString data = folder.filePath(QStringLiteral("data"));
    demo::MakeDemoFolder({1, 1000, Wednesday}, data);
    EXPECT_EQ(QDir(data).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
              (QStringList{"companion.db", "practice.db", "solvane.ini", "svwsched.ini"}));
    db::Connection connection;
    connection.Open(QStringLiteral("Data Source=\"%1\";Initial Catalog=practice;").arg(data));
    EXPECT_FALSE(db::Recordset("Select * from settings", connection).Eof());
}

TEST(MakingAFolder, OffersTheNotesProgramThatWasNamed) {
    const QTemporaryDir folder;
    const QString data = folder.filePath(QStringLiteral("data"));
    demo::Options options{1, 1000, Wednesday};
    options.notesProgram = QStringLiteral("/usr/bin/true");
    demo::MakeDemoFolder(options, data);
    EXPECT_EQ(QFile::symLinkTarget(data + QStringLiteral("/solvaned.exe")), QStringLiteral("/usr/bin/true"));
}

TEST(MakingAFolder, APracticeThatIsThereIsLeftAlone) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("practice.db")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    EXPECT_THROW(demo::MakeDemoFolder({1, 1000, Wednesday}, folder.path()), std::runtime_error);
    EXPECT_EQ(QFile(file.fileName()).size(), 4);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{"practice.db"});
}

TEST(MakingAFolder, AFolderThatCannotBeMadeIsTold) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_THROW(demo::MakeDemoFolder({1, 1000, Wednesday}, file.fileName() + QStringLiteral("/data")),
                 std::runtime_error);
}

}  // namespace
