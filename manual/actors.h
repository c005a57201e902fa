#pragma once

#include <functional>
#include <vector>

class QDialog;

/// Does one thing to a form, as a user would. What is not there is told on standard error.
using Actor = std::function<void(QDialog&)>;

/// Each names the control of the form by its object name.
[[nodiscard]] Actor click(const char* name);
[[nodiscard]] Actor type(const char* name, const char* text);
[[nodiscard]] Actor choose(const char* name, int index);
/// Selects a row of a list, from 0.
[[nodiscard]] Actor mark(const char* name, int row);
[[nodiscard]] Actor inTurn(std::vector<Actor> actors);
