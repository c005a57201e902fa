#include "platform/calendar/monthpage.h"

#include <algorithm>
#include <QFontMetrics>
#include <QPainter>

#include "platform/calendar/monthpainting.h"

void PaintMonthPage(QPainter& painter, const QRectF& area, const MonthContent& content,
                    std::span<const CalendarStyle> styles) {
    const QRect whole = area.toAlignedRect();
    const auto layOut = [&](const CalendarStyle& style) {
        return LayOutMonth(content.items, content.grid, whole.size(), style, MonthRows::AsHighAsNeeded);
    };
    const auto isFull = [](const MonthCell& cell) { return cell.hidden > 0; };
    MonthLayout layout = layOut(styles.front());
    std::size_t used = 0;
    while (used + 1 < styles.size() && std::ranges::any_of(layout.cells, isFull))
        layout = layOut(styles[++used]);
    painter.save();
    painter.setClipRect(whole, Qt::IntersectClip);
    painter.translate(whole.topLeft());
    const QRect page(QPoint(), whole.size());
    const int blank = QFontMetrics(styles[used].small).averageCharWidth();
    PaintMonth({painter, content.items, content.grid, layout, styles[used], content.twentyFourHour, {}, blank}, page);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(styles[used].hourLine);
    painter.drawRect(page.adjusted(0, 0, -1, -1));
    painter.restore();
}
