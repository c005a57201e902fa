#include <gtest/gtest.h>

#include <QDate>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "tests/support/files.h"

namespace {

constexpr int StartMilliseconds = 120000;
constexpr int LastLines = 40;

QString setting(const char* name, const char* usual) {
    return qEnvironmentVariableIsEmpty(name) ? QString::fromLatin1(usual) : qEnvironmentVariable(name);
}

/// A copy of the program on a practice of its own, with a walker inside (walk::Walker).
///
/// SVS_WALK_TOOL runs it under a tool, as scripts/walk does with valgrind; SVS_WALK_DATA names the folder of another
/// practice, which the walk changes as it likes.
class Walk : public testing::Test {
  protected:
    Walk() {
        if (!qEnvironmentVariableIsEmpty("SVS_WALK_DATA"))
            return;
        const QStringList practice{QStringLiteral("--data"),         folder.path(),
                                   QStringLiteral("--date"),         QStringLiteral("2026-03-11"),
                                   QStringLiteral("--appointments"), QStringLiteral("2000")};
        EXPECT_EQ(QProcess::execute(QStringLiteral(SVS_DEMO), practice), 0);
    }

    [[nodiscard]] QProcessEnvironment environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR", "HOME"})
            environment.insert(QLatin1String(name), folder.path());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("walker"));
        environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(SVS_PLUGINS));
        // Paper goes nowhere, and what was freed is no longer what it was.
        environment.insert(QStringLiteral("CUPS_SERVER"), QStringLiteral("/nowhere"));
        environment.insert(QStringLiteral("MALLOC_PERTURB_"), QStringLiteral("165"));
        return environment;
    }

    /// Walks and returns the last lines that the walker told; fails unless it came to its end.
    void walk(const char* seed, const char* seconds, const char* rounds, const char* home = "0",
              const QStringList& opening = {QStringLiteral("1|DESK")}) {
        QProcessEnvironment told = environment();
        told.insert(QStringLiteral("SVS_WALK_SEED"), setting("SVS_WALK_SEED", seed));
        told.insert(QStringLiteral("SVS_WALK_SECONDS"), setting("SVS_WALK_SECONDS", seconds));
        told.insert(QStringLiteral("SVS_WALK_ROUNDS"), QString::fromLatin1(rounds));
        told.insert(QStringLiteral("SVS_WALK_HOME"), QString::fromLatin1(home));
        const QString again =
            QStringLiteral("SVS_WALK_SEED=%1 SVS_WALK_SECONDS=%2")
                .arg(told.value(QStringLiteral("SVS_WALK_SEED")), told.value(QStringLiteral("SVS_WALK_SECONDS")));
        std::printf("%s\n", qUtf8Printable(again));

        QProcess program;
        program.setProcessEnvironment(told);
        program.setWorkingDirectory(folder.path());
        program.setProcessChannelMode(QProcess::MergedChannels);
        QStringList words = QProcess::splitCommand(setting("SVS_WALK_TOOL", ""));
        words << QStringLiteral(SVS_PROGRAM) << QStringLiteral("--data")
              << setting("SVS_WALK_DATA", qPrintable(folder.path())) << QStringLiteral("--date")
              << QStringLiteral("2026-03-11") << QStringLiteral("--size") << QStringLiteral("1280x800") << opening;
        const QString first = words.takeFirst();
        program.start(first, words);
        const int patience = StartMilliseconds + 2000 * told.value(QStringLiteral("SVS_WALK_SECONDS")).toInt();
        EXPECT_TRUE(program.waitForFinished(patience)) << "The program hangs.";
        program.kill();
        program.waitForFinished();
        lines = QString::fromUtf8(program.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        const bool ended = program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0 &&
                           !lines.filter(QRegularExpression(QStringLiteral("^walk: done"))).isEmpty();
        EXPECT_TRUE(ended)
            << "Exit code " << program.exitCode() << ", again by " << again.toStdString() << "\n"
            << lines.mid(std::max<qsizetype>(0, lines.size() - LastLines)).join(QLatin1Char('\n')).toStdString();
    }

    [[nodiscard]] bool hasSeen(const char* place) const {
        return !lines.filter(QStringLiteral("walk: seen %1:").arg(QLatin1String(place))).isEmpty();
    }

    QTemporaryDir folder;
    QStringList lines;
};

}  // namespace

TEST_F(Walk, ThroughEverythingThatCanBeOpened) {
    walk("1", "60", "2");
    if (lines.filter(QStringLiteral("walk: everything done")).isEmpty())
        return;  // It had no time for more.
    for (const char* place : {"mdisched/frmsched",
                              "mdisched/frmweekv",
                              "mdisched/frmmtv",
                              "mdisched/frmall",
                              "mdisched/frmrooms",
                              "frmnore",
                              "frmgrptx",
                              "frmactsc",
                              "frmRecurAppt",
                              "frmmove",
                              "frmfinda",
                              "frmsavail",
                              "frmfirstatype",
                              "frmwait",
                              "frmwaitentry",
                              "frmRoomAppt",
                              "frmfroom",
                              "frmRoomView",
                              "frmnewpat",
                              "frmaopts",
                              "frmpopts",
                              "frmsviews",
                              "frmlocs",
                              "frmapttypes",
                              "frmholidays",
                              "frmcleg",
                              "frmabook",
                              "frmcontact",
                              "frmpreview",
                              "frmschrpt",
                              "w_Item",
                              "frmsltpv",
                              "frmCheckedIn",
                              "menu popup/frmsched",
                              "menu popup/frmrooms",
                              "menu popupNew/frmall"})
        EXPECT_TRUE(hasSeen(place)) << place << " was never opened.\n"
                                    << lines.filter(QStringLiteral("walk: seen")).join(u'\n').toStdString();
}

TEST_F(Walk, ThroughTheFernhallCalendar) {
    walk("3", "90", "2", "6", {QStringLiteral("--view"), QStringLiteral("companion"), QStringLiteral("1|REED")});
    EXPECT_TRUE(hasSeen("mdisched/frmFHAppts"));
    if (!qEnvironmentVariableIsEmpty("SVS_WALK_TOOL"))
        return;  // A tool makes it so slow that it may not come far.
    for (const char* place : {"frmFHClients", "frmFHAppt", "frmFHEvents"})
        EXPECT_TRUE(hasSeen(place)) << place << " was never opened.\n"
                                    << lines.filter(QStringLiteral("walk: seen")).join(u'\n').toStdString();
}

TEST_F(Walk, AtRandom) {
    walk("7", "30", "0");
}
