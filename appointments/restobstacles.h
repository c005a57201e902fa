#pragma once

#include <functional>
#include <QDate>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

#include "appointments/holidaydates.h"
#include "appointments/overlap.h"
#include "appointments/seriesrest.h"

/// Finds what stands in the way of the appointments of a series at the places to which a change brings them. A new time
/// is looked up in the schedules of the provider or, for a shared activity, of all its attendees, among the patient's
/// appointments and in the room; a new provider in that provider's schedule, and a new room in its bookings. The rule
/// is that of the booking screens: times that only touch do not count, type slots never do. However many appointments
/// there are, each kind of booking is read by one statement. While patients' names are hidden, they are left out.
class RestObstacles {
  public:
    /// Reads the bookings at the places of a plan. Throws db::DatabaseError; nothing counts as read then.
    void Read(const std::vector<RestPlan>& plans);
    /// Whether an appointment of the plan, told by its position, is really going to be changed.
    using Ticked = std::function<bool(std::size_t)>;
    /// Returns the obstacles of an appointment of the plan that was read. The appointments of the series itself count
    /// at the places at which they are going to stand.
    [[nodiscard]] QStringList InTheWay(std::size_t plan, const Ticked& ticked) const;
    /// Returns the name of the holiday on the new day of an appointment, or an empty text. A holiday is told when the
    /// day or the time changes, and is no obstacle.
    [[nodiscard]] QString Holiday(std::size_t plan) const;

  private:
    /// In whose time an appointment of the plan must find room. Ids are in capitals.
    struct Needs {
        QSet<QString> providers;
        QSet<QString> patients;
        QSet<int> rooms;

        [[nodiscard]] bool Meets(const Needs& other) const;
        void Add(const Needs& other);
    };
    struct Booking {
        int key = 0;  ///< The appointment's; 0 for a booking of a room without one.
        MinuteSpan time;
        Needs takes;
        QString text;
        QString textWithoutName;
    };

    [[nodiscard]] static QHash<int, QSet<QString>> readAttendees(const std::vector<RestPlan>& plans);
    [[nodiscard]] Needs needsOf(const RestPlan& plan) const;
    void readSchedules(const QString& when, const Needs& all);
    void readRooms(const QString& when, const Needs& all);

    std::vector<RestPlan> plans_;
    std::vector<Needs> needs_;                         ///< By the position of the plan.
    QHash<int, std::size_t> positions_;                ///< Of the keys in the plan.
    QHash<QDate, std::vector<std::size_t>> arriving_;  ///< The positions of the plans by their new day.
    QHash<int, QSet<QString>> attendees_;              ///< Of the shared activities, by key.
    QHash<QDate, std::vector<Booking>> days_;
    HolidayDates holidays_;
};
