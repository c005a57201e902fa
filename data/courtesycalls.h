#pragma once

#include <QString>

#include "platform/database/connection.h"

/// The statements that the two below read; for an empty code none.
[[nodiscard]] QString CallIconStatement(const QString& code);
[[nodiscard]] QString CallTextStatement(const QString& code);

/// The picture number of a courtesy-call code by its category: 1 gives 7, 2 gives 4, 3 gives 5, 4 gives 6. -1, no
/// picture, for an empty or unknown code, any other category and a failing read.
[[nodiscard]] int GetCallStatusIcon(db::Connection& main, const QString& code);

/// The description of a courtesy-call code; empty for an empty or unknown code and a failing read.
[[nodiscard]] QString GetCallStatusText(db::Connection& main, const QString& code);
