#pragma once

#include <functional>

/// Calls `step` in the window's own thread when the routine that is running now has returned to the event loop. It is
/// not called while a box or a dialog of that routine runs events of its own, nor while the routine waits for the
/// database.
void AfterRoutine(std::function<void()> step);
