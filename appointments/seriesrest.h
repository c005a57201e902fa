#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <vector>

#include "appointments/seriesmark.h"

/// One appointment of a series as it was read.
struct RestRow {
    int key = 0;
    SeriesPlace place;
    QString text;
    int apptType = 0;
    QString patientId;
    QString roomName;
    bool hasNote = false;   ///< Whether a session note is linked.
    bool attended = false;  ///< Whether a member of the group is marked as kept. Only a group's appointment has it.

    friend bool operator==(const RestRow&, const RestRow&) = default;
};

/// Reads the series with this `repeating_ref` in the order of time. Its first appointment need not exist any more.
/// Throws db::DatabaseError.
[[nodiscard]] std::vector<RestRow> ReadSeries(int reference);
/// Reads the rows with these keys in the order of time; who attended them is left out. Throws db::DatabaseError.
[[nodiscard]] std::vector<RestRow> ReadRestRows(const std::vector<int>& keys);

/// What is to be done with the rest of a series.
struct RestChange {
    enum class Kind { Delete, Shift, MoveTo, Room, Provider, PatientCancel, TherapistCancel };

    Kind kind = Kind::Shift;
    int minutes = 0;   ///< Shift: later by so many minutes, or earlier where it is negative.
    int weekday = 0;   ///< MoveTo: the weekday of the same week, Sunday 1 to Saturday 7; 0 keeps it.
    int start = -1;    ///< MoveTo: the new start in minutes since midnight; -1 keeps it. The length stays.
    int room = 0;      ///< Room: the RoomID, 0 for no room, -1 while none is chosen.
    QString provider;  ///< Provider: the id of the new one; empty while none is chosen.

    friend bool operator==(const RestChange&, const RestChange&) = default;
};

/// For which appointments of the series. Whatever is chosen, those that have taken place or are settled stay.
enum class RestScope { This, Following, All };

/// Why an appointment stays as it is.
enum class Stay {
    No,  ///< It is changed.
    NotChosen,
    Past,
    CheckedIn,
    Kept,
    Missed,
    Cancelled,
    HasNote,
    OthersSchedule,  ///< It is another provider's, and the user's rights end at the own schedule.
    NothingNew,
    PastMidnight,
    IntoPast,
    Shared,      ///< An activity of several providers belongs to no single one.
    OtherGroup,  ///< It is not an appointment of the group any more.
    NoStatus,    ///< Only a patient's appointment can be cancelled.
};

/// Returns the reason in words, or an empty text for No.
[[nodiscard]] QString StayText(Stay stay);

/// What becomes of one appointment of the series.
struct RestPlan {
    RestRow row;
    Stay stay = Stay::No;
    std::optional<SeriesPlace> after;  ///< The new place. Nothing where the row stays or is deleted.

    [[nodiscard]] bool Changes() const { return stay == Stay::No; }
    friend bool operator==(const RestPlan&, const RestPlan&) = default;
};

/// Tells for each row what a change does to it. `chosen` is the key of the appointment with which the user began, and
/// `today` the first day that is not past. Appointments of other providers than that one's stay unless `allProviders`.
[[nodiscard]] std::vector<RestPlan> PlanRest(const std::vector<RestRow>& rows, int chosen, RestScope scope,
                                             const RestChange& change, QDate today, bool allProviders);
