#pragma once

#include <optional>
#include <QDate>
#include <QString>

/// The order in which a date field reads and writes a date: the system's short-date order.
enum class DateOrder { MonthFirst = 0, DayFirst = 1, YearFirst = 2 };

/// How a year is read that a person leaves out or writes with two digits.
enum class YearReading {
    NearToday,  ///< A year up to twenty years ahead. Without a year, the next such day or one up to six months back.
    Past,       ///< A date that is not after today, such as a birth.
};

/// Reads a date that a person types: "t" or "today", "+1", "-3", "+2w" (d, w, m, y from today), "12/3", "12/3/26",
/// "120326", "3 dec", "Dec 3, 2026", "2026-12-03", each with / . - , or blanks between the parts. Returns nothing for a
/// text that is no date, for one that the order does not allow (the order is never swapped silently), and for years
/// that the database cannot hold (before 1753).
///
/// A date without a year lies in this year, or in next year when this year's date lies more than six months back. A
/// year of two digits is read as up to twenty years ahead of today, or else in the century before. With
/// YearReading::Past, both are read as the latest date that is not after today. A weekday in front must be the date's
/// own.
[[nodiscard]] std::optional<QDate> ReadDate(const QString& text, DateOrder order, QDate today,
                                            YearReading reading = YearReading::NearToday);

/// Returns "12/03/2026", "03/12/2026" or "2026/12/03", or an empty text for an invalid date. ReadDate reads each of
/// them back.
[[nodiscard]] QString DateFieldText(QDate date, DateOrder order);
