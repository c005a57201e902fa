#pragma once

#include <QFont>

namespace printing {

/// Returns the font of this family and size in points for paper. Fonts as narrow as Arial stand behind the family, for
/// computers without it, because the widths of tables and columns rely on that.
[[nodiscard]] QFont PaperFont(const QString& family, double points);

}  // namespace printing
