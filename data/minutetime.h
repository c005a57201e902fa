#pragma once

#include <QString>

inline constexpr int MinutesPerDay = 1440;

/// The text of a minute count since midnight (0 to 1440), as every screen, report and audit line writes it: 0 and 1440
/// are "12:00 Mid", 720 is "12:00 Noon", 725 is "12:05 PM". 779, one minute before 1 PM, reads "0:59 PM". With
/// `militaryTime` the text so far passes through the locale's short time format instead, in 24 hours: "14:05".
QString MinutesToTimeText(int minutes, bool militaryTime);
