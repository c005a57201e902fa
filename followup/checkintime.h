#pragma once

#include <QDateTime>
#include <QString>

/// Returns the text in which an arrival is stored: "03/11/26 09:05 AM", with the day first where `dayFirst`. It has
/// twelve hours, whatever the screens show, so that it can be read back.
[[nodiscard]] QString CheckInTimeText(QDate date, int minutes, bool dayFirst);

/// Returns the minutes since midnight of a stored arrival, or -1 where it holds no readable time. The date is not read,
/// because the column holds dates in both orders and nothing tells them apart.
[[nodiscard]] int MinutesOfCheckIn(const QString& stored);

/// Returns a stored arrival as lists show it, "03/11/26 9:05 AM", with its date unchanged. A text that cannot be read
/// is returned unchanged.
[[nodiscard]] QString ShownCheckIn(const QString& stored);
