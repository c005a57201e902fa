#include "platform/printing/printdocument.h"

namespace printing {

QSizeF PageSetup::sizeTwips() const {
    const QSizeF upright = paper.size(QPageSize::Point) * TwipsPerPoint;
    return orientation == QPageLayout::Landscape ? upright.transposed() : upright;
}

}  // namespace printing
