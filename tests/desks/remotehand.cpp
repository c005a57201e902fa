#include "tests/desks/remotehand.h"

#include <unistd.h>
#include <cstdio>
#include <QTimer>

#include "tests/desks/widgethand.h"

namespace {

constexpr int PollMilliseconds = 10;
constexpr int MaxPolls = 4000;
/// Signals that the controls put off until their event has ended come within the first rounds.
constexpr int IdleRounds = 4;

/// Whether the program is in the middle of a statement that takes its time: whoever sits there waits for it, too.
bool isWaiting() {
    return WindowInFront() == QLatin1String("waiting");
}

/// Whether the window is in front that "await" names, or the widget in it is shown that "awaitShown" names.
bool hasCome(const QStringList& words) {
    if (words.first() == QLatin1String("await"))
        return WindowInFront() == words.at(1);
    return ObeyInWindow({QStringLiteral("shows"), words.at(1)}) == QLatin1String("yes");
}

}  // namespace

QObject* RemoteHandPlugin::create(const QString& name, const QString& specification) {
    Q_UNUSED(specification)
    return name == QLatin1String("remotehand") ? new RemoteHand : nullptr;
}

RemoteHand::RemoteHand() : input_(STDIN_FILENO, QSocketNotifier::Read) {
    KeepFromDesktop();
    connect(&input_, &QSocketNotifier::activated, this, &RemoteHand::readInput);
}

void RemoteHand::readInput() {
    char buffer[4096];
    const ssize_t count = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (count <= 0) {
        ::_exit(0);  // Whoever held the other end is gone.
    }
    received_.append(buffer, count);
    obeyNext();
}

void RemoteHand::obeyNext() {
    const qsizetype end = received_.indexOf('\n');
    if (busy_ || end < 0)
        return;
    const QStringList words = QString::fromUtf8(received_.left(end)).split(QLatin1Char('\t'));
    received_.remove(0, end + 1);
    busy_ = true;
    obey(words);
}

void RemoteHand::obey(const QStringList& words) {
    if (words.first().startsWith(QLatin1String("await"))) {
        await(words, MaxPolls);
        return;
    }
    if (isWaiting()) {
        QTimer::singleShot(PollMilliseconds, this, [this, words] { obey(words); });
        return;
    }
    try {
        const QString told = ObeyInWindow(words);
        answerWhenIdle(told.isEmpty() ? QStringLiteral("ok") : QStringLiteral("ok ") + told, IdleRounds);
    } catch (const CannotObey& reason) {
        answer(QStringLiteral("no %1: %2").arg(words.join(QLatin1Char(' ')), QString::fromUtf8(reason.what())));
    }
}

// Polls within whatever event loop runs: nothing in Qt tells that a dialog has opened.
void RemoteHand::await(const QStringList& words, int triesLeft) {
    if (hasCome(words)) {
        answerWhenIdle(QStringLiteral("ok"), IdleRounds);
        return;
    }
    if (triesLeft == 0) {
        answer(QStringLiteral("no %1 came; in front is %2").arg(words.at(1), WindowInFront()));
        return;
    }
    QTimer::singleShot(PollMilliseconds, this, [this, words, triesLeft] { await(words, triesLeft - 1); });
}

void RemoteHand::answerWhenIdle(const QString& text, int rounds) {
    if (isWaiting()) {
        QTimer::singleShot(PollMilliseconds, this, [this, text] { answerWhenIdle(text, IdleRounds); });
        return;
    }
    if (rounds == 0) {
        answer(text);
        return;
    }
    QTimer::singleShot(0, this, [this, text, rounds] { answerWhenIdle(text, rounds - 1); });
}

void RemoteHand::answer(const QString& text) {
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1Char('~'));
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
    busy_ = false;
    obeyNext();
}
