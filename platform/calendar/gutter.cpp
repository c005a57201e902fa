#include <algorithm>
#include <QFontMetrics>
#include <QPainter>

#include "platform/calendar/colour.h"
#include "platform/calendar/painting.h"

namespace {

void PaintHour(const CalendarScene& scene, int minute, int y) {
    const CalendarStyle& style = scene.style;
    const int hour = minute / 60 % 24;
    const bool wholeDay = scene.content.twentyFourHour;
    const QString number = wholeDay ? QStringLiteral("%1").arg(hour, 2, 10, QLatin1Char('0'))
                                    : QString::number(hour % 12 == 0 ? 12 : hour % 12);
    const QString half = wholeDay ? QStringLiteral("00") : QLatin1String(hour < 12 ? "AM" : "PM");
    const QFontMetrics big(style.hour);
    const QFontMetrics little(style.minute);
    const int right = scene.grid.gutter().right() - 2 * style.margin;
    const int halfLeft = right - little.horizontalAdvance(half);
    scene.painter.setFont(style.minute);
    scene.painter.setPen(style.dimInk);
    scene.painter.drawText(halfLeft, y + style.margin + big.ascent() - big.capHeight() + little.capHeight(), half);
    scene.painter.setFont(style.hour);
    scene.painter.setPen(style.ink);
    scene.painter.drawText(halfLeft - style.margin / 2 - big.horizontalAdvance(number), y + style.margin + big.ascent(),
                           number);
}

void PaintMinutes(const CalendarScene& scene, int minute, int y) {
    const QFontMetrics little(scene.style.minute);
    const QString text = QStringLiteral(":%1").arg(minute % 60, 2, 10, QLatin1Char('0'));
    scene.painter.setFont(scene.style.minute);
    scene.painter.setPen(scene.style.dimInk);
    scene.painter.drawText(scene.grid.gutter().right() - 2 * scene.style.margin - little.horizontalAdvance(text),
                           y + scene.style.margin / 2 + little.ascent(), text);
}

void PaintPresentLabel(const CalendarScene& scene) {
    const QDateTime& now = scene.state.now;
    const auto& columns = scene.content.columns;
    const auto isToday = [&](const CalendarColumn& column) { return column.day == now.date(); };
    if (!now.isValid() || std::none_of(columns.begin(), columns.end(), isToday))
        return;
    const int minute = now.time().hour() * 60 + now.time().minute();
    if (minute < scene.grid.scale.first || minute > scene.grid.scale.last)
        return;
    QString text = ClockText(minute, scene.content.twentyFourHour);
    if (!scene.content.twentyFourHour)
        text.chop(3);
    QRect bubble(0, 0, QFontMetrics(scene.style.small).horizontalAdvance(text) + 3 * scene.style.margin,
                 scene.style.smallLine);
    bubble.moveCenter(QPoint(0, scene.grid.y(minute)));
    bubble.moveRight(scene.grid.gutter().right() - scene.style.margin);
    PaintBubble(scene, bubble, text, scene.style.present, ReadableOn(scene.style.present, Qt::white));
    scene.painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace

void PaintGutter(const CalendarScene& scene, const QRect& clip) {
    QPainter& painter = scene.painter;
    const CalendarGrid& grid = scene.grid;
    const CalendarStyle& style = scene.style;
    const QRect gutter = grid.gutter();
    if (!gutter.intersects(clip))
        return;
    painter.save();
    painter.setClipRect(gutter & clip, Qt::IntersectClip);
    painter.fillRect(gutter, style.window);
    const TimeScale& scale = grid.scale;
    const QFontMetrics little(style.minute);
    const bool minutes = scale.interval * scale.pixelsPerMinute >= little.ascent() + style.margin / 2.0;
    // The label of an hour that has already begun stands above the clip's top.
    for (int minute = scale.rowStart(grid.minuteAt(clip.top()) - 60); minute < scale.last;
         minute = scale.rowEnd(minute)) {
        const int y = grid.y(minute);
        if (y > clip.bottom())
            break;
        const bool hour = minute % 60 == 0;
        painter.setPen(hour ? style.hourLine : style.rowLine);
        painter.drawLine(hour ? gutter.left() + style.margin : gutter.right() - style.margin, y, gutter.right(), y);
        const bool beneathHour = (minute % 60) * scale.pixelsPerMinute < QFontMetrics(style.hour).height();
        if (hour)
            PaintHour(scene, minute, y);
        else if (minute == scale.first || (minutes && !beneathHour) || (minutes && scale.interval >= 15))
            PaintMinutes(scene, minute, y);
    }
    PaintPresentLabel(scene);
    painter.restore();
}
