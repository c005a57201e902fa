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

/// Marks the selected range beside the labels, where no card covers it.
void PaintSelectedTime(const CalendarScene& scene) {
    if (!scene.state.range)
        return;
    const QRect gutter = scene.grid.gutter();
    const int top = scene.grid.y(scene.state.range->start);
    const int bottom = scene.grid.y(scene.state.range->end);
    const int width = std::max(scene.style.margin, 3);
    scene.painter.fillRect(QRect(gutter.right() + 1 - width, top, width, bottom - top),
                           scene.state.focused ? scene.style.accent : scene.style.dimInk);
}

void PaintTick(const CalendarScene& scene, int left, int minute, const QColor& color) {
    const int y = scene.grid.y(minute);
    scene.painter.setPen(color);
    scene.painter.drawLine(left, y, scene.grid.gutter().right(), y);
}

/// Whether the row's minutes can be written without running into the label of an hour.
bool HasRoomForMinutes(const CalendarScene& scene, int minute) {
    const TimeScale& scale = scene.grid.scale;
    const QFontMetrics little(scene.style.minute);
    if (scale.interval * scale.pixelsPerMinute < little.ascent() + scene.style.margin / 2.0)
        return false;
    const bool divides = 60 % scale.interval == 0;
    const bool below = (minute % 60) * scale.pixelsPerMinute >= QFontMetrics(scene.style.hour).height();
    // Rows of 25 or 45 minutes begin anywhere before an hour.
    const bool above = divides || (60 - minute % 60) * scale.pixelsPerMinute >= little.height();
    return above && (below || (divides && scale.interval >= 15));
}

// The label of a row or hour that has already begun stands above the clip's top.
void PaintRows(const CalendarScene& scene, int from, int bottom) {
    const TimeScale& scale = scene.grid.scale;
    for (int minute = scale.rowStart(from); minute < scale.last && scene.grid.y(minute) <= bottom;
         minute = scale.rowEnd(minute)) {
        if (minute % 60 == 0)
            continue;
        PaintTick(scene, scene.grid.gutter().right() - scene.style.margin, minute, scene.style.rowLine);
        if (minute == scale.first || HasRoomForMinutes(scene, minute))
            PaintMinutes(scene, minute, scene.grid.y(minute));
    }
}

// An hour has its label whether or not a row begins with it.
void PaintHours(const CalendarScene& scene, int from, int bottom) {
    const TimeScale& scale = scene.grid.scale;
    for (int minute = (std::max(from, scale.first) + 59) / 60 * 60;
         minute < scale.last && scene.grid.y(minute) <= bottom; minute += 60) {
        PaintTick(scene, scene.grid.gutter().left() + scene.style.margin, minute, scene.style.hourLine);
        PaintHour(scene, minute, scene.grid.y(minute));
    }
}

}  // namespace

void PaintGutter(const CalendarScene& scene, const QRect& clip) {
    const QRect gutter = scene.grid.gutter();
    if (!gutter.intersects(clip))
        return;
    scene.painter.save();
    scene.painter.setClipRect(gutter & clip, Qt::IntersectClip);
    scene.painter.fillRect(gutter, scene.style.window);
    const int from = scene.grid.minuteAt(clip.top()) - 60;
    PaintHours(scene, from, clip.bottom());
    PaintRows(scene, from, clip.bottom());
    PaintSelectedTime(scene);
    PaintPresentLabel(scene);
    scene.painter.restore();
}
