#pragma once

#include <functional>

#include "platform/desktop/desktop.h"

/// Sets the step that runs before every message box and every modal form (desktop.h), because what the program has read
/// may be old when the user has answered.
void BeforeQuestions(std::function<void()> step);

/// Asks a question that Enter answers by No, as MsgBox with YesNoWarningBox does. The box also shows `facts` below the
/// question, by which the user can answer it.
Answer AskWithFacts(const QString& text, const QString& facts, const QString& title);
/// Returns the facts of the question that is being asked, or "".
[[nodiscard]] QString FactsOfQuestion();
