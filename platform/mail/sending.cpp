#include "platform/mail/sending.h"

#include <csignal>
#include <QMetaObject>

namespace mail {

namespace {

/// A connection that the server has closed must not end the program when the thread writes to it.
void blockPipeSignal() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

}  // namespace

Sending::Sending(const Server& server, const Message& message, QObject* parent) : QObject(parent) {
    thread_ = std::jthread([this, server, message](const std::stop_token& stop) {
        blockPipeSignal();
        const auto progress = [this](Step step) {
            QMetaObject::invokeMethod(
                this, [this, step] { Q_EMIT Progressed(step); }, Qt::QueuedConnection);
        };
        const Outcome outcome = Transmit(server, message, progress, stop);
        QMetaObject::invokeMethod(
            this, [this, outcome] { Q_EMIT Finished(outcome); }, Qt::QueuedConnection);
    });
}

Sending::~Sending() = default;

void Sending::Cancel() {
    thread_.request_stop();
}

}  // namespace mail
