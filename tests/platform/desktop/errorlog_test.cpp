// The log and the crash notes of a run, in a state folder of the test's own.

#include "platform/desktop/errorlog.h"

#include <gtest/gtest.h>

#include <csignal>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include "tests/support/files.h"

namespace {

QStringList& terminal() {
    static QStringList lines;
    return lines;
}

void toTerminal(QtMsgType, const QMessageLogContext&, const QString& message) {
    terminal() << message;
}

Q_LOGGING_CATEGORY(faults, "svscheduler.faults", QtWarningMsg)

class KeptLog : public testing::Test {
  protected:
    KeptLog() {
        qputenv("XDG_STATE_HOME", QFile::encodeName(state.path()));
        terminal().clear();
        before = qInstallMessageHandler(toTerminal);
        KeepErrorLog();
    }
    ~KeptLog() override {
        qInstallMessageHandler(before);
        QLoggingCategory::setFilterRules({});
        qunsetenv("XDG_STATE_HOME");
    }
    [[nodiscard]] static QString log() { return QString::fromUtf8(FileBytes(ErrorLogFile())); }

    QTemporaryDir state;
    QtMessageHandler before = nullptr;
};

}  // namespace

TEST_F(KeptLog, HoldsWarningsAndFaultsWithTheirMomentAndNoMore) {
    qWarning("The disk is almost full.");
    qDebug("nothing of interest");
    qCInfo(faults) << "207 unknown column";
    const QStringList lines = log().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2) << log().toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral(" warning default: The disk is almost full.")));
    EXPECT_TRUE(QDateTime::fromString(lines[0].section(QLatin1Char(' '), 0, 0), Qt::ISODate).isValid());
    EXPECT_TRUE(lines[1].contains(QStringLiteral(" fault svscheduler.faults: 207 unknown column")));
}

TEST_F(KeptLog, LeavesTheTerminalAsItWasButForFaultsOfTheDatabase) {
    qWarning("The disk is almost full.");
    qCInfo(faults) << "207 unknown column";
    EXPECT_EQ(terminal(), QStringList{QStringLiteral("The disk is almost full.")});
}

TEST_F(KeptLog, HoldsARepeatedLineOnce) {
    for (int i = 0; i < 50; ++i)
        qWarning("again");
    qWarning("and another");
    EXPECT_EQ(log().count(QLatin1Char('\n')), 2);
}

TEST_F(KeptLog, IsReadableByItsOwnerAlone) {
    qWarning("private");
    EXPECT_FALSE(QFile::permissions(ErrorLogFile()) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(KeptLog, IsRenamedWhenItHasGrownLarge) {
    qWarning("first");
    QFile file(ErrorLogFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Append));
    file.write(QByteArray(1'000'000, 'x'));
    file.close();
    PutFile(ErrorLogFile() + QStringLiteral(".1"), "older");
    qWarning("second");
    EXPECT_FALSE(log().contains(QStringLiteral("first")));
    EXPECT_TRUE(log().contains(QStringLiteral("second")));
    EXPECT_TRUE(FileBytes(ErrorLogFile() + QStringLiteral(".1")).contains("first"));
    EXPECT_EQ(FileBytes(ErrorLogFile() + QStringLiteral(".2")), "older");
}

TEST_F(KeptLog, ThatCannotBeWrittenStopsNothing) {
    QDir(StateFolder()).removeRecursively();
    PutFile(StateFolder(), "in the way");
    qWarning("nowhere to go");
    EXPECT_EQ(terminal(), QStringList{QStringLiteral("nowhere to go")});
}

TEST_F(KeptLog, IsJoinedByANoteAfterACrashWhichIsOfferedOnce) {
    EXPECT_EQ(TakeCrashNote(), "");
#ifndef __SANITIZE_ADDRESS__
    EXPECT_EXIT(
        {
            KeepCrashNotes();
            raise(SIGSEGV);
        },
        testing::KilledBySignal(SIGSEGV), "");
    const QString note = TakeCrashNote();
    EXPECT_TRUE(note.contains(QStringLiteral("SVScheduler " SVS_VERSION " was ended by SIGSEGV\n")))
        << note.toStdString();
    EXPECT_GT(note.count(QLatin1Char('\n')), 5) << "The routines that were at work.\n" << note.toStdString();
    EXPECT_EQ(TakeCrashNote(), "");
#endif
}
