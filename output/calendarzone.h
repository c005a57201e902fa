#pragma once

#include <QDate>
#include <QStringList>
#include <QTimeZone>

/// The practice's time zone in a calendar file of RFC 5545.

/// Returns the name by which the times of the file refer to the zone.
[[nodiscard]] QString ZoneName(const QTimeZone& zone);
/// Returns the lines of the zone's VTIMEZONE, which is right for all times from the first date to the end of the last:
/// the last change to standard time before the first date, and each change from then to the day after the last.
[[nodiscard]] QStringList ZoneLines(const QTimeZone& zone, QDate first, QDate last);
