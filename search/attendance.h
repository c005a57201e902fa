#pragma once

#include <QDate>
#include <QString>
#include <vector>

/// The part of one provider in a shared activity.
struct Attendance {
    QString providerId;
    QDate date;
    int start = 0;  ///< Minutes since midnight.
    int end = 0;
    QString activity;
};

/// Returns who attends which shared activity on that day. Throws db::DatabaseError.
[[nodiscard]] std::vector<Attendance> AttendancesOn(QDate date);
/// Returns the same for the days from `from` to `until`.
[[nodiscard]] std::vector<Attendance> AttendancesBetween(QDate from, QDate until);
/// The statement that AttendancesBetween reads.
[[nodiscard]] QString AttendancesStatement(QDate from, QDate until);
/// Returns the activities that the provider attends from that day on. Throws db::DatabaseError.
[[nodiscard]] std::vector<Attendance> AttendancesOf(const QString& providerId, QDate from);

/// Returns the provider's activities between `start` and `end` (minutes since midnight) of the day as a text: "in Staff
/// Meeting 12:00 - 1:00", several one after the other. The text is empty where there are none. An activity that only
/// touches the time is left out.
[[nodiscard]] QString AttendanceText(const std::vector<Attendance>& attendances, const QString& providerId, QDate date,
                                     int start, int end);
