#pragma once

#include <QString>
#include <vector>

#include "data/recurrence.h"

/// What a series will be, in one plain sentence: "Every 2 weeks on Tuesday and Thursday, 12 times, until 4 March 2027:
/// 11 new appointments". `dates` are those of the pattern, `own` that of the appointment that is there already.
[[nodiscard]] QString DescribeSeries(const RecurrencePattern& pattern, const std::vector<QDate>& dates, QDate own);
