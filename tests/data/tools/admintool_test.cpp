// svscheduler-admin as an administrator calls it.

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include "data/demo/demo.h"
#include "platform/database/recordset.h"
#include "platform/desktop/practicedatabase.h"
#include "tests/support/files.h"
#include "tests/support/testdatabase.h"

namespace {

struct Outcome {
    int code = -1;
    QString out, err;
};

class AdminTool : public testing::Test {
  protected:
    AdminTool() { demo::MakeDemoFolder({.appointments = 200, .today = QDate(2026, 11, 18)}, home()); }

    [[nodiscard]] QString home() const { return folder.filePath(QStringLiteral("practice")); }
    /// Runs a command of the tool on the practice, with this typed into it.
    [[nodiscard]] Outcome call(QStringList arguments, const QByteArray& typed = {}) const {
        arguments << QStringLiteral("--data") << home();
        QProcess process;
        process.start(QStringLiteral(ADMIN_TOOL), arguments);
        process.write(typed);
        process.closeWriteChannel();
        process.waitForFinished(60000);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    void run(const char* statement) const {
        db::Connection connection;
        connection.Open(PracticeConnectionText(home()));
        connection.Execute(QString::fromLatin1(statement));
    }
    [[nodiscard]] int rowsOf(const char* statement) const {
        db::Connection connection;
        connection.Open(PracticeConnectionText(home()));
        return db::Recordset(QString::fromLatin1(statement), connection).RecordCount();
    }

    QTemporaryDir folder{TestFolderTemplate()};
};

}  // namespace

TEST_F(AdminTool, FindsASoundPracticeSound) {
    const Outcome outcome = call({"check"});
    EXPECT_EQ(outcome.code, 0) << outcome.out.toStdString() << outcome.err.toStdString();
    EXPECT_EQ(outcome.out, "All is sound.\n");
}

TEST_F(AdminTool, TellsEachFaultWithItsKeyAndMendsWhatIsAnsweredByYes) {
    run("Insert Into AppointmentsGroup (nKeyId, PatientId) Values (99998, '10001')");
    run("Insert Into AppointmentsGroup (nKeyId, PatientId) Values (99999, '10001')");
    const Outcome seen = call({"check"});
    EXPECT_EQ(seen.code, 3);
    EXPECT_EQ(seen.out.count("A member belongs to a group appointment that is gone."), 2) << seen.out.toStdString();
    EXPECT_EQ(rowsOf("Select nKeyId from AppointmentsGroup Where nKeyId > 99990"), 2);
    const Outcome mended = call({"check", "--fix"}, "y\n\n");
    EXPECT_EQ(mended.code, 3);
    EXPECT_TRUE(mended.out.contains("Mended."));
    EXPECT_TRUE(mended.out.contains("Rows that are not sound: 1"));
    EXPECT_EQ(rowsOf("Select nKeyId from AppointmentsGroup Where nKeyId > 99990"), 1);
    EXPECT_EQ(call({"check", "--fix"}, "yes\n").code, 0);
    run("Insert Into AppointmentsGroup (nKeyId, PatientId) Values (99998, '10001')");
    run("Insert Into AppointmentsGroup (nKeyId, PatientId) Values (99999, '10001')");
    EXPECT_EQ(call({"check", "--fix"}, "y\ny\n").code, 0) << "Answers that were typed ahead are not lost.";
}

TEST_F(AdminTool, AsksForWhatAFaultWants) {
    run("Update appointments Set clinicianid = 'GONE' Where nkeyid = (Select Min(nkeyid) from appointments)");
    const Outcome wrong = call({"check", "--fix"}, "NOBODY\n");
    EXPECT_EQ(wrong.code, 3);
    EXPECT_TRUE(wrong.out.contains("\"NOBODY\" cannot be that; nothing was changed."));
    EXPECT_EQ(call({"check", "--fix"}, "REED\n").code, 0);
}

TEST_F(AdminTool, TellsADamagedDatabaseAndAForeignOne) {
    PutFile(home() + QStringLiteral("/practice.db"), "This is a letter.");
    EXPECT_EQ(call({"check"}).code, 1);
    QFile::remove(home() + QStringLiteral("/practice.db"));
    db::Connection foreign;
    foreign.Create(PracticeConnectionText(home()));
    foreign.Execute("Create Table Recipes (name nvarchar(20))");
    foreign.Close();
    const Outcome outcome = call({"check"});
    EXPECT_EQ(outcome.code, 3);
    EXPECT_TRUE(outcome.out.contains("Missing in the schema: appointments\n")) << outcome.out.toStdString();
}

TEST_F(AdminTool, TellsOfACompanionDatabaseThatIsGoneForeignOrDamaged) {
    const QString file = home() + QStringLiteral("/companion.db");
    ASSERT_TRUE(QFile::rename(file, file + QStringLiteral(".kept")));
    const Outcome gone = call({"check"});
    EXPECT_EQ(gone.code, 3);
    EXPECT_TRUE(gone.out.contains(
        QStringLiteral("The companion database %1, which the settings name, is not there.").arg(file)))
        << gone.out.toStdString();

    db::Connection foreign;
    foreign.Create(QStringLiteral("Data Source=%1;Initial Catalog=companion;").arg(home()));
    foreign.Execute("Create Table Recipes (name nvarchar(20))");
    foreign.Close();
    const Outcome lacking = call({"check"});
    EXPECT_EQ(lacking.code, 3);
    EXPECT_TRUE(lacking.out.contains(": ClientTransactions\n")) << lacking.out.toStdString();
    EXPECT_FALSE(lacking.out.contains("upgrade")) << "The tables are another program's.";

    PutFile(file, "This is a letter.");
    const Outcome damaged = call({"check"});
    EXPECT_EQ(damaged.code, 1);
    EXPECT_TRUE(damaged.err.contains("companion")) << damaged.err.toStdString();
}

TEST_F(AdminTool, BacksUpAndRestoresAfterAQuestion) {
    const QString backups = folder.filePath(QStringLiteral("backups"));
    EXPECT_EQ(call({"backup", backups}).code, 0);
    const QString backup = QDir(backups).filePath(QDir(backups).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0));
    run("Delete from appointments");
    EXPECT_EQ(call({"restore", backup}, "n\n").code, 1);
    EXPECT_EQ(rowsOf("Select nkeyid from appointments"), 0);
    const Outcome outcome = call({"restore", backup}, "y\n");
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_GT(rowsOf("Select nkeyid from appointments"), 0);
}

TEST_F(AdminTool, SaysHowAServerIsBackedUp) {
    PutFile(home() + QStringLiteral("/solvane.ini"), "[SQLServer]\nDataSource=db.example\nInitialCatalog=practice\n");
    const Outcome outcome = call({"backup", folder.path()});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains("Backup Database"));
}

TEST_F(AdminTool, KeepsUsers) {
    EXPECT_EQ(
        call({"users", "add", "NOVAK", "--first-name", "Eva", "--last-name", "Novak", "--rights", "5"}, "let me in\n")
            .code,
        0);
    EXPECT_TRUE(call({"users"}).out.contains("NOVAK"));
    EXPECT_EQ(call({"users", "lock", "NOVAK"}).code, 0);
    EXPECT_TRUE(call({"users"}).out.contains("writes all, locked"));
    EXPECT_EQ(call({"users", "unlock", "NOVAK"}).code, 0);
    EXPECT_EQ(call({"users", "password", "NOVAK"}, "another\n").code, 0);
    const Outcome again = call({"users", "add", "NOVAK", "--last-name", "Novak"}, "x\n");
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(again.err, "svscheduler-admin: There is a user NOVAK already.\n");
}

TEST_F(AdminTool, TellsItsVersionsAndWhatItWants) {
    EXPECT_TRUE(call({"version"}).out.contains(QStringLiteral("Database: schema %1").arg(CurrentSchema)));
    EXPECT_EQ(call({"upgrade"}).code, 0);
    EXPECT_EQ(call({}).code, 2);
    EXPECT_EQ(call({"users", "promote", "REED"}).code, 2);
    EXPECT_EQ(call({"backup"}).code, 2);
    QDir(home()).removeRecursively();
    const Outcome outcome = call({"check"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains("There is no solvane.ini in"));
}
