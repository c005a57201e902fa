#include "platform/desktop/errorlog.h"

#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>
#include <ctime>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QMutex>
#include <QStandardPaths>

#include "platform/files/privatefile.h"

namespace {

constexpr qint64 LargestLog = 1'000'000;
constexpr qsizetype LongestLine = 2'000;

/// The address sanitizer tells more of a crash itself.
#ifdef __SANITIZE_ADDRESS__
constexpr bool IsSanitized = true;
#else
constexpr bool IsSanitized = false;
#endif

QMutex& logLock() {
    static QMutex lock;
    return lock;
}

QtMessageHandler& handlerBefore() {
    static QtMessageHandler handler = nullptr;
    return handler;
}

const char* kindName(QtMsgType kind) {
    switch (kind) {
        case QtDebugMsg:
        case QtInfoMsg:
            return "fault";
        case QtWarningMsg:
            return "warning";
        default:
            return "error";
    }
}

void rotate(const QString& file) {
    if (QFileInfo(file).size() < LargestLog)
        return;
    QFile::remove(file + QStringLiteral(".2"));
    QFile::rename(file + QStringLiteral(".1"), file + QStringLiteral(".2"));
    QFile::rename(file, file + QStringLiteral(".1"));
}

void writeLine(QtMsgType kind, const QString& category, const QString& message) {
    const QMutexLocker locked(&logLock());
    static QString last;
    const QString text = QStringLiteral("%1 %2: %3")
                             .arg(QLatin1String(kindName(kind)), category, message.simplified().left(LongestLine));
    if (text == last)
        return;
    last = text;
    const QString path = ErrorLogFile();
    rotate(path);
    QFile file(path);
    if (files::MakePrivate(path) && file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write(QDateTime::currentDateTime().toString(Qt::ISODate).toUtf8() + ' ' + text.toUtf8() + '\n');
}

void handle(QtMsgType kind, const QMessageLogContext& context, const QString& message) {
    const QString category = QString::fromLatin1(context.category);
    const bool isFault = category == QLatin1String("svscheduler.faults");
    if (isFault || kind == QtWarningMsg || kind == QtCriticalMsg || kind == QtFatalMsg)
        writeLine(kind, category, message);
    // What goes wrong in a database is told in the window; on the terminal it would only be noise.
    if (!isFault)
        handlerBefore()(kind, context, message);
}

/// The note of a crash, which is written without the help of anything that may be broken by then.
constexpr std::size_t LongestPath = 4096;
std::array<char, LongestPath>& crashFile() {
    static std::array<char, LongestPath> path{};
    return path;
}

void writeText(int file, const char* text) {
    if (write(file, text, std::strlen(text)) < 0)
        return;
}

const char* signalName(int number) {
    switch (number) {
        case SIGSEGV:
            return "SIGSEGV";
        case SIGABRT:
            return "SIGABRT";
        case SIGFPE:
            return "SIGFPE";
        case SIGILL:
            return "SIGILL";
        case SIGBUS:
            return "SIGBUS";
        default:
            return "a signal";
    }
}

void noteCrash(int number) {
    constexpr int mostRoutines = 64;
    constexpr mode_t ownerOnly = 0600;
    const int file = open(crashFile().data(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, ownerOnly);
    if (file >= 0) {
        writeText(file, "SVScheduler " SVS_VERSION " was ended by ");
        writeText(file, signalName(number));
        writeText(file, "\n\n");
        std::array<void*, mostRoutines> routines{};
        backtrace_symbols_fd(routines.data(), backtrace(routines.data(), mostRoutines), file);
        close(file);
    }
    std::signal(number, SIG_DFL);
    raise(number);
}

/// The note is written on a stack of its own, since the program's may be what ran out.
void catchSignals() {
    static std::array<char, std::size_t{64} * 1024> spare{};
    stack_t stack{};
    stack.ss_sp = spare.data();
    stack.ss_size = spare.size();
    sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_handler = noteCrash;
    action.sa_flags = SA_ONSTACK;
    for (const int number : {SIGSEGV, SIGABRT, SIGFPE, SIGILL, SIGBUS})
        sigaction(number, &action, nullptr);
}

QString newNote() {
    return StateFolder() + QStringLiteral("/crash.txt");
}

}  // namespace

QString StateFolder() {
    const QString home = qEnvironmentVariable("XDG_STATE_HOME");
    return (home.isEmpty() ? QDir::homePath() + QStringLiteral("/.local/state") : home) +
           QStringLiteral("/svscheduler");
}

QString ErrorLogFile() {
    return StateFolder() + QStringLiteral("/errors.log");
}

void KeepErrorLog() {
    files::MakePrivateFolder(StateFolder());
    QLoggingCategory::setFilterRules(QStringLiteral("svscheduler.faults.info=true"));
    const QtMessageHandler before = qInstallMessageHandler(handle);
    if (before != handle)
        handlerBefore() = before;
}

void KeepCrashNotes() {
    files::MakePrivateFolder(StateFolder());
    const QByteArray path = QFile::encodeName(newNote());
    if (path.size() >= static_cast<qsizetype>(LongestPath))
        return;
    std::memcpy(crashFile().data(), path.constData(), static_cast<std::size_t>(path.size()) + 1);
    // The first call loads a library, which cannot be done any more in a crash.
    std::array<void*, 1> routine{};
    backtrace(routine.data(), 1);
    if constexpr (!IsSanitized)
        catchSignals();
}

QString TakeCrashNote() {
    QFile note(newNote());
    if (!note.open(QIODevice::ReadOnly))
        return {};
    const QString when = QFileInfo(note).lastModified().toString(Qt::ISODate);
    const QString text = QString::fromUtf8(note.readAll());
    note.close();
    // It stays for whoever is asked to look at it, under a name by which it is not offered again.
    const QString kept = StateFolder() + QStringLiteral("/crash-before.txt");
    QFile::remove(kept);
    note.rename(kept);
    return when + QLatin1Char('\n') + text;
}
