#pragma once

#include <QString>

#include "platform/database/connection.h"

/// These routines return the statements that the two routines below read, or an empty text for an empty code.
[[nodiscard]] QString CallIconStatement(const QString& code);
[[nodiscard]] QString CallTextStatement(const QString& code);

/// Returns the picture number of a courtesy-call code by its category: 1 gives 7, 2 gives 4, 3 gives 5, 4 gives 6.
/// Returns -1, no picture, for an empty or unknown code, any other category and a failing read.
[[nodiscard]] int GetCallStatusIcon(db::Connection& main, const QString& code);

/// Returns the description of a courtesy-call code, or an empty text for an empty or unknown code and a failing read.
[[nodiscard]] QString GetCallStatusText(db::Connection& main, const QString& code);
