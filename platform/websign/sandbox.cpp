#include "platform/websign/sandbox.h"

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <QtGlobal>

namespace {

/// Tries in a child what the browser does first of all: to enter a user namespace.
bool namespacesWork() {
    const pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0)
        _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
    int status = 0;
    pid_t ended = 0;
    while ((ended = waitpid(child, &status, 0)) < 0 && errno == EINTR) {
    }
    return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

QString WhyThereIsNoSandbox() {
    if (qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") == 1)
        return {};
    if (geteuid() == 0)
        return QStringLiteral("The web signature does not work for the system user root.");
    if (!namespacesWork())
        return QStringLiteral(
            "The web signature does not work on this computer, because its system does not allow user namespaces.");
    return {};
}
