#pragma once

#include <optional>
#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>

namespace db {

/// A date-time as the server's datetime type holds it: years 1753 to 9999, in steps of a three hundredth of a second,
/// without a time zone.
struct ServerDateTime {
    qint64 julianDay = 0;
    int milliseconds = 0;  ///< Since midnight, 0 to 86399997, always ending in 0, 3 or 7.

    friend auto operator<=>(const ServerDateTime&, const ServerDateTime&) = default;
};

/// The Julian day of 1900-01-01. An empty text and a time without a date stand for this day.
inline constexpr qint64 ServerEpochJulianDay = 2415021;

/// Reads a date-time text as the server does under us_english. It takes yyyy-mm-dd, yyyy/mm/dd, yyyymmdd, mm/dd/yyyy,
/// mm/dd/yy (00 to 49 mean 2000 to 2049) and month names, with or without a time (24 hours, or AM and PM), or a time
/// alone. Returns nothing for a text that is no date.
std::optional<ServerDateTime> ReadDateTime(QByteArrayView utf8);

/// Returns the nearest moment that the datetime type holds, or nothing for a moment outside its range.
std::optional<ServerDateTime> ToServerDateTime(const QDateTime& moment);

/// Returns the stored form yyyy-MM-dd hh:mm:ss.zzz. The thousandths are left out where they are 0, and the time where
/// it is midnight, so that the texts sort as the moments do.
QByteArray IsoText(const ServerDateTime& moment);

QDateTime ToDateTime(const ServerDateTime& moment);  ///< In UTC, a zone that lacks no hour.

}  // namespace db
