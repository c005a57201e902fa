#pragma once

#include <functional>
#include <memory>

#include "platform/database/engine.h"

namespace db {

/// An engine that another thread may interrupt.
class CancellableEngine : public Engine {
  public:
    /// Asks the database to give up the statement that is running, from any thread; without one nothing happens.
    virtual void cancel() = 0;
};

/// An engine on a thread of its own, on which `make` makes it, so that the one who waits for it or for its login can be
/// shown that, and can give up.
///
/// A call returns when the engine has answered. A wait that has become long is shown by ShowWaiting(); once the user
/// gives up, the engine is asked to cancel, which throws GivenUp. An engine that does not even answer that is left to
/// itself: the link then counts as cut.
std::unique_ptr<Engine> InBackground(const std::function<std::unique_ptr<CancellableEngine>()>& make);

}  // namespace db
