#include "platform/signature/signaturepainting.h"

#include <algorithm>
#include <QPainterPath>

namespace {

constexpr double EvenWidth = 2.25 * UnitsPerPixel;
constexpr double LeastShare = 0.4;  // The part of EvenWidth that a line without pressure has.

/// The width of the line, in units, at this pressure.
double widthAt(int pressure, double least) {
    const double share = LeastShare + (1 - LeastShare) * pressure / EvenPressure;
    return std::max(EvenWidth * share, least);
}

QPointF placeOf(const InkPoint& point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

QPointF between(const InkPoint& one, const InkPoint& other) {
    return (placeOf(one) + placeOf(other)) / 2;
}

/// One arc of the line: from the middle before a point to the middle behind it, bent towards the point. The arcs of a
/// stroke meet without a corner.
struct Arc {
    QPointF from, bend, to;
    int pressure;
};

std::vector<Arc> arcsOf(const Stroke& stroke) {
    std::vector<Arc> arcs;
    const std::size_t last = stroke.size() - 1;
    for (std::size_t i = 0; i <= last; ++i)
        arcs.push_back({i == 0 ? placeOf(stroke[i]) : between(stroke[i - 1], stroke[i]), placeOf(stroke[i]),
                        i == last ? placeOf(stroke[i]) : between(stroke[i], stroke[i + 1]), stroke[i].pressure});
    return arcs;
}

/// Paints the whole stroke, a run of arcs of equal pressure at a time, so that an even line is a single path.
void paint(QPainter& painter, const Stroke& stroke, QPen pen, double least) {
    const std::vector<Arc> arcs = arcsOf(stroke);
    for (std::size_t i = 0; i < arcs.size();) {
        const int pressure = arcs[i].pressure;
        QPainterPath path(arcs[i].from);
        for (; i < arcs.size() && arcs[i].pressure == pressure; ++i)
            path.quadTo(arcs[i].bend, arcs[i].to);
        pen.setWidthF(widthAt(pressure, least));
        painter.setPen(pen);
        painter.drawPath(path);
    }
}

void paintDot(QPainter& painter, const InkPoint& point, QPen pen, double least) {
    pen.setWidthF(widthAt(point.pressure, least));
    painter.setPen(pen);
    painter.drawPoint(placeOf(point));
}

bool isDot(const Stroke& stroke) {
    return std::all_of(stroke.begin(), stroke.end(), [&](const InkPoint& point) {
        return point.x == stroke.front().x && point.y == stroke.front().y;
    });
}

}  // namespace

void PaintSignature(QPainter& painter, const Signature& signature, const QRectF& area, const QColor& ink) {
    if (signature.strokes.empty() || area.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const QTransform toPixels = UnitsToPixels(signature.extent, area);
    painter.setTransform(toPixels, true);
    const QPen pen(ink, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const double onePixel = 1 / toPixels.m11();
    for (const Stroke& stroke : signature.strokes) {
        if (isDot(stroke))
            paintDot(painter, stroke.back(), pen, onePixel);
        else
            paint(painter, stroke, pen, onePixel);
    }
    painter.restore();
}
