#pragma once

#include <QString>
#include <vector>

#include "data/recurrence.h"

/// Returns a sentence that describes a series: "Every 2 weeks on Tuesday and Thursday, 12 times, until 4 March 2027: 11
/// new appointments". `dates` are the dates of the pattern, and `own` is the date of the appointment that exists
/// already.
[[nodiscard]] QString DescribeSeries(const RecurrencePattern& pattern, const std::vector<QDate>& dates, QDate own);
