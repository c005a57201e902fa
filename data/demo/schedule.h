#pragma once

#include "data/demo/practice.h"

namespace demo {

/// How many appointments a provider has in a week, on average over the demo's whole span. From this the length of the
/// span follows.
inline constexpr int AppointmentsOfAWeek = 37;

/// Sets the days that the practice's appointments fall on, and its size.
void MakeSpan(Practice& practice);

/// Everybody's weeks: patients week after week or once, lunch, vacations, slots set aside by type, groups, meetings.
/// REED's day of today is left to MakeShowDay. In no order.
[[nodiscard]] std::vector<Booking> MakeSchedule(const Practice& practice);

/// Today as REED has it: on a weekday a full day with every kind of row, an early one, overlaps, notes and calls; on a
/// weekend a modest one.
[[nodiscard]] std::vector<Booking> MakeShowDay(const Practice& practice);

/// The time of REED's own weekly patient on today's day of the week, which nobody else is given.
inline constexpr Hours ShowSeriesHours{480, 530};

/// The series numbers of MakeSchedule are all below this one; MakeShowDay's begin with it.
inline constexpr int FirstShowSeries = 1 << 28;

}  // namespace demo
