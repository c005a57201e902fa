#pragma once

#include <QObject>
#include <thread>

#include "platform/mail/transmission.h"

namespace mail {

/// The sending of one message in a thread of its own. It begins with the construction. The signals come in the thread
/// of the object, so that a window stays alive meanwhile; Finished comes once, and last.
class Sending : public QObject {
    Q_OBJECT

  public:
    Sending(const Server& server, const Message& message, QObject* parent = nullptr);
    /// Cancels a sending that is not finished, and waits the moment that this takes.
    ~Sending() override;

    /// Asks the sending to end. Finished then tells whether the message went out all the same.
    void Cancel();

  Q_SIGNALS:
    void Progressed(mail::Step step);
    void Finished(const mail::Outcome& outcome);

  private:
    std::jthread thread_;
};

}  // namespace mail
