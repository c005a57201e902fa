#pragma once

#include <QDate>

#include "appointments/writeoutcome.h"

// The writes to the companion's schedule that its view makes. Each has a connection and a transaction of its own, and
// writes everything or nothing. None of them asks or opens a box.
//
// The companion's own users work on the same rows. The last writer wins, but nothing is written to a row that has
// become another thing than the user saw, and the outcome tells what was written over.

/// Why a write left its row alone although nothing failed. Another user was first.
enum class CompanionHitch {
    None,
    Charged,       ///< The appointment has been charged.
    Recurring,     ///< The row has become part of a series.
    OnOtherDay,    ///< The appointment has been moved to another day.
    NotAttending,  ///< The provider does not attend the event, so there was nothing to take away.
    NoAttendees    ///< Nobody attends the event.
};

struct CompanionOutcome : WriteOutcome {
    CompanionHitch hitch = CompanionHitch::None;
    bool replaced = false;  ///< A change that another user had made meanwhile was written over.
    bool newProvider =
        false;  ///< The appointment had another rendering provider, although it was not moved to a new one.
    bool allProviders = false;  ///< The event still stands in the schedule of every provider.
};

/// A place in the schedule. The times are minutes since midnight; the end may lie behind midnight.
struct CompanionPlace {
    QDate day;
    int start = 0;
    int end = 0;
    int ProvId = 0;
};

/// Moves an appointment, or changes its length. `from` is the place that the user saw, and `to` the one that they
/// chose. The day of the appointment is written only when the two differ in it. A row that is gone gives End::Gone.
[[nodiscard]] CompanionOutcome MoveFHAppointment(int CtrnId, const CompanionPlace& from, const CompanionPlace& to);

/// Deletes an appointment that is not charged. A charged one stays (CompanionHitch::Charged), and one that is gone
/// already gives End::Gone.
[[nodiscard]] CompanionOutcome DeleteFHAppointment(int CtrnId);

/// Takes a provider from the attendees of an event. With its only attendee the event itself is deleted. An event in
/// which nobody takes part is left alone, and so is one that only others attend by now.
[[nodiscard]] CompanionOutcome DeleteFHEvent(int CEveId, int ProvId);
