#pragma once

#include <QRectF>

class QColor;
class QPainter;

/// Hatches the rectangle by slanting lines, `step` apart, that fall or rise from left to right. The lines start from
/// the rectangle's corner, so that they stay in place when it scrolls. Only lines that cross `clip` are drawn. Lines
/// are drawn instead of a brush pattern, which would be fine dust on paper and on fine screens.
void PaintHatch(QPainter& painter, const QRectF& rect, const QRectF& clip, bool rising, const QColor& color,
                double step, double width);
