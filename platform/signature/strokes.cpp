#include "platform/signature/strokes.h"

#include <algorithm>

namespace {

bool isSound(const InkPoint& point, QSize extent) {
    return point.x >= 0 && point.x <= extent.width() && point.y >= 0 && point.y <= extent.height() &&
           point.pressure >= 0 && point.pressure <= FullPressure;
}

bool isExtent(int units) {
    return units >= 1 && units <= LargestExtent;
}

}  // namespace

int Signature::PointCount() const {
    std::size_t points = 0;
    for (const Stroke& stroke : strokes)
        points += stroke.size();
    return static_cast<int>(points);
}

bool IsSound(const Signature& signature) {
    if (!isExtent(signature.extent.width()) || !isExtent(signature.extent.height()) ||
        signature.PointCount() > MostPoints)
        return false;
    return std::all_of(signature.strokes.begin(), signature.strokes.end(), [&](const Stroke& stroke) {
        return !stroke.empty() && std::all_of(stroke.begin(), stroke.end(),
                                              [&](const InkPoint& point) { return isSound(point, signature.extent); });
    });
}

QTransform UnitsToPixels(QSize extent, const QRectF& area) {
    const QSizeF shown = QSizeF(extent).scaled(area.size(), Qt::KeepAspectRatio);
    const double scale = shown.width() / extent.width();
    QTransform transform;
    transform.translate(area.left() + (area.width() - shown.width()) / 2,
                        area.top() + (area.height() - shown.height()) / 2);
    transform.scale(scale, scale);
    return transform;
}
