#pragma once

#include "platform/printing/printdocument.h"

namespace printing {

/// Reads a table from texts. Rows end with ";" and cells are separated by "|", so that no cell can contain either sign:
///
///     ParseTable("2880|1440;", "Description|Date;", "Jones, Mary|03/07/2026;Reed, Ann|03/08/2026;")
///
/// `format` is the columns' widths in twips, `header` their titles (empty for none), and `body` the rows. A width that
/// is no number becomes 0.
[[nodiscard]] TableContent ParseTable(const QString& format, const QString& header, const QString& body);

}  // namespace printing
