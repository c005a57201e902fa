#pragma once

#include <map>
#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

/// What stands in the way of an appointment on one date of its series.
struct Obstacles {
    QStringList booked;     ///< In the provider's own schedule: "Smith, Zed 9:00 AM - 10:00 AM".
    QStringList elsewhere;  ///< A shared activity of the provider, or the patient with somebody else.
    QStringList room;       ///< Who has the room: "Blue Room: Reed 9:00 AM - 10:00 AM".
    QString holiday;        ///< Its name.

    /// Whether somebody or something is booked; a holiday books nobody.
    [[nodiscard]] bool Taken() const { return !booked.isEmpty() || !elsewhere.isEmpty() || !room.isEmpty(); }
    [[nodiscard]] bool Any() const { return Taken() || !holiday.isEmpty(); }
    /// All of it, for one line.
    [[nodiscard]] QString Text() const;
};

/// The appointment that is repeated.
struct SeriesSource {
    int key = 0;
    int start = 0;  ///< Minutes since midnight.
    int end = 0;
    QString provider;   ///< In whose schedule the copies are booked.
    QString patientId;  ///< Empty: nobody's.
};

/// What is booked at the hour of a series on its dates, read for all of them at once: one statement for the schedules,
/// one for the room, one for the holidays, however many dates there are.
///
/// In the provider's own schedule every row counts, and times that only touch do, as in the question that is asked when
/// a series is written. A shared activity that the provider attends counts too, what the patient has with others, and
/// what the room is booked for; there times that only touch do not. While patients' names are hidden, theirs are not
/// told, also of what was read before.
class SeriesObstacles {
  public:
    explicit SeriesObstacles(SeriesSource source) : source_(std::move(source)) {}

    /// The room that goes along into the series: that of the appointment, or of the first one of its series.
    struct Room {
        int id = 0;  ///< 0: none.
        QString name;
    };

    /// Reads from a date to another, both included. On a failure it knows of no date any more. Throws
    /// db::DatabaseError.
    void Read(QDate from, QDate to);
    [[nodiscard]] bool Knows(QDate from, QDate to) const { return from_.isValid() && from >= from_ && to <= to_; }
    /// What stands in the way on a date that is known.
    [[nodiscard]] Obstacles On(QDate date) const;

  private:
    enum class Kind { Booked, Elsewhere, Room };
    struct Entry {
        Kind kind = Kind::Booked;
        QString text;
        QString textWithoutName;
    };
    struct Holiday {
        QDate date;
        bool everyYear = false;
        QString name;
    };

    void readRoom();
    void readSchedules(QDate from, QDate to);
    void readBookings(QDate from, QDate to);
    void readHolidays();

    SeriesSource source_;
    Room room_;
    bool roomRead_ = false;
    QDate from_;
    QDate to_;
    std::map<QDate, std::vector<Entry>> days_;
    std::vector<Holiday> holidays_;
};
