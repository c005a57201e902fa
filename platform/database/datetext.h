#pragma once

#include <optional>
#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>

namespace db {

/// A date-time as the server's datetime type knows it: years 1753 to 9999, to 3.33 thousandths of a second, no zone.
struct ServerDateTime {
    qint64 julianDay = 0;
    int milliseconds = 0;  ///< Since midnight, 0 to 86399997, always ending in 0, 3 or 7.

    friend auto operator<=>(const ServerDateTime&, const ServerDateTime&) = default;
};

/// 1900-01-01, the day that an empty text and a time without a date stand for.
inline constexpr qint64 ServerEpochJulianDay = 2415021;

/// Reads a date-time text as the server does under us_english: yyyy-mm-dd, yyyy/mm/dd, yyyymmdd, mm/dd/yyyy, mm/dd/yy
/// (00 to 49 mean 2000 to 2049), month names, with or without a time (24 hours, or AM and PM), or a time alone.
/// Nothing for what is no date.
std::optional<ServerDateTime> ReadDateTime(QByteArrayView utf8);

/// The nearest that the datetime type holds; nothing outside its range.
std::optional<ServerDateTime> ToServerDateTime(const QDateTime& moment);

/// The stored form: yyyy-MM-dd hh:mm:ss.zzz, the thousandths left out where they are 0, the time where it is midnight,
/// so that the texts sort as the moments do.
QByteArray IsoText(const ServerDateTime& moment);

QDateTime ToDateTime(const ServerDateTime& moment);  ///< As if in UTC, where no hour is left out.

}  // namespace db
