#pragma once

#include <QString>

inline constexpr int MinutesPerDay = 1440;

/// Returns a time in minutes since midnight (0 to 1440) as every screen, report and audit line writes it. 0 and 1440
/// are "12:00 Mid", 720 is "12:00 Noon" and 725 is "12:05 PM". 779, one minute before 1 PM, is "0:59 PM". With
/// `militaryTime` the text has 24 hours instead: "14:05", and 0 and 1440 are both "00:00".
QString MinutesToTimeText(int minutes, bool militaryTime);
