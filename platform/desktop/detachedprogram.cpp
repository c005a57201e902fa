#include "platform/desktop/detachedprogram.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <QByteArray>
#include <QFile>

namespace {

constexpr int FirstOwnFile = 3;

/// What the new process needs. It is complete before the fork, since a copy of a program with threads may not even
/// allocate memory.
struct Launch {
    const char* path;
    const char* argument;  ///< Null for none.
    const char* folder;    ///< Null to stay in this program's.
    int complaints;        ///< The pipe that takes the number of an error. It is closed when the program runs.
};

[[noreturn]] void giveUp(const Launch& launch) {
    const int error = errno;
    // Who waits at the other end takes a pipe without a number for success, and can be told nothing else.
    [[maybe_unused]] const ssize_t told = ::write(launch.complaints, &error, sizeof error);
    ::_exit(EXIT_FAILURE);
}

/// Signals reach the program as any other that is started anew, whatever this one does about them.
void resetSignals() {
    for (int number = 1; number < NSIG; ++number)
        ::signal(number, SIG_DFL);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// Turns the three standard files to nowhere and has the others closed when the program begins.
bool leaveFilesBehind() {
    const int nowhere = ::open("/dev/null", O_RDWR);
    if (nowhere < 0)
        return false;
    for (int standard = 0; standard < FirstOwnFile; ++standard)
        if (::dup2(nowhere, standard) < 0)
            return false;
    // A system that does not know the call leaves open only what was opened without care.
    ::close_range(FirstOwnFile, UINT_MAX, CLOSE_RANGE_CLOEXEC);
    return true;
}

[[noreturn]] void becomeProgram(const Launch& launch) {
    resetSignals();
    if (!leaveFilesBehind() || (launch.folder != nullptr && ::chdir(launch.folder) != 0))
        giveUp(launch);
    std::array<char*, 3> words{const_cast<char*>(launch.path), const_cast<char*>(launch.argument), nullptr};
    ::execv(launch.path, words.data());
    giveUp(launch);
}

/// The process in between ends at once, so that the program belongs to the system and not to us: it has a session of
/// its own, and there is nobody who would have to learn of its end.
[[noreturn]] void letGo(const Launch& launch) {
    ::setsid();
    const pid_t program = ::fork();
    if (program == 0)
        becomeProgram(launch);
    if (program < 0)
        giveUp(launch);
    ::_exit(EXIT_SUCCESS);
}

void awaitEnd(pid_t child) {
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// The number that the new process told, or 0 when its end of the pipe was closed by the program that runs now.
int complaintFrom(int pipe) {
    int error = 0;
    ssize_t count = 0;
    do
        count = ::read(pipe, &error, sizeof error);
    while (count < 0 && errno == EINTR);
    return count == sizeof error ? error : 0;
}

}  // namespace

int StartDetached(const QString& path, const QString& argument, const QString& folder) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return errno;
    const QByteArray pathBytes = QFile::encodeName(path);
    const QByteArray argumentBytes = argument.toUtf8();
    const QByteArray folderBytes = QFile::encodeName(folder);
    const Launch launch{pathBytes.constData(), argument.isEmpty() ? nullptr : argumentBytes.constData(),
                        folder.isEmpty() ? nullptr : folderBytes.constData(), pipe[1]};
    const pid_t between = ::fork();
    const int forkError = errno;
    if (between == 0)
        letGo(launch);
    ::close(pipe[1]);
    if (between > 0)
        awaitEnd(between);
    const int error = between < 0 ? forkError : complaintFrom(pipe[0]);
    ::close(pipe[0]);
    return error;
}
