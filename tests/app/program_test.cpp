#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include "platform/database/sql.h"
#include "tests/support/files.h"
#include "tests/support/testdatabase.h"

namespace {

/// What one run of the real program left behind.
struct Outcome {
    int status = -1;
    QString out, err;
};

class ProgramTest : public testing::Test {
  protected:
    Outcome run(const QStringList& arguments, bool withDisplay = true, const QString& display = {}) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.path());
        environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
        environment.insert(QStringLiteral("XDG_STATE_HOME"), folder.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.path());
        if (!withDisplay)
            for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
                environment.remove(QString::fromLatin1(name));
        if (!display.isEmpty())
            environment.insert(QStringLiteral("DISPLAY"), display);
        environment.insert(QStringLiteral("QT_LOGGING_RULES"), loggingRules);
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(SVS_PROGRAM), arguments);
        EXPECT_TRUE(program.waitForFinished(60000)) << "The program did not end.";
        return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
                QString::fromLocal8Bit(program.readAllStandardOutput()),
                QString::fromLocal8Bit(program.readAllStandardError())};
    }

    /// A data folder with both ini files and a database that knows one provider.
    void makePractice() {
        PutFile(folder.filePath(QStringLiteral("solvane.ini")), "[SQLServer]\nDataSource=.\nInitialCatalog=practice\n");
        PutFile(folder.filePath(QStringLiteral("svwsched.ini")), "[PrintLayout]\nTitleFontBold=True\n");
        db::Connection connection;
        connection.Create(QStringLiteral("Data Source=%1;Initial Catalog=practice;").arg(folder.path()));
        ApplySchema(connection, SchemaScript::Main);
        connection.Execute(
            QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)"));
        connection.Execute(QStringLiteral(
            "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values ('REED', 1, '333333336')"));
    }

    [[nodiscard]] QString picture() const { return folder.filePath(QStringLiteral("window.png")); }

    QTemporaryDir folder;
    QString dataHome = folder.filePath(QStringLiteral("share"));
    QString loggingRules;
};

}  // namespace

TEST_F(ProgramTest, TellsItsVersionAndItsUsageWithoutADisplay) {
    const Outcome version = run({QStringLiteral("--version")}, false);
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, QStringLiteral("SVScheduler " SVS_VERSION "\n"));
    const Outcome help = run({QStringLiteral("--help")}, false);
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.out.startsWith(QStringLiteral("Usage: svscheduler")));
}

TEST_F(ProgramTest, ItStartsWithoutTheBrowserOfTheWebSignature) {
    QProcess libraries;
    libraries.start(QStringLiteral("ldd"), {QStringLiteral(SVS_PROGRAM)});
    ASSERT_TRUE(libraries.waitForFinished(60000));
    const QByteArray needed = libraries.readAllStandardOutput();
    EXPECT_TRUE(needed.contains("libQt6Widgets")) << needed.toStdString();
    for (const char* browser : {"WebEngine", "Qt6Quick", "Qt6Qml"})
        EXPECT_FALSE(needed.contains(browser)) << needed.toStdString();
}

TEST_F(ProgramTest, RefusesWhatItDoesNotUnderstandWithItsUsage) {
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("--bogus")}, QStringList{QStringLiteral("--date"), QStringLiteral("soon")},
          QStringList{QStringLiteral("--size"), QStringLiteral("huge")}}) {
        const Outcome refused = run(arguments, false);
        EXPECT_EQ(refused.status, 2);
        EXPECT_TRUE(refused.err.startsWith(QStringLiteral("svscheduler: "))) << refused.err.toStdString();
        EXPECT_TRUE(refused.err.contains(QStringLiteral("Usage: svscheduler")));
        EXPECT_EQ(refused.out, QString());
    }
}

TEST_F(ProgramTest, WithoutADisplayItSaysHowToGetAPicture) {
    const Outcome blind = run({QStringLiteral("2|ADMIN")}, false);
    EXPECT_NE(blind.status, 0);
    EXPECT_EQ(blind.err,
              QStringLiteral("svscheduler: there is no display; --screenshot FILE makes a picture without one\n"));
}

TEST_F(ProgramTest, ADisplayThatDoesNotAnswerIsToldInsteadOfACrash) {
    const Outcome blind = run({QStringLiteral("2|ADMIN")}, false, QStringLiteral(":4711"));
    EXPECT_EQ(blind.status, 1);
    EXPECT_TRUE(blind.err.contains(
        QStringLiteral("svscheduler: the display does not answer; --screenshot FILE makes a picture without one\n")))
        << blind.err.toStdString();
}

TEST_F(ProgramTest, APictureWithoutAUserIsRefusedRatherThanStuckAtTheLogon) {
    const Outcome stuck = run({QStringLiteral("--screenshot"), picture()}, false);
    EXPECT_EQ(stuck.status, 2);
    EXPECT_TRUE(stuck.err.contains(QStringLiteral("cannot log on")));
}

TEST_F(ProgramTest, APictureOfAProvidersScheduleIsMadeWithoutADisplay) {
    makePractice();
    const Outcome made = run({QStringLiteral("--data"), folder.path(), QStringLiteral("--screenshot"), picture(),
                              QStringLiteral("--size"), QStringLiteral("1000x700"), QStringLiteral("1|REED")},
                             false);
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.err, QString());
    EXPECT_EQ(QImage(picture()).size(), QSize(1000, 700));
}

TEST_F(ProgramTest, ItStartsToTheDayInFourTripsToTheServerAndToTheWeekInFive) {
    makePractice();
    loggingRules = QStringLiteral("svscheduler.trips.debug=true");
    QStringList options{QStringLiteral("--data"), folder.path(), QStringLiteral("--screenshot"), picture()};
    // The first start writes the user's reminder text.
    run(options + QStringList{QStringLiteral("1|REED")}, false);
    const Outcome day = run(options + QStringList{QStringLiteral("1|REED")}, false);
    EXPECT_LE(day.err.count(QLatin1Char('\n')), 4) << day.err.toStdString();
    const Outcome week =
        run(options + QStringList{QStringLiteral("--view"), QStringLiteral("week"), QStringLiteral("1|REED")}, false);
    EXPECT_LE(week.err.count(QLatin1Char('\n')), 5) << week.err.toStdString();
    EXPECT_TRUE(week.err.contains(QLatin1String("(login)")));
}

TEST_F(ProgramTest, AnAdministratorsPictureShowsTheFirstProvider) {
    makePractice();
    const Outcome made = run({QStringLiteral("--data"), folder.path(), QStringLiteral("--screenshot"), picture(),
                              QStringLiteral("--dark"), QStringLiteral("2|ADMIN")},
                             false);
    EXPECT_EQ(made.status, 0) << made.err.toStdString();
    EXPECT_EQ(QImage(picture()).size(), QSize(1280, 800));
    EXPECT_LT(QImage(picture()).pixelColor(2, 400).lightness(), 60);
}

TEST_F(ProgramTest, APracticeWithoutItsFilesEndsWithTheReason) {
    const Outcome failed = run(
        {QStringLiteral("--data"), folder.path(), QStringLiteral("--screenshot"), picture(), QStringLiteral("1|REED")},
        false);
    EXPECT_NE(failed.status, 0);
    EXPECT_EQ(failed.err, QStringLiteral("File Not Found: Unable to find configuration file solvane.ini. Program will "
                                         "terminate.\n"));
    EXPECT_FALSE(QFile::exists(picture()));
}

TEST_F(ProgramTest, APictureThatCannotBeWrittenIsTold) {
    makePractice();
    const Outcome failed = run({QStringLiteral("--data"), folder.path(), QStringLiteral("--screenshot"),
                                folder.filePath(QStringLiteral("no/such/window.png")), QStringLiteral("1|REED")},
                               false);
    EXPECT_NE(failed.status, 0);
    EXPECT_TRUE(failed.err.contains(QStringLiteral("the picture could not be written to")));
}

TEST_F(ProgramTest, TheDemoIsMadeOnceAndOpensAtOnceTheNextTime) {
    const QString ini = dataHome + QStringLiteral("/svscheduler-demo/solvane.ini");
    const QStringList look{QStringLiteral("--demo"), QStringLiteral("--screenshot"), picture(),
                           QStringLiteral("1|REED")};
    const Outcome first = run(look, false);
    EXPECT_EQ(first.status, 0) << first.err.toStdString();
    EXPECT_FALSE(QImage(picture()).isNull());
    ASSERT_TRUE(QFile::exists(ini));
    PutFile(ini, FileBytes(ini) + "; of the user\n");
    EXPECT_EQ(run(look, false).status, 0);
    EXPECT_TRUE(FileBytes(ini).endsWith("; of the user\n"));
}

TEST_F(ProgramTest, ADemoThatCannotBeMadeSaysWhy) {
    dataHome = QStringLiteral("/dev/null");
    const Outcome outcome =
        run({QStringLiteral("--demo"), QStringLiteral("--screenshot"), picture(), QStringLiteral("1|REED")}, false);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("The demo practice could not be made.")))
        << outcome.err.toStdString();
    EXPECT_FALSE(QFile::exists(picture()));
}
