#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include "platform/desktop/desktop.h"
#include "tests/support/files.h"

namespace {

/// Programs that are started in a folder of their own.
class StartedPrograms : public testing::Test {
  protected:
    StartedPrograms() : before_(Desktop()) {
        Desktop().msgBox = [this](const QString& text, BoxStyle, const QString& title) {
            told << title + QStringLiteral(": ") + text;
            return Answer::Ok;
        };
    }
    ~StartedPrograms() override { Desktop() = before_; }

    /// Whether the program for tests has run; `got` then holds what it wrote.
    bool hasRun() {
        const QString file = folder.filePath("got.txt");
        if (!QTest::qWaitFor([&file] { return QFileInfo::exists(file); }, 10000))
            return false;
        got = QString::fromUtf8(FileBytes(file)).split(u'\n', Qt::SkipEmptyParts);
        return true;
    }
    QString file(const char* name, const QByteArray& bytes, QFile::Permissions permissions) {
        const QString path = folder.filePath(QLatin1String(name));
        PutFile(path, bytes);
        EXPECT_TRUE(QFile::setPermissions(path, permissions));
        return path;
    }
    static constexpr QFile::Permissions Executable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

    QTemporaryDir folder;
    QStringList got;
    QStringList told;

  private:
    DesktopSeams before_;
};

}  // namespace

TEST_F(StartedPrograms, GetTheirArgumentInOnePieceInTheirFolder) {
    const QString argument = QStringLiteral("17|O'BRIEN \"x\"|1|a  b $HOME `id` *;& \\ Å \U0001F600");

    EXPECT_TRUE(StartProgram(QStringLiteral(SVS_STARTED), argument, folder.path()));

    ASSERT_TRUE(hasRun());
    EXPECT_EQ(got.filter("argument "), QStringList{"argument " + argument});
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(StartedPrograms, GetNoArgumentWhereThereIsNone) {
    EXPECT_TRUE(StartProgram(QStringLiteral(SVS_STARTED), {}, folder.path()));

    ASSERT_TRUE(hasRun());
    EXPECT_TRUE(got.filter("argument ").isEmpty());
}

TEST_F(StartedPrograms, AreStartedByAPathWithSpacesAndLettersOfAnyScript) {
    const QString program = folder.filePath(QStringLiteral("Nötes program 'x'"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SVS_STARTED), program));

    EXPECT_TRUE(StartProgram(program, QStringLiteral("1|REED|2|7"), folder.path()));

    EXPECT_TRUE(hasRun());
}

TEST_F(StartedPrograms, HoldNothingThatThisProgramHasOpen) {
    const int openWithoutCare = ::open("/dev/null", O_RDONLY);
    ::signal(SIGPIPE, SIG_IGN);

    EXPECT_TRUE(StartProgram(QStringLiteral(SVS_STARTED), {}, folder.path()));

    ASSERT_TRUE(hasRun());
    EXPECT_TRUE(got.contains("files 0")) << got.join(u'\n').toStdString();
    EXPECT_TRUE(got.contains("output /dev/null")) << got.join(u'\n').toStdString();
    EXPECT_TRUE(got.contains("pipe usual")) << got.join(u'\n').toStdString();
    EXPECT_FALSE(got.contains(QStringLiteral("session %1").arg(::getsid(0)))) << "Closing our terminal would end it.";
    ::signal(SIGPIPE, SIG_DFL);
    ::close(openWithoutCare);
}

TEST_F(StartedPrograms, LeaveNothingBehindWhenTheyEnd) {
    EXPECT_TRUE(StartProgram(QStringLiteral(SVS_STARTED), {}, folder.path()));
    EXPECT_FALSE(StartProgram(QStringLiteral("/nowhere/solvaned.exe"), {}, {}));
    ASSERT_TRUE(hasRun());

    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD) << "No process of ours is left, running or dead.";
}

TEST_F(StartedPrograms, AreNotWaitedFor) {
    const QString program = file("sleeps", "#!/bin/sh\nsleep 30\n", Executable);
    QElapsedTimer clock;
    clock.start();

    EXPECT_TRUE(StartProgram(program, {}, folder.path()));

    EXPECT_LT(clock.elapsed(), 15000);
}

TEST_F(StartedPrograms, OneThatIsMissingIsTold) {
    EXPECT_FALSE(StartProgram(QStringLiteral("/nowhere/solvaned.exe"), QStringLiteral("1|REED|1|7"), {}));

    EXPECT_EQ(told, QStringList{"Error: Error 2 " + qt_error_string(ENOENT)});
}

TEST_F(StartedPrograms, OneThatMayNotBeExecutedIsTold) {
    EXPECT_FALSE(StartProgram(file("solvaned.exe", "#!/bin/sh\n", QFile::ReadOwner), {}, {}));
    EXPECT_FALSE(StartProgram(folder.path(), {}, {})) << "A folder is no program.";

    EXPECT_EQ(told, (QStringList{"Error: Error 13 " + qt_error_string(EACCES),
                                 "Error: Error 13 " + qt_error_string(EACCES)}));
}

TEST_F(StartedPrograms, OneThatIsNoProgramIsToldAndNotReadByAShell) {
    const QString made = folder.filePath("made");

    EXPECT_FALSE(StartProgram(file("solvaned.exe", "touch '" + made.toUtf8() + "'\n", Executable), {}, {}));

    EXPECT_EQ(told, QStringList{"Error: Error 8 " + qt_error_string(ENOEXEC)});
    EXPECT_FALSE(QFileInfo::exists(made));
}

TEST_F(StartedPrograms, AreNotLookedForInOtherPlaces) {
    EXPECT_FALSE(StartProgram(QStringLiteral("true"), {}, folder.path()));

    EXPECT_EQ(told, QStringList{"Error: Error 2 " + qt_error_string(ENOENT)});
}

TEST_F(StartedPrograms, AFolderThatIsMissingIsTold) {
    EXPECT_FALSE(StartProgram(QStringLiteral(SVS_STARTED), {}, QStringLiteral("/nowhere")));

    EXPECT_EQ(told, QStringList{"Error: Error 2 " + qt_error_string(ENOENT)});
}
