#pragma once

#include "data/demo/practice.h"

namespace demo {

/// The average number of a provider's appointments in a week of the demo. The length of the demo's span follows from
/// it.
inline constexpr int AppointmentsOfAWeek = 37;

/// Sets the first and the last day of the practice's appointments, and its size.
void MakeSpan(Practice& practice);

/// Returns everybody's bookings in no particular order: patients every week or once, lunch, vacations, slots set aside
/// by type, groups and meetings. REED's day of today is left to MakeShowDay.
[[nodiscard]] std::vector<Booking> MakeSchedule(const Practice& practice);

/// Returns REED's bookings of today: on a weekday a full day with every kind of row, an early one, overlaps, notes and
/// calls; on a weekend a modest day.
[[nodiscard]] std::vector<Booking> MakeShowDay(const Practice& practice);

/// The time of REED's own weekly patient on today's day of the week. Nobody else is booked then.
inline constexpr Hours ShowSeriesHours{480, 530};

/// The first series number of MakeShowDay. Those of MakeSchedule are below it.
inline constexpr int FirstShowSeries = 1 << 28;

}  // namespace demo
