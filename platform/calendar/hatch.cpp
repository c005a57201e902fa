#include "platform/calendar/hatch.h"

#include <algorithm>
#include <cmath>
#include <QPainter>

void PaintHatch(QPainter& painter, const QRectF& rect, const QRectF& clip, bool rising, const QColor& color,
                double step, double width) {
    const QRectF shown = rect & clip;
    if (shown.isEmpty() || step <= 0)
        return;
    painter.save();
    painter.setClipRect(shown, Qt::IntersectClip);
    painter.setPen(QPen(color, width));
    // A line that falls by one for each step to the right has a constant x - y, a rising one a constant x + y.
    const double origin = rising ? rect.left() + rect.top() : rect.left() - rect.top();
    const double from = rising ? shown.left() + shown.top() : shown.left() - shown.bottom();
    const double to = rising ? shown.right() + shown.bottom() : shown.right() - shown.top();
    const int first = static_cast<int>(std::floor((from - origin) / step));
    const int last = static_cast<int>(std::ceil((to - origin) / step));
    for (int i = first; i <= last; ++i) {
        const double line = origin + i * step;
        const double atTop = rising ? line - shown.top() : line + shown.top();
        const double atBottom = rising ? line - shown.bottom() : line + shown.bottom();
        painter.drawLine(QPointF(atTop, shown.top()), QPointF(atBottom, shown.bottom()));
    }
    painter.restore();
}
