#pragma once

#include <QString>

/// The statements of the two preferences.
[[nodiscard]] QString AlarmStatusStatement(const QString& userId);
[[nodiscard]] QString AlarmTimeStatement(const QString& userId);

/// Whether new appointments on the user's schedule begin with an alarm: the preference "ScheduleAlarm" is 1. False
/// where it cannot be read.
[[nodiscard]] bool GetAlarmStatus(const QString& userId);

/// How many minutes before the start the alarm rings, from the preference "ScheduleAlarmTime"; 0 where that is not set,
/// is not a number above 0 or cannot be read. At most a day, so that the minute of the alarm fits its column.
[[nodiscard]] int GetAlarmTime(const QString& userId);
