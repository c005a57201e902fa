#include "output/calendarzone.h"

#include <QRegularExpression>

namespace {

constexpr int SecondsPerHour = 3600;

QString two(int number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

/// Returns "-0500", or "-045602" for a zone that once counted seconds.
QString offsetText(int seconds) {
    const int distance = std::abs(seconds);
    const QString text = (seconds < 0 ? QStringLiteral("-") : QStringLiteral("+")) + two(distance / SecondsPerHour) +
                         two(distance / 60 % 60);
    return distance % 60 == 0 ? text : text + two(distance % 60);
}

/// Returns the lines of the clocks as they are from `start` on, a time on the clocks before.
QStringList clocks(const QTimeZone::OffsetData& change, const QDateTime& start, int offsetBefore) {
    const QString kind = change.daylightTimeOffset != 0 ? QStringLiteral("DAYLIGHT") : QStringLiteral("STANDARD");
    return {QStringLiteral("BEGIN:") + kind,
            QStringLiteral("DTSTART:") + start.toString(QStringLiteral("yyyyMMdd'T'HHmmss")),
            QStringLiteral("TZOFFSETFROM:") + offsetText(offsetBefore),
            QStringLiteral("TZOFFSETTO:") + offsetText(change.offsetFromUtc),
            QStringLiteral("TZNAME:") + change.abbreviation,
            QStringLiteral("END:") + kind};
}

QStringList changeLines(const QTimeZone& zone, const QTimeZone::OffsetData& change) {
    const int before = zone.offsetFromUtc(change.atUtc.addSecs(-1));
    return clocks(change, change.atUtc.addSecs(before), before);
}

/// Returns the last change to standard time before the moment, or nothing valid where there was none.
QTimeZone::OffsetData lastStandardTime(const QTimeZone& zone, const QDateTime& moment) {
    QTimeZone::OffsetData change = zone.previousTransition(moment);
    while (change.atUtc.isValid() && change.daylightTimeOffset != 0)
        change = zone.previousTransition(change.atUtc);
    return change;
}

}  // namespace

QString ZoneName(const QTimeZone& zone) {
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9_+/-]+$"));
    const QString id = QString::fromUtf8(zone.id());
    // A computer without the tables of the zones may know its zone only as a rule, which is no name.
    return plain.match(id).hasMatch() ? id : QStringLiteral("Local");
}

// The lines begin with standard time, because some programs take no daylight time that nothing stands before.
QStringList ZoneLines(const QTimeZone& zone, QDate first, QDate last) {
    QDateTime from(first.addDays(-1), QTime(0, 0), Qt::UTC);
    const QDateTime until(last.addDays(2), QTime(0, 0), Qt::UTC);
    QStringList lines{QStringLiteral("BEGIN:VTIMEZONE"), QStringLiteral("TZID:") + ZoneName(zone)};
    if (const QTimeZone::OffsetData standard = lastStandardTime(zone, from); standard.atUtc.isValid()) {
        lines += changeLines(zone, standard);
        from = standard.atUtc.addSecs(1);
    } else {
        const int always = zone.offsetFromUtc(from);
        lines += clocks({.abbreviation = zone.abbreviation(from),
                         .atUtc = {},
                         .offsetFromUtc = always,
                         .standardTimeOffset = always,
                         .daylightTimeOffset = 0},
                        QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC), always);
    }
    for (const QTimeZone::OffsetData& change : zone.transitions(from, until))
        lines += changeLines(zone, change);
    return lines << QStringLiteral("END:VTIMEZONE");
}
