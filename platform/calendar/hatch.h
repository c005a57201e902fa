#pragma once

#include <QRectF>

class QColor;
class QPainter;

/// Hatches the rectangle by slanting lines, `step` apart, falling from the left or rising. The lines hang on the
/// rectangle's corner, so they stay in place when it scrolls; only those that cross `clip` are drawn. Lines and not a
/// brush pattern: that would be fine dust on paper and on fine screens.
void PaintHatch(QPainter& painter, const QRectF& rect, const QRectF& clip, bool rising, const QColor& color,
                double step, double width);
