#pragma once

#include <optional>
#include <QDate>
#include <QString>

namespace db {
class Field;
}

// How the companion database keeps a time of day: the columns CtrnTime and CEveTime hold a date-time, of which only the
// hour and the minute count.

/// Returns the minutes since midnight (0 to 1439) of a companion's time, or nothing for null and for a text that is no
/// time. The day beside the time does not count: a row that was written with its date, one with the time alone (which
/// the database dates 1899 or 1900) and a time in a column of texts are read alike.
[[nodiscard]] std::optional<int> CompanionMinutes(const db::Field& time);

/// Returns "{date} {time}", as a time is written into CtrnTime and CEveTime: "03/11/2026 9:05 AM". Both engines read
/// back each minute of the day, 0 to 1439, also those whose text on the screen no server takes ("12:00 Noon", "12:00
/// Mid", "0:59 PM"). The end of the day, 1440, is midnight too, since only the hour and the minute are kept.
[[nodiscard]] QString CompanionTimeText(QDate date, int minutes);
/// Returns the moment at which a companion's row is written: "03/11/2026 2:07:09 PM".
[[nodiscard]] QString CompanionNowText();
