#include "platform/calendar/timescale.h"

#include <algorithm>
#include <cmath>

int TimeScale::y(int minute) const {
    return static_cast<int>(std::lround((std::clamp(minute, first, last) - first) * pixelsPerMinute));
}

int TimeScale::minuteAt(int pixel) const {
    int minute = std::clamp(first + static_cast<int>((pixel + 0.5) / pixelsPerMinute), first, last);
    while (minute > first && y(minute) > pixel)
        --minute;
    while (minute < last && y(minute + 1) <= pixel)
        ++minute;
    return minute;
}

int TimeScale::rowStart(int minute) const {
    const int inside = std::clamp(minute, first, last - 1);
    return std::max(inside / interval * interval, first);
}

int TimeScale::rowEnd(int minute) const {
    const int inside = std::clamp(minute, first, last - 1);
    return std::min((inside / interval + 1) * interval, last);
}

QString ClockText(int minute, bool twentyFourHour) {
    const int inside = std::clamp(minute, 0, 1440);
    const int hour = inside / 60;
    const QString minutes = QStringLiteral("%1").arg(inside % 60, 2, 10, QLatin1Char('0'));
    if (twentyFourHour)
        return QStringLiteral("%1:%2").arg(hour, 2, 10, QLatin1Char('0')).arg(minutes);
    const QLatin1String half(hour % 24 < 12 ? "AM" : "PM");
    return QStringLiteral("%1:%2 %3").arg(hour % 12 == 0 ? 12 : hour % 12).arg(minutes, half);
}

QString ClockSpan(int start, int end, bool twentyFourHour) {
    QString from = ClockText(start, twentyFourHour);
    const QString to = ClockText(end, twentyFourHour);
    if (!twentyFourHour && from.right(2) == to.right(2))
        from.chop(3);
    return from + QStringLiteral(" – ") + to;
}
