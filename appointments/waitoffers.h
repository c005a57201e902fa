#pragma once

#include "appointments/waitlist.h"

/// An entry of the wait list that fits a freed time, and where.
struct WaitOffer {
    WaitRow row;
    FreedTime freed;
    QString providerName;
    int start = 0;  ///< The minute of the day at which the visit would begin.

    [[nodiscard]] int End() const { return start + row.entry.minutes; }
};

/// Returns those of the times that are worth a look into the database: not past, and of a provider in whose schedule
/// the user may book.
[[nodiscard]] std::vector<FreedTime> OfferableTimes(const std::vector<FreedTime>& freed);

/// Returns who of the wait list fits these times (StartThatFits), by what is booked now. The times stand in the order
/// of their beginning, and those who fit one of them in the order of waiting. Only the wait list is read when nobody
/// waits. Throws db::DatabaseError.
[[nodiscard]] std::vector<WaitOffer> OffersFor(const std::vector<FreedTime>& freed);
