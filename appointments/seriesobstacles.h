#pragma once

#include <map>
#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

#include "appointments/holidaydates.h"

/// The bookings and the holiday that stand in the way of an appointment on one date of its series.
struct Obstacles {
    QStringList booked;     ///< Bookings in the provider's own schedule: "Smith, Zed 9:00 AM - 10:00 AM".
    QStringList elsewhere;  ///< Shared activities of the provider, and the patient's appointments with others.
    QStringList room;       ///< Bookings of the room: "Blue Room: Reed 9:00 AM - 10:00 AM".
    QString holiday;        ///< The name of the holiday; empty without one.

    /// Whether there is a booking. A holiday is none.
    [[nodiscard]] bool Taken() const { return !booked.isEmpty() || !elsewhere.isEmpty() || !room.isEmpty(); }
    [[nodiscard]] bool Any() const { return Taken() || !holiday.isEmpty(); }
    /// Returns all obstacles in one line.
    [[nodiscard]] QString Text() const;
};

/// The appointment that is repeated.
struct SeriesSource {
    int key = 0;
    int start = 0;  ///< Minutes since midnight.
    int end = 0;
    QString provider;   ///< The provider in whose schedule the copies are booked.
    QString patientId;  ///< Empty for an appointment without a patient.
};

/// Reads what is booked at the time of a series, for all of its dates at once. However many dates there are, one
/// statement reads the schedules, one the bookings of the room and one the holidays. The room itself is looked up once.
///
/// In the provider's own schedule every kind of row counts, and so do times that only touch, as in the question that is
/// asked when a series is written. A shared activity that the provider attends counts too, and so do the patient's
/// appointments with others and the bookings of the room; for these, times that only touch do not count. While
/// patients' names are hidden, On leaves them out, also from rows that were read before the names were hidden.
class SeriesObstacles {
  public:
    explicit SeriesObstacles(SeriesSource source) : source_(std::move(source)) {}

    /// The room that the copies may get: the room of the appointment or, in a series, that of its first appointment.
    struct Room {
        int id = 0;  ///< 0: none.
        QString name;
    };

    /// Reads the obstacles between two dates, both included. After a failure Knows is false for every date. Throws
    /// db::DatabaseError.
    void Read(QDate from, QDate to);
    /// Reads on from the last date that was read. It is for a long series, which is read in pieces. A failure is as
    /// that of Read.
    void ReadOn(int days);
    [[nodiscard]] bool Knows(QDate from, QDate to) const { return from_.isValid() && from >= from_ && to <= to_; }
    /// Returns the obstacles on a date that was read.
    [[nodiscard]] Obstacles On(QDate date) const;

  private:
    enum class Kind { Booked, Elsewhere, Room };
    struct Entry {
        Kind kind = Kind::Booked;
        QString text;
        QString textWithoutName;
    };
    /// Reads the dates between `from` and `to`, after which all dates since `first` have been read.
    void readPiece(QDate first, QDate from, QDate to);
    void readRoom();
    void readSchedules(QDate from, QDate to);
    void readBookings(QDate from, QDate to);

    SeriesSource source_;
    Room room_;
    bool roomRead_ = false;
    QDate from_;
    QDate to_;
    std::map<QDate, std::vector<Entry>> days_;
    HolidayDates holidays_;
};
