#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Draws the details of bookings that are not arranged by hand: service, location, note, courtesy call, reminder and
/// category. It sorts the bookings by day and hour.
void FillDetails(const Practice& practice, std::vector<Booking>& bookings);

/// Writes the bookings that FillDetails has sorted: appointments, the providers and patients of activities and groups,
/// the rooms booked with them and alone, the sessions of kept and missed ones (whose keys are stored in the bookings),
/// and the audit log of the last days.
void WriteAppointments(const Practice& practice, std::vector<Booking>& bookings, db::Connection& connection);

}  // namespace demo
