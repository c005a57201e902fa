#pragma once

#include <functional>
#include <memory>

#include "platform/database/error.h"

namespace db {

/// A wait for the database that has become long enough to be noticed. It is over when the object goes.
class Waiting {
  public:
    virtual ~Waiting() = default;
    Waiting() = default;
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    /// Called over and over while the wait lasts; false once the user has given up.
    [[nodiscard]] virtual bool GoesOn() = 0;
};

/// Makes what shows such a wait to the user, on the thread that waits; it may make nothing. Empty at first: a program
/// without a window waits unseen until the time-out.
std::function<std::unique_ptr<Waiting>()>& ShowWaiting();

/// After the user gave up, what waits in the rest of the same routine is given up unasked, until this is called: when
/// the routine has returned.
void AskAboutWaitsAgain();

/// How long a statement waits before that is shown.
inline constexpr int UnnoticedWaitMilliseconds = 700;
/// How long one waits for the lock of another desk at the most.
inline constexpr int LockTimeoutMilliseconds = 30'000;

/// The cursor service's number for what the user has given up.
inline constexpr int GivenUp = 3712;
/// `mayBeSaved`: nobody can tell whether the statement was carried out all the same.
[[nodiscard]] DatabaseError GivenUpError(bool mayBeSaved);

/// Whether the database did not answer at all, whatever it was asked: there is no connection, or the user gave up.
[[nodiscard]] bool IsUnanswered(const DatabaseError& error);

/// One wait from its start: shown when it has become long, for as long as the object lives.
class ShownWait {
  public:
    /// Called over and over, `elapsed` milliseconds after the start; false once the user has given up.
    [[nodiscard]] bool goesOn(qint64 elapsed);

  private:
    bool asked_ = false;
    std::unique_ptr<Waiting> shown_;
};

}  // namespace db
