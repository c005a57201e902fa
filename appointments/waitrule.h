#pragma once

#include <optional>
#include <QDate>
#include <QDateTime>
#include <QStringList>
#include <vector>

// Who of the wait list fits an hour that is free. These are rules over plain values; nothing here reads the database.

/// Minutes of a day since midnight. The end is not included.
struct MinuteRange {
    int start = 0;
    int end = 0;

    friend bool operator==(const MinuteRange&, const MinuteRange&) = default;
};

/// The bit of a weekday in WaitEntry::days: 1 for Sunday to 64 for Saturday.
[[nodiscard]] int WeekdayBit(QDate date);
inline constexpr int EveryDay = 127;

/// What a patient on the wait list waits for.
struct WaitEntry {
    QString patientId;
    bool patientActive = true;   ///< Whether the patient's record exists and is not archived.
    int minutes = 0;             ///< The length of the visit.
    QStringList providers;       ///< The ids of the wanted providers; empty for any provider.
    int days = EveryDay;         ///< The wanted weekdays, a bit for each (WeekdayBit).
    MinuteRange times{0, 1440};  ///< The part of the day in which the whole visit must lie.
    QDate until;                 ///< The last date on which the patient still waits; invalid for no end.
    bool closed = false;
};

/// A time in a provider's schedule that has become free, or about which the user asks.
struct FreedTime {
    QString provider;
    QDate date;
    MinuteRange time;
    QString patientId;  ///< Who gave the time up, and is therefore not offered it; empty for nobody.

    friend bool operator==(const FreedTime&, const FreedTime&) = default;
};

/// What stands around a freed time.
struct DayAround {
    bool providerActive = true;       ///< Whether the provider exists and is not archived.
    std::vector<MinuteRange> booked;  ///< What the provider has booked on that date, in any order.
    /// What may be booked besides the freed time: the provider's working hours, and other times that have become free.
    std::vector<MinuteRange> open;
    int earliest = 0;  ///< The first minute that is not past (EarliestMinute).
};

/// Returns the first minute of the date at which a visit may still begin: 0 on a later date, 1440 on an earlier one,
/// and today the next full five minutes.
[[nodiscard]] int EarliestMinute(QDate date, const QDateTime& now);

/// Returns the minute at which the visit of an entry begins when the entry fits the freed time, and nothing when it
/// does not. `ofPatient` is when the patient has other visits on that date.
///
/// An entry fits when it is open, its patient and the provider are active, it waits for this provider and weekday and
/// still waits on this date, and there is a place for its whole length. At least half of the place lies in the freed
/// time; the rest may go on into the open times before and after, because an hour that falls free beside a free quarter
/// is an hour and a quarter. All of the place must lie in the times that the patient wants and be neither booked nor
/// past, nor may the patient have another visit then. Of several places the one that begins nearest to the freed time's
/// begin is taken, and of two such the later one.
[[nodiscard]] std::optional<int> StartThatFits(const WaitEntry& entry, const FreedTime& freed, const DayAround& around,
                                               const std::vector<MinuteRange>& ofPatient);
