#pragma once

#include <QDateTime>
#include <QString>

/// The text under which an arrival is stored: "03/11/26 09:05 AM", the day in front where `dayFirst`. In twelve hours
/// whatever the screens show, so that it can be read back.
[[nodiscard]] QString CheckInTimeText(QDate date, int minutes, bool dayFirst);

/// The minutes since midnight of a stored arrival; -1 where it holds no time that can be read. Its date is not read:
/// rows of both date orders stand in one column, and nothing tells them apart.
[[nodiscard]] int MinutesOfCheckIn(const QString& stored);

/// A stored arrival as lists show it, "03/11/26 9:05 AM", with the date as it was written. What cannot be read is shown
/// as it stands.
[[nodiscard]] QString ShownCheckIn(const QString& stored);
