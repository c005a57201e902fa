#pragma once

#include <functional>

/// Sets the step that runs before every message box and every modal form (desktop.h), because what the program has read
/// may be old when the user has answered.
void BeforeQuestions(std::function<void()> step);
