#pragma once

#include <QDate>
#include <QLocale>
#include <QString>

/// Returns the order of the locale's short date: 0 month first (also where no locale was chosen), 1 day first, 2 year
/// first.
[[nodiscard]] int DateOrderOf(const QLocale& locale);
/// Returns the "Long Date": "Wednesday, March 11, 2026", in English, with the day or the year first where the locale
/// has it so.
[[nodiscard]] QString LongDateText(QDate date);
/// Returns the "Short Date": "3/11/2026" in the default locale. The year always has four digits.
[[nodiscard]] QString ShortDateText(QDate date);
