#pragma once

#include "platform/printing/printdocument.h"

namespace printing {

/// A table that is given as texts, whose rows end with ";" and whose cells are parted by "|", so that no cell can hold
/// either sign:
///
///     ParseTable("2880|1440;", "Description|Date;", "Jones, Mary|03/07/2026;Reed, Ann|03/08/2026;")
///
/// `format` is the columns' widths in twips, `header` their titles (empty for none), `body` the rows. A width that is
/// no number is 0.
[[nodiscard]] TableContent ParseTable(const QString& format, const QString& header, const QString& body);

}  // namespace printing
