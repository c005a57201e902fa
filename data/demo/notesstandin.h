#pragma once

#include <QString>

namespace demo {

/// Returns the path of the small program that stands for a practice's notes program, or "" where there is none.
[[nodiscard]] QString NotesStandIn();

}  // namespace demo
