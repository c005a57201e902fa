#pragma once

#include <functional>

/// What is to be done before every box and every modal form (desktop.h): what is known then may be old when the user
/// has answered.
void BeforeQuestions(std::function<void()> step);
