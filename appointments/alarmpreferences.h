#pragma once

#include <QString>

/// The statements that GetAlarmStatus and GetAlarmTime read.
[[nodiscard]] QString AlarmStatusStatement(const QString& userId);
[[nodiscard]] QString AlarmTimeStatement(const QString& userId);

/// Whether new appointments on the user's schedule begin with an alarm, because the preference "ScheduleAlarm" is 1.
/// The answer is false when the preference cannot be read.
[[nodiscard]] bool GetAlarmStatus(const QString& userId);

/// Returns how many minutes before the start the alarm rings, from the preference "ScheduleAlarmTime". The answer is 0
/// when the preference is not set, is not a number above 0, or cannot be read. It is at most a day, so that the minute
/// of the alarm fits its column.
[[nodiscard]] int GetAlarmTime(const QString& userId);
