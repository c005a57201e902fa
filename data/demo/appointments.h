#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Draws what a booking that is not arranged by hand still lacks: service, location, note, courtesy call, reminder,
/// category. Puts the bookings in the order of their days and hours.
void FillDetails(const Practice& practice, std::vector<Booking>& bookings);

/// Writes the bookings, which FillDetails has ordered: appointments, who attends activities and groups, the rooms
/// booked with them and alone, the sessions of kept and missed ones (their keys are kept in the bookings), and the
/// audit log of the last days.
void WriteAppointments(const Practice& practice, std::vector<Booking>& bookings, db::Connection& connection);

}  // namespace demo
