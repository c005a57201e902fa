#pragma once

#include <functional>

/// Calls `step` in the window's own thread when the routine that runs now has returned to its events: not while a box
/// or a dialog that it opened runs events of its own, nor while it waits for the database.
void AfterRoutine(std::function<void()> step);
