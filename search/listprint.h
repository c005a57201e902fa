#pragma once

#include <QString>

class ctList;

/// The rows of a list, or only the selected ones, as the body of a printed table (VSPrinter::AddTable).
[[nodiscard]] QString TableBody(const ctList& list, bool selectedOnly);
