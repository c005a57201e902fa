#pragma once

#include <functional>
#include <memory>

#include "platform/database/error.h"

namespace db {

/// A wait for the database that has become long enough to be noticed. The wait is over when the object is destroyed.
class Waiting {
  public:
    virtual ~Waiting() = default;
    Waiting() = default;
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    /// Called repeatedly while the wait lasts. Returns false once the user has given up.
    [[nodiscard]] virtual bool GoesOn() = 0;
};

/// The routine that makes the object that shows a long wait to the user, on the thread that waits. It may return null.
/// It is empty at first: a program without a window waits unseen until the time-out.
std::function<std::unique_ptr<Waiting>()>& ShowWaiting();

/// Ends the effect of the user giving up. After the user has given up, every further long wait in the same routine is
/// given up without a question, until this is called. It is called when the routine has returned.
void AskAboutWaitsAgain();

/// How long a statement waits before the wait is shown.
inline constexpr int UnnoticedWaitMilliseconds = 700;
/// How long a statement waits at most for the lock of another desk.
inline constexpr int LockTimeoutMilliseconds = 30'000;

/// The cursor service's number for a statement that the user has given up.
inline constexpr int GivenUp = 3712;
/// Returns the error GivenUp. `mayBeSaved` means that the statement may have been carried out all the same.
[[nodiscard]] DatabaseError GivenUpError(bool mayBeSaved);

/// Whether the database did not answer at all, whatever was asked of it: there is no connection, or the user gave up.
[[nodiscard]] bool IsUnanswered(const DatabaseError& error);

/// One wait from its start. It is shown once it has become long, for as long as the object lives.
class ShownWait {
  public:
    /// Called repeatedly, `elapsed` milliseconds after the start. Returns false once the user has given up.
    [[nodiscard]] bool goesOn(qint64 elapsed);

  private:
    bool asked_ = false;
    std::unique_ptr<Waiting> shown_;
};

}  // namespace db
