#pragma once

#include <QDate>
#include <QString>
#include <vector>

/// A provider's part in an activity that several share.
struct Attendance {
    QString providerId;
    QDate date;
    int start = 0;  ///< Minutes since midnight.
    int end = 0;
    QString activity;
};

/// Who attends which shared activity on that day. Throws db::DatabaseError.
[[nodiscard]] std::vector<Attendance> AttendancesOn(QDate date);
/// What the provider attends from that day on. Throws db::DatabaseError.
[[nodiscard]] std::vector<Attendance> AttendancesOf(const QString& providerId, QDate from);

/// What of these is in the provider's way between `start` and `end` (minutes) of the day: "in Staff Meeting 12:00 -
/// 1:00", several one after the other; "" where nothing is. What only touches the time is not in the way.
[[nodiscard]] QString AttendanceText(const std::vector<Attendance>& attendances, const QString& providerId, QDate date,
                                     int start, int end);
