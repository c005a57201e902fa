#include "platform/database/waiting.h"

#include <atomic>

namespace db {

namespace {

std::atomic<bool> gaveUp{false};

}  // namespace

std::function<std::unique_ptr<Waiting>()>& ShowWaiting() {
    static std::function<std::unique_ptr<Waiting>()> show;
    return show;
}

void AskAboutWaitsAgain() {
    gaveUp = false;
}

DatabaseError GivenUpError(bool mayBeSaved) {
    return {
        GivenUp,
        mayBeSaved
            ? QStringLiteral(
                  "The wait for the database was given up, and it did not answer. Look whether the change is there before you make it again.")
            : QStringLiteral("The wait for the database was given up. Nothing of it was saved.")};
}

bool IsUnanswered(const DatabaseError& error) {
    return error.number == GivenUp || IsLinkFailure(error);
}

bool ShownWait::goesOn(qint64 elapsed) {
    if (elapsed < UnnoticedWaitMilliseconds)
        return true;
    if (gaveUp)
        return false;
    if (!asked_ && ShowWaiting())
        shown_ = ShowWaiting()();
    asked_ = true;
    // A wait that nobody sees, on another thread, leaves alone what the user has said of those in the window.
    if (shown_)
        gaveUp = !shown_->GoesOn();
    return !gaveUp;
}

}  // namespace db
