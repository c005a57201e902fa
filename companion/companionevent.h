#pragma once

#include <optional>
#include <QDate>
#include <QList>
#include <QString>

#include "appointments/writeoutcome.h"
#include "platform/database/connection.h"

// Single events of the companion's calendar: one row of `CalendarEvents` and a row of `CalendarProviderEvents` for each
// attendee. The routines that write open a connection of their own and write everything or nothing.

/// An event, as its editor shows it.
struct CompanionEvent {
    QString name;
    QDate date;
    int start = -1;    ///< In minutes since midnight, 0 to 1439; -1 when the row holds no time.
    int duration = 0;  ///< In minutes.
    bool allDay = false;
    bool allProviders = false;  ///< The event applies to every provider, whoever attends.
    bool recurs = false;        ///< The row is a series, which only the companion itself can change.
    QList<int> attendees;       ///< The `ProvId` of each.

    static constexpr int LongestName = 255;  ///< The characters that the column keeps.
};

/// How a write of an event ended.
struct CompanionEventOutcome : WriteOutcome {
    int ceveid = 0;           ///< The key of the event that was written.
    bool recurs = false;      ///< Nothing was written, because the event has become a series.
    bool keptTheirs = false;  ///< The event had been changed meanwhile, and those changes stand.
    /// After a clash, the event as it was loaded, with what clashed as it is now. A write against it replaces just
    /// that.
    std::optional<CompanionEvent> clashing;
};

/// The statement by which ReadCompanionEvent reads an event with its attendees.
[[nodiscard]] QString CompanionEventStatement(int ceveid);
/// Returns the event, or nothing when there is none. An event without attendees, which the statement does not find, is
/// read by another. Throws db::DatabaseError.
[[nodiscard]] std::optional<CompanionEvent> ReadCompanionEvent(db::Connection& companion, int ceveid);

/// Adds an event that ends on its own day and reminds nobody.
[[nodiscard]] CompanionEventOutcome AddCompanionEvent(const CompanionEvent& event);
/// Writes what differs between the event as it was `loaded` and as it is `wanted`. What the companion or another desk
/// has changed meanwhile stays, and the write fails with a db::RowClash when both changed the same to different values,
/// or when nobody would attend any more. The event's last day stays, and its reminder is switched off.
[[nodiscard]] CompanionEventOutcome UpdateCompanionEvent(int ceveid, const CompanionEvent& loaded,
                                                         const CompanionEvent& wanted);
/// Deletes the event for all attendees. The delete fails when the event is not as it was `loaded`.
/// An event that is deleted already is no failure.
[[nodiscard]] CompanionEventOutcome DeleteCompanionEvent(int ceveid, const CompanionEvent& loaded);
