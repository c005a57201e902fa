#pragma once

#include <array>
#include <deque>
#include <map>
#include <optional>
#include <QDateTime>
#include <QHash>
#include <vector>

#include "appointments/overlap.h"
#include "appointments/workinghours.h"
#include "data/holidays.h"
#include "session/slot.h"

/// What a search for free time looks for.
struct OpeningWish {
    int minutes = 0;                        ///< How long the opening must be, 1 to 1440.
    std::vector<BookedProvider> providers;  ///< Whose openings; those of the same minute are found in this order.
    std::array<bool, 7> weekdays{true, true, true, true, true, true, true};  ///< From Sunday to Saturday.
    MinuteSpan hours{0, 1440};                                               ///< The part of the day.
    QDate from;             ///< The first date. A date that has passed means today.
    QString patientId;      ///< The patient, who must be free too; empty for none.
    bool holidays = false;  ///< Whether holidays are searched.
};

/// A time at which a provider, and the patient of the wish, is free.
struct Opening {
    QDate date;
    int start = 0;  ///< Minutes since midnight.
    int end = 0;
    BookedProvider provider;
    QString holiday;             ///< The name of the holiday on that date, if it is one.
    bool overCancelled = false;  ///< Whether a cancelled appointment stands there.

    [[nodiscard]] SelectedSlot Slot() const { return {date, start, end}; }
    /// Whether both begin at the same time with the same provider.
    [[nodiscard]] bool BeginsAs(const Opening& other) const {
        return date == other.date && start == other.start && provider.id == other.provider.id;
    }
};

/// Returns the starts at which `minutes` fit into `window` beside what is booked, in ascending order. The times from
/// one start to the next do not overlap. A start is on the grid of `grid` minutes counted from midnight where the time
/// fits from there; otherwise it is where the window begins or a booking ends. No free time that is long enough is left
/// out: any other start would overlap one of the returned times. What conflicts is decided by Overlaps.
[[nodiscard]] std::vector<int> FreeStarts(MinuteSpan window, const std::vector<MinuteSpan>& booked, int minutes,
                                          int grid);

/// Searches the openings of a wish, one stretch of days after the other, in the order of date, time and provider.
///
/// When a provider works is told by WorkingHours. Every booking makes its provider busy, unavailable time too, except
/// cancelled appointments and type slots. A shared activity makes its attending providers busy, and a group session its
/// patients. Holidays are left out unless the wish includes them.
///
/// Each stretch is read with a number of statements that depends neither on the number of providers nor on that of the
/// days.
class OpeningSearch {
  public:
    static constexpr int Days = 365;        ///< So many days from the first date are searched.
    static constexpr int FirstStretch = 7;  ///< The days that the first call of Next searches.

    /// Throws db::DatabaseError when the hours or the holidays cannot be read.
    OpeningSearch(OpeningWish wish, const QDateTime& now, int grid);

    /// Searches the next stretch of days. Throws db::DatabaseError; the stretch is then searched again by the next
    /// call.
    [[nodiscard]] std::vector<Opening> Next();
    /// Whether every day has been searched.
    [[nodiscard]] bool Ended() const { return next_ > last_; }
    [[nodiscard]] QDate First() const { return first_; }
    [[nodiscard]] QDate Last() const { return last_; }
    /// The number of holidays that were left out so far.
    [[nodiscard]] int HolidaysLeftOut() const { return holidaysLeftOut_; }

  private:
    struct Booked {
        std::vector<MinuteSpan> busy;
        std::vector<MinuteSpan> cancelled;
    };
    using Day = std::pair<QString, QDate>;  ///< A provider's id in lower case, and a date.

    [[nodiscard]] QStringList statements(QDate until) const;
    [[nodiscard]] std::map<Day, Booked> readBookings(QDate until) const;
    [[nodiscard]] std::map<QDate, std::vector<MinuteSpan>> readPatient(QDate until) const;
    [[nodiscard]] MinuteSpan windowOf(const QString& provider, QDate date) const;

    OpeningWish wish_;
    QDateTime now_;
    int grid_;
    QDate first_;
    QDate last_;
    QDate next_;
    int stretch_;
    int holidaysLeftOut_ = 0;
    HolidayCalendar holidays_;
    WorkingHours hours_;
};
