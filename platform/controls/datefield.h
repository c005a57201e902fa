#pragma once

#include <optional>
#include <QDate>
#include <QString>

/// The order in which a date field reads and writes: the system's short-date order.
enum class DateOrder { MonthFirst = 0, DayFirst = 1, YearFirst = 2 };

/// What the years mean that a person leaves out or writes with two digits.
enum class YearReading {
    NearToday,  ///< Up to twenty years ahead; without a year, the day next to come or up to six months back.
    Past,       ///< Not after today, as of a birth.
};

/// The date of what a person types: "t" or "today", "+1", "-3", "+2w" (d, w, m, y from today), "12/3", "12/3/26",
/// "120326", "3 dec", "Dec 3, 2026", "2026-12-03", each with / . - , or blanks between. Nothing for what is no date,
/// for what the order does not allow (an order is never swapped in silence), and for years that the database cannot
/// hold (before 1753).
///
/// A date without a year is this year's, or next year's where this year's lies more than six months back. Two digits
/// are a year up to twenty ahead of today, else of the century before. With YearReading::Past both are the latest that
/// is not after today. A weekday in front must be the date's own.
[[nodiscard]] std::optional<QDate> ReadDate(const QString& text, DateOrder order, QDate today,
                                            YearReading reading = YearReading::NearToday);

/// "12/03/2026", "03/12/2026" or "2026/12/03"; empty for an invalid date. ReadDate reads each of them back.
[[nodiscard]] QString DateFieldText(QDate date, DateOrder order);
