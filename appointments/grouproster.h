#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

#include "appointments/groupwrite.h"
#include "appointments/seriesrest.h"
#include "appointments/writeoutcome.h"

/// Who was added to a repeating group appointment and who was taken out of it, when it was saved.
struct RosterChange {
    int key = 0;        ///< Of the appointment that was saved.
    int reference = 0;  ///< `repeating_ref` of its series.
    int groupId = 0;
    QString group;     ///< The group's name.
    QString provider;  ///< `clinicianid` of the appointment that was saved.
    std::vector<GroupFields::Member> added;
    std::vector<GroupFields::Member> removed;

    [[nodiscard]] bool Any() const { return !added.empty() || !removed.empty(); }
};

/// Another date of the series, and what the change does to it.
struct RosterDate {
    RestRow row;
    Stay stay = Stay::No;
    std::vector<GroupFields::Member> adds;      ///< Who is not there yet.
    std::vector<GroupFields::Member> removes;   ///< Who is there and has not attended.
    std::vector<GroupFields::Member> attended;  ///< Who would be taken out, but has attended and stays.
    std::vector<GroupFields::Member> ended;     ///< Who would be added, but is not in the group on that date.

    [[nodiscard]] bool Changes() const { return stay == Stay::No && (!adds.empty() || !removes.empty()); }
};

/// Reads the other dates of the group's series in the order of time. Dates before `today`, those with a session note
/// and those that are not this group's any more stay, and so do those of another provider than the saved appointment's
/// where the user's rights end at the own schedule. Throws db::DatabaseError.
[[nodiscard]] std::vector<RosterDate> ReadRoster(const RosterChange& change, QDate today);

/// Returns whether a date is among those that the user has chosen: This chooses none besides the appointment itself.
[[nodiscard]] bool IsChosenDate(const RosterDate& date, const RestRow& saved, RestScope scope);

/// How a change of members on other dates ended.
struct RosterOutcome : WriteOutcome {
    int changed = 0;  ///< On how many dates a member was added or taken out.
};

/// Writes the change to these dates, with an audit line for each that is changed, or writes nothing. A date that
/// another desk has deleted, moved into the past, given to another group or given a session note meanwhile is left, and
/// so is a member whom another desk has added, taken out or marked as kept.
[[nodiscard]] RosterOutcome WriteRoster(const RosterChange& change, const std::vector<RosterDate>& dates, QDate today);
