#pragma once

#include <functional>
#include <memory>

#include "platform/database/engine.h"

namespace db {

/// An engine that another thread may interrupt.
class CancellableEngine : public Engine {
  public:
    /// Asks the database to give up the statement that is running. It may be called from any thread and does nothing
    /// when no statement is running.
    virtual void cancel() = 0;
};

/// Returns an engine that works on a thread of its own. `make` runs on that thread, so that the user can be shown a
/// long wait for a statement or for the login, and can give it up.
///
/// Each call returns when the engine has answered. A wait that has become long is shown by ShowWaiting(). Once the user
/// gives up, the engine is asked to cancel and the call throws GivenUp. An engine that does not answer that either is
/// abandoned with its thread; its link then counts as cut.
std::unique_ptr<Engine> InBackground(const std::function<std::unique_ptr<CancellableEngine>()>& make);

}  // namespace db
